#include "viewer/pdf/letters_pdf.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <cstdlib>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

/// The position of the first word of a PDF, in points from the upper left corner.
Point firstWord(const std::string &pdf)
{
    REQUIRE(std::system(("pdftotext -bbox '" + pdf + "' '" + pdf + ".html'").c_str()) == 0);
    const std::string page = bytesOf(pdf + ".html");
    const auto number = [&](const std::string &name) {
        const std::size_t at = page.find(name + "=\"");
        REQUIRE(at != page.npos);
        return std::stod(page.substr(at + name.size() + 2));
    };
    return {number("xMin"), number("yMin")};
}

} // namespace

TEST_CASE("a printer's offset moves a page horizontally and vertically in both directions")
{
    const TempFolder folder;
    const LetterSet set = lettersOn(svgPage("<text x='50' y='80'>{{保険者名}}</text>"), {ordinaryRow()});
    Fonts fonts;
    LetterRenderer renderer(set, fonts);
    const std::vector<std::size_t> letters = {0};
    const std::string pdf = folder / "a.pdf";
    const auto placeBy = [&](Point shift) {
        REQUIRE(writeLettersPdf(pdf, renderer, letters, {}, {.shift = shift}));
        return firstWord(pdf);
    };
    const Point still = placeBy({0, 0});
    for (const Point shift : {Point{0, 12}, Point{0, -12}, Point{9, 0}, Point{-9, 0}, Point{3, 4}}) {
        CAPTURE(shift.x);
        CAPTURE(shift.y);
        const Point moved = placeBy(shift);
        CHECK(moved.x - still.x == doctest::Approx(shift.x).epsilon(0.01));
        CHECK(moved.y - still.y == doctest::Approx(shift.y).epsilon(0.01));
    }
}
