// A run uses what the boxes show, however it was started: text just typed is read first.

#include "adapters/qt/date_edit.h"
#include "adapters/qt/menu_click.h"
#include "adapters/qt/number_edit.h"
#include "adapters/qt/working_program.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QtTest/QTest>

#include <algorithm>

using namespace inin;
using namespace inin::qt;

namespace {

/// The ways to start print or preview without leaving the box first.
enum class StartBy { menuByMouse, menuByKeys, functionKey, button, accessibility };
constexpr StartBy kStarts[] = {StartBy::menuByMouse, StartBy::menuByKeys, StartBy::functionKey, StartBy::button,
                               StartBy::accessibility};

struct Command {
    const char *entry;
    const char *button;
    Qt::Key key;
};
constexpr Command kCommands[] = {{"mnF01", "btnPrint(0)", Qt::Key_F1}, {"mnF02", "btnPrint(1)", Qt::Key_F2}};

void openMenuByMouse(const FormWindow &window, QAction &menu)
{
    auto *bar = window.findChild<QMenuBar *>();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(&menu).center());
}

void pickByMouse(const FormWindow &window, const char *entry, const char *inMenu = "mnFunc")
{
    QAction &menu = *window.findChild<QAction *>(inMenu);
    openMenuByMouse(window, menu);
    clickEntry(*menu.menu(), *window.findChild<QAction *>(entry));
}

void pickByKeys(Program &program, const char *entry)
{
    QMenu *menu = program.top().findChild<QAction *>("mnFunc")->menu();
    const auto *wanted = program.top().findChild<QAction *>(entry);
    program.key(Qt::Key_F, Qt::AltModifier);
    for (int steps = 0; menu->activeAction() != wanted && steps < 5; ++steps) QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
}

void start(Program &program, StartBy by, const Command &command)
{
    switch (by) {
    case StartBy::menuByMouse:
        return pickByMouse(program.top(), command.entry);
    case StartBy::menuByKeys:
        return pickByKeys(program, command.entry);
    case StartBy::functionKey:
        return program.key(command.key);
    case StartBy::button:
        return program.click(command.button);
    case StartBy::accessibility: // the focus stays in the box
        return program.top().findChild<QAction *>(command.entry)->trigger();
    }
}

void typeInto(Program &program, const char *control, const char *text)
{
    auto &box = dynamic_cast<QLineEdit &>(program.widget(control));
    box.setFocus(Qt::MouseFocusReason);
    box.selectAll();
    QTest::keyClicks(&box, toQt(text));
}

/// Selects planned data of a target month.
void markConditions(Program &program)
{
    for (const char *option :
         {"optPrint(0)", "optObject(0)", "optTgtDate(0)", "optTrust(0)", "optDspPeriod(0)", "optSyomei(0)"})
        program.click(option);
}

/// True when a statement that contains both texts was opened.
bool wasAsked(const Program &program, const char *table, const char *value)
{
    return std::ranges::any_of(program.world.database.log, [&](const std::string &line) {
        return line.find(table) != std::string::npos && line.find(value) != std::string::npos;
    });
}

/// Types into a box and starts a command in each possible way, then inspects the run and answers its boxes.
void forEachStart(const char *control, const char *text, int boxes,
                  const std::function<void(Program &program, const std::string &firstBox)> &look)
{
    for (const StartBy by : kStarts)
        for (const Command &command : kCommands) {
            CAPTURE(static_cast<int>(by));
            CAPTURE(command.entry);
            Program program;
            std::string firstBox;
            program.act([&] {
                markConditions(program);
                typeInto(program, control, text);
                start(program, by, command);
            });
            for (int box = 0; box < boxes; ++box)
                program.act([&] {
                    const std::string shown = answerTopBox();
                    if (firstBox.empty()) firstBox = shown;
                });
            program.act([&] { look(program, firstBox); });
            CHECK(program.runs());
        }
}

} // namespace

TEST_CASE("a month typed into its box is used however the run is started")
{
    forEachStart("imD_Out", "R8.12", 1, [](Program &program, const std::string &box) {
        CHECK(box == "該当する患者データがありません。");
        CHECK(wasAsked(program, "SCHEDULE", "20261201"));
        CHECK(fromQt(dynamic_cast<QLineEdit &>(program.widget("imD_Out")).text()) == "令和 08年12月");
    });
}

TEST_CASE("an unreadable month refuses the run and stays as typed however the run is started")
{
    forEachStart("imD_Out", "zz", 2, [](Program &program, const std::string &box) {
        CHECK(box == "(94)Null の使い方が不正です。");
        CHECK_FALSE(wasAsked(program, "SCHEDULE", "nDate"));
        const auto &edit = dynamic_cast<DateEdit &>(program.widget("imD_Out"));
        CHECK(fromQt(edit.text()) == "zz");
        CHECK_FALSE(edit.complaint().empty());
    });
}

TEST_CASE("a patient number typed into its box is used however the run is started")
{
    forEachStart("imNum_CD", "21", 1, [](Program &program, const std::string &) {
        CHECK(wasAsked(program, "SCHEDULE", "RIYOUSHA.nIDNo = 21"));
        CHECK(program.form.imNum_CD.Value.get() == Variant(std::int32_t{21}));
    });
}

TEST_CASE("Latin letters typed into a number box are refused however the run is started")
{
    forEachStart("imNum_CD", "zz", 1, [](Program &program, const std::string &) {
        CHECK(fromQt(dynamic_cast<QLineEdit &>(program.widget("imNum_CD")).text()).empty());
        CHECK(program.form.nKanjaNo == -1);
    });
}

TEST_CASE("a day below 1 is replaced by the last valid one before an event of the form")
{
    Program program;
    program.act([&] {
        program.form.inPeriodFrom.Visible = true;
        typeInto(program, "inPeriodFrom", "0");
        auto &box = dynamic_cast<NumberEdit &>(program.widget("inPeriodFrom"));
        CHECK(fromQt(box.text()) == "0");
        pickByMouse(program.top(), "mnVer", "mnHelp");
    });
    program.act([&] { program.key(Qt::Key_F12); });
    program.act([&] { CHECK(fromQt(dynamic_cast<NumberEdit &>(program.widget("inPeriodFrom")).text()) == "1"); });
    CHECK(program.runs());
}

TEST_CASE("a box's own menu, a cancelled menu and another program's window leave the typed text unread")
{
    Program program;
    program.act([&] {
        typeInto(program, "imD_LastDay", "R8.5.1");
        auto &box = dynamic_cast<DateEdit &>(program.widget("imD_LastDay"));
        QContextMenuEvent asked(QContextMenuEvent::Mouse, QPoint(5, 5), box.mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&box, &asked);
        QWidget *own = QApplication::activePopupWidget();
        REQUIRE(own != nullptr);
        CHECK(fromQt(box.text()) == "R8.5.1");
        own->close();
        QAction &menu = *program.top().findChild<QAction *>("mnFunc");
        openMenuByMouse(program.top(), menu);
        REQUIRE(menu.menu()->isVisible());
        CHECK(fromQt(box.text()) == "R8.5.1");
        menu.menu()->close();
        QFocusEvent behind(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
        QApplication::sendEvent(&box, &behind);
        CHECK(fromQt(box.text()) == "R8.5.1");
        QFocusEvent left(QEvent::FocusOut, Qt::TabFocusReason);
        QApplication::sendEvent(&box, &left);
        CHECK(fromQt(box.text()) == "令和 08年05月01日");
    });
    CHECK(program.runs());
}
