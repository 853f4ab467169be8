#pragma once

#include "runtime/date.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace inin {

/// The NULL of the database.
struct Null {
    friend bool operator==(const Null &, const Null &) = default;
};
/// A Variant that was never assigned.
struct Empty {
    friend bool operator==(const Empty &, const Empty &) = default;
};
using Binary = std::vector<std::byte>;

/// A value whose type is known only at run time. Text is UTF-8. Conversions are in runtime/conversion.h: a Variant
/// never converts implicitly.
class Variant {
public:
    using Value = std::variant<Empty, Null, std::int16_t, std::int32_t, double, std::string, Date, Binary>;

    Variant() = default;
    Variant(Null) : m_value(Null{}) {}
    Variant(std::int16_t value) : m_value(value) {}
    Variant(std::int32_t value) : m_value(value) {}
    Variant(double value) : m_value(value) {}
    Variant(std::string value) : m_value(std::move(value)) {}
    Variant(std::string_view value) : m_value(std::string(value)) {}
    Variant(const char *value) : m_value(std::string(value)) {}
    Variant(Date value) : m_value(value) {}
    Variant(Binary value) : m_value(std::move(value)) {}
    Variant(bool) = delete; ///< a boolean is a bool attribute, never a Variant
    Variant(std::int64_t) = delete;

    [[nodiscard]] bool isNull() const { return std::holds_alternative<Null>(m_value); }
    [[nodiscard]] bool isEmpty() const { return std::holds_alternative<Empty>(m_value); }
    template <class T> [[nodiscard]] const T *getIf() const { return std::get_if<T>(&m_value); }
    [[nodiscard]] const Value &value() const { return m_value; }

    /// Same type and same value: 1 as a 16-bit number differs from 1 as a 32-bit number.
    friend bool operator==(const Variant &, const Variant &) = default;

private:
    Value m_value;
};

} // namespace inin
