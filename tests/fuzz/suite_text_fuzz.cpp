// The suite's own text files: code page 932, files that an editor saved as Unicode, and profile files. The profile calls
// are compared with a reader that is written apart from them and simpler.

#include "fuzz/fuzz_input.h"
#include "suite_text/code_page_932.h"
#include "suite_text/profile_text.h"
#include "suite_text/unicode_mark.h"

#include <optional>
#include <string>
#include <vector>

using namespace inin;
using inin::fuzz::require;

namespace {

void checkDecoding(std::string_view input)
{
    const std::string text = decodeCp932(input);
    const std::string bytes = encodeCp932(text);
    const bool isLossless = text.find("\uFFFD") == std::string::npos;
    if (isLossless) require(decodeCp932(bytes) == text, "text of the code page survives being encoded");
    require(text.size() <= 3 * input.size(), "a byte becomes three at most");
}

void checkEncoding(std::string_view input)
{
    const std::string bytes = encodeCp932(input);
    require(bytes.size() <= input.size(), "no character takes more bytes than in UTF-8");
    const std::string text = decodeCp932(bytes);
    require(text.find("\uFFFD") == std::string::npos, "encoded bytes are characters of the code page");
    require(encodeCp932(text) == bytes, "encoding what was encoded changes nothing");
}

void checkUnicodeMark(std::string_view input)
{
    const auto text = unmarked(input);
    const auto marked = markedLike(input, text.value_or(""));
    require(text || !marked, "a file without a mark stays without one");
    if (marked) require(unmarked(*marked) == text, "a marked file keeps its text");
}

// The naive reader: one pass over characters, one list of lines.

using Text = std::vector<std::string>;

Text charactersOf(std::string_view bytes)
{
    Text characters;
    while (!bytes.empty()) {
        const std::string_view one = bytes.substr(0, isCp932Lead(static_cast<unsigned char>(bytes[0])) ? 2 : 1);
        characters.emplace_back(one);
        bytes.remove_prefix(one.size());
    }
    return characters;
}

std::string joined(const Text &characters)
{
    std::string bytes;
    for (const std::string &character : characters) bytes += character;
    return bytes;
}

std::string trimmed(std::string text)
{
    constexpr std::string_view kBlanks = "\t\n\v\f\r \x1A";
    while (!text.empty() && kBlanks.find(text.front()) != std::string_view::npos) text.erase(0, 1);
    while (!text.empty() && kBlanks.find(text.back()) != std::string_view::npos) text.pop_back();
    return text;
}

std::string folded(std::string_view name)
{
    std::string text;
    for (const std::string &character : charactersOf(name)) {
        if (character.size() == 1 && character[0] >= 'A' && character[0] <= 'Z')
            text += static_cast<char>(character[0] + 'a' - 'A');
        else
            text += character;
    }
    return text;
}

std::vector<Text> linesOf(std::string_view bytes)
{
    std::vector<Text> lines(1);
    for (const std::string &character : charactersOf(bytes)) {
        if (character == "\r" || character == "\n")
            lines.emplace_back();
        else
            lines.back().push_back(character);
    }
    return lines;
}

std::string naiveValue(std::string_view bytes, std::string_view section, std::string_view key,
                       const std::string &defaultValue)
{
    bool isInside = false;
    for (const Text &line : linesOf(bytes)) {
        const std::string text = trimmed(joined(line));
        const auto bracket = std::find(line.rbegin(), line.rend(), "]");
        if (text.starts_with('[') && bracket != line.rend()) {
            if (isInside) return defaultValue;
            const std::string title = joined({line.begin(), bracket.base() - 1});
            isInside = folded(trimmed(title.substr(title.find('[') + 1))) == folded(section);
            continue;
        }
        const auto equals = std::find(line.begin(), line.end(), "=");
        if (!isInside || folded(trimmed(joined({line.begin(), equals}))) != folded(key)) continue;
        if (equals == line.end()) return defaultValue;
        std::string value = trimmed(joined({equals + 1, line.end()}));
        const bool isQuoted =
            value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front();
        return isQuoted ? value.substr(1, value.size() - 2) : value;
    }
    return defaultValue;
}

/// A name without the bytes that have a meaning of their own.
bool isPlainName(std::string_view name)
{
    return !name.empty() && name.size() < 100 && std::ranges::all_of(name, [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    });
}

/// A line with the section, one with the key, then the file.
void checkProfileRead(std::string_view input)
{
    constexpr std::size_t kSizes[] = {0, 1, 2, 7, 255, 4096};
    const std::string_view section = fuzz::takePart(input), key = fuzz::takePart(input);
    for (const std::size_t size : kSizes) {
        const std::size_t longest = size == 0 ? 0 : size - 1;
        require(profileString(input, section, key, "default", size).size() <= longest, "a value fits its buffer");
        require(profileString(input, section, std::nullopt, "", size).size() <= longest, "keys fit their buffer");
        require(profileString(input, std::nullopt, std::nullopt, "", size).size() <= longest,
                "sections fit their buffer");
    }
    (void)profileInt(input, section, key, 7);
    const bool isComparable =
        isPlainName(section) && isPlainName(key) && input.find('\0') == std::string_view::npos && !unmarked(input);
    if (!isComparable) return;
    const std::string naive = naiveValue(input, section, key, "default");
    // An invalid double byte is read as another character, which the naive reader does not know.
    if (decodeCp932(naive).find("\uFFFD") != std::string::npos) return;
    require(profileString(input, section, key, "default", input.size() + 100) == naive,
            "a value is what the naive reader finds");
}

/// A line with the section, one with the key, one with the new value, then the file.
void checkProfileWrite(std::string_view input)
{
    const std::string_view section = fuzz::takePart(input), key = fuzz::takePart(input), value = fuzz::takePart(input);
    const std::size_t size = input.size() + value.size() + 100;
    const auto written = profileWrite(input, section, key, value);
    (void)profileWrite(input, section, std::nullopt, std::nullopt);
    const auto deleted = profileWrite(input, section, key, std::nullopt);
    const bool isMarked = unmarked(input).has_value();
    require(isMarked || written.has_value(), "a file of the code page can be written");
    if (!written || isMarked || !isPlainName(section) || !isPlainName(key)) return;
    require(written->size() <= input.size() + section.size() + key.size() + value.size() + 16,
            "a write adds one entry");
    if (isPlainName(value)) {
        require(profileString(*written, section, key, "default", size) == value, "a written value is read back");
        require(profileWrite(*written, section, key, value) == written, "writing a value twice changes nothing");
    }
    require(deleted && deleted->size() <= input.size(), "deleting a key adds nothing");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    return fuzz::runChoice({checkDecoding, checkEncoding, checkUnicodeMark, checkProfileRead, checkProfileWrite}, data,
                           size);
}
