#pragma once

#include "adapters/qt/typed_box.h"
#include "runtime/variant.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace inin::qt {

/// A box for a whole number. It accepts only digits, full-width ones too; empty is Null. A number above the upper limit
/// or beyond 32 bits cannot be typed.
class NumberEdit : public TypedBox {
public:
    struct Limits {
        std::optional<std::int32_t> least, most;
    };
    NumberEdit(const Limits &limits, std::string format, QWidget *parent);

    /// Shows a value that was not entered in the box.
    void setValue(const Variant &value);
    [[nodiscard]] const Variant &value() const { return m_value; }
    /// Replaces a number below the lower limit by the last valid one. Any other number was accepted while it was typed.
    void commit() override;
    /// Called for each change by the user.
    std::function<void(const Variant &value)> onEdited;

private:
    void takeText(const QString &text);

    std::string m_format;
    Variant m_value = Null{};
};

} // namespace inin::qt
