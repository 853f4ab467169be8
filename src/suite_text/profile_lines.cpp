#include "suite_text/profile_lines.h"

#include "suite_text/code_page_932.h"

#include <algorithm>

namespace inin {

namespace {

constexpr std::string_view kBlanks = "\t\n\v\f\r \x1A";
constexpr std::string_view kLineEnd = "\r\n";

char16_t unitOf(std::string_view character)
{
    return cp932Unit(static_cast<unsigned char>(character[0]), static_cast<unsigned char>(character[1]));
}

char asciiFolded(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool sameCharacter(std::string_view a, std::string_view b)
{
    if (a.size() != b.size()) return false;
    if (a.size() == 1) return asciiFolded(a[0]) == asciiFolded(b[0]);
    return a == b || (unitOf(a) != 0 && unitOf(a) == unitOf(b));
}

bool sameName(std::string_view a, std::string_view b)
{
    if (a.size() != b.size()) return false;
    for (std::size_t at = 0; at < a.size(); at += characterAt(a, at).size())
        if (!sameCharacter(characterAt(a, at), characterAt(b, at))) return false;
    return true;
}

} // namespace

std::string_view trimmedLeft(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    return text;
}

std::string_view trimmedBoth(std::string_view text)
{
    text = trimmedLeft(text);
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

std::string_view untilNul(std::string_view text)
{
    return text.substr(0, text.find('\0'));
}

std::string_view characterAt(std::string_view text, std::size_t at)
{
    return text.substr(at, isCp932Lead(static_cast<unsigned char>(text[at])) ? 2 : 1);
}

bool isBroken(std::string_view character)
{
    return isCp932Lead(static_cast<unsigned char>(character[0])) && (character.size() == 1 || unitOf(character) == 0);
}

bool Lines::read(ProfileLine &line)
{
    if (m_at >= m_bytes.size()) return false;
    line = ProfileLine{};
    line.begin = m_at;
    std::size_t equals = std::string_view::npos, bracket = std::string_view::npos, at = m_at;
    for (; at < m_bytes.size(); at += characterAt(m_bytes, at).size()) {
        const char c = m_bytes[at];
        if (c == '\r' || c == '\n') break;
        if (c == '=' && equals == std::string_view::npos) equals = at;
        if (c == ']') bracket = at;
    }
    line.end = at;
    line.next = std::min(at + (m_bytes.substr(at, 2) == kLineEnd ? 2 : 1), m_bytes.size());
    classify(line, equals, bracket);
    m_at = line.next;
    return true;
}

void Lines::classify(ProfileLine &line, std::size_t equals, std::size_t bracket) const
{
    const std::string_view content = trimmedBoth(m_bytes.substr(line.begin, line.end - line.begin));
    // A section title ends at the last bracket of its line: "[a]b]" names "a]b".
    if (content.starts_with('[') && bracket != std::string_view::npos) {
        const auto first = static_cast<std::size_t>(content.data() - m_bytes.data()) + 1;
        line.kind = LineKind::section;
        line.name = untilNul(trimmedBoth(m_bytes.substr(first, bracket - first)));
    } else if (equals != std::string_view::npos) {
        line.kind = LineKind::entry;
        line.name = untilNul(trimmedBoth(m_bytes.substr(line.begin, equals - line.begin)));
        line.valueBegin = equals + 1;
        line.value = m_bytes.substr(line.valueBegin, line.end - line.valueBegin);
    } else {
        line.name = untilNul(content);
    }
}

std::optional<Section> findSection(std::string_view bytes, std::string_view name)
{
    name = trimmedBoth(untilNul(name));
    std::optional<Section> found;
    if (name.empty()) found = Section{};
    Lines lines(bytes);
    for (ProfileLine line; lines.read(line);) {
        if (line.kind == LineKind::section) {
            if (found) break;
            if (sameName(line.name, name)) found = Section{line.begin, line.next, line.next, line.next};
        } else if (found) {
            found->end = line.next;
            if (!line.isBlank()) found->lastText = line.next;
        }
    }
    return found;
}

std::optional<ProfileLine> findKey(std::string_view bytes, const Section &section, std::string_view key)
{
    key = trimmedBoth(untilNul(key));
    Lines lines(bytes.substr(section.begin, section.end - section.begin));
    for (ProfileLine line; lines.read(line);) {
        if (line.isBlank() || !sameName(line.name, key)) continue;
        for (std::size_t *place : {&line.begin, &line.valueBegin, &line.end, &line.next}) *place += section.begin;
        return line;
    }
    return std::nullopt;
}

} // namespace inin
