#include "viewer/document/mark_text.h"

#include "runtime/utf8.h"

#include <fmt/format.h>

#include <algorithm>

namespace inin::viewer {

namespace {

constexpr std::size_t kShown = 10;

void join(std::string &whole, std::string_view part)
{
    if (!whole.empty()) whole += "、";
    whole += part;
}

} // namespace

std::string columnNames(const LetterLayout &layout, const FieldMark &mark)
{
    const FormField &field = layout.fields()[mark.field];
    std::string names;
    for (const TextPiece &piece : std::get<TextCommand>(layout.form().commands[field.command]).pieces)
        if (piece.isField()) join(names, piece.column);
    return names;
}

std::string charactersText(const std::vector<char32_t> &characters)
{
    std::vector<char32_t> different = characters;
    std::ranges::sort(different);
    different.erase(std::unique(different.begin(), different.end()), different.end());
    std::string text;
    for (std::size_t i = 0; i < different.size() && i < kShown; ++i) {
        std::string one;
        // A control character would break the line on the screen.
        if (different[i] >= 0x20 && different[i] != 0x7F) appendUtf8(one, different[i]);
        join(text, fmt::format("「{}」（U+{:04X}）", one, static_cast<std::uint32_t>(different[i])));
    }
    if (different.size() > kShown) join(text, "…");
    return text;
}

std::string markText(const FieldMark &mark)
{
    std::string text;
    if (mark.doesNotFit)
        join(text, "枠に入りきらないため、途中で切りました");
    else if (mark.shrunk)
        join(text, "枠に入れるため、文字を小さくしました");
    if (mark.noDate) join(text, "日付として読めないため、そのまま表示しました");
    if (mark.noWord) join(text, "コードの一覧にない値なので、そのまま表示しました");
    if (!mark.missing.empty())
        join(text, fmt::format("フォントにない文字があります：{}", charactersText(mark.missing)));
    return text + "。";
}

} // namespace inin::viewer
