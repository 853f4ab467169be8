#include "adapters/sqlite/sqlite_connection.h"

#include "adapters/sqlite/database_file.h"

#include <doctest/doctest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>

using namespace inin;
using namespace inin::sqlite;

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

/// The error of opening a session, the error list and the state of the session.
struct Opening {
    Raised raised;
    std::vector<ProviderError> errors;
    std::int32_t state = 0;
};
Opening openOf(const std::string &connectionString)
{
    const auto database = plainDatabase();
    const auto connection = database->newConnection();
    Opening opening;
    opening.raised = raisedBy([&] { connection->Open(connectionString, "", "", -1); });
    opening.errors = connection->Errors();
    opening.state = connection->State();
    return opening;
}

/// A file with any content in place of a database.
struct ForeignFile {
    DatabaseFile file;
    explicit ForeignFile(const std::string &bytes) { std::ofstream(file.path(), std::ios::binary) << bytes; }
};

void checkRefused(const Opening &opening, const std::string &description)
{
    CHECK(opening.raised.number == ado_error::unspecified);
    CHECK(opening.raised.description == description);
    CHECK(opening.state == adStateClosed);
    REQUIRE(opening.errors.size() == 1);
    CHECK(opening.errors[0].Description == description);
}

const char *const kTableOfTwo = "CREATE TABLE T (nID INTEGER); INSERT INTO T VALUES (1), (2)";
const char *const kEndless = "WITH r(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM r) SELECT count(*) FROM r";
/// Each row takes SQLite long enough to check the timeout.
const char *const kSlowRows = "SELECT (WITH r(n) AS (SELECT T.nID UNION ALL SELECT n + 1 FROM r WHERE n < 5000) "
                              "SELECT max(n) FROM r) FROM T";

/// A session with a timeout of one second by a simulated clock, which advances by `tick` at each timeout check.
struct TimedSession {
    DatabaseFile file{kTableOfTwo};
    SqlitePool::TimePoint now{};
    std::chrono::milliseconds tick{0};
    SqliteConnection connection{std::make_shared<SqlitePool>([this] { return now += tick; }),
                                [](const std::string &path) { return path; }};

    TimedSession() { connection.setCommandTimeout(1); }
    void openSession() { connection.Open(file.connectionString(), "", "", -1); }
    void read(const std::string &sql) { SqliteRecordset().Open(sql, connection, 0, 1, 1); }
    /// Checks that the operation times out after one second of the simulated clock.
    void checkTimesOut(const std::function<void()> &operation, const std::string &description)
    {
        const SqlitePool::TimePoint start = now;
        tick = 10ms;
        const Raised raised = raisedBy(operation);
        tick = 0ms;
        CHECK(raised.number == ado_error::timedOut);
        CHECK(raised.description == description);
        REQUIRE(connection.Errors().size() == 1);
        CHECK(connection.Errors()[0].SQLState == "HYT00");
        CHECK(now - start >= 1s);
        CHECK(now - start < 1100ms);
    }
};

} // namespace

TEST_CASE("a missing file is refused and not created")
{
    DatabaseFile file;
    fs::remove(file.path());
    checkRefused(openOf(file.connectionString()),
                 "データベースのファイルを開けません。（unable to open database file: " + file.path() + "）");
    CHECK_FALSE(fs::exists(file.path()));
}

TEST_CASE("a folder in place of the file is refused")
{
    const DatabaseFile file;
    const std::string folder = fs::path(file.path()).parent_path().string();
    checkRefused(openOf("Provider=SQLite;Data Source=" + folder),
                 "データベースのファイルを開けません。（unable to open database file: " + folder + "）");
}

TEST_CASE("an empty file is refused")
{
    const ForeignFile foreign("");
    checkRefused(openOf(foreign.file.connectionString()),
                 "データベースのファイルではありません。（file is empty or cannot be read: " + foreign.file.path() +
                     "）");
    CHECK(fs::file_size(foreign.file.path()) == 0);
}

TEST_CASE("a short or long file that is not a database is refused")
{
    for (const std::string &bytes : {std::string("x"), std::string("[接続情報]\r\n"), std::string(100000, '\0'),
                                     std::string("SQLite format 2\0", 16) + std::string(5000, 'x')}) {
        const ForeignFile foreign(bytes);
        checkRefused(openOf(foreign.file.connectionString()),
                     "データベースのファイルではありません。（file is not a database: " + foreign.file.path() + "）");
    }
}

TEST_CASE("a file with only the header of a database is refused with the provider's message")
{
    const ForeignFile foreign(std::string("SQLite format 3\0", 16) + std::string(5000, 'x'));
    checkRefused(openOf(foreign.file.connectionString()),
                 "データベースのファイルではありません。（file is not a database）");
}

TEST_CASE("a damaged page of a database fails when it is read")
{
    const DatabaseFile file("CREATE TABLE T (cText TEXT); INSERT INTO T VALUES (hex(zeroblob(30000)))");
    std::fstream bytes(file.path(), std::ios::binary | std::ios::in | std::ios::out);
    bytes.seekp(4096);
    bytes << std::string(4096, '\xFF');
    bytes.close();
    Session session(file);
    CHECK(raisedBy([&] { (void)session.open("SELECT * FROM T"); }).number == ado_error::unspecified);
    CHECK(session.connection().Errors().at(0).Description ==
          "データベースが壊れています。（database disk image is malformed）");
}

TEST_CASE("the error for a connection string without provider or source does not quote it")
{
    checkRefused(openOf("Data Source=x.db;Password=secret"), "the connection string names no Provider");
    checkRefused(openOf("Provider=SQLOLEDB;Data Source=x;Password=secret"),
                 "this database is opened by Provider=SQLite, not by SQLOLEDB");
    checkRefused(openOf("Provider=SQLite;Password=secret"), "the connection string names no Data Source");
    checkRefused(openOf(""), "the connection string names no Provider");
    checkRefused(openOf("Provider=SQLite;Data Source=x.db;Password=\"secret"),
                 "the connection string cannot be read: a quoted value has no end");
}

TEST_CASE_FIXTURE(TimedSession, "opening a session on a locked file fails after the command timeout")
{
    const ExclusiveLock lock(file);
    const PauseCounter counter;
    checkTimesOut([&] { openSession(); }, "データベースがほかのプログラムに使われています。（database is locked）");
    CHECK(connection.State() == adStateClosed);
    CHECK(PauseCounter::pauses() > 0);
}

TEST_CASE_FIXTURE(TimedSession, "each command on a locked file fails after the command timeout")
{
    openSession();
    const ExclusiveLock lock(file);
    const PauseCounter counter;
    checkTimesOut([&] { read("SELECT nID FROM T"); },
                  "データベースがほかのプログラムに使われています。（database is locked）");
    checkTimesOut([&] { connection.Execute("DELETE FROM T", adExecuteNoRecords); },
                  "データベースがほかのプログラムに使われています。（database is locked）");
    checkTimesOut([&] { connection.BeginTrans(); },
                  "データベースがほかのプログラムに使われています。（database is locked）");
    CHECK(PauseCounter::pauses() > 0);
}

TEST_CASE_FIXTURE(TimedSession, "a statement that timed out at a lock runs once the lock is gone")
{
    openSession();
    {
        const ExclusiveLock lock(file);
        const PauseCounter counter;
        checkTimesOut([&] { read("SELECT nID FROM T"); },
                      "データベースがほかのプログラムに使われています。（database is locked）");
    }
    CHECK(raisedBy([&] { read("SELECT nID FROM T"); }).number == 0);
}

TEST_CASE("a session waits for another program's lock, even while another session of its own program is open")
{
    const DatabaseFile file(kTableOfTwo);
    Session session(file);
    const auto idle = session.database().newConnection();
    idle->Open(file.connectionString(), "", "", -1);
    std::optional<ExclusiveLock> lock(file);
    const PauseCounter counter([&] { lock.reset(); });

    CHECK(session.value("SELECT nID FROM T") == "1");

    CHECK(PauseCounter::pauses() == 1);
}

TEST_CASE("a commit waits for another program's reading, even while another session of its own program is open")
{
    const DatabaseFile file(kTableOfTwo);
    Session session(file), otherProgram(file);
    const auto idle = session.database().newConnection();
    idle->Open(file.connectionString(), "", "", -1);
    session.connection().BeginTrans();
    session.execute("INSERT INTO T VALUES (3)");
    auto rows = otherProgram.open("SELECT nID FROM T");
    const PauseCounter counter([&] { rows.reset(); });

    CHECK(raisedBy([&] { session.connection().CommitTrans(); }).number == 0);

    CHECK(PauseCounter::pauses() == 1);
    CHECK(session.value("SELECT count(*) FROM T") == "3");
}

TEST_CASE_FIXTURE(TimedSession,
                  "an endless statement is stopped after the command timeout, and the session remains usable")
{
    openSession();
    checkTimesOut([&] { read(kEndless); }, "interrupted");
    CHECK(raisedBy([&] { read("SELECT nID FROM T"); }).number == 0);
}

TEST_CASE_FIXTURE(TimedSession, "the time between two rows does not count towards the command timeout")
{
    openSession();
    SqliteRecordset rows;
    rows.Open(kSlowRows, connection, 0, 1, 1);
    now += 2s;
    CHECK(raisedBy([&] { rows.MoveNext(); }).number == 0);
    CHECK(shown(rows.Value(0)) == "5000");
    tick = 600ms; // without the pause, the same step times out
    CHECK(raisedBy([&] { rows.MoveFirst(); }).number == ado_error::timedOut);
}
