#pragma once

#include <string>

#include <doctest/doctest.h>
#include <windows.h>

namespace inin {

/// A key below HKEY_LOCAL_MACHINE\Software\Classes, removed with its content after the test. Wine looks for classes
/// only there, not among those of the user.
class ClassesKey {
public:
    explicit ClassesKey(const std::wstring &name) : m_name(L"Software\\Classes\\" + name)
    {
        REQUIRE(RegDeleteTreeW(HKEY_LOCAL_MACHINE, m_name.c_str()) != ERROR_ACCESS_DENIED);
        put(L"", L"");
    }
    ClassesKey(const ClassesKey &) = delete;
    ClassesKey &operator=(const ClassesKey &) = delete;
    ~ClassesKey() { RegDeleteTreeW(HKEY_LOCAL_MACHINE, m_name.c_str()); }

    /// Sets a value of the key `below`; the default value if the name is empty.
    void put(const std::wstring &below, const std::wstring &value, const wchar_t *name = nullptr) const
    {
        const std::wstring key = below.empty() ? m_name : m_name + L"\\" + below;
        const auto size = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
        REQUIRE(RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), name, REG_SZ, value.c_str(), size) == ERROR_SUCCESS);
    }

private:
    std::wstring m_name;
};

} // namespace inin
