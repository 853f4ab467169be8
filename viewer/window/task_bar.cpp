#include "viewer/window/task_bar.h"

#include "viewer/window/cut_text.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QProgressBar>
#include <QPushButton>

namespace inin::viewer {

using namespace Qt::StringLiterals;

namespace {

constexpr int kShownAfter = 500; ///< milliseconds
constexpr int kAwakeEvery = 30;

} // namespace

TaskBar::TaskBar(QWidget *parent) : QWidget(parent), m_title(new CutLabel(this)), m_progress(new QProgressBar(this))
{
    setObjectName(u"taskBar"_s);
    m_progress->setObjectName(u"taskProgress"_s);
    m_progress->setAccessibleName(u"進み具合"_s);
    auto *const cancelButton = new QPushButton(u"中止(&C)"_s, this);
    cancelButton->setObjectName(u"taskCancel"_s);
    QObject::connect(cancelButton, &QPushButton::clicked, this, [this] { cancel(); });
    auto *const layout = new QHBoxLayout(this);
    layout->addWidget(m_title);
    layout->addWidget(m_progress, 1);
    layout->addWidget(cancelButton);
    hide();
}

void TaskBar::setRunning(bool running)
{
    m_isRunning = running;
    if (!running) hide();
    if (onRunningChanged) onRunningChanged();
}

bool TaskBar::setDone(std::size_t done)
{
    if (m_since.elapsed() >= kShownAfter) show();
    if (m_awake.elapsed() >= kAwakeEvery) {
        m_progress->setValue(static_cast<int>(done));
        QCoreApplication::processEvents();
        m_awake.restart();
    }
    return !m_isCancelled;
}

void TaskBar::run(const QString &title, std::size_t total,
                  const std::function<void(const std::function<bool(std::size_t)> &)> &task)
{
    struct Stop {
        TaskBar &bar;
        ~Stop() { bar.setRunning(false); }
    };
    m_title->setLine(title);
    m_progress->setRange(0, static_cast<int>(total));
    m_progress->setValue(0);
    m_isCancelled = false;
    m_since.start();
    m_awake.start();
    setRunning(true);
    const Stop stop{*this};
    task([this](std::size_t done) { return setDone(done); });
}

} // namespace inin::viewer
