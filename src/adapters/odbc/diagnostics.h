#pragma once

#include "platform/database.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace inin::odbc {

/// One diagnostic record as a driver or the driver manager gives it.
struct DiagnosticRecord {
    std::string sqlState;
    std::int32_t native = 0;
    std::string message; ///< with "[maker][component]" before the words

    /// Records of class 01 and 00 tell something; alone they are no failure.
    [[nodiscard]] bool isWarning() const { return sqlState.starts_with("01") || sqlState.starts_with("00"); }
};

/// True when one of the records is more than a warning. FreeTDS tells a failure behind the first rows of a block by
/// "success with info", and what follows by the plain end: only the records show that rows are missing.
[[nodiscard]] bool tellsFailure(const std::vector<DiagnosticRecord> &records);

/// The record as an entry of ADO's error list: words without the makers' brackets, the component as the source, ADO's
/// number. Secrets are left out of the words.
[[nodiscard]] ProviderError providerErrorOf(const DiagnosticRecord &record, const std::vector<std::string> &secrets);

/// An entry of our own, where a driver told nothing or was never asked.
[[nodiscard]] ProviderError ownError(std::int32_t number, std::string_view sqlState, std::string description);

/// True when the records tell that the server is no longer reached.
[[nodiscard]] bool tellsLostConnection(const std::vector<DiagnosticRecord> &records);

/// What failed, which decides the text of the error.
enum class Failure : std::uint8_t {
    statement,     ///< the text of the record alone: the caller shows the error list after it
    logIn,         ///< with the texts of the other records: the caller never shows the error list of a failed log-in
    lostConnection ///< a sentence about the lost connection, then the text of the record where it has one
};

/// Adds an entry for each record to the error list and raises the first one that is not a warning. Without any record
/// the list gets an entry of our own, because some failures leave no record.
[[noreturn]] void raiseRecords(std::vector<ProviderError> &errors, const std::vector<DiagnosticRecord> &records,
                               const std::vector<std::string> &secrets, Failure failure = Failure::statement);

} // namespace inin::odbc
