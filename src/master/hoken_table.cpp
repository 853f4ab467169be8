#include "master/hoken_table.h"

namespace inin {

namespace {

constexpr TableShape kHoken{"HOKEN"};

struct HokenColumn : TableColumn<cD_HOKEN> {
    bool read;
};

using enum WrittenAs;
using enum ValueFrom;

constexpr HokenColumn kHokenColumns[] = {
    // column, property, notation                                    read
    {{"iKyotenCd", {}, number, siteCode, OnUpdate::kept}, false},
    {{"iKyotenEb", {}, number, siteSubCode, OnUpdate::kept}, false},
    {{"cName", &cD_HOKEN::cName, quoted}, true},
    {{"cRyaku", &cD_HOKEN::cRyaku, quoted}, true},
    {{"cType", &cD_HOKEN::cType, quoted}, true},
    {{"iType", &cD_HOKEN::iType, number}, true},
};

SelectList<cD_HOKEN> insuranceList()
{
    SelectList<cD_HOKEN> list(kHoken.name);
    for (const HokenColumn &column : kHokenColumns)
        if (column.read) list.add(column, SelectForm::aliased);
    return list;
}

std::string keyCondition(const cD_HOKEN &row, Branch branch)
{
    return "    iType = " + std::to_string(row.iType) + " and" + branchTerm(branch);
}

} // namespace

cT_HOKEN::cT_HOKEN(App &app) : TableClass(app, kHoken) {}

std::int16_t cT_HOKEN::iDataRead(const cD_HOKEN *cData)
{
    return m_table.withRow(cData, [&](const cD_HOKEN &) {
        const SelectList<cD_HOKEN> list = insuranceList();
        // Deliberate: unlike every other master, this read has no branch condition and reads all branches.
        return m_table.read("  select" + list.text() + "  FROM      HOKEN  order by      iType", list.filled());
    });
}

std::int16_t cT_HOKEN::iDataInsert(const cD_HOKEN *cData, std::int32_t, Transaction bTransactionFlg)
{
    return m_table.withRow(cData, [&](const cD_HOKEN &row) {
        return m_table.write(insertStatement(kHoken, kHokenColumns, row, {branchOf(m_app), {}}), bTransactionFlg);
    });
}

std::int16_t cT_HOKEN::iDataUpdate(const cD_HOKEN *cData, std::int32_t, Transaction bTransactionFlg)
{
    return m_table.withRow(cData, [&](const cD_HOKEN &row) {
        const Branch branch = branchOf(m_app);
        return m_table.write(updateStatement(kHoken, kHokenColumns, row, {branch, {}}) + " where" +
                                 keyCondition(row, branch),
                             bTransactionFlg);
    });
}

std::int16_t cT_HOKEN::iData削除(const cD_HOKEN *cData, std::int32_t, Transaction bTransactionFlg)
{
    return m_table.withRow(cData, [&](const cD_HOKEN &row) {
        return m_table.write(deleteStatement(kHoken) + keyCondition(row, branchOf(m_app)), bTransactionFlg);
    });
}

} // namespace inin
