#include "viewer/paint/letter_pictures.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

using namespace inin::viewer;
using namespace inin::viewer::test;

TEST_CASE("a new device pixel ratio gives new pictures, even of the same size")
{
    const LetterSet set = lettersOn(svgPage("<text x='9' y='9'>{{保険者名}}</text>"), {ordinaryRow()});
    Fonts fonts;
    LetterRenderer renderer(set, fonts);
    QtGlyphs glyphs;
    LetterPictures pictures(renderer, glyphs);
    pictures.setScale(2, 1);
    const QSize dots = pictures.of(0).size();
    CHECK(pictures.of(0).devicePixelRatio() == 1);
    pictures.setScale(2, 2);
    CHECK(pictures.of(0).size() == dots);
    CHECK(pictures.of(0).devicePixelRatio() == 2);
}

TEST_CASE("a ring with the even-odd rule has a hole on the screen, and without the rule it is filled")
{
    const auto middle = [](const std::string &rule) {
        const LetterSet set = lettersOn(svgPage("<path " + rule +
                                                " d='M10 10H50V50H10Z M20 20H40V40H20Z'/>"
                                                "<text x='9' y='200'>{{保険者名}}</text>"),
                                        {ordinaryRow()});
        Fonts fonts;
        LetterRenderer renderer(set, fonts);
        QtGlyphs glyphs;
        return pageImage(renderer, 0, 101.6, glyphs).pixelColor(120, 120); // four dots per millimetre
    };
    CHECK(middle("fill-rule='evenodd'") == QColor(Qt::white));
    CHECK(middle("") == QColor(Qt::black));
}
