#include "adapters/script/telling_ports.h"

#include "runtime/runtime_error.h"

#include <memory>
#include <stdexcept>

namespace inin {

void TellingBoxes::show(const std::string &text, Icon icon, const std::string &title)
{
    m_transcript.write({{"event", "box"},
                        {"text", text},
                        {"icon", static_cast<int>(icon)},
                        {"title", title.empty() ? std::string(kApplicationTitle) : title}});
    m_inner.show(text, icon, title);
}

void TellingProcesses::start(const std::string &commandLine, WindowStyle style)
{
    m_transcript.write({{"event", "start"}, {"command", commandLine}, {"style", static_cast<int>(style)}});
    m_inner.start(commandLine, style);
}

void TellingProcesses::openAddress(const std::string &address)
{
    m_transcript.write({{"event", "open"}, {"address", address}});
    m_inner.openAddress(address);
}

std::optional<std::string> TellingProcesses::computerName(std::size_t capacity)
{
    return m_inner.computerName(capacity);
}

void TellingProcesses::end()
{
    m_transcript.write({{"event", "end"}, {"code", 0}});
    m_transcript.close();
    m_inner.end();
    // The compiler does not see through the port that nothing comes back from there.
    throw std::logic_error("the end statement came back");
}

void TellingWindows::show(Form &form, Modality modality)
try {
    form.onMousePointer = [this](std::int16_t kind) { m_transcript.write({{"event", "pointer"}, {"kind", kind}}); };
    form.load();
    if (!form.isLoaded()) return; // its own load has unloaded it: it is never seen
    tellShown(form, true);
    const auto shown = std::make_shared<bool>(true);
    form.watch([this, &form, shown] {
        if (!*shown || form.isLoaded()) return;
        *shown = false;
        tellShown(form, false);
    });
    m_inner.show(form, modality);
} catch (const UnhandledError &unhandled) {
    // Told here, before the program's objects are torn down on the way out.
    m_transcript.fatal(unhandled.error().number(), unhandled.error().description());
    throw;
}

void TellingWindows::tellShown(const Form &form, bool shown)
{
    m_transcript.write({{"event", "window"}, {"name", form.name()}, {"shown", shown}});
}

void TellingWindows::beep()
{
    m_transcript.write({{"event", "beep"}});
    m_inner.beep();
}

} // namespace inin
