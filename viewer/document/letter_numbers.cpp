#include "viewer/document/letter_numbers.h"

#include "runtime/runtime_error.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <iterator>
#include <numeric>
#include <optional>

namespace inin::viewer {

namespace {

struct Spelling {
    std::string_view wide, plain;
};
/// Characters typed by an input method, and their ASCII meaning.
constexpr Spelling kSpellings[] = {
    {"０", "0"}, {"１", "1"}, {"２", "2"}, {"３", "3"}, {"４", "4"}, {"５", "5"}, {"６", "6"},
    {"７", "7"}, {"８", "8"}, {"９", "9"}, {"，", ","}, {"、", ","}, {"－", "-"}, {"ー", "-"},
    {"～", "-"}, {"−", "-"},  {"‐", "-"},  {"　", ""},  {"〜", "-"}, {" ", ""},   {"\t", ""},
};

std::string plainText(std::string_view text)
{
    std::string out;
    while (!text.empty()) {
        const auto *const found =
            std::ranges::find_if(kSpellings, [&](const Spelling &row) { return text.starts_with(row.wide); });
        const bool isKnown = found != std::end(kSpellings);
        out += isKnown ? found->plain : text.substr(0, 1);
        text.remove_prefix(isKnown ? found->wide.size() : 1);
    }
    return out;
}

std::optional<std::size_t> numberOf(std::string_view text)
{
    std::size_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

struct Range {
    std::size_t first, last;
};

/// "3", "2-5", "4-" and "-4"; a range may be descending.
std::optional<Range> rangeOf(std::string_view text, std::size_t count)
{
    const std::size_t dash = text.find('-');
    if (dash == std::string_view::npos) {
        const auto number = numberOf(text);
        return number ? std::optional<Range>({*number, *number}) : std::nullopt;
    }
    if (text.size() == 1) return std::nullopt;
    const std::string_view before = text.substr(0, dash), behind = text.substr(dash + 1);
    const auto first = before.empty() ? std::optional<std::size_t>(1) : numberOf(before);
    const auto last = behind.empty() ? std::optional<std::size_t>(count) : numberOf(behind);
    if (!first || !last) return std::nullopt;
    return Range{*first, *last};
}

[[noreturn]] void refuse(std::string sentence)
{
    throw RuntimeError(error_number::invalidCall, std::move(sentence));
}

} // namespace

std::vector<std::size_t> readLetterList(std::string_view text, std::size_t count)
{
    const std::string plain = plainText(text);
    std::vector<std::size_t> letters;
    if (plain.empty()) {
        letters.resize(count);
        std::iota(letters.begin(), letters.end(), std::size_t{0});
        return letters;
    }
    std::vector<bool> isTaken(count, false);
    const auto take = [&](std::size_t number) {
        if (number < 1 || number > count) refuse(fmt::format("{}番の委任状はありません（1～{}）。", number, count));
        if (!isTaken[number - 1]) letters.push_back(number - 1);
        isTaken[number - 1] = true;
    };
    for (std::string_view rest = plain; !rest.empty();) {
        const std::string_view part = rest.substr(0, rest.find(','));
        rest.remove_prefix(std::min(part.size() + 1, rest.size()));
        const auto range = part.empty() ? std::nullopt : rangeOf(part, count);
        if (!range) refuse(fmt::format("番号の指定「{}」は読めません。例：1-3,5", text));
        take(range->first);
        if (range->last > count) take(range->last); // refuses a huge number before the loop reaches it
        for (std::size_t n = range->first; n < range->last;) take(++n);
        for (std::size_t n = range->first; n > range->last;) take(--n);
    }
    return letters;
}

std::string letterSequenceText(const std::vector<std::size_t> &letters)
{
    const auto goesOn = [&](std::size_t at, bool isDescending) {
        if (at + 1 == letters.size()) return false;
        return isDescending ? letters[at] == letters[at + 1] + 1 : letters[at] + 1 == letters[at + 1];
    };
    std::string text;
    for (std::size_t i = 0; i < letters.size();) {
        const bool isDescending = goesOn(i, true);
        std::size_t last = i;
        while (goesOn(last, isDescending)) ++last;
        if (!text.empty()) text += ',';
        text += std::to_string(letters[i] + 1);
        if (last > i) text += "-" + std::to_string(letters[last] + 1);
        i = last + 1;
    }
    return text;
}

std::string letterListText(std::vector<std::size_t> letters)
{
    std::ranges::sort(letters);
    return letterSequenceText(letters);
}

} // namespace inin::viewer
