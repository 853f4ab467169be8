#pragma once

#include "demo_site/server_maker.h"
#include "scenarios/play.h"

#include <string>

namespace inin::test {

/// What is compared, and how strictly.
struct ServerPlayOptions {
    std::string connectionString;
    site::ServerDialect dialect;
    /// Lines of a letter file may stand in another order: a server is free where the statement names none.
    bool isAnyOrder = false;
};

/// Why a scenario says nothing about a server; empty for all others. What it does to the embedded file or puts into its
/// columns, no server takes.
[[nodiscard]] std::string embeddedOnly(const std::string &playName);

/// Plays a scenario on the embedded database and on a server with the same rows, and holds the second against the first:
/// every event, and every file that the run leaves. Each has its own words for a failed statement: of these only ADO's
/// number is compared. Empty when there is no difference.
[[nodiscard]] std::string serverDifference(const Play &play, const ServerPlayOptions &options);

} // namespace inin::test
