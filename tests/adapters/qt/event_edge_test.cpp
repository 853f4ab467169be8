#include "adapters/qt/window_fixture.h"

#include "runtime/runtime_error.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QTimer>
#include <QtTest/QTest>

#include <new>
#include <stdexcept>

using namespace inin;
using namespace inin::qt;

namespace {

struct OneButton : Form {
    OneButton() : Form("frmButton") { add(button); }
    Button button{"cmdOK"};
};

void press(WindowFixture &fixture)
{
    QTest::mouseClick(&fixture.windows.topWindow()->widget("cmdOK"), Qt::LeftButton);
}

/// Counts the toolkit's warnings about an exception that passed through its loops.
class LoopWatch {
public:
    LoopWatch() : m_before(qInstallMessageHandler(note)) { s_warnings = 0; }
    LoopWatch(const LoopWatch &) = delete;
    LoopWatch &operator=(const LoopWatch &) = delete;
    ~LoopWatch() { qInstallMessageHandler(m_before); }
    [[nodiscard]] static int warnings() { return s_warnings; }

private:
    static void note(QtMsgType, const QMessageLogContext &, const QString &message)
    {
        if (message.contains("caught an exception")) ++s_warnings;
    }
    static inline int s_warnings = 0;
    QtMessageHandler m_before;
};

} // namespace

TEST_CASE("an exception that leaves an event procedure ends the show of its form and reaches the caller of show")
{
    WindowFixture fixture;
    OneButton form;
    SUBCASE("out of memory")
    {
        form.button.onClick = [] { throw std::bad_alloc(); };
        fixture.turns.then([&] { press(fixture); });
        CHECK_THROWS_AS(fixture.windows.show(form, Modality::modal), std::bad_alloc);
    }
    SUBCASE("another C++ exception")
    {
        form.button.onClick = [] { throw std::logic_error("fault"); };
        fixture.turns.then([&] { press(fixture); });
        CHECK_THROWS_AS(fixture.windows.show(form, Modality::modal), std::logic_error);
    }
    SUBCASE("a run-time error")
    {
        form.button.onClick = [] { throw RuntimeError(error_number::overflow); };
        fixture.turns.then([&] { press(fixture); });
        CHECK_THROWS_AS(fixture.windows.show(form, Modality::modal), UnhandledError);
    }
    CHECK(fixture.windows.windowOf(form) == nullptr);
}

TEST_CASE(
    "an exception in an event outside the form's procedures ends the show without passing through the toolkit's loops")
{
    const LoopWatch watch;
    WindowFixture fixture;
    OneButton form;
    fixture.turns.then([&] {
        QWidget *window = fixture.windows.topWindow();
        QTimer::singleShot(0, window, [] { throw std::bad_alloc(); });
    });
    CHECK_THROWS_AS(fixture.windows.show(form, Modality::modal), std::bad_alloc);
    CHECK(fixture.windows.windowOf(form) == nullptr);
    CHECK(LoopWatch::warnings() == 0);
}

TEST_CASE("an exception that leaves an event during a box is rethrown when the box is answered")
{
    WindowFixture fixture;
    OneButton form;
    int clicks = 0;
    form.button.onClick = [&] {
        ++clicks;
        fixture.boxes.show("一", Icon::none, "");
        ++clicks;
    };
    fixture.turns.then([&] { press(fixture); });
    fixture.turns.then([&] {
        QTimer::singleShot(0, QApplication::activeModalWidget(), [] { throw std::logic_error("fault"); });
        QTest::qWait(1);
        answerTopBox();
    });
    CHECK_THROWS_AS(fixture.windows.show(form, Modality::modal), std::logic_error);
    CHECK(clicks == 1);
}
