#include "master/shinseisyo_table.h"

#include <utility>

namespace inin {

namespace {

/// A non-numeric value in a number column counts as 0.
constexpr TableShape kShinseisyo{"SHINSEISYO", 0, Unreadable::countsAsZero};

using Row = cD_SHINSEISYO;
using enum WrittenAs;
using enum ValueFrom;

constexpr TableColumn<Row> kShinseisyoColumns[] = {
    // column, property, notation; source of its value, whether an update sets it
    {"iKyotenCd", &Row::iKyotenCd, quoted, siteCode, OnUpdate::kept},
    {"iKyotenEb", &Row::iKyotenEb, quoted, siteSubCode, OnUpdate::kept},
    {"nIDNo", &Row::nIDNo, number, row, OnUpdate::kept},
    {"cFileName", &Row::cFileName, quoted},
    {"cDispName", &Row::cDispName, quoted},
    {"iSejutsuKubun", &Row::iSejutsuKubun, number},
    {"iHokenType", &Row::iHokenType, number},
    {"iDelFlg", &Row::iDelFlg, number},
    {"iSinseiTP", &Row::iSinseiTP, number},
    {"iSoufushoTP", &Row::iSoufushoTP, number},
    {"iDuplexFlg", &Row::iDuplexFlg, number},
    {"iStateNo", &Row::iStateNo, number},
    {"iRiyouHokenKbn", &Row::iRiyouHokenKbn, number},
    {"tUpDateTime", &Row::tUpDateTime, serverTime},
    {"iPrintType", &Row::iPrintType, number, row, OnUpdate::kept},
    {"iKubun", &Row::iKubun, number},
    {"iKanagawaStaffPrint", &Row::iKanagawaStaffPrint, number},
    {"iJoseiFutanKiriage", &Row::iJoseiFutanKiriage, number},
    {"iTekiyouStaff", &Row::iTekiyouStaff, number},
};

bool isSystemWide(std::int32_t iPrintType)
{
    return iPrintType == 0 || iPrintType == 1;
}

std::string printTypeTerm(std::int32_t iPrintType)
{
    return " iPrintType = " + std::to_string(iPrintType);
}

/// System-wide forms have no branch condition.
void addBranch(Condition &condition, std::int32_t iPrintType, Branch branch)
{
    if (!isSystemWide(iPrintType)) condition.add(branchTerm(branch));
}

Condition numberCondition(std::int32_t nIDNo)
{
    Condition condition;
    condition.add("    nIDNo = " + std::to_string(nIDNo));
    return condition;
}

Condition gridCondition(const Row &row, Branch branch)
{
    Condition condition;
    condition.add(printTypeTerm(row.iPrintType));
    addBranch(condition, row.iPrintType, branch);
    if (row.iDelFlg == 0) condition.add("    (iDelFlg = 0 OR iDelFlg IS NULL)");
    if (row.iStateNo > 0) condition.add("    iStateNo = " + std::to_string(row.iStateNo));
    return condition;
}

/// 0 is an ordinary number here; -1 sets no condition.
Condition readCondition(const Row &row, Branch branch)
{
    Condition condition = row.nIDNo > -1 ? numberCondition(row.nIDNo) : Condition();
    addBranch(condition, row.iPrintType, branch);
    condition.add(printTypeTerm(row.iPrintType));
    return condition;
}

SelectList<Row> formList()
{
    SelectList<Row> list(kShinseisyo.name);
    for (const TableColumn<Row> &column : kShinseisyoColumns) list.add(column, SelectForm::aliased);
    return list;
}

std::string readStatement(const SelectList<Row> &list, const Condition &condition)
{
    return "  select" + list.text() + "  FROM      SHINSEISYO" + condition.text() + "  order by      nIDNo";
}

} // namespace

cT_SHINSEISYO::cT_SHINSEISYO(App &app) : TableClass(app, kShinseisyo) {}

std::int16_t cT_SHINSEISYO::iGetMaxIDNo(std::int32_t &nMaxNo, std::int16_t iPrintType)
{
    return m_table.trapped([&] {
        Condition condition;
        addBranch(condition, iPrintType, branchOf(m_app));
        condition.add(printTypeTerm(iPrintType));
        return m_table.number("  select      max(SHINSEISYO.nIDNo) as nIDNo  FROM      SHINSEISYO" + condition.text(),
                              "nIDNo", nMaxNo);
    });
}

std::int16_t cT_SHINSEISYO::iDataReadGrid(const cD_SHINSEISYO *cData)
{
    return m_table.trapped([&] {
        if (cData == nullptr) throw RuntimeError(error_number::objectNotSet);
        const SelectList<Row> list = formList();
        return m_table.read(readStatement(list, gridCondition(*cData, branchOf(m_app))), list.filled());
    });
}

std::int16_t cT_SHINSEISYO::iDataRead(const cD_SHINSEISYO *cData)
{
    return m_table.withRow(cData, [&](const Row &row) {
        const SelectList<Row> list = formList();
        return m_table.read(readStatement(list, readCondition(row, branchOf(m_app))), list.filled());
    });
}

std::int16_t cT_SHINSEISYO::iDataInsert(const cD_SHINSEISYO *cData, std::int32_t, Transaction bTransactionFlg)
{
    // This table has no column for the computer's name, but a computer without a name is refused all the same.
    return m_table.toWrite(cData, [&](const Row &row, WriteContext context) {
        if (isSystemWide(row.iPrintType)) context.branch = {};
        return m_table.write(insertStatement(kShinseisyo, kShinseisyoColumns, row, context), bTransactionFlg);
    });
}

std::int16_t cT_SHINSEISYO::iDataUpdate(const cD_SHINSEISYO *cData, std::int32_t, Transaction bTransactionFlg)
{
    return m_table.toWrite(cData, [&](const Row &row, const WriteContext &context) {
        Condition condition = numberCondition(row.nIDNo);
        addBranch(condition, row.iPrintType, context.branch);
        condition.add(printTypeTerm(row.iPrintType));
        return m_table.write(updateStatement(kShinseisyo, kShinseisyoColumns, row, context) + condition.text(),
                             bTransactionFlg);
    });
}

std::int16_t cT_SHINSEISYO::iData削除(const cD_SHINSEISYO *cData, std::int32_t, Transaction bTransactionFlg)
{
    return m_table.withRow(cData, [&](const Row &row) {
        const Branch branch = branchOf(m_app);
        std::string sql = deleteStatement(kShinseisyo) + "    nIDNo = " + std::to_string(row.nIDNo);
        if (!isSystemWide(row.iPrintType))
            sql += "    and iKyotenCd = " + std::to_string(branch.iKyotenCd) +
                   "    and iKyotenEb = " + std::to_string(branch.iKyotenEb);
        return m_table.write(sql + "    and iPrintType = " + std::to_string(row.iPrintType), bTransactionFlg);
    });
}

} // namespace inin
