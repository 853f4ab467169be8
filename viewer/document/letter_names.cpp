#include "viewer/document/letter_names.h"

namespace inin::viewer {

LetterNames::LetterNames(const LetterSet &set) : m_set(set)
{
    for (const LetterReport &report : set.reports)
        m_columns.push_back({report.letters.columnOf("保険者名"), report.letters.columnOf("保険者地区名"),
                             report.letters.columnOf("利用者氏名")});
}

std::string_view LetterNames::value(std::size_t letter, std::optional<std::size_t> Columns::*column) const
{
    const LetterSet::Place place = m_set.placeOf(letter);
    const std::optional<std::size_t> found = m_columns[place.report].*column;
    return found ? m_set.reports[place.report].letters.value(place.row, *found) : std::string_view();
}

std::string_view LetterNames::insurer(std::size_t letter) const
{
    return value(letter, &Columns::insurer);
}

std::string_view LetterNames::district(std::size_t letter) const
{
    return value(letter, &Columns::district);
}

std::string_view LetterNames::patient(std::size_t letter) const
{
    return value(letter, &Columns::patient);
}

std::string LetterNames::titleOf(std::size_t letter) const
{
    std::string title = std::to_string(letter + 1) + "番";
    for (const std::string_view part : {insurer(letter), patient(letter)})
        if (!part.empty()) title.append("　").append(part);
    return title;
}

} // namespace inin::viewer
