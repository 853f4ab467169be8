// A month's and a day's letters over ODBC, on the server that with_postgres starts: the month as a whole process
// compared with a plain program that only fetches the rows of the same statement in blocks; the day with its log-ins
// counted.

#include "adapters/odbc/odbc_database.h"
#include "bench/bench_process.h"
#include "bench/bench_site.h"
#include "bench/figures.h"
#include "demo_site/demo_tables.h"
#include "demo_site/embedded.h"
#include "demo_site/server_maker.h"
#include "support/replace_all.h"
#include "system/whole_file.h"

#include <fmt/format.h>

#include <cstdlib>
#include <exception>
#include <stdexcept>

namespace inin::bench {

using namespace odbc;

namespace {

namespace fs = std::filesystem;

/// Enough patients for slightly more than 32,000 letters.
constexpr std::int64_t kPatients = 33700;
constexpr int kRuns = 5;

std::string fromEnvironment(const char *name)
{
    const char *value = std::getenv(name);
    if (value == nullptr) throw std::runtime_error("run this by tests/adapters/odbc/with_postgres");
    return value;
}

std::string server()
{
    return fromEnvironment("ININ_ODBC_POSTGRES");
}

/// SQL Server's tables in this server's dialect, so that the columns are equally short.
std::string schema()
{
    std::string text(site::serverSchemaText());
    for (const auto &[from, to] : {std::pair<std::string_view, std::string_view>{" COLLATE Japanese_CI_AS", ""},
                                   {"NVARCHAR(MAX)", "TEXT"},
                                   {"VARBINARY(MAX)", "BYTEA"},
                                   {"NVARCHAR", "VARCHAR"},
                                   {"DATETIME", "TIMESTAMP"}})
        text = replaceAll(std::move(text), from, to);
    return text;
}

/// Four visits per patient in the month, the fourth on a separate day for one in sixteen.
void fillServer()
{
    const auto database = makeOdbcDatabase();
    const auto connection = database->newConnection();
    connection->Open(server(), "", "", -1);
    connection->setCommandTimeout(0);
    const std::string text = schema();
    const site::ServerDialect dialect{text, {"'\\x", "'"}};
    site::makeServerTables(*database, *connection, dialect);
    const site::SiteOrder order{kPatients, 1, std::chrono::year{kYear} / static_cast<int>(kMonth)};
    site::ServerTarget target(*connection, dialect.binary);
    connection->BeginTrans();
    site::writeFixedTables(target, order);
    site::writeCompanies(target, order);
    site::writePatients(target, order);
    target.finish();
    connection->CommitTrans();
    connection->Execute("INSERT INTO SCHEDULE (iKyotenCd, iKyotenEb, nIDRiyoushaNo, nIDStaffNo, nDate)"
                        " SELECT 1, 1, nIDNo, 1, 20240500 + d + CASE WHEN d = 22 THEN nIDNo % 16 / 2 ELSE 0 END"
                        " FROM RIYOUSHA, generate_series(1, 22, 7) AS d",
                        0);
    for (const std::string &statement : site::statementsOf(text))
        if (statement.starts_with("CREATE INDEX")) connection->Execute(statement, 0);
    connection->Execute("ANALYZE", 0);
}

void makeFolder(const fs::path &folder)
{
    fs::create_directories(folder / "TMP");
    writeWholeFile(folder / "adodb.ini", site::connectionFile(server()), NewFile::byTheMask);
    writeWholeFile(folder / "Massage.ini", "SYSTEM_TMP=\\TMP\r\n", NewFile::byTheMask);
}

/// Runs in the child process.
int runMonth(const std::string &folder)
{
    BenchScreen screen(folder, makeOdbcDatabase());
    screen.writeMonth();
    return 0;
}

/// A day's letters query the last visit of each candidate in a session of its own.
void measureDay(const std::string &folder)
{
    auto owned = makeOdbcDatabase();
    const OdbcDatabase &database = *owned;
    BenchScreen screen(folder, std::move(owned));
    screen.form().iTgtDateKind = 2;
    screen.form().csTargetDate = fmt::format("{:04}/{:02}/22", kYear, kMonth);
    const auto start = std::chrono::steady_clock::now();
    if (screen.form().iGetKanjaDataDay() != iGood) throw std::runtime_error("the extraction failed");
    const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - start;
    print({.name = fmt::format("a day's {} letters over ODBC", screen.form().iRowCount),
           .ours = secondsText(spent.count())});
    print({.name = "its log-ins", .ours = fmt::format("{}", database.logIns()), .aim = "2"});
}

int compare(const std::string &self)
{
    const fs::path folder = fs::path(fromEnvironment("ININ_ODBC_FOLDER")) / "site";
    makeFolder(folder);
    fillServer();
    const std::string output = (folder / "bench.out").string();
    const std::string plainOutput = (folder / "plain.out").string();
    const std::string plainProgram = fs::path(self).replace_filename("bench_odbc_plain").string();
    const Race race = raceOf({{self, "run", folder.string()}, output},
                             {{plainProgram, server(), monthStatement()}, plainOutput}, kRuns);
    print(raceFigure(fmt::format("a month's {} letters over ODBC to CSV", firstLine(output)), race, "plain block fetch",
                     "ratio 1.50"));
    print({"rows of the same statement", firstLine(output), firstLine(plainOutput) + " plain block fetch"});
    measureDay(folder.string());
    return 0;
}

} // namespace

} // namespace inin::bench

int main(int argc, char **argv)
try {
    const std::vector<std::string> arguments(argv, argv + argc);
    if (arguments.size() == 3 && arguments[1] == "run") return inin::bench::runMonth(arguments[2]);
    return inin::bench::compare(arguments[0]);
} catch (const inin::RuntimeError &error) {
    fmt::print(stderr, "bench_odbc: {}\n", error.description());
    return 1;
} catch (const std::exception &fault) {
    fmt::print(stderr, "bench_odbc: {}\n", fault.what());
    return 1;
}
