#pragma once

#include <cstdint>
#include <string>

namespace inin {

/// Kinds of treatment in a patient search.
inline constexpr std::int16_t kMassage = 0;
inline constexpr std::int16_t kAcupuncture = 1;
inline constexpr std::int16_t kBothKinds = 9;

/// The conditions of a search list. A new record sets none; the staff list uses neither the staff member in charge nor
/// the kind.
struct SearchFilter {
    std::string name;
    std::string kana;
    std::string telephone;         ///< no window sets it
    std::int16_t includeEnded = 0; ///< 1: include ended patients, or staff whose management has ended
    std::int32_t staffNumber = 0;  ///< 0 is no condition
    std::string staffName;
    std::int16_t kind = kBothKinds; ///< 0 massage, 1 acupuncture, 9 either
    std::int32_t number = 0;        ///< of the patient or the staff member, 0 is no condition
};

} // namespace inin
