#include "data/probe_session.h"

#include <new>
#include <string>
#include <vector>

using namespace inin;

namespace {

using Log = std::vector<std::string>;

const ProviderError kSyntaxError{-2147217900, "構文が正しくありません。", "Provider", "42000", 170};

} // namespace

TEST_CASE("a new session has no error text")
{
    FakeWorld world;
    cT_ADODB session(world.app);
    CHECK(session.sErrMsg().empty());
    CHECK(cT_ADODB::ihehe() == 0);
}

TEST_CASE("an exception of the provider's library does not leave the destructor of a session")
{
    ProbeFixture fixture;
    {
        cT_ADODB session(fixture.app);
        REQUIRE(session.iInit("Provider=Fake") == 0);
        REQUIRE(session.iConnect() == 0);
        fixture.database.probe.onClose = [] { throw std::bad_alloc(); };
    }
    CHECK(fixture.database.probe.log.back() == "close");
    fixture.database.probe.onClose = nullptr;
}

TEST_CASE("iInit keeps the string and does not connect")
{
    ProbeFixture fixture;
    CHECK(fixture.database.made == 0);
    CHECK(fixture.database.probe.log.empty());
}

TEST_CASE("iConnect opens with the kept string, no user, no password and unspecified options, then sets 180 seconds")
{
    ProbeFixture fixture;
    CHECK(fixture.session.iConnect() == 0);
    CHECK(fixture.database.probe.log == Log{"open [Provider=Fake][][] -1", "timeout 180"});
    CHECK(fixture.session.sErrMsg().empty());
}

TEST_CASE("a second iConnect opens nothing and resets the timeout")
{
    ProbeFixture fixture;
    REQUIRE(fixture.session.iConnect() == 0);
    REQUIRE(fixture.session.iSetTimeout(20) == 0);
    CHECK(fixture.session.iConnect() == 0);
    CHECK(fixture.database.probe.log == Log{"open [Provider=Fake][][] -1", "timeout 180", "timeout 20", "timeout 180"});
}

TEST_CASE("an error of the open gives only the error, and the provider's list is lost and cleared")
{
    ProbeFixture fixture;
    fixture.database.probe.errors = {kSyntaxError};
    fixture.database.probe.failure = -2147217843;
    CHECK(fixture.session.iConnect() == -1);
    CHECK(fixture.session.sErrMsg() == "(-2147217843)失敗しました。");
    CHECK(fixture.database.probe.errors.empty());
}

TEST_CASE("a session that is not opened and has a list gives the earlier text and the list without an error")
{
    FakeWorld world;
    world.database.stayClosed = true;
    world.database.connectErrors = {kSyntaxError};
    cT_ADODB session(world.app);
    REQUIRE(session.iDisConnect() == -1);
    CHECK(session.iConnect() == -1);
    CHECK(session.sErrMsg() == "(3704)オブジェクトは閉じています。"
                               "\rConnection State=0"
                               "\rError Number: -2147217900"
                               "\r  Description: 構文が正しくありません。"
                               "\r  Source: Provider"
                               "\r  SQL State: 42000"
                               "\r  Native Error: 170"
                               "\r\r1 provider error(s) occurred.");
    CHECK(world.database.lastTimeout == 0);
}

TEST_CASE("a session that is not opened and has no list counts as connected")
{
    FakeWorld world;
    world.database.stayClosed = true;
    cT_ADODB session(world.app);
    CHECK(session.iConnect() == 0);
    CHECK(world.database.lastTimeout == 180);
    CHECK(session.sErrMsg().empty());
}

TEST_CASE("a timeout that cannot be set keeps the session connected, with the error text of the failure")
{
    FakeWorld world;
    world.database.timeoutError = -2147467259;
    cT_ADODB session(world.app);
    CHECK(session.iConnect() == 0);
    CHECK(session.sErrMsg() == "ERR:iSetTimeout (-2147467259)設定できません。");
}

TEST_CASE("a connection object that cannot be created is a failure like any other")
{
    ProbeFixture fixture;
    fixture.database.failure = 429;
    CHECK(fixture.session.iConnect() == -1);
    CHECK(fixture.session.sErrMsg() == "(429)作成できません。");
    CHECK(fixture.session.iDisConnect() == -1);
    CHECK(fixture.session.iExecSQL("UPDATE T") == -1);
    CHECK(fixture.session.sErrMsg() == "ERR:iExecSQL (429)作成できません。\rSQL=UPDATE T");
    CHECK(fixture.session.sDbName().empty());
}

TEST_CASE("a successful operation keeps the error text of an earlier failure")
{
    ProbeFixture fixture;
    fixture.database.probe.failure = -2147217900;
    REQUIRE(fixture.session.iConnect() == -1);
    fixture.database.probe.failure = 0;
    ProbeRecordset rows;
    std::unique_ptr<Recordset> toClose = std::make_unique<ProbeRecordset>();
    Variant count;

    CHECK(fixture.session.iInit("Provider=Fake") == 0);
    CHECK(fixture.session.iConnect() == 0);
    CHECK(fixture.session.iSetTimeout(20) == 0);
    CHECK(fixture.session.iOpenRecSet(rows, "SELECT 1", 0, 1, 1) == 0);
    CHECK(fixture.session.iCloseRecSet(toClose) == 0);
    CHECK(fixture.session.iBeginTrans() == 0);
    CHECK(fixture.session.iExecSQL("DELETE FROM CORP", &count) == 0);
    CHECK(fixture.session.iCommitTrans() == 0);
    CHECK(fixture.session.iRollback() == 0);
    CHECK(fixture.session.iDisConnect() == 0);
    CHECK(fixture.session.sErrMsg() == "(-2147217900)失敗しました。");
}

TEST_CASE("iDisConnect closes, and iConnect works again without a new iInit")
{
    FakeWorld world;
    cT_ADODB session(world.app);
    REQUIRE(session.iInit("Provider=Fake") == 0);
    REQUIRE(session.iConnect() == 0);
    CHECK(session.iDisConnect() == 0);
    CHECK(session.iConnect() == 0);
    CHECK(world.database.log == Log{"connect 1", "disconnect 1", "connect 2"});
    CHECK(world.database.connectionStrings == Log{"Provider=Fake", "Provider=Fake"});
}

TEST_CASE("a disconnected session creates a new connection object on its next use")
{
    ProbeFixture fixture;
    REQUIRE(fixture.session.iConnect() == 0);
    REQUIRE(fixture.session.iDisConnect() == 0);
    CHECK(fixture.database.made == 1);
    CHECK(fixture.session.iConnect() == 0);
    CHECK(fixture.database.made == 2);
}

TEST_CASE("iDisConnect on a session that never connected fails with the runtime's text and no message")
{
    FakeWorld world;
    cT_ADODB session(world.app);
    CHECK(session.iDisConnect() == -1);
    CHECK(session.sErrMsg() == "(3704)オブジェクトは閉じています。");
    CHECK(world.boxes.shown.empty());
}

TEST_CASE("a failed iDisConnect loses the provider's list, and the session stays connected")
{
    ProbeFixture fixture;
    fixture.failOpen({kSyntaxError});
    CHECK(fixture.session.iDisConnect() == -1);
    CHECK(fixture.session.sErrMsg() == "(-2147217900)失敗しました。");
    CHECK(fixture.database.probe.errors.empty());
    fixture.database.probe.failure = 0;
    CHECK(fixture.session.iDisConnect() == 0);
    CHECK(fixture.database.made == 1);
}

TEST_CASE("destroying a session object disconnects it")
{
    FakeWorld world;
    {
        cT_ADODB session(world.app);
        REQUIRE(session.iConnect() == 0);
    }
    CHECK(world.database.log == Log{"connect 1", "disconnect 1"});
}

TEST_CASE("destroying a session object that is already closed reports nothing")
{
    FakeWorld world;
    {
        cT_ADODB session(world.app);
        REQUIRE(session.iConnect() == 0);
        REQUIRE(session.iDisConnect() == 0);
    }
    CHECK(world.database.log == Log{"connect 1", "disconnect 1"});
    CHECK(world.boxes.shown.empty());
}

TEST_CASE("destroying a session object creates the connection that it then fails to close")
{
    FakeWorld world;
    ProbeDatabase database;
    Platform platform{world.boxes,     world.windows, database,     world.profile,   world.files,
                      world.processes, world.clock,   world.locale, world.automation};
    App app{platform};
    {
        cT_ADODB session(app);
    }
    CHECK(database.made == 1);
    CHECK(database.probe.log == Log{"close"});
}

TEST_CASE("the database's name is that of the connection, and after a disconnect that of a new unopened one")
{
    FakeWorld world;
    cT_ADODB session(world.app);
    REQUIRE(session.iConnect() == 0);
    CHECK(session.sDbName() == "DEMO");
    REQUIRE(session.iDisConnect() == 0);
    CHECK(session.sDbName().empty());
    CHECK(session.iConnect() == 0);
    CHECK(session.sDbName() == "DEMO");
}
