#pragma once

#include "demo_site/server_maker.h"
#include "scenarios/play.h"

#include <string>

namespace inin::test {

/// What is compared, and how strictly.
struct ServerPlayOptions {
    std::string connectionString;
    site::ServerDialect dialect;
    /// Accept the lines of a letter file in any order: without ORDER BY a server is free.
    bool isAnyOrder = false;
};

/// Why a scenario cannot run on a server, because it manipulates the embedded file or stores values that a server
/// refuses; empty for all others.
[[nodiscard]] std::string embeddedOnly(const std::string &playName);

/// Runs a scenario on the embedded database and on a server with the same rows and compares every event and every
/// resulting file. Error texts of the providers differ, so only ADO's number is compared. Empty if there is no
/// difference.
[[nodiscard]] std::string serverDifference(const Play &play, const ServerPlayOptions &options);

} // namespace inin::test
