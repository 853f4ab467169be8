#include "suite_text/japanese_text.h"

#include "runtime/utf8.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace inin {

namespace {

/// The full-width forms of the half-width katakana U+FF61 to U+FF9F, in this order.
constexpr std::u32string_view kFromHalfWidth = U"。「」、・ヲァィゥェォャュョッーアイウエオカキクケコサシスセソ"
                                               U"タチツテトナニヌネノハヒフヘホマミムメモヤユヨラリルレロワン゛゜";
static_assert(kFromHalfWidth.size() == 0xFF9F - 0xFF61 + 1);
/// Small kana and their large forms.
constexpr std::u32string_view kSmall = U"ァィゥェォッャュョヮヵヶ";
constexpr std::u32string_view kLarge = U"アイウエオツヤユヨワカケ";
static_assert(kSmall.size() == kLarge.size());
/// Full-width symbols outside the ASCII block and their half-width forms.
constexpr std::u32string_view kWideSigns = U"￠￡￢￣￤￥￦";
constexpr std::u32string_view kNarrowSigns = U"¢£¬¯¦¥₩";
/// Kana that combine with a 濁点, and the voiced kana.
constexpr std::u32string_view kPlain = U"カキクケコサシスセソタチツテトハヒフヘホウワヲヽ";
constexpr std::u32string_view kVoiced = U"ガギグゲゴザジズゼゾダヂヅデドバビブベボヴヷヺヾ";
constexpr std::u32string_view kPlainHa = U"ハヒフヘホ";
constexpr std::u32string_view kHalfVoiced = U"パピプペポ";
static_assert(kPlain.size() == kVoiced.size());

constexpr char32_t mapped(char32_t c, std::u32string_view from, std::u32string_view to)
{
    const std::size_t at = from.find(c);
    return at == std::u32string_view::npos ? c : to[at];
}

/// The block of kana, U+3040 to U+30FF.
constexpr char32_t kFirstKana = 0x3040, kLastKana = 0x30FF;
struct Kana {
    char32_t folded = 0;     ///< large katakana
    char32_t voiced = 0;     ///< combined with a 濁点; 0 if it has no such form
    char32_t halfVoiced = 0; ///< combined with a 半濁点; 0 if it has no such form
};
constexpr auto kKana = [] {
    std::array<Kana, kLastKana - kFirstKana + 1> table{};
    for (std::size_t index = 0; index < table.size(); ++index) {
        char32_t c = kFirstKana + static_cast<char32_t>(index);
        if ((c >= 0x3041 && c <= 0x3096) || c == 0x309D || c == 0x309E) c += 0x60;
        c = mapped(c, kSmall, kLarge);
        const char32_t voiced = mapped(c, kPlain, kVoiced), halfVoiced = mapped(c, kPlainHa, kHalfVoiced);
        table[index] = {c, voiced == c ? 0 : voiced, halfVoiced == c ? 0 : halfVoiced};
    }
    return table;
}();

/// A range of upper-case characters, all or every second one, whose lower-case forms are at distance `offset`.
struct UpperCase {
    char32_t first;
    char32_t last;
    char32_t offset;
    char32_t stride;
};
constexpr UpperCase kUpperCase[] = {
    {0xC0, 0xD6, 0x20, 1},     {0xD8, 0xDE, 0x20, 1},    {0x100, 0x12E, 1, 2},    {0x132, 0x136, 1, 2},
    {0x139, 0x147, 1, 2},      {0x14A, 0x176, 1, 2},     {0x179, 0x17D, 1, 2},    {0x1CD, 0x1DB, 1, 2},
    {0x1DE, 0x1EE, 1, 2},      {0x1F8, 0x21E, 1, 2},     {0x222, 0x232, 1, 2},    {0x386, 0x386, 0x26, 1},
    {0x388, 0x38A, 0x25, 1},   {0x38C, 0x38C, 0x40, 1},  {0x38E, 0x38F, 0x3F, 1}, {0x391, 0x3A9, 0x20, 1},
    {0x400, 0x40F, 0x50, 1},   {0x410, 0x42F, 0x20, 1},  {0x460, 0x480, 1, 2},    {0x48A, 0x4BE, 1, 2},
    {0x4C1, 0x4CD, 1, 2},      {0x4D0, 0x52E, 1, 2},     {0x1E00, 0x1E94, 1, 2},  {0x1EA0, 0x1EFE, 1, 2},
    {0x2160, 0x216B, 0x10, 1}, {0x24B6, 0x24CF, 0x1A, 1}};
constexpr char32_t kUpperYWithDiaeresis = 0x178, kLowerYWithDiaeresis = 0xFF;

constexpr char32_t foldAscii(char32_t c)
{
    return c >= U'A' && c <= U'Z' ? c + 0x20 : c;
}

char32_t foldCase(char32_t c)
{
    constexpr char32_t kBeyondLetters = 0x24D0;
    if (c < 0x80) return foldAscii(c);
    if (c >= kBeyondLetters) return c;
    if (c == kUpperYWithDiaeresis) return kLowerYWithDiaeresis;
    for (const UpperCase &range : kUpperCase)
        if (c <= range.last) return c >= range.first && (c - range.first) % range.stride == 0 ? c + range.offset : c;
    return c;
}

bool isKana(char32_t c)
{
    return c >= kFirstKana && c <= kLastKana;
}

/// Folds the width, kana type and case of one character.
char32_t foldOne(char32_t c)
{
    if (c >= 0xFF61 && c <= 0xFF9F) c = kFromHalfWidth[c - 0xFF61];
    if (isKana(c)) return kKana[c - kFirstKana].folded;
    if (c == 0x3000) return U' ';
    if (c >= 0xFF01 && c <= 0xFF5E) return foldAscii(c - 0xFF01 + 0x21);
    if (c >= 0xFFE0 && c <= 0xFFE6) return mapped(c, kWideSigns, kNarrowSigns);
    return foldCase(c);
}

/// A variation selector chooses a glyph of the preceding character and is ignored in comparisons.
bool isVariationSelector(char32_t c)
{
    return (c >= 0xFE00 && c <= 0xFE0F) || (c >= 0xE0100 && c <= 0xE01EF);
}

/// A folded kana combined with the 濁点 or 半濁点 that follows it, in full-width, half-width or combining form; 0 if
/// they do not combine.
char32_t joinedWith(char32_t sign, char32_t foldedKana)
{
    if (!isKana(foldedKana)) return 0;
    const Kana &kana = kKana[foldedKana - kFirstKana];
    if (sign == 0xFF9E || sign == 0x3099 || sign == 0x309B) return kana.voiced;
    if (sign == 0xFF9F || sign == 0x309A || sign == 0x309C) return kana.halfVoiced;
    return 0;
}

/// Reads the folded characters of a text.
class FoldedReader {
public:
    static constexpr char32_t kEnd = 0xFFFFFFFF;

    explicit FoldedReader(std::string_view text) : m_text(text) {}

    /// The next folded character; kEnd at and after the end.
    char32_t next()
    {
        const char32_t c = weighted(m_at);
        if (c < 0x80) return foldAscii(c);
        if (c == kEnd) return kEnd;
        const char32_t folded = foldOne(c);
        if (!isKana(folded) || !mayBeSign()) return folded;
        std::size_t ahead = m_at;
        const char32_t joined = joinedWith(weighted(ahead), folded);
        if (joined == 0) return folded;
        m_at = ahead;
        return joined;
    }

private:
    /// The next character that is significant in comparisons.
    char32_t weighted(std::size_t &at) const
    {
        while (at < m_text.size()) {
            const DecodedCharacter next = firstCharacter(m_text.substr(at));
            at += next.bytes;
            if (!isVariationSelector(next.character)) return next.character;
        }
        return kEnd;
    }
    /// False when neither a 濁点 or 半濁点 nor a variation selector follows. Checks only two bytes, so it is true for a
    /// few other characters as well.
    [[nodiscard]] bool mayBeSign() const
    {
        if (m_at >= m_text.size()) return false;
        const auto lead = static_cast<unsigned char>(m_text[m_at]);
        if (lead == 0xE3) return m_at + 1 < m_text.size() && static_cast<unsigned char>(m_text[m_at + 1]) == 0x82;
        return lead == 0xEF || lead == 0xF3;
    }

    std::string_view m_text;
    std::size_t m_at = 0;
};

/// The position from which to compare two texts whose first `same` bytes are equal: before the last character that
/// could combine with a following 濁点 or 半濁点.
std::size_t comparisonStart(std::string_view a, std::string_view b, std::size_t same)
{
    std::size_t at = std::min(characterStart(a, same), characterStart(b, same));
    while (at > 0 && !isAscii(a[at - 1])) {
        at = characterStart(a, at - 1);
        if (!isVariationSelector(firstCharacter(a.substr(at)).character)) break;
    }
    return at;
}

/// Removes trailing blanks of both widths, and the variation selectors among them.
std::string_view withoutBlanksAtEnd(std::string_view text)
{
    while (!text.empty() && (text.back() == ' ' || !isAscii(text.back()))) {
        const std::size_t last = characterStart(text, text.size() - 1);
        const char32_t c = firstCharacter(text.substr(last)).character;
        if (c != U' ' && c != 0x3000 && !isVariationSelector(c)) break;
        text = text.substr(0, last);
    }
    return text;
}

} // namespace

void foldJapanese(std::string_view text, std::u32string &folded)
{
    folded.clear();
    FoldedReader reader(text);
    for (char32_t c = reader.next(); c != FoldedReader::kEnd; c = reader.next()) folded += c;
}

int compareJapanese(std::string_view a, std::string_view b)
{
    a = withoutBlanksAtEnd(a);
    b = withoutBlanksAtEnd(b);
    const std::size_t shorter = std::min(a.size(), b.size());
    std::size_t same = 0;
    while (same < shorter && a[same] == b[same]) ++same;
    if (same == a.size() && same == b.size()) return 0;
    // Different ASCII characters decide at once, because they do not combine with a following character.
    if (same < shorter && isAscii(a[same]) && isAscii(b[same])) {
        const char32_t left = foldAscii(static_cast<unsigned char>(a[same]));
        const char32_t right = foldAscii(static_cast<unsigned char>(b[same]));
        if (left != right) return left < right ? -1 : 1;
    }
    const std::size_t start = comparisonStart(a, b, same);
    FoldedReader left(a.substr(start)), right(b.substr(start));
    while (true) {
        const char32_t fromLeft = left.next(), fromRight = right.next();
        if (fromLeft != fromRight) {
            if (fromLeft == FoldedReader::kEnd) return -1; // a prefix comes first
            return fromRight == FoldedReader::kEnd || fromLeft > fromRight ? 1 : -1;
        }
        if (fromLeft == FoldedReader::kEnd) return 0;
    }
}

} // namespace inin
