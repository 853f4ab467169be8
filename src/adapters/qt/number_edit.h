#pragma once

#include "adapters/qt/typed_box.h"
#include "runtime/variant.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace inin::qt {

/// A box for a whole number: digits only, full-width digits are taken as digits, empty is Null. A number beyond the upper
/// limit or 32 bits cannot be typed.
class NumberEdit : public TypedBox {
public:
    struct Limits {
        std::optional<std::int32_t> least, most;
    };
    NumberEdit(const Limits &limits, std::string format, QWidget *parent);

    /// Shows a value that came from outside the box.
    void setValue(const Variant &value);
    [[nodiscard]] const Variant &value() const { return m_value; }
    /// A number below the lower limit gives way to the last good one; any other was taken at its last key.
    void commit() override;
    /// Each change by hand.
    std::function<void(const Variant &value)> onEdited;

private:
    void takeText(const QString &text);

    std::string m_format;
    Variant m_value = Null{};
};

} // namespace inin::qt
