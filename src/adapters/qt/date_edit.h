#pragma once

#include "adapters/qt/typed_box.h"
#include "runtime/variant.h"
#include "screen/era_date_text.h"

#include <functional>
#include <string>

class QAction;

namespace inin::qt {

/// A box for a date that accepts any typed text and shows the date with its era. Up and down step the part under the
/// cursor, page up and page down the month; Ctrl+; enters today, Alt+Down opens a calendar, in a box for months the
/// months of a year. An empty box is Null. Unreadable text stays highlighted with a remark and counts as Null; a
/// doubtful date is accepted with another colour.
class DateEdit : public TypedBox {
public:
    DateEdit(std::string format, std::function<Date()> today, QWidget *parent);

    /// Shows a value that was not entered in the box.
    void setValue(const Variant &value);
    [[nodiscard]] const Variant &value() const { return m_value; }
    void commit() override;
    /// The remark about unreadable text; empty when there is none.
    [[nodiscard]] const std::string &complaint() const { return m_complaint; }
    /// The remark about a date that is accepted but doubtful; empty when there is none.
    [[nodiscard]] const std::string &notice() const { return m_notice; }
    void openCalendar();

    /// Called for each change by the user.
    std::function<void(const Variant &value)> onEdited;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;

private:
    void take(const Variant &value, const std::string &notice = {});
    [[nodiscard]] QString textOf(const Variant &value) const;
    void remark(const std::string &complaint, const std::string &notice);
    [[nodiscard]] const std::string &sentence() const { return m_complaint.empty() ? m_notice : m_complaint; }
    void explain();
    [[nodiscard]] QPoint sentencePlace(const QString &words) const;
    void step(DatePart part, int by);
    void stepAtCursor(int by);
    void goToToday();
    [[nodiscard]] DateContext context() const;
    [[nodiscard]] DatePartPlace placeAtCursor(Date date) const;

    std::string m_format;
    std::function<Date()> m_today;
    Variant m_value = Null{};
    std::string m_complaint;
    std::string m_notice;
    QAction *m_sign = nullptr; ///< owned by the box
    bool m_isTyped = false;    ///< text was typed and has not been read yet
};

} // namespace inin::qt
