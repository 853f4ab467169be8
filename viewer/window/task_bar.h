#pragma once

#include <QElapsedTimer>
#include <QWidget>

#include <cstddef>
#include <functional>

class QProgressBar;

namespace inin::viewer {

class CutLabel;

/// Shows the progress of a long task and lets the user cancel it; it appears after half a second. The task reports
/// progress in small steps, so that the window stays responsive.
class TaskBar : public QWidget {
public:
    explicit TaskBar(QWidget *parent = nullptr);

    /// Runs a task. The task reports progress through its argument and must end when that returns false.
    void run(const QString &title, std::size_t total,
             const std::function<void(const std::function<bool(std::size_t done)> &)> &task);
    [[nodiscard]] bool isRunning() const { return m_isRunning; }
    void cancel() { m_isCancelled = true; }
    std::function<void()> onRunningChanged;

private:
    bool setDone(std::size_t done);
    void setRunning(bool running);

    CutLabel *m_title;
    QProgressBar *m_progress;
    QElapsedTimer m_since, m_awake;
    bool m_isRunning = false, m_isCancelled = false;
};

} // namespace inin::viewer
