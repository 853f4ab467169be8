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

namespace inin::qt {

/// Runs acts one by one, each in its own turn of the current event loop.
class Turns {
public:
    void then(std::function<void()> act);
    [[nodiscard]] bool isOver() const { return m_acts.empty(); }
    /// Processes waiting events without running an act: the program, or an act, is still working.
    void hold(const std::function<void()> &work);
    /// The error of a failed act, empty for none. Acts must not throw through the toolkit's loops.
    [[nodiscard]] const std::string &failure() const { return m_failure; }
    /// Called before each turn; a turn that is not due yet is tried again.
    std::function<bool()> isDue;

private:
    void plan();

    std::deque<std::function<void()>> m_acts;
    QObject m_context;
    bool m_isPlanned = false;
    int m_held = 0;
    std::string m_failure;
};

/// Real windows that process waiting events without running an act.
class TurnWindows : public QtWindows {
public:
    TurnWindows(Files &files, ViewServices services, Turns &turns)
        : QtWindows(files, std::move(services)), m_turns(turns)
    {
        turns.isDue = [this] { return isReady(); };
    }
    void processWaitingEvents() override
    {
        m_turns.hold([this] { QtWindows::processWaitingEvents(); });
    }

private:
    [[nodiscard]] bool isReady() const;

    Turns &m_turns;
};

/// Real windows and boxes in a fake world.
struct WindowFixture {
    WindowFixture();
    WindowFixture(const WindowFixture &) = delete;
    WindowFixture &operator=(const WindowFixture &) = delete;
    ~WindowFixture();
    FakeWorld world;
    EventEdge edge;
    ViewServices services{edge, [this] { return world.clock.today(); }, [](const std::string &path) { return path; }};
    Turns turns;
    TurnWindows windows{world.files, services, turns};
    QtMessageBoxes boxes{edge};
    App app{Platform{boxes, windows, world.database, world.profile, world.files, world.processes, world.clock,
                     world.locale, world.automation}};
};

/// Clicks OK in the topmost box, which must exist, and returns its text.
std::string answerTopBox();

} // namespace inin::qt
