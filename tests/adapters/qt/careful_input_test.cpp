// Careless user input on the windows must have no side effects.

#include "adapters/qt/working_program.h"

#include <doctest/doctest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QTimer>
#include <QWheelEvent>

using namespace inin;
using namespace inin::qt;

namespace {

constexpr bool kHeldDown = true;

void press(QWidget &widget, Qt::Key key, bool isHeldDown)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString(), isHeldDown);
    QApplication::sendEvent(&widget, &event);
}

/// Turns the wheel over a list by one notch towards the user.
void turnWheel(QWidget &widget)
{
    const QPointF place(5, 5);
    QWheelEvent event(place, widget.mapToGlobal(place), {}, QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
}

} // namespace

TEST_CASE("a held-down function key counts once")
{
    Program program;
    program.act([&] {
        QWidget &option = program.widget("optPrint(0)");
        option.setFocus();
        // Escape would leave the screen, but a repeated one must not.
        press(option, Qt::Key_Escape, kHeldDown);
        press(option, Qt::Key_F12, kHeldDown);
        CHECK(program.world.processes.started.empty());
        press(option, Qt::Key_F12, !kHeldDown);
        CHECK(program.handedBack());
    });
    CHECK(program.runs());
}

TEST_CASE("function keys with Shift, Ctrl or Alt do nothing on the screen")
{
    Program program;
    program.act([&] {
        for (const auto modifier : {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier})
            for (const Qt::Key key : {Qt::Key_F1, Qt::Key_F12, Qt::Key_Escape}) program.key(key, modifier);
        CHECK(program.world.processes.started.empty());
        CHECK(QApplication::activeModalWidget() == &program.top());
    });
    CHECK(program.runs());
}

TEST_CASE("the wheel changes the entry of a list only while the list has the focus")
{
    Program program;
    program.act([&] {
        auto &list = dynamic_cast<QComboBox &>(program.widget("cbSejyutsu"));
        CHECK(list.count() > 1);
        program.widget("optPrint(0)").setFocus();
        turnWheel(list);
        CHECK(list.currentIndex() == 0);
        CHECK(program.form.cbSejyutsu.ListIndex == 0);
        list.setFocus();
        turnWheel(list);
        CHECK(program.form.cbSejyutsu.ListIndex == 1);
    });
    CHECK(program.runs());
}

TEST_CASE("picking the staff member already shown in the list restores the number in the box")
{
    Program program;
    program.act([&] {
        auto &list = dynamic_cast<QComboBox &>(program.widget("cbSejyutsu"));
        program.form.cbSejyutsu.ListIndex = 1;
        auto &number = dynamic_cast<QLineEdit &>(program.widget("imNum_StaffNo"));
        const auto typeNine = [&] {
            number.setFocus();
            number.selectAll();
            QTest::keyClicks(&number, "9");
            CHECK(program.form.imNum_StaffNo.Value.get() == Variant(std::int32_t{9}));
        };
        typeNine();
        QTest::mouseClick(&list, Qt::LeftButton, {}, list.rect().center());
        QTest::keyClick(list.view(), Qt::Key_Return);
        CHECK(program.form.imNum_StaffNo.Value.get() == Variant(std::int32_t{11}));

        typeNine();
        QTest::mouseClick(&list, Qt::LeftButton, {}, list.rect().center());
        QTest::keyClick(list.view(), Qt::Key_Escape);
        CHECK(program.form.imNum_StaffNo.Value.get() == Variant(std::int32_t{9}));
        program.form.cbSejyutsu.ListIndex = 1; // assigned by the program, not picked
        CHECK(program.form.imNum_StaffNo.Value.get() == Variant(std::int32_t{9}));
    });
    CHECK(program.runs());
}

TEST_CASE("text like markup is shown literally in a box")
{
    WindowFixture fixture;
    auto format = Qt::AutoText;
    fixture.turns.then([&] {
        for (const QLabel *label : QApplication::activeModalWidget()->findChildren<QLabel *>())
            if (!label->text().isEmpty()) format = label->textFormat();
        answerTopBox();
    });
    fixture.boxes.show("<b>一</b>", Icon::critical, "");
    CHECK(format == Qt::PlainText);
}

TEST_CASE("a patient's name like markup is shown literally")
{
    Program program;
    program.act([&] {
        program.form.lbl_SelKanja.Caption = "<b>青木</b>";
        const auto &label = dynamic_cast<const QLabel &>(program.widget("lbl_SelKanja"));
        CHECK(label.textFormat() == Qt::PlainText);
        CHECK(fromQt(label.text()) == "<b>青木</b>");
    });
    CHECK(program.runs());
}

TEST_CASE("a search window refuses to be closed by the window manager during its search")
{
    Program program;
    program.act([&] { program.click("btn_KanjaSelect"); });
    bool wasAsked = false, hasGone = false;
    program.act([&] {
        FormWindow &search = program.top();
        // The close event is delivered when the search processes waiting events.
        QTimer::singleShot(0, &search, [&] {
            wasAsked = true;
            hasGone = search.close();
        });
        program.key(Qt::Key_F4);
        CHECK(wasAsked);
        CHECK(!hasGone);
        CHECK(search.isVisible());
        if (hasGone) search.show(); // otherwise the program would never end
    });
    program.act([&] { program.key(Qt::Key_F12); });
    CHECK(program.runs());
}

namespace {

/// A form that records the activations of its window.
struct TurnTaker : Form {
    explicit TurnTaker(const char *name) : Form(name) { add(button); }
    void Form_Activate() override { turns += "+"; }
    void Form_Deactivate() override { turns += "-"; }
    Button button{"cmdOK"};
    std::string turns;
};

} // namespace

TEST_CASE("a window is deactivated when another window of the program covers it and activated when that one closes")
{
    WindowFixture fixture;
    TurnTaker below("frmBelow");
    TurnTaker above("frmAbove");
    fixture.turns.then([&] {
        CHECK(below.turns == "+");
        fixture.windows.show(above, Modality::modal);
    });
    fixture.turns.then([&] {
        CHECK(above.turns == "+");
        CHECK(below.turns == "+-");
        above.unload();
    });
    fixture.turns.then([&] {
        CHECK(below.turns == "+-+");
        below.unload();
    });
    fixture.windows.show(below, Modality::modal);
    CHECK(fixture.turns.failure() == "");
    CHECK(above.turns == "+");
}
