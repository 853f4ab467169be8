#include "adapters/native/native_platform.h"

#include <windows.h>

namespace inin::win32 {

namespace {

SYSTEMTIME localTime()
{
    SYSTEMTIME time{};
    GetLocalTime(&time);
    return time;
}

class Win32Clock : public Clock {
public:
    Date now() override
    {
        const SYSTEMTIME time = localTime();
        return dateOf({time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond});
    }

    double timer() override
    {
        const SYSTEMTIME time = localTime();
        return time.wHour * 3600 + time.wMinute * 60 + time.wSecond + time.wMilliseconds / 1000.0;
    }

    void pause(std::chrono::milliseconds time) override { Sleep(static_cast<DWORD>(time.count())); }
};

} // namespace

} // namespace inin::win32

std::unique_ptr<inin::Clock> inin::makeSystemClock()
{
    return std::make_unique<win32::Win32Clock>();
}
