#include "viewer/paint/compared_pictures.h"
#include "viewer/pdf/letters_pdf.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <QPainter>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

constexpr double kDots = 60;

struct Case {
    const char *form;
    const char *golden;
};
constexpr Case kCases[] = {
    {"委任状37_01.wfd", "standard"}, {"委任状23.wfd", "aichi"}, {"委任状37_高松市.wfd", "takamatsu"}};

struct Pictures {
    TempFolder folder;
    LetterSet set;
    Fonts fonts;
    LetterRenderer renderer;
    QtGlyphs glyphs;
    explicit Pictures(const char *form)
        : set(openScript(writePrintJob(folder, form, {ordinaryRow(), longestRow(), oddRow(), Row{}}))),
          renderer(set, fonts)
    {
    }
    QImage picture(std::size_t letter) { return pageImage(renderer, letter, kDots, glyphs); }
};

/// The upper left corner of a letter on the given form, for each kind of output.
struct Corner {
    TempFolder folder;
    LetterSet set;
    QRect place;
    Fonts fonts;
    LetterRenderer renderer{set, fonts};
    QtGlyphs glyphs;
    Corner(const std::string &elements, int width, int height)
        : set(lettersOn(svgPage(elements), {ordinaryRow()})), place(0, 0, width, height)
    {
    }
    QImage picture() { return pageImage(renderer, 0, kDots, glyphs).copy(place); }
    std::string pdf()
    {
        REQUIRE(writeLettersPdf(folder / "o.pdf", renderer, std::vector<std::size_t>{0}));
        return folder / "o.pdf";
    }
    QImage inPdf() { return rasterized(pdf(), static_cast<int>(kDots)).copy(place); }
    QImage onPrinter()
    {
        printPages(renderer, folder / "printed.pdf", glyphs);
        return rasterized(folder / "printed.pdf", static_cast<int>(kDots)).copy(place);
    }
};

} // namespace

TEST_CASE("each form matches its reference picture with ordinary, longest, odd and blank data")
{
    constexpr const char *data[] = {"ordinary", "longest", "odd", "blank"};
    for (const Case &each : kCases) {
        Pictures pictures(each.form);
        for (std::size_t letter = 0; letter < 4; ++letter) {
            compareWithGolden(pictures.picture(letter), std::string(each.golden) + "_" + data[letter] + ".png");
        }
    }
}

TEST_CASE("characters of fallback fonts match the reference picture, in the picture and in the PDF")
{
    Corner corner("<text x='4' y='14' style='font-family:IPAexMincho;font-size:10px'>西𠮷∑田</text>", 120, 48);
    const QImage picture = corner.picture();
    compareWithGolden(picture, "stand_ins.png");
    CHECK(difference(coarse(picture), coarse(corner.inPdf())) < 0.02);
    CHECK(difference(coarse(picture), coarse(picture.copy(corner.place.translated(2, 0)))) > 0.05);
}

TEST_CASE("a bold text is darker than a regular one and has the same size, on screen, in the PDF and on a printer")
{
    const auto inkOf = [](const QImage &image) {
        double ink = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) ink += 255 - qGray(image.pixel(x, y));
        return ink;
    };
    double inks[2] = {}, pdfInks[2] = {}, printedInks[2] = {};
    QImage picture;
    for (const int bold : {0, 1}) {
        Corner corner("<text x='4' y='14' style='font-family:IPAexMincho;font-size:8px;font-weight:" +
                          std::string(bold != 0 ? "bold" : "normal") +
                          "'>委任状𠮷</text><text x='4' y='24' style='font-size:8px'>本文</text>",
                      130, 80);
        picture = corner.picture();
        inks[bold] = inkOf(picture);
        const QImage page = corner.inPdf();
        pdfInks[bold] = inkOf(page);
        CHECK(difference(coarse(picture), coarse(page)) < 0.03);
        CHECK(packed(pagesOf(corner.pdf()).at(0)) == "委任状𠮷本文");
        const QImage printed = corner.onPrinter();
        printedInks[bold] = inkOf(printed);
        CHECK(difference(coarse(picture), coarse(printed)) < 0.03);
    }
    CHECK(inks[1] > 1.2 * inks[0]);
    CHECK(pdfInks[1] > 1.2 * pdfInks[0]);
    CHECK(printedInks[1] > 1.2 * printedInks[0]);
    compareWithGolden(picture, "bold.png");
}

TEST_CASE("a vertical text matches the reference picture, in the picture, in the PDF and on a printer")
{
    const std::string down = "style='writing-mode:vertical-rl;font-family:IPAexMincho;font-size:8px";
    Corner corner("<rect id='b' x='4' y='4' width='10' height='50' fill='none' stroke='#888'"
                  " stroke-width='.3'/><text data-box='b' " +
                      down + "'>「縦書き」、です。ー</text><text x='24' y='4' " + down +
                      ";font-weight:bold'>令和6年（𠮷…）</text><text x='36' y='4' " + down +
                      ";letter-spacing:2px;text-orientation:upright'>5月1日</text>",
                  110, 170);
    const QImage picture = corner.picture();
    compareWithGolden(picture, "running_down.png");
    CHECK(difference(coarse(picture), coarse(corner.inPdf())) < 0.02);
    CHECK(difference(coarse(picture), coarse(picture.copy(corner.place.translated(0, 2)))) > 0.035);
    CHECK(difference(coarse(picture), coarse(corner.onPrinter())) < 0.02);
}

TEST_CASE("the comparison of pictures detects a text that moved by a millimetre")
{
    Pictures pictures(kForm);
    const QImage before = pictures.picture(0);
    pictures.set.offsetX = 10;
    CHECK(difference(before, pictures.picture(0)) > 10 * kShareTolerance);
}

TEST_CASE("the picture of a letter matches its PDF")
{
    TempFolder folder;
    const std::string script = writePrintJob(folder, kForm, {longestRow()});
    REQUIRE(runViewer(folder, "--pdf o.pdf --png p --dpi 100 " + script).code == 0);
    QImage ours;
    REQUIRE(ours.load(QString::fromStdString(folder / "p/001.png")));
    const QImage theirs = rasterized(folder / "o.pdf", 100);
    CHECK(difference(coarse(ours), coarse(theirs)) < 0.01);
    // The same comparison detects a page that is off by a millimetre.
    const QImage moved = ours.copy(4, 0, ours.width(), ours.height());
    CHECK(difference(coarse(moved), coarse(theirs)) > 0.05);
}

TEST_CASE("large glyphs are painted with curves, and small ones look the same")
{
    Fonts fonts;
    const Font &font = fonts.font("IPAexMincho");
    std::vector<ShapedGlyph> glyphs;
    std::vector<char32_t> missing;
    font.shape(U"髙", glyphs, missing);
    QtGlyphs cache;
    const QPainterPath &curves = cache.outline(font, glyphs[0].glyph, 500);
    const QPainterPath &lines = cache.outline(font, glyphs[0].glyph, 20);
    bool hasCurve = false;
    for (int i = 0; i < curves.elementCount(); ++i)
        hasCurve = hasCurve || curves.elementAt(i).type == QPainterPath::CurveToElement;
    CHECK(hasCurve);
    for (int i = 0; i < lines.elementCount(); ++i) CHECK(lines.elementAt(i).type != QPainterPath::CurveToElement);
    const auto drawn = [](const QPainterPath &path) {
        QImage image(60, 60, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(0, 50);
        painter.scale(60, 60);
        painter.fillPath(path, Qt::black);
        return image;
    };
    CHECK(difference(drawn(curves), drawn(lines)) < 0.01);
}
