#pragma once

#include "demo_site/server_maker.h"
#include "platform/database.h"

#include <filesystem>

namespace inin::test {

/// Creates the tables and rows of an embedded database on a server. Tables and columns that the embedded database lacks
/// are not created; columns that our scripts do not declare are omitted.
void copyDatabase(const std::filesystem::path &embedded, Database &database, Connection &server,
                  const site::ServerDialect &dialect);

} // namespace inin::test
