#include "adapters/win32/com_variant.h"

#include "adapters/win32/com_error.h"
#include "runtime/runtime_error.h"
#include "system/win32_text.h"

#include <algorithm>

namespace inin::win32 {

namespace {

VARIANT typed(VARENUM type)
{
    VARIANT made{};
    made.vt = static_cast<VARTYPE>(type);
    return made;
}

void *allocated(void *memory)
{
    if (memory == nullptr) throw RuntimeError(error_number::outOfMemory);
    return memory;
}

/// Locks a SAFEARRAY while its bytes are copied.
class ArrayBytes {
public:
    explicit ArrayBytes(SAFEARRAY *array) : m_array(array) { checkCom(SafeArrayAccessData(m_array, &m_bytes)); }
    ArrayBytes(const ArrayBytes &) = delete;
    ArrayBytes &operator=(const ArrayBytes &) = delete;
    ~ArrayBytes() { SafeArrayUnaccessData(m_array); }
    [[nodiscard]] std::span<std::byte> span() const
    {
        return {static_cast<std::byte *>(m_bytes), m_array->rgsabound[0].cElements};
    }

private:
    SAFEARRAY *m_array;
    void *m_bytes = nullptr;
};

struct ComOfValue {
    VARIANT operator()(Empty) const { return typed(VT_EMPTY); }
    VARIANT operator()(Null) const { return typed(VT_NULL); }
    VARIANT operator()(std::int16_t value) const
    {
        VARIANT made = typed(VT_I2);
        made.iVal = value;
        return made;
    }
    VARIANT operator()(std::int32_t value) const
    {
        VARIANT made = typed(VT_I4);
        made.lVal = value;
        return made;
    }
    VARIANT operator()(double value) const
    {
        VARIANT made = typed(VT_R8);
        made.dblVal = value;
        return made;
    }
    VARIANT operator()(Date value) const
    {
        VARIANT made = typed(VT_DATE);
        made.date = value.days();
        return made;
    }
    /// Empty text becomes an empty BSTR, never a null pointer; a NUL inside is kept.
    VARIANT operator()(const std::string &text) const
    {
        const std::wstring wide = wideFromUtf8(text);
        VARIANT made = typed(VT_BSTR);
        made.bstrVal = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
        allocated(made.bstrVal);
        return made;
    }
    VARIANT operator()(const Binary &bytes) const
    {
        VARIANT made = typed(VT_UI1);
        made.vt |= VT_ARRAY;
        made.parray = SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(bytes.size()));
        allocated(made.parray);
        std::ranges::copy(bytes, ArrayBytes(made.parray).span().begin());
        return made;
    }
};

/// Types that Variant lacks, with the type that can represent their values.
struct WideningRule {
    VARENUM given;
    VARENUM held;
};
constexpr WideningRule kWideningRules[] = {
    {VT_BOOL, VT_I2}, {VT_I1, VT_I2}, {VT_UI1, VT_I2}, {VT_UI2, VT_I4}, {VT_INT, VT_I4}, {VT_UINT, VT_R8},
    {VT_UI4, VT_R8},  {VT_I8, VT_R8}, {VT_UI8, VT_R8}, {VT_R4, VT_R8},  {VT_CY, VT_R8},  {VT_DECIMAL, VT_R8},
};

void widen(VARIANT &value)
{
    const auto *const rule = std::ranges::find(kWideningRules, static_cast<int>(value.vt), &WideningRule::given);
    if (rule == std::end(kWideningRules)) return;
    checkCom(VariantChangeType(&value, &value, 0, static_cast<VARTYPE>(rule->held)));
}

Variant heldValue(const VARIANT &value)
{
    switch (value.vt) {
    case VT_NULL:
        return Null{};
    case VT_I2:
        return value.iVal;
    case VT_I4:
        return static_cast<std::int32_t>(value.lVal);
    case VT_R8:
        return value.dblVal;
    case VT_DATE:
        return Date(value.date);
    case VT_BSTR:
        return utf8FromWide({value.bstrVal, SysStringLen(value.bstrVal)});
    case VT_ARRAY | VT_UI1: {
        if (SafeArrayGetDim(value.parray) != 1) return {};
        const ArrayBytes bytes(value.parray);
        return Binary(bytes.span().begin(), bytes.span().end());
    }
    default:
        return {};
    }
}

} // namespace

ComVariant::ComVariant(const Variant &value) : m_value(std::visit(ComOfValue{}, value.value())) {}

ComArguments::ComArguments(std::span<const Variant> arguments) : m_owned(arguments.rbegin(), arguments.rend())
{
    for (const ComVariant &owned : m_owned) m_borrowed.push_back(owned.get());
}

Variant valueOfCom(VARIANT &given)
{
    ComVariant value;
    checkCom(VariantCopyInd(value.address(), &given));
    widen(*value.address());
    return heldValue(value.get());
}

} // namespace inin::win32
