#pragma once

#include "adapters/qt/date_popup.h"

class QCalendarWidget;

namespace inin::qt {

/// A month view to pick a day from, with the era and the western year above it.
class CalendarPopup : public DatePopup {
public:
    CalendarPopup(Date shown, Date today, QWidget *parent);

protected:
    void turnPage(int by) override;
    bool dealKey(int key) override;

private:
    void showTitle();

    QCalendarWidget *m_calendar; ///< owned by the popup
};

} // namespace inin::qt
