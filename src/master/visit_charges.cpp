#include "master/visit_charges.h"

#include "master/tariff_session.h"
#include "runtime/conversion.h"

namespace inin {

namespace {
/// The mode in which the last band does not apply.
constexpr std::int16_t kWithoutLastBand = 1;
} // namespace

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
