// Pictures and further pages in a PDF, read back with other programs.
#include "viewer/form/svg_reader.h"
#include "viewer/pdf/letters_pdf.h"
#include "viewer/support/test_pictures.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <numeric>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

std::string outputOf(const std::string &command, const TempFolder &folder)
{
    REQUIRE(std::system((command + " > '" + (folder / "out.txt") + "' 2>&1").c_str()) == 0);
    return folder.bytes("out.txt");
}

std::size_t countOf(const std::string &text, const std::string &part)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
    return count;
}

/// Writes fifty letters on a form whose pictures are beside it.
std::string writtenPdf(const TempFolder &folder, const std::string &svg)
{
    LetterSet set = lettersOn(svgPage(""), std::vector<Row>(50, ordinaryRow()));
    set.reports[0].form = readSvg(svg, pictureBytes);
    CHECK(set.reports[0].form.notices.empty());
    Fonts fonts;
    LetterRenderer renderer(set, fonts);
    std::vector<std::size_t> letters(set.size());
    std::iota(letters.begin(), letters.end(), std::size_t{0});
    REQUIRE(writeLettersPdf(folder / "o.pdf", renderer, letters));
    CHECK(
        contains(outputOf("qpdf --check '" + (folder / "o.pdf") + "'", folder), "No syntax or stream encoding errors"));
    return folder / "o.pdf";
}

} // namespace

TEST_CASE("a PDF has each picture once for all letters, a JPEG unchanged and a PNG with its transparency")
{
    const TempFolder folder;
    const std::string pdf = writtenPdf(
        folder, svgPage("<image width='40' height='20' href='photo.jpg'/><image x='50' width='20' height='20' "
                        "href='seal.png'/><g data-if='世帯主名'><image x='90' width='20' height='20' "
                        "href='seal.png'/></g>"));
    const std::string bytes = bytesOf(pdf);
    CHECK(countOf(bytes, "/Subtype/Image") == 3); // the JPEG, the PNG and its transparency
    CHECK(countOf(bytes, "/SMask") == 1);
    CHECK(contains(bytes, pictureBytes("photo.jpg")));
    const std::string list = outputOf("pdfimages -list -l 1 '" + pdf + "'", folder);
    CHECK(contains(list, "jpeg"));
    CHECK(countOf(list, "smask") == 2); // shown twice
    CHECK(bytes.size() < 60'000);
}

TEST_CASE("each letter's pages follow one another, and a selection counts letters")
{
    const TempFolder folder;
    const std::string svg =
        "<svg xmlns='http://www.w3.org/2000/svg' xmlns:inkscape='http://www.inkscape.org/namespaces/inkscape' "
        "width='210mm' height='297mm' viewBox='0 0 210 297'><inkscape:page width='210' height='297'/><inkscape:page "
        "x='220' width='210' height='297'/><text x='20' y='30' style='font-size:8px'>{{利用者氏名}}一</text>"
        "<text x='240' y='30' style='font-size:8px'>{{利用者氏名}}二</text></svg>";
    Row first = ordinaryRow(), second = ordinaryRow(), third = ordinaryRow();
    first["利用者氏名"] = "甲";
    second["利用者氏名"] = "乙";
    third["利用者氏名"] = "丙";
    const std::string script = writePrintJob(folder, kForm, {first, second, third});
    folder.put(kForm, svg);

    const Outcome outcome = runViewer(folder, "--pdf o.pdf --letters 3,1 " + script);

    CHECK(outcome.code == 0);
    CHECK(outcome.errors.empty());
    std::vector<std::string> pages = pagesOf(folder / "o.pdf");
    for (std::string &page : pages) page = packed(page);
    CHECK(pages == std::vector<std::string>{"丙一", "丙二", "甲一", "甲二"});
}
