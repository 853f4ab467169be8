#pragma once

#include "platform/database.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;

namespace inin {

namespace ado_error {
inline constexpr std::int32_t transactionRunning = -2147168237;
inline constexpr std::int32_t noTransaction = -2147168242;
inline constexpr std::int32_t badArgument = 3001;
inline constexpr std::int32_t notInThisContext = 3219;
} // namespace ado_error

/// One entry of the error list for what SQLite just reported on `db`.
[[nodiscard]] ProviderError providerError(sqlite3 *db, int code);
/// An entry for a refusal of our own, before SQLite saw anything.
[[nodiscard]] ProviderError providerError(std::int32_t number, std::string_view sqlState, std::string description,
                                          std::int32_t nativeError = 0);

/// Makes `error` the only entry of the list and raises it as a RuntimeError.
[[noreturn]] void raise(std::vector<ProviderError> &errors, ProviderError error);

// ADO's own refusals, which leave the error list as it is.
[[noreturn]] void raiseClosed();
[[noreturn]] void raiseOpen();

} // namespace inin
