#include "viewer/window/returns_window.h"

#include "support/file_bytes.h"
#include "viewer/ledger/run_texts.h"
#include "viewer/paint/scanned_pages.h"
#include "viewer/window/ledger_world.h"

#include <QApplication>
#include <QCheckBox>
#include <QDropEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QTest>
#include <doctest/doctest.h>

#include <filesystem>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

std::vector<Row> rowsOfTwoInsurers()
{
    std::vector<Row> rows = differentRows(4);
    rows[1]["保険者名"] = rows[3]["保険者名"] = "丸亀市";
    for (int i = 0; i < 9; ++i) rows[1]["利用者住所"] += "字上町東通り一丁目";
    return rows;
}

/// Letters that were printed with their codes, and the window of returns.
struct ReturnsWorld : LedgerWorld {
    explicit ReturnsWorld(const std::vector<Row> &rows = rowsOfTwoInsurers()) : LedgerWorld(rows)
    {
        openWindow();
        act("printCodes");
        print("1-4");
        own = ledger();
        listServices = services();
        listServices.askListFile = [this](QWidget *, const QString &, const QString &name) {
            return QString::fromStdString(folder / "list") + name.right(4);
        };
        returns = std::make_unique<ReturnsWindow>(own, listServices, settings, std::nullopt);
        returns->onReturned = [this] { ++changes; };
        returns->show();
    }
    template <class Widget> Widget *box(const char *name) const
    {
        return returns->findChild<Widget *>(QLatin1String(name));
    }
    void choose(const char *name, int index) const
    {
        auto *const list = box<QComboBox>(name);
        list->setCurrentIndex(index);
        emit list->activated(index);
    }
    /// The patients in the list.
    [[nodiscard]] std::string patients() const
    {
        std::string names;
        for (const PrintedLetter &letter : returns->model().shown())
            names += (names.empty() ? "" : " ") + letter.patient;
        return names;
    }
    [[nodiscard]] std::string returned()
    {
        std::string numbers;
        const std::vector<LetterState> found = own.states(own.runs().at(0).id);
        for (std::size_t i = 0; i < found.size(); ++i)
            if (found[i] == LetterState::returned) numbers += (numbers.empty() ? "" : " ") + std::to_string(i + 1);
        return numbers;
    }
    [[nodiscard]] std::string result() const { return box<QLabel>("returnsResult")->text().toStdString(); }
    [[nodiscard]] bool isStateVisible() const
    {
        const auto *const table = box<QTableView>("returnsTable");
        const int left = table->columnViewportPosition(ReturnsModel::state);
        return left + table->columnWidth(ReturnsModel::state) <= table->viewport()->width();
    }
    void read(const std::string &path) const
    {
        returns->readFiles({QString::fromStdString(path)});
        while (returns->isReading()) QApplication::processEvents();
    }

    Ledger own;
    ViewerServices listServices;
    ViewerSettings settings{QString::fromStdString(folder / "settings.ini")};
    int changes = 0;
    std::unique_ptr<ReturnsWindow> returns;
};

} // namespace

TEST_CASE("the window of returns lists the printed letters by insurer, those that are not returned first of all")
{
    ReturnsWorld world;
    CHECK(world.patients() == "甲2 甲4 甲1 甲3");
    CHECK(world.box<QComboBox>("returnsPeriod")->currentText() == QStringLiteral("令和6年5月"));
    CHECK(world.box<QComboBox>("returnsInsurer")->itemText(1) == QStringLiteral("丸亀市（2通）"));
    world.choose("returnsInsurer", 1);
    CHECK(world.patients() == "甲2 甲4");
    world.box<QLineEdit>("returnsWords")->setText(QStringLiteral("甲４"));
    CHECK(world.patients() == "甲4");
    world.choose("returnsInsurer", 0);
    world.box<QLineEdit>("returnsWords")->setText(QStringLiteral("髙 松"));
    CHECK(world.patients() == "甲1 甲3");
}

TEST_CASE("the state of a letter is visible beside a long address")
{
    const ReturnsWorld world;
    CHECK(world.isStateVisible());
    const auto *const table = world.box<QTableView>("returnsTable");
    CHECK(table->columnWidth(ReturnsModel::address) > table->columnWidth(ReturnsModel::patient));
}

TEST_CASE("a very long name takes the room neither of the addresses nor of the states")
{
    std::vector<Row> rows = rowsOfTwoInsurers();
    for (int i = 0; i < 5; ++i) rows[0]["利用者氏名"] += "マリア・アレハンドラ・";
    const ReturnsWorld world(rows);
    CHECK(world.isStateVisible());
    const auto *const table = world.box<QTableView>("returnsTable");
    CHECK(table->columnWidth(ReturnsModel::address) > table->columnWidth(ReturnsModel::patient));
    const QModelIndex name = table->model()->index(2, ReturnsModel::patient);
    CHECK(name.data(Qt::ToolTipRole).toString().endsWith(QStringLiteral("ハンドラ・")));
}

TEST_CASE("the number beside an insurer follows the ticks")
{
    const ReturnsWorld world;
    auto *const insurers = world.box<QComboBox>("returnsInsurer");
    world.choose("returnsInsurer", 1);
    auto *const model = world.box<QTableView>("returnsTable")->model();
    CHECK(model->setData(model->index(0, 0), Qt::Checked, Qt::CheckStateRole));
    CHECK(insurers->currentText() == QStringLiteral("丸亀市（1通）"));
    CHECK(insurers->itemText(0) == QStringLiteral("すべて（3通）"));
    CHECK(model->setData(model->index(0, 0), Qt::Unchecked, Qt::CheckStateRole));
    CHECK(insurers->currentText() == QStringLiteral("丸亀市（2通）"));
}

TEST_CASE("letters are ticked as returned by mouse, by keyboard and all that are shown")
{
    ReturnsWorld world;
    auto *const table = world.box<QTableView>("returnsTable");
    QAbstractItemModel &model = *table->model();
    CHECK(model.setData(model.index(0, 0), Qt::Checked, Qt::CheckStateRole));
    CHECK(world.returned() == "2");
    table->selectRow(1);
    QTest::keyClick(table, Qt::Key_Space);
    CHECK(world.returned() == "2 4");
    QTest::keyClick(table, Qt::Key_Space);
    CHECK(world.returned() == "2");
    const auto stateIn = [&](int row) { return model.index(row, ReturnsModel::state).data().toString(); };
    CHECK(stateIn(0) == QStringLiteral("返送済み"));
    CHECK(stateIn(1) == QStringLiteral("送信済み")); // its sheet was never confirmed
    world.box<QCheckBox>("returnsOnlyMissing")->setChecked(false);
    CHECK(world.patients() == "甲2 甲4 甲1 甲3");
    world.box<QLineEdit>("returnsWords")->setText(QStringLiteral("高松"));
    world.box<QPushButton>("returnsTickShown")->click();
    CHECK(world.returned() == "1 2 3");
    CHECK(world.changes == 4);
    CHECK(world.box<QLabel>("returnsCount")->text() ==
          QStringLiteral("この期間の委任状 4通：返送済み 3通、返送されていない 1通"));
}

TEST_CASE("a typed code marks its letter, and a wrong one is reported")
{
    ReturnsWorld world;
    auto *const box = world.box<QLineEdit>("returnsCode");
    const LetterCode code = world.own.codeOf(world.own.runs().at(0).id, 2).value();
    const auto type = [&](const std::string &text) {
        box->setText(QString::fromStdString(text));
        QTest::keyClick(box, Qt::Key_Return);
    };
    type(codeDigits(code));
    CHECK(world.returned() == "3");
    CHECK(contains(world.result(), "返送済みにしました。（高松市　甲3）"));
    CHECK(box->text().isEmpty());
    type(codeText(code));
    CHECK(contains(world.result(), "すでに返送済みです。"));
    type("123");
    CHECK(contains(world.result(), "123：整理番号を読み取れません。"));
    CHECK(world.returned() == "3");
}

TEST_CASE("dropped scans mark the letters of their codes, and pages without a code are shown as thumbnails")
{
    if (!canReadScans()) return;
    ReturnsWorld world;
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(QString::fromStdString(world.jobPath(0)))});
    // The toolkit delivers a drop only to the widget that the drag has entered.
    QDragEnterEvent enter({10, 10}, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(world.returns.get(), &enter);
    CHECK(enter.isAccepted());
    QDropEvent drop({10, 10}, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(world.returns.get(), &drop);
    while (world.returns->isReading()) QApplication::processEvents();
    CHECK(world.returned() == "1 2 3 4");
    CHECK(contains(world.result(), "返送済みにした委任状 4通、すでに返送済み 0通、確かめるページ 0"));
    auto *const unreadable = world.box<QListWidget>("returnsUnreadable");
    CHECK(unreadable->count() == 0);

    QImage blank(400, 600, QImage::Format_Grayscale8);
    blank.fill(Qt::white);
    REQUIRE(blank.save(QString::fromStdString(world.folder / "blank.png")));
    world.read(world.folder / "blank.png");
    world.read(world.folder / "missing.pdf");
    REQUIRE(unreadable->count() == 2);
    CHECK(unreadable->item(0)->text() == QStringLiteral("blank.png　1ページ"));
    CHECK(!unreadable->item(0)->icon().isNull());
    CHECK(contains(unreadable->item(1)->text().toStdString(), "missing.pdf"));
}

TEST_CASE("pages of another ledger are listed with the names of their files")
{
    if (!canReadScans()) return;
    const ReturnsWorld other;
    ReturnsWorld world;
    world.read(other.jobPath(0));
    CHECK(world.returned().empty());
    const auto *const pages = world.box<QListWidget>("returnsUnreadable");
    REQUIRE(pages->count() == 4);
    const std::string name = std::filesystem::path(other.jobPath(0)).filename().string();
    CHECK(pages->item(0)->text().toStdString().starts_with(name + " 1ページ：ほかの台帳の整理番号です。"));
}

TEST_CASE("the missing letters are saved as a table and as a PDF, and printed")
{
    ReturnsWorld world;
    CHECK(world.own.setReturned(std::span(&world.returns->model().letterAt(0), 1), true, world.now));
    world.choose("returnsPeriod", 0);
    world.returns->saveCsv();
    const std::string table = bytesOf(world.folder / "list.csv");
    CHECK(contains(table, "\"丸亀市\""));
    CHECK_FALSE(contains(table, "\"甲2\""));
    CHECK(contains(table, "\"甲4\""));
    world.returns->savePdf();
    CHECK(pageCount(world.folder / "list.pdf") == 1);
    QTimer::singleShot(0, world.returns.get(), [&] {
        const auto *const dialog = world.box<QDialog>("printDialog");
        // All pages of the list are printed, in their order.
        for (const char *choice : {"rangeBox", "manyJobs", "reversed", "letterSort", "rulerPage"})
            CHECK(!dialog->findChild<QWidget *>(QLatin1String(choice))->isVisible());
        dialog->findChild<QPushButton *>(QStringLiteral("printNow"))->click();
    });
    const std::size_t before = world.jobs;
    world.returns->printList();
    CHECK(world.jobs == before + 1);
    CHECK(world.result() == "一覧をプリンターに送りました。");
}

TEST_CASE("codes are printed only when the setting is on, and never before the letters are recorded")
{
    if (!canReadScans()) return;
    LedgerWorld world(differentRows(2));
    world.openWindow();
    CHECK(world.window->letters().renderer.codes().empty());
    world.print("1");
    CHECK(codesOn(ScannedFile(world.jobPath(0)).page(0)).empty());
    world.act("printCodes");
    world.print("2");
    Ledger ledger = world.ledger();
    CHECK(codesOn(ScannedFile(world.jobPath(1)).page(0)) ==
          std::vector<std::string>{codeDigits(ledger.codeOf(ledger.runs().at(0).id, 1).value())});

    LedgerWorld other(differentRows(3));
    other.openWindow();
    other.act("printCodes");
    CHECK(other.window->letters().renderer.codes() == std::vector<std::string>(3, "000000-0000000-00"));
    other.act("printCodes");
    CHECK(other.window->letters().renderer.codes().empty());
}

TEST_CASE("the menu opens the window of returns at the period of the letters, and a tick shows in the list of letters")
{
    LedgerWorld world(differentRows(2));
    world.openWindow();
    world.print("1-2");
    QTimer::singleShot(0, world.window.get(), [&] {
        auto *const returns = world.window->findChild<QDialog *>(QStringLiteral("returnsWindow"));
        REQUIRE(returns != nullptr);
        QAbstractItemModel &model = *returns->findChild<QTableView *>(QStringLiteral("returnsTable"))->model();
        CHECK(model.setData(model.index(0, 0), Qt::Checked, Qt::CheckStateRole));
        returns->accept();
    });
    world.act("returns");
    CHECK(world.states() == std::vector<std::string>{"返送済み", "送信済み"});
}
