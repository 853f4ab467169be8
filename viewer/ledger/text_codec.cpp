#include "viewer/ledger/text_codec.h"

#include <optional>

namespace inin::viewer {

namespace {

constexpr unsigned kBits = 7;
constexpr unsigned char kMore = 0x80;

void append(std::string &out, std::string_view text)
{
    std::size_t number = text.size() + 1;
    for (; number >= kMore; number >>= kBits) out += static_cast<char>((number & (kMore - 1U)) | kMore);
    out += static_cast<char>(number);
    out += text;
}

/// Takes the next number. At the end and for damaged bytes it is 1, the number of an empty text.
std::size_t takeNumber(std::string_view &bytes)
{
    constexpr unsigned kMostBits = 35;
    std::size_t number = 0;
    for (unsigned shift = 0; shift < kMostBits && !bytes.empty(); shift += kBits) {
        const auto byte = static_cast<unsigned char>(bytes.front());
        bytes.remove_prefix(1);
        number |= static_cast<std::size_t>(byte & (kMore - 1U)) << shift;
        if ((byte & kMore) == 0) return number;
    }
    return 1;
}

/// Takes the next text; nothing for one that equals the first letter's.
std::optional<std::string_view> takeText(std::string_view &bytes)
{
    const std::size_t number = takeNumber(bytes);
    if (number == 0) return std::nullopt;
    const std::string_view text = bytes.substr(0, number - 1);
    bytes.remove_prefix(text.size());
    return text;
}

} // namespace

std::string encodedList(const std::vector<std::string> &texts)
{
    std::string out;
    for (const std::string &text : texts) append(out, text);
    return out;
}

std::vector<std::string> decodedList(std::string_view bytes)
{
    std::vector<std::string> texts;
    while (!bytes.empty()) texts.emplace_back(takeText(bytes).value_or(std::string_view()));
    return texts;
}

std::string encodedLetter(const RunTexts &texts, std::size_t letter)
{
    std::string out;
    for (std::size_t column = 0; column < texts.columns().size(); ++column) {
        const std::string_view text = texts.value(letter, column);
        if (letter > 0 && text == texts.value(0, column))
            out += '\0';
        else
            append(out, text);
    }
    return out;
}

void addDecodedLetter(RunTexts &texts, std::string_view bytes)
{
    const bool isFirst = texts.size() == 0;
    for (std::size_t column = 0; column < texts.columns().size(); ++column) {
        const std::optional<std::string_view> text = takeText(bytes);
        const std::string_view first = isFirst ? std::string_view() : texts.value(0, column);
        texts.add(text.value_or(first));
    }
}

} // namespace inin::viewer
