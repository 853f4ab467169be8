#include "master/hoken_table.h"

#include "master/table_fixture.h"

using namespace inin;

namespace {

const std::vector<std::string> kHokenColumns = {"cName", "cRyaku", "cType", "iType"};

constexpr const char *kHokenRead = "sql 1   select      HOKEN.cName as cName     ,HOKEN.cRyaku as cRyaku"
                                   "     ,HOKEN.cType as cType     ,HOKEN.iType as iType  FROM      HOKEN"
                                   "  order by      iType";

struct HokenFixture : TableFixture<cT_HOKEN> {
    void answer(const std::vector<GivenRow> &rows) { database.results.push_back(rowsOf(kHokenColumns, rows)); }
    std::int16_t readAll()
    {
        const cD_HOKEN any;
        return table.iDataRead(&any);
    }
};

cD_HOKEN kokuho()
{
    cD_HOKEN row;
    row.cName = "国民健康保険";
    row.cRyaku = "国";
    row.cType = "国保";
    row.iType = 7;
    return row;
}

} // namespace

TEST_CASE("a fresh insurance kind has empty texts and the number -1")
{
    const cD_HOKEN fresh;
    CHECK(fresh.cName.empty());
    CHECK(fresh.cRyaku.empty());
    CHECK(fresh.cType.empty());
    CHECK(fresh.iType == -1);
    CHECK(fresh.cPcName.empty());
    CHECK(fresh.tUpDateTime.empty());
}

TEST_CASE("the insurance kinds are read completely, without a branch, in order of their number")
{
    HokenFixture hoken;
    CHECK(hoken.readAll() == iGood);
    CHECK(hoken.database.log == Log{kHokenRead});
}

TEST_CASE("the row given to the read of insurance kinds sets no condition")
{
    HokenFixture hoken;
    const cD_HOKEN row = kokuho();
    CHECK(hoken->iDataRead(&row) == iGood);
    CHECK(hoken.database.log == Log{kHokenRead});
}

TEST_CASE("each insurance kind has its texts, trimmed on both sides, and its number")
{
    HokenFixture hoken;
    hoken.answer({{{"cName", "  国民健康保険 "}, {"cRyaku", " 国"}, {"cType", "国保 "}, {"iType", std::int32_t{1}}},
                  {{"cName", "協会けんぽ"}, {"cRyaku", "協"}, {"cType", "　社保　"}, {"iType", " 2 "}}});
    REQUIRE(hoken.readAll() == iGood);
    REQUIRE(hoken->nデータ数() == 2);
    CHECK(hoken->clsHOKEN(0).cName == "国民健康保険");
    CHECK(hoken->clsHOKEN(0).cRyaku == "国");
    CHECK(hoken->clsHOKEN(0).cType == "国保");
    CHECK(hoken->clsHOKEN(0).iType == 1);
    // A full-width blank is an ordinary character.
    CHECK(hoken->clsHOKEN(1).cType == "　社保　");
    CHECK(hoken->clsHOKEN(1).iType == 2);
}

TEST_CASE("an insurance kind with only NULLs has empty texts and the number 0")
{
    HokenFixture hoken;
    hoken.answer({{}});
    REQUIRE(hoken.readAll() == iGood);
    REQUIRE(hoken->nデータ数() == 1);
    CHECK(hoken->clsHOKEN(0).cName.empty());
    CHECK(hoken->clsHOKEN(0).cRyaku.empty());
    CHECK(hoken->clsHOKEN(0).cType.empty());
    CHECK(hoken->clsHOKEN(0).iType == 0);
}

TEST_CASE("an empty table of insurance kinds is a successful read of no rows")
{
    HokenFixture hoken;
    CHECK(hoken.readAll() == iGood);
    CHECK(hoken->nデータ数() == 0);
    CHECK(hoken->sErrMsg().empty());
}

TEST_CASE("a second read replaces the insurance kinds")
{
    HokenFixture hoken;
    hoken.answer({{{"cType", "国保"}}, {{"cType", "社保"}}});
    hoken.answer({{{"cType", "後期"}}});
    REQUIRE(hoken.readAll() == iGood);
    REQUIRE(hoken.readAll() == iGood);
    REQUIRE(hoken->nデータ数() == 1);
    CHECK(hoken->clsHOKEN(0).cType == "後期");
}

TEST_CASE("a kind in two branches appears twice")
{
    HokenFixture hoken;
    hoken.answer({{{"cType", "国保"}, {"iType", std::int32_t{1}}}, {{"cType", "国保"}, {"iType", std::int32_t{1}}}});
    REQUIRE(hoken.readAll() == iGood);
    CHECK(hoken->nデータ数() == 2);
}

TEST_CASE("a number of an insurance kind may exceed 16 bits")
{
    HokenFixture hoken;
    hoken.answer({{{"iType", std::int32_t{32768}}}, {{"iType", 2147483647.0}}, {{"iType", std::int32_t{-70000}}}});
    REQUIRE(hoken.readAll() == iGood);
    CHECK(hoken->clsHOKEN(0).iType == 32768);
    CHECK(hoken->clsHOKEN(1).iType == 2147483647);
    CHECK(hoken->clsHOKEN(2).iType == -70000);
}

TEST_CASE("a number of an insurance kind beyond 32 bits overflows and keeps the kinds before it")
{
    HokenFixture hoken;
    hoken.answer({{{"iType", std::int32_t{1}}}, {{"iType", 2147483648.0}}, {{"iType", std::int32_t{3}}}});
    CHECK(hoken.readAll() == iBad);
    CHECK(hoken->sErrMsg() == "6\r\nオーバーフローしました。");
    CHECK(hoken->nデータ数() == 1);
    CHECK(hoken->clsHOKEN(0).iType == 1);
}

TEST_CASE("a non-numeric number of an insurance kind does not convert")
{
    HokenFixture hoken;
    hoken.answer({{{"iType", "国保"}}});
    CHECK(hoken.readAll() == iBad);
    CHECK(hoken->sErrMsg() == "13\r\n型が一致しません。");
    CHECK(hoken->nデータ数() == 0);
}

TEST_CASE("a read of insurance kinds without a row fails and keeps the rows of the last read")
{
    HokenFixture hoken;
    hoken.answer({{{"cType", "国保"}}});
    REQUIRE(hoken.readAll() == iGood);
    CHECK(hoken->iDataRead(nullptr) == iBad);
    CHECK(hoken->sErrMsg() == "HOKENが無効です。");
    CHECK(hoken->nデータ数() == 1);
}

TEST_CASE("an insurance kind is written with the branch of this installation")
{
    HokenFixture hoken;
    const cD_HOKEN row = kokuho();
    CHECK(hoken->iDataInsert(&row, 0) == iGood);
    CHECK(hoken.database.log ==
          Log{"exec 1  insert into    HOKEN (      iKyotenCd     ,iKyotenEb     ,cName     ,cRyaku     ,cType"
              "     ,iType )values(       1     ,2     ,'国民健康保険'     ,'国'     ,'国保'     ,7 ) "});
}

TEST_CASE("an update of an insurance kind finds it by its number, which stays unchanged")
{
    HokenFixture hoken;
    const cD_HOKEN row = kokuho();
    CHECK(hoken->iDataUpdate(&row, 0) == iGood);
    CHECK(hoken.database.log ==
          Log{"exec 1  update      HOKEN set       cName = '国民健康保険'     ,cRyaku = '国'     ,cType = '国保'"
              "     ,iType =  7 where    iType = 7 and iKyotenCd = 1 and iKyotenEb = 2"});
}

TEST_CASE("an insurance kind is deleted by its number in this branch")
{
    HokenFixture hoken;
    const cD_HOKEN row = kokuho();
    CHECK(hoken->iData削除(&row, 0) == iGood);
    CHECK(hoken.database.log ==
          Log{"exec 1  delete from      HOKEN where    iType = 7 and iKyotenCd = 1 and iKyotenEb = 2"});
}

TEST_CASE("a write of an insurance kind needs no computer name")
{
    HokenFixture hoken;
    hoken.processes.name = std::string(250, 'x');
    const cD_HOKEN row = kokuho();
    CHECK(hoken->iDataInsert(&row, 0) == iGood);
    CHECK(hoken->iDataUpdate(&row, 0) == iGood);
}
