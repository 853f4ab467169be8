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

/// Plays the commands of a play on the windows, one each time the program waits for the user: it answers boxes and
/// applies every other command to the topmost window.
class Robot {
public:
    /// `written` returns the current length of the transcript.
    Robot(const Play &play, Transcript &transcript, std::function<std::size_t()> written, Regional regional);

    /// Attaches to the windows; the first command is played when the program first waits.
    void sitDown(QtWindows &windows);
    /// The program is processing events during its work: no command may be played until goOn().
    void wait() { ++m_waiting; }
    void goOn() { --m_waiting; }

    /// The length of the transcript at the time of each command.
    [[nodiscard]] const std::vector<std::size_t> &marks() const { return m_marks; }
    [[nodiscard]] const std::string &errors() const { return m_errors; }
    /// True when a window was still open after the last step and the play has no step for the end of its commands.
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
    QObject m_context;      ///< cancels the scheduled turn with the robot
    std::size_t m_next = 1; // step 0 is the start
    int m_waiting = 0;
    int m_closings = 0;
    bool m_ranOut = false;
    std::vector<std::size_t> m_marks;
    std::string m_errors;
};

} // namespace inin::qt
