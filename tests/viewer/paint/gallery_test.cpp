// The gallery of the guide for forms: each feature as a small form, its picture, and the same on a printer and in a PDF.
#include "viewer/form/svg_reader.h"
#include "viewer/paint/compared_pictures.h"
#include "viewer/pdf/letters_pdf.h"
#include "viewer/support/test_pictures.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <algorithm>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

constexpr int kGalleryDots = 150;
/// At most this share of the pixels may differ by more than this much of a colour.
constexpr double kGalleryShare = 0.01;
constexpr int kGalleryTolerance = 32;
const std::string kGallery = std::string(ININ_TEST_DATA) + "/viewer/gallery/";

constexpr const char *kCover = "cover";

/// The forms of the gallery, with the number of their pages.
struct Exhibit {
    const char *name;
    std::size_t pages = 1;
};
constexpr Exhibit kExhibits[] = {{"fields"}, {"boxes"},    {"conditions"},     {"pictures"}, {"pages", 2}, {"a5"},
                                 {"b5"},     {"envelope"}, {"envelope_kaku2"}, {"vertical"}, {"texts"},    {"shapes"},
                                 {"codes"},  {kCover}};

/// The difference of two pictures of a page, whose sizes may be rounded differently.
double pageDifference(const QImage &a, const QImage &b)
{
    const int width = std::min(a.width(), b.width()), height = std::min(a.height(), b.height());
    if (std::max(a.width(), b.width()) > width + 1 || std::max(a.height(), b.height()) > height + 1) return 1;
    return difference(a.copy(0, 0, width, height), b.copy(0, 0, width, height), kGalleryTolerance);
}

/// A page of a PDF in the gallery's resolution. Programs that draw a PDF put characters on whole pixels, so it is drawn four
/// times as large and each pixel is the mean of sixteen, as the other painters do it.
QImage drawnPage(const std::string &pdf, std::size_t page)
{
    constexpr int kFactor = 4;
    return averaged(drawnByCairo(pdf, kFactor * kGalleryDots, static_cast<int>(page) + 1), kFactor);
}

/// A letter with two empty columns on a form of the gallery, or the supplied cover form with sample covers.
LetterSet galleryLetters(const std::string &name)
{
    if (name == kCover) return openForm(std::string(ININ_SITE) + "/forms/束の表紙.wfd");
    Row row = ordinaryRow();
    row["署名日"] = row["金融機関名２"] = "";
    LetterSet set = lettersOn(svgPage(""), {row});
    set.reports[0].form = readSvg(bytesOf(kGallery + name + ".svg"), pictureBytes);
    set.usesFormPaper = true;
    return set;
}

struct Gallery {
    TempFolder folder;
    LetterSet set;
    Fonts fonts;
    LetterRenderer renderer;
    QtGlyphs glyphs;
    explicit Gallery(const std::string &name) : set(galleryLetters(name)), renderer(set, fonts)
    {
        renderer.setCodes({"123456-0000001-42"});
    }
};

} // namespace

TEST_CASE(
    "each feature of the guide matches its stored picture, and screen, printer and PDF agree at 150 dots per inch")
{
    for (const Exhibit &exhibit : kExhibits) {
        CAPTURE(std::string(exhibit.name));
        Gallery gallery(exhibit.name);
        CHECK(gallery.set.reports[0].form.notices.empty());
        REQUIRE(gallery.renderer.pageCount(0) == exhibit.pages);
        REQUIRE(writeLettersPdf(gallery.folder / "o.pdf", gallery.renderer, std::vector<std::size_t>{0}));
        printPages(gallery.renderer, gallery.folder / "printed.pdf", gallery.glyphs);
        for (std::size_t page = 0; page < exhibit.pages; ++page) {
            CAPTURE(page);
            const std::string number = exhibit.pages == 1 ? "" : "_" + std::to_string(page + 1);
            const QImage screen = pageImage(gallery.renderer, {0, page}, kGalleryDots, gallery.glyphs);
            compareWithGolden(screen, "gallery/" + (exhibit.name + number) + ".png");
            const QImage inPdf = drawnPage(gallery.folder / "o.pdf", page);
            const QImage printed = drawnPage(gallery.folder / "printed.pdf", page);
            CHECK(pageDifference(screen, inPdf) < kGalleryShare);
            CHECK(pageDifference(screen, printed) < kGalleryShare);
            CHECK(pageDifference(inPdf, printed) < kGalleryShare);
            // The same comparison detects a page that is off by half a millimetre.
            const QImage moved = screen.copy(3, 0, screen.width() - 3, screen.height());
            const double whenMoved = pageDifference(moved, inPdf.copy(0, 0, moved.width(), moved.height()));
            CHECK(whenMoved > 2 * pageDifference(screen, inPdf));
            // And one whose red and blue are exchanged.
            const QImage swapped = screen.rgbSwapped();
            const bool hasNoColor = pageDifference(swapped, screen) == 0;
            CHECK((hasNoColor || pageDifference(swapped, inPdf) > 2 * pageDifference(screen, inPdf)));
            CHECK((hasNoColor || pageDifference(swapped, printed) > 2 * pageDifference(screen, printed)));
        }
    }
}
