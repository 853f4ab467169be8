#include "viewer/window/ledger_world.h"

#include "viewer/window/ledger_dialog.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <doctest/doctest.h>

#include <filesystem>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

/// Opens the settings of the ledger, acts in them and presses OK or Cancel.
void inSettings(const LedgerWorld &world, QDialog::DialogCode end, const std::function<void(QDialog &)> &act)
{
    bool isDone = false;
    QTimer::singleShot(0, world.window.get(), [&] {
        auto *const dialog = world.window->findChild<QDialog *>(QStringLiteral("ledgerDialog"));
        REQUIRE(dialog != nullptr);
        act(*dialog);
        isDone = true;
        dialog->done(end);
    });
    world.act("ledgerSettings");
    CHECK(isDone);
}

} // namespace

TEST_CASE("the settings of the ledger are kept, and months outside the range are clamped")
{
    TempFolder folder;
    const QString file = QString::fromStdString(folder / "settings.ini");
    CHECK(ViewerSettings(file).ledger().isUsed);
    CHECK(ViewerSettings(file).ledger().months == 24);
    {
        ViewerSettings settings(file);
        settings.setLedger({false, "共有/台帳", 36});
        REQUIRE(settings.save());
    }
    const LedgerSettings kept = ViewerSettings(file).ledger();
    CHECK(!kept.isUsed);
    CHECK(kept.place == "共有/台帳");
    CHECK(kept.months == 36);
    struct Months {
        int written, read;
    };
    for (const Months &months : {Months{0, 1}, Months{121, 120}}) {
        writeBytes(folder / "settings.ini", "[ledger]\nmonths=" + std::to_string(months.written) + "\n");
        CHECK(ViewerSettings(file).ledger().months == months.read);
    }
}

TEST_CASE("the dialog shows the settings and the file that they lead to")
{
    LedgerDialog dialog({true, "/somewhere", 36});
    dialog.setPathOf([](const LedgerSettings &settings) {
        return settings.isUsed ? QString::fromStdString(settings.place + "/台帳.db") : QString();
    });
    const auto *const path = dialog.findChild<QLabel *>(QStringLiteral("ledgerPath"));
    CHECK(path->text() ==
          QStringLiteral("台帳のファイル：") + QDir::toNativeSeparators(QStringLiteral("/somewhere/台帳.db")));
    dialog.findChild<QCheckBox *>(QStringLiteral("ledgerOff"))->setChecked(true);
    CHECK(path->text() == QStringLiteral("台帳には何も記録しません。"));
    auto *const months = dialog.findChild<QSpinBox *>(QStringLiteral("ledgerMonths"));
    months->setValue(500);
    CHECK(dialog.settings().months == 120);
    months->setValue(0);
    CHECK(dialog.settings().months == 1);
    dialog.askFolder = [] { return QStringLiteral("/other"); };
    dialog.findChild<QPushButton *>(QStringLiteral("ledgerBrowse"))->click();
    CHECK(dialog.settings().place == "/other");
}

TEST_CASE("switching the ledger off removes the states and stops recording; switching it on brings them back")
{
    LedgerWorld world(differentRows(2));
    world.openWindow();
    world.print("1");
    inSettings(world, QDialog::Accepted,
               [](QDialog &dialog) { dialog.findChild<QCheckBox *>(QStringLiteral("ledgerOff"))->setChecked(true); });
    CHECK(world.find<QTableView>("letterList")->isColumnHidden(LetterListModel::state));
    CHECK(!world.isShown("paperBar"));
    world.print("2");
    inSettings(world, QDialog::Rejected,
               [](QDialog &dialog) { dialog.findChild<QCheckBox *>(QStringLiteral("ledgerOff"))->setChecked(false); });
    CHECK(world.find<QTableView>("letterList")->isColumnHidden(LetterListModel::state));
    inSettings(world, QDialog::Accepted,
               [](QDialog &dialog) { dialog.findChild<QCheckBox *>(QStringLiteral("ledgerOff"))->setChecked(false); });
    CHECK(world.states() == std::vector<std::string>{"送信済み", "未印刷"});
    CHECK(world.isShown("paperBar"));
}

TEST_CASE("a ledger that is switched off creates no file")
{
    LedgerWorld world(differentRows(2));
    {
        ViewerSettings settings(QString::fromStdString(world.folder / "settings.ini"));
        settings.setLedger({false, "", 24});
        REQUIRE(settings.save());
    }
    world.openWindow();
    world.print("1-2");
    CHECK(!std::filesystem::exists(world.ledgerFile));
}

TEST_CASE("the ledger is erased after a question only")
{
    LedgerWorld world(differentRows(2));
    world.openWindow();
    world.print("1-2");
    const auto erase = [](QDialog &dialog) { dialog.findChild<QPushButton *>(QStringLiteral("ledgerErase"))->click(); };
    world.mayErase = false;
    inSettings(world, QDialog::Rejected, erase);
    CHECK(world.ledger().runs().size() == 1);
    CHECK(world.states()[0] == "送信済み");
    world.mayErase = true;
    inSettings(world, QDialog::Rejected, [&](QDialog &dialog) {
        erase(dialog);
        CHECK(dialog.findChild<QLabel *>(QStringLiteral("ledgerResult"))->text() == QStringLiteral("消去しました。"));
    });
    CHECK(world.ledger().runs().empty());
    CHECK(world.states() == std::vector<std::string>{"未印刷", "未印刷"});
    CHECK(!world.isShown("paperBar"));
    REQUIRE(world.messages.size() == 2);
    CHECK(world.messages[0] ==
          QStringLiteral("台帳の記録をすべて消去します。印刷や返送の記録は元に戻せません。消去しますか。"));
}
