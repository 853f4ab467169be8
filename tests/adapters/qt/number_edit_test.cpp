#include "adapters/qt/number_edit.h"

#include "adapters/qt/qt_text.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QInputMethodEvent>
#include <QtTest/QTest>

#include <string>
#include <vector>

using namespace inin;
using namespace inin::qt;

namespace {

struct NumberBoxOnScreen {
    explicit NumberBoxOnScreen(const NumberEdit::Limits &limits = {}) : edit(limits, "########0", &window)
    {
        edit.onEdited = [this](const Variant &value) { edits.push_back(value); };
        window.show();
        window.activateWindow();
        REQUIRE(QTest::qWaitForWindowActive(&window));
        edit.setFocus(Qt::TabFocusReason);
    }
    void compose(const std::string &text)
    {
        QInputMethodEvent composed;
        composed.setCommitString(toQt(text));
        QApplication::sendEvent(&edit, &composed);
    }
    [[nodiscard]] std::string shown() const { return fromQt(edit.text()); }

    QWidget window;
    NumberEdit edit;
    std::vector<Variant> edits;
};

} // namespace

TEST_CASE("a number is accepted at each key")
{
    NumberBoxOnScreen box;
    QTest::keyClicks(&box.edit, "12");
    CHECK(box.edits == std::vector<Variant>{std::int32_t{1}, std::int32_t{12}});
}

TEST_CASE("only digits are accepted")
{
    NumberBoxOnScreen box;
    QTest::keyClicks(&box.edit, "1a-2.+ ,3");
    CHECK(box.shown() == "123");
}

TEST_CASE("full-width digits from an input method are accepted as digits")
{
    NumberBoxOnScreen box;
    box.compose("１２３４５６７８９０");
    CHECK(box.shown() == "1234567890");
    CHECK(box.edits.back() == Variant(std::int32_t{1234567890}));
}

TEST_CASE("a digit typed after the zero of an untouched box replaces the zero")
{
    NumberBoxOnScreen box;
    box.edit.setValue(std::int32_t{0});
    QTest::keyClicks(&box.edit, "105");
    CHECK(box.shown() == "105");
    CHECK(box.edits == std::vector<Variant>{std::int32_t{1}, std::int32_t{10}, std::int32_t{105}});
    box.edit.home(false);
    QTest::keyClicks(&box.edit, "00");
    CHECK(box.shown() == "105");
    CHECK(box.edit.cursorPosition() == 0);
}

TEST_CASE("an emptied box is Null, and Null is shown as an empty box")
{
    NumberBoxOnScreen box;
    QTest::keyClicks(&box.edit, "7");
    QTest::keyClick(&box.edit, Qt::Key_Backspace);
    REQUIRE(box.edits.size() == 2);
    CHECK(box.edits[1].isNull());
    box.edit.setValue(std::int32_t{5});
    box.edit.setValue(Null{});
    CHECK(box.shown() == "");
}

TEST_CASE("the greatest number of 32 bits is accepted, the next one is not")
{
    NumberBoxOnScreen box;
    box.compose("2147483647");
    CHECK(box.edits.back() == Variant(std::int32_t{2147483647}));
    QTest::keyClick(&box.edit, Qt::Key_A, Qt::ControlModifier);
    box.compose("2147483648");
    CHECK(box.shown() == "2147483647");
}

TEST_CASE("a day box accepts 1 to 31")
{
    NumberBoxOnScreen box({1, 31});
    QTest::keyClicks(&box.edit, "32");
    CHECK(box.shown() == "3");
    QTest::keyClick(&box.edit, Qt::Key_Backspace);
    QTest::keyClicks(&box.edit, "31");
    CHECK(box.edits.back() == Variant(std::int32_t{31}));
}

TEST_CASE("a number below the minimum raises no event and is replaced by the last valid one")
{
    NumberBoxOnScreen box({1, 31});
    box.edit.setValue(std::int32_t{12});
    QLineEdit next(&box.window);
    next.show();
    QTest::keyClick(&box.edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&box.edit, "0");
    CHECK(box.edits.empty());
    next.setFocus(Qt::TabFocusReason);
    CHECK(box.shown() == "12");
}

TEST_CASE("a megabyte of text or digits dropped into a number box changes nothing")
{
    NumberBoxOnScreen box;
    box.edit.setValue(std::int32_t{12});
    for (const char letter : {'x', '1'}) {
        box.compose(std::string(1000000, letter));
        CHECK(box.shown() == "12");
        CHECK(box.edits.empty());
    }
}

TEST_CASE("a number box requests digits from an input method")
{
    NumberBoxOnScreen box;
    CHECK(box.edit.inputMethodQuery(Qt::ImEnabled).toBool());
    CHECK(Qt::InputMethodHints(box.edit.inputMethodQuery(Qt::ImHints).toInt()).testFlag(Qt::ImhDigitsOnly));
}
