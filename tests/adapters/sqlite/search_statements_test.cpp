#include "adapters/sqlite/database_file.h"
#include "adapters/sqlite/practice_database.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

using namespace inin;

namespace {

using Texts = std::vector<std::string>;

/// The patient search of branch 1/1 with its conditions.
std::string patients(const std::string &conditions)
{
    return "SELECT   iKyotenCd, iKyotenEb,  nIDNo, cName, cNameKana, cNameRyaku,  cTelNo, cAdress1, cAdress2  FROM RIYOUSHA "
           " WHERE nIDNo >= 0  AND iKyotenCd = 1 AND iKyotenEb = 1" +
           conditions + " ORDER BY nIDNo ";
}

/// The staff search with its inner filter and, optionally, the consultation.
std::string staff(const std::string &filter, const std::string &consultation = {})
{
    std::string sql =
        " select      * from      (         select              nIDNo             ,iKyotenCd             ,iKyotenEb"
        "             ,cName             ,cNameRyaku              ,cNameKana          from              STAFF" +
        filter + "      )staff";
    if (!consultation.empty())
        sql +=
            "      left join      (         select              nIDNo as SoudanID             ,iStaffKyotenCd"
            "             ,iStaffKyotenEb              ,nStaffIDNo          from              SOUDAN_TANTOU         where"
            "              iStaffKyotenCd = 1         and  iStaffKyotenEb = 1      )soudan      on"
            "          staff.nIDNo = soudan.nStaffIDNo      and staff.iKyotenCd = soudan.iStaffKyotenCd"
            "      and staff.iKyotenEb = soudan.iStaffKyotenEb where      soudan.SoudanID = " +
            consultation;
    return sql + " order by     nIDNo    ,cName ";
}

} // namespace

TEST_CASE_FIXTURE(PracticeSession, "the patient search lists the branch's patients, ordered by number")
{
    CHECK(session.rows(patients(""), {"nIDNo", "cName"}) ==
          Texts{"1|山田太郎", "2|鈴木花子", "3|佐藤次郎", "5|田中三郎", "6|やまた四郎"});
    CHECK(session.rows(patients(" AND nIDNo=5"), {"iKyotenCd", "iKyotenEb", "nIDNo", "cNameKana", "cTelNo", "cAdress1",
                                                  "cAdress2", "cNameRyaku"}) == Texts{"1|1|5|ﾀﾅｶ ｻﾌﾞﾛｳ||||"});
}

TEST_CASE_FIXTURE(PracticeSession, "the patient search ignores kana type and width of a name, but not 濁点")
{
    struct Row {
        const char *kana;
        Texts numbers;
    };
    const Row rows[] = {{"ﾔﾏﾀﾞ", {"1"}},     {"やまだ", {"1"}},     {"ヤマダ", {"1"}}, {"ヤマタ", {"6"}},
                        {"やまた", {"6"}},   {"スズキ", {"2"}},     {"じろう", {"3"}}, {"しろう", {}},
                        {"さぶろう", {"5"}}, {"ﾀ", {"1", "5", "6"}}};
    for (const Row &row : rows) {
        CAPTURE(row.kana);
        CHECK(session.rows(patients(" AND cNameKana LIKE '%" + std::string(row.kana) + "%'"), {"nIDNo"}) ==
              row.numbers);
    }
}

TEST_CASE_FIXTURE(PracticeSession, "the patient search hides treatments ended by day or by limit month")
{
    const auto hidden = [](const std::string &today, const std::string &month) {
        return " AND (tExpireDay IS NULL  OR tExpireDay >= '" + today + "' OR ('" + month +
               "' <= SUBSTRING(CONVERT(VARCHAR, tExpireDay, 111),1,7)))";
    };
    CHECK(session.rows(patients(hidden("2024/05/20", "9999/12")), {"nIDNo"}) == Texts{"1", "3", "5", "6"});
    CHECK(session.rows(patients(hidden("2024/05/21", "9999/12")), {"nIDNo"}) == Texts{"1", "3", "5"});
    CHECK(session.rows(patients(hidden("2024/06/10", "2024/05")), {"nIDNo"}) == Texts{"1", "3", "5", "6"});
    CHECK(session.rows(patients(hidden("2024/06/10", "2024/03")), {"nIDNo"}) == Texts{"1", "2", "3", "5", "6"});
}

TEST_CASE_FIXTURE(PracticeSession, "the patient search filters by staff, treatment kind and telephone")
{
    CHECK(session.rows(patients(" AND (nTantou=5  OR nTantou2=5  OR nTantou3=5  OR nTantou4=5  OR nTantou5=5) "),
                       {"nIDNo"}) == Texts{"1", "2", "3", "5"});
    CHECK(session.rows(patients(" AND iSejutsuKubun=1"), {"nIDNo"}) == Texts{"2"});
    CHECK(session.rows(patients(" AND cTelNo LIKE '%１１１%'"), {"nIDNo"}) == Texts{"1"});
    CHECK(session.rows(patients(" AND cName LIKE '%田%'"), {"nIDNo"}) == Texts{"1", "5"});
}

TEST_CASE_FIXTURE(PracticeSession, "a single quote in the searched name makes the statement faulty")
{
    CHECK(raisedBy([&] { (void)session.open(patients(" AND cName LIKE '%O'Brien%'")); }).number ==
          ado_error::faultyStatement);
}

TEST_CASE_FIXTURE(PracticeSession, "the staff list of the search is ordered by number")
{
    CHECK(session.rows(
              "SELECT nIDNo, cName, cNameRyaku  FROM STAFF  WHERE nIDNo >= 0  AND iKyotenCd = 1 AND iKyotenEb = 1"
              " ORDER BY nIDNo ",
              {"nIDNo", "cName", "cNameRyaku"}) == Texts{"3|施術三子|三子", "4|施術四郎|NULL", "5|中止五郎|NULL"});
}

TEST_CASE_FIXTURE(PracticeSession, "the staff search filters in its sub-select")
{
    const Texts fields{"nIDNo", "cName", "cNameKana"};
    const std::string base = " iKyotenCd = 1 and iKyotenEb = 1";
    CHECK(session.rows(staff(" where" + base), {"nIDNo"}) == Texts{"3", "4", "5"});
    CHECK(session.rows(staff(" where (iChusiFlg = 0 OR iChusiFlg IS NULL) and" + base), {"nIDNo"}) == Texts{"3", "4"});
    CHECK(session.rows(staff(" where cName LIKE '%四郎%' and cNameKana LIKE '%セジュツ%' and nIDNo = 4 and" + base),
                       fields) == Texts{"4|施術四郎|ｾｼﾞｭﾂ ｼﾛｳ"});
}

TEST_CASE_FIXTURE(PracticeSession, "the staff search for a consultation lists only the staff in charge of it")
{
    const std::string base = " where iKyotenCd = 1 and iKyotenEb = 1";
    CHECK(session.rows(staff(base, "8"), {"nIDNo", "cName"}) == Texts{"4|施術四郎"});
    CHECK(session.rows(staff(base, "9"), {"nIDNo"}).empty());
}

TEST_CASE_FIXTURE(PracticeSession, "the check of a staff number reads the name and the stop flag")
{
    CHECK(session.rows("SELECT cName, iChusiFlg FROM STAFF  WHERE nIDNo = 5 AND iKyotenCd = 1 AND iKyotenEb = 1",
                       {"cName", "iChusiFlg"}) == Texts{"中止五郎|1"});
    CHECK(session.rows("SELECT cName, iChusiFlg FROM STAFF  WHERE nIDNo = 4 AND iKyotenCd = 1 AND iKyotenEb = 1",
                       {"cName", "iChusiFlg"}) == Texts{"施術四郎|NULL"});
}

TEST_CASE_FIXTURE(PracticeSession, "all columns of a patient are read by the three keys")
{
    const auto row = session.open("SELECT * FROM RIYOUSHA WHERE nIDNo = 1 and iKyotenCd = 1 and iKyotenEb = 1");
    REQUIRE_FALSE(row->isEndOfFile());
    CHECK(shown(row->Field("cName")) == "山田太郎");
    CHECK(shown(row->Field("tBirthday")) == "<1936-02-29 00:00:00>");
    CHECK(shown(row->Field("tHatsubyou")) == " 2023/1/1");
    CHECK(session.value("SELECT * FROM RIYOUSHA WHERE nIDNo = 1 and iKyotenCd = 2 and iKyotenEb = 1") == "-");
}
