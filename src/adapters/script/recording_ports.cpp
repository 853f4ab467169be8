#include "adapters/script/recording_ports.h"

#include "runtime/runtime_error.h"

#include <stdexcept>

namespace inin::script {

void RecordingBoxes::show(const std::string &text, Icon icon, const std::string &title)
{
    m_transcript.box(text, icon, title);
    m_inner.show(text, icon, title);
}

bool RecordingBoxes::askRetry(const std::string &text, Icon icon, const std::string &title)
{
    m_transcript.box(text, icon, title);
    return m_inner.askRetry(text, icon, title);
}

void RecordingProcesses::start(const std::string &commandLine, WindowStyle style)
{
    m_transcript.start(commandLine, style);
    m_inner.start(commandLine, style);
}

void RecordingProcesses::openAddress(const std::string &address)
{
    m_transcript.address(address);
    m_inner.openAddress(address);
}

std::optional<std::string> RecordingProcesses::computerName(std::size_t capacity)
{
    return m_inner.computerName(capacity);
}

void RecordingProcesses::end()
{
    m_transcript.end(0);
    m_inner.end();
    // The compiler does not know that end() never returns.
    throw std::logic_error("the end statement came back");
}

void RecordingWindows::show(Form &form, Modality modality)
try {
    form.onMousePointer = [this](std::int16_t kind) { m_transcript.pointer(kind); };
    form.load();
    if (!form.isLoaded()) return; // its own load has unloaded it: it is never shown
    m_transcript.followWindow(form);
    m_inner.show(form, modality);
} catch (const UnhandledError &unhandled) {
    // Recorded here, before unwinding destroys the program's objects.
    m_transcript.fatal(unhandled.error().number(), unhandled.error().description());
    throw;
}

void RecordingWindows::beep()
{
    m_transcript.beep();
    m_inner.beep();
}

} // namespace inin::script
