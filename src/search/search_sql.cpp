#include "search/search_sql.h"

#include "master/table_statements.h"
#include "runtime/conversion.h"

#include <initializer_list>
#include <string_view>

namespace inin {

namespace {

constexpr std::string_view kStaffOfConsultation = "      left join"
                                                  "      ("
                                                  "         select"
                                                  "              nIDNo as SoudanID"
                                                  "             ,iStaffKyotenCd"
                                                  "             ,iStaffKyotenEb "
                                                  "             ,nStaffIDNo "
                                                  "         from"
                                                  "              SOUDAN_TANTOU"
                                                  "         where";
constexpr std::string_view kJoinOfConsultation = "      )soudan"
                                                 "      on"
                                                 "          staff.nIDNo = soudan.nStaffIDNo"
                                                 "      and staff.iKyotenCd = soudan.iStaffKyotenCd"
                                                 "      and staff.iKyotenEb = soudan.iStaffKyotenEb"
                                                 " where"
                                                 "      soudan.SoudanID = ";

std::string code(const App &app)
{
    return std::to_string(app.iKyotenCd);
}

std::string branch(const App &app)
{
    return std::to_string(app.iKyotenEb);
}

std::string ownBranch(const App &app)
{
    return " AND iKyotenCd = " + code(app) + " AND iKyotenEb = " + branch(app);
}

std::string holds(std::string_view column, const std::string &text)
{
    return std::string(column) + " LIKE '%" + text + "%'";
}

/// The month of the end is compared as text, so that the whole limit month is included.
std::string stillTreated(App &app, const std::string &limitMonth)
{
    const std::string today = dateText(app.platform.clock.today(), app.regional);
    return " AND (tExpireDay IS NULL  OR tExpireDay >= '" + today + "'" + " OR ('" + limitMonth +
           "' <= SUBSTRING(CONVERT(VARCHAR, tExpireDay, 111),1,7)))";
}

/// A patient may have five staff members in charge.
std::string inChargeOf(std::int32_t staffNumber)
{
    const std::string n = std::to_string(staffNumber);
    return " AND (nTantou=" + n + " " + " OR nTantou2=" + n + " " + " OR nTantou3=" + n + " " + " OR nTantou4=" + n +
           " " + " OR nTantou5=" + n + ") ";
}

/// Always has at least one term, the own branch.
std::string staffConditions(const App &app, const SearchFilter &filter)
{
    Condition inner;
    if (!filter.name.empty()) inner.add(holds(" cName", filter.name));
    if (!filter.kana.empty()) inner.add(holds(" cNameKana", filter.kana));
    if (filter.includeEnded == 0) inner.add(" (iChusiFlg = 0 OR iChusiFlg IS NULL)");
    if (filter.number > 0) inner.add(" nIDNo = " + std::to_string(filter.number));
    inner.add(branchTerm(branchOf(app)));
    return inner.text();
}

/// The condition after the left join keeps only staff of the consultation.
std::string ofConsultation(const App &app, std::int32_t nSelEigyouCd)
{
    return std::string(kStaffOfConsultation) + "              iStaffKyotenCd = " + code(app) +
           "         and  iStaffKyotenEb = " + branch(app) + std::string(kJoinOfConsultation) +
           std::to_string(nSelEigyouCd);
}

} // namespace

std::string patientSearchSql(App &app, const SearchFilter &filter, const std::string &limitMonth)
{
    std::string sql = "SELECT   iKyotenCd, iKyotenEb, "
                      " nIDNo, cName, cNameKana, cNameRyaku, "
                      " cTelNo, cAdress1, cAdress2 "
                      " FROM RIYOUSHA "
                      " WHERE nIDNo >= 0 " +
                      ownBranch(app);
    if (!filter.name.empty()) sql += holds(" AND cName", filter.name);
    if (!filter.kana.empty()) sql += holds(" AND cNameKana", filter.kana);
    if (!filter.telephone.empty()) sql += holds(" AND cTelNo", filter.telephone);
    if (filter.includeEnded == 0) sql += stillTreated(app, limitMonth);
    if (filter.staffNumber > 0) sql += inChargeOf(filter.staffNumber);
    if (filter.kind == kMassage || filter.kind == kAcupuncture)
        sql += " AND iSejutsuKubun=" + std::to_string(filter.kind);
    if (filter.number > 0) sql += " AND nIDNo=" + std::to_string(filter.number);
    return sql + " ORDER BY nIDNo ";
}

std::string staffSearchSql(const App &app, const SearchFilter &filter, std::int32_t nSelEigyouCd)
{
    std::string sql = " select"
                      "      *"
                      " from"
                      "      ("
                      "         select"
                      "              nIDNo"
                      "             ,iKyotenCd"
                      "             ,iKyotenEb"
                      "             ,cName"
                      "             ,cNameRyaku "
                      "             ,cNameKana "
                      "         from"
                      "              STAFF" +
                      staffConditions(app, filter) + "      )staff";
    if (nSelEigyouCd != kAnyConsultation) sql += ofConsultation(app, nSelEigyouCd);
    return sql + " order by"
                 "     nIDNo"
                 "    ,cName ";
}

std::string staffListSql(const App &app)
{
    return "SELECT nIDNo, cName, cNameRyaku "
           " FROM STAFF "
           " WHERE nIDNo >= 0 " +
           ownBranch(app) + " ORDER BY nIDNo ";
}

std::string staffCheckSql(const App &app, std::int32_t nIDNo)
{
    return "SELECT cName, iChusiFlg FROM STAFF  WHERE nIDNo = " + std::to_string(nIDNo) + ownBranch(app);
}

} // namespace inin
