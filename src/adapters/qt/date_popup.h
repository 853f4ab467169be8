#pragma once

#include "runtime/date.h"

#include <QFrame>

#include <functional>
#include <string>

class QGridLayout;
class QLabel;
class QPushButton;

namespace inin::qt {

/// The frame of a calendar below a date box: a title between two buttons that turn the page, the page, and a button
/// that picks today. Escape closes it. Deletes itself when it is closed.
class DatePopup : public QFrame {
public:
    void openBelow(const QWidget &box);
    std::function<void(Date chosen)> onChosen;

protected:
    /// The captions of the buttons: what one page is, and today in terms of the page.
    struct Captions {
        const char *before, *after, *today;
    };
    DatePopup(const Captions &captions, Date today, QWidget *parent);

    void setPage(QWidget &page);
    void setTitle(const std::string &title);
    void choose(Date day);
    virtual void turnPage(int by) = 0;
    /// Handles a key within the popup; false leaves it to the widget with the focus.
    virtual bool dealKey(int key) = 0;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QGridLayout *m_layout; ///< owned by the popup, as the others
    QLabel *m_title;
    QPushButton *m_today;
};

} // namespace inin::qt
