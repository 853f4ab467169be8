#pragma once

#include <QElapsedTimer>
#include <QWidget>

#include <cstddef>
#include <functional>

class QLabel;
class QProgressBar;

namespace inin::viewer {

/// Tells how far a long task is and lets it be cancelled; it shows itself after half a second. The task runs in pieces
/// between which the window stays awake.
class TaskBar : public QWidget {
public:
    explicit TaskBar(QWidget *parent = nullptr);

    /// Runs a task with a function that it calls with what is done, and that is false when it must end.
    void run(const QString &title, std::size_t total,
             const std::function<void(const std::function<bool(std::size_t done)> &)> &task);
    [[nodiscard]] bool isRunning() const { return m_isRunning; }
    void cancel() { m_isCancelled = true; }
    std::function<void()> onRunningChanged;

private:
    bool tell(std::size_t done);
    void setRunning(bool running);

    QLabel *m_title;
    QProgressBar *m_progress;
    QElapsedTimer m_since, m_awake;
    bool m_isRunning = false, m_isCancelled = false;
};

} // namespace inin::viewer
