#pragma once

#include <windows.h>

#include <oleauto.h>

namespace inin::win32 {

/// An object's own description of a failure.
class ComException {
public:
    ComException() = default;
    ComException(const ComException &) = delete;
    ComException &operator=(const ComException &) = delete;
    ~ComException();
    [[nodiscard]] EXCEPINFO *address() { return &m_info; }
    /// Raises it with the object's own number and text.
    [[noreturn]] void fail();

private:
    EXCEPINFO m_info{};
};

/// Raises the runtime's error for a failed COM call.
[[noreturn]] void failCom(HRESULT result);
inline void checkCom(HRESULT result)
{
    if (FAILED(result)) failCom(result);
}

} // namespace inin::win32
