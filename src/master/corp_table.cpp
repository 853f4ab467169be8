#include "master/corp_table.h"

#include "master/corp_columns.h"

namespace inin {

namespace {

/// The condition of iDataRead and iDataReadChk, which differ only in the `comparison` of the number.
std::string readCondition(const cD_CORP &row, const char *comparison, Branch branch)
{
    Condition condition;
    if (row.nIDNo > -1) condition.add("    nIDNo " + std::string(comparison) + " " + std::to_string(row.nIDNo));
    condition.add(branchTerm(branch));
    if (row.iType > -1) condition.add("     iType = " + std::to_string(row.iType));
    return condition.text();
}

/// Unlike in readCondition, 0 sets no condition here.
std::string listCondition(const cD_CORP &row, Branch branch)
{
    Condition condition;
    condition.add(branchTerm(branch));
    if (row.nIDNo > 0) condition.add("     CORP.nIDNo = " + std::to_string(row.nIDNo));
    if (!row.cShamei1.empty()) condition.add("     CORP.cShamei1 LIKE '%" + row.cShamei1 + "%'");
    if (!row.cShameiKana1.empty()) condition.add("     CORP.cShameiKana1 LIKE '%" + row.cShameiKana1 + "%'");
    return condition.text();
}

std::string readStatement(const SelectList<cD_CORP> &list, const std::string &condition)
{
    return "  select" + list.text() + "  FROM      CORP" + condition + "  order by      nIDNo";
}

} // namespace

cT_CORP::cT_CORP(App &app) : m_app(app), m_map(app), m_table(app, kCorp) {}

std::int16_t cT_CORP::iGetMaxIDNo(std::int32_t &nMaxNo)
{
    return m_table.trapped([&] {
        return m_table.number("  select      max(CORP.nIDNo) as nIDNo  FROM      CORP where" +
                                  branchTerm(branchOf(m_app)),
                              "nIDNo", nMaxNo);
    });
}

std::int16_t cT_CORP::iDataReadGrid()
{
    return m_table.trapped([&] {
        const SelectList<cD_CORP> list = corpSelectList(&CorpColumn::grid);
        return m_table.read(readStatement(list, " where" + branchTerm(branchOf(m_app))), list.filled());
    });
}

std::int16_t cT_CORP::iDataRead(const cD_CORP *cData)
{
    return m_table.withRow(cData, [&](const cD_CORP &row) {
        const SelectList<cD_CORP> list = corpSelectList(&CorpColumn::read);
        return m_table.read(readStatement(list, readCondition(row, "=", branchOf(m_app))), list.filled());
    });
}

std::int16_t cT_CORP::iDataReadChk(const cD_CORP *cData)
{
    return m_table.withRow(cData, [&](const cD_CORP &row) {
        const SelectList<cD_CORP> list = corpSelectList(&CorpColumn::read);
        return m_table.read(readStatement(list, readCondition(row, "<>", branchOf(m_app))), list.filled());
    });
}

std::int16_t cT_CORP::iDataReadGrid_Jouken(const cD_CORP *cData)
{
    return m_table.trapped([&] {
        if (cData == nullptr) throw RuntimeError(error_number::objectNotSet);
        const SelectList<cD_CORP> list = corpSelectList(&CorpColumn::conditionedGrid);
        return m_table.read(readStatement(list, listCondition(*cData, branchOf(m_app))), list.filled());
    });
}

std::int16_t cT_CORP::iDataInsert(const cD_CORP *cData, std::int32_t, Transaction bTransactionFlg)
{
    return m_table.toWrite(cData, [&](const cD_CORP &row, const WriteContext &context) {
        return m_table.write(insertStatement(kCorp, corpColumns(), row, context), bTransactionFlg,
                             [this](std::string &sErrMsg) {
                                 // The insert is valid without its map.
                                 if (hasMap()) static_cast<void>(m_map.saveForCompany(sErrMsg));
                                 return iGood;
                             });
    });
}

std::int16_t cT_CORP::iDataUpdate(const cD_CORP *cData, std::int32_t, Transaction bTransactionFlg)
{
    return m_table.toWrite(cData, [&](const cD_CORP &row, const WriteContext &context) {
        return m_table.write(updateStatement(kCorp, corpColumns(), row, context) +
                                 " where    nIDNo = " + std::to_string(row.nIDNo) + " and" + branchTerm(context.branch),
                             bTransactionFlg, [this](std::string &sErrMsg) {
                                 return hasMap() ? m_map.saveOrUpdateForCompany(sErrMsg) : iGood;
                             });
    });
}

std::int16_t cT_CORP::iData削除(const cD_CORP *cData, std::int32_t, Transaction bTransactionFlg)
{
    return m_table.withRow(cData, [&](const cD_CORP &row) {
        const Branch branch = branchOf(m_app);
        return m_table.write(deleteStatement(kCorp) + "    nIDNo = " + std::to_string(row.nIDNo) +
                                 "    and iKyotenCd = " + std::to_string(branch.iKyotenCd) +
                                 "    and iKyotenEb = " + std::to_string(branch.iKyotenEb),
                             bTransactionFlg);
    });
}

} // namespace inin
