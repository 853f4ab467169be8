#pragma once

#include "runtime/date.h"

#include <QFrame>

#include <functional>

class QCalendarWidget;
class QLabel;

namespace inin::qt {

/// A month view to pick a day from, with the era and the western year above it. Deletes itself when it is closed.
class CalendarPopup : public QFrame {
public:
    CalendarPopup(Date shown, QWidget *parent);
    void openBelow(const QWidget &box);
    std::function<void(Date chosen)> onChosen;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void showTitle();
    void choose(const QDate &day);

    QCalendarWidget *m_calendar = nullptr; ///< owned by the popup
    QLabel *m_title = nullptr;             ///< owned by the popup
};

} // namespace inin::qt
