#include "viewer/form/svg_reader.h"
#include "viewer/layout/letter_layout.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

/// The start of each run of a line and the expected start of the next one.
class RunPlaces : public PagePainter {
public:
    struct Place {
        double begin, due, stretch;
    };
    void paint(const PictureCommand &) override {}
    void paint(const PathCommand &) override {}
    void paint(const GlyphRun &run) override
    {
        double width = 0;
        for (const ShapedGlyph &glyph : run.glyphs) width += glyph.advance * run.size / 1000 + run.spacing;
        const double begin = run.at.e + run.glyphs.front().x * run.size * run.stretch / 1000;
        places.push_back({begin, begin + width * run.stretch, run.stretch});
    }
    std::vector<Place> places;
};

} // namespace

TEST_CASE("the parts of a narrowed and spaced text of several fonts stay adjacent")
{
    const FormDocument form =
        readSvg(svgPage("<rect id='b' x='10' y='20' width='30' height='8' fill='none'/>"
                        "<text data-box='b' style='font-size:4px;letter-spacing:1px'>{{名}}</text>"));
    Fonts fonts;
    LetterLayout layout(form, {"名"}, fonts);
    RunPlaces painter;
    layout.paintLetter([](std::size_t) { return std::string_view("西西西𠮷田田田"); }, painter);
    REQUIRE(painter.places.size() == 3);
    CHECK(painter.places[0].stretch < 1);
    CHECK(painter.places[1].begin == doctest::Approx(painter.places[0].due));
    CHECK(painter.places[2].begin == doctest::Approx(painter.places[1].due));
}
