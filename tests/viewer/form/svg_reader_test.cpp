#include "support/errors.h"
#include "viewer/form/svg_reader.h"
#include "viewer/form/svg_values.h"
#include "viewer/form/xml_reader.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

constexpr double kMillimetre = 72 / 25.4;

const PathCommand &pathAt(const FormDocument &form, std::size_t i)
{
    return std::get<PathCommand>(form.commands.at(i));
}
const TextCommand &textAt(const FormDocument &form, std::size_t i)
{
    return std::get<TextCommand>(form.commands.at(i));
}

std::string svgRefusal(const std::string &svg)
{
    return errorWordsOf([&] { return readSvg(svg); });
}

struct XmlCounter : XmlHandler {
    void open(std::string_view, const XmlAttributes &) override { ++opened; }
    void close(std::string_view) override {}
    void text(std::string_view text) override { textBytes += text.size(); }
    std::size_t opened = 0, textBytes = 0;
};

FormDocument readPage(const std::string &elements)
{
    return readSvg(svgPage(elements));
}

} // namespace

TEST_CASE("a page has the size of its SVG, in points")
{
    const FormDocument form = readPage("");
    CHECK(form.width == doctest::Approx(595.2756));
    CHECK(form.height == doctest::Approx(841.8898));
}

TEST_CASE("shapes are read in order, in points from the upper left corner")
{
    const FormDocument form =
        readPage("<rect x='10' y='20' width='30' height='5' fill='#fff' stroke='black' stroke-width='0.5'/>"
                 "<line x1='0' y1='0' x2='210' y2='297' style='stroke:#102030'/>"
                 "<circle cx='50' cy='50' r='10' fill='none' stroke='red'/>");
    REQUIRE(form.commands.size() == 3);
    const Box box = boundsOf(pathAt(form, 0).path);
    CHECK(box.left == doctest::Approx(10 * kMillimetre));
    CHECK(box.bottom() == doctest::Approx(25 * kMillimetre));
    CHECK(pathAt(form, 0).fill == Color{255, 255, 255});
    CHECK(pathAt(form, 0).stroke->width == doctest::Approx(0.5 * kMillimetre));
    CHECK(pathAt(form, 1).stroke->color == Color{16, 32, 48});
    CHECK(boundsOf(pathAt(form, 2).path).right() == doctest::Approx(60 * kMillimetre));
}

TEST_CASE("transforms of groups and elements multiply")
{
    const FormDocument form = readPage("<g transform='translate(10,0)'><g transform='scale(2)'>"
                                       "<rect transform='matrix(1 0 0 1 3 4)' width='5' height='5'/></g></g>");
    const Box box = boundsOf(pathAt(form, 0).path);
    CHECK(box.left == doctest::Approx(16 * kMillimetre));
    CHECK(box.top == doctest::Approx(8 * kMillimetre));
    CHECK(box.width == doctest::Approx(10 * kMillimetre));
}

TEST_CASE("each command of path data is drawn")
{
    struct Case {
        const char *data;
        double left, top, right, bottom;
    };
    const Case cases[] = {
        {"M1 2 L3 4", 1, 2, 3, 4},
        {"m1,2 3-4", 1, -2, 4, 2}, // a pair after a move is a line
        {"M0 0H5V6h-2v-8", 0, -2, 5, 6},
        {"M0 0C1 1 2 2 9 3S4 4 5 5", 0, 0, 16, 5},
        {"M0 0Q6 6 12 0T24 0", 0, -4, 24, 4},
        {"M0 0a5 5 0 0 1 10 0z", 0, -5, 10, 0},
        {"M0 0A5 5 0 0 0 10 0", 0, 0, 10, 5},
        {"M0 0a5,5 0 0110,0", 0, -5, 10, 0}, // flags need no separators
        {"M1e1.5.5", 10, 0.5, 10, 0.5},
    };
    for (const Case &each : cases) {
        CAPTURE(std::string(each.data));
        const Box box = boundsOf(readPathData(each.data));
        CHECK(box.left == doctest::Approx(each.left).epsilon(0.01));
        CHECK(box.top == doctest::Approx(each.top).epsilon(0.01));
        CHECK(box.right() == doctest::Approx(each.right).epsilon(0.01));
        CHECK(box.bottom() == doctest::Approx(each.bottom).epsilon(0.01));
    }
}

TEST_CASE("invalid path data is read up to its error")
{
    CHECK(readPathData("L5 5").empty());
    CHECK(readPathData("M1 2 L x").size() == 1);
    CHECK(readPathData("M1 2 Z 5 5").size() == 2);
    CHECK(readPathData("").empty());
}

TEST_CASE("a text without positioned spans is one line with its fields")
{
    const FormDocument form =
        readPage("<text id='t' x='10' y='20' style='font-family:\"IPAexMincho\",serif;font-size:4px;"
                 "text-anchor:middle;fill:#333333'>氏名　{{利用者氏名}}</text>");
    REQUIRE(form.commands.size() == 1);
    const TextCommand &text = textAt(form, 0);
    CHECK(text.id == "t");
    CHECK(text.family == "IPAexMincho");
    CHECK(text.size == doctest::Approx(4 * kMillimetre));
    CHECK(text.anchor == Anchor::middle);
    CHECK(text.color == Color{0x33, 0x33, 0x33});
    CHECK(text.at.e == doctest::Approx(10 * kMillimetre));
    CHECK(text.at.f == doctest::Approx(20 * kMillimetre));
    REQUIRE(text.pieces.size() == 2);
    CHECK(text.pieces[0].literal == "氏名　");
    CHECK(text.pieces[1].column == "利用者氏名");
    CHECK(text.isField());
}

TEST_CASE("a placeholder that is split between spans of a line is one placeholder")
{
    const FormDocument form = readPage("<text x='1' y='2'><tspan>{{利用者</tspan><tspan>氏名}}</tspan></text>");
    REQUIRE(form.commands.size() == 1);
    CHECK(textAt(form, 0).pieces.front().column == "利用者氏名");
}

TEST_CASE("spans with positions are separate lines, as Inkscape writes them")
{
    const FormDocument form = readPage("<text xml:space='preserve' x='1' y='2'><tspan x='1' y='2'>一行目</tspan>\n"
                                       "<tspan x='1' y='8'>二行目</tspan><tspan x='1' dy='6'>三行目</tspan></text>");
    REQUIRE(form.commands.size() == 3);
    CHECK(textAt(form, 1).pieces[0].literal == "二行目");
    CHECK(textAt(form, 1).at.f == doctest::Approx(8 * kMillimetre));
    CHECK(textAt(form, 2).at.f == doctest::Approx(14 * kMillimetre));
}

TEST_CASE("blanks are collapsed unless the text preserves them, and full-width blanks never are")
{
    CHECK(textAt(readPage("<text> a \n  b　　c </text>"), 0).pieces[0].literal == "a b　　c");
    CHECK(textAt(readPage("<text xml:space='preserve'> a  b </text>"), 0).pieces[0].literal == " a  b ");
}

TEST_CASE("a text finds its box by id, wherever the box is and even if it is not drawn")
{
    for (const char *box :
         {"<rect id='b' x='10' y='20' width='30' height='8' fill='none'/>",
          "<g transform='translate(10,20)'><rect id='b' width='30' height='8' style='display:none'/></g>",
          "<defs><rect id='b' x='10' y='20' width='30' height='8'/></defs>"}) {
        CAPTURE(std::string(box));
        const FormDocument form = readPage("<text data-box='b' data-lines='3' data-valign='top' data-narrowest='0.7'"
                                           " data-min-size='2' data-padding='1' data-leading='1.1'"
                                           " style='font-size:4px'>{{署名日}}</text>" +
                                           std::string(box));
        REQUIRE(textAt(form, 0).fit);
        const FitRule &fit = *textAt(form, 0).fit;
        CHECK(fit.box.left == doctest::Approx(11 * kMillimetre));
        CHECK(fit.box.height == doctest::Approx(6 * kMillimetre));
        CHECK(fit.lines == 3);
        CHECK(fit.verticalAlignment == VerticalAlignment::top);
        CHECK(fit.narrowest == doctest::Approx(0.7));
        CHECK(fit.smallest == doctest::Approx(2 * kMillimetre));
        CHECK(fit.leading == doctest::Approx(1.1));
    }
}

TEST_CASE("the lines of a boxed text are one text")
{
    const FormDocument form = readPage("<rect id='b' width='9' height='9' fill='none'/><text data-box='b'>"
                                       "<tspan x='0' y='1'>上</tspan><tspan x='0' y='5'>下</tspan></text>");
    REQUIRE(form.commands.size() == 1);
    CHECK(textAt(form, 0).pieces[0].literal == "上\n下");
}

TEST_CASE("a missing box is refused with its name")
{
    CHECK(svgRefusal(svgPage("<text data-box='枠'>x</text>")) == "枠「枠」（data-box）がありません。");
}

TEST_CASE("hidden elements are not drawn")
{
    CHECK(readPage("<g style='display:none'><rect width='5' height='5'/><text>x</text></g>"
                   "<rect visibility='hidden' width='5' height='5'/><rect width='5' height='5' fill='none'/>")
              .commands.empty());
}

TEST_CASE("transparent colours are mixed with the white of the paper")
{
    const FormDocument form =
        readPage("<g opacity='0.5'><rect width='5' height='5' fill='#000' fill-opacity='0.5'/></g>");
    CHECK(pathAt(form, 0).fill == Color{191, 191, 191});
}

TEST_CASE("each unsupported element is reported once")
{
    const FormDocument form = readPage("<script>alert(1)</script><use href='#x'/>"
                                       "<text data-bocks='b' style='text-decoration:underline'>x</text>");
    CHECK(form.notices ==
          std::vector<std::string>{
              "スクリプトは実行しません。", "複製（use）は表示しません。複製を独立したオブジェクトにしてください。",
              "文字の下線など（text-decoration）には対応していません。", "属性「data-bocks」には対応していません。"});
    CHECK(form.commands.size() == 1);
}

TEST_CASE("a document with entity declarations is refused")
{
    CHECK(svgRefusal("<!DOCTYPE svg [<!ENTITY a 'b'>]><svg width='9' height='9'/>") ==
          "実体宣言「a」のあるファイルは開きません。");
    CHECK(svgRefusal("<!DOCTYPE svg [<!ENTITY a SYSTEM 'file:///etc/passwd'>]><svg width='9' height='9'>&a;</svg>") ==
          "実体宣言「a」のあるファイルは開きません。");
}

TEST_CASE("an external document type is not fetched")
{
    CHECK(readSvg("<!DOCTYPE svg PUBLIC '-//W3C//DTD SVG 1.1//EN' 'file:///etc/passwd'>"
                  "<svg width='9' height='9'><rect width='5' height='5'/></svg>")
              .commands.size() == 1);
}

TEST_CASE("too many elements, levels or characters are refused at the limit without reading on")
{
    std::string many, deep;
    for (int i = 0; i < 200'000; ++i) many += "<g/>";
    for (int i = 0; i < 200'000; ++i) deep += "<g>";
    const std::string text = "<text>" + std::string(2'000'000, 'x') + "</text>";
    struct Case {
        const std::string &elements;
        const char *svgRefusal;
        std::size_t opened;
    };
    for (const Case &each :
         {Case{many, "要素が多すぎます（20000個まで）。", 20'000},
          Case{deep, "要素の入れ子が深すぎます（100段まで）。", 100}, Case{text, "文字が多すぎます。", 2}}) {
        CAPTURE(std::string(each.svgRefusal));
        CHECK(svgRefusal(svgPage(each.elements)) == each.svgRefusal);
        XmlCounter counter;
        CHECK_THROWS_AS(readXml(svgPage(each.elements), "", counter), RuntimeError);
        CHECK(counter.opened == each.opened);
        CHECK(counter.textBytes <= 1'000'000);
    }
}

TEST_CASE("malformed XML and XML that is not SVG are refused with a sentence")
{
    CHECK(svgRefusal("<svg width='9' height='9'><g></svg>").starts_with("XML として読めません（1行目"));
    CHECK(svgRefusal("<html/>") == "SVG の文書ではありません。");
    CHECK(svgRefusal("<svg xmlns='http://example.invalid/svg' width='9' height='9'/>") == "SVG の文書ではありません。");
    CHECK(svgRefusal("<svg/>") == "用紙の大きさ（width と height）がありません。");
    CHECK(svgRefusal("<svg width='-5' height='9'/>") == "用紙の大きさ（width と height）がありません。");
    CHECK(svgRefusal("<svg width='1e9' height='1e9'/>") == "用紙の大きさ（width と height）がありません。");
    CHECK(svgRefusal("") != "");
}

TEST_CASE("only a file that begins as XML is read as a form document")
{
    for (const char *yes : {"<?xml version='1.0'?><svg/>", "  \r\n<svg/>", "\xEF\xBB\xBF<svg/>", "<!-- x --><svg/>"}) {
        CAPTURE(std::string(yes));
        CHECK(looksLikeXml(yes));
    }
    for (const char *no : {"", "WFD\x01\x02", "<", "< 5", "PK\x03\x04", "\xD0\xCF\x11\xE0"}) {
        CAPTURE(std::string(no));
        CHECK_FALSE(looksLikeXml(no));
    }
}

TEST_CASE("elements that are too far away or too large are reported and not drawn")
{
    const FormDocument form =
        readPage("<rect width='1e300' height='5'/><g transform='scale(1e200)'><g transform='scale(1e200)'>"
                 "<path d='M1 1L2 2' stroke='black'/><text>x</text></g></g>"
                 "<text x='1e12'>y</text><text style='font-size:-4px'>z</text><text style='font-size:0'>0</text>");
    CHECK(form.commands.empty());
    CHECK(form.notices == std::vector<std::string>{"ページから遠く離れた図形や大きすぎる図形は表示しません。",
                                                   "ページから遠く離れた文字や大きすぎる文字は表示しません。"});
}

TEST_CASE("a font size in percent is relative to the parent's font size")
{
    const FormDocument form = readPage("<g style='font-size:8px'><text style='font-size:50%'>x</text></g>");
    CHECK(textAt(form, 0).size == doctest::Approx(4 * kMillimetre));
}

TEST_CASE("weights from 600 on are bold, and other text inherits its weight")
{
    struct Case {
        const char *style;
        bool isBold;
    };
    for (const Case &each : {Case{"font-weight:bold", true},
                             {"font-weight:700", true},
                             {"font-weight:600", true},
                             {"font-weight:500", false},
                             {"font-weight:normal", false},
                             {"font-weight:inherit", false}}) {
        CAPTURE(std::string(each.style));
        const FormDocument form = readPage("<text style='" + std::string(each.style) + "'>x</text>");
        CHECK(textAt(form, 0).isBold == each.isBold);
        CHECK(form.notices.empty());
    }
    CHECK(textAt(readPage("<g font-weight='bold'><text><tspan>x</tspan></text></g>"), 0).isBold);
}

TEST_CASE("a path of millions of steps is cut off at the limit")
{
    std::string data = "M0 0";
    for (int i = 0; i < 1'000'000; ++i) data += "l1 0";
    CHECK(readPathData(data).size() == 200'000);
}

TEST_CASE("a smallest size of 0 or above the font size is clamped")
{
    for (const char *size : {"0", "-3", "99"}) {
        const FormDocument form =
            readPage("<rect id='b' width='9' height='9' fill='none'/><text data-box='b' data-min-size='" +
                     std::string(size) + "' style='font-size:4px'>x</text>");
        CHECK(textAt(form, 0).fit->smallest > 0);
        CHECK(textAt(form, 0).fit->smallest <= 4 * kMillimetre + 0.001);
    }
}
