#include "runtime/utf8.h"
#include "viewer/form/svg_reader.h"
#include "viewer/pdf/letters_pdf.h"
#include "viewer/pdf/pdf_objects.h"
#include "viewer/pdf/pdf_text.h"
#include "viewer/support/test_pictures.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <numeric>
#include <sstream>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

struct Tagged {
    TempFolder folder;
    LetterSet set;
    Fonts fonts;
    LetterRenderer renderer;
    std::vector<std::size_t> letters;
    std::string pdf = folder / "out.pdf";

    explicit Tagged(LetterSet given, const PdfOptions &options = {}, std::vector<std::string> codes = {})
        : set(std::move(given)), renderer(set, fonts)
    {
        renderer.setCodes(std::move(codes));
        letters.resize(set.size());
        std::iota(letters.begin(), letters.end(), std::size_t{0});
        REQUIRE(writeLettersPdf(pdf, renderer, letters, {}, options));
    }
    /// What another program prints about the file.
    [[nodiscard]] std::string printed(const std::string &command) const
    {
        REQUIRE(std::system((command + " '" + pdf + "' > '" + pdf + ".out'").c_str()) == 0);
        return bytesOf(pdf + ".out");
    }
};

LetterSet lettersOfForm(const char *form, const std::vector<Row> &rows)
{
    const TempFolder folder;
    return openScript(writePrintJob(folder, form, rows));
}

Row rowOf(const std::string &insurer, const std::string &patient, const std::string &begin = "2026/11/01")
{
    Row row = ordinaryRow();
    row["保険者名"] = insurer;
    row["利用者氏名"] = patient;
    row["対象開始日"] = row["対象終了日"] = begin;
    return row;
}

std::string textString(const std::string &text)
{
    std::string hex;
    appendTextString(hex, text);
    std::ranges::transform(hex, hex.begin(),
                           [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return hex;
}

/// The operators of a content stream that paint, and whether all of them are inside marked content.
bool isAllMarked(const std::string &content)
{
    int depth = 0;
    std::size_t painting = 0;
    std::istringstream lines(content);
    for (std::string line; std::getline(lines, line);) {
        if (line.ends_with("BDC") || line.ends_with("BMC")) ++depth;
        if (line.ends_with("EMC")) --depth;
        const bool paints = line.ends_with("Tj") || line.ends_with("TJ") || line.ends_with(" Do") ||
                            line.ends_with(" Do Q") || line == "f" || line == "S" || line == "B" || line == "f*" ||
                            line == "B*";
        if (paints) ++painting;
        if (paints && depth == 0) return false;
    }
    return painting > 0 && depth == 0;
}

/// Checks that everything on the pages is in a line or an artifact, and that each line has its paragraph.
void checkMarks(const Tagged &pdf, std::size_t pageCount)
{
    const PdfObjects file(pdf.pdf);
    const std::string tree = file.object(PdfObjects::reference(file.catalog(), "StructTreeRoot"));
    const std::string parents = file.object(PdfObjects::reference(tree, "ParentTree"));
    const std::string leaf = file.object(PdfObjects::references(parents).at(0));
    const std::vector<int> lists = PdfObjects::references(leaf.substr(leaf.find("/Nums")));
    const std::vector<int> pages = file.having("/Type /Page");
    REQUIRE(pages.size() == pageCount);
    REQUIRE(lists.size() == pageCount);
    for (const int page : pages) {
        const std::string &entries = file.object(page);
        const std::string content = file.stream(PdfObjects::reference(entries, "Contents"));
        CHECK(isAllMarked(content));
        CHECK(contains(entries, "/Tabs /S"));
        const auto key = static_cast<std::size_t>(PdfObjects::integer(entries, "StructParents"));
        const std::vector<int> paragraphs = PdfObjects::references(file.object(lists.at(key)));
        REQUIRE(!paragraphs.empty());
        for (std::size_t i = 0; i < paragraphs.size(); ++i) {
            const std::string &paragraph = file.object(paragraphs[i]);
            CHECK(contains(content, "/MCID " + std::to_string(i) + ">>BDC"));
            CHECK(PdfObjects::integer(paragraph, "K") == static_cast<int>(i));
            CHECK(PdfObjects::reference(paragraph, "Pg") == page);
        }
        CHECK_FALSE(contains(content, "/MCID " + std::to_string(paragraphs.size()) + ">>"));
    }
}

/// The objects of the first pages, in order.
std::vector<int> pageObjects(const PdfObjects &file)
{
    const std::string &tree = file.object(PdfObjects::reference(file.catalog(), "Pages"));
    const std::string &node = file.object(PdfObjects::references(tree.substr(tree.find("/Kids"))).at(0));
    const std::size_t begin = node.find("/Kids");
    return PdfObjects::references(node.substr(begin, node.find(']', begin) - begin));
}

/// A form of two sheets with a picture, a code and a text that only letters with a head of the household have.
constexpr const char *kTwoSheets =
    "<svg xmlns='http://www.w3.org/2000/svg' xmlns:inkscape='http://www.inkscape.org/namespaces/inkscape' "
    "width='210mm' height='297mm' viewBox='0 0 210 297' font-size='4'><inkscape:page width='210' height='297'/>"
    "<inkscape:page x='220' width='210' height='297'/><text x='60' y='20'>{{利用者氏名}}</text>"
    "<text x='10' y='20'>氏名</text><image data-if='世帯主名' x='100' y='100' width='20' height='20' href='seal.png'/>"
    "<rect data-code='qr' x='100' y='200' width='20' height='20'/><text x='230' y='20'>裏面</text>"
    "<text data-if='世帯主名' x='230' y='60'>世帯主は{{世帯主名}}です。</text></svg>";

} // namespace

TEST_CASE("the text of a page is extracted in the order of reading, each label with its value")
{
    const Tagged pdf(lettersOfForm(kForm, {ordinaryRow()}));
    const std::string page = pagesOf(pdf.pdf).at(0);
    CHECK(contains(page, "委任の内容\n"));
    CHECK(contains(page, "委任する期間 令和6年5月1日 から 令和6年5月31日 まで\n"));
    CHECK(contains(packed(page), "代表者氏名山﨑太郎印"));
    CHECK(contains(page, "上記のとおり委任します。 令和6年"));
    CHECK(contains(packed(page), "施術を受けた者髙橋花子同住所香川県高松市番町１丁目２番３号"));
}

TEST_CASE("the structure has a section for each letter, with a paragraph for each line in the order of reading")
{
    const Tagged pdf(
        lettersOn(svgPage("<rect x='5' y='5' width='9' height='9'/><text x='60' y='20'>{{利用者氏名}}</text>"
                          "<text x='10' y='20'>氏名</text><text x='10' y='60'>表題</text>"),
                  {rowOf("甲市", "山田"), rowOf("甲市", "川田")}));
    CHECK(pdf.printed("pdfinfo -struct-text") == "Document\n"
                                                 "  Sect\n"
                                                 "    P (block)\n      \"氏名 山田\"\n"
                                                 "    P (block)\n      \"表題\"\n"
                                                 "  Sect\n"
                                                 "    P (block)\n      \"氏名 川田\"\n"
                                                 "    P (block)\n      \"表題\"\n");
    CHECK(contains(pdf.printed("pdfinfo"), "Tagged:          yes\n"));
}

TEST_CASE("two values beside each other are extracted with a blank between them, also if one between them is missing")
{
    const std::string form =
        "<text x='10' y='20'>{{保険者名}}</text><g data-if='世帯主名'><text x='60' y='20'>{{世帯主名}}"
        "</text></g><text x='120' y='20'>{{利用者氏名}}</text>";
    std::vector<Row> rows = {rowOf("甲市", "山田"), rowOf("乙市", "川田")};
    rows[0]["世帯主名"] = "";
    rows[1]["世帯主名"] = "川田　一郎";
    const Tagged pdf(lettersOn(svgPage(form), rows));
    const std::string structure = pdf.printed("pdfinfo -struct-text");
    CHECK(contains(structure, "\"甲市 山田\""));
    CHECK(contains(structure, "\"乙市 川田　一郎 川田\""));
}

TEST_CASE("everything on a page is in a line or an artifact, and each line has its paragraph in the parent tree")
{
    for (const char *form : kForms) {
        CAPTURE(std::string(form));
        checkMarks(Tagged(lettersOfForm(form, {ordinaryRow(), longestRow(), Row{}, oddRow()})), 4);
    }
}

TEST_CASE(
    "the section of a letter of two sheets has the lines of both, without the parts whose condition does not hold")
{
    Row with = rowOf("甲市", "山田"), without = rowOf("甲市", "川田");
    with["世帯主名"] = "長尾";
    without["世帯主名"] = "";
    LetterSet set = lettersOn(svgPage(""), {with, without});
    set.reports[0].form = readSvg(kTwoSheets, pictureBytes);
    REQUIRE(set.reports[0].form.notices.empty());
    const Tagged pdf(std::move(set), {}, {"123456-0000001-42", "123456-0000002-07"});
    CHECK(pdf.printed("pdfinfo -struct-text") == "Document\n"
                                                 "  Sect\n"
                                                 "    P (block)\n      \"氏名 山田\"\n"
                                                 "    P (block)\n      \"裏面\"\n"
                                                 "    P (block)\n      \"世帯主は長尾です。\"\n"
                                                 "  Sect\n"
                                                 "    P (block)\n      \"氏名 川田\"\n"
                                                 "    P (block)\n      \"裏面\"\n");
    checkMarks(pdf, 4);
    const PdfObjects file(pdf.pdf);
    const auto contentOf = [&](std::size_t page) {
        return file.stream(PdfObjects::reference(file.object(pageObjects(file).at(page)), "Contents"));
    };
    // Pictures and codes are artifacts.
    CHECK(contains(contentOf(0), "/Artifact BMC\nq "));
    CHECK_FALSE(contains(contentOf(2), "/I0 Do"));
    CHECK(contains(contentOf(2), "f\nEMC\n"));
    // The list of letters refers to the first sheet of each.
    const std::string outline = file.object(PdfObjects::reference(file.catalog(), "Outlines"));
    const std::string insurer = file.object(PdfObjects::reference(outline, "First"));
    const std::string last = file.object(PdfObjects::reference(insurer, "Last"));
    CHECK(PdfObjects::references(last.substr(last.find("/Dest"))).at(0) == pageObjects(file).at(2));
    CHECK(std::system(("qpdf --check '" + pdf.pdf + "' >/dev/null 2>&1").c_str()) == 0);
}

TEST_CASE("one letter of two sheets needs no outline")
{
    LetterSet set = lettersOn(svgPage(""), {ordinaryRow()});
    set.reports[0].form = readSvg(kTwoSheets, pictureBytes);
    const Tagged pdf(std::move(set));
    CHECK(PdfObjects(pdf.pdf).having("/Type /Page").size() == 2);
    CHECK_FALSE(contains(PdfObjects(pdf.pdf).catalog(), "/Outlines"));
}

TEST_CASE("a tagged PDF has its language, and its title with kind and months instead of the file's name")
{
    LetterSet set = lettersOn(svgPage("<title>委任状（標準）</title><text x='9' y='9'>{{利用者氏名}}</text>"),
                              {rowOf("甲市", "山田"), rowOf("甲市", "川田", "2027/01/05")});
    set.title = "委任状";
    const Tagged pdf(std::move(set));
    CHECK(contains(pdf.printed("pdfinfo"), "Title:           委任状（標準）　令和8年11月～令和9年1月\n"));
    const std::string catalog = PdfObjects(pdf.pdf).catalog();
    CHECK(contains(catalog, "/Lang (ja)"));
    CHECK(contains(catalog, "/DisplayDocTitle true"));
    CHECK(contains(catalog, "/Marked true"));
    CHECK(contains(pdf.printed("pdfinfo -meta"),
                   "<rdf:li xml:lang=\"x-default\">委任状（標準）　令和8年11月～令和9年1月</rdf:li>"));
    const Tagged named(lettersOn(svgPage("<text x='9' y='9'>{{利用者氏名}}</text>"), {ordinaryRow()}),
                       {PdfPurpose::reading, {}, "甲市　三枚"});
    CHECK(contains(named.printed("pdfinfo"), "Title:           甲市　三枚\n"));
}

TEST_CASE("the outline lists the insurers with their patients, in the order of the letters")
{
    const Tagged pdf(lettersOn(svgPage("<text x='9' y='9'>{{利用者氏名}}</text>"),
                               {rowOf("乙市", "山田"), rowOf("甲市", "川田"), rowOf("乙市", "髙橋"), rowOf("", "林")}));
    const PdfObjects file(pdf.pdf);
    const auto titlesBelow = [&](int parent) {
        std::vector<std::string> titles;
        for (int entry = PdfObjects::reference(file.object(parent), "First"); entry != 0;
             entry = PdfObjects::reference(file.object(entry), "Next"))
            titles.push_back(file.object(entry));
        return titles;
    };
    const int root = PdfObjects::reference(file.catalog(), "Outlines");
    REQUIRE(root != 0);
    const auto insurers = titlesBelow(root);
    REQUIRE(insurers.size() == 3);
    const char *const expected[] = {"乙市", "甲市", "林"};
    for (std::size_t i = 0; i < 3; ++i) CHECK(contains(insurers[i], "/Title " + textString(expected[i])));
    CHECK(contains(insurers[0], "/Count -2\n"));
    const std::vector<int> pages = pageObjects(file);
    REQUIRE(pages.size() == 4);
    const int first = PdfObjects::reference(insurers[0], "First"), last = PdfObjects::reference(insurers[0], "Last");
    CHECK(contains(file.object(first), "/Title " + textString("山田")));
    CHECK(contains(file.object(last), "/Title " + textString("髙橋")));
    CHECK(PdfObjects::references(file.object(last).substr(file.object(last).find("/Dest"))).at(0) == pages[2]);
}

TEST_CASE("a PDF of one letter has no outline, and one for printing has neither tags nor metadata")
{
    const Tagged one(lettersOn(svgPage("<text x='9' y='9'>{{利用者氏名}}</text>"), {ordinaryRow()}));
    CHECK_FALSE(contains(PdfObjects(one.pdf).catalog(), "/Outlines"));
    const Tagged printing(lettersOn(svgPage("<text x='9' y='9'>{{利用者氏名}}</text>"), {ordinaryRow(), ordinaryRow()}),
                          {PdfPurpose::printing});
    const PdfObjects file(printing.pdf);
    for (const char *entry : {"/Outlines", "/StructTreeRoot", "/Metadata"})
        CHECK_FALSE(contains(file.catalog(), entry));
    CHECK(printing.printed("pdfinfo -struct").empty());
}

TEST_CASE("a tagged page looks like an untagged one")
{
    for (const char *form : kForms) {
        CAPTURE(std::string(form));
        std::string pictures[2];
        for (const PdfPurpose purpose : {PdfPurpose::reading, PdfPurpose::printing}) {
            const Tagged pdf(lettersOfForm(form, {longestRow()}), {purpose});
            REQUIRE(std::system(("pdftoppm -r 75 -gray -singlefile '" + pdf.pdf + "' '" + pdf.pdf + "'").c_str()) == 0);
            pictures[purpose == PdfPurpose::printing] = bytesOf(pdf.pdf + ".pgm");
        }
        CHECK(pictures[0] == pictures[1]);
    }
}

TEST_CASE("letters with and without a conditional line keep their own paragraphs, in more than one stream of objects")
{
    std::string form = "<text data-if='世帯主名' x='9' y='9'>世帯主</text><text x='9' y='20'>{{利用者氏名}}</text>";
    for (int line = 0; line < 20; ++line)
        form +=
            "<text x='9' y='" + std::to_string(40 + 12 * line) + "'>{{保険者名}}" + std::to_string(line) + "</text>";
    std::vector<Row> rows;
    for (int i = 0; i < 99; ++i) {
        rows.push_back(rowOf("甲市", "名" + std::to_string(i)));
        rows.back()["世帯主名"] = i % 3 == 0 ? "長尾" : "";
    }
    const Tagged pdf(lettersOn(svgPage(form), rows));
    checkMarks(pdf, 99);
    std::istringstream structure(pdf.printed("pdfinfo -struct-text"));
    std::size_t paragraphs = 0, conditional = 0;
    for (std::string line; std::getline(structure, line);) {
        if (contains(line, "P (block)")) ++paragraphs;
        if (contains(line, "\"世帯主\"")) ++conditional;
    }
    CHECK(paragraphs == 99 * 21 + 33);
    CHECK(conditional == 33);
}

TEST_CASE("a further letter of the standard form takes at most 900 bytes with its tags and its entry in the outline")
{
    const auto sizeOf = [](int letters) {
        std::vector<Row> rows;
        for (int i = 0; i < letters; ++i) {
            rows.push_back(rowOf("第" + std::to_string(i % 20) + "市", "患者" + std::to_string(i)));
            rows.back()["世帯主名"] = "世帯主" + std::to_string(i);
        }
        return bytesOf(Tagged(lettersOfForm(kForm, rows)).pdf).size();
    };
    const std::size_t one = sizeOf(500), two = sizeOf(1000);
    CHECK(two > one);
    CHECK(two - one <= std::size_t{500} * 900);
}

TEST_CASE("more letters than fit into one stream of objects keep their order")
{
    std::vector<Row> rows;
    rows.reserve(950);
    for (int i = 0; i < 950; ++i) rows.push_back(rowOf("甲" + std::to_string(i / 7), "名" + std::to_string(i)));
    const Tagged pdf(lettersOn(svgPage("<text x='9' y='9'>氏名</text><text x='40' y='9'>{{利用者氏名}}</text>"), rows));
    const auto pages = pagesOf(pdf.pdf);
    REQUIRE(pages.size() == 950);
    for (const std::size_t page : {0U, 99U, 100U, 399U, 949U})
        CHECK(packed(pages[page]) == "氏名名" + std::to_string(page));
    CHECK(std::system(("qpdf --check '" + pdf.pdf + "' >/dev/null 2>&1").c_str()) == 0);
    const std::string structure = pdf.printed("pdfinfo -struct-text");
    CHECK(contains(structure, "\"氏名 名949\""));
}
