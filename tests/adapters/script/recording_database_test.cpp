#include "adapters/script/recording_ports.h"

#include "script_stage.h"
#include "support/fake_database.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::script;
using Log = std::vector<std::string>;

namespace {

constexpr const char *kSecret = "Provider=Fake;Password=secret";

struct Recorded {
    FakeDatabase inner;
    std::ostringstream out;
    Transcript transcript{out};
    RecordingDatabase database{inner, transcript};

    [[nodiscard]] std::unique_ptr<Connection> open()
    {
        auto connection = database.newConnection();
        connection->Open(kSecret, "", "", -1);
        return connection;
    }
    [[nodiscard]] Log events() const { return linesOf(out.str()); }
};

void openRows(Recorded &recorded, Connection &connection, const std::string &sql)
{
    recorded.database.newRecordset()->Open(sql, connection, adOpenForwardOnly, adLockReadOnly, adCmdText);
}

} // namespace

TEST_CASE("sessions are numbered from 1 and recorded when they open and close")
{
    Recorded recorded;
    const auto first = recorded.open();
    const auto second = recorded.open();
    first->Close();
    second->Close();
    CHECK(recorded.events() == Log{R"({"event":"connect","session":1})", R"({"event":"connect","session":2})",
                                   R"({"event":"disconnect","session":1})", R"({"event":"disconnect","session":2})"});
}

TEST_CASE("a connection that is opened again is another session")
{
    Recorded recorded;
    const auto connection = recorded.open();
    connection->Close();
    connection->Open(kSecret, "", "", -1);
    CHECK(recorded.events().back() == R"({"event":"connect","session":2})");
}

TEST_CASE("a failed opening is not a session and uses no number")
{
    Recorded recorded;
    recorded.inner.connectError = -2147467259;
    CHECK_THROWS_AS(static_cast<void>(recorded.open()), RuntimeError);
    CHECK(recorded.events().empty());
    recorded.inner.connectError = 0;
    const auto connection = recorded.open();
    CHECK(recorded.events() == Log{R"({"event":"connect","session":1})"});
}

TEST_CASE("an opening that leaves the connection closed is not a session")
{
    Recorded recorded;
    recorded.inner.stayClosed = true;
    const auto connection = recorded.open();
    CHECK(recorded.events().empty());
}

TEST_CASE("a session whose close fails is recorded as ended when the connection is destroyed")
{
    Recorded recorded;
    recorded.inner.closeError = 3704;
    {
        const auto connection = recorded.open();
        CHECK_THROWS_AS(connection->Close(), RuntimeError);
        CHECK(recorded.events().size() == 1);
    }
    CHECK(recorded.events().back() == R"({"event":"disconnect","session":1})");
}

TEST_CASE("a statement is recorded with its session before it runs")
{
    Recorded recorded;
    const auto connection = recorded.open();
    recorded.inner.results.push_back({{}, {}, -2147217900, "構文エラー", {}, 0, 0});
    CHECK_THROWS_AS(openRows(recorded, *connection, "SELECT '委任'"), RuntimeError);
    CHECK(recorded.events().back() == R"({"event":"sql","session":1,"text":"SELECT '委任'"})");
}

TEST_CASE("an executed statement is recorded, too, and returns the number of affected rows")
{
    Recorded recorded;
    const auto connection = recorded.open();
    FakeResult three;
    three.rowsAffected = 3;
    recorded.inner.executions.push_back(three);
    CHECK(connection->Execute("DELETE FROM X", adExecuteNoRecords) == 3);
    CHECK(recorded.events().back() == R"({"event":"sql","session":1,"text":"DELETE FROM X"})");
}

TEST_CASE("a connection string is never recorded")
{
    Recorded recorded;
    const auto connection = recorded.open();
    openRows(recorded, *connection, "SELECT 1");
    connection->Close();
    CHECK(recorded.out.str().find("secret") == std::string::npos);
    CHECK(recorded.inner.connectionStrings == Log{kSecret});
}

TEST_CASE("rows are those of the inner database")
{
    Recorded recorded;
    const auto connection = recorded.open();
    FakeResult patients;
    patients.columns = {"nIDNo", "cName"};
    patients.rows = {{std::int32_t{1}, "青木"}, {std::int32_t{2}, Null{}}};
    recorded.inner.results.push_back(patients);
    const auto rows = recorded.database.newRecordset();
    rows->Open("SELECT nIDNo, cName FROM RIYOUSHA", *connection, adOpenForwardOnly, adLockReadOnly, adCmdText);
    CHECK(rows->State() == adStateOpen);
    CHECK(rows->fieldCount() == 2);
    CHECK(rows->fieldName(1) == "cName");
    CHECK(rows->Field("cname") == Variant("青木"));
    rows->MoveNext();
    CHECK(rows->Field("cName").isNull());
    rows->MoveNext();
    CHECK(rows->isEndOfFile());
    rows->Close();
    CHECK(rows->State() == adStateClosed);
}

TEST_CASE("transactions, timeout and error list are those of the inner connection")
{
    Recorded recorded;
    recorded.inner.rollbackLeaves = {{1, "残った", "Fake", "HY000", 7}};
    const auto connection = recorded.open();
    connection->setCommandTimeout(180);
    connection->BeginTrans();
    connection->CommitTrans();
    connection->BeginTrans();
    connection->RollbackTrans();
    CHECK(recorded.inner.lastTimeout == 180);
    CHECK(connection->CommandTimeout() == 180);
    CHECK(connection->DefaultDatabase() == "DEMO");
    REQUIRE(connection->Errors().size() == 1);
    CHECK(connection->Errors()[0].Description == "残った");
    connection->Errors().clear();
    CHECK(connection->Errors().empty());
    CHECK(recorded.inner.log == Log{"connect 1", "begin 1", "commit 1", "begin 1", "rollback 1"});
}
