#pragma once

#include <cstdint>

namespace inin {

// The runtime's codes of the keys that the forms handle. The codes of the function keys are consecutive.
inline constexpr std::int16_t kReturnKey = 13;
inline constexpr std::int16_t kEscapeKey = 27;
inline constexpr std::int16_t kF1Key = 112;
inline constexpr std::int16_t kF2Key = 113;
inline constexpr std::int16_t kF4Key = 115;
inline constexpr std::int16_t kF5Key = 116;
inline constexpr std::int16_t kF12Key = 123;

} // namespace inin
