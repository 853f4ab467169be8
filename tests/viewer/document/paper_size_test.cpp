// The paper of a form and of the script.
#include "viewer/document/paper_size.h"
#include "viewer/pdf/letters_pdf.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

Point millimetres(double width, double height)
{
    return {width * kPointsPerMillimetre, height * kPointsPerMillimetre};
}

std::string formOf(const std::string &size, const std::string &more = {})
{
    return "<svg xmlns='http://www.w3.org/2000/svg' " + size + " " + more +
           "><text x='9' y='20'>{{利用者氏名}}</text></svg>";
}

/// A print job whose form has this text and whose script has this line for the paper.
LetterSet opened(const TempFolder &folder, const std::string &form, const std::string &paperLine)
{
    const std::string script = writePrintJob(folder, kForm, {ordinaryRow()});
    folder.put(kForm, form);
    std::string bytes = bytesOf(script);
    const std::string line = "PrintPaper, A4\r\n";
    REQUIRE(bytes.find(line) != std::string::npos);
    bytes.replace(bytes.find(line), line.size(), paperLine);
    writeBytes(script, bytes);
    return openScript(script);
}

} // namespace

TEST_CASE("papers have their names, also sideways, and others their size")
{
    CHECK(paperName(sizeOf(Paper::B5)) == "B5");
    CHECK(paperName(millimetres(120, 235)) == "長形3号");
    CHECK(paperName(millimetres(332, 240)) == "角形2号横");
    CHECK(paperName(millimetres(100, 150.5)) == "100 × 150.5 mm");
    CHECK(paperMedia(millimetres(240, 332)) == "jpn_kaku2_240x332mm");
    CHECK(paperMedia(millimetres(297, 210)) == "iso_a4_210x297mm");
    CHECK(paperMedia(millimetres(80, 60)) == "custom_80x60mm_80x60mm");
    CHECK(isSamePaper(sizeOf(Paper::A4), {595, 842}));
    CHECK(!isSamePaper(sizeOf(Paper::A4), {595, 792}));
}

TEST_CASE("a script without a paper leaves the paper to the form")
{
    const TempFolder folder;
    const LetterSet set = opened(folder, formOf("width='120mm' height='235mm'"), "");
    Fonts fonts;
    const LetterRenderer renderer(set, fonts);
    CHECK(set.notices.empty());
    CHECK(isSamePaper(renderer.paperSize(0), millimetres(120, 235)));
    CHECK(renderer.onPaper(0).a == 1);
}

TEST_CASE("a form of another standard size than A4 is printed on paper of its own size, with a notice")
{
    struct Case {
        const char *size, *name, *mediaBox;
    };
    constexpr Case kCases[] = {{"width='148mm' height='210mm'", "A5", "[0 0 419.53 595.28]"},
                               {"width='182mm' height='257mm'", "B5", "[0 0 515.91 728.5]"},
                               {"width='120mm' height='235mm'", "長形3号", "[0 0 340.16 666.14]"},
                               {"width='240mm' height='332mm'", "角形2号", "[0 0 680.31 941.1]"},
                               {"width='297mm' height='210mm'", "A4横", "[0 0 841.89 595.28]"}};
    for (const Case &each : kCases) {
        CAPTURE(std::string(each.name));
        const TempFolder folder;
        const LetterSet set = opened(folder, formOf(each.size), "PrintPaper, A4\r\n");
        Fonts fonts;
        LetterRenderer renderer(set, fonts);
        CHECK(renderer.onPaper(0).a == 1);
        REQUIRE(set.notices.size() == 1);
        CHECK(contains(set.notices[0], "コマンドファイルの用紙はA4ですが、帳票の大きさ（" + std::string(each.name) +
                                           "）の用紙に印刷します。"));
        REQUIRE(writeLettersPdf(folder / "o.pdf", renderer, std::vector<std::size_t>{0}));
        CHECK(contains(bytesOf(folder / "o.pdf"), "/MediaBox" + std::string(each.mediaBox)));
    }
}

namespace {

/// Checks that a form is scaled to the script's paper, and that a notice names both sizes.
void checkScaled(const std::string &form, const std::string &paperLine, const std::string &sizes)
{
    CAPTURE(form);
    const TempFolder folder;
    const LetterSet set = opened(folder, form, paperLine);
    Fonts fonts;
    const LetterRenderer renderer(set, fonts);
    CHECK(isSamePaper(renderer.paperSize(0), sizeOf(set.paper)));
    CHECK(renderer.onPaper(0).a != 1);
    REQUIRE(set.notices.size() == 1);
    CHECK(contains(set.notices[0], sizes + "が違います。用紙に合わせて拡大または縮小します。"));
}

} // namespace

TEST_CASE("a form of no standard size is scaled to the script's paper, with a notice")
{
    checkScaled(formOf("width='200mm' height='280mm'"), "PrintPaper, A4\r\n",
                "帳票の大きさ（200 × 280 mm）と用紙（A4）");
}

TEST_CASE("a script that chooses another paper than A4 scales every form to it, with a notice")
{
    checkScaled(formOf("width='210mm' height='297mm'"), "PrintPaper, A5\r\n", "帳票の大きさ（A4）と用紙（A5）");
    checkScaled(formOf("width='120mm' height='235mm'"), "PrintPaper, B5\r\n", "帳票の大きさ（長形3号）と用紙（B5）");
}

TEST_CASE("data-paper=\"own\" and \"script\" decide the paper, and another word is reported")
{
    {
        const TempFolder folder;
        const LetterSet set =
            opened(folder, formOf("width='90mm' height='60mm'", "data-paper='own'"), "PrintPaper, A5\r\n");
        Fonts fonts;
        const LetterRenderer renderer(set, fonts);
        CHECK(isSamePaper(renderer.paperSize(0), millimetres(90, 60)));
        REQUIRE(set.notices.size() == 1);
        CHECK(contains(set.notices[0],
                       "コマンドファイルの用紙はA5ですが、帳票の大きさ（90 × 60 mm）の用紙に印刷します。"));
    }
    checkScaled(formOf("width='148mm' height='210mm'", "data-paper='script'"), "PrintPaper, A4\r\n",
                "帳票の大きさ（A5）と用紙（A4）");
    const TempFolder folder;
    const LetterSet set =
        opened(folder, formOf("width='210mm' height='297mm'", "data-paper='A5'"), "PrintPaper, A4\r\n");
    REQUIRE(set.notices.size() == 1);
    CHECK(contains(set.notices[0], "用紙の指定「A5」（data-paper）は使えません。own か script です。"));
}
