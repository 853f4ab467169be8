// The read apart from the columns: statement, session, failures.

#include "master/patient_fixture.h"

#include <doctest/doctest.h>

#include <string>
#include <utility>
#include <vector>

using namespace inin;

namespace {

using Log = std::vector<std::string>;

constexpr const char *kStatement = "sql 1 SELECT * FROM RIYOUSHA WHERE nIDNo = 101 and iKyotenCd = 3 and iKyotenEb = 1";
constexpr const char *kSettings = "C:\\SUITE\\adodb.ini";

FakeResult rowsOf(std::vector<std::string> columns, std::vector<std::vector<Variant>> rows)
{
    FakeResult result;
    result.columns = std::move(columns);
    result.rows = std::move(rows);
    return result;
}

void failStatement(FakeWorld &world)
{
    FakeResult result;
    result.error = -2147217865;
    result.description = "無し";
    world.database.results = {result};
}

/// A fixture whose caller already has a record.
struct UsedFixture : PatientFixture {
    UsedFixture() { rec = used(); }
    static RIYOUSHA_REC used()
    {
        RIYOUSHA_REC rec;
        rec.nIDNo = 9;
        rec.cName = "前の人";
        rec.cTelNo = "03";
        return rec;
    }
};

} // namespace

TEST_CASE("a patient is read on a session of its own, with one statement for the row of this branch")
{
    PatientFixture fixture;
    CHECK(fixture.read() == -1);
    CHECK(fixture.rec.cName == "山田　花子");
    CHECK(fixture.database.log == Log{"connect 1", kStatement, "disconnect 1"});
    CHECK(fixture.database.connectionStrings == Log{"Provider=Fake;Data Source=demo"});
    CHECK(fixture.boxes.shown.empty());
}

TEST_CASE("the statement contains its three keys in plain digits")
{
    struct Row {
        std::int32_t nCode;
        std::int16_t iKyotenCd;
        std::int16_t iKyotenEb;
        const char *sql;
    };
    const Row rows[] = {
        {1, 0, 0, "sql 1 SELECT * FROM RIYOUSHA WHERE nIDNo = 1 and iKyotenCd = 0 and iKyotenEb = 0"},
        {0, 1, 2, "sql 1 SELECT * FROM RIYOUSHA WHERE nIDNo = 0 and iKyotenCd = 1 and iKyotenEb = 2"},
        {-5, -1, 99, "sql 1 SELECT * FROM RIYOUSHA WHERE nIDNo = -5 and iKyotenCd = -1 and iKyotenEb = 99"},
        {2147483647, 32767, 12,
         "sql 1 SELECT * FROM RIYOUSHA WHERE nIDNo = 2147483647 and iKyotenCd = 32767 and iKyotenEb = 12"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.nCode);
        PatientFixture fixture;
        fixture.faultyApp.iKyotenCd = row.iKyotenCd;
        fixture.faultyApp.iKyotenEb = row.iKyotenEb;
        CHECK(fixture.read(row.nCode) == -1);
        CHECK(fixture.database.log.at(1) == row.sql);
    }
}

TEST_CASE("a missing patient gives 0, no message and an unchanged record")
{
    UsedFixture fixture;
    fixture.database.results = {rowsOf({"nIDNo", "cName"}, {})};
    CHECK(fixture.read() == 0);
    CHECK(fixture.rec == UsedFixture::used());
    CHECK(fixture.boxes.shown.empty());
    CHECK(fixture.database.log == Log{"connect 1", kStatement, "disconnect 1"});
}

TEST_CASE("of two rows the first applies")
{
    PatientFixture fixture;
    fixture.database.results = {rowsOf({"cName"}, {{"一人目"}, {"二人目"}})};
    CHECK(fixture.read() == -1);
    CHECK(fixture.rec.cName == "一人目");
}

TEST_CASE("a failed step before the row shows nothing, gives 0 and leaves the record unchanged")
{
    struct Row {
        const char *claim;
        void (*spoil)(FakeWorld &);
        Log log;
    };
    const Row rows[] = {
        {"no settings file", [](FakeWorld &world) { world.files.remove(kSettings); }, {}},
        {"no key", [](FakeWorld &world) { world.files.putText(kSettings, "[接続情報]\n"); }, {}},
        {"an empty connection text",
         [](FakeWorld &world) { world.files.putText(kSettings, "[接続情報]\n接続情報=\n"); },
         {}},
        {"a connection text of blanks",
         [](FakeWorld &world) { world.files.putText(kSettings, "[接続情報]\n接続情報=   \n"); },
         {}},
        {"no connection", [](FakeWorld &world) { world.database.connectError = -2147467259; }, {}},
        {"a faulty statement", failStatement, {"connect 1", kStatement, "disconnect 1"}},
    };
    for (const Row &row : rows) {
        CAPTURE(row.claim);
        UsedFixture fixture;
        row.spoil(fixture);
        CHECK(fixture.read() == 0);
        CHECK(fixture.rec == UsedFixture::used());
        CHECK(fixture.boxes.shown.empty());
        CHECK(fixture.database.log == row.log);
    }
}

TEST_CASE("a failed connect keeps its error text in the program, and a later successful read keeps it")
{
    PatientFixture fixture;
    fixture.database.connectError = -2147217843;
    fixture.database.connectDescription = "ログインに失敗しました。";
    CHECK(fixture.read() == 0);
    CHECK(fixture.faultyApp.patientConnectError == "(-2147217843)ログインに失敗しました。");
    fixture.database.connectError = 0;
    CHECK(fixture.read() == -1);
    CHECK(fixture.faultyApp.patientConnectError == "(-2147217843)ログインに失敗しました。");
}

TEST_CASE("a failure other than the connect keeps no error text")
{
    PatientFixture fixture;
    failStatement(fixture);
    CHECK(fixture.read() == 0);
    fixture.files.remove(kSettings);
    CHECK(fixture.read() == 0);
    CHECK(fixture.faultyApp.patientConnectError.empty());
}

TEST_CASE("a run-time error before the row shows its description, gives 0 and leaves the record unchanged")
{
    struct Row {
        const char *claim;
        std::int32_t RecordsetFaults::*fault;
    };
    const Row rows[] = {
        {"no record set can be made", &RecordsetFaults::creation},
        {"the cursor cannot be set to the client", &RecordsetFaults::cursorLocation},
        {"the rows cannot be counted", &RecordsetFaults::recordCount},
    };
    for (const Row &row : rows) {
        CAPTURE(row.claim);
        UsedFixture fixture;
        fixture.faulty.faults.*row.fault = 429;
        CHECK(fixture.read() == 0);
        CHECK(fixture.rec == UsedFixture::used());
        CHECK(fixture.boxes.shown == std::vector<ShownBox>{{"Read Error:故障 429", Icon::none, ""}});
    }
}

TEST_CASE("the box of a run-time error is answered before the session is destroyed")
{
    PatientFixture fixture;
    fixture.faulty.faults.recordCount = 13;
    Log atBox;
    fixture.boxes.onShow = [&](const ShownBox &) { atBox = fixture.database.log; };
    CHECK(fixture.read() == 0);
    CHECK(atBox == Log{"connect 1", kStatement});
    CHECK(fixture.database.log.back() == "disconnect 1");
}

TEST_CASE("a row whose every column fails is still a patient, without a message")
{
    UsedFixture fixture;
    fixture.faulty.faults.value = -2147467259;
    CHECK(fixture.read() == -1);
    CHECK(fixture.rec == RIYOUSHA_REC());
    CHECK(fixture.boxes.shown.empty());
}

TEST_CASE("a failure to close has no effect")
{
    struct Row {
        const char *claim;
        void (*spoil)(PatientFixture &);
    };
    const Row rows[] = {
        {"of the record set", [](PatientFixture &fixture) { fixture.faulty.faults.close = 3704; }},
        {"of the session", [](PatientFixture &fixture) { fixture.database.closeError = 3704; }},
    };
    for (const Row &row : rows) {
        CAPTURE(row.claim);
        PatientFixture fixture;
        row.spoil(fixture);
        CHECK(fixture.read() == -1);
        CHECK(fixture.rec.cName == "山田　花子");
        CHECK(fixture.boxes.shown.empty());
    }
}

TEST_CASE("each read connects anew and keeps nothing of the previous one")
{
    PatientFixture fixture({{"cName", "一人目"}, {"nTantou", 5}, {"cTelNo", "03"}});
    fixture.answer({{"cName", "二人目"}});
    CHECK(fixture.read(1) == -1);
    CHECK(fixture.read(2) == -1);
    RIYOUSHA_REC second;
    second.cName = "二人目";
    CHECK(fixture.rec == second);
    CHECK(fixture.database.log ==
          Log{"connect 1", "sql 1 SELECT * FROM RIYOUSHA WHERE nIDNo = 1 and iKyotenCd = 3 and iKyotenEb = 1",
              "disconnect 1", "connect 2",
              "sql 2 SELECT * FROM RIYOUSHA WHERE nIDNo = 2 and iKyotenCd = 3 and iKyotenEb = 1", "disconnect 2"});
}

TEST_CASE("a new record is blank")
{
    const RIYOUSHA_REC rec;
    CHECK(rec.nIDNo == 0);
    CHECK(rec.cName.empty());
    CHECK(rec.tBirthday == Date(0));
    CHECK(rec.cYubinNo.text() == std::string(8, '\0'));
    CHECK(rec.cTelNo.text() == std::string(14, '\0'));
}
