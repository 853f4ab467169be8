#include "viewer/form/svg_reader.h"
#include "viewer/form/svg_style_sheet.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <set>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

/// The colour of the only rectangle of a page.
Color fillOf(const std::string &styles, const std::string &rect)
{
    const FormDocument form = readSvg(svgPage("<style>" + styles + "</style>" + rect));
    REQUIRE(form.commands.size() == 1);
    return std::get<PathCommand>(form.commands[0]).fill.value_or(Color{1, 2, 3});
}

constexpr Color kRed{255, 0, 0}, kGreen{0, 128, 0}, kBlue{0, 0, 255};

std::string repeated(const std::string &part, std::size_t times)
{
    std::string text;
    for (std::size_t i = 0; i < times; ++i) text += part;
    return text;
}

/// A sheet that is read without a document, and the notices about it.
struct SheetReading {
    StyleSheet sheet;
    std::set<std::string> notices;
    void add(const std::string &text)
    {
        sheet.add(text, [this](const std::string &notice) { notices.insert(notice); });
    }
};

std::vector<std::string> noticesOf(const std::string &styles)
{
    return readSvg(svgPage("<style>" + styles + "</style>")).notices;
}

} // namespace

TEST_CASE("a rule applies only to elements of its type, class or id")
{
    const std::string rect = "<rect id='枠1' class='a  frame' width='5' height='5'/>";
    struct Case {
        const char *selector;
        bool matches;
    };
    for (const Case &each :
         {Case{"rect", true}, Case{"*", true}, Case{".frame", true}, Case{".a", true}, Case{"#枠1", true},
          Case{"rect.frame", true}, Case{"rect#枠1.a.frame", true}, Case{"*.frame", true}, Case{"g, rect", true},
          Case{"path,#枠1", true}, Case{"text", false}, Case{".fram", false}, Case{".frames", false},
          Case{"#枠", false}, Case{"g.frame", false}, Case{".frame.b", false}, Case{"Rect", false}}) {
        CAPTURE(std::string(each.selector));
        CHECK((fillOf(std::string(each.selector) + "{fill:red}", rect) == kRed) == each.matches);
    }
}

TEST_CASE("an id is stronger than a class, a class stronger than a type, and a later rule stronger than an earlier one")
{
    const std::string rect = "<rect id='i' class='c' width='5' height='5'/>";
    CHECK(fillOf("#i{fill:red} .c{fill:green} rect{fill:blue}", rect) == kRed);
    CHECK(fillOf(".c{fill:green} rect{fill:blue}", rect) == kGreen);
    CHECK(fillOf("rect.c{fill:green} .c{fill:blue}", rect) == kGreen);
    CHECK(fillOf(".c{fill:green} .c{fill:blue}", rect) == kBlue);
}

TEST_CASE("a rule overrides an attribute, the style attribute overrides a rule, and !important overrides both")
{
    CHECK(fillOf("rect{fill:red}", "<rect fill='green' width='5' height='5'/>") == kRed);
    CHECK(fillOf("rect{fill:red}", "<rect style='fill:green' width='5' height='5'/>") == kGreen);
    CHECK(fillOf("rect{fill:red !important}", "<rect style='fill:green' width='5' height='5'/>") == kRed);
    CHECK(fillOf("rect{fill:red !important}", "<rect style='fill:green!important' width='5' height='5'/>") == kGreen);
}

TEST_CASE("the rules of a group apply to its members")
{
    CHECK(fillOf(".g{fill:blue}", "<g class='g'><rect width='5' height='5'/></g>") == kBlue);
}

TEST_CASE("a sheet applies to elements before it, may be in definitions and in CDATA, and several sheets are combined")
{
    const FormDocument form =
        readSvg(svgPage("<rect class='a' width='5' height='5'/><rect class='b' width='5' height='5'/>"
                        "<defs><style type='text/css'><![CDATA[ /* { */ .a { fill : red ; } <!-- --> ]]></style></defs>"
                        "<style>.b{fill:blue}</style><style type='text/x'>.b{fill:green}</style>"));
    CHECK(std::get<PathCommand>(form.commands.at(0)).fill == kRed);
    CHECK(std::get<PathCommand>(form.commands.at(1)).fill == kBlue);
    CHECK(form.notices.empty());
}

TEST_CASE("a sheet's font sizes, fonts and hidden elements are applied, and a size in em is applied once")
{
    const FormDocument form = readSvg(
        svgPage("<style>text{font-size:2em;font-family:\"IPAexGothic\",'a;b'} .no{display:none}</style>"
                "<g font-size='5'><text x='1' y='9' font-size='3em'>大</text><text class='no' y='9'>無</text></g>"));
    REQUIRE(form.commands.size() == 1);
    const auto &text = std::get<TextCommand>(form.commands[0]);
    CHECK(text.family == "IPAexGothic");
    CHECK(text.size == doctest::Approx(10 * 72 / 25.4));
}

TEST_CASE("unsupported selectors are reported and skipped, and the rest of the sheet applies")
{
    const std::string rect = "<rect class='c' width='5' height='5'/>";
    for (const char *selector : {"g rect", "g>rect", "rect:hover", "rect[x]", "a+rect", ".", "rect#", "#a#b"}) {
        const std::string rules = std::string(selector) + "{fill:red} .c{fill:blue}";
        std::string shown = selector;
        if (const auto at = shown.find('>'); at != std::string::npos) shown = "g>rect";
        CAPTURE(shown);
        CHECK(fillOf(rules.find('>') == std::string::npos ? rules : "g&gt;rect{fill:red} .c{fill:blue}", rect) ==
              kBlue);
        CHECK(noticesOf(rules.find('>') == std::string::npos ? rules : "g&gt;rect{fill:red}") ==
              std::vector<std::string>{"style 要素のセレクター「" + shown + "」は使いません。"});
    }
}

TEST_CASE("at-rules are reported and fetch nothing")
{
    const std::string rules = "@import url('file:///etc/passwd'); @media print { rect { fill: red } } "
                              "@font-face{font-family:x;src:url('x')} rect{fill:blue}";
    CHECK(fillOf(rules, "<rect width='5' height='5'/>") == kBlue);
    CHECK(noticesOf(rules) ==
          std::vector<std::string>{"style 要素の @ で始まる規則は使いません。外部のファイルも読み込みません。"});
}

TEST_CASE("a sheet that is truncated, empty or has too many closing braces is read to its end")
{
    for (const char *rules : {"rect{fill:blue", "}}rect{fill:red} ", "", ";", "@", "@media{", "{}", "/* rect{fill:red}",
                              "rect{;;:;fill}", "rect{fill:'}", "a{}b{", ",{fill:red}"}) {
        CAPTURE(std::string(rules));
        CHECK_NOTHROW(static_cast<void>(readSvg(svgPage("<style>" + std::string(rules) + "</style>"))));
    }
    CHECK(fillOf("rect{fill:blue", "<rect width='5' height='5'/>") == kBlue);
}

TEST_CASE("the limit of rules counts all kinds of rules with their classes and declarations")
{
    const std::string tooMany = "style 要素の規則が多すぎます。初めのものだけを使います。";
    for (const char *rule : {"@{}", "@x;", "a{}", "a>b{}", "a,a{}", ".a.a.a.a.a{}", "a{fill:red;stroke:red}"}) {
        CAPTURE(std::string(rule));
        SheetReading some, many;
        some.add(repeated(rule, 1'000));
        many.add(repeated(rule, 10'000));
        CHECK_FALSE(some.notices.contains(tooMany));
        CHECK(many.notices.contains(tooMany));
    }
}

TEST_CASE("only the first rules up to the limit apply")
{
    SheetReading reading;
    reading.add(repeated("*{fill:red;stroke:blue}", 10'000));
    CHECK(reading.sheet.declarationsFor("rect", {}).size() == 4'000);
    CHECK(fillOf(repeated("*{fill:red;stroke:blue}", 10'000), "<rect width='1' height='1'/>") == kRed);
}

TEST_CASE("each character of a sheet is examined only a few times")
{
    for (const char *part :
         {"@{}",    "@x;", "@", "@(", "a{}", "a>b{}", "a,", "a{b:c}", "<!--", "-->", "<!", "/*", "/**/",
          "/* */ ", "{",   "}", "(",  ")",   "\"",    "'",  ";",      " ",    "<",   "-",  "/"}) {
        CAPTURE(std::string(part));
        const std::string text = repeated(part, 100'000);
        SheetReading reading;
        reading.add(text);
        CHECK(reading.sheet.charactersRead() <= 5 * text.size());
    }
}

TEST_CASE("comment delimiters are removed everywhere")
{
    CHECK(fillOf("&lt;!-- re--&gt;ct{fi&lt;!--ll:b/*x*/; fill:blue} --&gt;", "<rect width='5' height='5'/>") == kBlue);
}
