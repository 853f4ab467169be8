#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace inin::viewer {

/// Problems of a letter that are found before printing, in report order.
enum class Cause : std::uint8_t {
    unreadableRow,
    blankPage, ///< neither a field nor a text of the form has a visible character
    noPatient,
    noInsurer,
    noCompany,
    blankBank,
    noAccountNumber,
    noHolder,
    noDate,
    periodReversed,
    signatureOutside,
    lastDayOutside,
    noHouseholder,
    sameLetter,
    samePerson,
    lostCharacter,
    missingInFont,
    doesNotFit,
    shrunk,
};
inline constexpr std::size_t kCauses = 19;

/// How a cause is reported: its name for programs, and in Japanese a mark, a heading and the remedy.
struct CauseText {
    Cause cause;
    std::string_view name;
    std::string_view mark;
    std::string_view heading;
    std::string_view remedy;
};
[[nodiscard]] const CauseText &textOf(Cause cause);

} // namespace inin::viewer
