#include "master/staff_table.h"

#include "runtime/conversion.h"
#include "runtime/format.h"
#include "runtime/text.h"

#include <algorithm>
#include <span>
#include <stdexcept>
#include <string_view>

namespace inin {

namespace {

using enum WrittenAs;
using enum ValueFrom;

constexpr TableShape kStaff{"STAFF"};

enum class StaffRead { grid, read, allBranches };

/// The columns of STAFF in the order of a write, and the joined name of the branch.
constexpr TableColumn<cD_STAFF> kStaffColumns[] = {
    {"iKyotenCd", &cD_STAFF::iKyotenId, number, siteCode, OnUpdate::kept},
    {"iKyotenEb", &cD_STAFF::iKyotenEb, number, siteSubCode, OnUpdate::kept},
    {"cAdress1", &cD_STAFF::cAdress1, quoted},
    {"cAdress2", &cD_STAFF::cAdress2, quoted},
    {"cFaxNo", &cD_STAFF::cFaxNo, quoted},
    {"cKaiNo", &cD_STAFF::cKaiNo, quoted},
    {"cKaiNo2", &cD_STAFF::cKaiNo2, quoted},
    {"cKaiNo3", &cD_STAFF::cKaiNo3, quoted},
    {"cMobNo", &cD_STAFF::cMobNo, quoted},
    {"cName", &cD_STAFF::cName, quoted},
    {"cNameKana", &cD_STAFF::cNameKana, quoted},
    {"cNameRyaku", &cD_STAFF::cNameRyaku, quoted},
    {"cRken", &cD_STAFF::cRken, quoted},
    {"cRno", &cD_STAFF::cRno, quoted},
    {"cTelNo", &cD_STAFF::cTelNo, quoted},
    {"cYubinNo", &cD_STAFF::cYubinNo, quoted},
    {"iChusiFlg", ThroughInteger<cD_STAFF>{&cD_STAFF::iChusiFlg}, number},
    {"iSexKubun", &cD_STAFF::iSexKubun, number},
    {"iShikakuKubun", &cD_STAFF::iShikakuKubun, number},
    {"iSyokushuKubun", &cD_STAFF::iSyokushuKubun, number},
    {"iYaku", &cD_STAFF::iYaku, number},
    {"nIDNo", &cD_STAFF::nIDNo, number},
    {"cEmail", &cD_STAFF::cEmail, quoted},
    {"iTecAbi", &cD_STAFF::iTecAbi, number},
    {"iSpeechAbi", &cD_STAFF::iSpeechAbi, number},
    {"cPhysical", &cD_STAFF::cPhysical, quoted},
    {"iClaimRate", &cD_STAFF::iClaimRate, number},
    {"cSikaku", &cD_STAFF::cSikaku, quoted},
    {"cTourokuNo", &cD_STAFF::cTourokuNo, quoted},
    {"cSmileCd", &cD_STAFF::cSmileCd, quoted},
    {"tBirthday", &cD_STAFF::sBirthday, nullIfEmpty},
    {"tKousinDay", &cD_STAFF::sKousinDay, nullIfEmpty},
    {"tNyusyaDay", &cD_STAFF::sNyusyaDay, nullIfEmpty},
    {"tKisanDay", &cD_STAFF::sKisanDay, nullIfEmpty},
    {"tRday", &cD_STAFF::sRday, nullIfEmpty},
    {"tTourokuDay", &cD_STAFF::sTourokuDay, nullIfEmpty},
    {"cPcName", &cD_STAFF::cPcName, quoted, computerName},
    {"tUpDateTime", &cD_STAFF::tUpDateTime, serverTime},
    {"cTourokuNo2", &cD_STAFF::cTourokuNo2, quoted},
    {"iVehicleType", &cD_STAFF::iVehicleType, number},
    {"cVehicleNumber", &cD_STAFF::cVehicleNumber, nullIfEmptyOnInsert},
    {"cVehicleComment", &cD_STAFF::cVehicleComment, nullIfEmptyOnInsert},
    {"cEmployeeNumber", &cD_STAFF::cEmployeeNumber, nullIfEmptyOnInsert},
    {"iLookAllRiyousya", &cD_STAFF::iLookAllRiyousya, number},
    {"iWebLicense", &cD_STAFF::iWebLicense, number},
    {"iLookCharge", &cD_STAFF::iLookCharge, number},
    {"iStaffHokenTouroku", &cD_STAFF::iStaffHokenTouroku, number},
    {"cShikaiNo", &cD_STAFF::cShikaiNo, quoted},
    {"cShikaiNo_Josei", &cD_STAFF::cShikaiNo_Josei, quoted},
    {"iContractType", &cD_STAFF::iContractType, number},
    {"nLat", &cD_STAFF::nLat, number},
    {"nLon", &cD_STAFF::nLon, number},
    {"cIninTourokuNo", &cD_STAFF::cIninTourokuNo, quoted},
    {"iIninTourokuChk", &cD_STAFF::iIninTourokuChk, number},
    {"iKanriSekininFlg", &cD_STAFF::iKanriSekininFlg, number},
    {"cKyotenName", &cD_STAFF::cKyotenName, never},
};

struct SelectedName {
    const char *name;
    SelectForm form;
};

using enum SelectForm;

/// The select list of the grids. Duplicate names are part of the text and harmless: a read finds columns by name.
constexpr SelectedName kGridNames[] = {
    {"cAdress1", aliased},
    {"cAdress2", aliased},
    {"cFaxNo", aliased},
    {"cKaiNo", aliased},
    {"cMobNo", aliased},
    {"cName", aliased},
    {"cNameKana", aliased},
    {"cTelNo", aliased},
    {"cYubinNo", aliased},
    {"iChusiFlg", aliased},
    {"nIDNo", aliased},
    {"cTourokuNo", qualified},
    {"cSmileCd", qualified},
    {"cNameKana", qualified},
    {"tBirthday", qualified},
    {"iSexKubun", qualified},
    {"tNyusyaDay", qualified},
    {"tNyusyaDay", qualified},
    {"tKisanDay", qualified},
    {"cTourokuNo", qualified},
    {"cTourokuNo2", qualified},
    {"cEmail", qualified},
    {"iTecAbi", qualified},
    {"iSpeechAbi", qualified},
    {"cPhysical", qualified},
    {"iClaimRate", qualified},
    {"cSikaku", qualified},
    {"iVehicleType", qualified},
    {"cVehicleNumber", qualified},
    {"cVehicleComment", qualified},
    {"cEmployeeNumber", qualified},
    {"iLookAllRiyousya", qualified},
    {"iWebLicense", qualified},
    {"iLookCharge", qualified},
    {"cKaiNo2", qualified},
    {"cKaiNo3", qualified},
    {"iStaffHokenTouroku", qualified},
    {"cShikaiNo", qualified},
    {"cShikaiNo_Josei", qualified},
    {"iContractType", qualified},
    {"nLat", qualified},
    {"nLon", qualified},
    {"cIninTourokuNo", qualified},
    {"iIninTourokuChk", qualified},
    {"iKanriSekininFlg", qualified},
};

/// The columns that the single read adds to the list of the grids.
constexpr SelectedName kReadNames[] = {
    {"cKaiNo2", qualified},     {"cKaiNo3", qualified},       {"cNameRyaku", qualified},     {"cRken", qualified},
    {"cRno", qualified},        {"iShikakuKubun", qualified}, {"iSyokushuKubun", qualified}, {"iYaku", qualified},
    {"tKousinDay", qualified},  {"tRday", qualified},         {"tTourokuDay", qualified},    {"cPcName", qualified},
    {"tUpDateTime", qualified},
};

/// The columns that the grid of all branches adds to the list of the grids.
constexpr SelectedName kAllBranchesNames[] = {{"iKyotenCd", qualified}, {"iKyotenEb", qualified}};
/// The columns that it selects without reading them.
constexpr std::string_view kUnreadInAllBranches[] = {"cKaiNo2", "cKaiNo3", "cTourokuNo2"};
constexpr const char *kBranchName = "cKyotenName";

const TableColumn<cD_STAFF> &columnOf(std::string_view name)
{
    const auto *found = std::ranges::find(kStaffColumns, name, &TableColumn<cD_STAFF>::name);
    if (found == std::end(kStaffColumns)) throw std::logic_error("no such column of STAFF");
    return *found;
}

bool isRead(std::string_view name, StaffRead read)
{
    return read != StaffRead::allBranches ||
           std::ranges::find(kUnreadInAllBranches, name) == std::end(kUnreadInAllBranches);
}

void add(SelectList<cD_STAFF> &list, std::span<const SelectedName> names, StaffRead read)
{
    for (const SelectedName &selected : names) {
        if (isRead(selected.name, read))
            list.add(columnOf(selected.name), selected.form);
        else
            list.addUnread(selected.name, selected.form);
    }
}

/// The select list of a read.
SelectList<cD_STAFF> selectList(StaffRead read)
{
    SelectList<cD_STAFF> list(kStaff.name);
    add(list, kGridNames, read);
    if (read == StaffRead::read) add(list, kReadNames, read);
    if (read == StaffRead::allBranches) {
        add(list, kAllBranchesNames, read);
        list.addJoined(columnOf(kBranchName), "KYOTEN");
    }
    return list;
}

/// The conditions of a grid read except the branch; `table` prefixes each column.
Condition gridCondition(const cD_STAFF &row, const std::string &table)
{
    Condition condition;
    if (row.iChusiFlg == 0) condition.add("     (" + table + "iChusiFlg = 0 OR " + table + "iChusiFlg IS NULL)");
    if (row.nIDNo > 0) condition.add("     " + table + "nIDNo = " + std::to_string(row.nIDNo));
    if (!row.cName.empty()) condition.add("     " + table + "cName LIKE '%" + row.cName + "%'");
    if (!row.cNameKana.empty()) condition.add("     " + table + "cNameKana LIKE '%" + row.cNameKana + "%'");
    return condition;
}

std::string numberCondition(const cD_STAFF &row)
{
    return " where    nIDNo = " + std::to_string(row.nIDNo);
}

std::string readStatement(const char *select, const SelectList<cD_STAFF> &list, const std::string &condition)
{
    return select + list.text() + "  FROM      STAFF" + condition + "  order by      nIDNo";
}

std::string twoDigits(std::int16_t code)
{
    return formatText(code, "00", Regional{}); // the settings have no effect on a number
}

} // namespace

cT_STAFF::cT_STAFF(App &app) : TableClass(app, kStaff) {}

std::int16_t cT_STAFF::iGetMaxIDNo(std::int32_t &nMaxNo)
{
    return m_table.trapped([&] {
        const bool isNumberedByBranch = m_app.iKyotenIdMode == 1;
        const std::string subCode = twoDigits(m_app.iKyotenEb);
        std::string sql = "  select      max(STAFF.nIDNo) as nIDNo  FROM      STAFF  where iKyotenCd = " +
                          std::to_string(m_app.iKyotenCd) + "  and iKyotenEb = " + std::to_string(m_app.iKyotenEb);
        if (isNumberedByBranch) {
            const std::string prefix = std::to_string(m_app.iKyotenCd) + subCode;
            sql += "  and LEFT(nIDNo," + std::to_string(length(prefix)) + ") = '" + prefix + "'";
        }
        std::int32_t found = nMaxNo;
        const std::int16_t status = m_table.number(sql, "nIDNo", found);
        if (status != iGood) return status;
        // Deliberate: the seed has the code with two digits, the prefix has it unpadded. Their numbers agree except for
        // branch code 0, which never finds its seed again.
        if (found == 0 && isNumberedByBranch) found = toLong(Variant(twoDigits(m_app.iKyotenCd) + subCode + "0000"));
        nMaxNo = found;
        return iGood;
    });
}

std::int16_t cT_STAFF::iChkStaffName(const std::int32_t &nIDNo, const std::string &cName)
{
    return m_table.trapped([&] {
        std::int32_t others = iBad;
        // Deliberate: no branch condition; a name is searched in the whole table. A failure leaves the -1.
        static_cast<void>(m_table.number("  SELECT      COUNT(nIDNo) AS Cnt  FROM      STAFF  WHERE nIDNo != " +
                                             std::to_string(nIDNo) + " AND        cName = '" + cName + "' ",
                                         "Cnt", others));
        return narrow(others);
    });
}

std::int16_t cT_STAFF::iDataReadGrid(const cD_STAFF *cData)
{
    return m_table.withRow(cData, [&](const cD_STAFF &row) {
        const SelectList<cD_STAFF> list = selectList(StaffRead::grid);
        Condition condition = gridCondition(row, "");
        condition.add(branchTerm(branchOf(m_app)));
        return m_table.read(readStatement("  select", list, condition.text()), list.filled());
    });
}

std::int16_t cT_STAFF::iDataRead(const cD_STAFF *cData)
{
    return m_table.withRow(cData, [&](const cD_STAFF &row) {
        const SelectList<cD_STAFF> list = selectList(StaffRead::read);
        std::string condition = numberCondition(row);
        if (m_app.iKyotenIdMode == 0)
            condition += " and" + branchTerm(branchOf(m_app));
        else if (!row.cName.empty())
            condition += " AND cName = '" + row.cName + "' ";
        return m_table.read(readStatement("  select TOP 1", list, condition), list.filled());
    });
}

std::int16_t cT_STAFF::iDataIdentChk(const cD_STAFF *cData)
{
    return m_table.withRow(cData, [&](const cD_STAFF &row) {
        const SelectList<cD_STAFF> list = selectList(StaffRead::read);
        return m_table.read(
            readStatement("  select", list, numberCondition(row) + " and" + branchTerm(branchOf(m_app))),
            list.filled());
    });
}

std::int16_t cT_STAFF::iDataReadGrid_AllKyoten(const cD_STAFF *cData)
{
    return m_table.withRow(cData, [&](const cD_STAFF &row) {
        const SelectList<cD_STAFF> list = selectList(StaffRead::allBranches);
        return m_table.read("  select" + list.text() +
                                "  FROM      STAFF  LEFT JOIN KYOTEN ON      KYOTEN.iKyotenCd = STAFF.iKyotenCd"
                                "  AND KYOTEN.iKyotenEb = STAFF.iKyotenEb" +
                                gridCondition(row, "STAFF.").text() +
                                "  order by      STAFF.iKyotenCd, STAFF.iKyotenEb, STAFF.nIDNo",
                            list.filled());
    });
}

std::int16_t cT_STAFF::iDataInsert(const cD_STAFF *cData, std::int32_t, Transaction bTransactionFlg)
{
    return m_table.toWrite(cData, [&](const cD_STAFF &row, const WriteContext &context) {
        return m_table.write(insertStatement(kStaff, kStaffColumns, row, context), bTransactionFlg);
    });
}

std::int16_t cT_STAFF::iDataUpdate(const cD_STAFF *cData, std::int32_t, Transaction bTransactionFlg)
{
    return m_table.toWrite(cData, [&](const cD_STAFF &row, const WriteContext &context) {
        std::string sql = updateStatement(kStaff, kStaffColumns, row, context) + numberCondition(row);
        if (m_app.iKyotenIdMode == 0) sql += " and" + branchTerm(context.branch);
        return m_table.write(sql, bTransactionFlg);
    });
}

std::int16_t cT_STAFF::iData削除(const cD_STAFF *cData, std::int32_t, Transaction bTransactionFlg)
{
    return m_table.withRow(cData, [&](const cD_STAFF &row) {
        return m_table.write(deleteStatement(kStaff) + "    nIDNo = " + std::to_string(row.nIDNo) + " and" +
                                 branchTerm(branchOf(m_app)),
                             bTransactionFlg);
    });
}

} // namespace inin
