#include "viewer/window/ledger_world.h"

#include <QCheckBox>
#include <QStatusBar>
#include <doctest/doctest.h>

#include <algorithm>
#include <filesystem>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

constexpr LetterArrangement kByInsurer{LetterSort::insurer, true};

/// Letters of two insurers in turn: 甲1 ろ市, 甲2 い市, 甲3 ろ市 …
std::vector<Row> twoInsurers(int count)
{
    std::vector<Row> rows = differentRows(count);
    for (std::size_t i = 0; i < rows.size(); ++i) rows[i]["保険者名"] = i % 2 == 0 ? "ろ市" : "い市";
    return rows;
}

struct BundleWorld : LedgerWorld {
    explicit BundleWorld(int letters) : LedgerWorld(twoInsurers(letters)) { openWindow(); }

    [[nodiscard]] PrintOrder bundled(std::size_t lettersPerJob = 0) const
    {
        PrintOrder order = WindowWorld::order();
        order.arrangement = kByInsurer;
        order.lettersPerJob = lettersPerJob;
        return order;
    }
    /// The letters of the print that is asked for, in the order of the sheets.
    [[nodiscard]] std::string recorded() const
    {
        Ledger book = ledger();
        std::string numbers;
        for (const OpenOutput &output : book.openOutputs(book.runs().front().id))
            for (const std::size_t letter : output.letters) numbers += " " + std::to_string(letter + 1);
        return numbers;
    }
};

std::vector<std::string> spooledPages(WindowWorld &world, const PrintOrder &order)
{
    const std::string copy = world.folder / "spooled.pdf";
    world.spool = [copy](const SpoolJob &job, const std::function<bool()> &) {
        std::filesystem::copy_file(job.pdf.toStdString(), copy, std::filesystem::copy_options::overwrite_existing);
        return SpoolResult{SpoolResult::End::taken, {}, "1"};
    };
    world.openWindow();
    world.window->print(order);
    return pagesOf(copy);
}

} // namespace

TEST_CASE("painted covers are sheets of the print but no letters of the ledger, the messages and the question")
{
    BundleWorld world(5);
    world.window->print(world.bundled());
    CHECK(pageCount(world.jobPath(0)) == 7);
    CHECK(world.recorded() == " 2 4 1 3 5");
    CHECK(world.window->statusBar()->currentMessage() == QStringLiteral("5通をプリンターに送りました。"));
    CHECK(world.textOf("paperText") == "5通をプリンターに送りました。紙を確認してください。");
}

TEST_CASE("after a paper jam the letters up to the last good sheet are confirmed in the order of the sheets")
{
    BundleWorld world(5);
    world.window->print(world.bundled());
    world.click("paperPartly");
    world.find<QSpinBox>("paperNumber")->setValue(1);
    world.click("paperSet");
    CHECK(world.states() ==
          std::vector<std::string>{"紙で確認済み", "紙で確認済み", "未印刷", "紙で確認済み", "未印刷"});
}

TEST_CASE("separate jobs have so many letters each, and the covers on top")
{
    BundleWorld world(5);
    world.window->print(world.bundled(2));
    REQUIRE(world.jobs == 3);
    CHECK(pageCount(world.jobPath(0)) == 3); // a cover and two letters
    CHECK(pageCount(world.jobPath(1)) == 3);
    CHECK(pageCount(world.jobPath(2)) == 1);
}

TEST_CASE("a refused print names letters, not covers")
{
    BundleWorld world(5);
    world.pagesPerJob = 4;
    world.window->print(world.bundled(2));
    CHECK(world.messages.empty());
    world.pagesPerJob = 2;
    world.window->print(world.bundled(2));
    REQUIRE(world.messages.size() == 1);
    CHECK(world.messages.front().contains(QStringLiteral("送っていない番号：1-5\n")));
}

TEST_CASE("a spooled print has the same sheets, and the reversed order ends with the first cover")
{
    LedgerWorld world(twoInsurers(3));
    PrintOrder order = world.order();
    order.arrangement = kByInsurer;
    auto pages = spooledPages(world, order);
    REQUIRE(pages.size() == 5);
    CHECK(contains(packed(pages[0]), "束の表紙"));
    CHECK(contains(pages[1], "甲2"));
    order.letterOrder = LetterOrder::reversed;
    pages = spooledPages(world, order);
    REQUIRE(pages.size() == 5);
    CHECK(contains(pages[0], "甲3"));
    CHECK(contains(packed(pages[4]), "束の表紙"));
    CHECK(contains(packed(pages[4]), "い市"));
}

TEST_CASE("bundles are saved as one PDF, or one each with the insurer in its name")
{
    BundleWorld world(5);
    world.pdfFile = QString::fromStdString(world.folder / "all.pdf");
    PdfOrder order;
    order.arrangement = kByInsurer;
    world.window->savePdf(order);
    CHECK(pageCount(world.folder / "all.pdf") == 7);
    CHECK(world.window->statusBar()->currentMessage().startsWith(QStringLiteral("5通を")));

    const std::string out = world.folder / "out";
    std::filesystem::create_directory(out);
    world.pdfFolder = QString::fromStdString(out);
    order.fileBundle = true;
    world.window->savePdf(order);
    std::vector<std::string> names;
    for (const auto &entry : std::filesystem::directory_iterator(out))
        names.push_back(entry.path().filename().string());
    std::ranges::sort(names);
    CHECK(names == std::vector<std::string>{"委任状_R6.05_い市.pdf", "委任状_R6.05_ろ市.pdf"});
    CHECK(pageCount(out + "/委任状_R6.05_い市.pdf") == 3);
    CHECK(pageCount(out + "/委任状_R6.05_ろ市.pdf") == 4);
}

TEST_CASE("an unusable cover form is reported, nothing is printed and nothing recorded")
{
    BundleWorld world(2);
    world.folder.put("束の表紙.wfd", "<svg");
    world.window->print(world.bundled());
    REQUIRE(world.messages.size() == 1);
    CHECK(world.messages.front().contains(QStringLiteral("束の表紙.wfd")));
    CHECK(world.jobs == 0);
    CHECK(world.ledger().runs().empty());
}

TEST_CASE("order and covers are chosen in the print dialog and offered again in both dialogs")
{
    BundleWorld world(3);
    world.inPrintDialog([](QDialog &dialog) {
        auto *const sort = dialog.findChild<QComboBox *>(QStringLiteral("letterSort"));
        CHECK(sort->currentText() == QStringLiteral("抽出した順"));
        sort->setCurrentIndex(1);
        dialog.findChild<QCheckBox *>(QStringLiteral("bundleCovers"))->setChecked(true);
    });
    world.window->askPrint();
    CHECK(pageCount(world.jobPath(0)) == 5);
    world.inPrintDialog([](QDialog &dialog) {
        CHECK(dialog.findChild<QComboBox *>(QStringLiteral("letterSort"))->currentText() ==
              QStringLiteral("保険者の順"));
        CHECK(dialog.findChild<QCheckBox *>(QStringLiteral("bundleCovers"))->isChecked());
    });
    world.window->askPrint();
    ViewerSettings settings(QString::fromStdString(world.folder / "viewer.ini"));
    PdfDialog pdf(world.window->letters(), settings);
    CHECK(pdf.order().arrangement == LetterArrangement{});
    pdf.findChild<QComboBox *>(QStringLiteral("letterSort"))->setCurrentIndex(2);
    pdf.findChild<QPushButton *>(QStringLiteral("pdfSave"))->click();
    CHECK(settings.arrangement() == LetterArrangement{LetterSort::district, false});
}
