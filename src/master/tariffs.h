#pragma once

#include "data/connection_settings.h"
#include "shell/app.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace inin {

/// The session of one read of the fee classes below, which show every failure instead of returning it.
class TariffSession {
public:
    /// `operation` is the heading of a failure before the first row.
    TariffSession(App &app, const std::string &operation) : m_app(app), m_heading(operation + "() でエラー") {}

    /// Connects, opens the statement and passes on each row; `onOpened` runs before the first row. False after a
    /// failure that was shown. A run-time error disconnects and goes on to the caller.
    [[nodiscard]] bool walk(const std::string &sql, const std::function<void()> &onOpened,
                            const std::function<void(const Recordset &)> &onRow);
    void disconnect();

private:
    App &m_app;
    std::string m_heading;
    StartedSession m_own;
};

/// The fees of a month by treatment item, each in whole yen; 0 until iGetTanka has read the fee.
struct TreatmentFees {
    std::int32_t nマッサージ = 0, n変形徒手 = 0, n温按法 = 0, n電気光線 = 0;
    std::int32_t n鍼灸1術 = 0, n鍼灸2術 = 0, n鍼灸1術初回 = 0, n鍼灸2術初回 = 0, n電気鍼温灸器 = 0;
    std::int32_t n基本往療費 = 0, n加算往療費 = 0;
    std::int32_t n定額料金1割 = 0, n定額料金2割 = 0, n定額料金3割 = 0, n実費施術費 = 0, n実費交通費 = 0;
    std::int32_t n鍼灸1術初検料 = 0, n鍼灸2術初検料 = 0, n施術報告書交付料 = 0;
};

/// The official fees of one month. Opens, reads and closes a session of its own.
class cls単価 {
public:
    explicit cls単価(App &app) : m_app(app) {}

    [[nodiscard]] std::int32_t nマッサージ() const { return m_fees.nマッサージ; }
    [[nodiscard]] std::int32_t n変形徒手() const { return m_fees.n変形徒手; }
    [[nodiscard]] std::int32_t n温按法() const { return m_fees.n温按法; }
    [[nodiscard]] std::int32_t n電気光線() const { return m_fees.n電気光線; }
    [[nodiscard]] std::int32_t n鍼灸1術() const { return m_fees.n鍼灸1術; }
    [[nodiscard]] std::int32_t n鍼灸2術() const { return m_fees.n鍼灸2術; }
    [[nodiscard]] std::int32_t n鍼灸1術初回() const { return m_fees.n鍼灸1術初回; }
    [[nodiscard]] std::int32_t n鍼灸2術初回() const { return m_fees.n鍼灸2術初回; }
    [[nodiscard]] std::int32_t n電気鍼温灸器() const { return m_fees.n電気鍼温灸器; }
    [[nodiscard]] std::int32_t n基本往療費() const { return m_fees.n基本往療費; }
    [[nodiscard]] std::int32_t n加算往療費() const { return m_fees.n加算往療費; }
    [[nodiscard]] std::int32_t n定額料金1割() const { return m_fees.n定額料金1割; }
    [[nodiscard]] std::int32_t n定額料金2割() const { return m_fees.n定額料金2割; }
    [[nodiscard]] std::int32_t n定額料金3割() const { return m_fees.n定額料金3割; }
    [[nodiscard]] std::int32_t n実費施術費() const { return m_fees.n実費施術費; }
    [[nodiscard]] std::int32_t n実費交通費() const { return m_fees.n実費交通費; }
    [[nodiscard]] std::int32_t n鍼灸1術初検料() const { return m_fees.n鍼灸1術初検料; }
    [[nodiscard]] std::int32_t n鍼灸2術初検料() const { return m_fees.n鍼灸2術初検料; }
    [[nodiscard]] std::int32_t n施術報告書交付料() const { return m_fees.n施術報告書交付料; }

    /// Reads the fees of the month `csYM`, six digits. Always 0: a failure is shown in a box, and the caller sees only
    /// unchanged fees. Fees without a row are unchanged too.
    std::int16_t iGetTanka(const std::string &csYM);

private:
    App &m_app;
    TreatmentFees m_fees;
};

/// The visit charges of one month by distance band. Opens, reads and closes a session of its own and shows failures.
/// Call iGetOuryohiAll first.
class cls往療費 {
public:
    explicit cls往療費(App &app) : m_app(app) {}

    /// The charge of the distance, 0 for distance 0 and after a failure. A distance beyond the last band is reduced to
    /// its limit, in the caller's variable as well. With `iMode` 1 the band before the last one replaces the last one.
    [[nodiscard]] std::int16_t iGetOuryohi(std::int32_t &nLen, const std::int16_t &iMode);
    /// Reads the bands of the month `csYM`, six digits. Always 0. A month without bands is no failure here.
    std::int16_t iGetOuryohiAll(const std::string &csYM);
    /// The charge of a band, from 0; error 9 outside.
    [[nodiscard]] std::int32_t n往療単価(const std::int16_t &iIdx) const { return at(m_charges, iIdx); }
    /// The greatest distance of a band, from 0; error 9 outside.
    [[nodiscard]] std::int32_t n往療距離MAX(const std::int16_t &iIdx) const { return at(m_limits, iIdx); }
    /// The number of bands; a month without bands leaves one blank element that is not counted.
    [[nodiscard]] std::int16_t i往療区分数() const { return m_count; }

private:
    [[nodiscard]] static std::int32_t at(const std::vector<std::int32_t> &values, std::int32_t index);
    /// The first band whose limit is at least the distance.
    [[nodiscard]] std::int32_t bandOf(std::int32_t nLen) const;

    App &m_app;
    std::vector<std::int32_t> m_charges, m_limits;
    std::int16_t m_count = 0;
};

} // namespace inin
