#pragma once

#include <QFrame>

#include <functional>

class QLabel;
class QPushButton;

namespace inin::viewer {

/// A line above the page with a notice and at most one action. It is not modal and covers nothing.
class NoticeBar : public QFrame {
public:
    explicit NoticeBar(QWidget *parent = nullptr);
    /// With an empty `action` the only button is the one that closes the bar.
    void showNotice(const QString &text, const QString &action, std::function<void()> onAction);
    /// Hides the bar; a notice that the user has closed is forgotten too.
    void clear();
    /// Empty after clear().
    [[nodiscard]] QString text() const;
    /// True while a notice with an action is shown.
    [[nodiscard]] bool hasAction() const { return isVisible() && m_onAction; }

private:
    QLabel *m_text;
    QPushButton *m_action;
    std::function<void()> m_onAction;
};

} // namespace inin::viewer
