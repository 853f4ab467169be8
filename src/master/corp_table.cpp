#include "master/corp_table.h"

#include <cstddef>
#include <span>

namespace inin {

namespace {

/// In an insert the first two keys have their commas after them.
constexpr TableShape kCorp{"CORP", 2};

/// A column of CORP, and its notation in the select list of each read.
struct CorpColumn : TableColumn<cD_CORP> {
    SelectForm read;
    SelectForm grid;
    SelectForm conditionedGrid;
};

using enum WrittenAs;
using enum ValueFrom;
using enum SelectForm;

/// The columns of CORP in the order of a write and of all select lists.
constexpr CorpColumn kCorpColumns[] = {
    // column, property, notation; named by the read, by the grid, by the conditioned grid
    {{"iKyotenCd", {}, quoted, siteCode, OnUpdate::kept}, none, none, none},
    {{"iKyotenEb", {}, quoted, siteSubCode, OnUpdate::kept}, none, none, none},
    {{"cAddress1", &cD_CORP::cAddress1, quoted}, aliased, aliased, aliased},
    {{"cAddress2", &cD_CORP::cAddress2, quoted}, aliased, aliased, aliased},
    {{"cAddressKana", &cD_CORP::cAddressKana, quoted}, aliased, none, none},
    {{"cDaihyo", &cD_CORP::cDaihyo, quoted}, aliased, aliased, aliased},
    {{"cDaihyoKana", &cD_CORP::cDaihyoKana, quoted}, aliased, none, none},
    {{"cFaxNo", &cD_CORP::cFaxNo, quoted}, aliased, aliased, aliased},
    {{"cKinyuName", &cD_CORP::cKinyuName, quoted}, aliased, none, none},
    {{"cKinyuSiten", &cD_CORP::cKinyuSiten, quoted}, aliased, none, none},
    {{"cKozaBangou", &cD_CORP::cKozaBangou, quoted}, aliased, none, none},
    {{"cKozaKana", &cD_CORP::cKozaKana, quoted}, aliased, none, none},
    {{"cKozaMeigi1", &cD_CORP::cKozaMeigi1, quoted}, aliased, none, none},
    {{"cKozaMeigi2", &cD_CORP::cKozaMeigi2, quoted}, aliased, none, none},
    {{"cShamei1", &cD_CORP::cShamei1, quoted}, aliased, aliased, aliased},
    {{"cShamei2", &cD_CORP::cShamei2, quoted}, aliased, aliased, aliased},
    {{"cShameiKana1", &cD_CORP::cShameiKana1, quoted}, aliased, none, none},
    {{"cShameiKana2", &cD_CORP::cShameiKana2, quoted}, aliased, none, none},
    {{"cTelNo", &cD_CORP::cTelNo, quoted}, aliased, aliased, aliased},
    {{"cYubinNo", &cD_CORP::cYubinNo, quoted}, aliased, aliased, aliased},
    {{"iKinSiten", &cD_CORP::iKinSiten, number}, aliased, none, none},
    {{"iKinSyubetsu", &cD_CORP::iKinSyubetsu, number}, aliased, none, none},
    {{"iKozaKubun", &cD_CORP::iKozaKubun, number}, aliased, none, none},
    {{"iKozaType", &cD_CORP::iKozaType, number}, aliased, none, none},
    {{"iType", &cD_CORP::iType, number}, aliased, aliased, aliased},
    {{"nIDNo", &cD_CORP::nIDNo, number}, aliased, aliased, aliased},
    {{"nLat", &cD_CORP::nLat, number}, aliased, none, none},
    {{"nLon", &cD_CORP::nLon, number}, aliased, none, none},
    {{"cPcName", &cD_CORP::cPcName, quoted, computerName}, aliased, none, none},
    {{"tUpDateTime", &cD_CORP::tUpDateTime, serverTime}, aliased, none, none},
    {{"cKinyuNo", &cD_CORP::cKinyuNo, quoted}, bare, none, none},
    {{"cKinyuSitenNo", &cD_CORP::cKinyuSitenNo, quoted}, bare, none, none},
    {{"cJigyousyoNo", &cD_CORP::cJigyousyoNo, quoted}, bare, none, none},
    {{"cJigyousyoNo2", &cD_CORP::cJigyousyoNo2, quoted}, aliased, none, none},
    {{"cJigyouReceiptName", &cD_CORP::cJigyouReceiptName, quoted}, aliased, none, none},
    {{"cMailDestination", &cD_CORP::cMailDestination, quoted}, aliased, aliased, aliased},
    {{"cMailDestinationZipNo", &cD_CORP::cMailDestinationZipNo, quoted}, aliased, aliased, aliased},
    {{"cHokenTourokuKubetsu", &cD_CORP::cHokenTourokuKubetsu, quoted}, aliased, qualified, aliased},
    {{"cPersonalNumberCorp", &cD_CORP::cPersonalNumberCorp, quoted}, aliased, qualified, aliased},
    {{"iKyotenToshiNo", &cD_CORP::iKyotenToshiNo, number}, aliased, qualified, aliased},
    {{"cKokuhoTourokuNo", &cD_CORP::cKokuhoTourokuNo, quoted}, aliased, qualified, aliased},
    {{"cEmail", &cD_CORP::cEmail, quoted}, aliased, qualified, aliased},
};

/// The select list of the read whose member is given, such as &CorpColumn::read.
SelectList<cD_CORP> selectList(SelectForm CorpColumn::*read)
{
    SelectList<cD_CORP> list(kCorp.name);
    for (const CorpColumn &column : kCorpColumns)
        if (column.*read != none) list.add(column, column.*read);
    return list;
}

// Words by code; `first` below is the code of the first one.
constexpr std::string_view kTypeWords[] = {"本社（往療基点）", "受領代理人", "受領代理人", "団体請求"};
constexpr std::string_view kKinSyubetsuWords[] = {"銀行", "金庫", "農協", "郵便局"};
constexpr std::string_view kKinSitenWords[] = {"本店", "支店", "本所", "支所", "出張所"};
constexpr std::string_view kKozaTypeWords[] = {"普通", "当座", "通知", "別段"};

std::string_view wordOfCode(std::span<const std::string_view> words, std::int32_t first, std::int32_t code)
{
    if (code < first || code - first >= static_cast<std::int32_t>(words.size())) return {};
    return words[static_cast<std::size_t>(code - first)];
}

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

std::string_view cD_CORP::sType(const std::int32_t &nCode)
{
    return wordOfCode(kTypeWords, 0, nCode);
}

std::string_view cD_CORP::sKinSyubetsu(const std::int32_t &nCode)
{
    return wordOfCode(kKinSyubetsuWords, 1, nCode);
}

std::string_view cD_CORP::sKinSiten(const std::int32_t &nCode)
{
    return wordOfCode(kKinSitenWords, 1, nCode);
}

std::string_view cD_CORP::sKozaType(const std::int32_t &nCode)
{
    return wordOfCode(kKozaTypeWords, 1, nCode);
}

cT_CORP::cT_CORP(App &app) : TableClass(app, kCorp), m_map(app) {}

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
        const SelectList<cD_CORP> list = selectList(&CorpColumn::grid);
        return m_table.read(readStatement(list, " where" + branchTerm(branchOf(m_app))), list.filled());
    });
}

std::int16_t cT_CORP::iDataRead(const cD_CORP *cData)
{
    return m_table.withRow(cData, [&](const cD_CORP &row) {
        const SelectList<cD_CORP> list = selectList(&CorpColumn::read);
        return m_table.read(readStatement(list, readCondition(row, "=", branchOf(m_app))), list.filled());
    });
}

std::int16_t cT_CORP::iDataReadChk(const cD_CORP *cData)
{
    return m_table.withRow(cData, [&](const cD_CORP &row) {
        const SelectList<cD_CORP> list = selectList(&CorpColumn::read);
        return m_table.read(readStatement(list, readCondition(row, "<>", branchOf(m_app))), list.filled());
    });
}

std::int16_t cT_CORP::iDataReadGrid_Jouken(const cD_CORP *cData)
{
    return m_table.trapped([&] {
        if (cData == nullptr) throw RuntimeError(error_number::objectNotSet);
        const SelectList<cD_CORP> list = selectList(&CorpColumn::conditionedGrid);
        return m_table.read(readStatement(list, listCondition(*cData, branchOf(m_app))), list.filled());
    });
}

std::int16_t cT_CORP::iDataInsert(const cD_CORP *cData, std::int32_t, Transaction bTransactionFlg)
{
    return m_table.toWrite(cData, [&](const cD_CORP &row, const WriteContext &context) {
        return m_table.write(insertStatement(kCorp, kCorpColumns, row, context), bTransactionFlg,
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
        return m_table.write(updateStatement(kCorp, kCorpColumns, row, context) +
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
