#include "runtime/runtime_error.h"
#include "runtime/utf8.h"
#include "viewer/layout/letter_layout.h"
#include "viewer/layout/text_fit.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <random>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

constexpr double kMm = 72 / 25.4;

/// A painted run.
struct Painted {
    std::string text;
    double x, y, width, size, stretch;
    std::string font;
};

class Recorder : public PagePainter {
public:
    void paint(const PictureCommand &) override {}
    void paint(const PathCommand &) override { ++paths; }
    void paint(const GlyphRun &run) override
    {
        Painted painted{{}, 0, run.at.f, 0, run.size, run.stretch, run.font->postScriptName()};
        const ShapedGlyph &first = run.glyphs.front(), &last = run.glyphs.back();
        painted.x = run.at({double{first.x} * run.size * run.stretch / 1000, 0}).x;
        painted.width = (double{last.x} + double{last.advance} - double{first.x}) * run.size * run.stretch / 1000;
        for (const ShapedGlyph &glyph : run.glyphs)
            for (const char32_t character : run.font->charactersOf(glyph.text)) appendUtf8(painted.text, character);
        runs.push_back(painted);
    }
    std::vector<Painted> runs;
    int paths = 0;
};

/// A form with one field in a box of 50 by 10 millimetres at (20, 30).
struct OneField {
    FormDocument form;
    Fonts fonts;
    LetterLayout layout;

    explicit OneField(const std::string &attributes, const std::string &text = "{{値}}")
        : form(readForm(attributes, text)), layout(form, {"値", "他"}, fonts)
    {
    }
    static FormDocument readForm(const std::string &attributes, const std::string &text);
    std::vector<FieldMark> marks;
    std::vector<Painted> show(const std::string &value, const std::string &other = {})
    {
        Recorder recorder;
        marks = layout.paintLetter([&](std::size_t column) { return std::string_view(column == 0 ? value : other); },
                                   recorder);
        return recorder.runs;
    }
};

FormDocument OneField::readForm(const std::string &attributes, const std::string &text)
{
    return lettersOn(svgPage("<rect id='枠' x='20' y='30' width='50' height='10' fill='none'/>"
                             "<text xml:space='preserve' x='20' y='36' style='font-family:IPAexMincho;font-size:4px' " +
                             attributes + ">" + text + "</text>"),
                     {ordinaryRow()})
        .reports[0]
        .form;
}

std::string times(const std::string &text, int count)
{
    std::string out;
    for (int i = 0; i < count; ++i) out += text;
    return out;
}

std::string joined(const std::vector<Painted> &runs)
{
    std::string all;
    for (const Painted &run : runs) all += run.text;
    return all;
}

} // namespace

TEST_CASE("a text that fits is vertically centred in its box and unchanged")
{
    OneField field("data-box='枠'");
    const auto runs = field.show("高松市");
    REQUIRE(runs.size() == 1);
    CHECK(runs[0].x == doctest::Approx(20 * kMm));
    CHECK(runs[0].width == doctest::Approx(12 * kMm));
    CHECK(runs[0].y == doctest::Approx((35 + 4 * 0.38) * kMm).epsilon(0.002));
    CHECK(field.marks.empty());
}

TEST_CASE("a text is aligned in its box by its anchor")
{
    OneField end("data-box='枠' text-anchor='end'"), middle("data-box='枠' text-anchor='middle'");
    CHECK(end.show("高松市")[0].x == doctest::Approx(58 * kMm));
    CHECK(middle.show("高松市")[0].x == doctest::Approx(39 * kMm));
}

TEST_CASE("a text that is a little too long is made narrower, without a mark")
{
    OneField field("data-box='枠' data-lines='2'");
    const auto runs = field.show(times("西", 15)); // 60 mm into 50
    REQUIRE(runs.size() == 1);
    CHECK(runs[0].stretch == doctest::Approx(0.8));
    CHECK(runs[0].width <= 50 * kMm + 0.02);
    CHECK(runs[0].size == doctest::Approx(4 * kMm));
    CHECK(field.marks.empty());
}

TEST_CASE("a longer text is broken into a second line before its size is reduced")
{
    OneField field("data-box='枠' data-lines='2'");
    const auto runs = field.show(times("長", 24));
    REQUIRE(runs.size() == 2);
    CHECK(runs[0].size == doctest::Approx(4 * kMm));
    CHECK(runs[0].stretch == doctest::Approx(1));
    CHECK(runs[1].y - runs[0].y == doctest::Approx(5 * kMm));
    CHECK(joined(runs) == times("長", 24));
    CHECK(field.marks.empty());
}

TEST_CASE("a text that needs a smaller size is marked as shrunk")
{
    OneField field("data-box='枠' data-lines='2'");
    const auto runs = field.show(times("長", 40));
    CHECK(joined(runs) == times("長", 40));
    CHECK(runs[0].size < 4 * kMm);
    REQUIRE(field.marks.size() == 1);
    CHECK(field.marks[0].shrunk);
    CHECK_FALSE(field.marks[0].doesNotFit);
}

TEST_CASE("a text that does not fit at the smallest size ends with an ellipsis and is marked")
{
    OneField field("data-box='枠' data-lines='2'");
    const auto runs = field.show(times("髙", 200));
    CHECK(joined(runs).ends_with("…"));
    REQUIRE(field.marks.size() == 1);
    CHECK(field.marks[0].doesNotFit);
    for (const Painted &run : runs) {
        CHECK(run.size == doctest::Approx(2.4 * kMm));
        CHECK(run.x >= 20 * kMm - 0.02);
        CHECK(run.x + run.width <= 70 * kMm + 0.02);
    }
}

TEST_CASE("a field of a megabyte is truncated")
{
    OneField field("data-box='枠' data-lines='2'");
    CHECK(field.show(std::string(1'000'000, 'x')).size() == 3);
    CHECK(field.marks.at(0).doesNotFit);
}

TEST_CASE("no text extends beyond its box, and no text is truncated without a mark")
{
    std::mt19937 dice(7);
    const auto roll = [&](unsigned sides) { return std::uniform_int_distribution<unsigned>(0, sides - 1)(dice); };
    const std::vector<std::string> characters = {"髙", "﨑", "支", "西", "長", "、", "（", "）",
                                                 "ー", "ｱ",  "ﾞ",  "A",  "i",  "1",  "-"};
    OneField field("data-box='枠' data-lines='2' data-leading='1.1'");
    for (int round = 0; round < 500; ++round) {
        std::string value;
        for (unsigned length = roll(120); length > 0; --length)
            value += characters[roll(static_cast<unsigned>(characters.size()))];
        CAPTURE(value);
        const auto runs = field.show(value);
        for (const Painted &run : runs) {
            CHECK(run.x >= 20 * kMm - 0.02);
            CHECK(run.x + run.width <= 70 * kMm + 0.02);
            CHECK(run.y - 0.88 * run.size >= 30 * kMm - 0.02);
            CHECK(run.y + 0.12 * run.size <= 40 * kMm + 0.02);
        }
        const bool isMarked = !field.marks.empty() && field.marks[0].doesNotFit;
        if (!isMarked) CHECK(joined(runs) == value);
    }
}

TEST_CASE("a line does not end before closing punctuation, after opening punctuation or inside a word")
{
    CHECK_FALSE(mayBreakBetween(U'町', U'、'));
    CHECK_FALSE(mayBreakBetween(U'（', U'株'));
    CHECK_FALSE(mayBreakBetween(U'1', U'2'));
    CHECK_FALSE(mayBreakBetween(U'ビ', U'ー'));
    CHECK(mayBreakBetween(U'市', U'番'));
    CHECK(mayBreakBetween(U' ', U'a'));
    CHECK(mayBreakBetween(U'号', U'2'));
}

TEST_CASE("a value that looks like a placeholder is plain text")
{
    OneField field("", "{{値}}{{他}}");
    CHECK(joined(field.show("{{他}}", "x")) == "{{他}}x");
}

TEST_CASE("an empty value is replaced by the form's text for it")
{
    OneField field("", "{{値||（空欄）}}");
    CHECK(joined(field.show("")) == "（空欄）");
    CHECK(joined(field.show(" 　")) == "（空欄）");
    CHECK(joined(field.show("x")) == "x");
}

TEST_CASE("a value with a date pattern that is not a date is shown unchanged and marked")
{
    OneField field("", "{{値|ggge年m月d日}}");
    CHECK(joined(field.show("2019/05/01")) == "令和元年5月1日");
    CHECK(field.marks.empty());
    CHECK(joined(field.show("二十日")) == "二十日");
    CHECK(field.marks.at(0).noDate);
    CHECK(joined(field.show("2024/05/01")) == "令和6年5月1日");
    CHECK(field.marks.empty());
}

TEST_CASE("an unknown column is refused with its name")
{
    const FormDocument form = OneField::readForm("", "{{存在しない列}}");
    Fonts fonts;
    CHECK_THROWS_WITH_AS(LetterLayout(form, {"値"}, fonts),
                         "帳票の差し込み「{{存在しない列}}」の列「存在しない列」が CSV にありません。", RuntimeError);
}

TEST_CASE("a character that no font has keeps its place and is marked, in letters and in the form")
{
    OneField field("", "{{値}}");
    CHECK(joined(field.show("山\U0010FFFD田")) == "山\U0010FFFD田");
    REQUIRE(field.marks.size() == 1);
    CHECK(field.marks[0].missing == std::vector<char32_t>{U'\U0010FFFD'});
    CHECK(OneField("", "\U0010FFFD").layout.missingInForm() == std::vector<char32_t>{U'\U0010FFFD'});
}

TEST_CASE("the characters of the suite's names and banks are in the font")
{
    OneField field("", "{{値}}");
    CHECK(joined(field.show("髙﨑支西長ｱｶﾞ㈱①Ⅷ～−―")) == "髙﨑支西長ｱｶﾞ㈱①Ⅷ～−―");
    CHECK(field.marks.empty());
}

TEST_CASE("a character that the form's font lacks is taken from another font without a notice")
{
    OneField field("", "{{値}}");
    const auto runs = field.show("西𠮷∑田");
    CHECK(field.marks.empty());
    REQUIRE(runs.size() == 4);
    const char *const texts[] = {"西", "𠮷", "∑", "田"};
    for (std::size_t i = 0; i < 4; ++i) {
        CHECK(runs[i].text == texts[i]);
        if (i > 0) CHECK(runs[i].x == doctest::Approx(runs[i - 1].x + runs[i - 1].width));
    }
    CHECK(runs[0].font == "IPAexMincho");
    CHECK(runs[1].font == "IPAmjMincho");
    CHECK(runs[1].width == doctest::Approx(4 * kMm));
    CHECK(runs[3].font == "IPAexMincho");
}

TEST_CASE("the glyph of a fallback font has an outline of its own")
{
    Fonts fonts;
    const Font *const font = fonts.fallbackFor(U'𠮷');
    REQUIRE(font != nullptr);
    std::vector<ShapedGlyph> glyphs;
    std::vector<char32_t> missing;
    font->shape(U"𠮷", glyphs, missing);
    REQUIRE(glyphs.size() == 1);
    CHECK(missing.empty());
    CHECK(glyphs[0].glyph != 0);
    CHECK(font->outlineOf(glyphs[0].glyph).size() > 20);
    CHECK(fonts.fallbackFor(U'\U0010FFFD') == nullptr);
}

TEST_CASE("a text of several fonts is spaced and centred as a whole")
{
    OneField plain("data-box='枠' text-anchor='middle' letter-spacing='1'", "{{値}}");
    const auto runs = plain.show("西𠮷田");
    REQUIRE(runs.size() == 3);
    CHECK(runs[1].x - runs[0].x == doctest::Approx(5 * kMm));
    CHECK(runs[2].x - runs[1].x == doctest::Approx(5 * kMm));
    CHECK(runs[0].x == doctest::Approx((45 - 7) * kMm));
}

TEST_CASE("a text of several fonts is broken into lines and truncated like any other")
{
    OneField field("data-box='枠' data-lines='2'");
    CHECK(joined(field.show(times("長𠮷", 20))) == times("長𠮷", 20));
    const auto runs = field.show(times("𠮷", 200));
    CHECK(joined(runs).ends_with("𠮷…"));
    CHECK(field.marks.at(0).doesNotFit);
    for (const Painted &run : runs) CHECK(run.x + run.width <= 70 * kMm + 0.02);
}

TEST_CASE("a combining mark uses the font of its base character")
{
    OneField field("", "{{値}}");
    const auto runs = field.show("𠮷\uFE00カ\u3099");
    REQUIRE(runs.size() == 2);
    CHECK(runs[0].text == "𠮷\uFE00");
    CHECK(runs[1].text == "カ\u3099");
}

TEST_CASE("a field without a box that extends beyond the page is marked")
{
    OneField field("", "{{値}}");
    static_cast<void>(field.show(times("西", 60)));
    CHECK(field.marks.at(0).doesNotFit);
}

TEST_CASE("the character table and the shaper give the same glyphs")
{
    Fonts fonts;
    for (const char *family : {"IPAexMincho", "IPAexGothic"}) {
        const Font &font = fonts.font(family);
        std::mt19937 dice(3);
        for (int round = 0; round < 300; ++round) {
            std::u32string text;
            for (int i = 0; i < 20; ++i) {
                const std::uint32_t ranges[][2] = {
                    {0x20, 0x7E}, {0x3041, 0x30FF}, {0x4E00, 0x9FA0}, {0xFF01, 0xFF9F}, {0xF900, 0xFA6A}};
                const auto &range = ranges[dice() % 5];
                text += static_cast<char32_t>(range[0] + dice() % (range[1] - range[0] + 1));
            }
            std::vector<ShapedGlyph> quick, whole;
            std::vector<char32_t> missingQuick, missingWhole;
            font.shape(text, quick, missingQuick);
            font.shapeWhole(text, whole, missingWhole);
            REQUIRE(quick.size() == whole.size());
            CHECK(missingQuick == missingWhole);
            for (std::size_t i = 0; i < quick.size(); ++i) {
                REQUIRE(quick[i].glyph == whole[i].glyph);
                REQUIRE(quick[i].text == whole[i].text);
                REQUIRE(quick[i].x == doctest::Approx(whole[i].x).epsilon(0.001));
            }
        }
    }
}

TEST_CASE("a family that is not installed is replaced and reported")
{
    Fonts fonts;
    static_cast<void>(fonts.font("ないフォント"));
    static_cast<void>(fonts.font("ないフォント"));
    REQUIRE(fonts.notices().size() == 1);
    CHECK(fonts.notices()[0].starts_with("フォント「ないフォント」がないので「"));
    static_cast<void>(fonts.font("serif"));
    static_cast<void>(fonts.font("IPAex明朝"));
    CHECK(fonts.notices().size() == 1);
}

TEST_CASE("a missing gothic is replaced by a gothic, and a missing mincho by a mincho")
{
    Fonts fonts;
    CHECK(fonts.font("MS Gothic").path() == fonts.font("IPAexGothic").path());
    CHECK(fonts.font("Meiryo UI").path() == fonts.font("IPAexGothic").path());
    CHECK(contains(fonts.font("Yu Mincho").postScriptName(), "Mincho"));
    CHECK(fonts.notices().size() == 3);
}
