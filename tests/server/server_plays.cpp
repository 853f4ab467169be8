// Runs the scenarios on a server's database and compares them with the embedded one. The server's connection string is
// in the environment variable ININ_SERVER, so that no process list shows it:
//
//   server_plays create NAME      creates a database
//   server_plays drop NAME        drops it
//   server_plays string NAME      prints its connection string
//   server_plays play NAME [PLAY…]  runs all scenarios (or the named ones) on it
//
// ININ_SERVER_SCHEMA names another table script, for a server other than SQL Server.

#include "adapters/odbc/odbc_string.h"
#include "adapters/suite/suite_database.h"
#include "runtime/runtime_error.h"
#include "server/play_comparison.h"
#include "support/file_bytes.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <vector>

namespace inin::test {

using namespace odbc;

namespace {

namespace fs = std::filesystem;

std::string fromEnvironment(const char *name)
{
    const char *value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

struct Server {
    std::unique_ptr<Database> database = makeSuiteDatabase([](const std::string &path) { return path; });
    std::unique_ptr<Connection> connection = database->newConnection();

    Server() { connection->Open(fromEnvironment("ININ_SERVER"), "", "", -1); }
    void run(const std::string &sql) const { connection->Execute(sql, adExecuteNoRecords); }
    bool tryRun(const std::string &sql) const
    try {
        run(sql);
        return true;
    } catch (const RuntimeError &error) {
        fmt::print("  ({})\n", error.description());
        return false;
    }
};

/// If the server does not know this collation, the columns still have theirs.
int createDatabase(const std::string &name)
{
    const Server server;
    server.connection->setCommandTimeout(180);
    if (!server.tryRun("CREATE DATABASE " + name + " COLLATE Japanese_CI_AS")) server.run("CREATE DATABASE " + name);
    return 0;
}

/// Disconnects other users of the database; a server without that mode drops it anyway.
int dropDatabase(const std::string &name)
{
    const Server server;
    server.connection->setCommandTimeout(180);
    if (server.tryRun("DROP DATABASE " + name)) return 0;
    (void)server.tryRun("ALTER DATABASE " + name + " SET SINGLE_USER WITH ROLLBACK IMMEDIATE");
    server.run("DROP DATABASE " + name);
    return 0;
}

/// All scenarios if none is named.
std::vector<fs::path> playsNamed(const std::vector<std::string> &names)
{
    std::vector<fs::path> files;
    for (const std::string &path : playFiles()) {
        const fs::path file = pathOf(path);
        if (names.empty() || std::ranges::find(names, file.stem().string()) != names.end()) files.push_back(file);
    }
    return files;
}

std::string playOnServer(const fs::path &file, const ServerPlayOptions &options)
try {
    return serverDifference(readPlay(file.string()), options);
} catch (const RuntimeError &error) {
    return fmt::format("({}){}", error.number(), error.description());
} catch (const std::exception &fault) {
    return fault.what();
}

/// A named scenario that does not exist counts as failed, as does a run without any scenario.
int report(const std::vector<fs::path> &files, std::size_t named, const ServerPlayOptions &options)
{
    std::size_t same = 0;
    std::size_t left = 0;
    for (const fs::path &file : files) {
        const std::string name = file.stem().string();
        const std::string reason = embeddedOnly(name);
        const std::string difference = reason.empty() ? playOnServer(file, options) : std::string();
        if (!reason.empty())
            fmt::print("left    {}: {}\n", name, reason);
        else if (difference.empty())
            fmt::print("same    {}\n", name);
        else
            fmt::print("DIFFERS {}: {}\n", name, difference);
        std::fflush(stdout);
        if (!reason.empty()) ++left;
        if (reason.empty() && difference.empty()) ++same;
    }
    fmt::print("{} of {} scenarios are the same on the server, {} are of no server\n", same, files.size(), left);
    return same > 0 && same + left == files.size() && files.size() >= named ? 0 : 1;
}

int playAll(const std::string &name, const std::vector<std::string> &names)
{
    ServerPlayOptions options;
    options.connectionString = withDatabase(fromEnvironment("ININ_SERVER"), name);
    options.dialect = site::sqlServerDialect();
    options.isAnyOrder = fromEnvironment("ININ_SERVER_ANY_ORDER") == "1";
    std::string schema;
    if (const std::string own = fromEnvironment("ININ_SERVER_SCHEMA"); !own.empty()) {
        schema = bytesOf(own);
        options.dialect = {schema, {"'\\x", "'"}};
    }
    return report(playsNamed(names), names.size(), options);
}

int run(const std::vector<std::string> &arguments)
{
    if (arguments.size() < 2) return 2;
    const std::string &name = arguments[1];
    if (arguments[0] == "create") return createDatabase(name);
    if (arguments[0] == "drop") return dropDatabase(name);
    if (arguments[0] == "play") return playAll(name, {arguments.begin() + 2, arguments.end()});
    if (arguments[0] != "string") return 2;
    fmt::print("{}\n", withDatabase(fromEnvironment("ININ_SERVER"), name));
    return 0;
}

} // namespace

} // namespace inin::test

int main(int argc, char **argv)
try {
    const int result = inin::test::run({argv + 1, argv + argc});
    if (result == 2) fmt::print(stderr, "server_plays create|drop|string NAME, or play NAME [PLAY...]\n");
    return result;
} catch (const inin::RuntimeError &error) {
    fmt::print(stderr, "server_plays: ({}){}\n", error.number(), error.description());
    return 1;
} catch (const std::exception &fault) {
    fmt::print(stderr, "server_plays: {}\n", fault.what());
    return 1;
}
