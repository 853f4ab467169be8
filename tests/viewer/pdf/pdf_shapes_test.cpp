#include "viewer/pdf/letters_pdf.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <cstdlib>
#include <sstream>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

/// A page of a PDF, rendered by another program with four dots per millimetre.
class DrawnPage {
public:
    explicit DrawnPage(const std::string &shapes)
    {
        const TempFolder folder;
        const LetterSet set = lettersOn(svgPage(shapes + "<text x='5' y='200'>{{保険者名}}</text>"), {ordinaryRow()});
        Fonts fonts;
        LetterRenderer renderer(set, fonts);
        const std::vector<std::size_t> letters = {0};
        const std::string pdf = folder / "a.pdf";
        REQUIRE(writeLettersPdf(pdf, renderer, letters));
        REQUIRE(std::system(("pdftoppm -r 101.6 -gray -singlefile '" + pdf + "' '" + pdf + "'").c_str()) == 0);
        const std::string file = bytesOf(pdf + ".pgm");
        std::istringstream head(file);
        std::string kind;
        std::size_t height = 0, most = 0;
        head >> kind >> m_width >> height >> most;
        REQUIRE(kind == "P5");
        m_dots = file.substr(file.size() - m_width * height);
    }
    /// The brightness at a position in millimetres, from 0 (black) to 255.
    [[nodiscard]] int at(double x, double y) const
    {
        const auto dot = static_cast<std::size_t>(y * 4) * m_width + static_cast<std::size_t>(x * 4);
        return static_cast<unsigned char>(m_dots.at(dot));
    }

private:
    std::size_t m_width = 0;
    std::string m_dots;
};

constexpr int kBlack = 0, kWhite = 255;

} // namespace

TEST_CASE("a ring with the even-odd rule has a hole in the PDF, and without the rule it is filled")
{
    const std::string squares = "d='M10 10H50V50H10Z M20 20H40V40H20Z'";
    const DrawnPage ring("<path fill-rule='evenodd' " + squares + "/>"), filled("<path " + squares + "/>");
    CHECK(ring.at(15, 30) == kBlack);
    CHECK(ring.at(30, 30) == kWhite);
    CHECK(filled.at(30, 30) == kBlack);
    const DrawnPage outlined("<path fill-rule='evenodd' stroke='#000' stroke-width='2' " + squares + "/>");
    CHECK(outlined.at(15, 30) == kBlack);
    CHECK(outlined.at(30, 30) == kWhite);
}

TEST_CASE("a line with a butt cap ends in the PDF at its end point, other caps add half the width")
{
    const auto beyondEnd = [](const std::string &cap) {
        return DrawnPage("<path d='M20 30H60' fill='none' stroke='#000' stroke-width='10' stroke-linecap='" + cap +
                         "'/>")
            .at(63, 26.5);
    };
    CHECK(beyondEnd("butt") == kWhite);
    CHECK(beyondEnd("square") == kBlack);
    // A round cap has no corners, but reaches as far as a square cap in the middle.
    const DrawnPage round("<path d='M20 30H60' fill='none' stroke='#000' stroke-width='10' stroke-linecap='round'/>");
    CHECK(round.at(63, 30) == kBlack);
    CHECK(round.at(64.5, 25.5) == kWhite);
}

TEST_CASE("a dashed line has its gaps in the PDF")
{
    const DrawnPage page(
        "<path d='M20 30H80' fill='none' stroke='#000' stroke-width='4' style='stroke-dasharray:10 5'/>");
    CHECK(page.at(25, 30) == kBlack);
    CHECK(page.at(32.5, 30) == kWhite);
    CHECK(page.at(40, 30) == kBlack);
}
