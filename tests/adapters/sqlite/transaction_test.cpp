#include "adapters/sqlite/database_file.h"

#include <doctest/doctest.h>

#include <optional>
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

TEST_CASE_FIXTURE(OneRow, "a commit keeps the changes of a transaction")
{
    session.connection().BeginTrans();
    session.execute("INSERT INTO T VALUES (2, 'b')");
    CHECK(stored() == "1a"); // not yet visible to others
    CHECK(session.value("SELECT count(*) FROM T") == "2");
    session.connection().CommitTrans();
    CHECK(stored() == "1a,2b");
}

TEST_CASE_FIXTURE(OneRow, "a rollback undoes the changes of a transaction, including new tables")
{
    session.connection().BeginTrans();
    session.execute("INSERT INTO T VALUES (2, 'b')");
    session.execute("CREATE TABLE U (tDay DATETIME)");
    session.connection().RollbackTrans();
    CHECK(stored() == "1a");
    CHECK(raisedBy([&] { (void)session.open("SELECT * FROM U"); }).number == ado_error::noSuchTable);
}

TEST_CASE_FIXTURE(OneRow, "without a transaction each statement takes effect at once")
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
    session.connection().CommitTrans(); // the first one is still active
    CHECK(stored() == "1a,2b");
    CHECK(raisedBy([&] { session.connection().CommitTrans(); }).number == kNone);
}

TEST_CASE_FIXTURE(OneRow, "a failed statement does not end the transaction")
{
    session.connection().BeginTrans();
    session.execute("INSERT INTO T VALUES (2, 'b')");
    CHECK(raisedBy([&] { session.execute("INSERT INTO T VALUES (1, 'x')"); }).number == ado_error::constraint);
    session.connection().CommitTrans();
    CHECK(stored() == "1a,2b");
}

TEST_CASE_FIXTURE(OneRow, "closing or destroying a session rolls back its transaction")
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

TEST_CASE_FIXTURE(OneRow, "the next session on an idle connection starts without a transaction")
{
    session.connection().BeginTrans();
    session.connection().Close();
    session.connection().Open(file.connectionString(), "", "", -1);
    session.connection().BeginTrans();
    session.execute("INSERT INTO T VALUES (2, 'b')");
    session.connection().CommitTrans();
    CHECK(stored() == "1a,2b");
}

TEST_CASE_FIXTURE(OneRow, "two transactions of one program do not wait for each other")
{
    const auto other = session.database().newConnection();
    other->Open(file.connectionString(), "", "", -1);
    session.connection().BeginTrans();
    const PauseCounter counter;
    // Waiting would be pointless, because both run on one thread.
    CHECK(raisedBy([&] { other->BeginTrans(); }).number == ado_error::timedOut);
    CHECK(raisedBy([&] { other->Execute("DELETE FROM T", adExecuteNoRecords); }).number == ado_error::timedOut);
    CHECK(PauseCounter::pauses() == 0);
    session.connection().CommitTrans();
    CHECK(raisedBy([&] { other->BeginTrans(); }).number == 0);
    other->RollbackTrans();
    CHECK(stored() == "1a");
}

TEST_CASE_FIXTURE(OneRow, "a write while another session has an open record set fails at once")
{
    session.execute("INSERT INTO T VALUES (2, 'b')");
    const auto other = session.database().newConnection();
    other->Open(file.connectionString(), "", "", -1);
    other->setCommandTimeout(1); // bounds a failing test
    const auto rows = session.open("SELECT nID FROM T");
    const PauseCounter counter;

    CHECK(raisedBy([&] { other->Execute("DELETE FROM T", adExecuteNoRecords); }).number == ado_error::timedOut);
    CHECK(raisedBy([&] { other->BeginTrans(); }).number == 0); // only the commit requests the lock
    CHECK(raisedBy([&] { other->Execute("DELETE FROM T", adExecuteNoRecords); }).number == 0);
    CHECK(raisedBy([&] { other->CommitTrans(); }).number == ado_error::timedOut);
    CHECK(PauseCounter::pauses() == 0);

    rows->Close();
    CHECK(raisedBy([&] { other->CommitTrans(); }).number == 0);
    CHECK(stored() == "NULL");
}

TEST_CASE_FIXTURE(OneRow, "a write waits for another program's lock")
{
    std::optional<ExclusiveLock> lock(file);
    const PauseCounter counter([&] { lock.reset(); });
    CHECK(raisedBy([&] { session.connection().BeginTrans(); }).number == 0);
    CHECK(PauseCounter::pauses() == 1);
}
