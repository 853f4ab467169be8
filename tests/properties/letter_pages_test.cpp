// The pages of a PDF, read back by another program, against the rows and the numbers that were asked for.

#include "properties/property.h"
#include "support/temp_folder.h"
#include "viewer/document/letter_numbers.h"
#include "viewer/letters/csv_reader.h"
#include "viewer/pdf/letters_pdf.h"
#include "viewer/support/viewer_world.h"

#include <fmt/format.h>

using namespace inin;
using namespace inin::test;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

/// A page with all twenty fields, one below the other, each between its number and a bracket.
std::string formOfAllFields()
{
    std::string texts;
    for (std::size_t i = 0; i < programTitles().size(); ++i)
        texts +=
            fmt::format("<text x='10' y='{}' style='font-family:IPAexMincho;font-size:4px'>{}［{{{{{}}}}}］</text>",
                        10 + 14 * i, i + 1, programTitles()[i]);
    return svgPage(texts);
}

Row anyRow()
{
    Row row;
    for (const std::string &title : programTitles())
        row[title] =
            anyText({"髙", "﨑", "高", "崎", "西", "ｱ", "ｶﾞ", "ー", "A", "z", "0", "9", "-", "㈱", "①", "、", "　"});
    return row;
}

std::string pageOf(const Row &row)
{
    std::string text;
    for (std::size_t i = 0; i < programTitles().size(); ++i)
        text += fmt::format("{}［{}］", i + 1, row.at(programTitles()[i]));
    return packed(text);
}

/// Ranges such as "3-1,7", and the letters that they name: each once, at its first place.
struct Selection {
    std::string text;
    std::vector<int> letters;
};

Selection anySelection(int count)
{
    Selection selection;
    for (int ranges = anyNumber(1, 4); ranges > 0; --ranges) {
        const int first = anyNumber(1, count), last = oneIn(2) ? first : anyNumber(1, count);
        if (!selection.text.empty()) selection.text += ',';
        selection.text += first == last ? std::to_string(first) : fmt::format("{}-{}", first, last);
        const int step = first <= last ? 1 : -1;
        for (int letter = first; letter != last + step; letter += step)
            if (std::ranges::find(selection.letters, letter) == selection.letters.end())
                selection.letters.push_back(letter);
    }
    return selection;
}

} // namespace

TEST_CASE("page k of any range of letters has all twenty fields of the k-th row asked for, and nothing else")
{
    Fonts fonts;
    const TempFolder folder;
    const std::string form = formOfAllFields();
    checkProperty(60, [&] {
        std::vector<Row> rows;
        for (int count = anyNumber(1, 12); count > 0; --count) rows.push_back(anyRow());
        const Selection selection = anySelection(static_cast<int>(rows.size()));

        const LetterSet set = lettersOn(form, rows);
        LetterRenderer renderer(set, fonts);
        RC_ASSERT(writeLettersPdf(folder / "letters.pdf", renderer, readLetterList(selection.text, rows.size())));

        std::vector<std::string> printed, expected;
        for (const std::string &page : pagesOf(folder / "letters.pdf")) printed.push_back(packed(page));
        for (const int letter : selection.letters)
            expected.push_back(pageOf(rows[static_cast<std::size_t>(letter) - 1]));
        RC_ASSERT(printed == expected);
    });
}
