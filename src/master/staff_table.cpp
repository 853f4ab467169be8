#include "master/staff_table.h"

#include "master/staff_columns.h"
#include "runtime/conversion.h"
#include "runtime/format.h"
#include "runtime/text.h"

namespace inin {

namespace {

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

cT_STAFF::cT_STAFF(App &app) : m_app(app), m_table(app, kStaff) {}

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
        std::int32_t found = 0;
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
    std::int16_t others = iBad;
    const std::int16_t status = m_table.trapped([&] {
        // Deliberate: no branch condition; a name is searched in the whole table.
        std::int32_t found = 0;
        const std::int16_t read = m_table.number("  SELECT      COUNT(nIDNo) AS Cnt  FROM      STAFF  WHERE nIDNo != " +
                                                     std::to_string(nIDNo) + " AND        cName = '" + cName + "' ",
                                                 "Cnt", found);
        if (read == iGood) others = narrow(found);
        return read;
    });
    return status == iGood ? others : status;
}

std::int16_t cT_STAFF::iDataReadGrid(const cD_STAFF *cData)
{
    return m_table.withRow(cData, [&](const cD_STAFF &row) {
        const SelectList<cD_STAFF> list = staffSelectList(StaffRead::grid);
        Condition condition = gridCondition(row, "");
        condition.add(branchTerm(branchOf(m_app)));
        return m_table.read(readStatement("  select", list, condition.text()), list.filled());
    });
}

std::int16_t cT_STAFF::iDataRead(const cD_STAFF *cData)
{
    return m_table.withRow(cData, [&](const cD_STAFF &row) {
        const SelectList<cD_STAFF> list = staffSelectList(StaffRead::read);
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
        const SelectList<cD_STAFF> list = staffSelectList(StaffRead::read);
        return m_table.read(
            readStatement("  select", list, numberCondition(row) + " and" + branchTerm(branchOf(m_app))),
            list.filled());
    });
}

std::int16_t cT_STAFF::iDataReadGrid_AllKyoten(const cD_STAFF *cData)
{
    return m_table.withRow(cData, [&](const cD_STAFF &row) {
        const SelectList<cD_STAFF> list = staffSelectList(StaffRead::allBranches);
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
        return m_table.write(insertStatement(kStaff, staffColumns(), row, context), bTransactionFlg);
    });
}

std::int16_t cT_STAFF::iDataUpdate(const cD_STAFF *cData, std::int32_t, Transaction bTransactionFlg)
{
    return m_table.toWrite(cData, [&](const cD_STAFF &row, const WriteContext &context) {
        std::string sql = updateStatement(kStaff, staffColumns(), row, context) + numberCondition(row);
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
