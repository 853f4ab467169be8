#pragma once

#include <sqlite3.h>

namespace inin {

/// The VFS to open a database with: on Windows the one without the path limit of 260 characters, else the default.
inline const char *databaseFileCalls()
{
    constexpr const char *kUnlimited = "win32-longpath";
    return sqlite3_vfs_find(kUnlimited) == nullptr ? nullptr : kUnlimited;
}

} // namespace inin
