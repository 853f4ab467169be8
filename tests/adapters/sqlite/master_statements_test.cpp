#include "adapters/sqlite/practice_database.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

using namespace inin;

namespace {

using Texts = std::vector<std::string>;

const std::string kHoken = "  select      HOKEN.cName as cName     ,HOKEN.cRyaku as cRyaku     ,HOKEN.cType as cType"
                           "     ,HOKEN.iType as iType  FROM      HOKEN  order by      iType";

const std::string kForms =
    "  select      SHINSEISYO.iKyotenCd as iKyotenCd     ,SHINSEISYO.iKyotenEb as iKyotenEb     ,SHINSEISYO.nIDNo as nIDNo"
    "     ,SHINSEISYO.cFileName as cFileName     ,SHINSEISYO.cDispName as cDispName"
    "     ,SHINSEISYO.iSejutsuKubun as iSejutsuKubun     ,SHINSEISYO.iHokenType as iHokenType"
    "     ,SHINSEISYO.iDelFlg as iDelFlg     ,SHINSEISYO.iSinseiTP as iSinseiTP     ,SHINSEISYO.iSoufushoTP as iSoufushoTP"
    "     ,SHINSEISYO.iDuplexFlg as iDuplexFlg     ,SHINSEISYO.iStateNo as iStateNo"
    "     ,SHINSEISYO.iRiyouHokenKbn as iRiyouHokenKbn     ,SHINSEISYO.tUpDateTime as tUpDateTime"
    "     ,SHINSEISYO.iPrintType as iPrintType     ,SHINSEISYO.iKubun as iKubun"
    "     ,SHINSEISYO.iKanagawaStaffPrint as iKanagawaStaffPrint"
    "     ,SHINSEISYO.iJoseiFutanKiriage as iJoseiFutanKiriage     ,SHINSEISYO.iTekiyouStaff as iTekiyouStaff"
    "  FROM      SHINSEISYO where";
const std::string kFormOrder = "  order by      nIDNo";

/// A query of the fees or charges of a month in six digits.
std::string monthly(const std::string &table, const std::string &month, const std::string &order)
{
    return "SELECT * FROM " + table +
           " WHERE SUBSTRING(CONVERT(VARCHAR, cStartDate, 112),1,4)+SUBSTRING(CONVERT(VARCHAR, cStartDate, 112),6,2) <=   '" +
           month +
           "' AND SUBSTRING(CONVERT(VARCHAR, cEndDate, 112),1,4)+SUBSTRING(CONVERT(VARCHAR, cEndDate, 112),6,2) >=   '" +
           month + "' ORDER BY " + order;
}

} // namespace

TEST_CASE_FIXTURE(PracticeSession, "the insurance kinds of all branches are ordered by number, NULL first")
{
    file.run("INSERT INTO HOKEN (iKyotenCd, iKyotenEb, cType, iType) VALUES (9, 9, '他', 3)");
    CHECK(session.rows(kHoken, {"cType", "iType", "cName", "cRyaku"}) ==
          Texts{"NULL|NULL|NULL|NULL", "社保|1|協会けんぽ|協", "国保|2|国民健康保険|国", "他|3|NULL|NULL"});
}

TEST_CASE_FIXTURE(PracticeSession, "an insurance kind is inserted, updated by its number and deleted")
{
    CHECK(session.execute(
              " insert into    HOKEN (      iKyotenCd     ,iKyotenEb     ,cName     ,cRyaku     ,cType     ,iType"
              " )values( 1,1,'労災保険','労','労災',7 ) ") == 1);
    CHECK(session.execute(
              " update      HOKEN set       cName = '労災'     ,cRyaku = '災'     ,cType = 'ﾛｳｻｲ'     ,iType =  7"
              " where    iType = 7 and iKyotenCd = 1 and iKyotenEb = 1") == 1);
    CHECK(session.rows(kHoken, {"cType"}) == Texts{"NULL", "社保", "国保", "ﾛｳｻｲ"});
    CHECK(session.execute(" delete from      HOKEN where    iType = 7 and iKyotenCd = 1 and iKyotenEb = 2") == 0);
    CHECK(session.execute(" delete from      HOKEN where    iType = 7 and iKyotenCd = 1 and iKyotenEb = 1") == 1);
    CHECK(session.rows(kHoken, {"cType"}) == Texts{"NULL", "社保", "国保"});
}

TEST_CASE_FIXTURE(PracticeSession, "a claim form belongs to a branch unless its print type is system-wide")
{
    const Texts fields{"nIDNo", "cFileName"};
    CHECK(session.rows(kForms + " iPrintType = 1" + kFormOrder, fields) == Texts{"1|a.wfd", "2|b.wfd"});
    CHECK(session.rows(kForms + " iPrintType = 1 and    (iDelFlg = 0 OR iDelFlg IS NULL) and    iStateNo = 37" +
                           kFormOrder,
                       fields) == Texts{"1|a.wfd"});
    CHECK(session.rows(kForms + " iPrintType = 2 and iKyotenCd = 1 and iKyotenEb = 1" + kFormOrder, fields) ==
          Texts{"1|c.wfd"});
    CHECK(session.rows(kForms + " iPrintType = 2 and iKyotenCd = 1 and iKyotenEb = 2" + kFormOrder, fields).empty());
}

TEST_CASE_FIXTURE(PracticeSession, "one claim form is read by number, branch and print type")
{
    const Texts fields{"cFileName", "iTekiyouStaff"};
    CHECK(session.rows(kForms + "    nIDNo = 2 and iPrintType = 1" + kFormOrder, fields) == Texts{"b.wfd|NULL"});
    CHECK(session.rows(kForms + "    nIDNo = 1 and iKyotenCd = 1 and iKyotenEb = 1 and iPrintType = 2" + kFormOrder,
                       fields) == Texts{"c.wfd|NULL"});
    CHECK(session.rows(kForms + "    nIDNo = 0 and iPrintType = 1" + kFormOrder, fields).empty());
}

TEST_CASE_FIXTURE(PracticeSession,
                  "the highest claim form number is that of the print type, and of the branch if there is one")
{
    const std::string sql = "  select      max(SHINSEISYO.nIDNo) as nIDNo  FROM      SHINSEISYO where";
    CHECK(session.rows(sql + " iPrintType = 1", {"nIDNo"}) == Texts{"2"});
    CHECK(session.rows(sql + " iKyotenCd = 1 and iKyotenEb = 1 and iPrintType = 2", {"nIDNo"}) == Texts{"1"});
    CHECK(session.rows(sql + " iKyotenCd = 1 and iKyotenEb = 1 and iPrintType = 5", {"nIDNo"}) == Texts{"NULL"});
}

TEST_CASE_FIXTURE(PracticeSession, "a claim form is inserted, updated and deleted")
{
    CHECK(
        session.execute(
            " insert into    SHINSEISYO (      iKyotenCd     ,iKyotenEb     ,nIDNo     ,cFileName     ,cDispName"
            "     ,iSejutsuKubun     ,iHokenType     ,iDelFlg     ,iSinseiTP     ,iSoufushoTP     ,iDuplexFlg"
            "     ,iStateNo     ,iRiyouHokenKbn     ,tUpDateTime     ,iPrintType     ,iKubun     ,iKanagawaStaffPrint"
            "     ,iJoseiFutanKiriage     ,iTekiyouStaff )values(       '0'     ,'0'     ,3     ,'d.wfd'     ,'申請書'"
            "     ,0     ,0     ,0     ,0     ,0     ,0     ,37     ,0     ,GetDate()     ,1     ,0     ,0     ,0     ,0 ) ") ==
        1);
    CHECK(session.execute(
              " update      SHINSEISYO set       cFileName = 'e.wfd'     ,cDispName = '申請書'     ,iSejutsuKubun =  0"
              "     ,iHokenType =  0     ,iDelFlg =  1     ,iSinseiTP =  0     ,iSoufushoTP =  0     ,iDuplexFlg =  0"
              "     ,iStateNo =  37     ,iRiyouHokenKbn =  0     ,tUpDateTime = GetDate()     ,iKubun =  0"
              "     ,iKanagawaStaffPrint =  0     ,iJoseiFutanKiriage =  0     ,iTekiyouStaff =  4 where    nIDNo = 3"
              " and iPrintType = 1") == 1);
    CHECK(session.rows(kForms + "    nIDNo = 3 and iPrintType = 1" + kFormOrder,
                       {"cFileName", "iDelFlg", "iTekiyouStaff"}) == Texts{"e.wfd|1|4"});
    CHECK(session.execute(" delete from      SHINSEISYO where    nIDNo = 1    and iKyotenCd = 1    and iKyotenEb = 1"
                          "    and iPrintType = 2") == 1);
    CHECK(session.execute(" delete from      SHINSEISYO where    nIDNo = 3    and iPrintType = 1") == 1);
    CHECK(file.value("SELECT group_concat(cFileName) FROM SHINSEISYO") == "a.wfd,b.wfd");
}

TEST_CASE_FIXTURE(PracticeSession,
                  "the fees of a month are those whose period contains it, ordered by start, class and code")
{
    const auto fees = [&](const std::string &month) {
        return session.rows(monthly("療養費単価", month, "cStartDate, iTankaKbn, nTankaCode"),
                            {"cStartDate", "iTankaKbn", "nTankaCode", "nTanka"});
    };
    CHECK(fees("201904") == Texts{"2018/10/01|1|1|338", "2018/10/01|1|2|340"});
    CHECK(fees("201810") == Texts{"2018/10/01|1|1|338", "2018/10/01|1|2|340"});
    CHECK(fees("201909") == Texts{"2018/10/01|1|1|338", "2018/10/01|1|2|340"});
    CHECK(fees("201910") == Texts{"2019/10/01|1|1|350"});
    CHECK(fees("202405") == Texts{"2019/10/01|1|1|350"});
    CHECK(fees("202406").empty());
    file.run("INSERT INTO 療養費単価 VALUES ('2018/01/01', '2024/12/31', 9, 1, 450.5)");
    CHECK(fees("201904") == Texts{"2018/01/01|9|1|450.5", "2018/10/01|1|1|338", "2018/10/01|1|2|340"});
}

TEST_CASE_FIXTURE(PracticeSession, "the bands of a month's visit charge are ordered by limit")
{
    CHECK(session.rows(monthly("往療費区分", "201904", "nMaxLen"), {"nKingakuOuryou", "nMaxLen"}) ==
          Texts{"2300|2000", "2700|4000"});
    CHECK(session.rows(monthly("往療費区分", "201910", "nMaxLen"), {"nMaxLen"}).empty());
}

TEST_CASE_FIXTURE(PracticeSession, "a map is written as bytes, found by its three keys and overwritten")
{
    const std::string load = "  select *  from RIYOUSHA_MAP  where  nIDNo=0  and iKyotenCd=1  and iKyotenEb=1";
    CHECK(session.rows(load, {"nIDNo"}).empty());
    CHECK(session.execute("  INSERT INTO  RIYOUSHA_MAP (  iKyotenCd,  iKyotenEb,  nIDNo,  bAddr1,  bAddr2,  bAddr3,"
                          "  dTimeStamp ) VALUES (       1     , 1     , 0     , 0x474946003AFF     , 0x00     , 0x00"
                          "     , getdate())") == 1);
    CHECK(session.rows(load, {"bAddr1", "bAddr2", "bAddr3"}) == Texts{"0x474946003AFF|0x00|0x00"});
    CHECK(
        session.execute("  UPDATE  RIYOUSHA_MAP  set       bAddr1 = 0x01      ,bAddr2 = 0x      ,dTimeStamp = getdate()"
                        "  WHERE nIDNo =0  and iKyotenCd =1  and iKyotenEb =1") == 1);
    CHECK(session.rows(load, {"bAddr1", "bAddr2"}) == Texts{"0x01|0x"});
    CHECK(file.value("SELECT typeof(bAddr1) FROM RIYOUSHA_MAP") == "blob");
}

TEST_CASE_FIXTURE(PracticeSession, "an update of a map without a picture begins its SET list with a comma and fails")
{
    CHECK(raisedBy([&] {
              session.execute(
                  "  UPDATE  RIYOUSHA_MAP  set       ,dTimeStamp = getdate()  WHERE nIDNo =0  and iKyotenCd =1"
                  "  and iKyotenEb =1");
          }).number == ado_error::faultyStatement);
}
