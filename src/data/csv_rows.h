#pragma once

#include "platform/database.h"
#include "runtime/regional.h"

#include <optional>
#include <string>
#include <vector>

namespace inin {

/// How the fields of a kind of column are written.
enum class CsvCell { number, date, text };

/// The lines of a CSV file that a record set gives.
class CsvRows {
public:
    /// Notes the kind of each field; error 9 for more fields than the suite's table of types has places. A branch name
    /// that is given makes a last column of its own.
    CsvRows(Recordset &rsData, const Regional &regional, std::optional<std::string> cKyoten);
    [[nodiscard]] std::string headingLine() const;
    [[nodiscard]] bool isEndOfFile() const { return m_rsData.isEndOfFile(); }
    /// The line of the current row, and on to the next.
    [[nodiscard]] std::string nextLine();

private:
    [[nodiscard]] std::string cell(std::size_t index) const;

    Recordset &m_rsData;
    const Regional &m_regional;
    std::optional<std::string> m_cKyoten;
    std::vector<CsvCell> m_kinds;
};

} // namespace inin
