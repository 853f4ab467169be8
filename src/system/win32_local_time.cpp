#include "system/local_time.h"

#include <windows.h>

namespace inin {

namespace {

SYSTEMTIME localTime()
{
    SYSTEMTIME time{};
    GetLocalTime(&time);
    return time;
}

} // namespace

Date presentMoment()
{
    const SYSTEMTIME time = localTime();
    return dateOf({time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond});
}

double secondsSinceMidnight()
{
    const SYSTEMTIME time = localTime();
    return time.wHour * 3600 + time.wMinute * 60 + time.wSecond + time.wMilliseconds / 1000.0;
}

} // namespace inin
