#include "master/tariffs.h"

#include "master/table_fixture.h"
#include "support/embedded_world.h"
#include "support/faulty_database.h"

using namespace inin;

namespace {

using Boxes = std::vector<ShownBox>;

constexpr const char *kStatement =
    "SELECT * FROM 療養費単価 WHERE SUBSTRING(CONVERT(VARCHAR, cStartDate, 112),1,4)+SUBSTRING(CONVERT(VARCHAR,"
    " cStartDate, 112),6,2) <=   '201904' AND SUBSTRING(CONVERT(VARCHAR, cEndDate, 112),1,4)+SUBSTRING(CONVERT("
    "VARCHAR, cEndDate, 112),6,2) >=   '201904' ORDER BY cStartDate, iTankaKbn, nTankaCode";

ShownBox readError(const std::string &kubun, const std::string &code)
{
    return {"単価の取得に失敗しました。\r区分:" + kubun + "  コード：" + code, Icon::critical, "DB Read Error!!"};
}

struct FeeFixture : FakeWorld {
    void answer(const std::vector<std::vector<Variant>> &rows)
    {
        FakeResult result;
        result.columns = {"cStartDate", "cEndDate", "iTankaKbn", "nTankaCode", "nTanka"};
        for (const std::vector<Variant> &row : rows)
            result.rows.push_back({"2018/10/01", "2019/09/30", row[0], row[1], row[2]});
        database.results.push_back(std::move(result));
    }
    cls単価 fees{app};
};

/// The fees of a table in the embedded database.
struct FeeTable : EmbeddedWorld {
    void add(const std::string &start, const std::string &end, int kubun, int code, const std::string &fee) const
    {
        run("INSERT INTO 療養費単価 VALUES ('" + start + "','" + end + "'," + std::to_string(kubun) + "," +
            std::to_string(code) + "," + fee + ")");
    }
    cls単価 fees{site};
};

} // namespace

TEST_CASE("all fees are 0 before they are read")
{
    FeeFixture world;
    CHECK(world.fees.nマッサージ() == 0);
    CHECK(world.fees.n施術報告書交付料() == 0);
}

TEST_CASE("the fees of a month are read by one statement on a session of their own")
{
    FeeFixture world;
    world.answer({{1, 1, 340}});
    CHECK(world.fees.iGetTanka("201904") == 0);
    CHECK(world.database.log == Log{"connect 1", std::string("sql 1 ") + kStatement, "disconnect 1"});
    CHECK(world.database.connectionStrings == Log{"Provider=Fake;Data Source=demo"});
    CHECK(world.boxes.shown.empty());
}

TEST_CASE("each pair of class and code sets only its own fee")
{
    struct Row {
        int kubun;
        int code;
        std::int32_t (cls単価::*fee)() const;
    };
    const std::vector<Row> rows = {
        {1, 1, &cls単価::nマッサージ},       {1, 2, &cls単価::n変形徒手},       {1, 3, &cls単価::n温按法},
        {1, 4, &cls単価::n電気光線},         {1, 11, &cls単価::n鍼灸1術},       {1, 12, &cls単価::n鍼灸2術},
        {1, 13, &cls単価::n鍼灸1術初回},     {1, 14, &cls単価::n鍼灸2術初回},   {1, 15, &cls単価::n電気鍼温灸器},
        {2, 1, &cls単価::n基本往療費},       {2, 2, &cls単価::n加算往療費},     {9, 1, &cls単価::n定額料金1割},
        {9, 2, &cls単価::n定額料金2割},      {9, 3, &cls単価::n定額料金3割},    {9, 11, &cls単価::n実費施術費},
        {9, 12, &cls単価::n実費交通費},      {1, 16, &cls単価::n鍼灸1術初検料}, {1, 17, &cls単価::n鍼灸2術初検料},
        {1, 18, &cls単価::n施術報告書交付料}};
    for (const Row &given : rows) {
        CAPTURE(given.kubun);
        CAPTURE(given.code);
        FeeFixture world;
        world.answer({{given.kubun, given.code, 1234}});
        CHECK(world.fees.iGetTanka("201904") == 0);
        for (const Row &other : rows) CHECK((world.fees.*other.fee)() == (&other == &given ? 1234 : 0));
    }
}

TEST_CASE("rows of other classes and codes are skipped without a message")
{
    FeeFixture world;
    world.answer({{3, 1, 111}, {1, 5, 222}, {2, 11, 333}, {0, 0, 444}, {1, 1, 340}});
    CHECK(world.fees.iGetTanka("201904") == 0);
    CHECK(world.fees.nマッサージ() == 340);
    CHECK(world.fees.n基本往療費() == 0);
    CHECK(world.boxes.shown.empty());
}

TEST_CASE("class, code and fee may be texts, and fractions are rounded half to even")
{
    FeeFixture world;
    world.answer({{"1", "1", "340"}, {"1", "2", 2.5}, {"1", "3", 3.5}, {1.4, "4.0", "150.5"}});
    CHECK(world.fees.iGetTanka("201904") == 0);
    CHECK(world.fees.nマッサージ() == 340);
    CHECK(world.fees.n変形徒手() == 2);
    CHECK(world.fees.n温按法() == 4);
    CHECK(world.fees.n電気光線() == 150);
}

TEST_CASE("the row with the later start applies, and fees without a row keep the value of the previous month")
{
    FeeFixture world;
    world.answer({{1, 1, 300}, {1, 2, 700}, {1, 1, 350}});
    CHECK(world.fees.iGetTanka("201904") == 0);
    CHECK(world.fees.nマッサージ() == 350);
    world.answer({{1, 2, 770}});
    CHECK(world.fees.iGetTanka("201905") == 0);
    CHECK(world.fees.nマッサージ() == 350);
    CHECK(world.fees.n変形徒手() == 770);
}

TEST_CASE("a month without fees shows two boxes before the session ends, and the fees are unchanged")
{
    FeeFixture world;
    world.answer({});
    std::vector<std::string> logAtBoxes;
    world.boxes.onShow = [&](const ShownBox &) { logAtBoxes = world.database.log; };
    CHECK(world.fees.iGetTanka("201904") == 0);
    CHECK(world.boxes.shown == Boxes{{"単価データがありません。", Icon::information, ""}, readError("0", "0")});
    CHECK(world.fees.nマッサージ() == 0);
    CHECK(logAtBoxes.back().starts_with("sql 1 "));
    CHECK(world.database.log.back() == "disconnect 1");
}

TEST_CASE("a failure before the fees is reported under the operation's name")
{
    SUBCASE("the settings file")
    {
        FeeFixture world;
        world.files.remove("C:\\SUITE\\adodb.ini");
        CHECK(world.fees.iGetTanka("201904") == 0);
        CHECK(world.boxes.shown ==
              Boxes{{"iGetTanka() でエラー\r\n指定されたIni（C:\\SUITE\\adodb.ini）ファイルが見つかりません。",
                     Icon::critical, ""}});
    }
    SUBCASE("an empty connection text")
    {
        FeeFixture world;
        world.files.putText("C:\\SUITE\\adodb.ini", "[接続情報]\n接続情報=  \n");
        CHECK(world.fees.iGetTanka("201904") == 0);
        CHECK(world.boxes.shown == Boxes{{"iGetTanka() でエラー\r\n接続文字列取得できません。", Icon::critical, ""}});
    }
    SUBCASE("the connection")
    {
        FeeFixture world;
        world.database.connectError = -2147217843;
        CHECK(world.fees.iGetTanka("201904") == 0);
        CHECK(world.boxes.shown ==
              Boxes{{"iGetTanka() でエラー\r\n(-2147217843)接続できません。", Icon::critical, ""}});
    }
}

TEST_CASE("a refused statement is reported with the session's error text, then the session is closed")
{
    FeeFixture world;
    world.database.results.push_back(failure(-2147217865, "表がありません。"));
    CHECK(world.fees.iGetTanka("201904") == 0);
    CHECK(world.boxes.shown ==
          Boxes{{"iGetTanka() でエラー\r\n(-2147217865)表がありません。\rSQL=SELECT * FROM 療養費単価 WHERE"
                 " SUBSTRING(CONVERT(VARCHAR, cStartDate, 112),1,4)+SUBST・・・",
                 Icon::critical, ""}});
    CHECK(world.database.log.back() == "disconnect 1");
}

TEST_CASE("a session with a refused statement is closed after the box and before it is destroyed")
{
    FakeWorld world;
    world.database.results.push_back(failure(-2147217865, "表がありません。"));
    std::vector<std::string> logAtBox;
    world.boxes.onShow = [&](const ShownBox &) { logAtBox = world.database.log; };
    TariffSession session(world.app, "iGetTanka");
    CHECK_FALSE(session.walk(
        "SELECT 1", [] {}, [](const Recordset &) {}));
    CHECK(logAtBox == Log{"connect 1", "sql 1 SELECT 1"});
    CHECK(world.database.log == Log{"connect 1", "sql 1 SELECT 1", "disconnect 1"});
}

TEST_CASE("a NULL in a fee's row ends the read with the row's class and code as far as they were read")
{
    struct Row {
        std::vector<Variant> values;
        const char *kubun;
        const char *code;
    };
    for (const Row &given :
         {Row{{Null{}, 2, 3}, "1", "1"}, Row{{9, Null{}, 3}, "9", "1"}, Row{{9, 2, Null{}}, "9", "2"}}) {
        CAPTURE(given.kubun);
        FeeFixture world;
        world.answer({{1, 1, 340}, given.values, {1, 2, 700}});
        std::vector<std::string> logAtBox;
        world.boxes.onShow = [&](const ShownBox &) { logAtBox = world.database.log; };
        CHECK(world.fees.iGetTanka("201904") == 0);
        CHECK(world.boxes.shown == Boxes{readError(given.kubun, given.code)});
        CHECK(logAtBox.back() == "disconnect 1");
        CHECK(world.fees.nマッサージ() == 340);
        CHECK(world.fees.n変形徒手() == 0);
    }
}

TEST_CASE("a class beyond 16 bits and a fee beyond 32 bits end the read")
{
    FeeFixture world;
    world.answer({{40000, 1, 340}});
    CHECK(world.fees.iGetTanka("201904") == 0);
    world.answer({{1, 1, "3000000000円"}});
    CHECK(world.fees.iGetTanka("201904") == 0);
    CHECK(world.boxes.shown == Boxes{readError("0", "0"), readError("1", "1")});
}

TEST_CASE("a text counts as its leading number, or 0 without one, and the later fees are read")
{
    FeeFixture world;
    world.answer(
        {{1, 1, "無料"}, {"1区", "2.", "340円"}, {"", 1, 500}, {"無", 3, 600}, {1, "４", 700}, {1, 11, " 1 550 "}});
    CHECK(world.fees.iGetTanka("201904") == 0);
    CHECK(world.boxes.shown.empty());
    CHECK(world.fees.nマッサージ() == 0);
    CHECK(world.fees.n変形徒手() == 340);
    CHECK(world.fees.n温按法() == 0);
    CHECK(world.fees.n電気光線() == 0);
    CHECK(world.fees.n鍼灸1術() == 1550);
}

TEST_CASE("an unreadable text sets its fee to 0, even after an earlier period")
{
    FeeFixture world;
    world.answer({{1, 1, 300}, {1, 1, "無料"}});
    CHECK(world.fees.iGetTanka("201904") == 0);
    CHECK(world.fees.nマッサージ() == 0);
}

TEST_CASE("a connection lost between the rows ends the read and keeps the fees already read")
{
    FeeFixture world;
    world.answer({{1, 1, 340}, {1, 2, 700}});
    world.database.results.back().failingMove = 1;
    CHECK(world.fees.iGetTanka("201904") == 0);
    CHECK(world.boxes.shown == Boxes{readError("1", "1")});
    CHECK(world.fees.nマッサージ() == 340);
}

TEST_CASE("a record set that cannot be created ends in the same box after the session was closed")
{
    FaultyWorld world;
    world.faulty.faults.creation = 429;
    cls単価 fees(world.faultyApp);
    std::vector<std::string> logAtBox;
    world.boxes.onShow = [&](const ShownBox &) { logAtBox = world.database.log; };
    CHECK(fees.iGetTanka("201904") == 0);
    CHECK(world.boxes.shown == Boxes{readError("0", "0")});
    CHECK(logAtBox == Log{"connect 1", "disconnect 1"});
}

TEST_CASE("a run-time error before the session exists ends in the same box only")
{
    struct NoFolder : FakeFiles {
        std::string applicationFolder() override { throw RuntimeError(error_number::deviceIo); }
    } files;
    FakeWorld world;
    const Platform platform{world.boxes,     world.windows, world.database, world.profile,   files,
                            world.processes, world.clock,   world.locale,   world.automation};
    App app(platform);
    cls単価 fees(app);
    CHECK(fees.iGetTanka("201904") == 0);
    CHECK(world.boxes.shown == Boxes{readError("0", "0")});
    CHECK(world.database.log.empty());
}

TEST_CASE("a period includes its first and its last month completely")
{
    FeeTable world;
    world.add("2018/10/15", "2019/09/01", 1, 1, "340");
    struct Row {
        const char *month;
        std::int32_t fee;
    };
    for (const Row &given :
         {Row{"201904", 340}, Row{"201810", 340}, Row{"201909", 340}, Row{"201809", 0}, Row{"201910", 0}}) {
        CAPTURE(given.month);
        cls単価 fees(world.site);
        CHECK(fees.iGetTanka(given.month) == 0);
        CHECK(fees.nマッサージ() == given.fee);
    }
}

TEST_CASE("of two periods in the database that include the month the one with the later start applies")
{
    FeeTable world;
    world.add("2019/04/01", "9999/12/31", 1, 1, "350");
    world.add("1990/01/01", "2019/04/30", 1, 1, "300");
    world.add("1990/01/01", "2019/04/30", 1, 11, "1500.5");
    CHECK(world.fees.iGetTanka("201904") == 0);
    CHECK(world.fees.nマッサージ() == 350);
    CHECK(world.fees.n鍼灸1術() == 1500);
    CHECK(world.boxes.shown.empty());
}

TEST_CASE("a period text of five digits compares as text and finds no fees here")
{
    FeeTable world;
    world.add("2018/10/01", "2019/09/30", 1, 1, "340");
    CHECK(world.fees.iGetTanka("20194") == 0);
    CHECK(world.fees.nマッサージ() == 0);
    CHECK(world.boxes.shown == Boxes{{"単価データがありません。", Icon::information, ""}, readError("0", "0")});
}

TEST_CASE("a quote in the period text breaks the statement and is reported")
{
    FeeTable world;
    CHECK(world.fees.iGetTanka("2019'4") == 0);
    REQUIRE(world.boxes.shown.size() == 1);
    CHECK(world.boxes.shown[0].text.starts_with("iGetTanka() でエラー\r\n(-2147217900)"));
}
