#pragma once

#include "adapters/database/ado_error.h"

#include <cstdint>
#include <string>
#include <string_view>

struct sqlite3;

namespace inin::sqlite {

/// SQLite's message, for the common errors after Japanese words: "テーブルがありません。（no such table: T）".
[[nodiscard]] std::string shownMessage(int code, std::string_view message);
/// An entry of the error list for the last error of SQLite on `db`.
[[nodiscard]] ProviderError providerError(sqlite3 *db, int code);
/// An entry for an error that the adapter detects itself.
[[nodiscard]] ProviderError providerError(std::int32_t number, std::string_view sqlState, std::string description,
                                          std::int32_t nativeError = 0);

} // namespace inin::sqlite
