#include "master/tariffs.h"

#include "master/table_contract.h"
#include "runtime/conversion.h"
#include "runtime/number_text.h"
#include "runtime/text.h"
#include "shell/error_box.h"

namespace inin {

namespace {

/// Year and month of a date column as six digits. The conversion keeps a text unchanged, so that its seventh character
/// is the second digit of the month.
std::string monthOf(const std::string &column)
{
    const std::string text = "CONVERT(VARCHAR, " + column + ", 112)";
    return "SUBSTRING(" + text + ",1,4)+SUBSTRING(" + text + ",6,2)";
}

/// Selects the rows whose validity includes the month, six digits. The table's dates are texts YYYY/MM/DD and are
/// compared as texts.
std::string monthStatement(const std::string &table, const std::string &csYM, const std::string &order)
{
    return "SELECT * FROM " + table + " WHERE " + monthOf("cStartDate") + " <=   '" + csYM + "' AND " +
           monthOf("cEndDate") + " >=   '" + csYM + "' ORDER BY " + order;
}

/// The critical box of a run-time error.
void showTariffError(App &app, const std::string &text, const std::string &kubun = {}, const std::string &code = {})
{
    app.platform.boxes.show(text + std::string(kCr) + "区分:" + kubun + "  コード：" + code, Icon::critical,
                            "DB Read Error!!");
}

using Fees = TreatmentFees;

/// The only mapping from rows of the table to fees. Rows with other codes are for other programs.
struct FeeCode {
    std::int16_t iTankaKbn;
    std::int32_t nTankaCode;
    std::int32_t Fees::*fee;
};
constexpr FeeCode kFeeCodes[] = {
    {1, 1, &Fees::nマッサージ},     {1, 2, &Fees::n変形徒手},       {1, 3, &Fees::n温按法},
    {1, 4, &Fees::n電気光線},       {1, 11, &Fees::n鍼灸1術},       {1, 12, &Fees::n鍼灸2術},
    {1, 13, &Fees::n鍼灸1術初回},   {1, 14, &Fees::n鍼灸2術初回},   {1, 15, &Fees::n電気鍼温灸器},
    {1, 16, &Fees::n鍼灸1術初検料}, {1, 17, &Fees::n鍼灸2術初検料}, {1, 18, &Fees::n施術報告書交付料},
    {2, 1, &Fees::n基本往療費},     {2, 2, &Fees::n加算往療費},     {9, 1, &Fees::n定額料金1割},
    {9, 2, &Fees::n定額料金2割},    {9, 3, &Fees::n定額料金3割},    {9, 11, &Fees::n実費施術費},
    {9, 12, &Fees::n実費交通費},
};

/// The current row, for error texts: values not yet read are still those of the previous row.
struct CurrentRow {
    std::int16_t iTankaKbn = 0;
    std::int32_t nTankaCode = 0;
    bool any = false;
};

void readFee(const Recordset &rsData, const Regional &regional, CurrentRow &current, Fees &fees)
{
    // The leading number of a field's text, so that one unreadable fee does not prevent all later ones. NULL is still
    // an error.
    const auto number = [&](const char *column) { return leadingNumber(toText(rsData.Field(column), regional)); };
    current.any = true;
    current.iTankaKbn = toInteger(number("iTankaKbn"));
    current.nTankaCode = toLong(number("nTankaCode"));
    const std::int32_t nTanka = toLong(number("nTanka"));
    for (const FeeCode &code : kFeeCodes)
        if (code.iTankaKbn == current.iTankaKbn && code.nTankaCode == current.nTankaCode) fees.*code.fee = nTanka;
}

void showFeeError(App &app, const CurrentRow &current)
{
    showTariffError(app, "単価の取得に失敗しました。", std::to_string(current.iTankaKbn),
                    std::to_string(current.nTankaCode));
}

/// The mode in which the last band does not apply.
constexpr std::int16_t kWithoutLastBand = 1;

} // namespace

bool TariffSession::walk(const std::string &sql, const std::function<void()> &onOpened,
                         const std::function<void(const Recordset &)> &onRow)
{
    m_own = startSession(m_app, m_heading);
    if (!m_own.isConnected()) return false;
    TableSession table(m_app, {});
    table.init(*m_own.session);
    try {
        if (table.walk(sql, onOpened, onRow) == iGood) return true;
    } catch (const RuntimeError &) {
        disconnect();
        throw;
    }
    headingBox(m_app, m_heading, table.sErrMsg());
    disconnect();
    return false;
}

void TariffSession::disconnect()
{
    static_cast<void>(m_own.session->iDisConnect()); // the rows are already read
}

std::int16_t cls単価::iGetTanka(const std::string &csYM)
{
    TariffSession session(m_app, "iGetTanka");
    CurrentRow current;
    try {
        // Ordered by start date: of two periods that include the month, the later one is read last and applies.
        if (!session.walk(
                monthStatement("療養費単価", csYM, "cStartDate, iTankaKbn, nTankaCode"), [] {},
                [&](const Recordset &rsData) { readFee(rsData, m_app.regional, current, m_fees); }))
            return 0;
        if (current.any) {
            session.disconnect();
            return 0;
        }
        // Deliberate double box for a month without fees. The session ends with its object, after the boxes.
        m_app.platform.boxes.show("単価データがありません。", Icon::information);
        showFeeError(m_app, current);
    } catch (const RuntimeError &) {
        showFeeError(m_app, current);
    }
    return 0;
}

std::int16_t cls往療費::iGetOuryohiAll(const std::string &csYM)
try {
    TariffSession session(m_app, "iGetOuryohiAll");
    std::int16_t count = 0;
    const auto clear = [this] {
        m_charges.assign(1, 0);
        m_limits.assign(1, 0);
    };
    const auto append = [&](const Recordset &rsData) {
        const std::size_t size = static_cast<std::size_t>(count) + 1;
        m_charges.resize(size);
        m_limits.resize(size);
        m_charges.back() = toLong(rsData.Field("nKingakuOuryou"));
        m_limits.back() = toLong(rsData.Field("nMaxLen"));
        count = narrow(count + 1);
    };
    if (!session.walk(monthStatement("往療費区分", csYM, "nMaxLen"), clear, append)) return 0;
    m_count = count;
    session.disconnect();
    return 0;
} catch (const RuntimeError &) {
    showTariffError(m_app, "往療単価の取得に失敗しました。");
    return 0;
}

std::int16_t cls往療費::iGetOuryohi(std::int32_t &nLen, const std::int16_t &iMode)
try {
    if (nLen == 0) return 0;
    const std::int32_t last = m_count - 1;
    const std::int32_t limit = at(m_limits, last);
    if (nLen > limit) nLen = limit;
    std::int32_t band = bandOf(nLen);
    if (band == last && iMode == kWithoutLastBand) --band;
    return narrow(at(m_charges, band));
} catch (const RuntimeError &) {
    showTariffError(m_app, "往療金額の取得に失敗しました。");
    return 0;
}

std::int32_t cls往療費::at(const std::vector<std::int32_t> &values, std::int32_t index)
{
    if (index < 0 || static_cast<std::size_t>(index) >= values.size()) throw RuntimeError(error_number::subscript);
    return values[static_cast<std::size_t>(index)];
}

std::int32_t cls往療費::bandOf(std::int32_t nLen) const
{
    std::int32_t band = 0;
    while (at(m_limits, band) < nLen) ++band;
    return band;
}

} // namespace inin
