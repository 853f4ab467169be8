#pragma once

#include <string>
#include <string_view>

namespace inin::viewer {

// CSV tables for spreadsheets: UTF-8 with a byte order mark, every value in quotes.

inline constexpr std::string_view kTableMark = "\xEF\xBB\xBF";

/// One line. A value that a spreadsheet would take for a formula gets a leading apostrophe: the texts come from others.
class TableLine {
public:
    void add(std::string_view value);
    [[nodiscard]] std::string end() const { return m_line + "\r\n"; }

private:
    std::string m_line;
};

} // namespace inin::viewer
