// Forms of several pages, and parts that are drawn for some letters only.
#include "runtime/runtime_error.h"
#include "runtime/utf8.h"
#include "viewer/form/show_rule.h"
#include "viewer/form/svg_reader.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

/// A drawing in millimetres whose pages are side by side, with a gap of 10.
std::string pagesSvg(const std::vector<std::string> &pages, const std::string &elements)
{
    std::string view = "<sodipodi:namedview>";
    for (const std::string &page : pages) view += "<inkscape:page " + page + "/>";
    return "<svg xmlns='http://www.w3.org/2000/svg' xmlns:sodipodi='http://sodipodi.sourceforge.net/DTD/"
           "sodipodi-0.dtd' xmlns:inkscape='http://www.inkscape.org/namespaces/inkscape' width='210mm' height='297mm' "
           "viewBox='0 0 210 297'>" +
           view + "</sodipodi:namedview>" + elements + "</svg>";
}

const std::vector<std::string> kTwoPages = {"x='0' y='0' width='210' height='297'",
                                            "x='220' y='0' width='148' height='210'"};

/// What a letter shows on a page.
struct Texts {
    std::string all; ///< the texts, each followed by a blank, first the shared ones
    std::vector<Point> places;
    int paths = 0;
};

class TextPainter : public PagePainter {
public:
    void paint(const PathCommand &) override { ++texts.paths; }
    void paint(const PictureCommand &) override {}
    void paint(const GlyphRun &run) override
    {
        for (const ShapedGlyph &glyph : run.glyphs)
            for (const char32_t character : run.font->charactersOf(glyph.text)) appendUtf8(texts.all, character);
        texts.all += ' ';
        texts.places.push_back(run.at({}));
    }
    Texts texts;
};

struct Pages {
    LetterSet set;
    Fonts fonts;
    LetterRenderer renderer;
    Pages(const std::string &svg, const std::vector<Row> &rows) : set(lettersOn(svg, rows)), renderer(set, fonts) {}
    Texts painted(std::size_t letter, std::size_t page)
    {
        TextPainter painter;
        renderer.layoutOf(letter).paintShared(painter, page);
        renderer.paintFields(letter, painter, page);
        return painter.texts;
    }
};

std::string textAt(int x, int y, const std::string &text)
{
    return "<text style='font-size:5px' x='" + std::to_string(x) + "' y='" + std::to_string(y) + "'>" + text +
           "</text>";
}

/// The text that a form shows for a letter.
std::string shown(const std::string &elements, const Row &row)
{
    return Pages(svgPage(elements), {row}).painted(0, 0).all;
}

} // namespace

TEST_CASE("the pages of a drawing become the pages of each letter, each with its own size and origin")
{
    Pages pages(pagesSvg(kTwoPages, textAt(10, 20, "一枚目") + textAt(230, 30, "二枚目") +
                                        textAt(240, 50, "{{利用者氏名}}") +
                                        "<rect x='225' y='5' width='9' height='9'/>"),
                {ordinaryRow(), ordinaryRow()});
    pages.set.usesFormPaper = true;
    CHECK(pages.set.size() == 2);
    CHECK(pages.set.reports[0].form.notices.empty());
    CHECK(pages.renderer.pageCount(1) == 2);
    CHECK(pages.painted(0, 0).all == "一枚目 ");
    CHECK(pages.painted(0, 0).paths == 0);
    const Texts second = pages.painted(1, 1);
    CHECK(second.all == "二枚目 髙橋　花子 ");
    CHECK(second.paths == 1);
    CHECK(second.places[0].x == doctest::Approx(10 * kPointsPerMillimetre));
    CHECK(second.places[0].y == doctest::Approx(30 * kPointsPerMillimetre));
    CHECK(pages.renderer.paperSize(0, 1).x == doctest::Approx(148 * kPointsPerMillimetre));
}

TEST_CASE("a shape that touches two pages is on both, and a text outside all pages is named")
{
    Pages pages(pagesSvg(kTwoPages, "<rect x='200' y='5' width='40' height='9'/>" + textAt(400, 20, "遠い文字")),
                {ordinaryRow()});
    CHECK(pages.painted(0, 0).paths == 1);
    CHECK(pages.painted(0, 1).paths == 1);
    CHECK(pages.set.reports[0].form.notices ==
          std::vector<std::string>{"ページの外にある文字「遠い文字」は印刷しません。"});
}

TEST_CASE("a box of a field on the second page moves with the page")
{
    Pages pages(pagesSvg(kTwoPages, "<rect id='b' x='230' y='100' width='60' height='10' fill='none'/>"
                                    "<text style='font-size:5px' data-box='b'>{{利用者氏名}}</text>"),
                {ordinaryRow()});
    const Texts second = pages.painted(0, 1);
    REQUIRE(second.places.size() == 1);
    CHECK(second.places[0].x == doctest::Approx(10 * kPointsPerMillimetre));
}

TEST_CASE("more than a hundred pages are refused")
{
    const auto svgOf = [](std::size_t pages) { return pagesSvg(std::vector<std::string>(pages, kTwoPages[0]), ""); };
    for (const std::size_t pages : {std::size_t{101}, std::size_t{200}})
        CHECK_THROWS_WITH_AS(static_cast<void>(readSvg(svgOf(pages))), "ページが多すぎます（100ページまで）。",
                             RuntimeError);
    CHECK(readSvg(svgOf(100)).pageCount() == 100);
}

TEST_CASE("a form that is as large as another page, too far away or without size adds no page")
{
    CHECK(readSvg(pagesSvg({}, "")).pageCount() == 1);
    CHECK(
        readSvg(pagesSvg({kTwoPages[0], "x='0' y='0' width='0' height='9'", "x='0' y='0' width='nan' height='9'"}, ""))
            .pageCount() == 1);
}

TEST_CASE("a group with data-if is drawn for the letters whose column is not blank, with data-unless for the others")
{
    const std::string form = "<g data-if='世帯主名'>" + textAt(10, 20, "世帯主あり") +
                             "</g><g data-unless='世帯主名'>" + textAt(10, 30, "世帯主なし") + "</g>";
    CHECK(shown(form, {{"世帯主名", "長尾"}}) == "世帯主あり ");
    CHECK(shown(form, {{"世帯主名", "　 "}}) == "世帯主なし ");
}

TEST_CASE("conditions compare with = and !=, without outer blanks")
{
    const std::string form = "<g data-if='保険種別=2'>" + textAt(10, 20, "二") + "</g><g data-if='保険種別 != 2 '>" +
                             textAt(10, 30, "二でない") + "</g><g data-unless='保険種別=2'>" + textAt(10, 40, "否") +
                             "</g>";
    CHECK(shown(form, {{"保険種別", " 2　"}}) == "二 ");
    CHECK(shown(form, {{"保険種別", "22"}}) == "二でない 否 ");
    CHECK(shown(form, {{"保険種別", ""}}) == "二でない 否 ");
}

TEST_CASE("a nested condition holds only together with the outer ones, also if they contradict each other")
{
    const std::string form = "<g data-if='保険種別=1'><g data-if='世帯主名'>" + textAt(10, 20, "両方") +
                             "</g><g data-if='保険種別=2'>" + textAt(10, 30, "矛盾") + "</g></g>";
    CHECK(shown(form, {{"保険種別", "1"}, {"世帯主名", "長尾"}}) == "両方 ");
    CHECK(shown(form, {{"保険種別", "1"}}).empty());
    CHECK(shown(form, {{"保険種別", "2"}, {"世帯主名", "長尾"}}).empty());
}

TEST_CASE("conditions apply to fields, shapes and codes too")
{
    Pages pages(svgPage("<rect data-if='世帯主名' width='9' height='9'/><text x='9' y='9' style='font-size:5px' "
                        "data-if='世帯主名'>{{利用者氏名}}</text>"),
                {{{"世帯主名", "長尾"}, {"利用者氏名", "髙橋"}}, {{"利用者氏名", "髙橋"}}});
    CHECK(pages.set.reports[0].form.notices.empty());
    CHECK(pages.painted(0, 0).paths == 1);
    CHECK(pages.painted(0, 0).all == "髙橋 ");
    CHECK(pages.painted(1, 0).paths == 0);
    CHECK(pages.painted(1, 0).all.empty());
}

TEST_CASE("conditions name columns only: groups that name each other are refused as unknown columns, all at once")
{
    const LetterSet set = lettersOn(
        svgPage("<g id='a' data-if='b'><g id='b' data-if='a'>" + textAt(10, 20, "x") + "</g></g>"), {ordinaryRow()});
    Fonts fonts;
    CHECK_THROWS_WITH_AS(LetterRenderer(set, fonts), "「」：帳票の差し込みや条件の列「b」「a」が CSV にありません。",
                         RuntimeError);
    CHECK_THROWS_WITH_AS(static_cast<void>(readShowRule(" = 2")), "条件「 = 2」に列の名前がありません。", RuntimeError);
}

TEST_CASE("a field shows words for codes, and a code without a word as it is, which is marked")
{
    const std::string form = textAt(10, 20, "{{保険種別|1=社保;2=国保}}");
    CHECK(shown(form, {{"保険種別", "2"}}) == "国保 ");
    CHECK(shown(form, {{"保険種別", ""}}).empty());
    Pages pages(svgPage(form), {{{"保険種別", "9"}}});
    TextPainter painter;
    const std::vector<FieldMark> marks = pages.renderer.paintFields(0, painter);
    CHECK(painter.texts.all == "9 ");
    REQUIRE(marks.size() == 1);
    CHECK(marks[0].noWord);
}

TEST_CASE("a form with a list of ten thousand words shows the word of each letter")
{
    std::string list;
    for (int i = 0; i < 10'000; ++i) list += std::to_string(i) + "=語" + std::to_string(i) + ";";
    Pages pages(svgPage(textAt(10, 20, "{{保険種別|" + list + "}}")), {{{"保険種別", "0"}}, {{"保険種別", "9999"}}});
    CHECK(pages.set.reports[0].form.notices.empty());
    CHECK(pages.painted(0, 0).all == "語0 ");
    CHECK(pages.painted(1, 0).all == "語9999 ");
}

TEST_CASE("an empty date is printed as blanks to be filled in, unless the form has another text for it")
{
    CHECK(shown(textAt(10, 20, "{{署名日|ggge年m月d日}}"), {}) == "　　　　年　　月　　日 ");
    CHECK(shown(textAt(10, 20, "{{署名日|ggge年m月d日|未定}}"), {}) == "未定 ");
    CHECK(shown(textAt(10, 20, "{{署名日}}です"), {}) == "です ");
}

TEST_CASE("empty dates are reported once a run, with the number of letters")
{
    const TempFolder folder;
    Row dated = ordinaryRow(), undated = ordinaryRow();
    undated["署名日"] = "";
    undated["最終施術日"] = "　";
    const std::string script = writePrintJob(folder, kForm, {dated, undated, undated});
    folder.put(kForm, svgPage(textAt(10, 20, "{{署名日|m月d日}}{{署名日|e年}}{{最終施術日|m月d日|なし}}")));
    CHECK(openScript(script).notices ==
          std::vector<std::string>{"日付（署名日）が空の委任状が2通あります。手で書き入れる空欄にして印刷します。"});
    (void)writePrintJob(folder, kForm, {dated});
    folder.put(kForm, svgPage(textAt(10, 20, "{{署名日|m月d日}}")));
    CHECK(openScript(script).notices.empty());
}

TEST_CASE("empty dates are reported on the supplied forms, whose text for them leaves room to write")
{
    Row undated = ordinaryRow();
    undated["署名日"] = undated["最終施術日"] = "";
    for (const char *form : kForms) {
        const TempFolder folder;
        CHECK(openScript(writePrintJob(folder, form, {ordinaryRow(), undated})).notices ==
              std::vector<std::string>{
                  "日付（最終施術日、署名日）が空の委任状が1通あります。手で書き入れる空欄にして印刷します。"});
    }
}

TEST_CASE("lines of a box whose fields are all empty are left out on request, and the lines below move up")
{
    const auto lines = [](const std::string &attribute) {
        return "<rect id='b' x='10' y='10' width='100' height='40' fill='none'/><text style='font-size:5px' data-box='b' "
               "data-lines='4' data-valign='top' " +
               attribute +
               "><tspan x='10' y='10'>{{利用者住所}}</tspan><tspan x='10' y='17'>世帯主 {{世帯主名}}{{世帯主電話}}</tspan>"
               "<tspan x='10' y='24'>以上</tspan></text>";
    };
    const Row row{{"利用者住所", "高松市"}};
    CHECK(shown(lines("data-empty-lines='drop'"), row) == "高松市 以上 ");
    CHECK(shown(lines(""), row) == "高松市 世帯主  以上 ");
    CHECK(shown(lines("data-empty-lines='drop'"), {{"利用者住所", "高松市"}, {"世帯主電話", "1"}}) ==
          "高松市 世帯主 1 以上 ");
    CHECK(shown(lines("data-empty-lines='drop'"), {}) == "以上 ");
    CHECK(
        readSvg(svgPage("<text x='1' y='1' data-empty-lines='drop'>{{a}}</text>")).notices ==
        std::vector<std::string>{"空の行を詰める指定（data-empty-lines）は、枠（data-box）のある文字だけで使えます。"});
}
