#pragma once

#include "viewer/ledger/ledger_database.h"

#include <cstdint>

namespace inin::viewer {

/// The version of the tables that this program writes.
inline constexpr std::int64_t kLedgerVersion = 2;

enum class SchemaResult {
    ready,
    newer,   ///< written by a newer version
    foreign, ///< a database, but not a ledger
};
/// Creates the tables in an empty file, or brings those of an older version up to date, in one transaction. `number` is the
/// number of a new ledger. Throws LedgerError; also for an older version in a file that cannot be written.
[[nodiscard]] SchemaResult prepareSchema(LedgerDatabase &database, std::uint32_t number);

} // namespace inin::viewer
