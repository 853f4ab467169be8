#include "viewer/form/cover_columns.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <string_view>
#include <variant>

namespace inin::viewer {

namespace {

constexpr std::string_view kNameColumn = "氏名", kNumberColumn = "番号";
constexpr std::size_t kMostNames = 1000; ///< on one page

/// The number in the name of a column, such as 12 in 氏名12; 0 if it is another column.
std::size_t numberIn(std::string_view column, std::string_view name)
{
    if (!column.starts_with(name)) return 0;
    column.remove_prefix(name.size());
    std::size_t number = 0;
    const auto [end, error] = std::from_chars(column.data(), column.data() + column.size(), number);
    return error == std::errc() && end == column.data() + column.size() && number <= kMostNames ? number : 0;
}

} // namespace

std::size_t coverNames(const FormDocument &form)
{
    std::size_t most = 0;
    for (const DrawCommand &command : form.commands)
        if (const auto *const text = std::get_if<TextCommand>(&command))
            for (const TextPiece &piece : text->pieces) most = std::max(most, numberIn(piece.column, kNameColumn));
    return most;
}

std::vector<std::string> coverColumns(const FormDocument &form)
{
    std::vector<std::string> columns = {"表題",     "保険者名", "保険者地区名", "通数",
                                        "束の番号", "束の数",   "ページ",       "ページ数"};
    for (std::size_t i = 1, names = coverNames(form); i <= names; ++i) {
        columns.push_back(fmt::format("{}{}", kNumberColumn, i));
        columns.push_back(fmt::format("{}{}", kNameColumn, i));
    }
    return columns;
}

} // namespace inin::viewer
