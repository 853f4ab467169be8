#include "printing/print_fixture.h"

#include <doctest/doctest.h>

// The complete statements as sent to the database. The branch of the fixture is 1 with sub-code 2.

namespace inin {

namespace {

constexpr const char *kAgentColumns =
    " (CASE WHEN RIYOUSHA_SUB.iDantaiUmu = 1 THEN DANTAICORP.cShamei1 ELSE CORP.cShamei1 END) as CorpName,  "
    " (CASE WHEN RIYOUSHA_SUB.iDantaiUmu = 1 THEN DANTAICORP.cAddress1 ELSE CORP.cAddress1 END) as CorpAdd, "
    " (CASE WHEN RIYOUSHA_SUB.iDantaiUmu = 1 THEN DANTAICORP.cDaihyo ELSE CORP.cDaihyo END) as cDaihyo, "
    " (CASE WHEN RIYOUSHA_SUB.iDantaiUmu = 1 THEN DANTAICORP.cTelNo ELSE CORP.cTelNo END) as cTelNo, "
    " (CASE WHEN RIYOUSHA_SUB.iDantaiUmu = 1 THEN DANTAICORP.cKinyuName ELSE CORP.cKinyuName END) as cKinyuName, "
    " (CASE WHEN RIYOUSHA_SUB.iDantaiUmu = 1 THEN DANTAICORP.cKinyuSiten ELSE CORP.cKinyuSiten END) as cKinyuSiten, "
    " (CASE WHEN RIYOUSHA_SUB.iDantaiUmu = 1 THEN DANTAICORP.iKozaType ELSE CORP.iKozaType END) as iKozaType, "
    " (CASE WHEN RIYOUSHA_SUB.iDantaiUmu = 1 THEN DANTAICORP.cKozaBangou ELSE CORP.cKozaBangou END) as cKozaBangou, "
    " (CASE WHEN RIYOUSHA_SUB.iDantaiUmu = 1 THEN DANTAICORP.cKozaMeigi1 ELSE CORP.cKozaMeigi1 END) as cKozaMeigi1,  "
    " (CASE WHEN RIYOUSHA_SUB.iDantaiUmu = 1 THEN DANTAICORP.iKinSyubetsu ELSE CORP.iKinSyubetsu END) as "
    "iKinSyubetsu,  "
    " (CASE WHEN RIYOUSHA_SUB.iDantaiUmu = 1 THEN DANTAICORP.iKinSiten ELSE CORP.iKinSiten END) as iKinSiten  ";

/// A statement with agent data: its own head, from clause and end around the part common to all five.
std::string agentStatement(const std::string &head, const std::string &from, const std::string &end)
{
    return head + kAgentColumns +
           " ,HOKENJA.cSubAddress, HOKENJA.iType AS HOKENSHUBETSU "
           " ,RIYOUSHA.cSetaiName, RIYOUSHA.cSetaiTelNo AS RiyouSetaiTel, RIYOUSHA.cSetaiAdress1" +
           from +
           " LEFT JOIN CORP ON       CORP.iKyotenCd = 1      AND CORP.iKyotenEb = 2"
           " AND CORP.nIDNo = RIYOUSHA.nDairiID "
           " LEFT JOIN RIYOUSHA_SUB ON           RIYOUSHA_SUB.nIDNo = RIYOUSHA.nIDNo "
           "      AND RIYOUSHA_SUB.iKyotenCd = 1      AND RIYOUSHA_SUB.iKyotenEb = 2"
           " LEFT JOIN CORP AS DANTAICORP ON           DANTAICORP.iKyotenCd = 1"
           "      AND DANTAICORP.iKyotenEb = 2      AND DANTAICORP.iType = 3 "
           " WHERE      RIYOUSHA.iKyotenCd = 1 AND RIYOUSHA.iKyotenEb = 2"
           " AND HOKENJA.cIDno = RIYOUSHA.cHokenNo " +
           end;
}

} // namespace

TEST_CASE_FIXTURE(PrintFixture, "planned data of a month with head-office data sends this statement")
{
    REQUIRE(form.iGetKanjaDataMonth() == 0);

    CHECK(firstSql() ==
          "SELECT HOKENJA.cName as HokenName, RIYOUSHA.cName AS RiyouName, RIYOUSHA.cAdress1 as RiyouAdd,  s1.nDate, "
          " CORP.cShamei1 as CorpName, CORP.cAddress1 as CorpAdd, CORP.cDaihyo, "
          " CORP.cTelNo, CORP.cKinyuName, CORP.cKinyuSiten, "
          " CORP.iKozaType, CORP.cKozaBangou, CORP.cKozaMeigi1, s1.nDate, "
          " CORP.iKinSyubetsu, CORP.iKinSiten "
          " ,HOKENJA.cSubAddress, HOKENJA.iType AS HOKENSHUBETSU "
          " ,RIYOUSHA.cSetaiName, RIYOUSHA.cSetaiTelNo AS RiyouSetaiTel, RIYOUSHA.cSetaiAdress1"
          " FROM HOKENJA, SCHEDULE s1, RIYOUSHA "
          " LEFT JOIN CORP ON       CORP.iKyotenCd = 1      AND CORP.iKyotenEb = 2 AND CORP.iType = 0 "
          " LEFT JOIN RIYOUSHA_SUB ON           RIYOUSHA_SUB.nIDNo = RIYOUSHA.nIDNo "
          "      AND RIYOUSHA_SUB.iKyotenCd = 1      AND RIYOUSHA_SUB.iKyotenEb = 2"
          " LEFT JOIN CORP AS DANTAICORP ON           DANTAICORP.iKyotenCd = 1"
          "      AND DANTAICORP.iKyotenEb = 2      AND DANTAICORP.iType = 3 "
          " WHERE      RIYOUSHA.iKyotenCd = 1 AND RIYOUSHA.iKyotenEb = 2 AND HOKENJA.cIDno = RIYOUSHA.cHokenNo "
          " AND s1.iKyotenCd = 1 AND s1.iKyotenEb = 2 AND s1.nIDRiyoushaNo = RIYOUSHA.nIDNo "
          " AND s1.nDate = (select max(nDate) from SCHEDULE s2 where s1.nIDRiyoushaNo = s2.nIDRiyoushaNo "
          " AND s2.iKyotenCd = 1 AND s2.iKyotenEb = 2 AND s2.nDate BETWEEN 20240501 AND 20240599)"
          " AND RIYOUSHA.tExpireday is NULL"
          " ORDER BY RIYOUSHA.nTantou");
}

TEST_CASE_FIXTURE(PrintFixture, "actual data of a month with head-office data sends this statement")
{
    REQUIRE(form.iGetKanjaDataMonth_Jisseki() == 0);

    CHECK(firstSql() ==
          "SELECT HOKENJA.cName as HokenName,RIYOUSHA.nIDNo, RIYOUSHA.cName AS RiyouName, RIYOUSHA.cAdress1 as "
          "RiyouAdd,  j1.tServicyDayStart, "
          " CORP.cShamei1 as CorpName, CORP.cAddress1 as CorpAdd, CORP.cDaihyo, "
          " CORP.cTelNo, CORP.cKinyuName, CORP.cKinyuSiten, "
          " CORP.iKozaType, CORP.cKozaBangou, CORP.cKozaMeigi1, j1.tServicyDayStart, "
          " CORP.iKinSyubetsu, CORP.iKinSiten "
          " ,HOKENJA.cSubAddress, HOKENJA.iType AS HOKENSHUBETSU "
          " ,RIYOUSHA.cSetaiName, RIYOUSHA.cSetaiTelNo AS RiyouSetaiTel, RIYOUSHA.cSetaiAdress1"
          " FROM  HOKENJA, JISSEKI j1, RIYOUSHA "
          " LEFT JOIN CORP ON       CORP.iKyotenCd = 1      AND CORP.iKyotenEb = 2 AND CORP.iType = 0 "
          " LEFT JOIN RIYOUSHA_SUB ON           RIYOUSHA_SUB.nIDNo = RIYOUSHA.nIDNo "
          "      AND RIYOUSHA_SUB.iKyotenCd = 1      AND RIYOUSHA_SUB.iKyotenEb = 2"
          " LEFT JOIN CORP AS DANTAICORP ON           DANTAICORP.iKyotenCd = 1"
          "      AND DANTAICORP.iKyotenEb = 2      AND DANTAICORP.iType = 3 "
          " WHERE      RIYOUSHA.iKyotenCd = 1 AND RIYOUSHA.iKyotenEb = 2 AND HOKENJA.cIDno = RIYOUSHA.cHokenNo "
          " AND j1.iKyotenCd = 1 AND j1.iKyotenEb = 2 AND j1.nRiyoushaIDNo = RIYOUSHA.nIDNo "
          " AND j1.tServicyDayStart = (select max(tServicyDayStart) from JISSEKI j2 where j1.nRiyoushaIDNo = "
          "j2.nRiyoushaIDNo "
          " AND j2.iKyotenCd = 1 AND j2.iKyotenEb = 2"
          " AND j2.tServicyDayStart >=  '2024/05/01'  AND j2.tServicyDayStart <  '2024/06/01') "
          " ORDER BY RIYOUSHA.nTantou");
}

TEST_CASE_FIXTURE(PrintFixture, "planned data of a day with head-office data sends this statement")
{
    form.csTargetDate = "2024/05/28";
    REQUIRE(form.iGetKanjaDataDay() == 0);

    CHECK(firstSql() ==
          "SELECT HOKENJA.cName as HokenName, RIYOUSHA.cName AS RiyouName, RIYOUSHA.cAdress1 as RiyouAdd, "
          "RIYOUSHA.nIDNo, "
          " CORP.cShamei1 as CorpName, CORP.cAddress1 as CorpAdd, CORP.cDaihyo, "
          " CORP.cTelNo, CORP.cKinyuName, CORP.cKinyuSiten, "
          " CORP.iKozaType, CORP.cKozaBangou, CORP.cKozaMeigi1, "
          " CORP.iKinSyubetsu, CORP.iKinSiten "
          " ,HOKENJA.cSubAddress, HOKENJA.iType AS HOKENSHUBETSU "
          " ,RIYOUSHA.cSetaiName, RIYOUSHA.cSetaiTelNo AS RiyouSetaiTel, RIYOUSHA.cSetaiAdress1"
          " FROM HOKENJA, SCHEDULE, RIYOUSHA "
          " LEFT JOIN CORP ON       CORP.iKyotenCd = 1      AND CORP.iKyotenEb = 2 AND CORP.iType = 0 "
          " LEFT JOIN RIYOUSHA_SUB ON           RIYOUSHA_SUB.nIDNo = RIYOUSHA.nIDNo "
          "      AND RIYOUSHA_SUB.iKyotenCd = 1      AND RIYOUSHA_SUB.iKyotenEb = 2"
          " LEFT JOIN CORP AS DANTAICORP ON           DANTAICORP.iKyotenCd = 1"
          "      AND DANTAICORP.iKyotenEb = 2      AND DANTAICORP.iType = 3 "
          " WHERE      RIYOUSHA.iKyotenCd = 1 AND RIYOUSHA.iKyotenEb = 2 AND HOKENJA.cIDno = RIYOUSHA.cHokenNo "
          " AND SCHEDULE.iKyotenCd = 1 AND SCHEDULE.iKyotenEb = 2 AND SCHEDULE.nIDRiyoushaNo = RIYOUSHA.nIDNo "
          " AND SCHEDULE.nDate = 20240528"
          " ORDER BY SCHEDULE.nIDStaffNo");
}

TEST_CASE_FIXTURE(PrintFixture, "actual data of a day with head-office data sends this statement")
{
    form.csTargetDate = "2024/05/28";
    REQUIRE(form.iGetKanjaDataDay_Jisseki() == 0);

    CHECK(firstSql() ==
          "SELECT HOKENJA.cName as HokenName, RIYOUSHA.cName AS RiyouName, RIYOUSHA.cAdress1 as RiyouAdd, "
          "RIYOUSHA.nIDNo, "
          " CORP.cShamei1 as CorpName, CORP.cAddress1 as CorpAdd, CORP.cDaihyo, "
          " CORP.cTelNo, CORP.cKinyuName, CORP.cKinyuSiten, "
          " CORP.iKozaType, CORP.cKozaBangou, CORP.cKozaMeigi1, "
          " CORP.iKinSyubetsu, CORP.iKinSiten "
          " ,HOKENJA.cSubAddress, HOKENJA.iType AS HOKENSHUBETSU "
          " ,RIYOUSHA.cSetaiName, RIYOUSHA.cSetaiTelNo AS RiyouSetaiTel, RIYOUSHA.cSetaiAdress1"
          " FROM HOKENJA, JISSEKI, RIYOUSHA "
          " LEFT JOIN CORP ON       CORP.iKyotenCd = 1      AND CORP.iKyotenEb = 2 AND CORP.iType = 0 "
          " LEFT JOIN RIYOUSHA_SUB ON           RIYOUSHA_SUB.nIDNo = RIYOUSHA.nIDNo "
          "      AND RIYOUSHA_SUB.iKyotenCd = 1      AND RIYOUSHA_SUB.iKyotenEb = 2"
          " LEFT JOIN CORP AS DANTAICORP ON           DANTAICORP.iKyotenCd = 1"
          "      AND DANTAICORP.iKyotenEb = 2      AND DANTAICORP.iType = 3 "
          " WHERE      RIYOUSHA.iKyotenCd = 1 AND RIYOUSHA.iKyotenEb = 2 AND HOKENJA.cIDno = RIYOUSHA.cHokenNo "
          " AND JISSEKI.iKyotenCd = 1 AND JISSEKI.iKyotenEb = 2 AND JISSEKI.nRiyoushaIDNo = RIYOUSHA.nIDNo "
          " AND JISSEKI.tServicyDayStart >= '2024/05/28'  AND JISSEKI.tServicyDayStart < '2024/05/29' "
          " ORDER BY JISSEKI.nStaffIDNo");
}

TEST_CASE_FIXTURE(PrintFixture, "no period with head-office data sends this statement")
{
    REQUIRE(form.iGetKanjaDataNoPeriod() == 0);

    CHECK(firstSql() ==
          "SELECT HOKENJA.cName as HokenName, RIYOUSHA.cName AS RiyouName, RIYOUSHA.cAdress1 as RiyouAdd, "
          "RIYOUSHA.nIDNo, "
          " CORP.cShamei1 as CorpName, CORP.cAddress1 as CorpAdd, CORP.cDaihyo, "
          " CORP.cTelNo, CORP.cKinyuName, CORP.cKinyuSiten, "
          " CORP.iKozaType, CORP.cKozaBangou, CORP.cKozaMeigi1, "
          " CORP.iKinSyubetsu, CORP.iKinSiten "
          " ,HOKENJA.cSubAddress, HOKENJA.iType AS HOKENSHUBETSU "
          " ,RIYOUSHA.cSetaiName, RIYOUSHA.cSetaiTelNo AS RiyouSetaiTel, RIYOUSHA.cSetaiAdress1"
          " FROM HOKENJA, RIYOUSHA "
          " LEFT JOIN CORP ON       CORP.iKyotenCd = 1      AND CORP.iKyotenEb = 2 AND CORP.iType = 0 "
          " LEFT JOIN RIYOUSHA_SUB ON           RIYOUSHA_SUB.nIDNo = RIYOUSHA.nIDNo "
          "      AND RIYOUSHA_SUB.iKyotenCd = 1      AND RIYOUSHA_SUB.iKyotenEb = 2"
          " LEFT JOIN CORP AS DANTAICORP ON           DANTAICORP.iKyotenCd = 1"
          "      AND DANTAICORP.iKyotenEb = 2      AND DANTAICORP.iType = 3 "
          " WHERE      RIYOUSHA.iKyotenCd = 1 AND RIYOUSHA.iKyotenEb = 2 AND HOKENJA.cIDno = RIYOUSHA.cHokenNo "
          " AND RIYOUSHA.tExpireDay IS NULL  "
          " ORDER BY RIYOUSHA.nTantou");
}

TEST_CASE_FIXTURE(PrintFixture, "planned data of a month with agent data sends this statement")
{
    form.iTrustKind = 2;
    REQUIRE(form.iGetKanjaDataMonth() == 0);

    CHECK(
        firstSql() ==
        agentStatement("SELECT HOKENJA.cName as HokenName, RIYOUSHA.cName AS RiyouName, RIYOUSHA.cAdress1 as RiyouAdd, "
                       " s1.nDate, ",
                       " FROM HOKENJA, SCHEDULE s1, RIYOUSHA ",
                       " AND s1.iKyotenCd = 1 AND s1.iKyotenEb = 2 AND s1.nIDRiyoushaNo = RIYOUSHA.nIDNo "
                       " AND s1.nDate = (select max(nDate) from SCHEDULE s2 where s1.nIDRiyoushaNo = s2.nIDRiyoushaNo "
                       " AND s2.iKyotenCd = 1 AND s2.iKyotenEb = 2 AND s2.nDate BETWEEN 20240501 AND 20240599)"
                       " AND RIYOUSHA.tExpireday is NULL"
                       " ORDER BY RIYOUSHA.nTantou"));
}

TEST_CASE_FIXTURE(PrintFixture, "actual data of a month with agent data sends this statement")
{
    form.iTrustKind = 2;
    REQUIRE(form.iGetKanjaDataMonth_Jisseki() == 0);

    CHECK(firstSql() ==
          agentStatement(
              "SELECT HOKENJA.cName as HokenName,RIYOUSHA.nIDNo, RIYOUSHA.cName AS RiyouName, RIYOUSHA.cAdress1 as "
              "RiyouAdd,  j1.tServicyDayStart, ",
              " FROM  HOKENJA, JISSEKI j1, RIYOUSHA ",
              " AND j1.iKyotenCd = 1 AND j1.iKyotenEb = 2 AND j1.nRiyoushaIDNo = RIYOUSHA.nIDNo "
              " AND j1.tServicyDayStart = (select max(tServicyDayStart) from JISSEKI j2 where j1.nRiyoushaIDNo = "
              "j2.nRiyoushaIDNo "
              " AND j2.iKyotenCd = 1 AND j2.iKyotenEb = 2"
              " AND j2.tServicyDayStart >=  '2024/05/01'  AND j2.tServicyDayStart <  '2024/06/01') "
              " ORDER BY RIYOUSHA.nTantou"));
}

TEST_CASE_FIXTURE(PrintFixture, "planned data of a day with agent data sends this statement")
{
    form.iTrustKind = 2;
    form.csTargetDate = "2024/05/28";
    REQUIRE(form.iGetKanjaDataDay() == 0);

    CHECK(firstSql() ==
          agentStatement(
              "SELECT HOKENJA.cName as HokenName, RIYOUSHA.cName AS RiyouName, RIYOUSHA.cAdress1 as RiyouAdd, "
              "RIYOUSHA.nIDNo, ",
              " FROM HOKENJA, SCHEDULE, RIYOUSHA ",
              " AND SCHEDULE.iKyotenCd = 1 AND SCHEDULE.iKyotenEb = 2 AND SCHEDULE.nIDRiyoushaNo = RIYOUSHA.nIDNo "
              " AND SCHEDULE.nDate = 20240528"
              " ORDER BY SCHEDULE.nIDStaffNo"));
}

TEST_CASE_FIXTURE(PrintFixture, "actual data of a day with agent data sends this statement")
{
    form.iTrustKind = 2;
    form.csTargetDate = "2024/05/28";
    REQUIRE(form.iGetKanjaDataDay_Jisseki() == 0);

    CHECK(firstSql() ==
          agentStatement(
              "SELECT HOKENJA.cName as HokenName, RIYOUSHA.cName AS RiyouName, RIYOUSHA.cAdress1 as RiyouAdd, "
              "RIYOUSHA.nIDNo, ",
              " FROM HOKENJA, JISSEKI, RIYOUSHA ",
              " AND JISSEKI.iKyotenCd = 1 AND JISSEKI.iKyotenEb = 2 AND JISSEKI.nRiyoushaIDNo = RIYOUSHA.nIDNo "
              " AND JISSEKI.tServicyDayStart >= '2024/05/28'  AND JISSEKI.tServicyDayStart < '2024/05/29' "
              " ORDER BY JISSEKI.nStaffIDNo"));
}

TEST_CASE_FIXTURE(PrintFixture, "no period with agent data sends this statement")
{
    form.iTrustKind = 2;
    REQUIRE(form.iGetKanjaDataNoPeriod() == 0);

    CHECK(
        firstSql() ==
        agentStatement("SELECT HOKENJA.cName as HokenName, RIYOUSHA.cName AS RiyouName, RIYOUSHA.cAdress1 as RiyouAdd, "
                       "RIYOUSHA.nIDNo, ",
                       " FROM HOKENJA, RIYOUSHA ", " AND RIYOUSHA.tExpireDay IS NULL   ORDER BY RIYOUSHA.nTantou"));
}

} // namespace inin
