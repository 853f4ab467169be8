#include "viewer/support/viewer_world.h"

#include "viewer/form/svg_reader.h"
#include "viewer/letters/csv_reader.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <array>

namespace inin::viewer::test {

namespace fs = std::filesystem;

std::string svgPage(const std::string &elements)
{
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"210mm\" height=\"297mm\" viewBox=\"0 0 210 297\">" +
           elements + "</svg>";
}

LetterSet lettersOn(const std::string &svg, const std::vector<Row> &rows)
{
    LetterSet set;
    LetterReport &report = set.reports.emplace_back();
    report.form = readSvg(svg);
    report.letters = readLetters(csvOf(rows), TitleRow::first);
    report.columns = report.letters.columns();
    return set;
}

std::vector<std::string> pagesOf(const std::string &pdf)
{
    const std::string command = "pdftotext -raw '" + pdf + "' '" + pdf + ".txt'";
    REQUIRE(std::system(command.c_str()) == 0);
    const std::string all = bytesOf(pdf + ".txt");
    fs::remove(pdf + ".txt");
    std::vector<std::string> pages;
    for (std::size_t begin = 0; begin < all.size();) {
        const std::size_t end = std::min(all.find('\f', begin), all.size());
        pages.push_back(all.substr(begin, end - begin));
        begin = end + 1;
    }
    return pages;
}

std::string packed(const std::string &text)
{
    constexpr std::array<std::string_view, 4> blanks = {" ", "\n", "\t", "　"};
    std::string out;
    for (std::string_view rest = text; !rest.empty();) {
        const auto *const blank =
            std::ranges::find_if(blanks, [&](std::string_view each) { return rest.starts_with(each); });
        if (blank == blanks.end()) out += rest.front();
        rest.remove_prefix(blank == blanks.end() ? 1 : blank->size());
    }
    return out;
}

} // namespace inin::viewer::test
