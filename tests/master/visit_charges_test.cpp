#include "master/tariffs.h"

#include "master/table_fixture.h"
#include "support/embedded_world.h"

using namespace inin;

namespace {

using Boxes = std::vector<ShownBox>;

const ShownBox kReadError = {"往療単価の取得に失敗しました。\r区分:  コード：", Icon::critical, "DB Read Error!!"};
const ShownBox kChargeError = {"往療金額の取得に失敗しました。\r区分:  コード：", Icon::critical, "DB Read Error!!"};

struct Band {
    Variant charge;
    Variant limit;
};

struct ChargeFixture : FakeWorld {
    explicit ChargeFixture(const std::vector<Band> &bands = {}) { load(bands); }
    void answer(const std::vector<Band> &bands)
    {
        FakeResult result;
        result.columns = {"cStartDate", "cEndDate", "nKingakuOuryou", "nMaxLen"};
        for (const Band &band : bands) result.rows.push_back({"2018/10/01", "2019/09/30", band.charge, band.limit});
        database.results.push_back(std::move(result));
    }
    void load(const std::vector<Band> &bands)
    {
        answer(bands);
        REQUIRE(charges.iGetOuryohiAll("201904") == 0);
    }
    cls往療費 charges{app};
};

} // namespace

TEST_CASE("the bands of a month are read by one statement on a session of their own")
{
    ChargeFixture world({{1800, 2000}});
    CHECK(world.database.log ==
          Log{"connect 1",
              "sql 1 SELECT * FROM 往療費区分 WHERE SUBSTRING(CONVERT(VARCHAR, cStartDate, 112),1,4)+SUBSTRING(CONVERT("
              "VARCHAR, cStartDate, 112),6,2) <=   '201904' AND SUBSTRING(CONVERT(VARCHAR, cEndDate, 112),1,4)+"
              "SUBSTRING(CONVERT(VARCHAR, cEndDate, 112),6,2) >=   '201904' ORDER BY nMaxLen",
              "disconnect 1"});
    CHECK(world.boxes.shown.empty());
}

TEST_CASE("a distance has the charge of the first band whose limit it does not exceed")
{
    struct Row {
        std::int32_t nLen;
        std::int16_t iMode;
        std::int16_t charge;
        std::int32_t nLenAfter;
    };
    for (const Row &given : {Row{0, 0, 0, 0}, Row{1, 0, 1800, 1}, Row{2000, 0, 1800, 2000}, Row{2001, 0, 2300, 2001},
                             Row{4000, 0, 2300, 4000}, Row{9000, 0, 2300, 4000}, Row{-5, 0, 1800, -5},
                             // mode 1 excludes the last band, every other mode includes it
                             Row{1500, 1, 1800, 1500}, Row{3000, 1, 1800, 3000}, Row{9000, 1, 1800, 4000},
                             Row{3000, 2, 2300, 3000}, Row{3000, -1, 2300, 3000}, Row{0, 1, 0, 0}}) {
        CAPTURE(given.nLen);
        CAPTURE(given.iMode);
        ChargeFixture world({{1800, 2000}, {2300, 4000}});
        std::int32_t nLen = given.nLen;
        CHECK(world.charges.iGetOuryohi(nLen, given.iMode) == given.charge);
        CHECK(nLen == given.nLenAfter);
        CHECK(world.boxes.shown.empty());
    }
}

TEST_CASE("the bands are returned by index, and an index outside is a subscript error")
{
    ChargeFixture world({{1800, 2000}, {40000, 4000}});
    CHECK(world.charges.i往療区分数() == 2);
    CHECK(world.charges.n往療単価(0) == 1800);
    CHECK(world.charges.n往療単価(1) == 40000);
    CHECK(world.charges.n往療距離MAX(1) == 4000);
    for (const std::int16_t index : {std::int16_t{-1}, std::int16_t{2}}) {
        CHECK_THROWS_AS((void)world.charges.n往療単価(index), RuntimeError);
        CHECK_THROWS_AS((void)world.charges.n往療距離MAX(index), RuntimeError);
    }
}

TEST_CASE("mode 1 with a single band has no band before it: a box and 0")
{
    ChargeFixture world({{1800, 2000}});
    std::int32_t nLen = 500;
    CHECK(world.charges.iGetOuryohi(nLen, 1) == 0);
    CHECK(world.boxes.shown == Boxes{kChargeError});
}

TEST_CASE("a charge beyond 16 bits shows the box and gives 0")
{
    ChargeFixture world({{32767, 1000}, {32768, 2000}});
    std::int32_t fits = 1000, tooGreat = 1001;
    CHECK(world.charges.iGetOuryohi(fits, 0) == 32767);
    CHECK(world.boxes.shown.empty());
    CHECK(world.charges.iGetOuryohi(tooGreat, 0) == 0);
    CHECK(world.boxes.shown == Boxes{kChargeError});
}

TEST_CASE("a month without bands is no failure, but a query by distance then is")
{
    ChargeFixture world({{1800, 2000}});
    world.load({});
    CHECK(world.charges.i往療区分数() == 0);
    CHECK(world.charges.n往療単価(0) == 0);
    CHECK(world.charges.n往療距離MAX(0) == 0);
    CHECK_THROWS_AS((void)world.charges.n往療単価(1), RuntimeError);
    CHECK(world.boxes.shown.empty());

    std::int32_t nLen = 500, nothing = 0;
    CHECK(world.charges.iGetOuryohi(nothing, 0) == 0);
    CHECK(world.boxes.shown.empty());
    CHECK(world.charges.iGetOuryohi(nLen, 0) == 0);
    CHECK(nLen == 500);
    CHECK(world.boxes.shown == Boxes{kChargeError});
}

TEST_CASE("a distance before the bands are read shows the box")
{
    FakeWorld world;
    cls往療費 charges(world.app);
    std::int32_t nLen = 500;
    CHECK(charges.iGetOuryohi(nLen, 0) == 0);
    CHECK(world.boxes.shown == Boxes{kChargeError});
    CHECK(charges.i往療区分数() == 0);
    CHECK_THROWS_AS((void)charges.n往療単価(0), RuntimeError);
}

TEST_CASE("bands that do not ascend are searched in their order, and the last one limits the distance")
{
    ChargeFixture world({{1800, 4000}, {2300, 2000}});
    std::int32_t nLen = 3000;
    CHECK(world.charges.iGetOuryohi(nLen, 0) == 1800);
    CHECK(nLen == 2000);
}

TEST_CASE("of bands with the same limit the first one applies")
{
    ChargeFixture world({{1800, 2000}, {2300, 2000}});
    std::int32_t nLen = 2000;
    CHECK(world.charges.iGetOuryohi(nLen, 0) == 1800);
}

TEST_CASE("bands are read anew: those of the previous month are gone")
{
    ChargeFixture world({{1800, 2000}, {2300, 4000}});
    world.load({{900, 1000}});
    CHECK(world.charges.i往療区分数() == 1);
    CHECK(world.charges.n往療単価(0) == 900);
    CHECK_THROWS_AS((void)world.charges.n往療単価(1), RuntimeError);
}

TEST_CASE("a NULL among the bands closes the session and shows the box without class and code")
{
    for (const Band &faulty : {Band{Null{}, 4000}, Band{2300, Null{}}}) {
        ChargeFixture world;
        world.answer({{1800, 2000}, faulty});
        std::vector<std::string> logAtBox;
        world.boxes.onShow = [&](const ShownBox &) { logAtBox = world.database.log; };
        CHECK(world.charges.iGetOuryohiAll("201904") == 0);
        CHECK(world.boxes.shown == Boxes{kReadError});
        CHECK(logAtBox.back() == "disconnect 2");
        // The count is set only at the end.
        CHECK(world.charges.i往療区分数() == 0);
        CHECK(world.charges.n往療単価(0) == 1800);
    }
}

TEST_CASE("a failure before the bands is reported under the operation's name and keeps the old bands")
{
    ChargeFixture world({{1800, 2000}});
    world.database.results.push_back(failure(-2147217865, "表がありません。"));
    CHECK(world.charges.iGetOuryohiAll("201904") == 0);
    world.database.connectError = -2147217843;
    CHECK(world.charges.iGetOuryohiAll("201904") == 0);
    world.files.putText("C:\\SUITE\\adodb.ini", "[接続情報]\n");
    CHECK(world.charges.iGetOuryohiAll("201904") == 0);
    world.files.remove("C:\\SUITE\\adodb.ini");
    CHECK(world.charges.iGetOuryohiAll("201904") == 0);
    CHECK(world.boxes.shown ==
          Boxes{{"iGetOuryohiAll() でエラー\r\n(-2147217865)表がありません。\rSQL=SELECT * FROM 往療費区分 WHERE"
                 " SUBSTRING(CONVERT(VARCHAR, cStartDate, 112),1,4)+SUBST・・・",
                 Icon::critical, ""},
                {"iGetOuryohiAll() でエラー\r\n(-2147217843)接続できません。", Icon::critical, ""},
                {"iGetOuryohiAll() でエラー\r\n接続文字列取得できません。", Icon::critical, ""},
                {"iGetOuryohiAll() でエラー\r\n指定されたIni（C:\\SUITE\\adodb.ini）ファイルが見つかりません。",
                 Icon::critical, ""}});
    CHECK(world.charges.i往療区分数() == 1);
    CHECK(world.charges.n往療単価(0) == 1800);
}

TEST_CASE("the database returns the bands of the month in order of their limits")
{
    EmbeddedWorld world;
    world.run("INSERT INTO 往療費区分 VALUES ('2018/10/01','2019/09/30',2300,4000),"
              " ('2018/10/01','2019/09/30',1800,2000), ('2019/10/01','9999/12/31',9999,3000)");
    cls往療費 charges(world.site);
    CHECK(charges.iGetOuryohiAll("201904") == 0);
    REQUIRE(charges.i往療区分数() == 2);
    CHECK(charges.n往療距離MAX(0) == 2000);
    std::int32_t nLen = 3500;
    CHECK(charges.iGetOuryohi(nLen, 0) == 2300);
    CHECK(world.boxes.shown.empty());
}

TEST_CASE("a period text of five digits compares as text: 20194 is greater than 201910")
{
    EmbeddedWorld world;
    world.run("INSERT INTO 往療費区分 VALUES ('2018/10/01','2019/09/30',1800,2000),"
              " ('2019/10/01','9999/12/31',9999,3000)");
    cls往療費 charges(world.site);
    CHECK(charges.iGetOuryohiAll("20194") == 0);
    REQUIRE(charges.i往療区分数() == 1);
    CHECK(charges.n往療単価(0) == 9999);
}
