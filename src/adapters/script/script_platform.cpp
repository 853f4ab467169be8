#include "adapters/script/script_platform.h"

#include "adapters/native/native_platform.h"
#include "adapters/script/script_clock.h"

#include <stdexcept>

namespace inin::script {

void ScriptBoxes::show(const std::string &text, Icon icon, const std::string &title)
{
    m_transcript.box(text, icon, title);
}

bool ScriptBoxes::askRetry(const std::string &text, Icon icon, const std::string &title)
{
    m_transcript.box(text, icon, title);
    return false;
}

void ScriptProcesses::start(const std::string &commandLine, WindowStyle style)
{
    m_transcript.start(commandLine, style);
    if (m_startProcesses) m_system->start(commandLine, style);
}

void ScriptProcesses::openAddress(const std::string &address)
{
    m_transcript.address(address);
}

std::optional<std::string> ScriptProcesses::computerName(std::size_t capacity)
{
    return m_system->computerName(capacity);
}

void ScriptProcesses::end()
{
    m_transcript.end(kPlayedToTheEnd);
    throw ScriptEnded{};
}

namespace {

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

ScriptPlatform::ScriptPlatform(const ScriptOptions &options, Transcript &transcript, CommandReader &commands,
                               Database &database)
    : m_profile(makeSystemProfile()), m_files(makeSystemFiles(options.applicationFolder)), m_clock(makeClock(options)),
      m_locale(makeSystemLocale()), m_automation(makeSystemAutomation()), m_database(database, transcript),
      m_boxes(transcript), m_processes(transcript, makeSystemProcesses(endOfAnother), options.startProcesses),
      m_windows(transcript, commands, *m_files, m_locale->regional())
{
}

Platform ScriptPlatform::platform()
{
    return {m_boxes, m_windows, m_database, *m_profile, *m_files, m_processes, *m_clock, *m_locale, *m_automation};
}

} // namespace inin::script
