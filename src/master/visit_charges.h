#pragma once

#include "shell/app.h"

#include <cstdint>
#include <string>
#include <vector>

namespace inin {

/// The visit charges of one month in bands of distance. Opens, reads and closes a session of its own; failures are
/// shown on the screen. iGetOuryohiAll comes first.
class cls往療費 {
public:
    explicit cls往療費(App &app) : m_app(app) {}

    /// The charge of the distance, 0 for distance 0 and after a failure. A distance beyond the last band is cut to its
    /// limit, in the caller's variable too. With `iMode` 1 the last band does not apply: the one before it does.
    [[nodiscard]] std::int16_t iGetOuryohi(std::int32_t &nLen, const std::int16_t &iMode);
    /// Reads the bands of the month `csYM`, six digits. Always 0. A month without bands is no failure here.
    std::int16_t iGetOuryohiAll(const std::string &csYM);
    /// The charge of a band from 0; error 9 outside.
    [[nodiscard]] std::int32_t n往療単価(const std::int16_t &iIdx) const { return at(m_charges, iIdx); }
    /// The greatest distance of a band from 0; error 9 outside.
    [[nodiscard]] std::int32_t n往療距離MAX(const std::int16_t &iIdx) const { return at(m_limits, iIdx); }
    /// How many bands there are; a month without bands leaves one blank element that does not count.
    [[nodiscard]] std::int16_t i往療区分数() const { return m_count; }

private:
    [[nodiscard]] static std::int32_t at(const std::vector<std::int32_t> &values, std::int32_t index);
    /// The first band whose limit is not below the distance.
    [[nodiscard]] std::int32_t bandOf(std::int32_t nLen) const;

    App &m_app;
    std::vector<std::int32_t> m_charges, m_limits;
    std::int16_t m_count = 0;
};

} // namespace inin
