#pragma once

#include "demo_site/dice.h"

#include <string_view>
#include <vector>

namespace inin::site {

using DataRow = std::vector<std::string_view>;

/// A section of site/demo_data.txt, which describes the format: the rows of a table, or a word list.
struct DataSection {
    DataRow columns;
    std::vector<DataRow> rows;
};
/// It lives as long as the program.
[[nodiscard]] const DataSection &dataSection(std::string_view name);

/// A random row of a section.
[[nodiscard]] inline const DataRow &pickRow(Dice &dice, std::string_view section)
{
    return dice.pick(dataSection(section).rows);
}

/// The parts of a text between the separators.
[[nodiscard]] DataRow split(std::string_view text, char separator);

} // namespace inin::site
