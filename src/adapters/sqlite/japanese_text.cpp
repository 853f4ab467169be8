#include "adapters/sqlite/japanese_text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace inin {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

/// Full-width forms of U+FF61 to U+FF9F, the half-width katakana, in their order.
constexpr std::u32string_view kFromHalfWidth = U"。「」、・ヲァィゥェォャュョッーアイウエオカキクケコサシスセソ"
                                               U"タチツテトナニヌネノハヒフヘホマミムメモヤユヨラリルレロワン゛゜";
static_assert(kFromHalfWidth.size() == 0xFF9F - 0xFF61 + 1);
/// Small kana beside the large one that it counts as.
constexpr std::u32string_view kSmall = U"ァィゥェォッャュョヮヵヶ";
constexpr std::u32string_view kLarge = U"アイウエオツヤユヨワカケ";
static_assert(kSmall.size() == kLarge.size());
/// Full-width signs beyond the ASCII block, and what they are in half width.
constexpr std::u32string_view kWideSigns = U"￠￡￢￣￤￥￦";
constexpr std::u32string_view kNarrowSigns = U"¢£¬¯¦¥₩";
/// Kana that take a 濁点, and with it.
constexpr std::u32string_view kPlain = U"カキクケコサシスセソタチツテトハヒフヘホウワヲヽ";
constexpr std::u32string_view kVoiced = U"ガギグゲゴザジズゼゾダヂヅデドバビブベボヴヷヺヾ";
constexpr std::u32string_view kPlainHa = U"ハヒフヘホ";
constexpr std::u32string_view kHalfVoiced = U"パピプペポ";
static_assert(kPlain.size() == kVoiced.size());

bool isAscii(char c)
{
    return static_cast<unsigned char>(c) < 0x80;
}

bool isContinuation(std::string_view text, std::size_t at)
{
    return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U;
}

/// One code point at `at`, which moves behind it; `sound` turns false for a byte that is no UTF-8.
char32_t decodeOne(std::string_view text, std::size_t &at, bool &sound)
{
    const auto lead = static_cast<unsigned char>(text[at]);
    if (lead < 0x80) {
        ++at;
        return lead;
    }
    const std::size_t length = lead >= 0xC2 && lead <= 0xDF   ? 2U
                               : lead >= 0xE0 && lead <= 0xEF ? 3U
                               : lead >= 0xF0 && lead <= 0xF4 ? 4U
                                                              : 1U;
    bool whole = length > 1;
    for (std::size_t i = 1; i < length; ++i) whole = whole && isContinuation(text, at + i);
    char32_t code = lead & (0xFFU >> (length + 1));
    for (std::size_t i = 1; whole && i < length; ++i)
        code = (code << 6U) | (static_cast<unsigned char>(text[at + i]) & 0x3FU);
    const bool real = whole && !(length == 3 && (code < 0x800 || (code >= 0xD800 && code < 0xE000))) &&
                      !(length == 4 && (code < 0x10000 || code > 0x10FFFF));
    sound = sound && real;
    at += real ? length : 1;
    return real ? code : kReplacement;
}

/// Three bytes from U+1000 to U+CFFF, kana and kanji among them: no overlong form, no half of a pair.
bool isCommonThree(std::string_view text, std::size_t at)
{
    const auto lead = static_cast<unsigned char>(text[at]);
    return lead >= 0xE1 && lead <= 0xEC && isContinuation(text, at + 1) && isContinuation(text, at + 2);
}

void appendUtf8(std::string &text, char32_t code)
{
    const auto byte = [&text](char32_t value) { text += static_cast<char>(static_cast<unsigned char>(value)); };
    if (code < 0x80) return byte(code);
    if (code < 0x800) {
        byte(0xC0U | (code >> 6U));
    } else {
        if (code < 0x10000) {
            byte(0xE0U | (code >> 12U));
        } else {
            byte(0xF0U | (code >> 18U));
            byte(0x80U | ((code >> 12U) & 0x3FU));
        }
        byte(0x80U | ((code >> 6U) & 0x3FU));
    }
    byte(0x80U | (code & 0x3FU));
}

char32_t mapped(char32_t c, std::u32string_view from, std::u32string_view to)
{
    const std::size_t at = from.find(c);
    return at == std::u32string_view::npos ? c : to[at];
}

char32_t foldCase(char32_t c)
{
    if (c >= U'A' && c <= U'Z') return c + 0x20;
    if (c < 0xC0) return c;
    if (c <= 0xDE) return c == 0xD7 ? c : c + 0x20;
    if (c >= 0x391 && c <= 0x3A9) return c + 0x20;
    if (c >= 0x410 && c <= 0x42F) return c + 0x20;
    if (c >= 0x400 && c <= 0x40F) return c + 0x50;
    if (c >= 0x2160 && c <= 0x216B) return c + 0x10;
    if (c >= 0x24B6 && c <= 0x24CF) return c + 0x1A;
    return c;
}

/// One character without its width, kana kind and case; the signs of voicing are joined by the caller.
char32_t foldOne(char32_t c)
{
    if (c < 0x80) return foldCase(c);
    if (c >= 0xFF01 && c <= 0xFF5E) return foldCase(c - 0xFF01 + 0x21);
    if (c == 0x3000) return U' ';
    if (c >= 0xFF61 && c <= 0xFF9F) c = kFromHalfWidth[c - 0xFF61];
    if (c >= 0xFFE0 && c <= 0xFFE6) return mapped(c, kWideSigns, kNarrowSigns);
    if ((c >= 0x3041 && c <= 0x3096) || c == 0x309D || c == 0x309E) c += 0x60;
    if (c >= 0x30A1 && c <= 0x30F6) return mapped(c, kSmall, kLarge);
    return foldCase(c);
}

/// The kana before a sign of voicing, with it; 0 when they do not join.
char32_t voiced(char32_t kana, char32_t sign)
{
    const bool isHalf = sign == 0xFF9F || sign == 0x309A;
    const char32_t joined = isHalf ? mapped(kana, kPlainHa, kHalfVoiced) : mapped(kana, kPlain, kVoiced);
    return joined == kana ? 0 : joined;
}

/// A half-width ﾞ or ﾟ, or a combining one, which belong to the kana before them. The full-width ゛ stands alone.
bool isVoicing(char32_t c)
{
    return c == 0xFF9E || c == 0xFF9F || c == 0x3099 || c == 0x309A;
}

void appendFolded(std::u32string &folded, char32_t c)
{
    if (isVoicing(c) && !folded.empty()) {
        const char32_t joined = voiced(folded.back(), c);
        if (joined != 0) {
            folded.back() = joined;
            return;
        }
    }
    folded += foldOne(c);
}

char32_t foldAscii(char c)
{
    return foldCase(static_cast<unsigned char>(c));
}

/// How many characters from the start are ASCII and the same in both texts.
std::size_t asciiPrefix(std::string_view a, std::string_view b)
{
    const std::size_t most = std::min(a.size(), b.size());
    std::size_t count = 0;
    while (count < most && isAscii(a[count]) && isAscii(b[count]) && foldAscii(a[count]) == foldAscii(b[count]))
        ++count;
    return count;
}

} // namespace

void decodeUtf8(std::string_view text, std::u32string &decoded)
{
    decoded.clear();
    bool sound = true;
    for (std::size_t at = 0; at < text.size();) decoded += decodeOne(text, at, sound);
}

std::string soundUtf8(std::string_view text)
{
    // Every text of every row comes through here, and nearly all of them are such characters.
    std::size_t at = 0;
    while (at < text.size() && (isAscii(text[at]) || isCommonThree(text, at))) at += isAscii(text[at]) ? 1U : 3U;
    bool sound = true;
    while (sound && at < text.size()) (void)decodeOne(text, at, sound);
    if (sound) return std::string(text);
    std::string repaired;
    for (at = 0; at < text.size();) appendUtf8(repaired, decodeOne(text, at, sound));
    return repaired;
}

void foldJapanese(std::string_view text, std::u32string &folded)
{
    folded.clear();
    bool sound = true;
    for (std::size_t at = 0; at < text.size();) appendFolded(folded, decodeOne(text, at, sound));
}

int compareJapanese(std::string_view a, std::string_view b)
{
    while (!a.empty() && a.back() == ' ') a.remove_suffix(1);
    while (!b.empty() && b.back() == ' ') b.remove_suffix(1);
    const std::size_t same = asciiPrefix(a, b);
    if (same == a.size() && same == b.size()) return 0;
    // Two ASCII characters that differ decide at once: what follows cannot join with them.
    if (same < a.size() && same < b.size() && isAscii(a[same]) && isAscii(b[same]))
        return foldAscii(a[same]) < foldAscii(b[same]) ? -1 : 1;
    static thread_local std::u32string left, right; // reused: a join compares some 100,000 texts
    foldJapanese(a, left);
    foldJapanese(b, right);
    for (std::u32string *text : {&left, &right})
        while (!text->empty() && text->back() == U' ') text->pop_back();
    return left.compare(right);
}

LikePattern::LikePattern(std::string_view pattern, char32_t escape)
{
    std::u32string raw, literal;
    decodeUtf8(pattern, raw);
    for (std::size_t at = 0; at < raw.size();) {
        const char32_t c = raw[at];
        const bool escaped = escape != 0 && c == escape && at + 1 < raw.size();
        if (escaped || (c != U'%' && c != U'_' && c != U'[')) {
            literal += raw[at + (escaped ? 1 : 0)];
            at += escaped ? 2 : 1;
            continue;
        }
        addLiteral(literal);
        literal.clear();
        if (c == U'[') {
            at = addClass(raw, at);
            continue;
        }
        m_elements.push_back({c == U'%' ? Kind::run : Kind::any});
        ++at;
    }
    addLiteral(literal);
}

/// Folded as one text, so that ﾀﾞ in a pattern is one character as it is in the column.
void LikePattern::addLiteral(const std::u32string &raw)
{
    std::u32string folded;
    for (const char32_t c : raw) appendFolded(folded, c);
    for (const char32_t c : folded) m_elements.push_back({Kind::one, c});
}

std::size_t LikePattern::addClass(const std::u32string &pattern, std::size_t at)
{
    const std::size_t closing = pattern.find(U']', at + 1);
    Element element{Kind::oneOf}; // without its ] it fits no character at all
    if (closing == std::u32string::npos) {
        m_elements.push_back(element);
        return pattern.size();
    }
    ++at;
    element.negated = at < closing && pattern[at] == U'^';
    if (element.negated) ++at;
    std::u32string members;
    for (; at < closing; ++at) appendFolded(members, pattern[at]);
    for (std::size_t i = 0; i < members.size(); ++i) {
        const bool isRange = i + 2 < members.size() && members[i + 1] == U'-';
        element.ranges.emplace_back(members[i], members[i + (isRange ? 2 : 0)]);
        if (isRange) i += 2;
    }
    m_elements.push_back(std::move(element));
    return closing + 1;
}

bool LikePattern::fits(const Element &element, char32_t character)
{
    if (element.kind == Kind::one) return element.character == character;
    if (element.kind == Kind::any) return true;
    const bool inside = std::any_of(element.ranges.begin(), element.ranges.end(), [character](const auto &range) {
        return range.first <= character && character <= range.second;
    });
    return inside != element.negated;
}

bool LikePattern::matches(std::string_view text) const
{
    static thread_local std::u32string folded; // reused: a search folds some 100,000 texts
    foldJapanese(text, folded);
    std::size_t at = 0, element = 0;
    std::size_t runElement = m_elements.size(), runAt = 0;
    while (at < folded.size()) {
        if (element < m_elements.size() && m_elements[element].kind == Kind::run) {
            runElement = element++;
            runAt = at;
        } else if (element < m_elements.size() && fits(m_elements[element], folded[at])) {
            ++element;
            ++at;
        } else if (runElement < m_elements.size()) {
            element = runElement + 1; // let the last % take one character more
            at = ++runAt;
        } else {
            return false;
        }
    }
    while (element < m_elements.size() && m_elements[element].kind == Kind::run) ++element;
    return element == m_elements.size();
}

} // namespace inin
