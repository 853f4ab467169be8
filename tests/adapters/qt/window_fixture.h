#pragma once

#include "adapters/qt/form_window.h"
#include "adapters/qt/qt_message_boxes.h"
#include "adapters/qt/qt_windows.h"
#include "printing/print_form.h"
#include "support/fake_platform.h"

#include <QObject>

#include <deque>
#include <functional>
#include <string>

namespace inin {

/// Real windows and boxes in a fake world.
struct WindowFixture {
    WindowFixture();
    FakeWorld world;
    EventEdge edge;
    ViewServices services{edge, [this] { return world.clock.today(); }, [](const std::string &path) { return path; }};
    QtWindows windows{world.files, services};
    QtMessageBoxes boxes{edge};
    App app{Platform{boxes, windows, world.database, world.profile, world.files, world.processes, world.clock,
                     world.locale, world.automation}};
};

/// Acts that are run one by one, each in a turn of its own of whatever event loop runs then.
class Turns {
public:
    void then(std::function<void()> act);
    [[nodiscard]] bool isOver() const { return m_acts.empty(); }

private:
    void plan();

    std::deque<std::function<void()>> m_acts;
    QObject m_context;
    bool m_isPlanned = false;
};

/// Clicks the OK of the box on top, which must be there; gives back its text.
std::string answerTopBox();

} // namespace inin
