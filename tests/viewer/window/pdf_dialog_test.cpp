#include "viewer/window/pdf_dialog.h"
#include "viewer/window/window_world.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

/// The dialog for three letters.
struct Asking : WindowWorld {
    Asking() : WindowWorld(differentRows(3)) {}
    void ask() { dialog = std::make_unique<PdfDialog>(letters, settings); }
    template <class Widget> Widget *part(const char *name) { return dialog->findChild<Widget *>(QLatin1String(name)); }
    void choose(const char *radio) { part<QRadioButton>(radio)->setChecked(true); }
    void name(const QString &pattern) { part<QLineEdit>("pdfPattern")->setText(pattern); }
    [[nodiscard]] QString example() { return part<QLabel>("pdfExample")->text(); }
    [[nodiscard]] bool maySave() { return part<QPushButton>("pdfSave")->isEnabled(); }

    OpenLetters letters{script};
    ViewerSettings settings{QString::fromStdString(folder / "settings.ini")};
    std::unique_ptr<PdfDialog> dialog;
};

} // namespace

TEST_CASE("the default is to save the ticked letters in one file")
{
    Asking world;
    world.letters.ticks.setText("2");
    world.ask();
    CHECK(world.dialog->order().onlyTicked);
    CHECK(!world.dialog->order().fileEach);
    CHECK(world.part<QRadioButton>("pdfTicked")->text() == QStringLiteral("チェックした委任状だけ（1通）(&T)"));
    CHECK(world.part<QRadioButton>("pdfAll")->text() == QStringLiteral("すべて（3通）(&A)"));
    world.choose("pdfAll");
    world.choose("pdfEach");
    CHECK(!world.dialog->order().onlyTicked);
    CHECK(world.dialog->order().fileEach);
}

TEST_CASE("without ticked letters the dialog offers all letters and disables the choice of the ticked ones")
{
    Asking world;
    world.letters.ticks.setAll(false);
    world.ask();
    CHECK(!world.dialog->order().onlyTicked);
    CHECK(!world.part<QRadioButton>("pdfTicked")->isEnabled());
}

TEST_CASE("the pattern of names is enabled only for one file per letter, with an example of the first name")
{
    Asking world;
    world.ask();
    CHECK(!world.part<QLineEdit>("pdfPattern")->isEnabled());
    CHECK(!world.part<QComboBox>("pdfColumns")->isEnabled());
    CHECK(world.example() == QStringLiteral(" "));
    world.choose("pdfEach");
    CHECK(world.part<QLineEdit>("pdfPattern")->isEnabled());
    CHECK(world.part<QComboBox>("pdfColumns")->isEnabled());
    CHECK(world.example() == QStringLiteral("例：1_甲1.pdf"));
}

TEST_CASE("a column is inserted into the pattern at the cursor")
{
    Asking world;
    world.ask();
    world.choose("pdfEach");
    world.name(QStringLiteral("月_"));
    auto *const columns = world.part<QComboBox>("pdfColumns");
    emit columns->activated(columns->findText(QStringLiteral("利用者氏名")));
    CHECK(world.dialog->order().pattern == QStringLiteral("月_{{利用者氏名}}"));
    CHECK(columns->currentIndex() == 0);
    CHECK(world.example() == QStringLiteral("例：月_甲1.pdf"));
}

TEST_CASE("a pattern with an unknown column is reported and prevents saving unless one file is chosen")
{
    Asking world;
    world.ask();
    world.choose("pdfEach");
    world.name(QStringLiteral("{{氏名}}"));
    CHECK(world.example() == QStringLiteral("ファイル名の「{{氏名}}」の列「氏名」が CSV にありません。"));
    CHECK(!world.maySave());
    world.choose("pdfOne");
    CHECK(world.maySave());
    world.choose("pdfEach");
    world.name(QStringLiteral("{{番号}}"));
    CHECK(world.maySave());
}

TEST_CASE("the choice of PDF/A is remembered after saving")
{
    Asking world;
    world.ask();
    CHECK(world.dialog->order().purpose == PdfPurpose::reading);
    world.part<QCheckBox>("pdfArchive")->setChecked(true);
    CHECK(world.dialog->order().purpose == PdfPurpose::archive);
    world.part<QPushButton>("pdfSave")->click();
    world.ask();
    CHECK(world.dialog->order().purpose == PdfPurpose::archive);
}

TEST_CASE("the pattern is remembered after saving, but not after cancelling")
{
    Asking world;
    world.ask();
    world.choose("pdfEach");
    world.name(QStringLiteral("{{番号}}"));
    world.dialog->reject();
    world.ask();
    CHECK(world.dialog->order().pattern == QStringLiteral("{{番号}}_{{利用者氏名}}"));
    world.choose("pdfEach");
    world.name(QStringLiteral("{{番号}}号"));
    world.part<QPushButton>("pdfSave")->click();
    CHECK(world.dialog->result() == QDialog::Accepted);
    world.ask();
    CHECK(world.dialog->order().pattern == QStringLiteral("{{番号}}号"));
}
