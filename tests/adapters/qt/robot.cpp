#include "adapters/qt/robot.h"

#include "adapters/qt/form_window.h"
#include "adapters/qt/manual_input.h"
#include "adapters/script/command_player.h"
#include "adapters/script/state_writer.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QtTest/QTest>

#include <sstream>

namespace inin::qt {

using namespace script;

namespace {
constexpr int kRefusedClosings = 100;
/// Milliseconds. With 0, several turns would run in one pass of a loop that was asked to quit in between.
constexpr int kSoon = 1;
} // namespace

Robot::Robot(const Play &play, Transcript &transcript, std::function<std::size_t()> written, Regional regional)
    : m_play(play), m_transcript(transcript), m_written(std::move(written)), m_regional(std::move(regional))
{
}

void Robot::sitDown(QtWindows &windows)
{
    m_windows = &windows;
    comeBackSoon();
}

void Robot::comeBackSoon()
{
    QTimer::singleShot(kSoon, &m_context, [this] { takeTurn(); });
}

/// The next turn is always scheduled first, so that a loop inside the current turn has turns, too.
void Robot::takeTurn()
{
    comeBackSoon();
    if (m_waiting > 0 || answerBox()) return;
    FormWindow *top = m_windows->topWindow();
    const bool isPlayed = top != nullptr && top->isVisible() && top->isModal();
    if (!isPlayed) return;
    // Keys are delivered to the active window; a user would click it first.
    if (!top->isActiveWindow()) return top->activateWindow();
    if (const std::string fault = mirrorFault(*top); !fault.empty()) m_errors += fault + "\n";
    playNext(*top);
}

bool Robot::answerBox()
{
    auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    if (box == nullptr) return false;
    QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
    return true;
}

void Robot::playNext(FormWindow &top)
{
    if (m_next == m_play.steps.size()) {
        m_ranOut = !m_play.steps.back().isEndOfCommands();
        return closeAtEnd(top);
    }
    m_marks.push_back(m_written());
    const PlayStep &step = m_play.steps[m_next++];
    if (step.isEndOfCommands()) return closeAtEnd(top);
    play(top, step.command);
}

void Robot::play(FormWindow &top, const std::string &line)
{
    std::istringstream text(line);
    const auto command = CommandReader(text).next();
    if (!command) return;
    if (command->kind == CommandKind::state) return m_transcript.write(stateEvent(top.form(), m_regional));
    if (command->kind == CommandKind::close) {
        top.close();
        return;
    }
    if (command->force) {
        static_cast<void>(playOnControl(top.form(), *top.form().find(command->control), *command, m_regional));
        return;
    }
    const std::string name = command->kind == CommandKind::row ? "spr_1ran" : command->control;
    if (actManually(top, *command) == ManualResult::refused)
        m_transcript.write({{"event", "refused"}, {"control", name}});
}

void Robot::closeAtEnd(FormWindow &top)
{
    if (++m_closings > kRefusedClosings) throw std::runtime_error("the window refuses to close after the last command");
    top.close();
}

} // namespace inin::qt
