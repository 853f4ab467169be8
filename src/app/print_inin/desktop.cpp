#include "app/print_inin/desktop.h"

#include "adapters/native/native_platform.h"
#include "adapters/suite/data_source.h"
#include "adapters/suite/suite_database.h"

#include <cstdlib>

namespace inin {

namespace {

/// The end statement: nothing of the program runs after it, not even destructors.
[[noreturn]] void endAtOnce()
{
    std::_Exit(0);
}

} // namespace

Desktop::Desktop(const std::string &folder, qt::EventEdge &edge, qt::FontReading &fonts)
    : m_profile(makeSystemProfile()), m_files(makeSystemFiles(folder)), m_clock(makeSystemClock()),
      m_locale(makeSystemLocale()), m_processes(makeSystemProcesses(endAtOnce)), m_automation(makeSystemAutomation()),
      m_database(makeSuiteDatabase(dataSourceIn(folder))),
      m_windows(*m_files, {edge, [this] { return m_clock->today(); }, systemPath, [&fonts] { fonts.finish(); }}),
      m_boxes(edge, [&fonts] { fonts.finish(); })
{
}

Platform Desktop::platform()
{
    return {m_boxes, m_windows, *m_database, *m_profile, *m_files, *m_processes, *m_clock, *m_locale, *m_automation};
}

} // namespace inin
