#include "adapters/script/script_windows.h"

#include "adapters/script/command_player.h"
#include "adapters/script/state_writer.h"
#include "common/picture.h"
#include "runtime/runtime_error.h"
#include "screen/grid.h"

#include <algorithm>
#include <stdexcept>

namespace inin::script {

namespace {
/// The number of times that a form may refuse to close after the last command before the play fails.
constexpr int kRefusedClosings = 100;
/// Names the grid in a refusal when the form has none.
constexpr const char *kNoGrid = "grid";
} // namespace

void ScriptWindows::show(Form &form, Modality modality)
try {
    form.onMousePointer = [this](std::int16_t kind) { m_transcript.pointer(kind); };
    m_focus[&form] = nullptr; // a new form may have the address of a destroyed one
    form.load();
    if (!form.isLoaded()) return; // its own load has unloaded it: it is never shown
    m_transcript.followWindow(form);
    atEventEdge([&] {
        form.Form_Resize();
        form.Form_Activate();
    });
    if (modality == Modality::modal)
        while (form.isLoaded()) playNext(form);
} catch (const UnhandledError &unhandled) {
    // Recorded here, before unwinding destroys the program's objects.
    m_transcript.fatal(unhandled.error().number(), unhandled.error().description());
    throw;
}

void ScriptWindows::playNext(Form &form)
try {
    if (const std::optional<ScriptCommand> command = m_commands.next()) return play(form, *command);
    closeAtEnd(form);
} catch (const BadScriptCommand &) {
    m_transcript.close();
    throw;
}

void ScriptWindows::play(Form &form, const ScriptCommand &command)
{
    switch (command.kind) {
    case CommandKind::state:
        return m_transcript.write(stateEvent(form, m_regional));
    case CommandKind::close:
        form.unload(true);
        return;
    case CommandKind::row:
        return playRow(form, command);
    case CommandKind::key:
        if (command.control.empty()) return atEventEdge([&] { form.key(nullptr, command.number); });
        [[fallthrough]];
    default:
        playControl(form, command);
    }
}

void ScriptWindows::playControl(Form &form, const ScriptCommand &command)
{
    Control *control = form.find(command.control);
    if (control == nullptr)
        throw BadScriptCommand(command.line, form.name() + " has no control \"" + command.control + "\"");
    playOn(form, *control, command);
}

/// The command does not name a control: it applies to the form's grid.
void ScriptWindows::playRow(Form &form, const ScriptCommand &command)
{
    if (Grid *grid = gridOf(form)) return playOn(form, *grid, command);
    recordRefusal(kNoGrid);
}

void ScriptWindows::playOn(Form &form, Control &control, const ScriptCommand &command)
{
    if (control.isReachable()) m_focus[&form] = &control;
    PlayResult result = PlayResult::done;
    atEventEdge([&] { result = playOnControl(form, control, command, m_regional); });
    if (result == PlayResult::refused) recordRefusal(control.name());
}

void ScriptWindows::closeAtEnd(Form &form)
{
    for (int refused = 0; refused < kRefusedClosings; ++refused)
        if (form.unload(true)) return;
    throw std::runtime_error(form.name() + " refuses to close after the last command");
}

void ScriptWindows::recordRefusal(const std::string &control)
{
    m_transcript.write({{"event", "refused"}, {"control", control}});
}

void ScriptWindows::checkPicture(const std::string &path)
{
    checkPictureFile(m_files, path);
}

void ScriptWindows::beep()
{
    m_transcript.beep();
}

/// Moves the focus to the next usable control in tab order; the first follows the last.
void ScriptWindows::sendTab(Form &form)
{
    std::vector<Control *> stops;
    for (Control *control : form.controls())
        if (control->TabIndex >= 0 && control->isReachable()) stops.push_back(control);
    if (stops.empty()) return;
    std::ranges::stable_sort(stops, {}, &Control::TabIndex);
    const Control *active = activeControl(form);
    const std::int16_t from = active != nullptr ? active->TabIndex : std::int16_t{-1};
    const auto next = std::ranges::upper_bound(stops, from, {}, &Control::TabIndex);
    moveFocus(form, next != stops.end() ? **next : *stops.front());
}

Control *ScriptWindows::activeControl(Form &form)
{
    const auto found = m_focus.find(&form);
    return found != m_focus.end() ? found->second : nullptr;
}

} // namespace inin::script
