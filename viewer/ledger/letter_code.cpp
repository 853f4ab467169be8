#include "viewer/ledger/letter_code.h"

#include "runtime/utf8.h"

#include <fmt/format.h>

namespace inin::viewer {

namespace {

constexpr std::size_t kLedgerDigits = 6, kLetterDigits = 7, kCheckDigits = 2;
constexpr std::size_t kAllDigits = kLedgerDigits + kLetterDigits + kCheckDigits;
/// ISO/IEC 7064, MOD 97-10: a number with its check digits leaves the remainder 1.
constexpr std::uint64_t kModulus = 97;
constexpr std::u32string_view kHyphens = U"-‐‑‒–—―−－ーｰ";

std::uint64_t numberOf(std::string_view digits)
{
    std::uint64_t number = 0;
    for (const char digit : digits) number = number * 10 + static_cast<std::uint64_t>(digit - '0');
    return number;
}

/// The digits of a text; nothing if it contains anything else than digits, blanks and hyphens.
std::optional<std::string> digitsOf(std::string_view text)
{
    std::string digits;
    while (!text.empty()) {
        const DecodedCharacter next = firstCharacter(text);
        text.remove_prefix(next.bytes);
        const char32_t c = next.character;
        if (c >= U'0' && c <= U'9')
            digits += static_cast<char>('0' + (c - U'0'));
        else if (c >= U'０' && c <= U'９')
            digits += static_cast<char>('0' + (c - U'０'));
        else if (c != U' ' && c != U'　' && c != U'\t' && c != U'\r' && c != U'\n' && kHyphens.find(c) == kHyphens.npos)
            return std::nullopt;
        if (digits.size() > kAllDigits) return std::nullopt;
    }
    return digits;
}

} // namespace

std::string codeDigits(const LetterCode &code)
{
    const std::string number = fmt::format("{:06}{:07}", code.ledger, code.letter);
    return fmt::format("{}{:02}", number, kModulus + 1 - numberOf(number) * 100 % kModulus);
}

std::string codeText(const LetterCode &code)
{
    const std::string digits = codeDigits(code);
    return digits.substr(0, kLedgerDigits) + "-" + digits.substr(kLedgerDigits, kLetterDigits) + "-" +
           digits.substr(kLedgerDigits + kLetterDigits);
}

std::optional<LetterCode> readLetterCode(std::string_view text)
{
    const std::optional<std::string> digits = digitsOf(text);
    if (!digits || digits->size() != kAllDigits || numberOf(*digits) % kModulus != 1) return std::nullopt;
    const std::string_view whole = *digits;
    const LetterCode code{static_cast<std::uint32_t>(numberOf(whole.substr(0, kLedgerDigits))),
                          static_cast<std::uint32_t>(numberOf(whole.substr(kLedgerDigits, kLetterDigits)))};
    if (code.ledger < kFirstLedger || code.letter == 0) return std::nullopt;
    return code;
}

} // namespace inin::viewer
