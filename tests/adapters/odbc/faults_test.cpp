// Faults of statements and connections, on PostgreSQL's driver.

#include "adapters/odbc/driver_stage.h"
#include "adapters/odbc/odbc_string.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::odbc;
using namespace inin::test;

namespace {

/// Ends the connection of a session from a second session.
void endConnectionOf(const Session &session)
{
    const Variant process = session.value("SELECT pg_backend_pid() AS a");
    const Session killer(postgres());
    (void)killer.value("SELECT pg_terminate_backend(" + std::to_string(*process.getIf<std::int32_t>()) + ") AS a");
}

std::string replaced(std::string text, const std::string &from, const std::string &to)
{
    return text.replace(text.find(from), from.size(), to);
}

std::string password()
{
    const std::string text = postgres();
    return text.substr(text.find("PWD=") + 4);
}

bool isReported(const Connection &connection, const std::string &words)
{
    for (const ProviderError &error : const_cast<Connection &>(connection).Errors())
        if (error.Description.find(words) != std::string::npos) return true;
    return false;
}

} // namespace

TEST_CASE("a violated constraint has its number: a duplicate key, a NULL that is not allowed")
{
    const Session session(postgres());
    session.table("keyed", "n INTEGER PRIMARY KEY, t VARCHAR(3) NOT NULL");
    session.run("INSERT INTO keyed VALUES (1, 'a')");
    CHECK(errorOf([&] { session.run("INSERT INTO keyed VALUES (1, 'b')"); }).number() == -2147217873);
    CHECK(errorOf([&] { session.run("INSERT INTO keyed VALUES (2, NULL)"); }).number() == -2147217873);
    REQUIRE(session.connection->Errors().size() == 1);
    CHECK(session.connection->Errors()[0].SQLState == "23502");
    CHECK(errorOf([&] { session.run("INSERT INTO keyed VALUES (2, 'long')"); }).number() == -2147217900);
    CHECK(errorOf([&] { session.run("INSERT INTO keyed VALUES (99999999999, 'a')"); }).number() == -2147217900);
    CHECK(errorOf([&] { (void)session.open("SELECT 1 / 0"); }).number() == -2147217900);
}

TEST_CASE("a failure in the middle of the rows is raised at its row, not earlier")
{
    const Session session(postgres() + ";UseDeclareFetch=1;Fetch=50");
    const auto rows = session.open("SELECT 1000 / (700 - n) AS a FROM generate_series(1, 2000) AS n");
    std::int32_t read = 0;
    const RuntimeError error = errorOf([&] {
        for (; !rows->isEndOfFile(); rows->MoveNext()) ++read;
    });
    CHECK(error.number() == -2147217900);
    CHECK(read >= 512); // this driver drops the good rows of the failed block
    CHECK(read <= 699);
    CHECK(rows->isEndOfFile());
    CHECK(session.connection->Errors().size() == 1);
}

TEST_CASE("a failure after rows that were kept in memory is raised at its row")
{
    const Session session(postgres() + ";UseDeclareFetch=1;Fetch=50");
    const auto rows = session.open("SELECT 1000 / (700 - n) AS a FROM generate_series(1, 2000) AS n");
    const RuntimeError second = errorOf([&] { (void)session.open("SELECT 1 AS a"); });
    (void)second; // the server has ended its transaction; whether a second statement runs in it depends on the server
    std::int32_t read = 0;
    const RuntimeError error = errorOf([&] {
        for (; !rows->isEndOfFile(); rows->MoveNext()) ++read;
    });
    CHECK(error.number() == -2147217900);
    CHECK(read >= 512);
    CHECK(read <= 699);
}

TEST_CASE("a command that takes too long fails with the number of a timeout")
{
    const Session session(postgres());
    session.connection->setCommandTimeout(1);
    CHECK(errorOf([&] { (void)session.open("SELECT pg_sleep(20) AS a"); }).number() == -2147217871);
    CHECK(session.value("SELECT 1") == Variant(std::int32_t{1}));
}

TEST_CASE("after a lost connection the next operation fails with an error list and the session can be reopened")
{
    const Session session(postgres());
    endConnectionOf(session);
    const RuntimeError error = errorOf([&] { (void)session.open("SELECT 1 AS a"); });
    CHECK(error.number() != 0);
    CHECK_FALSE(session.connection->Errors().empty());
    CHECK(session.connection->State() == adStateOpen);
    session.connection->Close();
    session.connection->Open(postgres(), "", "", -1);
    CHECK(session.value("SELECT 1") == Variant(std::int32_t{1}));
}

TEST_CASE("every operation on a lost connection fails and none hangs")
{
    const Session session(postgres());
    endConnectionOf(session);
    for (int round = 0; round < 2; ++round) {
        CHECK(errorOf([&] { session.run("UPDATE nothing SET a = 1"); }).number() != 0);
        CHECK(errorOf([&] { (void)session.open("SELECT 1"); }).number() != 0);
    }
    CHECK(errorOf([&] { session.connection->Close(); }).number() == 0);
}

TEST_CASE("a connection that is lost in a transaction fails at its end and leaves no transaction open")
{
    const Session session(postgres());
    session.table("left_open", "n INTEGER");
    session.connection->BeginTrans();
    session.run("INSERT INTO left_open VALUES (1)");
    endConnectionOf(session);
    CHECK(errorOf([&] { session.connection->CommitTrans(); }).number() != 0);
    session.connection->Close();
    session.connection->Open(postgres(), "", "", -1);
    CHECK(session.column("SELECT n FROM left_open").empty());
}

TEST_CASE("an idle connection that was lost is not reused")
{
    const std::shared_ptr<OdbcDatabase> library = makeOdbcDatabase();
    {
        const Session session(postgres(), library);
        endConnectionOf(session);
    }
    const Session next(postgres(), library);
    CHECK(next.value("SELECT 1") == Variant(std::int32_t{1}));
    CHECK(library->logIns() == 2);
}

TEST_CASE("a refused log-in has its number, leaves the session closed and reveals no password")
{
    const auto database = makeOdbcDatabase();
    const auto connection = database->newConnection();
    const std::string wrong = replaced(postgres(), password(), "falsches-geheimnis");
    const RuntimeError error = errorOf([&] { connection->Open(wrong, "", "", -1); });
    CHECK(error.number() == -2147217843);
    CHECK(connection->State() == adStateClosed);
    CHECK_FALSE(connection->Errors().empty());
    CHECK(error.description().find("falsches-geheimnis") == std::string::npos);
    CHECK_FALSE(isReported(*connection, "falsches-geheimnis"));
    connection->Open(postgres(), "", "", -1);
    CHECK(connection->State() == adStateOpen);
}

TEST_CASE("a user and password passed beside the string take precedence")
{
    const auto database = makeOdbcDatabase();
    const auto connection = database->newConnection();
    const std::string wrong = replaced(postgres(), password(), "falsch");
    connection->Open(wrong, "inin", password(), -1);
    CHECK(connection->State() == adStateOpen);
}

TEST_CASE("a missing database, an unknown driver and an unknown data source are each reported")
{
    const auto database = makeOdbcDatabase();
    const auto connection = database->newConnection();
    const auto numberOf = [&](const std::string &text) {
        return errorOf([&] { connection->Open(text, "", "", -1); }).number();
    };
    CHECK(numberOf(withDatabase(postgres(), "no_such_database")) == -2147467259);
    CHECK(isReported(*connection, "no_such_database"));
    CHECK(numberOf("Driver=/no/such/driver.so;PWD=geheimnis") == -2147467259);
    CHECK(isReported(*connection, "names a driver by a path that is not registered"));
    CHECK_FALSE(isReported(*connection, "geheimnis"));
    CHECK(numberOf("no_such_data_source") == -2147467259);
    REQUIRE_FALSE(connection->Errors().empty());
    CHECK(connection->Errors()[0].SQLState == "IM002");
    CHECK(numberOf("Provider=NoSuchProvider;Password=geheimnis") == -2147467259);
    CHECK_FALSE(isReported(*connection, "geheimnis"));
    CHECK(connection->State() == adStateClosed);
}

TEST_CASE("a server message is not a failure, at the log-in and at a statement")
{
    const Session session(postgres() + ";ConnSettings={DO $$BEGIN RAISE NOTICE 'hello'; END$$}");
    CHECK(session.connection->State() == adStateOpen);
    CHECK(errorOf([&] { session.run("DO $$BEGIN RAISE WARNING 'mind this'; END$$"); }).number() == 0);
    CHECK(session.connection->Errors().empty());
}

TEST_CASE("after a faulty statement in a transaction the caller decides how it ends")
{
    const Session session(postgres());
    session.table("within", "n INTEGER");
    session.connection->BeginTrans();
    session.run("INSERT INTO within VALUES (1)");
    CHECK(errorOf([&] { session.run("INSERT INTO within VALUES ('x')"); }).number() == -2147217900);
    CHECK(errorOf([&] { session.connection->RollbackTrans(); }).number() == 0);
    CHECK(session.column("SELECT n FROM within").empty());
}

TEST_CASE("a failing later statement of a batch is reported")
{
    const Session session(postgres());
    session.table("batch", "n INTEGER PRIMARY KEY");
    CHECK(session.run("INSERT INTO batch VALUES (1); INSERT INTO batch VALUES (2), (3)") == 3);
    CHECK(errorOf([&] { session.run("INSERT INTO batch VALUES (4); INSERT INTO batch VALUES (4)"); }).number() ==
          -2147217873);
}

TEST_CASE("a session that changed settings of its own database does not affect the next one")
{
    const std::shared_ptr<OdbcDatabase> library = makeOdbcDatabase();
    {
        const Session session(postgres(), library);
        session.connection->setCommandTimeout(1);
    }
    const Session next(postgres(), library);
    CHECK(errorOf([&] { (void)next.open("SELECT pg_sleep(2) AS a"); }).number() == 0);
    CHECK(library->logIns() == 1);
}
