// A form document (SVG with style sheets) and a letter file, through layout to a finished PDF. The byte 0x1E separates
// the two; without it the form is filled from a letter file with the program's own columns. Most of the time of a PDF is
// spent on its fonts, so only every fourth input gets one; the others are laid out and checked as they are painted.

#include "fuzz/fuzz_input.h"
#include "viewer/document/letter_renderer.h"
#include "viewer/document/mark_text.h"
#include "viewer/form/picture.h"
#include "viewer/form/svg_reader.h"
#include "viewer/letters/csv_reader.h"
#include "viewer/pdf/letters_pdf.h"

#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <numeric>
#include <span>
#include <string>
#include <vector>

#include <unistd.h>

using namespace inin;
using namespace inin::viewer;
using inin::fuzz::require;

namespace {

constexpr char kSeparator = '\x1E';
constexpr std::size_t kMaxLetters = 3;
/// A form draws at most 20,000 elements, and a page repeats only the fields.
constexpr std::size_t kLargestPdf = std::size_t{32} << 20U;

/// Without a title row, a file of twenty columns has the program's own titles.
std::string ordinaryLetters()
{
    std::string row = "\"2024/05/01\"";
    for (std::size_t i = 1; i < programTitles().size(); ++i) row += ",\"2019/5/1 A\"";
    return row + "\r\n" + row + "\r\n";
}

const std::string &pdfPath()
{
    static const std::string kPath =
        (std::filesystem::temp_directory_path() / ("form_fuzz_" + std::to_string(getpid()) + ".pdf")).string();
    static const int kRemovedAtExit = std::atexit([] { std::remove(pdfPath().c_str()); });
    (void)kRemovedAtExit;
    return kPath;
}

void checkPdf()
{
    std::ifstream file(pdfPath(), std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    require(bytes.starts_with("%PDF-"), "a written PDF begins with its header");
    require(bytes.size() <= kLargestPdf, "a PDF of three letters is not larger than 32 MB");
    const std::size_t end = bytes.rfind("%%EOF");
    require(end != std::string::npos && bytes.size() - end <= 6, "a written PDF ends with its end mark");
}

void requireFinite(const Affine &at)
{
    for (const double number : {at.a, at.b, at.c, at.d, at.e, at.f})
        require(std::isfinite(number), "what is painted has a place");
}

class CheckingPainter : public PagePainter {
public:
    void paint(const PathCommand &path) override
    {
        for (const PathStep &step : path.path)
            for (const Point point : step.points)
                require(std::isfinite(point.x) && std::isfinite(point.y), "what is painted has a place");
        require(!path.stroke || std::isfinite(path.stroke->width), "a line has a width");
    }
    void paint(const GlyphRun &run) override
    {
        require(run.font != nullptr && std::isfinite(run.size) && run.stretch > 0,
                "a line of glyphs has a font and a size");
        requireFinite(run.at);
        for (const ShapedGlyph &glyph : run.glyphs) {
            require(glyph.glyph < run.font->glyphCount(), "a glyph is one of its font");
            require(std::isfinite(glyph.x), "a glyph has a place");
        }
    }
    void paint(const PictureCommand &picture) override
    {
        require(picture.picture && picture.picture->pixels.size() ==
                                       picture.picture->width * picture.picture->height * picture.picture->channels,
                "a picture has all its pixels");
        requireFinite(picture.at);
    }
};

void paintAll(LetterRenderer &press, std::span<const std::size_t> letters)
{
    CheckingPainter painter;
    for (const std::size_t letter : letters) {
        for (std::size_t page = 0; page < press.pageCount(letter); ++page) {
            requireFinite(press.onPaper(letter, page));
            press.layoutOf(letter).paintShared(painter, page);
            for (const FieldMark &mark : press.paintFields(letter, painter, page)) (void)markText(mark);
        }
    }
}

LetterReport reportOf(std::string_view input)
{
    const std::string_view form = fuzz::takePart(input, kSeparator);
    LetterReport report;
    report.form = readSvg(form);
    require(report.form.width > 0 && report.form.height > 0, "a form document has a page size");
    report.letters = input.empty() ? readLetters(ordinaryLetters(), TitleRow::none)
                                   : readLetters(std::string(input), TitleRow::first);
    report.columns = report.letters.columns();
    return report;
}

void layOut(std::string_view input)
{
    static Fonts fonts;
    LetterSet set;
    set.reports.push_back(reportOf(input));
    if (set.size() == 0) return;
    LetterRenderer press(set, fonts);
    press.setCodes(std::vector<std::string>(set.size(), "123456-0000001-42"));
    (void)press.formNotices();
    std::vector<std::size_t> letters(std::min(set.size(), kMaxLetters));
    std::iota(letters.begin(), letters.end(), std::size_t{0});
    paintAll(press, letters);
    constexpr std::size_t kInputsPerPdf = 4;
    if (input.size() % kInputsPerPdf != 0) return;
    require(writeLettersPdf(pdfPath(), press, letters), "writing without a progress function is not stopped");
    checkPdf();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    try {
        layOut({static_cast<const char *>(static_cast<const void *>(data)), size});
    } catch (const RuntimeError &) {
        return 0; // a form or letter file that cannot be read
    }
    return 0;
}
