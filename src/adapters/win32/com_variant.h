#pragma once

#include "runtime/variant.h"

#include <span>
#include <utility>
#include <vector>

#include <windows.h>

#include <oleauto.h>

namespace inin {

/// A VARIANT of the system with what it holds.
class ComVariant {
public:
    ComVariant() { VariantInit(&m_value); }
    /// The value in the type that a late-bound call gives it: text as BSTR, bytes as an array of them.
    explicit ComVariant(const Variant &value);
    ComVariant(ComVariant &&other) noexcept : m_value(other.m_value) { VariantInit(&other.m_value); }
    ComVariant &operator=(ComVariant &&other) noexcept
    {
        std::swap(m_value, other.m_value);
        return *this;
    }
    ~ComVariant() { VariantClear(&m_value); }

    [[nodiscard]] const VARIANT &get() const { return m_value; }
    [[nodiscard]] VARIANT *address() { return &m_value; }

private:
    VARIANT m_value;
};

/// Arguments as a late-bound call takes them: by value, the last one first.
class ComArguments {
public:
    explicit ComArguments(std::span<const Variant> arguments);
    [[nodiscard]] VARIANTARG *data() { return m_borrowed.data(); }
    [[nodiscard]] UINT count() const { return static_cast<UINT>(m_borrowed.size()); }

private:
    std::vector<ComVariant> m_owned;
    std::vector<VARIANTARG> m_borrowed; // the same values side by side, as the call wants them
};

/// What an object gave back. A mark is -1 or 0, a number that fits no whole number of the runtime a double. What the
/// runtime's values cannot hold (an object, an array of anything but bytes) counts as Empty.
[[nodiscard]] Variant valueOfCom(VARIANT &given);

} // namespace inin
