#include "viewer/form/svg_reader.h"
#include "viewer/layout/letter_layout.h"
#include "viewer/layout/reading_order.h"
#include "viewer/support/test_pictures.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

PlacedText label(double left, double top, double width = 30, double height = 10)
{
    return {{left, top, width, height}, false, false, false};
}

PlacedText value(double left, double top, double width = 60, double height = 10)
{
    return {{left, top, width, height}, true, false, false};
}

PlacedText single(double left, double top)
{
    return {{left, top, 10, 10}, false, false, true};
}

using Lines = std::vector<ReadingLine>;

/// The lines of a form, with the texts as they are written in it.
std::vector<std::string> linesOf(const std::string &svg)
{
    const FormDocument form = readSvg(svg);
    std::vector<std::string> columns;
    for (const DrawCommand &command : form.commands)
        if (const auto *const text = std::get_if<TextCommand>(&command))
            for (const TextPiece &piece : text->pieces)
                if (piece.isField()) columns.push_back(piece.column);
    Fonts fonts;
    const LetterLayout layout(form, columns, fonts);
    std::vector<std::string> lines;
    for (const ReadingLine &line : layout.readingLines()) {
        std::string &text = lines.emplace_back();
        for (const std::size_t command : line)
            for (const TextPiece &piece : std::get<TextCommand>(form.commands[command]).pieces)
                text += piece.isField() ? "<" + piece.column + ">" : piece.literal;
    }
    return lines;
}

std::string textAt(int x, int y, const std::string &text, const std::string &attributes = {})
{
    return "<text x='" + std::to_string(x) + "' y='" + std::to_string(y) + "' font-size='4' " + attributes + ">" +
           text + "</text>";
}

} // namespace

TEST_CASE("labels with their values are read row by row, in whatever order the form has them")
{
    const std::vector<PlacedText> texts = {label(0, 20), label(0, 0), value(40, 0), value(40, 20)};
    CHECK(readingLines(texts, {}) == Lines{{1, 2}, {0, 3}});
}

TEST_CASE("a tall heading beside rows is read before them, and a tall text on the other side after them")
{
    const std::vector<Box> frames = {{0, 0, 20, 40},   {20, 0, 30, 20},  {50, 0, 80, 20},
                                     {20, 20, 30, 20}, {50, 20, 80, 20}, {130, 0, 20, 40}};
    const std::vector<PlacedText> texts = {label(22, 5, 20),  value(55, 5), label(22, 25, 20), value(55, 25),
                                           label(132, 15, 9), single(5, 9), single(5, 20)};
    CHECK(readingLines(texts, frames) == Lines{{5, 6}, {0, 1}, {2, 3}, {4}});
}

TEST_CASE("two blocks side by side are read one after the other")
{
    const std::vector<PlacedText> texts = {value(0, 5), label(100, 0), value(135, 0), label(100, 12), value(135, 12)};
    CHECK(readingLines(texts, {}) == Lines{{0}, {1, 2}, {3, 4}});
}

TEST_CASE("lines of the form's own text below one another are a paragraph, and fields are not")
{
    const std::vector<PlacedText> texts = {label(10, 0, 100), label(0, 18, 110), value(0, 36, 110), label(0, 90, 110)};
    CHECK(readingLines(texts, {}) == Lines{{0, 1}, {2}, {3}});
}

TEST_CASE("texts that overlap are read in lines from left to right")
{
    const std::vector<PlacedText> texts = {value(40, 1, 30), label(0, 0, 100), label(0, 8, 100, 10)};
    CHECK(readingLines(texts, {}) == Lines{{1, 0}, {2}});
}

TEST_CASE("a page of vertical texts is read from right to left")
{
    const auto column = [](double left, double top) { return PlacedText{{left, top, 10, 50}, true, true, false}; };
    const std::vector<PlacedText> texts = {column(0, 0), column(40, 60), column(40, 0), column(20, 0)};
    CHECK(readingLines(texts, {}) == Lines{{2, 1}, {3}, {0}});
}

TEST_CASE("any number of texts at one place is read, each once")
{
    const std::vector<PlacedText> texts(3000, value(0, 0));
    const Lines lines = readingLines(texts, std::vector<Box>(5000, Box{0, 0, 100, 100}));
    REQUIRE(lines.size() == 1);
    CHECK(lines.front().size() == 3000);
}

TEST_CASE("the supplied standard form is read as a person reads it")
{
    const TempFolder folder;
    static_cast<void>(writePrintJob(folder, kForm, {ordinaryRow()}));
    const std::vector<std::string> lines = linesOf(folder.bytes(kForm));
    CHECK(lines == std::vector<std::string>{
                       "委任状",
                       "<保険者名>　御中",
                       "保険者地区<保険者地区名>",
                       "保険種別<保険種別>",
                       "私は、下記の受任者を代理人と定め、次の期間に受けた施術に係る療養費について、"
                       "支給の申請（請求）および受領に関する一切の権限を委任します。",
                       "記",
                       "委任の内容",
                       "委任する事項療養費の支給申請（請求）および受領",
                       "委任する期間<対象開始日>　から　<対象終了日>　まで",
                       "最終施術日<最終施術日>",
                       "施術を受けた者<利用者氏名>",
                       "同　住所<利用者住所>",
                       "受任者",
                       "所在地<会社住所>",
                       "名称<会社名称>",
                       "代表者氏名<代表者名>印",
                       "電話番号<会社電話番号>",
                       "振込先",
                       "金融機関・支店<金融機関名>",
                       "口座番号<口座番号>",
                       "口座名義<口座名義>",
                       "上記のとおり委任します。<署名日>",
                       "委任者",
                       "住所<世帯主住所>",
                       "世帯主氏名<世帯主名>印",
                       "電話番号<世帯主電話>",
                       "<#整理番号>",
                   });
}

TEST_CASE("a text that a later shape may cover is not read, one below a line or in a frame is")
{
    const std::string text = textAt(10, 20, "甲");
    CHECK(linesOf(svgPage(text + "<rect x='5' y='5' width='50' height='50' fill='#fff'/>")).empty());
    CHECK(linesOf(svgPage("<rect x='5' y='5' width='50' height='50' fill='#fff'/>" + text)).size() == 1);
    CHECK(linesOf(svgPage(text + "<rect x='5' y='5' width='50' height='50' fill='none' stroke='#000'/>")).size() == 1);
    CHECK(linesOf(svgPage(text + "<path d='M5 18H60' fill='none' stroke='#000'/>")).empty());
    CHECK(linesOf(svgPage(text + "<path d='M5 25H60' fill='none' stroke='#000'/>")).size() == 1);
}

TEST_CASE("a picture covers like a shape, and a shape with a condition covers all that letters share")
{
    const std::string text = textAt(10, 20, "甲"), field = textAt(10, 20, "{{列}}"), far = textAt(10, 200, "{{列}}");
    const std::string picture = "<image x='5' y='5' width='50' height='50' href='" +
                                embedded(pictureBytes("seal.png")) + "'/>",
                      sometimes = "<rect data-if='列' x='5' y='5' width='50' height='50' fill='#fff'/>";
    CHECK(linesOf(svgPage(text + picture)).empty());
    CHECK(linesOf(svgPage(picture + text)) == std::vector<std::string>{"甲"});
    CHECK(linesOf(svgPage(sometimes + text + far)) == std::vector<std::string>{"<列>"});
    CHECK(linesOf(svgPage(sometimes + field)) == std::vector<std::string>{"<列>"});
    CHECK(linesOf(svgPage(field + sometimes)).empty());
}

TEST_CASE("each page has its own lines, and a text with a condition is in them")
{
    const FormDocument form =
        readSvg("<svg xmlns='http://www.w3.org/2000/svg' xmlns:inkscape='http://www.inkscape.org/namespaces/inkscape' "
                "width='210mm' height='297mm' viewBox='0 0 210 297'><inkscape:page width='210' height='297'/>"
                "<inkscape:page x='220' width='210' height='297'/>" +
                textAt(230, 40, "乙", "data-if='列'") + textAt(230, 20, "甲") + textAt(10, 20, "{{列}}") + "</svg>");
    Fonts fonts;
    const LetterLayout layout(form, {"列"}, fonts);
    CHECK(layout.readingLines(0) == Lines{{2}});
    CHECK(layout.readingLines(1) == Lines{{1}, {0}});
    CHECK(layout.isSharedText(1));
    CHECK_FALSE(layout.isSharedText(0));
}

TEST_CASE("graphics with a condition are painted before the texts, except for a text that they are to cover")
{
    const FormDocument form =
        readSvg(svgPage(textAt(10, 40, "{{甲}}") + "<rect data-if='甲' x='5' y='30' width='50' height='20'/>" +
                        textAt(10, 20, "{{甲}}") + "<rect data-if='甲' x='5' y='90' width='9' height='9'/>"));
    Fonts fonts;
    LetterLayout layout(form, {"甲"}, fonts);
    struct Painted : PagePainter {
        std::string kinds;
        void paint(const PathCommand &) override { kinds += 'p'; }
        void paint(const PictureCommand &) override {}
        void paint(const GlyphRun &) override {}
        void beginText(std::size_t command) override { kinds += std::to_string(command); }
    } painted;

    static_cast<void>(layout.paintLetter([](std::size_t) { return std::string_view("名"); }, painted));

    CHECK(painted.kinds == "0pp2");
}

TEST_CASE("fields are painted in the order of reading, and their marks keep the order of the form")
{
    const FormDocument form = readSvg(svgPage(textAt(10, 40, "{{乙}}") + textAt(10, 20, "{{甲}}")));
    Fonts fonts;
    LetterLayout layout(form, {"甲", "乙"}, fonts);
    struct Painted : PagePainter {
        std::vector<std::size_t> commands;
        void paint(const PathCommand &) override {}
        void paint(const PictureCommand &) override {}
        void paint(const GlyphRun &) override {}
        void beginText(std::size_t command) override { commands.push_back(command); }
    } painted;

    const auto marks = layout.paintLetter([](std::size_t) { return std::string_view("\U0010FFFD"); }, painted);

    CHECK(painted.commands == std::vector<std::size_t>{1, 0});
    REQUIRE(marks.size() == 2);
    CHECK(marks[0].field == 0);
}
