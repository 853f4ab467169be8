// Forms as a drawing program saves them after editing.
#include "viewer/form/svg_reader.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <cmath>
#include <regex>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

std::string formOfSite(const std::string &name)
{
    return bytesOf(std::string(ININ_SITE) + "/forms/" + name);
}

/// Records painted paths and runs as text.
class Record : public PagePainter {
public:
    void paint(const PictureCommand &) override {}
    void paint(const PathCommand &path) override
    {
        const Box box = boundsOf(path.path);
        add("path", {box.left, box.top, box.width, box.height, path.fill ? path.fill->red / 1.0 : -1,
                     path.stroke ? path.stroke->width : -1});
    }
    void paint(const GlyphRun &run) override
    {
        add("text", {run.at.e, run.at.f, run.size, run.stretch, run.spacing, run.isBold ? 1.0 : 0.0});
        for (const ShapedGlyph &glyph : run.glyphs) all += " " + std::to_string(glyph.glyph);
    }
    std::string all;

private:
    void add(const char *what, std::initializer_list<double> numbers)
    {
        all += std::string("\n") + what;
        for (const double number : numbers) all += " " + std::to_string(std::lround(number * 100));
    }
};

std::string paintedWith(const std::string &svg, const Row &row)
{
    const LetterSet set = lettersOn(svg, {row});
    CHECK(set.reports[0].form.notices.empty());
    Fonts fonts;
    LetterRenderer renderer(set, fonts);
    Record record;
    renderer.layoutOf(0).paintShared(record);
    renderer.paintFields(0, record);
    return record.all;
}

/// Rewrites each text as the text tool does: as a line of its own, with all properties of its style.
std::string withEditedTexts(const std::string &svg)
{
    static const std::regex text(R"re((<text [^>]*?)x="([^"]*)" y="([^"]*)" style="([^"]*)"([^>]*)>([^<]*)</text>)re");
    return std::regex_replace(
        svg, text,
        "$1x=\"$2\" y=\"$3\" style=\"font-style:normal;font-variant:normal;font-weight:normal;font-stretch:normal;"
        "line-height:1.25;$4;-inkscape-font-specification:'IPAexMincho, Normal';font-variant-ligatures:normal;"
        "text-align:start;writing-mode:lr-tb;text-decoration:none;fill-opacity:1;stroke:none;stroke-width:0.264583;"
        "stroke-dasharray:none;stroke-opacity:1;opacity:1;visibility:visible;display:inline;clip-path:none;mask:none;"
        "filter:none;marker-start:none\"$5><tspan sodipodi:role=\"line\" id=\"tspan836\" x=\"$2\" y=\"$3\" "
        "style=\"stroke-width:0.264583\">$6</tspan></text>");
}

void insertBefore(std::string &text, const std::string &place, const std::string &what)
{
    const std::size_t at = text.find(place);
    REQUIRE(at != std::string::npos);
    text.insert(at, what);
}

} // namespace

TEST_CASE("a form whose texts were edited with the editor's text tool looks the same")
{
    for (const char *name : kForms) {
        CAPTURE(std::string(name));
        const std::string form = formOfSite(name), edited = withEditedTexts(form);
        REQUIRE(edited.size() > form.size() + 10'000);
        for (const Row &row : {ordinaryRow(), longestRow(), Row{}})
            CHECK(paintedWith(edited, row) == paintedWith(form, row));
    }
}

TEST_CASE("the example change of the guide adds a field with a box")
{
    std::string form = formOfSite("委任状37_01.wfd");
    insertBefore(
        form, "</svg>",
        "<rect id=\"枠-備考\" x=\"60\" y=\"275\" width=\"40\" height=\"6\" style=\"fill:none\"/>"
        "<text xml:space=\"preserve\" x=\"22\" y=\"279\" style=\"font-size:3.4px;font-weight:bold\" id=\"text9\">"
        "<tspan sodipodi:role=\"line\" x=\"22\" y=\"279\">備考</tspan></text>"
        "<text xml:space=\"preserve\" x=\"60\" y=\"279\" style=\"font-family:IPAexMincho;font-size:4px\" "
        "data-box=\"枠-備考\" id=\"text10\"><tspan sodipodi:role=\"line\" x=\"60\" y=\"279\">"
        "{{保険者地区名}}</tspan></text>");
    const LetterSet set = lettersOn(form, {ordinaryRow(), longestRow()});
    Fonts fonts;
    LetterRenderer renderer(set, fonts);
    Record record;

    const auto &marks = renderer.paintFields(0, record);

    CHECK(marks.empty());
    CHECK(set.reports[0].form.notices.empty());
    const auto &fields = renderer.layoutOf(0).fields();
    const auto &field = std::get<TextCommand>(set.reports[0].form.commands[fields.back().command]);
    CHECK(field.pieces[0].column == "保険者地区名");
    REQUIRE(field.fit);
    CHECK(field.fit->box.left == doctest::Approx(60 * 72 / 25.4));
    CHECK(field.fit->box.height == doctest::Approx(6 * 72 / 25.4));
    const auto &heading = std::get<TextCommand>(set.reports[0].form.commands[fields.back().command - 1]);
    CHECK(heading.isBold);
    CHECK(heading.pieces[0].literal == "備考");
}

TEST_CASE("moving a box moves its text, and moving only the text has no effect")
{
    const std::string box = "<rect id='b' x='20' y='30' width='50' height='10' style='fill:none' TRANSFORM/>";
    const std::string text =
        "<text x='20' y='36' transform='TEXTMOVE' style='font-size:4px' data-box='b'>{{保険者名}}</text>";
    const auto placed = [&](const std::string &boxMove, const std::string &textMove) {
        const FormDocument form = readSvg(svgPage(std::regex_replace(box, std::regex("TRANSFORM"), boxMove) +
                                                  std::regex_replace(text, std::regex("TEXTMOVE"), textMove)));
        return std::get<TextCommand>(form.commands.at(0)).fit->box;
    };
    const Box before = placed("", "");
    CHECK(placed("transform='translate(7,0)'", "").left == doctest::Approx(before.left + 7 * 72 / 25.4));
    CHECK(placed("", "translate(7,0)").left == doctest::Approx(before.left));
}

TEST_CASE("two lines typed into one text are two lines, and a bold word in a line is reported")
{
    const FormDocument form = readSvg(svgPage(
        "<text xml:space='preserve' style='font-size:4px;line-height:1.25' x='9' y='9'><tspan "
        "sodipodi:role='line' x='9' y='9' xmlns:sodipodi='urn:s'>一行目<tspan style='font-weight:bold'>太字</tspan>"
        "</tspan><tspan sodipodi:role='line' x='9' y='14' xmlns:sodipodi='urn:s'>二行目</tspan></text>"));
    REQUIRE(form.commands.size() == 2);
    const auto &first = std::get<TextCommand>(form.commands[0]), &second = std::get<TextCommand>(form.commands[1]);
    CHECK(first.pieces[0].literal == "一行目太字");
    CHECK_FALSE(first.isBold);
    CHECK(second.at.f == doctest::Approx(14 * 72 / 25.4));
    CHECK(form.notices ==
          std::vector<std::string>{"一行の中でフォントや大きさや色が変わる文字は、行の始まりの書式で表示します。"});
}
