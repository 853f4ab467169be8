#include "system/local_time.h"

#include <algorithm>
#include <chrono>
#include <ctime>

namespace inin {

namespace {

std::tm localParts(std::time_t seconds)
{
    std::tm parts{};
    localtime_r(&seconds, &parts);
    return parts;
}

} // namespace

Date presentMoment()
{
    const std::tm parts = localParts(std::time(nullptr));
    return dateOf({parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min,
                   std::min(parts.tm_sec, 59)});
}

double secondsSinceMidnight()
{
    using namespace std::chrono;
    const auto time = system_clock::now();
    const auto whole = floor<seconds>(time);
    const std::tm parts = localParts(system_clock::to_time_t(whole));
    return parts.tm_hour * 3600 + parts.tm_min * 60 + parts.tm_sec + duration<double>(time - whole).count();
}

} // namespace inin
