#include "master/corp_table.h"

#include "master/table_fixture.h"
#include "runtime/date.h"

using namespace inin;

namespace {

using CorpFixture = TableFixture<cT_CORP>;

const std::vector<std::string> kCorpColumns = {"cAddress1",
                                               "cAddress2",
                                               "cAddressKana",
                                               "cDaihyo",
                                               "cDaihyoKana",
                                               "cFaxNo",
                                               "cKinyuName",
                                               "cKinyuSiten",
                                               "cKozaBangou",
                                               "cKozaKana",
                                               "cKozaMeigi1",
                                               "cKozaMeigi2",
                                               "cShamei1",
                                               "cShamei2",
                                               "cShameiKana1",
                                               "cShameiKana2",
                                               "cTelNo",
                                               "cYubinNo",
                                               "iKinSiten",
                                               "iKinSyubetsu",
                                               "iKozaKubun",
                                               "iKozaType",
                                               "iType",
                                               "nIDNo",
                                               "nLat",
                                               "nLon",
                                               "cPcName",
                                               "tUpDateTime",
                                               "cKinyuNo",
                                               "cKinyuSitenNo",
                                               "cJigyousyoNo",
                                               "cJigyousyoNo2",
                                               "cJigyouReceiptName",
                                               "cMailDestination",
                                               "cMailDestinationZipNo",
                                               "cHokenTourokuKubetsu",
                                               "cPersonalNumberCorp",
                                               "iKyotenToshiNo",
                                               "cKokuhoTourokuNo",
                                               "cEmail"};

} // namespace

TEST_CASE("the read of a company fills each of its texts, trimmed on both sides")
{
    CorpFixture corp;
    std::vector<GivenRow> rows(1);
    for (const std::string &column : kCorpColumns)
        if (column.front() == 'c') rows[0].emplace_back(column, Variant("  " + column + "の値 "));
    rows[0].emplace_back("tUpDateTime", Variant(DateSerial(2024, 5, 1)));
    corp.database.results.push_back(rowsOf(kCorpColumns, rows));
    const cD_CORP fresh;
    REQUIRE(corp->iDataRead(&fresh) == iGood);
    const cD_CORP &row = corp->clsCORP(0);
    CHECK(row.cAddress1 == "cAddress1の値");
    CHECK(row.cAddress2 == "cAddress2の値");
    CHECK(row.cAddressKana == "cAddressKanaの値");
    CHECK(row.cDaihyo == "cDaihyoの値");
    CHECK(row.cDaihyoKana == "cDaihyoKanaの値");
    CHECK(row.cFaxNo == "cFaxNoの値");
    CHECK(row.cKinyuName == "cKinyuNameの値");
    CHECK(row.cKinyuSiten == "cKinyuSitenの値");
    CHECK(row.cKozaBangou == "cKozaBangouの値");
    CHECK(row.cKozaKana == "cKozaKanaの値");
    CHECK(row.cKozaMeigi1 == "cKozaMeigi1の値");
    CHECK(row.cKozaMeigi2 == "cKozaMeigi2の値");
    CHECK(row.cShamei1 == "cShamei1の値");
    CHECK(row.cShamei2 == "cShamei2の値");
    CHECK(row.cShameiKana1 == "cShameiKana1の値");
    CHECK(row.cShameiKana2 == "cShameiKana2の値");
    CHECK(row.cTelNo == "cTelNoの値");
    CHECK(row.cYubinNo == "cYubinNoの値");
    CHECK(row.cPcName == "cPcNameの値");
    CHECK(row.tUpDateTime == "2024/05/01");
    CHECK(row.cKinyuNo == "cKinyuNoの値");
    CHECK(row.cKinyuSitenNo == "cKinyuSitenNoの値");
    CHECK(row.cJigyousyoNo == "cJigyousyoNoの値");
    CHECK(row.cJigyousyoNo2 == "cJigyousyoNo2の値");
    CHECK(row.cJigyouReceiptName == "cJigyouReceiptNameの値");
    CHECK(row.cMailDestination == "cMailDestinationの値");
    CHECK(row.cMailDestinationZipNo == "cMailDestinationZipNoの値");
    CHECK(row.cHokenTourokuKubetsu == "cHokenTourokuKubetsuの値");
    CHECK(row.cPersonalNumberCorp == "cPersonalNumberCorpの値");
    CHECK(row.cKokuhoTourokuNo == "cKokuhoTourokuNoの値");
    CHECK(row.cEmail == "cEmailの値");
}

TEST_CASE("the read of a company fills each of its numbers")
{
    CorpFixture corp;
    corp.database.results.push_back(rowsOf(kCorpColumns, {{{"iKinSiten", std::int32_t{1}},
                                                           {"iKinSyubetsu", " 2 "},
                                                           {"iKozaKubun", std::int16_t{3}},
                                                           {"iKozaType", 4.0},
                                                           {"iType", std::int32_t{70000}},
                                                           {"nIDNo", std::int32_t{6}},
                                                           {"nLat", std::int32_t{34340000}},
                                                           {"nLon", std::int32_t{134040000}},
                                                           {"iKyotenToshiNo", std::int32_t{9}}}}));
    const cD_CORP fresh;
    REQUIRE(corp->iDataReadChk(&fresh) == iGood);
    const cD_CORP &row = corp->clsCORP(0);
    CHECK(row.iKinSiten == 1);
    CHECK(row.iKinSyubetsu == 2);
    CHECK(row.iKozaKubun == 3);
    CHECK(row.iKozaType == 4);
    CHECK(row.iType == 70000);
    CHECK(row.nIDNo == 6);
    CHECK(row.nLat == 34340000);
    CHECK(row.nLon == 134040000);
    CHECK(row.iKyotenToshiNo == 9);
}

TEST_CASE("a company with only NULLs has zeros where a fresh row has -1")
{
    CorpFixture corp;
    corp.database.results.push_back(rowsOf(kCorpColumns, {{}}));
    const cD_CORP fresh;
    REQUIRE(corp->iDataRead(&fresh) == iGood);
    const cD_CORP &row = corp->clsCORP(0);
    for (const std::int32_t number : {row.iKinSiten, row.iKinSyubetsu, row.iKozaKubun, row.iKozaType, row.iType,
                                      row.nIDNo, row.nLat, row.nLon, row.iKyotenToshiNo})
        CHECK(number == 0);
    for (const std::string *text : {&row.cShamei1, &row.cAddress1, &row.cPcName, &row.tUpDateTime, &row.cEmail})
        CHECK(text->empty());
}

TEST_CASE("both company grids fill their columns and leave the others as in a fresh row")
{
    for (const bool isConditioned : {false, true}) {
        CAPTURE(isConditioned);
        CorpFixture corp;
        std::vector<GivenRow> rows(1);
        for (const std::string &column : kCorpColumns)
            rows[0].emplace_back(column, column.front() == 'c' ? Variant(column) : Variant(std::int32_t{8}));
        corp.database.results.push_back(rowsOf(kCorpColumns, rows));
        const cD_CORP fresh;
        REQUIRE((isConditioned ? corp->iDataReadGrid_Jouken(&fresh) : corp->iDataReadGrid()) == iGood);
        const cD_CORP &row = corp->clsCORP(0);
        CHECK(row.cAddress1 == "cAddress1");
        CHECK(row.cAddress2 == "cAddress2");
        CHECK(row.cDaihyo == "cDaihyo");
        CHECK(row.cFaxNo == "cFaxNo");
        CHECK(row.cShamei1 == "cShamei1");
        CHECK(row.cShamei2 == "cShamei2");
        CHECK(row.cTelNo == "cTelNo");
        CHECK(row.cYubinNo == "cYubinNo");
        CHECK(row.iType == 8);
        CHECK(row.nIDNo == 8);
        CHECK(row.cMailDestination == "cMailDestination");
        CHECK(row.cMailDestinationZipNo == "cMailDestinationZipNo");
        CHECK(row.cHokenTourokuKubetsu == "cHokenTourokuKubetsu");
        CHECK(row.cPersonalNumberCorp == "cPersonalNumberCorp");
        CHECK(row.iKyotenToshiNo == 8);
        CHECK(row.cKokuhoTourokuNo == "cKokuhoTourokuNo");
        CHECK(row.cEmail == "cEmail");
        for (const std::string *text : {&row.cAddressKana, &row.cDaihyoKana, &row.cKinyuName, &row.cShameiKana1,
                                        &row.cPcName, &row.cKinyuNo, &row.cJigyousyoNo, &row.cJigyouReceiptName})
            CHECK(text->empty());
        for (const std::int32_t number : {row.iKinSiten, row.iKozaKubun, row.nLat, row.nLon}) CHECK(number == -1);
    }
}

TEST_CASE("a branch without a head office is a successful read of no rows")
{
    CorpFixture corp;
    cD_CORP condition;
    condition.iType = 0;
    CHECK(corp->iDataRead(&condition) == iGood);
    CHECK(corp->nデータ数() == 0);
}

TEST_CASE("a branch without companies has the highest number 0")
{
    CorpFixture corp;
    corp.database.results.push_back(rowsOf({"nIDNo"}, {{}}));
    std::int32_t nMaxNo = -5;
    CHECK(corp->iGetMaxIDNo(nMaxNo) == iGood);
    CHECK(nMaxNo == 0);
}

TEST_CASE("the reads of a company without a condition row fail with the table's error text")
{
    CorpFixture corp;
    CHECK(corp->iDataRead(nullptr) == iBad);
    CHECK(corp->sErrMsg() == "CORPが無効です。");
    CHECK(corp.database.log.empty());
    CorpFixture check;
    CHECK(check->iDataReadChk(nullptr) == iBad);
    CHECK(check->sErrMsg() == "CORPが無効です。");
}

TEST_CASE("the conditioned company grid without a condition row is the runtime's error 91")
{
    CorpFixture corp;
    CHECK(corp->iDataReadGrid_Jouken(nullptr) == iBad);
    CHECK(corp->sErrMsg() == "91\r\nオブジェクト変数または With ブロック変数が設定されていません。");
    CHECK(corp.database.log.empty());
}
