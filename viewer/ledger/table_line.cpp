#include "viewer/ledger/table_line.h"

#include <algorithm>

namespace inin::viewer {

namespace {

/// Quotes do not keep a spreadsheet from calculating. Japanese ones take full-width signs as well.
bool isFormula(std::string_view value)
{
    constexpr std::string_view kStarts[] = {"=", "+", "-", "@", "\t", "\r", "\n", "＝", "＋", "－", "＠"};
    return std::ranges::any_of(kStarts, [&](std::string_view start) { return value.starts_with(start); });
}

} // namespace

void TableLine::add(std::string_view value)
{
    m_line += m_line.empty() ? "\"" : ",\"";
    if (isFormula(value)) m_line += '\'';
    for (const char c : value) m_line.append(c == '"' ? std::size_t{2} : std::size_t{1}, c);
    m_line += '"';
}

} // namespace inin::viewer
