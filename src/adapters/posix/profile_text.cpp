#include "adapters/posix/profile_text.h"

#include "adapters/posix/code_page_932.h"

#include <algorithm>

namespace inin {

namespace {

constexpr std::string_view kBlanks = "\t\n\v\f\r ";
constexpr std::string_view kLineEnd = "\r\n";
/// What the platform reads for a double byte that is no character: "・".
constexpr std::string_view kUnknownPair = "\x81\x45";

std::string_view trimLeft(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    return text;
}

std::string_view trimmed(std::string_view text)
{
    text = trimLeft(text);
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

/// Bytes of the character at `at`. A lead byte takes whatever follows it, a bracket, "=" or line end too: these bytes
/// are common second halves (ー is 81 5B, ゾ is 83 5D).
std::size_t characterSize(std::string_view text, std::size_t at)
{
    return isCp932Lead(static_cast<unsigned char>(text[at])) && at + 1 < text.size() ? 2 : 1;
}

char16_t unitOf(std::string_view pair)
{
    return cp932Unit(static_cast<unsigned char>(pair[0]), static_cast<unsigned char>(pair[1]));
}

char asciiFolded(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Names compare by characters: ASCII letters without case, and a double byte equals its duplicate elsewhere in the
/// code page.
bool sameName(std::string_view a, std::string_view b)
{
    if (a.size() != b.size()) return false;
    for (std::size_t at = 0; at < a.size();) {
        const std::size_t size = characterSize(a, at);
        if (size != characterSize(b, at)) return false;
        const std::string_view inA = a.substr(at, size), inB = b.substr(at, size);
        const bool same = size == 1 ? asciiFolded(inA[0]) == asciiFolded(inB[0])
                                    : inA == inB || (unitOf(inA) != 0 && unitOf(inA) == unitOf(inB));
        if (!same) return false;
        at += size;
    }
    return true;
}

enum class LineKind { section, entry, other };

struct Line {
    LineKind kind = LineKind::other;
    std::string_view name;  ///< of the section or key, without blanks around; a line without "=" whole
    std::string_view value; ///< untrimmed
    std::size_t begin = 0;
    std::size_t valueBegin = 0; ///< behind the "="
    std::size_t end = 0;        ///< of the text, before the line's end
    std::size_t next = 0;
};

/// Walks the lines of a profile file. A line ends at CR, LF or CR LF.
class Lines {
public:
    explicit Lines(std::string_view bytes) : m_bytes(bytes) {}

    bool read(Line &line)
    {
        if (m_at >= m_bytes.size()) return false;
        line = Line{};
        line.begin = m_at;
        scan(line);
        m_at = line.next;
        return true;
    }

private:
    void scan(Line &line) const
    {
        std::size_t equals = std::string_view::npos, bracket = std::string_view::npos, at = m_at;
        for (; at < m_bytes.size(); at += characterSize(m_bytes, at)) {
            const char c = m_bytes[at];
            if (c == '\r' || c == '\n') break;
            if (c == '=' && equals == std::string_view::npos) equals = at;
            if (c == ']') bracket = at;
        }
        line.end = std::min(at, m_bytes.size());
        line.next = line.end + (m_bytes.substr(line.end, 2) == kLineEnd ? 2 : 1);
        line.next = std::min(line.next, m_bytes.size());
        classify(line, equals, bracket);
    }

    void classify(Line &line, std::size_t equals, std::size_t bracket) const
    {
        const std::string_view text = m_bytes.substr(line.begin, line.end - line.begin);
        const std::string_view content = trimmed(text);
        if (content.starts_with('[') && bracket != std::string_view::npos) {
            const auto first = static_cast<std::size_t>(content.data() - m_bytes.data()) + 1;
            line.kind = LineKind::section;
            line.name = trimmed(m_bytes.substr(first, bracket - first));
        } else if (equals != std::string_view::npos) {
            line.kind = LineKind::entry;
            line.name = trimmed(m_bytes.substr(line.begin, equals - line.begin));
            line.valueBegin = equals + 1;
            line.value = m_bytes.substr(line.valueBegin, line.end - line.valueBegin);
        } else {
            line.name = content;
        }
    }

    std::string_view m_bytes;
    std::size_t m_at = 0;
};

/// The lines of one section: from behind its title to the next title. The lines before the first title belong to the
/// section without a name. Of several sections of one name only the first counts.
struct Section {
    std::size_t titleBegin = 0;
    std::size_t begin = 0;
    std::size_t lastText = 0; ///< end of the last line that is not blank, its line end included
    std::size_t end = 0;
};

std::optional<Section> findSection(std::string_view bytes, std::string_view name)
{
    std::optional<Section> found;
    if (name.empty()) found = Section{};
    Lines lines(bytes);
    for (Line line; lines.read(line);) {
        if (line.kind == LineKind::section) {
            if (found) break;
            if (sameName(line.name, name)) found = Section{line.begin, line.next, line.next, line.next};
        } else if (found) {
            found->end = line.next;
            if (!line.name.empty() || line.kind == LineKind::entry) found->lastText = line.next;
        }
    }
    return found;
}

/// The first line of the section with this key, its places counted in the whole file.
std::optional<Line> findKey(std::string_view bytes, const Section &section, std::string_view key)
{
    Lines lines(bytes.substr(section.begin, section.end - section.begin));
    for (Line line; lines.read(line);) {
        const bool blank = line.kind == LineKind::other && line.name.empty();
        if (blank || !sameName(line.name, key)) continue;
        line.begin += section.begin;
        line.valueBegin += section.begin;
        line.end += section.begin;
        line.next += section.begin;
        return line;
    }
    return std::nullopt;
}

std::string_view withoutQuotes(std::string_view value)
{
    const bool quoted =
        value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front();
    return quoted ? value.substr(1, value.size() - 2) : value;
}

/// At most `limit` bytes; a double byte that would straddle the limit is dropped whole.
std::string fitted(std::string_view value, std::size_t limit)
{
    std::string out;
    for (std::size_t at = 0; at < value.size();) {
        const std::size_t size = characterSize(value, at);
        std::string_view character = value.substr(at, size);
        if (isCp932Lead(static_cast<unsigned char>(character[0])) && (size == 1 || unitOf(character) == 0))
            character = kUnknownPair;
        if (out.size() + character.size() > limit) break;
        out += character;
        at += size;
    }
    return out;
}

/// Names one after the other, each with its NUL, in a buffer that ends in one more; what does not fit is cut.
std::string nameList(std::string_view bytes, LineKind kind, std::size_t size)
{
    std::string names;
    Lines lines(bytes);
    for (Line line; lines.read(line);) {
        const bool comment = kind == LineKind::entry && line.name.starts_with(';');
        if (line.kind == kind && !line.name.empty() && !comment) names.append(line.name).push_back('\0');
    }
    if (size < 2) return {};
    return names.size() < size ? names : fitted(names, size - 2) + '\0';
}

std::optional<std::string_view> rawValue(std::string_view bytes, std::string_view section, std::string_view key)
{
    const auto place = findSection(bytes, trimmed(section));
    if (!place) return std::nullopt;
    const auto line = findKey(bytes, *place, trimmed(key));
    if (!line || line->kind != LineKind::entry) return std::nullopt;
    return withoutQuotes(trimmed(line->value));
}

/// Puts a line before `at`, closing a last line that has no end yet.
std::string inserted(std::string_view bytes, std::size_t at, const std::string &line)
{
    std::string out(bytes.substr(0, at));
    if (!out.empty() && out.back() != '\n' && out.back() != '\r') out += kLineEnd;
    return out.append(line).append(kLineEnd).append(bytes.substr(at));
}

std::string replaced(std::string_view bytes, std::size_t begin, std::size_t end, std::string_view by)
{
    return std::string(bytes.substr(0, begin)).append(by).append(bytes.substr(end));
}

std::string withEntry(std::string_view bytes, std::string_view section, std::string_view key, std::string_view value)
{
    const std::string entry = std::string(trimLeft(key)).append("=").append(value);
    const auto place = findSection(bytes, trimmed(section));
    if (!place)
        return inserted(bytes, bytes.size(), std::string("[").append(trimLeft(section)).append("]\r\n") + entry);
    const auto line = findKey(bytes, *place, trimmed(key));
    if (!line) return inserted(bytes, place->lastText, entry);
    if (line->kind == LineKind::entry) return replaced(bytes, line->valueBegin, line->end, value);
    return replaced(bytes, line->begin, line->end, std::string(line->name).append("=").append(value));
}

std::string withoutKey(std::string_view bytes, const Section &section, std::string_view key)
{
    const auto line = findKey(bytes, section, trimmed(key));
    return line ? replaced(bytes, line->begin, line->next, {}) : std::string(bytes);
}

} // namespace

std::string profileString(std::string_view bytes, ProfileBytes section, ProfileBytes key, std::string_view defaultValue,
                          std::size_t size)
{
    if (!section) return nameList(bytes, LineKind::section, size);
    if (!key) {
        const auto place = findSection(bytes, trimmed(*section));
        return place ? nameList(bytes.substr(place->begin, place->end - place->begin), LineKind::entry, size)
                     : std::string();
    }
    if (size == 0) return {};
    const auto value = rawValue(bytes, *section, *key);
    // The platform drops blanks behind a default too.
    const auto text = value ? *value : defaultValue.substr(0, defaultValue.find_last_not_of(' ') + 1);
    return fitted(text.substr(0, text.find('\0')), size - 1);
}

std::int32_t profileInt(std::string_view bytes, ProfileBytes section, ProfileBytes key, std::int32_t defaultValue)
{
    const auto value = section && key ? rawValue(bytes, *section, *key) : std::nullopt;
    if (!value) return defaultValue;
    std::string_view digits = trimLeft(*value);
    const bool negative = digits.starts_with('-');
    if (negative || digits.starts_with('+')) digits.remove_prefix(1);
    std::uint32_t number = 0;
    for (; !digits.empty() && digits[0] >= '0' && digits[0] <= '9'; digits.remove_prefix(1))
        number = number * 10 + static_cast<std::uint32_t>(digits[0] - '0');
    return static_cast<std::int32_t>(negative ? 0 - number : number);
}

std::optional<std::string> profileWrite(std::string_view bytes, ProfileBytes section, ProfileBytes key,
                                        ProfileBytes value)
{
    if (!section) return std::nullopt;
    if (key && value) return withEntry(bytes, *section, *key, *value);
    const auto place = findSection(bytes, trimmed(*section));
    if (!place) return std::string(bytes);
    return key ? withoutKey(bytes, *place, *key) : replaced(bytes, place->titleBegin, place->end, {});
}

} // namespace inin
