#pragma once

#include "platform/database.h"
#include "runtime/regional.h"

#include <optional>
#include <string>
#include <vector>

namespace inin {

/// How the fields of a column are written.
enum class CsvCell { number, date, text };

/// Formats the rows of a record set as lines of a CSV file.
class CsvRows {
public:
    /// Determines the kind of each field; error 9 if there are more fields than the suite's table of types can hold. A
    /// branch name, if given, becomes an additional last column.
    CsvRows(Recordset &rsData, const Regional &regional, std::optional<std::string> cKyoten);
    [[nodiscard]] std::string headingLine() const;
    [[nodiscard]] bool isEndOfFile() const { return m_rsData.isEndOfFile(); }
    /// Returns the line of the current row and advances to the next row.
    [[nodiscard]] std::string nextLine();

private:
    [[nodiscard]] std::string cell(std::size_t index) const;

    Recordset &m_rsData;
    const Regional &m_regional;
    std::optional<std::string> m_cKyoten;
    std::vector<CsvCell> m_kinds;
};

} // namespace inin
