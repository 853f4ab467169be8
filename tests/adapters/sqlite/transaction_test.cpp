#include "adapters/sqlite/database_file.h"

#include <doctest/doctest.h>

#include <string>

using namespace inin;

namespace {

constexpr std::int32_t kRunning = -2147168237, kNone = -2147168242;

struct OneRow {
    DatabaseFile file{"CREATE TABLE T (nID INTEGER PRIMARY KEY, cName TEXT); INSERT INTO T VALUES (1, 'a')"};
    Session session{file};
    [[nodiscard]] std::string stored() const { return file.value("SELECT group_concat(nID || cName) FROM T"); }
};

} // namespace

TEST_CASE_FIXTURE(OneRow, "what a transaction wrote is there after its commit")
{
    session.connection().BeginTrans();
    session.execute("INSERT INTO T VALUES (2, 'b')");
    CHECK(stored() == "1a"); // others do not see it yet
    CHECK(session.value("SELECT count(*) FROM T") == "2");
    session.connection().CommitTrans();
    CHECK(stored() == "1a,2b");
}

TEST_CASE_FIXTURE(OneRow, "what a transaction wrote is gone after its rollback, tables too")
{
    session.connection().BeginTrans();
    session.execute("INSERT INTO T VALUES (2, 'b')");
    session.execute("CREATE TABLE U (tDay DATETIME)");
    session.connection().RollbackTrans();
    CHECK(stored() == "1a");
    CHECK(raisedBy([&] { (void)session.open("SELECT * FROM U"); }).number == ado_error::noSuchTable);
}

TEST_CASE_FIXTURE(OneRow, "without a transaction each statement stands at once")
{
    session.execute("INSERT INTO T VALUES (2, 'b')");
    CHECK(stored() == "1a,2b");
}

TEST_CASE_FIXTURE(OneRow, "a transaction begins once and ends once")
{
    CHECK(raisedBy([&] { session.connection().CommitTrans(); }).number == kNone);
    CHECK(session.connection().Errors().at(0).Description == "cannot commit - no transaction is active");
    CHECK(raisedBy([&] { session.connection().RollbackTrans(); }).number == kNone);
    CHECK(session.connection().Errors().at(0).Description == "cannot rollback - no transaction is active");
    session.connection().BeginTrans();
    CHECK(raisedBy([&] { session.connection().BeginTrans(); }).number == kRunning);
    CHECK(session.connection().Errors().at(0).Description == "cannot start a transaction within a transaction");
    session.execute("INSERT INTO T VALUES (2, 'b')");
    session.connection().CommitTrans(); // the first one still runs
    CHECK(stored() == "1a,2b");
    CHECK(raisedBy([&] { session.connection().CommitTrans(); }).number == kNone);
}

TEST_CASE_FIXTURE(OneRow, "a failed statement leaves the transaction to its owner")
{
    session.connection().BeginTrans();
    session.execute("INSERT INTO T VALUES (2, 'b')");
    CHECK(raisedBy([&] { session.execute("INSERT INTO T VALUES (1, 'x')"); }).number == ado_error::constraint);
    session.connection().CommitTrans();
    CHECK(stored() == "1a,2b");
}

TEST_CASE_FIXTURE(OneRow, "a session that closes or goes ends its transaction without a trace")
{
    session.connection().BeginTrans();
    session.execute("DELETE FROM T");
    session.connection().Close();
    CHECK(stored() == "1a");
    {
        Session other(file);
        other.connection().BeginTrans();
        other.execute("DELETE FROM T");
    }
    CHECK(stored() == "1a");
}

TEST_CASE_FIXTURE(OneRow, "the next session on a kept connection starts without the transaction of the one before")
{
    session.connection().BeginTrans();
    session.connection().Close();
    session.connection().Open(file.connectionString(), "", "", -1);
    session.connection().BeginTrans();
    session.execute("INSERT INTO T VALUES (2, 'b')");
    session.connection().CommitTrans();
    CHECK(stored() == "1a,2b");
}

TEST_CASE_FIXTURE(OneRow, "two transactions of one program do not wait for each other in vain")
{
    const auto other = session.database().newConnection();
    other->Open(file.connectionString(), "", "", -1);
    session.connection().BeginTrans();
    const PauseCounter counter;
    // The second could wait only for itself: both live on one thread.
    CHECK(raisedBy([&] { other->BeginTrans(); }).number == ado_error::timedOut);
    CHECK(raisedBy([&] { other->Execute("DELETE FROM T", adExecuteNoRecords); }).number == ado_error::timedOut);
    CHECK(PauseCounter::pauses() == 0);
    session.connection().CommitTrans();
    CHECK(raisedBy([&] { other->BeginTrans(); }).number == 0);
    other->RollbackTrans();
    CHECK(stored() == "1a");
}

TEST_CASE_FIXTURE(OneRow, "a write beside another session's open record set fails at once")
{
    session.execute("INSERT INTO T VALUES (2, 'b')");
    const auto other = session.database().newConnection();
    other->Open(file.connectionString(), "", "", -1);
    other->setCommandTimeout(1); // the wait of a failing test
    const auto rows = session.open("SELECT nID FROM T");
    const PauseCounter counter;

    CHECK(raisedBy([&] { other->Execute("DELETE FROM T", adExecuteNoRecords); }).number == ado_error::timedOut);
    CHECK(raisedBy([&] { other->BeginTrans(); }).number == 0); // the lock is asked for by the commit
    CHECK(raisedBy([&] { other->Execute("DELETE FROM T", adExecuteNoRecords); }).number == 0);
    CHECK(raisedBy([&] { other->CommitTrans(); }).number == ado_error::timedOut);
    CHECK(PauseCounter::pauses() == 0);

    rows->Close();
    CHECK(raisedBy([&] { other->CommitTrans(); }).number == 0);
    CHECK(stored() == "NULL");
}

TEST_CASE_FIXTURE(OneRow, "a write waits for another program's lock")
{
    session.connection().setCommandTimeout(1);
    const PauseCounter counter;
    const WholeLock lock(file);
    CHECK(raisedBy([&] { session.connection().BeginTrans(); }).number == ado_error::timedOut);
    CHECK(PauseCounter::pauses() > 0);
}
