#include "adapters/sqlite/sqlite_connection.h"

#include "adapters/sqlite/database_file.h"
#include "support/file_bytes.h"

#include <doctest/doctest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

using namespace inin;
using namespace inin::sqlite;

namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;

const char *const kTableOfOne = "CREATE TABLE T (cName TEXT); INSERT INTO T VALUES ('before')";

/// A pool whose clock moves only when the test sets it.
struct PoolWithFakeClock {
    SqlitePool::TimePoint now{};
    SqlitePool pool{[this] { return now; }};
    DatabaseFile file{kTableOfOne};
    std::shared_ptr<std::vector<ProviderError>> errors = std::make_shared<std::vector<ProviderError>>();

    std::unique_ptr<SqliteHandle> open(const DatabaseFile &of)
    {
        auto handle = std::make_unique<SqliteHandle>(of.path(), of.path(), kDefaultCommandTimeout, errors);
        pool.lend(*handle);
        return handle;
    }
    std::unique_ptr<SqliteHandle> open() { return open(file); }
};

#ifdef _WIN32
// There, listing the open files of a process requires the rights of a driver.
#define CHECK_TIMES_OPEN(file, times) (void)(file)
#else
#define CHECK_TIMES_OPEN(file, times) CHECK(timesOpen(file) == (times))
/// The number of times that this process has the file open, read from the system.
std::size_t timesOpen(const DatabaseFile &file)
{
    std::size_t count = 0;
    std::error_code gone; // the descriptor of the listing itself
    for (const auto &entry : fs::directory_iterator("/proc/self/fd"))
        if (fs::read_symlink(entry.path(), gone) == fs::path(file.path())) ++count;
    return count;
}
#endif

/// Sets the time of the file's last write relative to now.
void setLastWrite(const DatabaseFile &file, std::chrono::hours offset)
{
    static const fs::file_time_type now = fs::file_time_type::clock::now();
    fs::last_write_time(file.path(), now + offset);
}

std::string firstName(Database &database, const DatabaseFile &file)
{
    const auto connection = database.newConnection();
    connection->Open(file.connectionString(), "", "", -1);
    const auto rows = database.newRecordset();
    rows->Open("SELECT cName FROM T", *connection, 0, 1, 1);
    return shown(rows->Value(0));
}

} // namespace

TEST_CASE_FIXTURE(PoolWithFakeClock, "an idle connection is kept for less than a minute")
{
    pool.giveBack("a", open());
    now += 59999ms;
    CHECK(pool.take("a") != nullptr);
    CHECK(pool.idleCount() == 0);

    pool.giveBack("a", open());
    now += 60s;
    CHECK(pool.take("a") == nullptr);
    CHECK(pool.idleCount() == 0);
}

TEST_CASE_FIXTURE(PoolWithFakeClock, "a connection is lent only to sessions with its own connection string")
{
    pool.giveBack("a", open());
    CHECK(pool.take("A") == nullptr);
    CHECK(pool.take("a ") == nullptr);
    CHECK(pool.take("a") != nullptr);
}

TEST_CASE_FIXTURE(PoolWithFakeClock, "each connection is lent once, the most recent first")
{
    std::unique_ptr<SqliteHandle> one = open(), two = open();
    const SqliteHandle *const latest = two.get();
    pool.giveBack("a", std::move(one));
    pool.giveBack("a", std::move(two));
    CHECK(pool.idleCount() == 2);
    const auto first = pool.take("a");
    CHECK(first.get() == latest);
    const auto second = pool.take("a");
    CHECK(second != nullptr);
    CHECK(second.get() != latest);
    CHECK(pool.take("a") == nullptr);
}

TEST_CASE_FIXTURE(PoolWithFakeClock, "at most four connections remain idle")
{
    std::vector<std::unique_ptr<SqliteHandle>> burst;
    burst.reserve(6);
    for (int i = 0; i < 6; ++i) burst.push_back(open());
    for (auto &handle : burst) pool.giveBack("a", std::move(handle));
    CHECK(pool.idleCount() == 4);
    CHECK_TIMES_OPEN(file, 4);
}

TEST_CASE_FIXTURE(PoolWithFakeClock, "any request closes the expired connections of all connection strings")
{
    pool.giveBack("a", open());
    now += 61s;
    CHECK(pool.take("b") == nullptr);
    CHECK_TIMES_OPEN(file, 0);
}

TEST_CASE_FIXTURE(PoolWithFakeClock, "a closed pool keeps neither idle nor returned connections")
{
    std::unique_ptr<SqliteHandle> lent = open();
    pool.giveBack("a", open());
    pool.close();
    CHECK(pool.idleCount() == 0);
    pool.giveBack("a", std::move(lent));
    CHECK(pool.idleCount() == 0);
    CHECK_TIMES_OPEN(file, 0);
}

#ifndef _WIN32 // an open file can be neither deleted nor replaced there
TEST_CASE_FIXTURE(PoolWithFakeClock, "a connection whose file was deleted or replaced is not lent again")
{
    pool.giveBack("a", open());
    fs::remove(file.path());
    CHECK(pool.take("a") == nullptr);

    file.run(kTableOfOne);
    pool.giveBack("a", open());
    const DatabaseFile other("CREATE TABLE T (cName TEXT)");
    fs::rename(other.path(), file.path());
    CHECK(pool.take("a") == nullptr);
    CHECK(pool.idleCount() == 0);
}

#endif

TEST_CASE_FIXTURE(PoolWithFakeClock, "a connection whose file was overwritten in place is not lent again")
{
    setLastWrite(file, std::chrono::hours(-2));
    pool.giveBack("a", open());
    CHECK(pool.take("a") != nullptr);

    pool.giveBack("a", open());
    setLastWrite(file, std::chrono::hours(-1));
    CHECK(pool.take("a") == nullptr);

    pool.giveBack("a", open());
    std::ofstream(file.path(), std::ios::binary | std::ios::app) << std::string(4096, '\0');
    setLastWrite(file, std::chrono::hours(-1));
    CHECK(pool.take("a") == nullptr);
}

TEST_CASE("a file that was overwritten in place with the same header is read again")
{
    const DatabaseFile file(kTableOfOne), other("CREATE TABLE T (cName TEXT); INSERT INTO T VALUES ('after!')");
    setLastWrite(file, std::chrono::hours(-1));
    const auto database = plainDatabase();
    CHECK(firstName(*database, file) == "before");
    const std::string bytes = bytesOf(other.path());
    REQUIRE(bytes.substr(0, 100) == bytesOf(file.path()).substr(0, 100));
    std::fstream(file.path(), std::ios::binary | std::ios::in | std::ios::out) << bytes;
    CHECK(firstName(*database, file) == "after!");
}

TEST_CASE("consecutive sessions share one open file, and concurrent sessions do not")
{
    const DatabaseFile file(kTableOfOne);
    const auto database = plainDatabase();
    for (int i = 0; i < 3; ++i) CHECK(firstName(*database, file) == "before");
    CHECK_TIMES_OPEN(file, 1);
    const auto one = database->newConnection(), two = database->newConnection();
    one->Open(file.connectionString(), "", "", -1);
    two->Open(file.connectionString(), "", "", -1);
    CHECK_TIMES_OPEN(file, 2);
}

#ifndef _WIN32
TEST_CASE("a file that replaced another one is read by the next session")
{
    const DatabaseFile file(kTableOfOne);
    const auto database = plainDatabase();
    CHECK(firstName(*database, file) == "before");
    const DatabaseFile other("CREATE TABLE T (cName TEXT); INSERT INTO T VALUES ('after')");
    fs::rename(other.path(), file.path());
    CHECK(firstName(*database, file) == "after");
}

TEST_CASE("opening a session fails when the file of an idle connection was deleted")
{
    const DatabaseFile file(kTableOfOne);
    const auto database = plainDatabase();
    CHECK(firstName(*database, file) == "before");
    fs::remove(file.path());
    const Raised raised = raisedBy([&] { (void)firstName(*database, file); });
    CHECK(raised.number == ado_error::unspecified);
    CHECK(raised.description ==
          "データベースのファイルを開けません。（unable to open database file: " + file.path() + "）");
    CHECK_FALSE(fs::exists(file.path())); // nor is it created
}

#endif

TEST_CASE("an idle connection reads the changes of other programs")
{
    const DatabaseFile file(kTableOfOne);
    const auto database = plainDatabase();
    CHECK(firstName(*database, file) == "before");
    file.run("UPDATE T SET cName = 'changed'");
    CHECK(firstName(*database, file) == "changed");
}

TEST_CASE("the next session on an idle connection has its own command timeout and error list")
{
    const DatabaseFile file(kTableOfOne);
    const auto database = plainDatabase();
    {
        const auto connection = database->newConnection();
        connection->Open(file.connectionString(), "", "", -1);
        connection->setCommandTimeout(1);
        CHECK(raisedBy([&] { connection->Execute("SELECT FROM", 0); }).number == ado_error::faultyStatement);
    }
    const auto connection = database->newConnection();
    connection->Open(file.connectionString(), "", "", -1);
    CHECK(connection->CommandTimeout() == 30);
    CHECK(connection->Errors().empty());
}

TEST_CASE("a session that outlives the Database object closes its file at its end")
{
    const DatabaseFile file(kTableOfOne);
    auto database = plainDatabase();
    auto connection = database->newConnection();
    connection->Open(file.connectionString(), "", "", -1);
    database.reset();
    CHECK(connection->State() == adStateOpen);
    connection.reset();
    CHECK_TIMES_OPEN(file, 0);
}
