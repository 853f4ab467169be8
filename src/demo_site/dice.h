#pragma once

#include <cstddef>
#include <cstdint>

namespace inin::site {

/// The random generator of the demo data: splitmix64 (Steele, Lea, Flood 2014). Unlike the standard library's
/// distributions it gives the same rows on every platform.
class Dice {
public:
    /// Each row of each kind has its own generator, so that one more draw in a row does not change other rows.
    Dice(std::uint64_t seed, std::uint64_t kind, std::uint64_t row) : m_state(seed)
    {
        m_state = next() ^ (kind * 0x9E3779B97F4A7C15U);
        m_state = next() ^ row;
    }

    [[nodiscard]] std::uint64_t next()
    {
        m_state += 0x9E3779B97F4A7C15U;
        std::uint64_t z = m_state;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
        return z ^ (z >> 31);
    }
    /// 0 to count - 1. The modulo bias is negligible for such small counts.
    [[nodiscard]] std::size_t below(std::size_t count) { return static_cast<std::size_t>(next() % count); }
    [[nodiscard]] int between(int low, int high)
    {
        const int sides = high - low + 1;
        return low + static_cast<int>(below(static_cast<std::size_t>(sides)));
    }
    [[nodiscard]] bool oneIn(std::size_t count) { return below(count) == 0; }
    template <class Pool> [[nodiscard]] const auto &pick(const Pool &pool) { return pool[below(pool.size())]; }

private:
    std::uint64_t m_state;
};

} // namespace inin::site
