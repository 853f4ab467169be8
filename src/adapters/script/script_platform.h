#pragma once

#include "adapters/script/recording_database.h"
#include "adapters/script/script_player.h"
#include "adapters/script/script_windows.h"

#include <memory>

namespace inin::script {

/// Thrown by the end statement. Not a RuntimeError, so that nothing in the program traps it.
struct ScriptEnded {};

/// Records each box and answers it at once (OK, or Cancel for a question), so that no play hangs.
class ScriptBoxes : public MessageBoxes {
public:
    explicit ScriptBoxes(Transcript &transcript) : m_transcript(transcript) {}
    void show(const std::string &text, Icon icon, const std::string &title) override;
    [[nodiscard]] bool askRetry(const std::string &text, Icon icon, const std::string &title) override;

private:
    Transcript &m_transcript;
};

/// Records each start, and starts the program only if the command line of the play asks for it. An address is only
/// recorded: a play has no user who would read the page.
class ScriptProcesses : public Processes {
public:
    ScriptProcesses(Transcript &transcript, std::unique_ptr<Processes> system, bool startProcesses)
        : m_transcript(transcript), m_system(std::move(system)), m_startProcesses(startProcesses)
    {
    }
    void start(const std::string &commandLine, WindowStyle style) override;
    void openAddress(const std::string &address) override;
    [[nodiscard]] std::optional<std::string> computerName(std::size_t capacity) override;
    [[nodiscard]] std::uint32_t processId() override { return m_system->processId(); }
    [[noreturn]] void end() override;

private:
    Transcript &m_transcript;
    std::unique_ptr<Processes> m_system;
    bool m_startProcesses;
};

/// All ports of a play, with the lifetime of the program.
class ScriptPlatform {
public:
    ScriptPlatform(const ScriptOptions &options, Transcript &transcript, CommandReader &commands, Database &database);
    [[nodiscard]] Platform platform();

private:
    std::unique_ptr<Profile> m_profile;
    std::unique_ptr<Files> m_files;
    std::unique_ptr<Clock> m_clock;
    std::unique_ptr<Locale> m_locale;
    std::unique_ptr<Automation> m_automation;
    RecordingDatabase m_database;
    ScriptBoxes m_boxes;
    ScriptProcesses m_processes;
    ScriptWindows m_windows;
};

} // namespace inin::script
