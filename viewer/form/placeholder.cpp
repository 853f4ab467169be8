#include "viewer/form/placeholder.h"

#include "runtime/runtime_error.h"
#include "runtime/text.h"

#include <fmt/format.h>

#include <algorithm>

namespace inin::viewer {

namespace {

constexpr std::string_view kOpen = "{{";
constexpr std::string_view kClose = "}}";

bool isWordList(std::string_view pattern)
{
    bool isQuoted = false;
    for (const char c : pattern) {
        if (c == '"') isQuoted = !isQuoted;
        if (c == '=' && !isQuoted) return true;
    }
    return false;
}

CodeWords readWords(std::string_view list)
{
    CodeWords words;
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(';'), list.size());
        const std::string_view entry = list.substr(0, end);
        list.remove_prefix(std::min(end + 1, list.size()));
        const std::size_t sign = entry.find('=');
        if (sign == std::string_view::npos) {
            if (!isBlankText(entry))
                throw RuntimeError(error_number::invalidCall,
                                   fmt::format("コードの一覧の「{}」に「=」がありません。", left(entry, 40)));
            continue;
        }
        const std::string code(withoutOuterBlanks(entry.substr(0, sign)));
        const std::string word(withoutOuterBlanks(entry.substr(sign + 1)));
        if (code == "*")
            words.otherwise = word;
        else
            words.words.emplace_back(code, word);
    }
    // Of a code that is listed twice, the first word counts.
    std::ranges::stable_sort(words.words, {}, &std::pair<std::string, std::string>::first);
    return words;
}

TextPiece readField(std::string_view inside)
{
    const std::size_t first = inside.find('|');
    TextPiece piece;
    piece.column = trim(inside.substr(0, first));
    if (piece.column.empty())
        throw RuntimeError(error_number::invalidCall, fmt::format("「{{{{{}}}}}」に列の名前がありません。", inside));
    if (first == std::string_view::npos) return piece;
    const std::string_view rest = inside.substr(first + 1);
    const std::size_t second = rest.find('|');
    const std::string pattern = trim(rest.substr(0, second));
    if (isWordList(pattern))
        piece.words = readWords(pattern);
    else
        piece.pattern = pattern;
    if (second != std::string_view::npos) piece.whenBlank = rest.substr(second + 1);
    return piece;
}

} // namespace

const std::string *CodeWords::wordFor(std::string_view value) const
{
    const std::string_view code = withoutOuterBlanks(value);
    const auto found = std::ranges::lower_bound(words, code, {}, &std::pair<std::string, std::string>::first);
    if (found != words.end() && found->first == code) return &found->second;
    return otherwise ? &*otherwise : nullptr;
}

bool TextPiece::isDateToFillIn() const
{
    return !pattern.empty() && (whenBlank.empty() || whenBlank.find(kWideBlank) != std::string::npos);
}

std::vector<TextPiece> readPieces(std::string_view text)
{
    std::vector<TextPiece> pieces;
    while (!text.empty()) {
        const std::size_t open = text.find(kOpen);
        if (open != 0) pieces.push_back({std::string(text.substr(0, open)), {}, {}, {}});
        if (open == std::string_view::npos) break;
        const std::size_t close = text.find(kClose, open);
        if (close == std::string_view::npos)
            throw RuntimeError(error_number::invalidCall,
                               fmt::format("「{}」の「{{{{」が閉じられていません。", left(text, 40)));
        pieces.push_back(readField(text.substr(open + kOpen.size(), close - open - kOpen.size())));
        text.remove_prefix(close + kClose.size());
    }
    return pieces;
}

bool isBlankText(std::string_view text)
{
    while (text.starts_with(' ') || text.starts_with(kWideBlank))
        text.remove_prefix(text.starts_with(' ') ? 1 : kWideBlank.size());
    return text.empty();
}

std::string_view withoutOuterBlanks(std::string_view text)
{
    while (true) {
        if (text.starts_with(' ') || text.starts_with('\t'))
            text.remove_prefix(1);
        else if (text.starts_with(kWideBlank))
            text.remove_prefix(kWideBlank.size());
        else if (text.ends_with(' ') || text.ends_with('\t'))
            text.remove_suffix(1);
        else if (text.ends_with(kWideBlank))
            text.remove_suffix(kWideBlank.size());
        else
            return text;
    }
}

} // namespace inin::viewer
