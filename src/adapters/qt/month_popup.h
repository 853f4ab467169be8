#pragma once

#include "adapters/qt/date_popup.h"

#include <array>

class QToolButton;

namespace inin::qt {

/// The twelve months of a year to pick one from, with the era and the western year above them.
class MonthPopup : public DatePopup {
public:
    MonthPopup(Date shown, Date today, QWidget *parent);

protected:
    void turnPage(int by) override;
    bool dealKey(int key) override;

private:
    static constexpr int kMonths = 12;

    /// Shows a year and moves the focus to one of its months.
    void showYear(std::int32_t year, int month);
    /// Moves the focus by a number of months, into the next year too.
    void walk(int months);
    [[nodiscard]] int focusedMonth() const;

    DateParts m_shown; ///< the month that the box contains
    std::int32_t m_year = 0;
    std::array<QToolButton *, kMonths> m_buttons{}; ///< owned by the popup
};

} // namespace inin::qt
