#pragma once

#include "platform/database.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace inin::odbc {

/// One diagnostic record from a driver or the driver manager.
struct DiagnosticRecord {
    std::string sqlState;
    std::int32_t native = 0;
    std::string message; ///< with the prefix "[maker][component]"

    /// Records of the classes 00 and 01 are informational and no failure by themselves.
    [[nodiscard]] bool isWarning() const { return sqlState.starts_with("01") || sqlState.starts_with("00"); }
};

/// True when a record is more than a warning. FreeTDS reports a failure after the first rows of a block as "success
/// with info" and then an ordinary end of rows: only the records show that rows are missing.
[[nodiscard]] bool isFailureRecord(const std::vector<DiagnosticRecord> &records);

/// The record as an entry of ADO's error list: ADO's number, the component as the source, the text without the
/// bracketed prefixes. Secrets are masked.
[[nodiscard]] ProviderError providerErrorOf(const DiagnosticRecord &record, const std::vector<std::string> &secrets);

/// An entry of our own, where the driver reported nothing or was not called.
[[nodiscard]] ProviderError ownError(std::int32_t number, std::string_view sqlState, std::string description);

/// True when a record reports that the connection to the server is lost.
[[nodiscard]] bool tellsLostConnection(const std::vector<DiagnosticRecord> &records);

/// The kind of failure, which decides the text of the error.
enum class Failure : std::uint8_t {
    statement,     ///< only the text of the record: the caller shows the error list after it
    logIn,         ///< with the texts of the other records: the caller does not show the error list of a failed log-in
    lostConnection ///< a sentence about the lost connection, then the text of the record if there is one
};

/// Adds each record to the error list and raises the first one that is not a warning. Without records the list gets an
/// entry of our own, because some failures leave none.
[[noreturn]] void raiseRecords(std::vector<ProviderError> &errors, const std::vector<DiagnosticRecord> &records,
                               const std::vector<std::string> &secrets, Failure failure = Failure::statement);

} // namespace inin::odbc
