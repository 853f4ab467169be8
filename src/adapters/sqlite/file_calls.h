#pragma once

#include <sqlite3.h>

namespace inin {

/// The set of file calls to open a database with: on Windows the one without the classic limit of paths, else SQLite's own
/// choice.
inline const char *databaseFileCalls()
{
    constexpr const char *kUnlimited = "win32-longpath";
    return sqlite3_vfs_find(kUnlimited) == nullptr ? nullptr : kUnlimited;
}

} // namespace inin
