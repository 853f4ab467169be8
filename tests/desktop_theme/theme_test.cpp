#include "desktop_theme/application_icon.h"
#include "desktop_theme/contrast.h"
#include "desktop_theme/japanese_font.h"
#include "desktop_theme/theme.h"
#include "support/rendered_contrast.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QWidget>

#include <algorithm>

using namespace inin;
using namespace inin::theme;

namespace {

/// A desktop with hardly readable colours: pale blue selection, light grey disabled text.
QPalette palePalette()
{
    QPalette palette(QColor("#f0f0f0"));
    palette.setColor(QPalette::Highlight, QColor("#9ecbff"));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor("#d0d0d0"));
    return palette;
}

void checkReadable(const QPalette &palette)
{
    const auto contrast = [&](QPalette::ColorGroup group, QPalette::ColorRole text, QPalette::ColorRole background) {
        return contrastRatio(palette.color(group, text), palette.color(group, background));
    };
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        CHECK(contrast(group, QPalette::HighlightedText, QPalette::Highlight) >= 4.5);
        CHECK(contrast(group, QPalette::Text, QPalette::Base) >= 4.5);
        CHECK(contrast(group, QPalette::PlaceholderText, QPalette::Base) >= 4.5);
    }
    CHECK(contrast(QPalette::Disabled, QPalette::Text, QPalette::Base) >= 3);
    CHECK(contrast(QPalette::Disabled, QPalette::WindowText, QPalette::Window) >= 3);
    CHECK(contrast(QPalette::Disabled, QPalette::ButtonText, QPalette::Button) >= 3);
}

} // namespace

TEST_CASE("the contrast of black and white is 21, that of #308CC6 and white 3.69")
{
    CHECK(contrastRatio(Qt::black, Qt::white) == doctest::Approx(21));
    CHECK(contrastRatio(QColor("#308CC6"), Qt::white) == doctest::Approx(3.69).epsilon(0.002));
    CHECK(contrastRatio(QColor("#BEBEBE"), Qt::white) == doctest::Approx(1.86).epsilon(0.002));
}

TEST_CASE("a translucent colour on a background becomes opaque")
{
    CHECK(opaque(QColor(0, 0, 0, 51), Qt::white).rgba() == qRgb(204, 204, 204));
    CHECK(opaque(QColor(1, 2, 3), Qt::white).rgba() == qRgb(1, 2, 3));
}

TEST_CASE("the frame of a group is opaque")
{
    QImage picture(60, 60, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QStyleOption option;
    option.rect = picture.rect();
    QPainter painter(&picture);
    QApplication::style()->drawPrimitive(QStyle::PE_FrameGroupBox, &option, &painter);
    CHECK(qAlpha(picture.pixel(0, 40)) == 255);
    CHECK(qAlpha(picture.pixel(30, 40)) == 0);
}

TEST_CASE("a colour with enough contrast is kept, another one keeps its hue")
{
    CHECK(withContrast(QColor("#1A4FB0"), Qt::white, 4.5) == QColor("#1A4FB0"));
    const QColor darker = withContrast(QColor("#308CC6"), Qt::white, 4.5);
    CHECK(contrastRatio(darker, Qt::white) >= 4.5);
    CHECK(contrastRatio(darker, Qt::white) < 4.8);
    CHECK(std::abs(darker.hslHue() - QColor("#308CC6").hslHue()) <= 2);
    CHECK(contrastRatio(withContrast(QColor("#333333"), Qt::black, 3), Qt::black) >= 3);
}

TEST_CASE("a colour becomes no darker or lighter than its contrast requires")
{
    for (const QColor &background : {QColor(Qt::white), QColor(Qt::black), QColor("#8a8a8a"), QColor("#3c3f43")})
        for (const QColor &colour : {QColor("#308CC6"), QColor("#c0c0c0"), QColor("#404040"), QColor("#ffd0d0")}) {
            const QColor changed = withContrast(colour, background, 4.5);
            if (changed == colour) continue;
            CAPTURE(colour.name().toStdString());
            CAPTURE(background.name().toStdString());
            // A step of 1/256 of the way from its lightness to that of black or white.
            const float end = changed.lightnessF() < colour.lightnessF() ? 0.0F : 1.0F;
            const float step = (end - colour.lightnessF()) / 256;
            const QColor before = QColor::fromHslF(std::max(changed.hslHueF(), 0.0F), changed.hslSaturationF(),
                                                   changed.lightnessF() - step);
            CHECK(contrastRatio(changed, background) >= 4.5);
            CHECK(contrastRatio(before, background) < 4.5);
        }
}

TEST_CASE("the palette of every desktop becomes readable, and a readable one is kept")
{
    for (const QPalette &palette : {QApplication::palette(), darkPalette(), readablePalette(palePalette())}) {
        checkReadable(palette);
        CHECK(readablePalette(palette) == palette);
    }
}

TEST_CASE("colours that the desktop sets while the program runs become readable too")
{
    const PaletteForNow now(QApplication::palette());
    QApplication::setPalette(palePalette());
    checkReadable(QApplication::palette());
}

TEST_CASE("a font that the desktop sets while the program runs is replaced by a Japanese one")
{
    const QFont before = QApplication::font();
    QApplication::setFont(QFont("Courier", 8));
    CHECK(QApplication::font().pointSizeF() >= 9.75);
    CHECK(QFontDatabase::writingSystems(QFontInfo(QApplication::font()).family()).contains(QFontDatabase::Japanese));
    QApplication::setFont(before);
}

TEST_CASE("the button for the menus without room is drawn in the colour of the texts")
{
    const QColor colour(0x11, 0x77, 0x33);
    QPalette palette;
    palette.setColor(QPalette::ButtonText, colour);
    QWidget window;
    window.setPalette(palette);
    const QIcon icon =
        QApplication::style()->standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton, nullptr, &window);
    const QImage picture = icon.pixmap(QSize(16, 16), 1.0).toImage();
    CHECK(picture.pixelColor(11, 7) == colour); // in the line of the right arrow
    CHECK(picture.pixelColor(0, 0).alpha() == 0);
}

TEST_CASE("every window has the program's icon, in all sizes that desktops use")
{
    QWidget window;
    for (const int side : {16, 24, 32, 48, 64, 128, 256}) {
        CAPTURE(side);
        CHECK(window.windowIcon().pixmap(QSize(side, side), 1.0).size() == QSize(side, side));
    }
    CHECK(window.windowIcon().availableSizes().size() == 7);
    // A red seal on the page.
    const QColor seal = window.windowIcon().pixmap(QSize(256, 256), 1.0).toImage().pixelColor(164, 128);
    CHECK(seal.red() > 2 * seal.green());
}
