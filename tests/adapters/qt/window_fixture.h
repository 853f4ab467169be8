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

/// Acts that are run one by one, each in a turn of its own of whatever event loop runs then.
class Turns {
public:
    void then(std::function<void()> act);
    [[nodiscard]] bool isOver() const { return m_acts.empty(); }
    /// Lets waiting events run without a turn among them: the program, or an act, is still at work.
    void hold(const std::function<void()> &work);
    /// What an act failed with: nothing may be thrown through the toolkit's loops. Empty when all went well.
    [[nodiscard]] const std::string &failure() const { return m_failure; }
    /// Asked before each turn; a turn that is not due yet comes again.
    std::function<bool()> isDue;

private:
    void plan();

    std::deque<std::function<void()>> m_acts;
    QObject m_context;
    bool m_isPlanned = false;
    int m_held = 0;
    std::string m_failure;
};

/// Real windows that give time to events, but no turn to a person.
class TurnWindows : public QtWindows {
public:
    TurnWindows(Files &files, ViewServices services, Turns &turns)
        : QtWindows(files, std::move(services)), m_turns(turns)
    {
        turns.isDue = [this] { return isReady(); };
    }
    void giveTime() override
    {
        m_turns.hold([this] { QtWindows::giveTime(); });
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

/// Clicks the OK of the box on top, which must be there; gives back its text.
std::string answerTopBox();

} // namespace inin::qt
