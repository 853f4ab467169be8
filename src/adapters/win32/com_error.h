#pragma once

#include <windows.h>

#include <oleauto.h>

namespace inin {

/// What an object tells of its own failure.
class ComException {
public:
    ComException() = default;
    ComException(const ComException &) = delete;
    ComException &operator=(const ComException &) = delete;
    ~ComException();
    [[nodiscard]] EXCEPINFO *address() { return &m_told; }
    /// Raises it by the object's own number and words.
    [[noreturn]] void fail();

private:
    EXCEPINFO m_told{};
};

/// Raises what the runtime calls a failure of the system's object calls.
[[noreturn]] void failCom(HRESULT result);
inline void checkCom(HRESULT result)
{
    if (FAILED(result)) failCom(result);
}

} // namespace inin
