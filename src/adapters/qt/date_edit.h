#pragma once

#include "adapters/qt/typed_box.h"
#include "runtime/variant.h"
#include "screen/era_date_text.h"

#include <functional>
#include <string>

class QAction;

namespace inin::qt {

/// A box for a date that takes whatever a person types and shows it with its era. Up and down step the part under the
/// cursor, page up and page down the month, Ctrl+; is today, Alt+Down opens a calendar. Empty is Null. A text that cannot be
/// read stays in the box, marked and with a sentence, and counts as Null; a doubtful date is taken and marked otherwise.
class DateEdit : public TypedBox {
public:
    DateEdit(std::string format, std::function<Date()> today, QWidget *parent);

    /// Shows a value that came from outside the box.
    void setValue(const Variant &value);
    [[nodiscard]] const Variant &value() const { return m_value; }
    void commit() override;
    /// The sentence about a text that cannot be read, empty when there is none.
    [[nodiscard]] const std::string &complaint() const { return m_complaint; }
    /// The sentence about a date that was taken but is doubtful, empty when there is none.
    [[nodiscard]] const std::string &notice() const { return m_notice; }
    void openCalendar();

    /// Each change by hand.
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
    bool m_isTyped = false;    ///< something was typed that has not been read yet
};

} // namespace inin::qt
