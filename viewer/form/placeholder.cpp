#include "viewer/form/placeholder.h"

#include "runtime/runtime_error.h"
#include "runtime/text.h"

#include <fmt/format.h>

namespace inin::viewer {

namespace {

constexpr std::string_view kOpen = "{{";
constexpr std::string_view kClose = "}}";

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
    piece.pattern = trim(rest.substr(0, second));
    if (second != std::string_view::npos) piece.whenBlank = rest.substr(second + 1);
    return piece;
}

} // namespace

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

} // namespace inin::viewer
