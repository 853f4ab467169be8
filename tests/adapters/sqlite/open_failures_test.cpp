#include "adapters/sqlite/database_file.h"

#include <doctest/doctest.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

using namespace inin;

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

/// What the opening of a session raises, with the list that it leaves.
struct Opening {
    Raised raised;
    std::vector<ProviderError> errors;
    std::int32_t state = 0;
};
Opening openOf(const std::string &connectionString, std::int32_t timeout = 30)
{
    const auto database = plainDatabase();
    const auto connection = database->newConnection();
    connection->setCommandTimeout(timeout);
    Opening opening;
    opening.raised = raisedBy([&] { connection->Open(connectionString, "", "", -1); });
    opening.errors = connection->Errors();
    opening.state = connection->State();
    return opening;
}

/// A database file with other content.
struct SpoiledFile {
    DatabaseFile file;
    explicit SpoiledFile(const std::string &bytes) { std::ofstream(file.path(), std::ios::binary) << bytes; }
};

void checkRefused(const Opening &opening, const std::string &description)
{
    CHECK(opening.raised.number == ado_error::unspecified);
    CHECK(opening.raised.description == description);
    CHECK(opening.state == adStateClosed);
    REQUIRE(opening.errors.size() == 1);
    CHECK(opening.errors[0].Description == description);
}

double secondsOf(const std::function<void()> &operation)
{
    const Clock::time_point start = Clock::now();
    operation();
    return std::chrono::duration<double>(Clock::now() - start).count();
}

const char *const kTable = "CREATE TABLE T (nID INTEGER); INSERT INTO T VALUES (1)";
const char *const kEndless = "WITH r(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM r) SELECT count(*) FROM r";

} // namespace

TEST_CASE("a file that is not there is refused and not made")
{
    DatabaseFile file;
    fs::remove(file.path());
    checkRefused(openOf(file.connectionString()), "unable to open database file: " + file.path());
    CHECK_FALSE(fs::exists(file.path()));
}

TEST_CASE("a folder in the place of the file is refused")
{
    const DatabaseFile file;
    const std::string folder = fs::path(file.path()).parent_path().string();
    checkRefused(openOf("Provider=SQLite;Data Source=" + folder), "unable to open database file: " + folder);
}

TEST_CASE("an empty file is refused")
{
    const SpoiledFile spoiled("");
    checkRefused(openOf(spoiled.file.connectionString()), "file is empty or cannot be read: " + spoiled.file.path());
    CHECK(fs::file_size(spoiled.file.path()) == 0);
}

TEST_CASE("a file that is no database is refused, short or long")
{
    for (const std::string &bytes : {std::string("x"), std::string("[接続情報]\r\n"), std::string(100000, '\0'),
                                     std::string("SQLite format 2\0", 16) + std::string(5000, 'x')}) {
        const SpoiledFile spoiled(bytes);
        checkRefused(openOf(spoiled.file.connectionString()), "file is not a database: " + spoiled.file.path());
    }
}

TEST_CASE("a file that only begins as a database is refused with the words of the provider")
{
    const SpoiledFile spoiled(std::string("SQLite format 3\0", 16) + std::string(5000, 'x'));
    checkRefused(openOf(spoiled.file.connectionString()), "file is not a database");
}

TEST_CASE("a database whose pages are spoiled fails where they are read")
{
    const DatabaseFile file("CREATE TABLE T (cText TEXT); INSERT INTO T VALUES (hex(zeroblob(30000)))");
    std::fstream bytes(file.path(), std::ios::binary | std::ios::in | std::ios::out);
    bytes.seekp(4096);
    bytes << std::string(4096, '\xFF');
    bytes.close();
    Session session(file);
    CHECK(raisedBy([&] { (void)session.open("SELECT * FROM T"); }).number == ado_error::unspecified);
    CHECK(session.connection().Errors().at(0).Description == "database disk image is malformed");
}

TEST_CASE("a connection string without provider or source is refused without its words")
{
    checkRefused(openOf("Data Source=x.db;Password=secret"), "the connection string names no Provider");
    checkRefused(openOf("Provider=SQLOLEDB;Data Source=x;Password=secret"),
                 "this database is opened by Provider=SQLite, not by SQLOLEDB");
    checkRefused(openOf("Provider=SQLite;Password=secret"), "the connection string names no Data Source");
    checkRefused(openOf(""), "the connection string names no Provider");
}

TEST_CASE("a locked file times out the opening of a session after its seconds")
{
    const DatabaseFile file(kTable);
    const WholeLock lock(file);
    Opening opening;
    const double seconds = secondsOf([&] { opening = openOf(file.connectionString(), 1); });
    CHECK(opening.raised.number == ado_error::timedOut);
    CHECK(opening.raised.description == "database is locked");
    CHECK(opening.state == adStateClosed);
    CHECK(opening.errors.at(0).SQLState == "HYT00");
    CHECK(seconds >= 0.9);
    CHECK(seconds < 20);
}

TEST_CASE("a file that is locked after the session's opening times out each command after its seconds")
{
    const DatabaseFile file(kTable);
    Session session(file);
    session.connection().setCommandTimeout(1);
    const WholeLock lock(file);
    const std::function<void()> commands[] = {[&] { (void)session.open("SELECT nID FROM T"); },
                                              [&] { session.execute("DELETE FROM T"); },
                                              [&] { session.connection().BeginTrans(); }};
    for (const auto &command : commands) {
        Raised raised;
        const double seconds = secondsOf([&] { raised = raisedBy(command); });
        CHECK(raised.number == ado_error::timedOut);
        CHECK(session.connection().Errors().at(0).Description == "database is locked");
        CHECK(seconds >= 0.9);
        CHECK(seconds < 20);
    }
}

TEST_CASE("a statement that timed out at a lock runs once the lock is gone")
{
    const DatabaseFile file(kTable);
    Session session(file);
    {
        const WholeLock lock(file);
        session.connection().setCommandTimeout(1);
        CHECK(raisedBy([&] { (void)session.open("SELECT nID FROM T"); }).number == ado_error::timedOut);
    }
    CHECK(session.value("SELECT nID FROM T") == "1");
}

TEST_CASE("a lock of another program that ends in time costs only the waiting, beside other sessions of this one too")
{
    const DatabaseFile file(kTable);
    Session session(file);
    const auto idle = session.database().newConnection();
    idle->Open(file.connectionString(), "", "", -1);
    std::atomic<bool> isLocked = false;
    std::thread other([&] {
        const WholeLock lock(file);
        isLocked = true;
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
    });
    while (!isLocked) std::this_thread::yield();

    CHECK(session.value("SELECT nID FROM T") == "1");

    other.join();
}

TEST_CASE("a commit waits for another program's reading, beside an idle session of this one too")
{
    const DatabaseFile file("CREATE TABLE T (nID INTEGER); INSERT INTO T VALUES (1), (2)");
    Session session(file);
    const auto idle = session.database().newConnection();
    idle->Open(file.connectionString(), "", "", -1);
    session.connection().BeginTrans();
    session.execute("INSERT INTO T VALUES (3)");
    std::atomic<bool> isReading = false;
    std::thread other([&] {
        Session reader(file);
        const auto rows = reader.open("SELECT nID FROM T");
        isReading = true;
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        rows->Close();
    });
    while (!isReading) std::this_thread::yield();

    CHECK(raisedBy([&] { session.connection().CommitTrans(); }).number == 0);

    other.join();
    CHECK(session.value("SELECT count(*) FROM T") == "3");
}

TEST_CASE("a statement that does not end is stopped after the command timeout, and the session goes on")
{
    const DatabaseFile file(kTable);
    Session session(file);
    session.connection().setCommandTimeout(1);
    Raised raised;
    const double seconds = secondsOf([&] { raised = raisedBy([&] { (void)session.open(kEndless); }); });
    CHECK(raised.number == ado_error::timedOut);
    CHECK(raised.description == "interrupted");
    CHECK(seconds >= 0.9);
    CHECK(seconds < 20);
    CHECK(session.value("SELECT nID FROM T") == "1");
}

TEST_CASE("the time between two rows is the reader's own")
{
    const DatabaseFile file("CREATE TABLE T (nID INTEGER); INSERT INTO T VALUES (1), (2)");
    Session session(file);
    session.connection().setCommandTimeout(1);
    const auto rows = session.open("SELECT nID FROM T ORDER BY nID");
    const Clock::time_point until = Clock::now() + std::chrono::milliseconds(1100);
    while (Clock::now() < until) {
    }
    CHECK(raisedBy([&] { rows->MoveNext(); }).number == 0);
    CHECK(shown(rows->Value(0)) == "2");
}
