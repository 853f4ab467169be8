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

TEST_CASE("a form of another size than the script's paper is scaled to the paper, with a notice")
{
    const TempFolder folder;
    const LetterSet set = opened(folder, formOf("width='148mm' height='210mm'"), "PrintPaper, A4\r\n");
    Fonts fonts;
    const LetterRenderer renderer(set, fonts);
    CHECK(isSamePaper(renderer.paperSize(0), sizeOf(Paper::A4)));
    CHECK(renderer.onPaper(0).a == doctest::Approx(297.0 / 210).epsilon(0.01));
    REQUIRE(set.notices.size() == 1);
    CHECK(contains(set.notices[0], "帳票の大きさ（A5）と用紙（A4）が違います。用紙に合わせて拡大または縮小します。"));
}

TEST_CASE(
    "a form with data-paper=\"own\" is printed on paper of its own size whatever the script's paper is, with a notice")
{
    const TempFolder folder;
    const LetterSet set =
        opened(folder, formOf("width='120mm' height='235mm'", "data-paper='own'"), "PrintPaper, A4\r\n");
    Fonts fonts;
    LetterRenderer renderer(set, fonts);
    CHECK(isSamePaper(renderer.paperSize(0), millimetres(120, 235)));
    REQUIRE(set.notices.size() == 1);
    CHECK(contains(set.notices[0], "コマンドファイルの用紙はA4ですが、帳票の大きさ（長形3号）の用紙に印刷します。"));
    REQUIRE(writeLettersPdf(folder / "o.pdf", renderer, std::vector<std::size_t>{0}));
    CHECK(contains(bytesOf(folder / "o.pdf"), "/MediaBox[0 0 340.16 666.14]"));
}
