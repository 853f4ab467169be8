#include "master/corp_table.h"

#include "master/table_fixture.h"

using namespace inin;

namespace {

using CorpFixture = TableFixture<cT_CORP>;

// The list of the full read as sent.
const std::string kCorpReadList =
    "      CORP.cAddress1 as cAddress1     ,CORP.cAddress2 as cAddress2     ,CORP.cAddressKana as cAddressKana"
    "     ,CORP.cDaihyo as cDaihyo     ,CORP.cDaihyoKana as cDaihyoKana     ,CORP.cFaxNo as cFaxNo"
    "     ,CORP.cKinyuName as cKinyuName     ,CORP.cKinyuSiten as cKinyuSiten     ,CORP.cKozaBangou as cKozaBangou"
    "     ,CORP.cKozaKana as cKozaKana     ,CORP.cKozaMeigi1 as cKozaMeigi1     ,CORP.cKozaMeigi2 as cKozaMeigi2"
    "     ,CORP.cShamei1 as cShamei1     ,CORP.cShamei2 as cShamei2     ,CORP.cShameiKana1 as cShameiKana1"
    "     ,CORP.cShameiKana2 as cShameiKana2     ,CORP.cTelNo as cTelNo     ,CORP.cYubinNo as cYubinNo"
    "     ,CORP.iKinSiten as iKinSiten     ,CORP.iKinSyubetsu as iKinSyubetsu     ,CORP.iKozaKubun as iKozaKubun"
    "     ,CORP.iKozaType as iKozaType     ,CORP.iType as iType     ,CORP.nIDNo as nIDNo     ,CORP.nLat as nLat"
    "     ,CORP.nLon as nLon     ,CORP.cPcName as cPcName     ,CORP.tUpDateTime as tUpDateTime     ,cKinyuNo"
    "     ,cKinyuSitenNo     ,cJigyousyoNo     ,CORP.cJigyousyoNo2 as cJigyousyoNo2"
    "     ,CORP.cJigyouReceiptName as cJigyouReceiptName     ,CORP.cMailDestination as cMailDestination"
    "     ,CORP.cMailDestinationZipNo as cMailDestinationZipNo"
    "     ,CORP.cHokenTourokuKubetsu as cHokenTourokuKubetsu     ,CORP.cPersonalNumberCorp as cPersonalNumberCorp"
    "     ,CORP.iKyotenToshiNo as iKyotenToshiNo     ,CORP.cKokuhoTourokuNo as cKokuhoTourokuNo"
    "     ,CORP.cEmail as cEmail";

// The common beginning of both grids.
const std::string kGridListBeginning =
    "      CORP.cAddress1 as cAddress1     ,CORP.cAddress2 as cAddress2     ,CORP.cDaihyo as cDaihyo"
    "     ,CORP.cFaxNo as cFaxNo     ,CORP.cShamei1 as cShamei1     ,CORP.cShamei2 as cShamei2"
    "     ,CORP.cTelNo as cTelNo     ,CORP.cYubinNo as cYubinNo     ,CORP.iType as iType     ,CORP.nIDNo as nIDNo"
    "     ,CORP.cMailDestination as cMailDestination     ,CORP.cMailDestinationZipNo as cMailDestinationZipNo";

const std::string kCorpRead = "sql 1   select" + kCorpReadList + "  FROM      CORP";
const std::string kConditionedGrid =
    "sql 1   select" + kGridListBeginning +
    "     ,CORP.cHokenTourokuKubetsu as cHokenTourokuKubetsu     ,CORP.cPersonalNumberCorp as cPersonalNumberCorp"
    "     ,CORP.iKyotenToshiNo as iKyotenToshiNo     ,CORP.cKokuhoTourokuNo as cKokuhoTourokuNo"
    "     ,CORP.cEmail as cEmail  FROM      CORP";
constexpr const char *kCorpOrder = "  order by      nIDNo";

/// A row with a value in each column.
cD_CORP headOffice()
{
    cD_CORP row;
    row.cAddress1 = "高松市番町1";
    row.cAddress2 = "2階";
    row.cAddressKana = "ﾀｶﾏﾂ";
    row.cDaihyo = "代表者";
    row.cDaihyoKana = "ﾀﾞｲﾋｮｳ";
    row.cFaxNo = "087-1";
    row.cKinyuName = "百十四";
    row.cKinyuSiten = "本町";
    row.cKozaBangou = "1234567";
    row.cKozaKana = "ﾎﾝｼｬ";
    row.cKozaMeigi1 = "本社";
    row.cKozaMeigi2 = "口座";
    row.cShamei1 = "会社一";
    row.cShamei2 = "会社二";
    row.cShameiKana1 = "ｶｲｼｬ1";
    row.cShameiKana2 = "ｶｲｼｬ2";
    row.cTelNo = "087-2";
    row.cYubinNo = "760-0001";
    row.iKinSiten = 1;
    row.iKinSyubetsu = 2;
    row.iKozaKubun = 3;
    row.iKozaType = 4;
    row.iType = 0;
    row.nIDNo = 5;
    row.nLat = 34340000;
    row.nLon = 134040000;
    row.cPcName = "OTHER";
    row.tUpDateTime = "2000/1/1";
    row.cKinyuNo = "0173";
    row.cKinyuSitenNo = "001";
    row.cJigyousyoNo = "37-1";
    row.cJigyousyoNo2 = "37-2";
    row.cJigyouReceiptName = "領収";
    row.cMailDestination = "送付先";
    row.cMailDestinationZipNo = "760-9999";
    row.cHokenTourokuKubetsu = "別";
    row.cPersonalNumberCorp = "9999999999999";
    row.iKyotenToshiNo = 6;
    row.cKokuhoTourokuNo = "国1";
    row.cEmail = "a@b";
    return row;
}

} // namespace

TEST_CASE("companies are read by branch, and by number and kind if these are above -1")
{
    struct Row {
        const char *claim;
        std::int32_t nIDNo;
        std::int32_t iType;
        const char *condition;
    };
    const Row rows[] = {
        {"a fresh row gives all companies", -1, -1, " where iKyotenCd = 1 and iKyotenEb = 2"},
        {"the head office", -1, 0, " where iKyotenCd = 1 and iKyotenEb = 2 and     iType = 0"},
        {"a number", 7, -1, " where    nIDNo = 7 and iKyotenCd = 1 and iKyotenEb = 2"},
        {"0 is a number", 0, -1, " where    nIDNo = 0 and iKyotenCd = 1 and iKyotenEb = 2"},
        {"both", 7, 3, " where    nIDNo = 7 and iKyotenCd = 1 and iKyotenEb = 2 and     iType = 3"},
        {"below -1 is no condition either", -2, -9, " where iKyotenCd = 1 and iKyotenEb = 2"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.claim);
        CorpFixture corp;
        cD_CORP condition;
        condition.nIDNo = row.nIDNo;
        condition.iType = row.iType;
        CHECK(corp->iDataRead(&condition) == iGood);
        CHECK(corp.database.log == Log{kCorpRead + row.condition + kCorpOrder});
    }
}

TEST_CASE("the check of a company reads all others than its number")
{
    struct Row {
        const char *claim;
        std::int32_t nIDNo;
        std::int32_t iType;
        const char *condition;
    };
    const Row rows[] = {
        {"no number", -1, -1, " where iKyotenCd = 1 and iKyotenEb = 2"},
        {"a number", 7, -1, " where    nIDNo <> 7 and iKyotenCd = 1 and iKyotenEb = 2"},
        {"0 is a number", 0, 1, " where    nIDNo <> 0 and iKyotenCd = 1 and iKyotenEb = 2 and     iType = 1"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.claim);
        CorpFixture corp;
        cD_CORP condition;
        condition.nIDNo = row.nIDNo;
        condition.iType = row.iType;
        CHECK(corp->iDataReadChk(&condition) == iGood);
        CHECK(corp.database.log == Log{kCorpRead + row.condition + kCorpOrder});
    }
}

TEST_CASE("the company grid reads its columns for the branch")
{
    CorpFixture corp;
    CHECK(corp->iDataReadGrid() == iGood);
    CHECK(corp.database.log ==
          Log{"sql 1   select" + kGridListBeginning +
              "     ,CORP.cHokenTourokuKubetsu     ,CORP.cPersonalNumberCorp     ,CORP.iKyotenToshiNo"
              "     ,CORP.cKokuhoTourokuNo     ,CORP.cEmail  FROM      CORP where iKyotenCd = 1 and iKyotenEb = 2"
              "  order by      nIDNo"});
}

TEST_CASE("the conditioned company grid adds each term that is set after the branch")
{
    struct Row {
        const char *claim;
        std::int32_t nIDNo;
        const char *cShamei1;
        const char *cShameiKana1;
        const char *condition;
    };
    const Row rows[] = {
        {"nothing set", -1, "", "", ""},
        {"0 is no number here", 0, "", "", ""},
        {"a number", 1, "", "", " and     CORP.nIDNo = 1"},
        {"a part of the name", 0, "会社", "", " and     CORP.cShamei1 LIKE '%会社%'"},
        {"a part of the kana", 0, "", "ｶｲ", " and     CORP.cShameiKana1 LIKE '%ｶｲ%'"},
        {"all of them", 9, "会社", "ｶｲ",
         " and     CORP.nIDNo = 9 and     CORP.cShamei1 LIKE '%会社%' and     CORP.cShameiKana1 LIKE '%ｶｲ%'"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.claim);
        CorpFixture corp;
        cD_CORP condition;
        condition.iType = 3; // not a condition of this read
        condition.nIDNo = row.nIDNo;
        condition.cShamei1 = row.cShamei1;
        condition.cShameiKana1 = row.cShameiKana1;
        CHECK(corp->iDataReadGrid_Jouken(&condition) == iGood);
        CHECK(corp.database.log ==
              Log{kConditionedGrid + " where iKyotenCd = 1 and iKyotenEb = 2" + row.condition + kCorpOrder});
    }
}

TEST_CASE("the highest company number is queried by the branch")
{
    CorpFixture corp;
    corp.database.results.push_back(rowsOf({"nIDNo"}, {{{"nIDNo", std::int32_t{41}}}}));
    std::int32_t nMaxNo = -5;
    CHECK(corp->iGetMaxIDNo(nMaxNo) == iGood);
    CHECK(nMaxNo == 41);
    CHECK(corp.database.log == Log{"sql 1   select      max(CORP.nIDNo) as nIDNo  FROM      CORP where iKyotenCd = 1"
                                   " and iKyotenEb = 2"});
}

TEST_CASE("an insert of a company writes all columns in their order, the branch in quotes")
{
    CorpFixture corp;
    const cD_CORP row = headOffice();
    CHECK(corp->iDataInsert(&row, 0) == iGood);
    CHECK(corp.database.log ==
          Log{"exec 1  insert into    CORP (      iKyotenCd,      iKyotenEb,      cAddress1     ,cAddress2"
              "     ,cAddressKana     ,cDaihyo     ,cDaihyoKana     ,cFaxNo     ,cKinyuName     ,cKinyuSiten"
              "     ,cKozaBangou     ,cKozaKana     ,cKozaMeigi1     ,cKozaMeigi2     ,cShamei1     ,cShamei2"
              "     ,cShameiKana1     ,cShameiKana2     ,cTelNo     ,cYubinNo     ,iKinSiten     ,iKinSyubetsu"
              "     ,iKozaKubun     ,iKozaType     ,iType     ,nIDNo     ,nLat     ,nLon     ,cPcName"
              "     ,tUpDateTime     ,cKinyuNo     ,cKinyuSitenNo     ,cJigyousyoNo     ,cJigyousyoNo2"
              "     ,cJigyouReceiptName     ,cMailDestination     ,cMailDestinationZipNo     ,cHokenTourokuKubetsu"
              "     ,cPersonalNumberCorp     ,iKyotenToshiNo     ,cKokuhoTourokuNo     ,cEmail )values(       '1',"
              "      '2',      '高松市番町1'     ,'2階'     ,'ﾀｶﾏﾂ'     ,'代表者'     ,'ﾀﾞｲﾋｮｳ'     ,'087-1'"
              "     ,'百十四'     ,'本町'     ,'1234567'     ,'ﾎﾝｼｬ'     ,'本社'     ,'口座'     ,'会社一'"
              "     ,'会社二'     ,'ｶｲｼｬ1'     ,'ｶｲｼｬ2'     ,'087-2'     ,'760-0001'     ,1     ,2     ,3     ,4     ,0"
              "     ,5     ,34340000     ,134040000     ,'RECEPTION1'     ,GetDate()     ,'0173'     ,'001'"
              "     ,'37-1'     ,'37-2'     ,'領収'     ,'送付先'     ,'760-9999'     ,'別'     ,'9999999999999'"
              "     ,6     ,'国1'     ,'a@b' ) "});
}

TEST_CASE("an update of a company sets all columns except the branch")
{
    CorpFixture corp;
    const cD_CORP row = headOffice();
    CHECK(corp->iDataUpdate(&row, 0) == iGood);
    CHECK(corp.database.log ==
          Log{"exec 1  update      CORP set       cAddress1 = '高松市番町1'     ,cAddress2 = '2階'"
              "     ,cAddressKana = 'ﾀｶﾏﾂ'     ,cDaihyo = '代表者'     ,cDaihyoKana = 'ﾀﾞｲﾋｮｳ'     ,cFaxNo = '087-1'"
              "     ,cKinyuName = '百十四'     ,cKinyuSiten = '本町'     ,cKozaBangou = '1234567'"
              "     ,cKozaKana = 'ﾎﾝｼｬ'     ,cKozaMeigi1 = '本社'     ,cKozaMeigi2 = '口座'     ,cShamei1 = '会社一'"
              "     ,cShamei2 = '会社二'     ,cShameiKana1 = 'ｶｲｼｬ1'     ,cShameiKana2 = 'ｶｲｼｬ2'"
              "     ,cTelNo = '087-2'     ,cYubinNo = '760-0001'     ,iKinSiten =  1     ,iKinSyubetsu =  2"
              "     ,iKozaKubun =  3     ,iKozaType =  4     ,iType =  0     ,nIDNo =  5     ,nLat =  34340000"
              "     ,nLon =  134040000     ,cPcName = 'RECEPTION1'     ,tUpDateTime = GetDate()"
              "     ,cKinyuNo = '0173'     ,cKinyuSitenNo = '001'     ,cJigyousyoNo = '37-1'"
              "     ,cJigyousyoNo2 = '37-2'     ,cJigyouReceiptName = '領収'     ,cMailDestination = '送付先'"
              "     ,cMailDestinationZipNo = '760-9999'     ,cHokenTourokuKubetsu = '別'"
              "     ,cPersonalNumberCorp = '9999999999999'     ,iKyotenToshiNo =  6     ,cKokuhoTourokuNo = '国1'"
              "     ,cEmail = 'a@b' where    nIDNo = 5 and iKyotenCd = 1 and iKyotenEb = 2"});
}

TEST_CASE("a company is deleted by number in this branch")
{
    CorpFixture corp;
    const cD_CORP row = headOffice();
    CHECK(corp->iData削除(&row, 0) == iGood);
    CHECK(corp.database.log ==
          Log{"exec 1  delete from      CORP where    nIDNo = 5    and iKyotenCd = 1    and iKyotenEb = 2"});
}
