#include "adapters/native/native_platform.h"
#include "adapters/win32/com_error.h"
#include "adapters/win32/com_pointer.h"
#include "adapters/win32/com_variant.h"
#include "runtime/runtime_error.h"
#include "system/win32_text.h"

#include <array>

namespace inin::win32 {

namespace {

/// COM on the thread that creates this. All objects share it, so it ends after the last of them.
class ComApartment {
public:
    /// A thread that was initialized in another mode is usable as well.
    ComApartment() : m_entered(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
    ComApartment(const ComApartment &) = delete;
    ComApartment &operator=(const ComApartment &) = delete;
    ~ComApartment()
    {
        if (m_entered) CoUninitialize();
    }

private:
    bool m_entered;
};

class Win32AutomationObject : public AutomationObject {
public:
    Win32AutomationObject(std::shared_ptr<ComApartment> apartment, ComPointer<IDispatch> object)
        : m_apartment(std::move(apartment)), m_object(std::move(object))
    {
    }

    Variant get(const std::string &member) override { return invoke(member, DISPATCH_PROPERTYGET, {}); }
    void set(const std::string &member, const Variant &value) override
    {
        invoke(member, DISPATCH_PROPERTYPUT, std::array{value});
    }
    Variant call(const std::string &member, std::span<const Variant> arguments) override
    {
        return invoke(member, DISPATCH_METHOD, arguments);
    }

private:
    DISPID idOf(const std::string &member)
    {
        std::wstring name = wideFromUtf8(member);
        wchar_t *names[] = {name.data()};
        DISPID id = DISPID_UNKNOWN;
        checkCom(m_object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id));
        return id;
    }

    Variant invoke(const std::string &member, WORD kind, std::span<const Variant> values)
    {
        const DISPID id = idOf(member);
        ComArguments arguments(values);
        DISPPARAMS parameters{arguments.data(), nullptr, arguments.count(), 0};
        // A property's new value is passed as a named argument.
        DISPID assigned = DISPID_PROPERTYPUT;
        const bool put = kind == DISPATCH_PROPERTYPUT;
        if (put) {
            parameters.rgdispidNamedArgs = &assigned;
            parameters.cNamedArgs = 1;
        }
        ComVariant result;
        ComException exception;
        UINT wrongArgument = 0;
        const HRESULT outcome = m_object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters,
                                                 put ? nullptr : result.address(), exception.address(), &wrongArgument);
        if (outcome == DISP_E_EXCEPTION) exception.fail();
        checkCom(outcome);
        return valueOfCom(*result.address());
    }

    std::shared_ptr<ComApartment> m_apartment; // declared before the object, so destroyed after it
    ComPointer<IDispatch> m_object;
};

/// An unknown class and one that fails to start are reported alike; only a denied access differs.
[[noreturn]] void failCreation(HRESULT result)
{
    failCom(result == E_ACCESSDENIED ? result : REGDB_E_CLASSNOTREG);
}

ComPointer<IUnknown> created(const std::string &programId)
{
    CLSID classId{};
    HRESULT result = CLSIDFromProgID(wideFromUtf8(programId).c_str(), &classId);
    void *object = nullptr;
    if (SUCCEEDED(result)) result = CoCreateInstance(classId, nullptr, CLSCTX_SERVER, IID_IUnknown, &object);
    if (FAILED(result)) failCreation(result);
    return ComPointer<IUnknown>(static_cast<IUnknown *>(object));
}

ComPointer<IDispatch> lateBound(IUnknown &object)
{
    void *face = nullptr;
    checkCom(object.QueryInterface(IID_IDispatch, &face));
    return ComPointer<IDispatch>(static_cast<IDispatch *>(face));
}

class Win32Automation : public Automation {
public:
    std::unique_ptr<AutomationObject> create(const std::string &programId) override
    {
        // Created with the first object: most runs need none.
        if (!m_apartment) m_apartment = std::make_shared<ComApartment>();
        return std::make_unique<Win32AutomationObject>(m_apartment, lateBound(*created(programId)));
    }

private:
    std::shared_ptr<ComApartment> m_apartment;
};

} // namespace

} // namespace inin::win32

std::unique_ptr<inin::Automation> inin::makeSystemAutomation()
{
    return std::make_unique<win32::Win32Automation>();
}
