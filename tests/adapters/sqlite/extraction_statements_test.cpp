#include "adapters/sqlite/database_file.h"
#include "adapters/sqlite/practice_database.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

using namespace inin;
using namespace inin::sqlite;

namespace {

using Texts = std::vector<std::string>;

// The parts of the five extractions' statements for branch 1/1 and May 2024 or its 31st day, in the program's order.
const std::string kHeadOfficeName = " CORP.cShamei1 as CorpName, CORP.cAddress1 as CorpAdd, CORP.cDaihyo, "
                                    " CORP.cTelNo, CORP.cKinyuName, CORP.cKinyuSiten, ";
const std::string kHeadOfficeKinds = " CORP.iKinSyubetsu, CORP.iKinSiten ";
const std::string kAgent =
    " (CASE WHEN RIYOUSHA_SUB.iDantaiUmu = 1 THEN DANTAICORP.cShamei1 ELSE CORP.cShamei1 END) as CorpName,  "
    " (CASE WHEN RIYOUSHA_SUB.iDantaiUmu = 1 THEN DANTAICORP.cAddress1 ELSE CORP.cAddress1 END) as CorpAdd, "
    " (CASE WHEN RIYOUSHA_SUB.iDantaiUmu = 1 THEN DANTAICORP.cDaihyo ELSE CORP.cDaihyo END) as cDaihyo, "
    " (CASE WHEN RIYOUSHA_SUB.iDantaiUmu = 1 THEN DANTAICORP.cTelNo ELSE CORP.cTelNo END) as cTelNo, "
    " (CASE WHEN RIYOUSHA_SUB.iDantaiUmu = 1 THEN DANTAICORP.cKinyuName ELSE CORP.cKinyuName END) as cKinyuName, "
    " (CASE WHEN RIYOUSHA_SUB.iDantaiUmu = 1 THEN DANTAICORP.cKinyuSiten ELSE CORP.cKinyuSiten END) as cKinyuSiten, "
    " (CASE WHEN RIYOUSHA_SUB.iDantaiUmu = 1 THEN DANTAICORP.iKozaType ELSE CORP.iKozaType END) as iKozaType, "
    " (CASE WHEN RIYOUSHA_SUB.iDantaiUmu = 1 THEN DANTAICORP.cKozaBangou ELSE CORP.cKozaBangou END) as cKozaBangou, "
    " (CASE WHEN RIYOUSHA_SUB.iDantaiUmu = 1 THEN DANTAICORP.cKozaMeigi1 ELSE CORP.cKozaMeigi1 END) as cKozaMeigi1,  "
    " (CASE WHEN RIYOUSHA_SUB.iDantaiUmu = 1 THEN DANTAICORP.iKinSyubetsu ELSE CORP.iKinSyubetsu END) as iKinSyubetsu,  "
    " (CASE WHEN RIYOUSHA_SUB.iDantaiUmu = 1 THEN DANTAICORP.iKinSiten ELSE CORP.iKinSiten END) as iKinSiten  ";
const std::string kInsurerAndHousehold =
    " ,HOKENJA.cSubAddress, HOKENJA.iType AS HOKENSHUBETSU "
    " ,RIYOUSHA.cSetaiName, RIYOUSHA.cSetaiTelNo AS RiyouSetaiTel, RIYOUSHA.cSetaiAdress1";
const std::string kSubAndGroup = " LEFT JOIN RIYOUSHA_SUB ON "
                                 "          RIYOUSHA_SUB.nIDNo = RIYOUSHA.nIDNo "
                                 "      AND RIYOUSHA_SUB.iKyotenCd = 1"
                                 "      AND RIYOUSHA_SUB.iKyotenEb = 1"
                                 " LEFT JOIN CORP AS DANTAICORP ON "
                                 "          DANTAICORP.iKyotenCd = 1"
                                 "      AND DANTAICORP.iKyotenEb = 1"
                                 "      AND DANTAICORP.iType = 3 ";
const std::string kPatientJoin = " WHERE "
                                 "     RIYOUSHA.iKyotenCd = 1 AND RIYOUSHA.iKyotenEb = 1"
                                 " AND HOKENJA.cIDno = RIYOUSHA.cHokenNo ";

/// The differences between the five extractions.
struct Extraction {
    std::string head, account, from, visit, order;

    [[nodiscard]] std::string headOffice() const
    {
        return head + kHeadOfficeName + account + kHeadOfficeKinds + kInsurerAndHousehold + from +
               " LEFT JOIN CORP ON       CORP.iKyotenCd = 1      AND CORP.iKyotenEb = 1 AND CORP.iType = 0 " +
               kSubAndGroup + kPatientJoin + visit + order;
    }
    [[nodiscard]] std::string agent() const
    {
        return head + kAgent + kInsurerAndHousehold + from +
               " LEFT JOIN CORP ON       CORP.iKyotenCd = 1      AND CORP.iKyotenEb = 1"
               " AND CORP.nIDNo = RIYOUSHA.nDairiID " +
               kSubAndGroup + kPatientJoin + visit + order;
    }
};

const Extraction kMonth{
    "SELECT HOKENJA.cName as HokenName, RIYOUSHA.cName AS RiyouName, RIYOUSHA.cAdress1 as RiyouAdd,  s1.nDate, ",
    " CORP.iKozaType, CORP.cKozaBangou, CORP.cKozaMeigi1, s1.nDate, ", " FROM HOKENJA, SCHEDULE s1, RIYOUSHA ",
    " AND s1.iKyotenCd = 1 AND s1.iKyotenEb = 1 AND s1.nIDRiyoushaNo = RIYOUSHA.nIDNo "
    " AND s1.nDate = (select max(nDate) from SCHEDULE s2 where s1.nIDRiyoushaNo = s2.nIDRiyoushaNo "
    " AND s2.iKyotenCd = 1 AND s2.iKyotenEb = 1 AND s2.nDate BETWEEN 20240501 AND 20240599)",
    " ORDER BY RIYOUSHA.nTantou"};
const Extraction kMonthVisits{
    "SELECT HOKENJA.cName as HokenName,RIYOUSHA.nIDNo, RIYOUSHA.cName AS RiyouName, RIYOUSHA.cAdress1 as RiyouAdd, "
    " j1.tServicyDayStart, ",
    " CORP.iKozaType, CORP.cKozaBangou, CORP.cKozaMeigi1, j1.tServicyDayStart, ",
    " FROM  HOKENJA, JISSEKI j1, RIYOUSHA ",
    " AND j1.iKyotenCd = 1 AND j1.iKyotenEb = 1 AND j1.nRiyoushaIDNo = RIYOUSHA.nIDNo "
    " AND j1.tServicyDayStart = (select max(tServicyDayStart) from JISSEKI j2 where j1.nRiyoushaIDNo = j2.nRiyoushaIDNo "
    " AND j2.iKyotenCd = 1 AND j2.iKyotenEb = 1 AND j2.tServicyDayStart >=  '2024/05/01' "
    " AND j2.tServicyDayStart <  '2024/06/01') ",
    " ORDER BY RIYOUSHA.nTantou"};
const std::string kPlainHead =
    "SELECT HOKENJA.cName as HokenName, RIYOUSHA.cName AS RiyouName, RIYOUSHA.cAdress1 as RiyouAdd, RIYOUSHA.nIDNo, ";
const std::string kPlainAccount = " CORP.iKozaType, CORP.cKozaBangou, CORP.cKozaMeigi1, ";
const Extraction kDay{kPlainHead, kPlainAccount, " FROM HOKENJA, SCHEDULE, RIYOUSHA ",
                      " AND SCHEDULE.iKyotenCd = 1 AND SCHEDULE.iKyotenEb = 1"
                      " AND SCHEDULE.nIDRiyoushaNo = RIYOUSHA.nIDNo  AND SCHEDULE.nDate = 20240531",
                      " ORDER BY SCHEDULE.nIDStaffNo"};
const Extraction kDayVisits{
    kPlainHead, kPlainAccount, " FROM HOKENJA, JISSEKI, RIYOUSHA ",
    " AND JISSEKI.iKyotenCd = 1 AND JISSEKI.iKyotenEb = 1"
    " AND JISSEKI.nRiyoushaIDNo = RIYOUSHA.nIDNo "
    " AND JISSEKI.tServicyDayStart >= '2024/05/31'  AND JISSEKI.tServicyDayStart < '2024/06/01' ",
    " ORDER BY JISSEKI.nStaffIDNo"};
const Extraction kNoPeriod{kPlainHead, kPlainAccount, " FROM HOKENJA, RIYOUSHA ", " AND RIYOUSHA.tExpireDay IS NULL  ",
                           " ORDER BY RIYOUSHA.nTantou"};
const Extraction kNoPeriodOne{"SELECT TOP 1 HOKENJA.cName as HokenName, RIYOUSHA.cName AS RiyouName,"
                              " RIYOUSHA.cAdress1 as RiyouAdd, RIYOUSHA.nIDNo, ",
                              kPlainAccount, kNoPeriod.from, kNoPeriod.visit, kNoPeriod.order};

/// A statement with one more condition before its ORDER BY.
std::string with(const std::string &sql, const std::string &condition)
{
    std::string text = sql;
    return text.insert(text.find(" ORDER BY"), condition);
}

} // namespace

TEST_CASE_FIXTURE(PracticeSession,
                  "the month's planned visits list each patient once with the last visit, ordered by staff")
{
    CHECK(session.rows(kMonth.headOffice(), {"RiyouName", "HokenName", "nDate", "CorpName", "cKozaBangou"}) ==
          Texts{"鈴木花子|高松市|20240531|本社|1234567", "やまた四郎|全国協会|20240531|本社|1234567",
                "山田太郎|高松市|20240520|本社|1234567"});
}

TEST_CASE_FIXTURE(PracticeSession, "a letter names the agent's company, or the group company for group billing")
{
    CHECK(session.rows(kMonth.agent(),
                       {"RiyouName", "CorpName", "CorpAdd", "cDaihyo", "cTelNo", "cKinyuName", "cKinyuSiten",
                        "iKozaType", "cKozaBangou", "cKozaMeigi1", "iKinSyubetsu", "iKinSiten"}) ==
          Texts{"鈴木花子|団体|高松市9|団長|087-9|郵便|高松|1|9999999|ダンタイ|4|5",
                "やまた四郎|代理人|高松市2|代理|087-2|中国|高松|2|7654321|ダイリ|2|2",
                "山田太郎|代理人|高松市2|代理|087-2|中国|高松|2|7654321|ダイリ|2|2"});
}

TEST_CASE_FIXTURE(PracticeSession, "the month's extraction filters by patient, staff, insurance and end of treatment")
{
    const Texts name{"RiyouName"};
    CHECK(session.rows(with(kMonth.headOffice(), " AND RIYOUSHA.tExpireday is NULL"), name) == Texts{"山田太郎"});
    CHECK(session.rows(with(kMonth.headOffice(), " AND RIYOUSHA.nIDNo = 2"), name) == Texts{"鈴木花子"});
    CHECK(session.rows(with(kMonth.headOffice(), " AND RIYOUSHA.nTantou = 5"), name) == Texts{"山田太郎"});
    CHECK(session.rows(with(kMonth.headOffice(), " AND RIYOUSHA.iHoken = 2"), name) == Texts{"やまた四郎"});
}

TEST_CASE_FIXTURE(PracticeSession, "the month's actual visits list a row for each visit at the latest time")
{
    // Two visits at the same time are two rows. The month includes its first day and its last second.
    const Texts expected{"鈴木花子|2|<2024-05-01 00:00:00>", "やまた四郎|6|<2024-05-31 00:00:00>",
                         "やまた四郎|6|<2024-05-31 00:00:00>", "山田太郎|1|<2024-05-31 23:59:59>"};
    CHECK(session.rows(kMonthVisits.headOffice(), {"RiyouName", "nIDNo", "tServicyDayStart"}) == expected);
    CHECK(session.rows(kMonthVisits.agent(), {"RiyouName", "nIDNo", "tServicyDayStart"}) == expected);
    CHECK(session.rows(kMonthVisits.agent(), {"CorpName"}) == Texts{"団体", "代理人", "代理人", "代理人"});
}

TEST_CASE_FIXTURE(PracticeSession, "the day's planned visits are ordered by the visiting staff member")
{
    CHECK(session.rows(kDay.headOffice(), {"nIDNo", "RiyouName", "CorpName"}) ==
          Texts{"6|やまた四郎|本社", "2|鈴木花子|本社"});
    CHECK(session.rows(kDay.agent(), {"nIDNo", "RiyouName", "CorpName"}) ==
          Texts{"6|やまた四郎|代理人", "2|鈴木花子|団体"});
    CHECK(session.rows(with(kDay.headOffice(), " AND SCHEDULE.nIDStaffNo = 5"), {"nIDNo"}) == Texts{"2"});
}

TEST_CASE_FIXTURE(PracticeSession, "the day's actual visits are those from midnight until before the next midnight")
{
    CHECK(session.rows(kDayVisits.headOffice(), {"nIDNo", "CorpName"}) == Texts{"6|本社", "6|本社", "1|本社"});
    CHECK(session.rows(kDayVisits.agent(), {"nIDNo", "CorpName"}) == Texts{"6|代理人", "6|代理人", "1|代理人"});
    CHECK(session.rows(with(kDayVisits.headOffice(), " AND JISSEKI.nStaffIDNo = 7"), {"nIDNo"}) == Texts{"1"});
}

TEST_CASE_FIXTURE(PracticeSession, "without a period all patients under treatment are listed, visited or not")
{
    CHECK(session.rows(kNoPeriod.headOffice(), {"nIDNo", "CorpName"}) == Texts{"5|本社", "1|本社"});
    CHECK(session.rows(kNoPeriod.agent(), {"nIDNo", "CorpName"}) == Texts{"5|NULL", "1|代理人"});
}

TEST_CASE_FIXTURE(PracticeSession, "TOP 1 without a period returns the single letter of the lowest staff number")
{
    CHECK(session.rows(kNoPeriodOne.headOffice(), {"nIDNo"}) == Texts{"5"});
    CHECK(session.rows(kNoPeriodOne.agent(), {"nIDNo"}) == Texts{"5"});
}

TEST_CASE_FIXTURE(PracticeSession, "a second group company doubles every patient's row")
{
    file.run("INSERT INTO CORP (iKyotenCd, iKyotenEb, nIDNo, iType) VALUES (1, 1, 10, 3)");
    CHECK(session.rows(kNoPeriod.agent(), {"nIDNo"}) == Texts{"5", "5", "1", "1"});
}

TEST_CASE_FIXTURE(PracticeSession, "a group-billed patient without a group company has no company at all")
{
    file.run("DELETE FROM CORP WHERE iType = 3");
    CHECK(session.rows(with(kMonth.agent(), " AND RIYOUSHA.nIDNo = 2"), {"CorpName", "iKozaType"}) ==
          Texts{"NULL|NULL"});
}

TEST_CASE_FIXTURE(PracticeSession, "a visit column that appears twice in the month's select list can be read by name")
{
    const auto rows = session.open(kMonth.headOffice());
    CHECK(rows->fieldCount() == 21);
    CHECK(rows->fieldIndex("nDate") == 3);
    CHECK(shown(rows->Field("ndate")) == "20240531");
}

TEST_CASE_FIXTURE(PracticeSession, "the last visit of a patient's month is the first row")
{
    CHECK(session.value("SELECT nDate FROM SCHEDULE  WHERE      iKyotenCd = 1 AND iKyotenEb = 1 AND nIDRiyoushaNo = 1"
                        " AND nDate BETWEEN 20240500 AND 20240599 ORDER BY nDate DESC") == "20240520");
    CHECK(session.rows("SELECT * FROM SCHEDULE  WHERE      iKyotenCd = 1 AND iKyotenEb = 1 AND nIDRiyoushaNo = 6"
                       " AND nDate BETWEEN 20240500 AND 20240599 ORDER BY nDate DESC",
                       {"nDate"}) == Texts{"20240531", "20240500"});
    CHECK(session.rows("SELECT * FROM JISSEKI  WHERE      iKyotenCd = 1 AND iKyotenEb = 1 AND nRiyoushaIDNo = 1"
                       " AND tServicyDayStart >= '2024/05/01'  AND tServicyDayStart < '2024/06/01'  ORDER BY "
                       "tServicyDayStart DESC",
                       {"tServicyDayStart"}) == Texts{"<2024-05-31 23:59:59>", "<2024-05-10 09:00:00>"});
}
