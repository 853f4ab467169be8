#pragma once

#include <QApplication>
#include <QEvent>

#include <functional>
#include <utility>

namespace inin::theme {

/// Calls a function after each change of one kind that the application reports: some desktops set the application's
/// font and colours while the program runs.
class ChangeFilter : public QObject {
public:
    /// The application owns the filter.
    ChangeFilter(QApplication &application, QEvent::Type change, std::function<void()> restore)
        : QObject(&application), m_change(change), m_restore(std::move(restore))
    {
        application.installEventFilter(this);
    }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == m_change && watched == parent()) m_restore();
        return false;
    }

private:
    QEvent::Type m_change;
    std::function<void()> m_restore;
};

} // namespace inin::theme
