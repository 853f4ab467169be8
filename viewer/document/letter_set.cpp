#include "viewer/document/letter_set.h"

#include "viewer/document/paper_size.h"

#include <fmt/format.h>

namespace inin::viewer {

std::string_view LetterReport::value(std::size_t row, std::size_t column) const
{
    if (column < letters.columns().size()) return letters.value(row, column);
    column -= letters.columns().size();
    for (const LetterTable &table : others) {
        if (column < table.columns().size()) {
            const std::size_t own = table.size() == 1 ? 0 : row;
            return own < table.size() ? table.value(own, column) : std::string_view();
        }
        column -= table.columns().size();
    }
    return {};
}

std::string LetterReport::formFileName() const
{
    return formPath.substr(formPath.find_last_of("/\\") + 1);
}

std::size_t LetterSet::size() const
{
    std::size_t count = 0;
    for (const LetterReport &report : reports) count += report.letters.size();
    return count;
}

bool LetterSet::hasOwnPaper(const FormDocument &form, std::size_t page) const
{
    if (usesFormPaper || form.paper == FormPaper::own) return true;
    return form.paper == FormPaper::standard && paper == Paper::A4 && isStandardPaper(form.pageSize(page));
}

Point LetterSet::paperOf(const FormDocument &form, std::size_t page) const
{
    return hasOwnPaper(form, page) ? form.pageSize(page) : sizeOf(paper);
}

std::string LetterSet::shownTitle() const
{
    return title.empty() ? "委任状" : title;
}

std::string LetterSet::kindTitle() const
{
    const LetterReport &first = reports.front();
    const std::string name = first.formFileName();
    std::string kind = first.form.title.empty() ? name.substr(0, name.find_last_of('.')) : first.form.title;
    // The form's title usually begins with the script's.
    if (!kind.starts_with(shownTitle())) kind = shownTitle() + " " + kind;
    if (reports.size() > 1) kind += "ほか";
    return kind;
}

std::string LetterSet::runTitle() const
{
    return fmt::format("{}　{}通", kindTitle(), size());
}

LetterSet::Place LetterSet::placeOf(std::size_t letter) const
{
    std::size_t report = 0;
    while (report + 1 < reports.size() && letter >= reports[report].letters.size())
        letter -= reports[report++].letters.size();
    return {report, letter};
}

} // namespace inin::viewer
