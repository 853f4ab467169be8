#include "adapters/script/script_platform.h"

#include "adapters/native/native_platform.h"
#include "adapters/script/script_player.h"

#include <array>
#include <charconv>
#include <cmath>
#include <stdexcept>

namespace inin::script {

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

std::unique_ptr<Clock> makeClock(const ScriptOptions &options)
{
    if (options.now) return std::make_unique<StoppedClock>(*options.now);
    return makeSystemClock();
}

/// The system's processes are used only for starts and the computer's name; the end statement is handled by the play.
[[noreturn]] void endOfAnother()
{
    throw std::logic_error("the end statement went past the play");
}

} // namespace

double StoppedClock::timer()
{
    constexpr double kSecondsOfDay = 86400;
    const DateParts parts = partsOf(m_now);
    const std::chrono::duration<double> gone = std::chrono::steady_clock::now() - m_start;
    return std::fmod(parts.hour * 3600 + parts.minute * 60 + parts.second + gone.count(), kSecondsOfDay);
}

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

ScriptPlatform::ScriptPlatform(const ScriptOptions &options, Transcript &transcript, CommandReader &commands,
                               Database &database)
    : m_profile(makeSystemProfile()), m_files(makeSystemFiles(options.applicationFolder)), m_clock(makeClock(options)),
      m_locale(makeSystemLocale()), m_automation(makeSystemAutomation()),
      m_starts(makeSystemProcesses(endOfAnother), options.startProcesses), m_database(database, transcript),
      m_boxes(transcript, m_answers), m_processes(transcript, m_starts),
      m_windows(transcript, commands, *m_files, m_locale->regional())
{
}

Platform ScriptPlatform::platform()
{
    return {m_boxes, m_windows, m_database, *m_profile, *m_files, m_processes, *m_clock, *m_locale, *m_automation};
}

} // namespace inin::script
