#include "viewer/window/cut_text.h"

#include <QImage>
#include <doctest/doctest.h>

using namespace inin::viewer;

namespace {

QImage pictureOf(const QString &text, int width)
{
    CutLabel label;
    label.setLine(text);
    label.resize(width, 30);
    return label.grab().toImage();
}

} // namespace

TEST_CASE("a line without room ends in an ellipsis, and its tip has the whole text")
{
    const QString whole = QStringLiteral("点検：24通に注意があります。そのまま印刷することもできます。");
    CutLabel label;
    label.setLine(whole);
    CHECK(label.toolTip() == whole);
    CHECK(label.minimumSizeHint().width() < 50);
    const QString cut = label.fontMetrics().elidedText(whole, Qt::ElideRight, 150);
    REQUIRE(cut.endsWith(u'…'));
    CHECK(pictureOf(whole, 150) == pictureOf(cut, 150));
    CHECK(pictureOf(whole, 1000) != pictureOf(cut, 1000));
}

TEST_CASE("a message of the status line is cut in the same way")
{
    StatusLine line;
    const QString whole = QString(300, u'長');
    line.resize(200, 30);
    line.showMessage(whole);
    CHECK(line.toolTip() == whole);
    const QImage cut = line.grab().toImage();
    // The space for the size grip on the right stays empty.
    const QColor edge = cut.pixelColor(198, 2);
    for (int x = 192; x < 199; ++x)
        for (int y = 2; y < 28; ++y) CHECK(cut.pixelColor(x, y).lightness() > edge.lightness() - 60);
}
