#pragma once

#include "runtime/variant.h"

#include <QLineEdit>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace inin {

/// A box for a whole number: digits only, full-width digits are taken as digits, empty is Null. What would leave the
/// limits or 32 bits is not taken up.
class NumberEdit : public QLineEdit {
public:
    struct Limits {
        std::optional<std::int32_t> least, most;
    };
    NumberEdit(const Limits &limits, std::string format, QWidget *parent);

    /// Shows a value that came from outside the box.
    void setValue(const Variant &value);
    [[nodiscard]] const Variant &value() const { return m_value; }
    /// Each change by hand.
    std::function<void(const Variant &value)> onEdited;

protected:
    void focusOutEvent(QFocusEvent *event) override;

private:
    void takeText(const QString &text);

    std::string m_format;
    Variant m_value = Null{};
};

} // namespace inin
