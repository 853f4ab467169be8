// Vertical text: orientation, layout and extraction from PDF.
#include "runtime/utf8.h"
#include "viewer/form/svg_reader.h"
#include "viewer/layout/mixed_text.h"
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

/// A painted run: its start, the end of its line, and whether its characters are upright.
struct Painted {
    std::string text;
    double x, top, bottom, size, stretch;
    bool isUpright;
};

class Recorder : public PagePainter {
public:
    void paint(const PictureCommand &) override {}
    void paint(const PathCommand &) override {}
    void paint(const GlyphRun &run) override
    {
        const ShapedGlyph &first = run.glyphs.front(), &last = run.glyphs.back();
        const double step = run.size * run.stretch / 1000;
        const double begin = double{first.x} * step, end = (double{last.x} + double{last.advance}) * step;
        const Point from = run.at(run.isVertical ? Point{0, begin} : Point{begin, 0});
        const Point to = run.at(run.isVertical ? Point{0, end} : Point{end, 0});
        Painted painted{{}, from.x, from.y, to.y, run.size, run.stretch, run.isVertical};
        for (const ShapedGlyph &glyph : run.glyphs)
            for (const char32_t character : run.font->charactersOf(glyph.text)) appendUtf8(painted.text, character);
        runs.push_back(painted);
    }
    std::vector<Painted> runs;
};

/// A vertical field in a box of 20 by 60 millimetres at (30, 40).
struct VerticalField {
    LetterSet set;
    Fonts fonts;
    LetterRenderer renderer{set, fonts};
    std::vector<FieldMark> marks;

    explicit VerticalField(const std::string &attributes, const std::string &value = "", const std::string &style = "")
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
        marks = renderer.paintFields(0, recorder);
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
    LetterRenderer renderer(set, fonts);
    REQUIRE(writeLettersPdf(folder / "o.pdf", renderer, std::vector<std::size_t>{0}));
    return pagesOf(folder / "o.pdf").at(0);
}

} // namespace

TEST_CASE("each name of a writing mode, new or old, is read")
{
    struct Case {
        const char *mode;
        WritingMode writing;
    };
    for (const Case &each : {Case{"vertical-rl", WritingMode::verticalRl}, Case{"tb-rl", WritingMode::verticalRl},
                             Case{"tb", WritingMode::verticalRl}, Case{"vertical-lr", WritingMode::verticalLr},
                             Case{"lr-tb", WritingMode::horizontal}, Case{"lr", WritingMode::horizontal},
                             Case{"horizontal-tb", WritingMode::horizontal}}) {
        const FormDocument form =
            readSvg(svgPage("<text writing-mode='" + std::string(each.mode) + "' x='9' y='9'>文</text>"));
        CAPTURE(std::string(each.mode));
        CHECK(std::get<TextCommand>(form.commands.at(0)).writing == each.writing);
        CHECK(form.notices.empty());
    }
}

TEST_CASE("Japanese characters are upright, Latin characters are rotated, and brackets are transformed")
{
    for (const char32_t each : U"漢あア、。々〆〒①㈱８Ａ＆") {
        if (each != 0) CHECK(glyphOrientationOf(each) == GlyphOrientation::upright);
    }
    for (const char32_t each : U"aZ09-(.ｱｶﾞ") {
        if (each != 0) CHECK(glyphOrientationOf(each) == GlyphOrientation::rotated);
    }
    for (const char32_t each : U"「」（）ー〜…－") {
        if (each == U'〜') continue;
        if (each != 0) CHECK(glyphOrientationOf(each) == GlyphOrientation::transformed);
    }
    CHECK(glyphOrientationOf(U'〜') == GlyphOrientation::transformed);
    CHECK(glyphOrientationOf(0x20BB7) == GlyphOrientation::upright);
}

TEST_CASE("a vertical text is centred on its position and advances by its size for each character")
{
    VerticalField field("", "高松市");
    const auto runs = field.runs();
    REQUIRE(runs.size() == 1);
    CHECK(runs[0].isUpright);
    CHECK(runs[0].x == doctest::Approx(30 * kMm));
    CHECK(runs[0].top == doctest::Approx(40 * kMm));
    CHECK(runs[0].bottom == doctest::Approx(52 * kMm));
}

TEST_CASE("an anchor moves a vertical text along its line")
{
    CHECK(VerticalField("text-anchor='end'", "高松市").runs()[0].bottom == doctest::Approx(40 * kMm));
    CHECK(VerticalField("text-anchor='middle'", "高松市").runs()[0].top == doctest::Approx(34 * kMm));
}

TEST_CASE("rotated characters follow upright characters without a gap, and upright characters follow them")
{
    VerticalField field("", "令和6年");
    const auto runs = field.runs();
    REQUIRE(runs.size() == 3);
    CHECK(runs[1].text == "6");
    CHECK(runs[0].isUpright);
    CHECK(!runs[1].isUpright);
    CHECK(runs[2].isUpright);
    CHECK(runs[1].top == doctest::Approx(runs[0].bottom));
    CHECK(runs[2].top == doctest::Approx(runs[1].bottom));
    // Its baseline is left of the centre line, because its top is to the right.
    CHECK(runs[1].x < 30 * kMm);
    CHECK(runs[1].x > 28 * kMm);
}

TEST_CASE("a form may make all characters upright or rotated")
{
    for (const char *style : {"text-orientation:upright", "glyph-orientation-vertical:0"}) {
        const auto runs = VerticalField("", "令和6年", style).runs();
        REQUIRE(runs.size() == 1);
        CHECK(runs[0].isUpright);
        CHECK(runs[0].text == "令和6年");
    }
    const auto runs = VerticalField("", "令和6年", "text-orientation:sideways").runs();
    REQUIRE(runs.size() == 1);
    CHECK(!runs[0].isUpright);
}

TEST_CASE("vertical lines in a box begin at its right side, or at its left side with vertical-lr")
{
    const std::string rules = "data-box='b' data-lines='4' data-narrowest='1' data-leading='1.25'";
    VerticalField field(rules, times("漢", 40));
    const auto runs = field.runs();
    REQUIRE(runs.size() == 3);
    CHECK(field.marks.empty());
    for (const Painted &run : runs) {
        CHECK(run.top == doctest::Approx(40 * kMm));
        CHECK(run.bottom <= (100 + 0.01) * kMm);
    }
    // Three lines of 4 mm at distances of 5 mm, centred in 20 mm.
    CHECK(runs[0].x == doctest::Approx(45 * kMm));
    CHECK(runs[1].x == doctest::Approx(40 * kMm));
    CHECK(runs[2].x == doctest::Approx(35 * kMm));
    const auto other = VerticalField(rules, times("漢", 40), "writing-mode:vertical-lr").runs();
    CHECK(other[0].x == doctest::Approx(35 * kMm));
    CHECK(other[2].x == doctest::Approx(45 * kMm));
    CHECK(VerticalField(rules + " data-valign='top'", "漢").runs()[0].x == doctest::Approx(48 * kMm));
    CHECK(VerticalField(rules + " data-valign='bottom'", "漢").runs()[0].x == doctest::Approx(32 * kMm));
}

TEST_CASE("a long vertical text is made narrower, then smaller, then truncated, and stays in its box")
{
    struct Case {
        int characters;
        bool narrowed, shrunk, truncated;
    };
    for (const Case &each : {Case{15, false, false, false}, Case{17, true, false, false}, Case{25, true, true, false},
                             Case{90, true, true, true}}) {
        CAPTURE(each.characters);
        VerticalField field("data-box='b'", times("漢", each.characters));
        const auto runs = field.runs();
        CHECK((runs[0].stretch < 1) == each.narrowed);
        CHECK((runs[0].size < 4 * kMm - 0.001) == each.shrunk);
        CHECK((!field.marks.empty() && field.marks[0].shrunk) == each.shrunk);
        CHECK((!field.marks.empty() && field.marks[0].doesNotFit) == each.truncated);
        CHECK((runs.back().text == "…") == each.truncated);
        CHECK(runs.back().bottom <= (100 + 0.01) * kMm);
    }
}

TEST_CASE("a vertical text without a box that extends beyond the page is marked")
{
    CHECK(VerticalField("", times("漢", 60)).runs().size() == 1);
    VerticalField field("", times("漢", 80));
    static_cast<void>(field.runs());
    REQUIRE(field.marks.size() == 1);
    CHECK(field.marks[0].doesNotFit);
}

TEST_CASE("vertical lines that the editor placed by position or by distance are separate lines")
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

TEST_CASE("each vertical value is extracted from the PDF as one line")
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

TEST_CASE("vertical and horizontal texts, narrowed, bold and spaced, are extracted separately")
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

TEST_CASE("up to two digits of vertical text share one cell, side by side on one baseline, longer numbers do not")
{
    VerticalField field("", "5月12日100", "text-combine-upright:digits 2");
    const std::vector<Painted> runs = field.runs();
    std::vector<std::string> texts;
    texts.reserve(runs.size());
    for (const Painted &run : runs) texts.push_back(run.text);
    CHECK(texts == std::vector<std::string>{"5", "月", "1", "2", "日", "100"});
    REQUIRE(runs.size() == 6);
    CHECK(runs[2].top == doctest::Approx(runs[3].top));
    CHECK(runs[2].x < runs[3].x);
    // Each number takes one cell of four millimetres between the characters around it.
    CHECK(runs[4].top - runs[1].top == doctest::Approx(8 * kMm).epsilon(0.001));
    // The pair is centred on the line and not wider than a cell.
    const double centre = 30 * kMm;
    CHECK(std::abs(runs[2].x - centre) <= 2.01 * kMm);
    CHECK(runs[2].stretch <= 1);
}

TEST_CASE("four digits in a cell are squeezed, and the text of the PDF stays in order")
{
    VerticalField field("", "2024年", "text-combine-upright:digits 4");
    const std::vector<Painted> runs = field.runs();
    REQUIRE(runs.size() == 5);
    CHECK(runs[0].stretch < 0.6);
    CHECK(runs[0].text + runs[1].text + runs[2].text + runs[3].text == "2024");
    CHECK(packed(textOfPage(svgPage("<text x='60' y='20' style='writing-mode:vertical-rl;font-family:IPAexMincho;"
                                    "font-size:6px;text-combine-upright:all'>令和12年3月</text>"),
                            {})) == "令和12年3月");
}
