#include "adapters/script/script_clock.h"

#include "adapters/script/script_player.h"

#include <array>
#include <charconv>
#include <cmath>

namespace inin::script {

double StoppedClock::timer()
{
    constexpr double kSecondsOfDay = 86400;
    const DateParts parts = partsOf(m_now);
    const std::chrono::duration<double> gone = std::chrono::steady_clock::now() - m_start;
    return std::fmod(parts.hour * 3600 + parts.minute * 60 + parts.second + gone.count(), kSecondsOfDay);
}

namespace {

/// The digits of one part of a moment and the character that must follow them.
struct MomentPart {
    std::int32_t DateParts::*part;
    std::size_t digits;
    std::string_view then;
    std::int32_t least, most;
};
constexpr MomentPart kMomentParts[] = {
    {&DateParts::year, 4, "-", 100, 9999}, {&DateParts::month, 2, "-", 1, 12},  {&DateParts::day, 2, " ", 1, 31},
    {&DateParts::hour, 2, ":", 0, 23},     {&DateParts::minute, 2, ":", 0, 59}, {&DateParts::second, 2, "", 0, 59},
};

bool readPart(std::string_view &text, const MomentPart &part, DateParts &parts)
{
    if (text.size() < part.digits) return false;
    const char *end = text.data() + part.digits;
    std::int32_t value = -1;
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc{} || stop != end || value < part.least || value > part.most) return false;
    parts.*part.part = value;
    text.remove_prefix(part.digits);
    if (!text.starts_with(part.then)) return false;
    text.remove_prefix(part.then.size());
    return true;
}

} // namespace

std::optional<Date> readMoment(std::string_view text)
{
    DateParts parts;
    for (const MomentPart &part : kMomentParts)
        if (!readPart(text, part, parts)) return std::nullopt;
    const std::chrono::year_month_day day{std::chrono::year{parts.year},
                                          std::chrono::month{static_cast<unsigned>(parts.month)},
                                          std::chrono::day{static_cast<unsigned>(parts.day)}};
    if (!text.empty() || !day.ok()) return std::nullopt;
    return dateOf(parts);
}

} // namespace inin::script
