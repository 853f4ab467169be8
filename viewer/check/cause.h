#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace inin::viewer {

/// Problems of a letter that are found before printing, in report order.
enum class Cause : std::uint8_t {
    unreadableRow,
    blankPage, ///< neither a field nor a text of the form has a visible character
    noPatient,
    noPatientAddress,
    noInsurer,
    noCompany,
    noCompanyAddress,
    noRepresentative,
    noTelephone,
    blankBank,
    halfBank, ///< a bank without its branch, or a branch without its bank
    noAccountNumber,
    shortAccountNumber,
    noHolder,
    noDate,
    farDate, ///< more than two years from today
    periodReversed,
    longPeriod, ///< longer than two months
    signatureOutside,
    lastDayOutside,
    noHouseholder,
    noHouseholderAddress,
    noHouseholderTelephone,
    sameLetter,
    samePerson,
    unknownCode,   ///< a value that the form's list of codes and words lacks
    unfilledField, ///< braces of a placeholder that is not replaced, in a value or in the form
    getaMark,      ///< 〓, which replaces a character that the data lacks
    lostCharacter,
    missingInFont,
    doesNotFit,
    shrunk,
};
inline constexpr std::size_t kCauses = 32;

/// A set of causes, by their numbers.
using CauseSet = std::bitset<kCauses>;

/// How a cause is reported: its name for programs, and in Japanese a mark, a heading and the remedy, which names the
/// screen of the suite or of this program where the problem is corrected.
struct CauseText {
    Cause cause;
    std::string_view name;
    std::string_view mark;
    std::string_view heading;
    std::string_view remedy;
};
[[nodiscard]] const CauseText &textOf(Cause cause);
/// The cause of a name for programs.
[[nodiscard]] std::optional<Cause> causeNamed(std::string_view name);

} // namespace inin::viewer
