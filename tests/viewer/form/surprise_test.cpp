// What an editor of a form may expect and does not get is reported by name, once.
#include "viewer/form/svg_reader.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

using Notices = std::vector<std::string>;

Notices surprisesOf(const std::string &elements)
{
    return readSvg(svgPage(elements)).notices;
}

std::string boxedText(const std::string &attributes, const std::string &text = "{{利用者氏名}}")
{
    return "<rect id='枠-氏名' x='50' y='50' width='60' height='10' fill='none'/><text data-box='枠-氏名' "
           "style='font-size:5px' " +
           attributes + ">" + text + "</text>";
}

} // namespace

TEST_CASE("a text that was moved out of its box is reported with its box")
{
    const Notices expected{
        "文字「{{利用者氏名}}」は枠「枠-氏名」の外にありますが、枠の中に印刷します。印刷する場所は、枠を動かして変えます。"};
    CHECK(surprisesOf(boxedText("x='50' y='58'")).empty());
    CHECK(surprisesOf(boxedText("x='80' y='58' text-anchor='middle'")).empty());
    CHECK(surprisesOf(boxedText("x='50' y='90'")) == expected);
    CHECK(surprisesOf(boxedText("x='20' y='58'")) == expected);
    CHECK(surprisesOf(boxedText("x='50' y='58' transform='translate(0,60)'")) == expected);
    // A text without a position has not been moved.
    CHECK(surprisesOf(boxedText("")).empty());
}

TEST_CASE("the supplied forms have no text outside its box and no other surprise")
{
    for (const char *name : kForms) {
        CAPTURE(std::string(name));
        CHECK(readSvg(bytesOf(std::string(ININ_SITE) + "/forms/" + name)).notices.empty());
    }
}

TEST_CASE("full-width braces of a placeholder are reported")
{
    CHECK(surprisesOf("<text x='9' y='9'>氏名 ｛｛利用者氏名｝｝</text>") ==
          Notices{"文字「氏名 ｛｛利用者氏名｝｝」の全角の波かっこは、差し込みになりません。半角で書いてください。"});
    CHECK(surprisesOf("<text x='9' y='9'>｛氏名｝</text>").empty());
}

TEST_CASE("a field in a frame of the drawing program is reported, an ordinary text in one is not")
{
    const auto framed = [](const std::string &text) {
        return "<text x='9' y='9' style='shape-inside:url(#r);font-size:5px'>" + text + "</text>";
    };
    CHECK(
        surprisesOf(framed("住所 {{利用者住所}}")) ==
        Notices{
            "文字「住所 {{利用者住所}}」は流し込み枠（shape-inside）の中にありますが、値に合わせて折り返しません。枠は "
            "data-box で指定してください。"});
    CHECK(surprisesOf(framed("住所")).empty());
}
