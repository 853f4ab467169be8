#include "suite_text/profile_text.h"

#include "suite_text/profile_lines.h"
#include "suite_text/unicode_mark.h"

namespace inin {

namespace {

constexpr std::string_view kNewLineEnd = "\r\n";
/// The platform reads a double byte that is not a character as "・".
constexpr std::string_view kUnknownPair = "\x81\x45";

std::string_view withoutQuotes(std::string_view value)
{
    const bool quoted =
        value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front();
    return quoted ? value.substr(1, value.size() - 2) : value;
}

/// At most `limit` bytes; a double byte across the limit is dropped whole.
std::string fitted(std::string_view value, std::size_t limit)
{
    std::string out;
    for (std::size_t at = 0; at < value.size(); at += characterAt(value, at).size()) {
        std::string_view character = characterAt(value, at);
        if (isBroken(character)) character = kUnknownPair;
        if (out.size() + character.size() > limit) break;
        out += character;
    }
    return out;
}

/// A list of names, each ended by a NUL, in a buffer that ends in a further NUL; names that do not fit are cut.
std::string nameList(std::string_view bytes, LineKind kind, std::size_t size)
{
    std::string names;
    Lines lines(bytes);
    for (ProfileLine line; lines.read(line);) {
        const bool comment = kind == LineKind::entry && line.name.starts_with(';');
        if (line.kind == kind && !line.name.empty() && !comment) names.append(line.name).push_back('\0');
    }
    if (size < 2) return {};
    return names.size() < size ? names : fitted(names, size - 2) + '\0';
}

std::optional<std::string_view> rawValue(std::string_view bytes, std::string_view section, std::string_view key)
{
    const auto place = findSection(bytes, section);
    if (!place) return std::nullopt;
    const auto line = findKey(bytes, *place, key);
    if (!line || line->kind != LineKind::entry) return std::nullopt;
    return withoutQuotes(untilNul(trimmedBoth(line->value)));
}

/// The last byte is not enough: a lead byte consumes a line end.
bool endsInLineEnd(std::string_view bytes)
{
    bool ended = true;
    Lines lines(bytes);
    for (ProfileLine line; lines.read(line);) ended = line.end < line.next;
    return ended;
}

/// Inserts a line before `at`; adds a line end to an unfinished last line first.
std::string inserted(std::string_view bytes, std::size_t at, const std::string &line)
{
    std::string out(bytes.substr(0, at));
    if (!endsInLineEnd(out)) out += kNewLineEnd;
    return out.append(line).append(kNewLineEnd).append(bytes.substr(at));
}

std::string replaced(std::string_view bytes, std::size_t begin, std::size_t end, std::string_view by)
{
    return std::string(bytes.substr(0, begin)).append(by).append(bytes.substr(end));
}

std::string withEntry(std::string_view bytes, std::string_view section, std::string_view key, std::string_view value)
{
    value = trimmedLeft(untilNul(value));
    const std::string entry = std::string(trimmedLeft(untilNul(key))).append("=").append(value);
    const auto place = findSection(bytes, section);
    if (!place)
        return inserted(bytes, bytes.size(),
                        std::string("[").append(trimmedLeft(untilNul(section))).append("]\r\n") + entry);
    const auto line = findKey(bytes, *place, key);
    if (!line) return inserted(bytes, place->lastText, entry);
    if (line->kind == LineKind::entry) return replaced(bytes, line->valueBegin, line->end, value);
    return replaced(bytes, line->begin, line->end, std::string(line->name).append("=").append(value));
}

std::string withoutKey(std::string_view bytes, const Section &section, std::string_view key)
{
    const auto line = findKey(bytes, section, key);
    return line ? replaced(bytes, line->begin, line->next, {}) : std::string(bytes);
}

} // namespace

bool isBareProfileName(std::string_view file)
{
    return file.find_first_of("\\/") == std::string_view::npos;
}

std::string profileString(std::string_view bytes, ProfileBytes section, ProfileBytes key, std::string_view defaultValue,
                          std::size_t size)
{
    if (const auto plain = unmarked(bytes)) return profileString(*plain, section, key, defaultValue, size);
    if (!section) return nameList(bytes, LineKind::section, size);
    if (!key) {
        const auto place = findSection(bytes, *section);
        return place ? nameList(bytes.substr(place->begin, place->end - place->begin), LineKind::entry, size)
                     : std::string();
    }
    if (size == 0) return {};
    const auto value = rawValue(bytes, *section, *key);
    // The platform drops trailing blanks of a default too.
    defaultValue = untilNul(defaultValue);
    const auto text = value ? *value : defaultValue.substr(0, defaultValue.find_last_not_of(' ') + 1);
    return fitted(text, size - 1);
}

std::int32_t profileInt(std::string_view bytes, ProfileBytes section, ProfileBytes key, std::int32_t defaultValue)
{
    if (const auto plain = unmarked(bytes)) return profileInt(*plain, section, key, defaultValue);
    const auto value = section && key ? rawValue(bytes, *section, *key) : std::nullopt;
    if (!value) return defaultValue;
    std::string_view digits = trimmedLeft(*value);
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
    if (const auto plain = unmarked(bytes)) return markedLike(bytes, *profileWrite(*plain, section, key, value));
    if (key && value) return withEntry(bytes, *section, *key, *value);
    const auto place = findSection(bytes, *section);
    if (!place) return std::string(bytes);
    return key ? withoutKey(bytes, *place, *key) : replaced(bytes, place->titleBegin, place->end, {});
}

} // namespace inin
