#include "system/whole_file.h"
#include "viewer/codes/qr_codes.h"
#include "viewer/form/svg_reader.h"
#include "viewer/pdf/letters_pdf.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstdlib>
#include <regex>
#include <sstream>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

const std::vector<std::string> kCodes = {"123456-0000001-42", "123456-0000002-07"};
const std::vector<std::string> kDigits = {"123456000000142", "123456000000207"};

/// The PDF of two letters on a form of the site.
std::string pdfOf(const TempFolder &folder, const std::string &form, const std::vector<std::string> &codes)
{
    const LetterSet set =
        lettersOn(readWholeFile(std::string(ININ_SITE) + "/forms/" + form), {ordinaryRow(), oddRow()});
    Fonts fonts;
    LetterRenderer renderer(set, fonts);
    renderer.setCodes(codes);
    const std::vector<std::size_t> letters = {0, 1};
    const std::string pdf = folder / (codes.empty() ? "plain.pdf" : "codes.pdf");
    REQUIRE(writeLettersPdf(pdf, renderer, letters));
    return pdf;
}

/// The codes on a page, rendered by another program at 200 dots per inch.
std::vector<std::string> codesOn(const std::string &pdf, int page)
{
    const std::string command =
        "pdftoppm -r 200 -gray -singlefile -f " + std::to_string(page) + " '" + pdf + "' '" + pdf + "'";
    REQUIRE(std::system(command.c_str()) == 0);
    const std::string file = bytesOf(pdf + ".pgm");
    std::istringstream head(file);
    std::string kind;
    int width = 0, height = 0;
    head >> kind >> width >> height;
    REQUIRE(kind == "P5");
    const auto *const dots = reinterpret_cast<const std::uint8_t *>(file.data());
    const std::size_t size = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    return readQrCodes({{dots + file.size() - size, size}, width, height, width});
}

} // namespace

TEST_CASE("each supplied form shows the code of its letter as digits and as a QR code")
{
    for (const char *form : kForms) {
        CAPTURE(form);
        const TempFolder folder;
        const std::string pdf = pdfOf(folder, form, kCodes);
        const std::vector<std::string> pages = pagesOf(pdf);
        for (std::size_t i = 0; i < kCodes.size(); ++i) {
            CHECK(contains(pages[i], kCodes[i]));
            CHECK(codesOn(pdf, static_cast<int>(i) + 1) == std::vector<std::string>{kDigits[i]});
        }
    }
}

TEST_CASE("without codes a form prints the same bytes as one without places for codes")
{
    const std::regex place(R"(\s*<g id="整理番号">[^]*?</g>)");
    const std::string svg = readWholeFile(std::string(ININ_SITE) + "/forms/" + kForm);
    const std::string bare = std::regex_replace(svg, place, "");
    REQUIRE(bare.size() < svg.size());
    const TempFolder folder;
    std::vector<std::string> written;
    for (const std::string &form : {svg, bare}) {
        const LetterSet set = lettersOn(form, {ordinaryRow()});
        Fonts fonts;
        LetterRenderer renderer(set, fonts);
        CHECK(renderer.showsCodes() == (form == svg));
        const std::vector<std::size_t> letters = {0};
        REQUIRE(writeLettersPdf(folder / "a.pdf", renderer, letters));
        written.push_back(bytesOf(folder / "a.pdf"));
    }
    CHECK(written[0] == written[1]);
}

TEST_CASE("the place of a code is not drawn, and another kind of code is reported")
{
    const FormDocument form =
        readSvg(svgPage("<rect x='10' y='20' width='18' height='18' fill='#f00' data-code='qr'/>"
                        "<rect x='50' y='20' width='18' height='18' fill='#f00' data-code='ean'/>"));
    CHECK(form.commands.empty());
    REQUIRE(form.codes.size() == 1);
    CHECK(form.codes[0].box.left == doctest::Approx(10 * kPointsPerMillimetre));
    CHECK(form.codes[0].box.width == doctest::Approx(18 * kPointsPerMillimetre));
    CHECK(form.notices == std::vector<std::string>{"コード「ean」（data-code）には対応していません。"});
}
