// The folder selection, operated by mouse and keys.

#include "adapters/qt/qt_window_set.h"
#include "common/folder_form.h"
#include "runtime/runtime_error.h"

#include <doctest/doctest.h>

#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QtTest/QTest>

using namespace inin;
using namespace inin::qt;

namespace {

/// A folder selection whose window is operated in turns.
struct Selection {
    Selection()
    {
        for (const std::string &path : folders.paths) world.world.files.makeFolder(path);
        world.world.files.changeFolder("C:\\SUITE");
    }
    WindowFixture world;
    FakeFolders folders;
    clsSelectFolder select{world.app.platform, folders};

    [[nodiscard]] FormWindow &top() { return *world.windows.topWindow(); }
    [[nodiscard]] QListWidget &list() { return top().widgetAs<QListWidget>("dilFolder"); }
    [[nodiscard]] frmSelFolder &form() { return dynamic_cast<frmSelFolder &>(top().form()); }
    QPoint placeOf(int row) { return list().visualItemRect(list().item(row)).center(); }
    void click(int row) { QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, placeOf(row)); }
    void doubleClick(int row)
    {
        click(row);
        QTest::mouseDClick(list().viewport(), Qt::LeftButton, {}, placeOf(row));
    }
    void press(const char *button) { QTest::mouseClick(&top().widgetAs<QPushButton>(button), Qt::LeftButton); }
    void run(const std::vector<std::function<void()>> &acts)
    {
        for (const auto &act : acts) world.turns.then(act);
        CHECK(select.iSelFolder() == 0);
        CHECK(world.turns.isOver());
        CHECK(world.turns.failure().empty());
    }
};

QStringList trimmedTextsOf(const QListWidget &list)
{
    QStringList texts;
    for (int row = 0; row < list.count(); ++row) texts.append(list.item(row)->text().trimmed());
    return texts;
}

} // namespace

TEST_CASE("a click selects a folder, a double click and the return key open it")
{
    Selection selection;
    selection.run({
        [&] {
            CHECK(trimmedTextsOf(selection.list()) == QStringList{"C:\\", "SUITE", "TMP", "DATA"});
            CHECK(selection.list().currentRow() == 1);
            selection.click(2);
            CHECK(selection.form().dilFolder.ListIndex == 2);
            CHECK(selection.form().dilFolder.Path() == "C:\\SUITE");
        },
        [&] { selection.doubleClick(2); },
        [&] {
            CHECK(selection.form().dilFolder.Path() == "C:\\SUITE\\TMP");
            CHECK(trimmedTextsOf(selection.list()) == QStringList{"C:\\", "SUITE", "TMP"});
            CHECK(selection.list().currentRow() == 2);
            selection.click(0);
            QTest::keyClick(&selection.list(), Qt::Key_Return);
            CHECK(selection.form().dilFolder.Path() == "C:\\");
        },
        [&] { selection.press("cmdOK"); },
    });
    CHECK(selection.select.SelFolder() == "C:");
}

TEST_CASE("another drive shows its folders, and the cancel button changes nothing")
{
    Selection selection;
    selection.select.SelFolder("C:\\SUITE\\TMP");
    selection.run({
        [&] {
            auto &drives = selection.top().widgetAs<QComboBox>("drlDrive");
            drives.setFocus();
            QTest::keyClick(&drives, Qt::Key_Down);
            CHECK(trimmedTextsOf(selection.list()) == QStringList{"D:\\", QString::fromUtf8("写真")});
        },
        [&] { selection.press("cmdCancel"); },
    });
    CHECK(selection.select.SelFolder() == "C:\\SUITE\\TMP");
}

TEST_CASE("the arrow keys move through the folders, escape and F12 close the window")
{
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_F12}) {
        Selection selection;
        selection.run({
            [&] {
                selection.list().setFocus();
                QTest::keyClick(&selection.list(), Qt::Key_Down);
                CHECK(selection.form().dilFolder.ListIndex == 2);
            },
            [&] { QTest::keyClick(&selection.list(), key); },
        });
        CHECK(selection.select.SelFolder().empty());
    }
}

TEST_CASE("a folder is indented below its parent")
{
    const WindowSet set;
    const auto &list = set.folder->widgetAs<QListWidget>("dilFolder");
    REQUIRE(list.count() == 4);
    const auto blanksOf = [&list](int row) {
        return list.item(row)->text().size() - list.item(row)->text().trimmed().size();
    };
    CHECK(blanksOf(0) == 0);
    CHECK(blanksOf(1) > blanksOf(0));
    CHECK(blanksOf(2) > blanksOf(1));
    CHECK(blanksOf(3) == blanksOf(2));
}

TEST_CASE("the version window shows its lines, its name in a box and its picture at full width")
{
    const WindowSet set;
    CHECK(trimmedTextsOf(set.version->widgetAs<QListWidget>("lstVer")) == QStringList{"Ver 3.14:", "2026/11/01:"});
    CHECK(set.version->windowTitle() == "System Version.");
    const QWidget &picture = set.version->widget("PicTitle");
    CHECK(picture.width() == set.version->content().width());
    CHECK(picture.y() == 0);
    CHECK(set.version->focusWidget() == &set.version->widget("btnReturn"));
}
