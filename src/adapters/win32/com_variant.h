#pragma once

#include "runtime/variant.h"

#include <span>
#include <utility>
#include <vector>

#include <windows.h>

#include <oleauto.h>

namespace inin::win32 {

/// Owns a VARIANT and its content.
class ComVariant {
public:
    ComVariant() { VariantInit(&m_value); }
    /// The value in the type that a late-bound call passes: text as BSTR, bytes as an array of bytes.
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

/// The arguments of a late-bound call: by value, in reverse order.
class ComArguments {
public:
    explicit ComArguments(std::span<const Variant> arguments);
    [[nodiscard]] VARIANTARG *data() { return m_borrowed.data(); }
    [[nodiscard]] UINT count() const { return static_cast<UINT>(m_borrowed.size()); }

private:
    std::vector<ComVariant> m_owned;
    std::vector<VARIANTARG> m_borrowed; // the same values in a contiguous array, as IDispatch::Invoke requires
};

/// Converts an object's result. A boolean becomes -1 or 0, a number outside the runtime's integers a double. A value
/// that Variant cannot represent (an object, an array of anything but bytes) becomes Empty.
[[nodiscard]] Variant valueOfCom(VARIANT &given);

} // namespace inin::win32
