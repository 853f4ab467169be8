#pragma once

#include <cstdint>

namespace inin::site {

// The irregularities of a demo site are at fixed places, so that a site of a hundred patients has each of them with any
// seed. The remainder of the patient's number selects them.

struct Share {
    std::int64_t divisor;
    std::int64_t remainder;
    [[nodiscard]] constexpr bool has(std::int64_t number) const { return number % divisor == remainder; }
};

inline constexpr Share kEnded{33, 12};         // treatment ended
inline constexpr Share kGroupBilled{20, 4};    // iDantaiUmu 1
inline constexpr Share kMissingAgent{50, 21};  // nDairiID without a row in CORP
inline constexpr Share kWithoutSide{100, 42};  // no row in RIYOUSHA_SUB
inline constexpr Share kUnknownGroup{100, 63}; // iDantaiUmu NULL
inline constexpr Share kTwiceADay{150, 5};     // two visits on the last day of a month: two letters
inline constexpr Share kAway{17, 9};           // no visit in the month: in hospital

inline constexpr std::int64_t kVendorCharacterPatient1 = 1; // 髙
inline constexpr std::int64_t kVendorCharacterPatient2 = 2; // 﨑
inline constexpr std::int64_t kLongNamePatient = 3;         // 25 full-width characters
inline constexpr std::int64_t kLongAddressPatient = 6;      // 100 full-width characters

/// Each nullable column of RIYOUSHA is NULL in about one row of a hundred. The diagonal of rows and columns avoids the
/// patients above.
[[nodiscard]] constexpr bool isNullHere(std::int64_t row, std::int64_t column)
{
    constexpr std::int64_t kDiagonal = 97;
    constexpr std::int64_t kShift = 40;
    return (row + kShift) % kDiagonal == column % kDiagonal;
}

} // namespace inin::site
