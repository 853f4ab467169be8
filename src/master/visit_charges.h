#pragma once

#include "shell/app.h"

#include <cstdint>
#include <string>
#include <vector>

namespace inin {

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
