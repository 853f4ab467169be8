#include "adapters/sqlite/practice_database.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

using namespace inin;
using namespace inin::sqlite;

namespace {

using Texts = std::vector<std::string>;

const std::string kCorpBranch = " iKyotenCd = 1 and iKyotenEb = 1";

/// The whole select list of the company table. All but three columns have aliases.
const std::string kList =
    "  select      CORP.cAddress1 as cAddress1     ,CORP.cAddress2 as cAddress2     ,CORP.cAddressKana as cAddressKana"
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
    "     ,CORP.cMailDestinationZipNo as cMailDestinationZipNo     ,CORP.cHokenTourokuKubetsu as cHokenTourokuKubetsu"
    "     ,CORP.cPersonalNumberCorp as cPersonalNumberCorp     ,CORP.iKyotenToshiNo as iKyotenToshiNo"
    "     ,CORP.cKokuhoTourokuNo as cKokuhoTourokuNo     ,CORP.cEmail as cEmail  FROM      CORP";

/// The short select list of the grid, and the same with aliases for the grid with conditions.
const std::string kGridHead =
    "  select      CORP.cAddress1 as cAddress1     ,CORP.cAddress2 as cAddress2     ,CORP.cDaihyo as cDaihyo"
    "     ,CORP.cFaxNo as cFaxNo     ,CORP.cShamei1 as cShamei1     ,CORP.cShamei2 as cShamei2     ,CORP.cTelNo as cTelNo"
    "     ,CORP.cYubinNo as cYubinNo     ,CORP.iType as iType     ,CORP.nIDNo as nIDNo"
    "     ,CORP.cMailDestination as cMailDestination     ,CORP.cMailDestinationZipNo as cMailDestinationZipNo";
const std::string kCorpGrid = kGridHead +
                              "     ,cHokenTourokuKubetsu     ,cPersonalNumberCorp     ,iKyotenToshiNo"
                              "     ,cKokuhoTourokuNo     ,cEmail  FROM      CORP where" +
                              kCorpBranch;
const std::string kGridJouken =
    kGridHead +
    "     ,CORP.cHokenTourokuKubetsu as cHokenTourokuKubetsu     ,CORP.cPersonalNumberCorp as cPersonalNumberCorp"
    "     ,CORP.iKyotenToshiNo as iKyotenToshiNo     ,CORP.cKokuhoTourokuNo as cKokuhoTourokuNo"
    "     ,CORP.cEmail as cEmail  FROM      CORP where" +
    kCorpBranch;
const std::string kCorpOrder = "  order by      nIDNo";

const std::string kCorpInsert =
    " insert into    CORP (      iKyotenCd,      iKyotenEb,      cAddress1     ,cAddress2     ,cAddressKana     ,cDaihyo"
    "     ,cDaihyoKana     ,cFaxNo     ,cKinyuName     ,cKinyuSiten     ,cKozaBangou     ,cKozaKana     ,cKozaMeigi1"
    "     ,cKozaMeigi2     ,cShamei1     ,cShamei2     ,cShameiKana1     ,cShameiKana2     ,cTelNo     ,cYubinNo"
    "     ,iKinSiten     ,iKinSyubetsu     ,iKozaKubun     ,iKozaType     ,iType     ,nIDNo     ,nLat     ,nLon"
    "     ,cPcName     ,tUpDateTime     ,cKinyuNo     ,cKinyuSitenNo     ,cJigyousyoNo     ,cJigyousyoNo2"
    "     ,cJigyouReceiptName     ,cMailDestination     ,cMailDestinationZipNo     ,cHokenTourokuKubetsu"
    "     ,cPersonalNumberCorp     ,iKyotenToshiNo     ,cKokuhoTourokuNo     ,cEmail )values( "
    "      '1',      '1',      '新住所'     ,''     ,'ｼﾝｼﾞｭｳｼｮ'     ,'新代表'     ,''     ,''     ,'銀行'     ,'支店'"
    "     ,'0001'     ,''     ,'ﾒｲｷﾞ'     ,''     ,'2024/5/1'     ,'社名2'     ,'ｼﾝｼｬ'     ,''     ,'087-5'     ,'760-0001'"
    "     ,2     ,1     ,0     ,1     ,2     ,5     ,-34     ,134     ,'PC1'     ,GetDate()     ,'0001'     ,'001'"
    "     ,'J1'     ,'J2'     ,'R'     ,'M'     ,'760'     ,'K'     ,'P'     ,37     ,'T'     ,'a@example.jp' ) ";

} // namespace

TEST_CASE_FIXTURE(PracticeSession, "all columns of a branch's companies are read, ordered by number")
{
    CHECK(session.rows(kList + " where" + kCorpBranch + kCorpOrder,
                       {"nIDNo", "cShamei1", "iType", "tUpDateTime", "nLat"}) ==
          Texts{"0|本社|0|<2024-04-01 10:20:30>|NULL", "2|代理人|1|NULL|NULL", "9|団体|3|NULL|NULL"});
    CHECK(session.open(kList + " where" + kCorpBranch + kCorpOrder)->fieldCount() == 40);
}

TEST_CASE_FIXTURE(PracticeSession, "a company is found by its number, including 0, and by its kind")
{
    const Texts name{"cShamei1"};
    CHECK(session.rows(kList + " where    nIDNo = 0 and" + kCorpBranch + kCorpOrder, name) == Texts{"本社"});
    CHECK(session.rows(kList + " where    nIDNo = 9 and" + kCorpBranch + " and     iType = 3" + kCorpOrder, name) ==
          Texts{"団体"});
    CHECK(session.rows(kList + " where    nIDNo = 9 and" + kCorpBranch + " and     iType = 0" + kCorpOrder, name)
              .empty());
}

TEST_CASE_FIXTURE(PracticeSession, "the preload at startup reads only the branch's head office")
{
    CHECK(session.rows(kList + " where" + kCorpBranch + " and     iType = 0" + kCorpOrder,
                       {"cShamei1", "cKinyuName"}) == Texts{"本社|百十四"});
    CHECK(session.rows(kList + " where iKyotenCd = 1 and iKyotenEb = 3 and     iType = 0" + kCorpOrder, {"cShamei1"})
              .empty());
}

TEST_CASE_FIXTURE(PracticeSession, "the duplicate check lists the companies with other numbers")
{
    CHECK(session.rows(kList + " where    nIDNo <> 2 and" + kCorpBranch + kCorpOrder, {"nIDNo"}) == Texts{"0", "9"});
    CHECK(session.rows(kList + " where    nIDNo <> 2 and" + kCorpBranch + " and     iType = 3" + kCorpOrder,
                       {"nIDNo"}) == Texts{"9"});
}

TEST_CASE_FIXTURE(PracticeSession, "the company grid filters by number and by parts of the name and kana")
{
    CHECK(session.rows(kCorpGrid + kCorpOrder, {"nIDNo", "cShamei1"}) == Texts{"0|本社", "2|代理人", "9|団体"});
    CHECK(session.rows(kGridJouken + " and     CORP.nIDNo = 2" + kCorpOrder, {"cShamei1"}) == Texts{"代理人"});
    CHECK(session.rows(kGridJouken + " and     CORP.cShamei1 LIKE '%理%'" + kCorpOrder, {"nIDNo"}) == Texts{"2"});
    file.run("UPDATE CORP SET cShameiKana1 = 'ダイリニン' WHERE nIDNo = 2 AND iKyotenEb = 1");
    CHECK(session.rows(kGridJouken + " and     CORP.cShameiKana1 LIKE '%ﾀﾞｲﾘ%'" + kCorpOrder, {"nIDNo"}) == Texts{"2"});
    CHECK(session.rows(kGridJouken + " and     CORP.cShameiKana1 LIKE '%たいり%'" + kCorpOrder, {"nIDNo"}).empty());
}

TEST_CASE_FIXTURE(PracticeSession, "the highest company number of a branch is NULL where the branch has none")
{
    const std::string sql = "  select      max(CORP.nIDNo) as nIDNo  FROM      CORP where";
    CHECK(session.rows(sql + kCorpBranch, {"nIDNo"}) == Texts{"9"});
    CHECK(session.rows(sql + " iKyotenCd = 7 and iKyotenEb = 7", {"nIDNo"}) == Texts{"NULL"});
}

TEST_CASE_FIXTURE(PracticeSession, "a company is inserted with a quoted branch, unquoted numbers and the present time")
{
    CHECK(session.execute(kCorpInsert) == 1);
    CHECK(session.rows(kList + " where    nIDNo = 5 and" + kCorpBranch + kCorpOrder,
                       {"cAddress1", "cAddress2", "cShamei1", "iKinSiten", "nLat", "cPcName", "cEmail"}) ==
          Texts{"新住所||2024/5/1|2|-34|PC1|a@example.jp"});
    CHECK(file.value("SELECT typeof(iKyotenCd) || (abs(julianday('now', 'localtime') - julianday(tUpDateTime)) < 0.01)"
                     " FROM CORP WHERE nIDNo = 5") == "integer1");
    const Raised again = raisedBy([&] { session.execute(kCorpInsert); });
    CHECK(again.number == ado_error::constraint);
}

TEST_CASE_FIXTURE(PracticeSession, "a company is updated and deleted by number and branch")
{
    const std::string update =
        " update      CORP set       cAddress1 = '高松市20'     ,cAddress2 = ''     ,cAddressKana = ''     ,cDaihyo = '代理''人'"
        "     ,cShamei1 = '新代理人'     ,iKinSiten =  5     ,iKinSyubetsu =  1     ,iKozaKubun =  0     ,iKozaType =  1"
        "     ,iType =  2     ,nIDNo =  2     ,nLat =  0     ,nLon =  0     ,cPcName = 'PC1'"
        "     ,tUpDateTime = GetDate()     ,cEmail = '' where    nIDNo = 2 and iKyotenCd = 1 and iKyotenEb = 1";
    CHECK(session.execute(update) == 1);
    CHECK(file.value("SELECT cShamei1 || cDaihyo || iKinSiten FROM CORP WHERE nIDNo = 2") == "新代理人代理'人5");
    CHECK(file.value("SELECT count(*) FROM CORP WHERE cShamei1 = '新代理人'") == "1");
    const std::string remove = " delete from      CORP where    nIDNo = 0    and iKyotenCd = 1    and iKyotenEb = 1";
    CHECK(session.execute(remove) == 1);
    CHECK(session.execute(remove) == 0);
    CHECK(file.value("SELECT group_concat(cShamei1) FROM CORP WHERE nIDNo = 0") == "別の本社");
}

TEST_CASE_FIXTURE(PracticeSession, "a company name with a quote makes the write fail without any change")
{
    const std::string update = " update      CORP set       cShamei1 = 'O'Brien' where    nIDNo = 2";
    CHECK(raisedBy([&] { session.execute(update); }).number == ado_error::faultyStatement);
    CHECK(file.value("SELECT cShamei1 FROM CORP WHERE nIDNo = 2") == "代理人");
}
