#include "viewer/window/window_world.h"

#include <doctest/doctest.h>

#include <cstdlib>
#include <filesystem>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

struct Printing : WindowWorld {
    explicit Printing(int count) : WindowWorld(differentRows(count)), letters(script) {}

    PrintResult print(const std::string &range, const PrintOrder &order, const PrintProgress &progress = {})
    {
        letters.ticks.setText(range);
        return printLetters(letters, letters.ticks.letters(), order, services().paths, progress);
    }
    OpenLetters letters;
};

/// The first column of a picture that is not white.
int firstDark(const QImage &image)
{
    for (int x = 0; x < image.width(); ++x)
        for (int y = 0; y < image.height(); ++y)
            if (qGray(image.pixel(x, y)) < 128) return x;
    return image.width();
}

} // namespace

TEST_CASE("the print has as many pages as letters are ticked")
{
    struct Case {
        const char *range;
        std::size_t pages;
    };
    for (const Case &each : {Case{"1", 1}, Case{"1-9", 9}, Case{"2,4,6-9", 6}, Case{"9,1", 2}}) {
        CAPTURE(each.range);
        Printing world(9);
        const PrintResult result = world.print(each.range, world.order());
        CHECK(result.isDone());
        CHECK(result.sent == each.pages);
        CHECK(pageCount(world.jobPath(0)) == each.pages);
    }
}

TEST_CASE("page k of a print shows the k-th ticked letter and no other")
{
    std::vector<Row> rows = differentRows(3);
    rows[1]["利用者氏名"] = "二二二二二二";
    rows[2]["利用者氏名"] = "龗龗龗龗龗龗";
    WindowWorld world(rows);
    OpenLetters letters(world.script);
    const std::vector<std::size_t> which{0, 2};
    REQUIRE(printLetters(letters, which, world.order(), world.services().paths, {}).isDone());
    const QImage page = pageImage(world.jobPath(0), 2);
    const auto distance = [&](std::size_t letter) {
        return difference(page, pageImage(letters.renderer, letter, 72, letters.glyphs));
    };
    CHECK(distance(2) < distance(0));
    CHECK(distance(2) < distance(1));
    // The two pictures differ in antialiasing. A page of another letter is almost as close, a blank page is far off.
    CHECK(distance(2) < 6);
}

TEST_CASE("a painted page equals the saved one for the longest, condensed and unusual values and for a second font")
{
    std::vector<Row> rows{ordinaryRow(), longestRow(), oddRow()};
    rows[0]["利用者氏名"] = "髙﨑𠮷";
    WindowWorld world(rows);
    OpenLetters letters(world.script);
    const std::vector<std::size_t> which{0, 1, 2};
    REQUIRE(printLetters(letters, which, world.order(), world.services().paths, {}).isDone());
    const std::string saved = world.folder / "saved.pdf";
    REQUIRE(writeLettersPdf(saved, letters.renderer, which));
    for (int page = 1; page <= 3; ++page) {
        CAPTURE(page);
        CHECK(difference(pageImage(world.jobPath(0), page), pageImage(saved, page)) < 0.5);
    }
}

TEST_CASE("a painted page takes a few kilobytes, without the outline of every character")
{
    Printing world(60);
    REQUIRE(world.print("1-60", world.order()).isDone());
    CHECK(std::filesystem::file_size(world.jobPath(0)) < 60 * 10'000);
}

TEST_CASE("letters are printed in jobs of n, the last one shorter")
{
    Printing world(9);
    PrintOrder order = world.order();
    order.lettersPerJob = 4;
    CHECK(world.print("1-9", order).sent == 9);
    REQUIRE(world.jobs == 3);
    CHECK(pageCount(world.jobPath(0)) == 4);
    CHECK(pageCount(world.jobPath(1)) == 4);
    CHECK(pageCount(world.jobPath(2)) == 1);
}

TEST_CASE("a printer without support for copies gets all letters once per copy, set by set")
{
    Printing world(3);
    PrintOrder order = world.order();
    order.copies = 2;
    REQUIRE(world.print("1-3", order).isDone());
    CHECK(pageCount(world.jobPath(0)) == 6);
    CHECK(difference(pageImage(world.jobPath(0), 1), pageImage(world.jobPath(0), 4)) == 0);
    CHECK(difference(pageImage(world.jobPath(0), 1), pageImage(world.jobPath(0), 2)) > 0);
}

TEST_CASE("an offset moves the page by tenths of a millimetre")
{
    Printing world(1);
    PrintOrder order = world.order();
    REQUIRE(world.print("1", order).isDone());
    order.offset = {100, 0};
    REQUIRE(world.print("1", order).isDone());
    const int moved = firstDark(pageImage(world.jobPath(1), 1)) - firstDark(pageImage(world.jobPath(0), 1));
    // 10 mm are 28.3 dots.
    CHECK(moved >= 28);
    CHECK(moved <= 29);
}

TEST_CASE("the sheet is A4 whatever the printer's unprintable margins are")
{
    Printing world(1);
    REQUIRE(world.print("1", world.order()).isDone());
    const QImage page = pageImage(world.jobPath(0), 1);
    CHECK(page.width() == 595);
    CHECK(page.height() == 842);
}

TEST_CASE("a sideways form and an envelope are painted on sheets of their own size")
{
    struct Case {
        const char *size;
        int width, height; // points
    };
    for (const Case &each :
         {Case{"width='297mm' height='210mm'", 842, 595}, Case{"width='120mm' height='235mm'", 340, 666}}) {
        CAPTURE(std::string(each.size));
        Printing world(2);
        world.folder.put(kForm, "<svg xmlns='http://www.w3.org/2000/svg' " + std::string(each.size) +
                                    "><rect x='0' y='0' width='9999' height='9999'/><text>{{利用者氏名}}</text></svg>");
        world.letters.readFormsAgain();
        CHECK(world.print("1-2", world.order()).isDone());
        const QImage page = pageImage(world.jobPath(0), 2);
        CHECK(std::abs(page.width() - each.width) <= 1);
        CHECK(std::abs(page.height() - each.height) <= 1);
        CHECK(qGray(page.pixel(page.width() - 3, page.height() - 3)) < 128);
    }
}

TEST_CASE("a printer that refuses from the start prints nothing, and an error is reported")
{
    Printing world(3);
    world.outputFolder = world.folder / "gone";
    const PrintResult result = world.print("1-3", world.order());
    CHECK(result.sent == 0);
    CHECK(!result.isCancelled);
    CHECK(result.fault == "プリンター「紙」が印刷を受け付けませんでした。電源、用紙、接続を確認してください。");
}

TEST_CASE("a missing printer refuses")
{
    Printing world(1);
    const MakePrinter none = [](const PrintOrder &) { return std::unique_ptr<QPrinter>(); };
    const std::vector<std::size_t> which{0};
    CHECK(!printLetters(world.letters, which, world.order(), {{}, none}, {}).fault.empty());
    CHECK(!printRulerPage(world.letters, world.order(), {{}, none}).empty());
}

TEST_CASE("an unknown name gives no system printer")
{
    Printing world(1);
    PrintOrder order = world.order();
    order.printer = QStringLiteral("no such printer at all");
    CHECK(systemPrinter(order) == nullptr);
    order.printer.clear();
    CHECK(systemPrinter(order) == nullptr);
}

TEST_CASE("a printer that refuses a later job leaves the letters of the earlier jobs as sent")
{
    Printing world(9);
    PrintOrder order = world.order();
    order.lettersPerJob = 3;
    world.pagesPerJob = 100;
    const MakePrinter make = [&, jobs = 0](const PrintOrder &) mutable -> std::unique_ptr<QPrinter> {
        const int pages = jobs == 1 ? 2 : 100;
        return std::make_unique<PaperPrinter>(QString::fromStdString(world.jobPath(static_cast<std::size_t>(jobs++))),
                                              pages);
    };
    const PrintResult result = printLetters(world.letters, world.letters.ticks.letters(), order, {{}, make}, {});
    CHECK(result.sent == 3);
    CHECK(!result.fault.empty());
}

TEST_CASE("a cancelled print reports how many letters were sent")
{
    Printing world(9);
    PrintOrder order = world.order();
    order.lettersPerJob = 4;
    std::vector<std::size_t> progress;
    const PrintResult result = world.print("1-9", order, [&](std::size_t letters) {
        progress.push_back(letters);
        return letters < 6;
    });
    CHECK(result.isCancelled);
    CHECK(progress == std::vector<std::size_t>{1, 2, 3, 4, 5, 6});
    // Output to a file cannot be withdrawn: the two pages of the job are printed.
    CHECK(result.sent == 6);
    CHECK(pageCount(world.jobPath(1)) == 2);
}

TEST_CASE("the ruler page has its lines 30 millimetres from the edges, moved by the offset")
{
    Printing world(1);
    PrintOrder order = world.order();
    REQUIRE(printRulerPage(world.letters, order, world.services().paths).empty());
    order.offset = {0, 50};
    REQUIRE(printRulerPage(world.letters, order, world.services().paths).empty());
    const auto darkest = [](const QImage &page) {
        int best = 0, row = 0;
        for (int y = 0; y < page.height() / 2; ++y) {
            int dark = 0;
            for (int x = 0; x < page.width(); ++x) dark += 255 - qGray(page.pixel(x, y));
            if (dark > best) row = y;
            best = std::max(best, dark);
        }
        return row;
    };
    // 30 mm are 85.0 dots, 35 mm are 99.2.
    CHECK(std::abs(darkest(pageImage(world.jobPath(0), 1)) - 85) <= 1);
    CHECK(std::abs(darkest(pageImage(world.jobPath(1), 1)) - 99) <= 1);
}
