#include "viewer/paint/letter_pictures.h"
#include "viewer/viewer_world.h"

#include <doctest/doctest.h>

using namespace inin::viewer;
using namespace inin::viewer::test;

TEST_CASE(
    "a window that moves to a screen of other dots gets pictures of that screen, also where their size is the same")
{
    const LetterSet set = lettersOn(svgPage("<text x='9' y='9'>{{保険者名}}</text>"), {ordinaryRow()});
    Fonts fonts;
    LetterPress press(set, fonts);
    QtGlyphs glyphs;
    LetterPictures pictures(press, glyphs);
    pictures.setScale(2, 1);
    const QSize dots = pictures.of(0).size();
    CHECK(pictures.of(0).devicePixelRatio() == 1);
    pictures.setScale(2, 2);
    CHECK(pictures.of(0).size() == dots);
    CHECK(pictures.of(0).devicePixelRatio() == 2);
}
