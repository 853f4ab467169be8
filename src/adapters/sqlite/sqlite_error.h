#pragma once

#include "adapters/common/ado_error.h"

#include <cstdint>
#include <string>
#include <string_view>

struct sqlite3;

namespace inin {

/// One entry of the error list for what SQLite just reported on `db`.
[[nodiscard]] ProviderError providerError(sqlite3 *db, int code);
/// An entry for a refusal of our own, before SQLite saw anything.
[[nodiscard]] ProviderError providerError(std::int32_t number, std::string_view sqlState, std::string description,
                                          std::int32_t nativeError = 0);

} // namespace inin
