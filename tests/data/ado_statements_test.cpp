#include "data/probe_session.h"

#include <string>
#include <vector>

using namespace inin;

namespace {

using Log = std::vector<std::string>;

const ProviderError kServerError{-2147217900, "構文が正しくありません。", "Provider", "42000", 170};
const ProviderError kSecondError{-2147467259, "接続が切れました。", "Provider", "08S01", 20009};

/// The log of one entry as it follows the error text of a failure, on an open session.
const std::string kServerErrorLog = "\rConnection State=1"
                                    "\rError Number: -2147217900"
                                    "\r  Description: 構文が正しくありません。"
                                    "\r  Source: Provider"
                                    "\r  SQL State: 42000"
                                    "\r  Native Error: 170"
                                    "\r\r1 provider error(s) occurred.";

std::string repeated(const std::string &part, int count)
{
    std::string text;
    for (int i = 0; i < count; ++i) text += part;
    return text;
}

} // namespace

TEST_CASE("iOpenRecSet opens the caller's record set with the three numbers unchanged")
{
    ProbeFixture fixture;
    REQUIRE(fixture.session.iConnect() == 0);
    ProbeRecordset rows;
    CHECK(fixture.session.iOpenRecSet(rows, "SELECT 1", 0, 1, 1) == 0);
    CHECK(rows.opened == "SELECT 1 0 1 1");
    CHECK(fixture.session.sErrMsg().empty());
}

TEST_CASE("a failed read shows up to 80 characters of its statement, before the provider's list")
{
    struct Row {
        const char *claim;
        std::string sql;
        std::string shown;
    };
    const Row rows[] = {
        {"an empty statement", "", ""},
        {"80 characters", std::string(80, 'a'), std::string(80, 'a')},
        {"81 characters", std::string(80, 'a') + "b", std::string(80, 'a') + "・・・"},
        {"80 Japanese characters", repeated("委", 80), repeated("委", 80)},
        {"81 Japanese characters", repeated("委", 81), repeated("委", 80) + "・・・"},
        {"40 pairs are 80 characters", repeated("𠮷", 40), repeated("𠮷", 40)},
        {"a pair at the cut goes whole", std::string(79, 'a') + "𠮷b", std::string(79, 'a') + "・・・"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.claim);
        ProbeFixture fixture;
        fixture.failOpen({kServerError});
        ProbeRecordset rsData;
        rsData.failing = true;
        CHECK(fixture.session.iOpenRecSet(rsData, row.sql, 0, 1, 1) == -1);
        CHECK(fixture.session.sErrMsg() == "(-2147217900)失敗しました。\rSQL=" + row.shown + kServerErrorLog);
        CHECK(fixture.database.probe.errors.empty());
    }
}

TEST_CASE("a failed read without a provider's list ends with its statement")
{
    ProbeFixture fixture;
    fixture.failOpen({});
    ProbeRecordset rsData;
    rsData.failing = true;
    CHECK(fixture.session.iOpenRecSet(rsData, "SELECT 1", 0, 1, 1) == -1);
    CHECK(fixture.session.sErrMsg() == "(-2147217900)失敗しました。\rSQL=SELECT 1");
}

TEST_CASE("a read on a session that is not open fails and opens nothing")
{
    FakeWorld world;
    cT_ADODB session(world.app);
    auto rsData = world.database.newRecordset();
    CHECK(session.iOpenRecSet(*rsData, "SELECT 1", 0, 1, 1) == -1);
    CHECK(session.sErrMsg() == "(3704)オブジェクトは閉じています。\rSQL=SELECT 1");
    CHECK(world.database.log.empty());
}

TEST_CASE("iCloseRecSet closes the record set and clears the caller's reference")
{
    FakeWorld world;
    cT_ADODB session(world.app);
    REQUIRE(session.iConnect() == 0);
    auto rsData = world.database.newRecordset();
    REQUIRE(session.iOpenRecSet(*rsData, "SELECT 1", 0, 1, 1) == 0);
    CHECK(session.iCloseRecSet(rsData) == 0);
    CHECK(rsData == nullptr);
}

TEST_CASE("a failed iCloseRecSet puts the number on its own line before the provider's list and keeps the reference")
{
    ProbeFixture fixture;
    fixture.failOpen({kServerError});
    auto probe = std::make_unique<ProbeRecordset>();
    probe->failing = true;
    std::unique_ptr<Recordset> rsData = std::move(probe);
    CHECK(fixture.session.iCloseRecSet(rsData) == -1);
    CHECK(fixture.session.sErrMsg() == "3704\r\n閉じています。" + kServerErrorLog);
    CHECK(rsData != nullptr);
}

TEST_CASE("iCloseRecSet without a record set is error 91")
{
    FakeWorld world;
    cT_ADODB session(world.app);
    std::unique_ptr<Recordset> none;
    CHECK(session.iCloseRecSet(none) == -1);
    CHECK(session.sErrMsg() == "91\r\nオブジェクト変数または With ブロック変数が設定されていません。");
}

TEST_CASE("iExecSQL executes the statement without records and stores the count only on request")
{
    ProbeFixture fixture;
    REQUIRE(fixture.session.iConnect() == 0);
    fixture.database.probe.log.clear();
    CHECK(fixture.session.iExecSQL("UPDATE T") == 0);
    CHECK(fixture.database.probe.log == Log{"exec UPDATE T 128"});
}

TEST_CASE("iExecSQL returns the rows affected as a 32-bit number")
{
    ProbeFixture fixture;
    REQUIRE(fixture.session.iConnect() == 0);
    Variant nKousinRecSuu;
    CHECK(fixture.session.iExecSQL("UPDATE T", &nKousinRecSuu) == 0);
    CHECK(nKousinRecSuu == Variant(std::int32_t{3}));
}

TEST_CASE("a failed write shows its whole statement after the provider's list, and stores no count")
{
    ProbeFixture fixture;
    fixture.failOpen({kServerError});
    const std::string sql = "UPDATE T SET c = '" + std::string(200, 'x') + "'";
    Variant nKousinRecSuu = std::int32_t{77};
    CHECK(fixture.session.iExecSQL(sql, &nKousinRecSuu) == -1);
    CHECK(fixture.session.sErrMsg() == "ERR:iExecSQL (-2147217900)失敗しました。" + kServerErrorLog + "\rSQL=" + sql);
    CHECK(nKousinRecSuu == Variant(std::int32_t{77}));
}

TEST_CASE("a failed write without a provider's list ends with its statement")
{
    ProbeFixture fixture;
    fixture.failOpen({});
    CHECK(fixture.session.iExecSQL("UPDATE T") == -1);
    CHECK(fixture.session.sErrMsg() == "ERR:iExecSQL (-2147217900)失敗しました。\rSQL=UPDATE T");
}

TEST_CASE("a transaction is begin, statement, commit in this order")
{
    FakeWorld world;
    cT_ADODB session(world.app);
    REQUIRE(session.iConnect() == 0);
    CHECK(session.iBeginTrans() == 0);
    CHECK(session.iExecSQL("UPDATE T") == 0);
    CHECK(session.iCommitTrans() == 0);
    CHECK(world.database.log == Log{"connect 1", "begin 1", "exec 1 UPDATE T", "commit 1"});
}

TEST_CASE("each failed operation of a transaction is named before the provider's list")
{
    struct Row {
        std::int16_t (cT_ADODB::*operation)();
        const char *words;
    };
    const Row rows[] = {
        {&cT_ADODB::iBeginTrans, "ERR:BeginTrans (-2147217900)失敗しました。"},
        {&cT_ADODB::iCommitTrans, "ERR:CommitTrans (-2147217900)失敗しました。"},
        {&cT_ADODB::iRollback, "ERR:Rollback (-2147217900)失敗しました。"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.words);
        ProbeFixture fixture;
        fixture.failOpen({kServerError});
        CHECK((fixture.session.*row.operation)() == -1);
        CHECK(fixture.session.sErrMsg() == row.words + kServerErrorLog);
        CHECK(fixture.database.probe.errors.empty());

        CHECK((fixture.session.*row.operation)() == -1);
        CHECK(fixture.session.sErrMsg() == row.words);
    }
}

TEST_CASE("a rollback without an error and without a list succeeds")
{
    FakeWorld world;
    cT_ADODB session(world.app);
    REQUIRE(session.iConnect() == 0);
    CHECK(session.iRollback() == 0);
    CHECK(world.database.log == Log{"connect 1", "rollback 1"});
}

TEST_CASE("a rollback with a remaining list fails with the earlier text and the list")
{
    FakeWorld world;
    cT_ADODB session(world.app);
    REQUIRE(session.iConnect() == 0);
    world.database.beginError = 7;
    REQUIRE(session.iBeginTrans() == -1);
    world.database.rollbackLeaves = {kServerError};
    CHECK(session.iRollback() == -1);
    CHECK(session.sErrMsg() == "ERR:BeginTrans (7)トランザクションの失敗。" + kServerErrorLog);
}

TEST_CASE("a timeout of 0 or less changes nothing and succeeds")
{
    struct Row {
        std::int16_t iTime;
    };
    for (const Row row : {Row{0}, Row{-5}, Row{-32768}}) {
        CAPTURE(row.iTime);
        FakeWorld world;
        cT_ADODB session(world.app);
        REQUIRE(session.iConnect() == 0);
        CHECK(session.iSetTimeout(row.iTime) == 0);
        CHECK(world.database.lastTimeout == 180);
    }
}

TEST_CASE("a timeout above 0 is set unchanged")
{
    FakeWorld world;
    cT_ADODB session(world.app);
    CHECK(session.iSetTimeout(1) == 0);
    CHECK(world.database.lastTimeout == 1);
    CHECK(session.iSetTimeout(32767) == 0);
    CHECK(world.database.lastTimeout == 32767);
}

TEST_CASE("a failed timeout is named before the provider's list")
{
    ProbeFixture fixture;
    fixture.failOpen({kServerError});
    CHECK(fixture.session.iSetTimeout(20) == -1);
    CHECK(fixture.session.sErrMsg() == "ERR:iSetTimeout (-2147217900)失敗しました。" + kServerErrorLog);
}

TEST_CASE("the provider's list is added with all its entries in order and then cleared")
{
    ProbeFixture fixture;
    REQUIRE(fixture.session.iConnect() == 0);
    fixture.database.probe.errors = {kServerError, kSecondError};
    std::string text;
    fixture.session.vAddAdoErrorLog(text);
    CHECK(text == "\rConnection State=1"
                  "\rError Number: -2147217900"
                  "\r  Description: 構文が正しくありません。"
                  "\r  Source: Provider"
                  "\r  SQL State: 42000"
                  "\r  Native Error: 170"
                  "\rError Number: -2147467259"
                  "\r  Description: 接続が切れました。"
                  "\r  Source: Provider"
                  "\r  SQL State: 08S01"
                  "\r  Native Error: 20009"
                  "\r\r2 provider error(s) occurred.");
    CHECK(fixture.database.probe.errors.empty());
}

TEST_CASE("the provider's list is appended to sErrMsg, whatever the argument was")
{
    ProbeFixture fixture;
    fixture.failOpen({});
    REQUIRE(fixture.session.iBeginTrans() == -1);
    fixture.database.probe.errors = {kServerError};
    std::string text = "これは消える";
    fixture.session.vAddAdoErrorLog(text);
    CHECK(text == "ERR:BeginTrans (-2147217900)失敗しました。" + kServerErrorLog);
    CHECK(fixture.session.sErrMsg() == "ERR:BeginTrans (-2147217900)失敗しました。");
}

TEST_CASE("an empty provider's list leaves the text unchanged")
{
    ProbeFixture fixture;
    std::string text = "そのまま";
    fixture.session.vAddAdoErrorLog(text);
    CHECK(text == "そのまま");
}

TEST_CASE("a successful operation keeps the text of the last failure")
{
    FakeWorld world;
    cT_ADODB session(world.app);
    REQUIRE(session.iDisConnect() == -1);
    REQUIRE(session.iConnect() == 0);
    CHECK(session.sErrMsg() == "(3704)オブジェクトは閉じています。");
}

TEST_CASE("a failed statement keeps the session connected and its transaction open")
{
    FakeWorld world;
    FakeResult failing;
    failing.error = -2147217900;
    world.database.executions.push_back(failing);
    cT_ADODB session(world.app);
    REQUIRE(session.iConnect() == 0);
    REQUIRE(session.iBeginTrans() == 0);
    REQUIRE(session.iExecSQL("UPDATE T") == -1);
    CHECK(world.database.log == Log{"connect 1", "begin 1", "exec 1 UPDATE T"});
}

TEST_CASE("a computer's name of up to 15 characters is returned, a longer one gives the empty text")
{
    struct Row {
        const char *name;
        const char *given;
    };
    const Row rows[] = {{"PC", "PC"}, {"ABCDEFGHIJKLMNO", "ABCDEFGHIJKLMNO"}, {"ABCDEFGHIJKLMNOP", ""}};
    for (const Row &row : rows) {
        CAPTURE(row.name);
        FakeWorld world;
        world.processes.name = row.name;
        cT_ADODB session(world.app);
        CHECK(session.csGetComputerName() == row.given);
        CHECK(session.sErrMsg().empty());
    }
}
