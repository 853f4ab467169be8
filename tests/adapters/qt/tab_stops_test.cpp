#include "adapters/qt/form_window.h"
#include "adapters/qt/window_fixture.h"

#include <doctest/doctest.h>

#include <QtTest/QTest>

using namespace inin;
using namespace inin::qt;

namespace {

/// Three buttons, of which the last comes first and the middle one is no stop.
struct ThreeButtons : Form {
    ThreeButtons() : Form("frmButtons")
    {
        second.TabIndex = 1;
        first.TabIndex = 0;
        add(second);
        add(none);
        add(first);
    }
    Button second{"second"}, none{"none"}, first{"first"};
};

} // namespace

TEST_CASE("the tab key goes by the numbers of the controls, and past those without one")
{
    WindowFixture fixture;
    ThreeButtons form;
    FormWindow window(form, fixture.services, nullptr);
    window.open();
    REQUIRE(QTest::qWaitForWindowActive(&window));
    const auto focused = [&] { return window.focusWidget()->objectName(); };
    CHECK(focused() == QStringLiteral("first"));
    QTest::keyClick(&window.widget("first"), Qt::Key_Tab);
    CHECK(focused() == QStringLiteral("second"));
    QTest::keyClick(&window.widget("second"), Qt::Key_Tab);
    CHECK(focused() == QStringLiteral("first"));
    CHECK(window.widget("none").focusPolicy() == Qt::NoFocus);
}
