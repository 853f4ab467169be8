#include "adapters/qt/form_window.h"
#include "adapters/qt/window_fixture.h"

#include <doctest/doctest.h>

#include <QtTest/QTest>

using namespace inin;
using namespace inin::qt;

namespace {

/// Three buttons: the last has the lowest TabIndex, the middle one has none.
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

TEST_CASE("the tab key follows the TabIndex of the controls and skips those without one")
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
