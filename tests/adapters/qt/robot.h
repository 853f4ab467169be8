#pragma once

#include "adapters/qt/qt_windows.h"
#include "adapters/script/transcript.h"
#include "runtime/regional.h"
#include "scenarios/play.h"

#include <QObject>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace inin::qt {

using namespace script;

/// Sits in front of the windows and plays the commands one by one, each when the program waits for a person: it answers
/// boxes, and gives every other command to the window on top.
class Robot {
public:
    /// `written` tells how much of the transcript stands there.
    Robot(const Play &play, Transcript &transcript, std::function<std::size_t()> written, Regional regional);

    /// The windows in front of which it sits; it begins when the program first waits.
    void sitDown(QtWindows &windows);
    /// The program works and only lets events run: a person's turn has not come.
    void wait() { ++m_waiting; }
    void goOn() { --m_waiting; }

    /// Where in the transcript each command was asked for.
    [[nodiscard]] const std::vector<std::size_t> &marks() const { return m_marks; }
    [[nodiscard]] const std::string &errors() const { return m_errors; }
    /// A window was still open after the last step, and the play has no step for the end of its commands.
    [[nodiscard]] bool ranOut() const { return m_ranOut; }

private:
    void comeBackSoon();
    void takeTurn();
    [[nodiscard]] bool answerBox();
    void playNext(FormWindow &top);
    void play(FormWindow &top, const std::string &line);
    void closeAtEnd(FormWindow &top);

    const Play &m_play;
    Transcript &m_transcript;
    std::function<std::size_t()> m_written;
    Regional m_regional;
    QtWindows *m_windows = nullptr;
    QObject m_context;      ///< what was planned is off when the robot is gone
    std::size_t m_next = 1; // step 0 is the start
    int m_waiting = 0;
    int m_closings = 0;
    bool m_ranOut = false;
    std::vector<std::size_t> m_marks;
    std::string m_errors;
};

} // namespace inin::qt
