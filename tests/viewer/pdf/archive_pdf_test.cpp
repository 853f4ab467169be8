#include "viewer/form/svg_reader.h"
#include "viewer/pdf/letters_pdf.h"
#include "viewer/pdf/pdf_objects.h"
#include "viewer/pdf/srgb_profile.h"
#include "viewer/support/test_pictures.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <numeric>
#include <set>
#include <sstream>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

struct Archived {
    TempFolder folder;
    std::string pdf = folder / "out.pdf";

    explicit Archived(const LetterSet &set)
    {
        Fonts fonts;
        LetterRenderer renderer(set, fonts);
        std::vector<std::size_t> letters(set.size());
        std::iota(letters.begin(), letters.end(), std::size_t{0});
        REQUIRE(writeLettersPdf(pdf, renderer, letters, {}, {PdfPurpose::archive}));
    }
};

Row rowWith(const std::string &name)
{
    Row row = ordinaryRow();
    row["利用者氏名"] = name;
    return row;
}

std::uint32_t bigEndian(const std::string &bytes, std::size_t at, std::size_t count)
{
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < count; ++i) number = number << 8 | static_cast<unsigned char>(bytes.at(at + i));
    return number;
}

/// A form with pictures of each kind: in gray and in colour, transparent, faded, and a JPEG.
LetterSet lettersWithPictures()
{
    LetterSet set = lettersOn(svgPage(""), {ordinaryRow(), longestRow()});
    std::string images = "<text x='9' y='90'>{{利用者氏名}}</text>";
    for (const char *name : {"photo.jpg", "gray.jpg", "progressive.jpg", "gray.png", "palette.png", "seal.png"})
        images += "<image width='20' height='20' href='" + std::string(name) + "'/>";
    images += "<image width='20' height='20' opacity='.5' href='photo.jpg'/>"
              "<image data-if='世帯主名' width='20' height='20' href='four.png'/>";
    set.reports[0].form = readSvg(svgPage(images), pictureBytes);
    CHECK(set.reports[0].form.notices.empty());
    return set;
}

/// All forms, with a vertical text, colours, a character that only another font has, and one that no font has.
std::vector<LetterSet> everyKind()
{
    std::vector<LetterSet> sets;
    for (const char *form : kForms) {
        const TempFolder folder;
        sets.push_back(openScript(writePrintJob(folder, form, {ordinaryRow(), longestRow(), oddRow(), Row{}})));
    }
    sets.push_back(lettersOn(
        svgPage(
            "<text x='90' y='20' fill='#c00' style='writing-mode:vertical-rl'>縦書き（ー）12</text>"
            "<text x='10' y='20'>{{利用者氏名}}</text><text x='10' y='80'>甲\U0010FFFD</text><circle cx='50' cy='50' r='9' fill='blue'/>"),
        {rowWith("髙﨑∑"), rowWith("甲乙")}));
    sets.push_back(lettersWithPictures());
    return sets;
}

} // namespace

TEST_CASE("an archived PDF follows the rules of PDF/A-2u")
{
    for (const LetterSet &set : everyKind()) {
        const Archived archived(set);
        const std::string bytes = bytesOf(archived.pdf);
        CHECK(bytes.starts_with("%PDF-1.7\n%"));
        for (std::size_t i = 10; i < 14; ++i) CHECK(static_cast<unsigned char>(bytes[i]) > 127);
        CHECK(bytes.ends_with("%%EOF\n"));
        CHECK(std::system(("qpdf --check '" + archived.pdf + "' >/dev/null 2>&1").c_str()) == 0);
        const PdfObjects file(archived.pdf);
        CHECK(contains(file.trailer(), "/ID [<"));
        CHECK_FALSE(contains(bytes, "/Encrypt"));
        for (const auto &object : file.all()) {
            const std::string entries = file.dictionary(object.first);
            for (const char *forbidden :
                 {"/JavaScript", "/AA", "/OpenAction", "/EmbeddedFiles", "/LZWDecode", "/OPI", "/Ref ", "/TR ",
                  "/DeviceCMYK", "/Alternates", "/Launch", "/URI", "/XFA", "/Crypt", "/Interpolate true"})
                CHECK_FALSE(contains(entries, forbidden));
            // Only pictures are transparent, each by a gray picture of its own.
            const int mask = PdfObjects::reference(entries, "SMask");
            CHECK((mask != 0) == contains(entries, "/SMask"));
            if (mask == 0) continue;
            CHECK(contains(entries, "/Subtype /Image\n"));
            CHECK(contains(file.dictionary(mask), "/ColorSpace /DeviceGray\n"));
            CHECK_FALSE(contains(file.dictionary(mask), "/SMask"));
        }
        // Pages name their resources themselves.
        for (const int page : file.having("/Type /Page"))
            CHECK(PdfObjects::reference(file.object(page), "Resources") != 0);
        for (const int form : file.having("/Subtype /Form"))
            CHECK(PdfObjects::reference(file.dictionary(form), "Resources") != 0);
    }
}

TEST_CASE("an archived PDF has its colours' meaning as an output intent with the profile sRGB")
{
    const Archived archived(lettersWithPictures());
    const PdfObjects file(archived.pdf);
    CHECK(file.having("/Subtype /Image").size() == 11); // eight pictures, of which three have transparent parts
    const std::string &catalog = file.catalog();
    CHECK(contains(catalog, "/S /GTS_PDFA1\n"));
    CHECK(contains(catalog, "/OutputConditionIdentifier (sRGB)\n"));
    const int profile = PdfObjects::reference(catalog, "DestOutputProfile");
    REQUIRE(profile != 0);
    CHECK(contains(file.dictionary(profile), "/N 3\n"));
    CHECK(contains(file.stream(profile), srgbProfile()));
}

TEST_CASE("the profile has the tags that ICC wants of a monitor, each within the profile")
{
    const std::string profile = srgbProfile();
    CHECK(bigEndian(profile, 0, 4) == profile.size());
    CHECK(profile.substr(12, 12) == "mntrRGB XYZ ");
    CHECK(profile.substr(36, 4) == "acsp");
    std::set<std::string> names;
    for (std::uint32_t i = 0; i < bigEndian(profile, 128, 4); ++i) {
        const std::size_t entry = 132 + std::size_t{i} * 12;
        names.insert(profile.substr(entry, 4));
        const std::uint32_t begin = bigEndian(profile, entry + 4, 4), size = bigEndian(profile, entry + 8, 4);
        CHECK(begin % 4 == 0);
        CHECK(std::size_t{begin} + size <= profile.size());
    }
    for (const char *tag : {"desc", "cprt", "wtpt", "chad", "rXYZ", "gXYZ", "bXYZ", "rTRC", "gTRC", "bTRC"})
        CHECK(names.count(tag) == 1);
    // The primaries together are the white point.
    const auto component = [&](const char *tag, std::size_t index) {
        for (std::uint32_t i = 0; i < bigEndian(profile, 128, 4); ++i) {
            const std::size_t entry = 132 + std::size_t{i} * 12;
            if (profile.substr(entry, 4) == tag)
                return static_cast<double>(bigEndian(profile, bigEndian(profile, entry + 4, 4) + 8 + index * 4, 4)) /
                       65536;
        }
        return 0.0;
    };
    for (std::size_t i = 0; i < 3; ++i)
        CHECK(component("rXYZ", i) + component("gXYZ", i) + component("bXYZ", i) ==
              doctest::Approx(component("wtpt", i)).epsilon(0.0005));
}

TEST_CASE("an archived PDF names its standards and its title in uncompressed metadata, like its information")
{
    const TempFolder job;
    const Archived archived(openScript(writePrintJob(job, kForm, {ordinaryRow()})));
    const std::string bytes = bytesOf(archived.pdf);
    for (const char *part : {"<pdfaid:part>2</pdfaid:part>", "<pdfaid:conformance>U</pdfaid:conformance>",
                             "<pdfuaid:part>1</pdfuaid:part>", "<pdf:Producer>formviewer</pdf:Producer>",
                             "<rdf:li xml:lang=\"x-default\">委任状（標準）　令和6年5月</rdf:li>",
                             "<pdfaSchema:prefix>pdfuaid</pdfaSchema:prefix>"})
        CHECK(contains(bytes, part));
    REQUIRE(std::system(("pdfinfo '" + archived.pdf + "' > '" + archived.pdf + ".out'").c_str()) == 0);
    const std::string information = bytesOf(archived.pdf + ".out");
    CHECK(contains(information, "Title:           委任状（標準）　令和6年5月\n"));
    CHECK(contains(information, "Producer:        formviewer\n"));
}

TEST_CASE(
    "every font of an archived PDF is embedded with the Unicode values of its characters, and shows no missing glyph")
{
    for (const LetterSet &set : everyKind()) {
        const Archived archived(set);
        REQUIRE(std::system(("pdffonts '" + archived.pdf + "' > '" + archived.pdf + ".out'").c_str()) == 0);
        std::istringstream fonts(bytesOf(archived.pdf + ".out"));
        std::size_t count = 0;
        for (std::string line; std::getline(fonts, line);) {
            if (!contains(line, "+")) continue;
            ++count;
            CHECK(contains(line, "yes yes yes"));
        }
        CHECK(count > 0);
        const PdfObjects file(archived.pdf);
        const std::vector<int> descendants = file.having("/Subtype /CIDFontType2");
        CHECK(descendants.size() == count);
        for (const int font : descendants) {
            const std::string map = file.stream(PdfObjects::reference(file.object(font), "CIDToGIDMap"));
            for (std::size_t code = 1; code * 2 + 1 < map.size(); ++code) CHECK(bigEndian(map, code * 2, 2) != 0);
        }
    }
}

TEST_CASE("a character that no font has is an empty square in a saved PDF and keeps its value")
{
    const Archived archived(lettersOn(svgPage("<text x='10' y='20'>甲\U0010FFFD乙</text>"), {ordinaryRow()}));
    CHECK(packed(pagesOf(archived.pdf).at(0)) == "甲\U0010FFFD乙");
}

TEST_CASE("the command line writes an archived PDF, or one without tags, but not both")
{
    TempFolder folder;
    const std::string script = writePrintJob(folder, kForm, {ordinaryRow(), ordinaryRow()});
    REQUIRE(runViewer(folder, "--pdf a.pdf --archive " + script).code == 0);
    CHECK(contains(folder.bytes("a.pdf"), "<pdfaid:part>2</pdfaid:part>"));
    REQUIRE(runViewer(folder, "--pdf t.pdf " + script).code == 0);
    CHECK_FALSE(contains(folder.bytes("t.pdf"), "pdfaid"));
    CHECK(contains(folder.bytes("t.pdf"), "/StructTreeRoot"));
    REQUIRE(runViewer(folder, "--pdf u.pdf --untagged " + script).code == 0);
    CHECK_FALSE(contains(folder.bytes("u.pdf"), "/StructTreeRoot"));
    const Outcome both = runViewer(folder, "--pdf b.pdf --archive --untagged " + script);
    CHECK(both.code == 2);
    CHECK(both.errors == "formviewer: --archive と --untagged は一緒に指定できません。\n");
}
