#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace inin::viewer {

/// The number of a letter on its paper: the ledger, the letter's number in it, and two check digits. It holds no personal
/// data. Digits only, so that every scanner types them alike on every keyboard.
struct LetterCode {
    std::uint32_t ledger = 0; ///< kFirstLedger to kLastLedger
    std::uint32_t letter = 0; ///< 1 to kLastCodedLetter
    friend bool operator==(const LetterCode &, const LetterCode &) = default;
};
inline constexpr std::uint32_t kFirstLedger = 100'000, kLastLedger = 999'999;
inline constexpr std::uint32_t kLastCodedLetter = 9'999'999;

/// The fifteen digits for a QR code. Needs valid numbers.
[[nodiscard]] std::string codeDigits(const LetterCode &code);
/// The same with hyphens, for people: "123456-0001234-59".
[[nodiscard]] std::string codeText(const LetterCode &code);
/// Reads either form, typed or scanned: full-width digits, blanks and any hyphen are accepted. Nothing for another text
/// and for wrong check digits: each single wrong digit and each exchange of two neighbours is found.
[[nodiscard]] std::optional<LetterCode> readLetterCode(std::string_view text);

} // namespace inin::viewer
