#pragma once

#include <QFrame>

#include <functional>

class QLabel;
class QPushButton;

namespace inin::viewer {

/// A line above the page with something to know and at most one thing to do about it. It waits and covers nothing.
class NoticeBar : public QFrame {
public:
    explicit NoticeBar(QWidget *parent = nullptr);
    /// An empty `action` leaves only the button that puts the bar away.
    void showNotice(const QString &text, const QString &action, std::function<void()> onAction);
    [[nodiscard]] QString text() const;

private:
    QLabel *m_text;
    QPushButton *m_action;
    std::function<void()> m_onAction;
};

} // namespace inin::viewer
