#pragma once

#include "demo_site/server_maker.h"
#include "platform/database.h"

#include <filesystem>

namespace inin::test {

/// Gives a server's database the tables and rows of an embedded one: tables and columns that the embedded one does not
/// have are not there either, columns that no script of ours declares are left out.
void copyDatabase(const std::filesystem::path &embedded, Database &database, Connection &server,
                  const site::ServerDialect &dialect);

} // namespace inin::test
