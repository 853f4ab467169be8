#pragma once

#include "shell/app.h"

#include <cstdint>
#include <string>

namespace inin {

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

} // namespace inin
