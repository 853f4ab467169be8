#include "master/tariffs.h"

#include "master/tariff_session.h"
#include "runtime/conversion.h"
#include "runtime/number_text.h"

namespace inin {

namespace {

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

} // namespace

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

} // namespace inin
