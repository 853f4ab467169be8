#pragma once

#include "demo_site/demo_data.h"
#include "demo_site/people.h"
#include "demo_site/row_target.h"

#include <string_view>
#include <vector>

namespace inin::site {

/// How the values of some columns are made from the owner of the row; blanks separate the columns.
template <class Owner> struct ColumnRule {
    std::string_view columns;
    Cell (*value)(const Owner &owner, Dice &dice);
};

/// A table filled by the rules of its columns. Random values are drawn in the order of the rules.
template <class Owner> class RuledTable {
public:
    template <std::size_t N> RuledTable(RowTarget &target, std::string_view table, const ColumnRule<Owner> (&rules)[N])
    {
        DataRow names;
        for (const ColumnRule<Owner> &rule : rules) {
            for (const std::string_view name : split(rule.columns, ' ')) {
                names.push_back(name);
                m_values.push_back(rule.value);
            }
        }
        m_sink = &target.into(table, names);
    }
    /// `isNull` returns true for the indexes of the columns that are NULL in this row.
    template <class IsNull> void write(const Owner &owner, Dice &dice, const IsNull &isNull)
    {
        std::vector<Cell> row;
        for (std::size_t column = 0; column < m_values.size(); ++column) {
            row.push_back(m_values[column](owner, dice));
            if (isNull(static_cast<std::int64_t>(column))) row.back() = kNull;
        }
        m_sink->row(row);
    }
    /// A row that was created but never filled in: only its first values, which are the keys, are not NULL.
    void writeBlank(std::vector<Cell> row)
    {
        row.resize(m_values.size(), kNull);
        m_sink->row(row);
    }

private:
    std::vector<Cell (*)(const Owner &, Dice &)> m_values;
    RowSink *m_sink = nullptr;
};

[[nodiscard]] inline Cell textCell(std::string_view text)
{
    return std::string(text);
}
[[nodiscard]] inline Cell textOrNull(std::string_view text)
{
    return text.empty() ? Cell{kNull} : textCell(text);
}

// Values that several tables have.
inline constexpr auto nothing = [](const auto &, Dice &) -> Cell { return kNull; };
template <std::int64_t Value> constexpr auto always = [](const auto &, Dice &) -> Cell { return Value; };
template <int Low, int High>
constexpr auto number = [](const auto &, Dice &dice) -> Cell { return std::int64_t{dice.between(Low, High)}; };
template <int Count> constexpr auto digits = [](const auto &, Dice &dice) -> Cell { return makeDigits(dice, Count); };
inline constexpr auto telephone = [](const auto &, Dice &dice) -> Cell { return makeTelephone(dice); };
inline constexpr auto ownNumber = [](const auto &owner, Dice &) -> Cell { return owner.number; };
inline constexpr auto sex = [](const auto &owner, Dice &) -> Cell { return std::int64_t{owner.isFemale ? 2 : 1}; };
template <std::string PersonName::*Field>
constexpr auto name = [](const auto &owner, Dice &) -> Cell { return owner.name.*Field; };
inline constexpr auto familyName = [](const auto &owner, Dice &) -> Cell {
    return owner.name.kanji.substr(0, owner.name.kanji.find("　"));
};
template <std::string Home::*Field>
constexpr auto home = [](const auto &owner, Dice &) -> Cell { return textOrNull(owner.home.*Field); };
/// A day in this range of days after the start of the employment or treatment.
template <int Low, int High>
constexpr auto dayAfterStart = [](const auto &owner, Dice &dice) -> Cell {
    return isoText(owner.start + std::chrono::days{dice.between(Low, High)});
};

} // namespace inin::site
