// A form tool's document as a COM object of the tests. It is in a library of its own, is found by its program id, and
// writes each call as a line to the file that ININ_DOCUMENT_NOTES names.

#include <array>
#include <atomic>
#include <cwchar>
#include <new>
#include <string>
#include <type_traits>

#include <windows.h>

#include <oleauto.h>

namespace {

std::atomic<LONG> g_living{0};

std::string utf8(const wchar_t *text, int size)
{
    std::string out(static_cast<std::size_t>(size) * 3, '\0');
    out.resize(static_cast<std::size_t>(
        WideCharToMultiByte(CP_UTF8, 0, text, size, out.data(), static_cast<int>(out.size()), nullptr, nullptr)));
    return out;
}

/// Type and value as passed by the caller, without conversion.
std::string argumentText(const VARIANTARG &argument)
{
    switch (argument.vt) {
    case VT_EMPTY:
        return "EMPTY";
    case VT_NULL:
        return "NULL";
    case VT_I2:
        return "I2 " + std::to_string(argument.iVal);
    case VT_I4:
        return "I4 " + std::to_string(argument.lVal);
    case VT_R8:
        return "R8 " + std::to_string(argument.dblVal);
    case VT_DATE:
        return "DATE " + std::to_string(argument.date);
    case VT_BSTR:
        return argument.bstrVal == nullptr
                   ? "BSTR of nothing"
                   : "BSTR \"" + utf8(argument.bstrVal, static_cast<int>(SysStringLen(argument.bstrVal))) + "\"";
    case VT_ARRAY | VT_UI1: {
        BYTE *bytes = nullptr;
        SafeArrayAccessData(argument.parray, reinterpret_cast<void **>(&bytes));
        std::string line = "UI1[" + std::to_string(argument.parray->rgsabound[0].cElements) + "]";
        for (ULONG at = 0; at < argument.parray->rgsabound[0].cElements; ++at) line += " " + std::to_string(bytes[at]);
        SafeArrayUnaccessData(argument.parray);
        return line;
    }
    default:
        return "type " + std::to_string(argument.vt);
    }
}

std::string kindOf(WORD flags)
{
    switch (flags) {
    case DISPATCH_METHOD:
        return "method";
    case DISPATCH_PROPERTYGET:
        return "get";
    case DISPATCH_PROPERTYPUT:
        return "put";
    default:
        return "flags " + std::to_string(flags);
    }
}

void note(const std::string &line)
{
    std::array<wchar_t, 1024> path{};
    if (GetEnvironmentVariableW(L"ININ_DOCUMENT_NOTES", path.data(), static_cast<DWORD>(path.size())) == 0) return;
    const HANDLE file = CreateFileW(path.data(), FILE_APPEND_DATA, FILE_SHARE_READ, nullptr, OPEN_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(file, (line + "\n").data(), static_cast<DWORD>(line.size() + 1), &written, nullptr);
    CloseHandle(file);
}

enum Member : DISPID {
    Title = 1,
    SetDataText,
    WindowStyle,
    Open,
    ShowWindow,
    PrintOutBk,
    PrintOutFromDialog,
    Echo,
    Fails,
    Gives,
};
constexpr struct {
    const wchar_t *name;
    Member member;
    WORD kind;
    UINT arguments;
} kMembers[] = {
    {L"Title", Title, DISPATCH_PROPERTYPUT, 1},
    {L"SetDataText", SetDataText, DISPATCH_METHOD, 5},
    {L"WindowStyle", WindowStyle, DISPATCH_PROPERTYPUT, 1},
    {L"Open", Open, DISPATCH_METHOD, 1},
    {L"ShowWindow", ShowWindow, DISPATCH_PROPERTYPUT, 1},
    {L"PrintOutBk", PrintOutBk, DISPATCH_METHOD, 3},
    {L"PrintOutFromDialog", PrintOutFromDialog, DISPATCH_METHOD, 0},
    {L"Echo", Echo, DISPATCH_METHOD, 1},
    {L"Fails", Fails, DISPATCH_METHOD, 1},
    {L"Gives", Gives, DISPATCH_METHOD, 1},
};

HRESULT WINAPI fillInLate(EXCEPINFO *result)
{
    result->wCode = 1234;
    result->bstrDescription = SysAllocString(L"後から分かった失敗です。");
    return S_OK;
}

/// The failures by name.
HRESULT fail(const std::wstring &way, EXCEPINFO *exception)
{
    if (way == L"code") {
        exception->wCode = 1004;
        exception->bstrSource = SysAllocString(L"文書");
        exception->bstrDescription = SysAllocString(L"帳票 \"委任状\" を開けません。");
    } else if (way == L"late") {
        exception->pfnDeferredFillIn = fillInLate;
    } else if (way == L"scode") {
        exception->scode = E_FAIL;
        exception->bstrDescription = SysAllocString(L"プリンターがありません。");
    } else if (way == L"runtime") {
        exception->scode = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, 53);
    } else if (way == L"wordless") {
        exception->wCode = 1004;
    } else if (way == L"known") {
        exception->scode = DISP_E_OVERFLOW;
    } else if (way != L"nothing") {
        return std::wcstol(way.c_str(), nullptr, 10); // the HRESULT itself
    }
    return DISP_E_EXCEPTION;
}

void give(const std::wstring &what, VARIANT &result, IDispatch *self)
{
    static int byReference = 77;
    const auto put = [&](VARENUM type) { result.vt = static_cast<VARTYPE>(type); };
    if (what == L"true") {
        put(VT_BOOL);
        result.boolVal = VARIANT_TRUE;
    } else if (what == L"byte") {
        put(VT_UI1);
        result.bVal = 200;
    } else if (what == L"word") {
        put(VT_UI2);
        result.uiVal = 65535;
    } else if (what == L"unsigned") {
        put(VT_UI4);
        result.ulVal = 4000000000U;
    } else if (what == L"single") {
        put(VT_R4);
        result.fltVal = 0.5F;
    } else if (what == L"currency") {
        put(VT_CY);
        result.cyVal.int64 = 12345;
    } else if (what == L"reference") {
        put(VT_I4);
        result.vt |= VT_BYREF;
        result.plVal = reinterpret_cast<LONG *>(&byReference);
    } else if (what == L"object") {
        put(VT_DISPATCH);
        result.pdispVal = self;
        self->AddRef();
    } else if (what == L"error") {
        put(VT_ERROR);
        result.scode = DISP_E_PARAMNOTFOUND;
    } else if (what == L"texts") {
        put(VT_BSTR);
        result.vt |= VT_ARRAY;
        result.parray = SafeArrayCreateVector(VT_BSTR, 0, 2);
    }
}

/// Base of an object that ends with its last reference; QueryInterface finds its interface.
template <class Face> class Counted : public Face {
public:
    Counted() { ++g_living; }
    Counted(const Counted &) = delete;
    Counted &operator=(const Counted &) = delete;
    virtual ~Counted() { --g_living; }

    HRESULT WINAPI QueryInterface(REFIID id, void **object) override
    {
        const bool byName = std::is_same_v<Face, IDispatch> && IsEqualIID(id, IID_IDispatch);
        const bool known = byName || IsEqualIID(id, IID_IUnknown);
        *object = known ? this : nullptr;
        if (known) AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG WINAPI AddRef() override { return static_cast<ULONG>(++m_references); }
    ULONG WINAPI Release() override
    {
        const LONG left = --m_references;
        if (left == 0) delete this;
        return static_cast<ULONG>(left);
    }

private:
    std::atomic<LONG> m_references{1};
};

class Faceless final : public Counted<IUnknown> {};

class Document final : public Counted<IDispatch> {
public:
    HRESULT WINAPI GetTypeInfoCount(UINT *count) override
    {
        *count = 0;
        return S_OK;
    }
    HRESULT WINAPI GetTypeInfo(UINT, LCID, ITypeInfo **) override { return E_NOTIMPL; }
    HRESULT WINAPI GetIDsOfNames(REFIID, LPOLESTR *names, UINT, LCID, DISPID *ids) override
    {
        *ids = DISPID_UNKNOWN;
        for (const auto &row : kMembers)
            if (lstrcmpiW(row.name, names[0]) == 0) *ids = row.member;
        return *ids == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
    }
    HRESULT WINAPI Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS *given, VARIANT *result, EXCEPINFO *exception,
                          UINT *) override
    {
        const auto &row = kMembers[id - 1];
        std::string line = kindOf(flags) + " " + utf8(row.name, lstrlenW(row.name));
        for (UINT at = given->cArgs; at > 0; --at)
            line += (at == given->cArgs ? ": " : ", ") + argumentText(given->rgvarg[at - 1]);
        if (given->cNamedArgs != (flags == DISPATCH_PROPERTYPUT ? 1U : 0U)) line += " with a wrong name";
        if (flags == DISPATCH_PROPERTYPUT && given->rgdispidNamedArgs[0] != DISPID_PROPERTYPUT)
            line += " named wrongly";
        note(line);
        if (flags != row.kind) return DISP_E_MEMBERNOTFOUND;
        if (given->cArgs != row.arguments) return DISP_E_BADPARAMCOUNT;
        return answer(row.member, *given, result, exception);
    }

private:
    HRESULT answer(Member member, const DISPPARAMS &given, VARIANT *result, EXCEPINFO *exception)
    {
        if (member == Echo) return VariantCopy(result, &given.rgvarg[0]);
        if (member == PrintOutBk && given.rgvarg[0].vt != VT_I2) return DISP_E_TYPEMISMATCH;
        if (member == Fails) return fail(given.rgvarg[0].bstrVal, exception);
        if (member == Gives) give(given.rgvarg[0].bstrVal, *result, this);
        return S_OK;
    }
};

template <class Object> class Factory final : public IClassFactory {
public:
    HRESULT WINAPI QueryInterface(REFIID id, void **object) override
    {
        const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IClassFactory);
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG WINAPI AddRef() override { return 2; } // it lives as long as the library
    ULONG WINAPI Release() override { return 1; }
    HRESULT WINAPI CreateInstance(IUnknown *outer, REFIID id, void **object) override
    {
        if (outer != nullptr) return CLASS_E_NOAGGREGATION;
        auto *const made = new (std::nothrow) Object;
        if (made == nullptr) return E_OUTOFMEMORY;
        const HRESULT outcome = made->QueryInterface(id, object);
        made->Release();
        return outcome;
    }
    HRESULT WINAPI LockServer(BOOL) override { return S_OK; }
};

constexpr CLSID kDocument = {0x6F0A2C31, 0x5B7E, 0x4D52, {0x9C, 0x11, 0x3E, 0x8A, 0x90, 0x27, 0x54, 0x01}};
constexpr CLSID kFaceless = {0x6F0A2C31, 0x5B7E, 0x4D52, {0x9C, 0x11, 0x3E, 0x8A, 0x90, 0x27, 0x54, 0x02}};

} // namespace

extern "C" __declspec(dllexport) HRESULT WINAPI DllGetClassObject(REFCLSID classId, REFIID id, void **object)
{
    static Factory<Document> documents;
    static Factory<Faceless> faceless;
    *object = nullptr;
    if (IsEqualCLSID(classId, kDocument)) return documents.QueryInterface(id, object);
    if (IsEqualCLSID(classId, kFaceless)) return faceless.QueryInterface(id, object);
    return CLASS_E_CLASSNOTAVAILABLE;
}

/// Only after every object is released.
extern "C" __declspec(dllexport) HRESULT WINAPI DllCanUnloadNow()
{
    return g_living == 0 ? S_OK : S_FALSE;
}
