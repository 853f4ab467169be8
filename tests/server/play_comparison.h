#pragma once

#include "app/inin_site/server_maker.h"
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

/// Plays a scenario on the embedded database and on a server with the same rows, and holds the second against the first:
/// every event, and every file that the run leaves. Empty when there is no difference.
[[nodiscard]] std::string serverDifference(const Play &play, const ServerPlayOptions &options);

} // namespace inin::test
