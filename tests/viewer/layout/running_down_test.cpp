// Texts that run down: how they stand, fit, and are found again.
#include "viewer/form/svg_reader.h"
#include "viewer/layout/upright.h"
#include "viewer/layout/utf8.h"
#include "viewer/pdf/letters_pdf.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cmath>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

constexpr double kMm = 72 / 25.4;

/// One run as it was painted: where it begins, where its line ends, and whether its letters stand upright.
struct Painted {
    std::string text;
    double x, top, bottom, size, stretch;
    bool isUpright;
};

class Recorder : public PagePainter {
public:
    void paint(const PathCommand &) override {}
    void paint(const GlyphRun &run) override
    {
        const ShapedGlyph &first = run.glyphs.front(), &last = run.glyphs.back();
        const double step = run.size * run.stretch / 1000;
        const double begin = double{first.x} * step, end = (double{last.x} + double{last.advance}) * step;
        const Point from = run.at(run.runsDown ? Point{0, begin} : Point{begin, 0});
        const Point to = run.at(run.runsDown ? Point{0, end} : Point{end, 0});
        Painted painted{{}, from.x, from.y, to.y, run.size, run.stretch, run.runsDown};
        for (const ShapedGlyph &glyph : run.glyphs)
            for (const char32_t character : run.font->charactersOf(glyph.text)) appendUtf8(painted.text, character);
        runs.push_back(painted);
    }
    std::vector<Painted> runs;
};

/// A field that runs down in a box of 20 by 60 millimetres at (30, 40), and what it makes of a value.
struct DownField {
    LetterSet set;
    Fonts fonts;
    LetterPress press{set, fonts};
    std::vector<FieldMark> marks;

    explicit DownField(const std::string &attributes, const std::string &value = "", const std::string &style = "")
        : set(lettersOn(svgPage("<rect id='b' x='30' y='40' width='20' height='60' style='fill:none'/>"
                                "<text x='30' y='40' style='writing-mode:vertical-rl;font-family:IPAexMincho;"
                                "font-size:4px;" +
                                style + "' " + attributes + ">{{利用者氏名}}</text>"),
                        {Row{{"利用者氏名", value}}}))
    {
    }
    std::vector<Painted> runs()
    {
        Recorder recorder;
        marks = press.paintFields(0, recorder);
        return recorder.runs;
    }
};

std::string times(const std::string &text, int count)
{
    std::string out;
    for (int i = 0; i < count; ++i) out += text;
    return out;
}

std::string textOfPage(const std::string &svg, const Row &row)
{
    TempFolder folder;
    const LetterSet set = lettersOn(svg, {row});
    CHECK(set.reports[0].form.notices.empty());
    Fonts fonts;
    LetterPress press(set, fonts);
    REQUIRE(writeLettersPdf(folder / "o.pdf", press, std::vector<std::size_t>{0}));
    return pagesOf(folder / "o.pdf").at(0);
}

} // namespace

TEST_CASE("each name of a writing direction, new or old, is understood")
{
    struct Case {
        const char *mode;
        WritingMode writing;
    };
    for (const Case &each : {Case{"vertical-rl", WritingMode::downToLeft}, Case{"tb-rl", WritingMode::downToLeft},
                             Case{"tb", WritingMode::downToLeft}, Case{"vertical-lr", WritingMode::downToRight},
                             Case{"lr-tb", WritingMode::across}, Case{"lr", WritingMode::across},
                             Case{"horizontal-tb", WritingMode::across}}) {
        const FormDocument form =
            readSvg(svgPage("<text writing-mode='" + std::string(each.mode) + "' x='9' y='9'>文</text>"));
        CAPTURE(std::string(each.mode));
        CHECK(std::get<TextCommand>(form.commands.at(0)).writing == each.writing);
        CHECK(form.notices.empty());
    }
}

TEST_CASE("Japanese letters stand upright, Latin ones lie on their side, brackets and long vowels turn")
{
    for (const char32_t each : U"漢あア、。々〆〒①㈱８Ａ＆") {
        if (each != 0) CHECK(stanceOf(each) == Stance::upright);
    }
    for (const char32_t each : U"aZ09-(.ｱｶﾞ") {
        if (each != 0) CHECK(stanceOf(each) == Stance::sideways);
    }
    for (const char32_t each : U"「」（）ー〜…－") {
        if (each == U'〜') continue;
        if (each != 0) CHECK(stanceOf(each) == Stance::turned);
    }
    CHECK(stanceOf(U'〜') == Stance::turned);
    CHECK(stanceOf(0x20BB7) == Stance::upright);
}

TEST_CASE("a text that runs down begins at its place, its middle on it, and goes down a size a letter")
{
    DownField field("", "高松市");
    const auto runs = field.runs();
    REQUIRE(runs.size() == 1);
    CHECK(runs[0].isUpright);
    CHECK(runs[0].x == doctest::Approx(30 * kMm));
    CHECK(runs[0].top == doctest::Approx(40 * kMm));
    CHECK(runs[0].bottom == doctest::Approx(52 * kMm));
}

TEST_CASE("an anchor moves a text that runs down along its line")
{
    CHECK(DownField("text-anchor='end'", "高松市").runs()[0].bottom == doctest::Approx(40 * kMm));
    CHECK(DownField("text-anchor='middle'", "高松市").runs()[0].top == doctest::Approx(34 * kMm));
}

TEST_CASE("what lies on its side goes on where the upright letters end, and upright letters behind it")
{
    DownField field("", "令和6年");
    const auto runs = field.runs();
    REQUIRE(runs.size() == 3);
    CHECK(runs[1].text == "6");
    CHECK(runs[0].isUpright);
    CHECK(!runs[1].isUpright);
    CHECK(runs[2].isUpright);
    CHECK(runs[1].top == doctest::Approx(runs[0].bottom));
    CHECK(runs[2].top == doctest::Approx(runs[1].bottom));
    // Its baseline is left of the line's middle, for its top is to the right.
    CHECK(runs[1].x < 30 * kMm);
    CHECK(runs[1].x > 28 * kMm);
}

TEST_CASE("a form may make all letters stand upright, or lie all on their side")
{
    for (const char *style : {"text-orientation:upright", "glyph-orientation-vertical:0"}) {
        const auto runs = DownField("", "令和6年", style).runs();
        REQUIRE(runs.size() == 1);
        CHECK(runs[0].isUpright);
        CHECK(runs[0].text == "令和6年");
    }
    const auto runs = DownField("", "令和6年", "text-orientation:sideways").runs();
    REQUIRE(runs.size() == 1);
    CHECK(!runs[0].isUpright);
}

TEST_CASE("lines in a box begin at its right side and go to the left, or the other way where the form says so")
{
    const std::string rules = "data-box='b' data-lines='4' data-narrowest='1' data-leading='1.25'";
    DownField field(rules, times("漢", 40));
    const auto runs = field.runs();
    REQUIRE(runs.size() == 3);
    CHECK(field.marks.empty());
    for (const Painted &run : runs) {
        CHECK(run.top == doctest::Approx(40 * kMm));
        CHECK(run.bottom <= (100 + 0.01) * kMm);
    }
    // Three lines of 4 mm, 5 mm from middle to middle, in the middle of 20 mm.
    CHECK(runs[0].x == doctest::Approx(45 * kMm));
    CHECK(runs[1].x == doctest::Approx(40 * kMm));
    CHECK(runs[2].x == doctest::Approx(35 * kMm));
    const auto other = DownField(rules, times("漢", 40), "writing-mode:vertical-lr").runs();
    CHECK(other[0].x == doctest::Approx(35 * kMm));
    CHECK(other[2].x == doctest::Approx(45 * kMm));
    CHECK(DownField(rules + " data-valign='top'", "漢").runs()[0].x == doctest::Approx(48 * kMm));
    CHECK(DownField(rules + " data-valign='bottom'", "漢").runs()[0].x == doctest::Approx(32 * kMm));
}

TEST_CASE("a long text that runs down is tightened, then smaller, then cut with a mark, and stays in its box")
{
    struct Case {
        int letters;
        bool tightened, shrunk, cut;
    };
    for (const Case &each : {Case{15, false, false, false}, Case{17, true, false, false}, Case{25, true, true, false},
                             Case{90, true, true, true}}) {
        CAPTURE(each.letters);
        DownField field("data-box='b'", times("漢", each.letters));
        const auto runs = field.runs();
        CHECK((runs[0].stretch < 1) == each.tightened);
        CHECK((runs[0].size < 4 * kMm - 0.001) == each.shrunk);
        CHECK((!field.marks.empty() && field.marks[0].shrunk) == each.shrunk);
        CHECK((!field.marks.empty() && field.marks[0].doesNotFit) == each.cut);
        CHECK((runs.back().text == "…") == each.cut);
        CHECK(runs.back().bottom <= (100 + 0.01) * kMm);
    }
}

TEST_CASE("a text without a box that runs off the page's end is marked")
{
    CHECK(DownField("", times("漢", 60)).runs().size() == 1);
    DownField field("", times("漢", 80));
    static_cast<void>(field.runs());
    REQUIRE(field.marks.size() == 1);
    CHECK(field.marks[0].doesNotFit);
}

TEST_CASE("lines that the editor placed side by side are lines of their own, also by their distance")
{
    const FormDocument form =
        readSvg(svgPage("<text style='writing-mode:tb-rl;font-size:4px' x='90' y='20'><tspan x='90' y='20'>一</tspan>"
                        "<tspan x='80' y='20'>二</tspan><tspan dx='-7'>三</tspan></text>"));
    REQUIRE(form.commands.size() == 3);
    const double places[] = {90, 80, 73};
    for (std::size_t i = 0; i < 3; ++i) {
        const auto &text = std::get<TextCommand>(form.commands[i]);
        CHECK(text.at.e == doctest::Approx(places[i] * kMm));
        CHECK(text.at.f == doctest::Approx(20 * kMm));
    }
}

TEST_CASE("every value that runs down is found again in the PDF as one line, whatever stands or lies in it")
{
    for (const char *value : {"髙﨑支西長", "高松市番町１丁目２－３　メゾン（北側）５０１号", "ｶﾌﾞｼｷｶﾞｲｼｬ",
                              "令和6年5月1日", "087-812-3456", "「かぎ」、句点。ー…", "A社㈱①～"}) {
        CAPTURE(std::string(value));
        for (const char *style : {"", "text-orientation:upright;"}) {
            const std::string page = textOfPage(
                svgPage("<text x='90' y='20' style='font-family:IPAexMincho;font-size:4px;writing-mode:vertical-rl;" +
                        std::string(style) + "'>{{利用者氏名}}</text>"),
                Row{{"利用者氏名", value}});
            CHECK(contains(page, std::string(value) + "\n"));
        }
    }
}

TEST_CASE("texts that run down and across, tightened, bold and spaced, do not mix their texts")
{
    const std::string down = "writing-mode:vertical-rl;font-family:IPAexMincho;font-size:4px;";
    const std::string page = textOfPage(svgPage("<rect id='b' x='30' y='40' width='6' height='20' style='fill:none'/>"
                                                "<text x='90' y='20' style='" +
                                                down +
                                                "font-weight:bold'>太字の𠮷縦</text>"
                                                "<text data-box='b' style='" +
                                                down +
                                                "'>{{保険者名}}</text>"
                                                "<text x='120' y='20' style='" +
                                                down +
                                                "letter-spacing:1px'>間の縦</text>"
                                                "<text x='10' y='200' style='font-size:4px'>横の文</text>"
                                                "<text x='50' y='150' transform='rotate(20 50 150)' style='" +
                                                down + "'>斜めの縦</text>"),
                                        Row{{"保険者名", "香川県高松市"}});
    for (const char *text : {"太字の𠮷縦", "香川県高松市", "間の縦", "横の文", "斜めの縦"}) {
        CAPTURE(std::string(text));
        CHECK(contains(packed(page), text));
    }
}
