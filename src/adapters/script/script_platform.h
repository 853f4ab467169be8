#pragma once

#include "adapters/script/recording_ports.h"
#include "adapters/script/script_player.h"
#include "adapters/script/script_windows.h"
#include "platform/clock.h"

#include <chrono>
#include <memory>
#include <thread>

namespace inin::script {

/// A clock that is stopped at a given moment. Its timer starts at that moment and runs, so that every wait ends.
class StoppedClock : public Clock {
public:
    explicit StoppedClock(Date now) : m_now(now) {}
    [[nodiscard]] Date now() override { return m_now; }
    [[nodiscard]] double timer() override;
    void pause(std::chrono::milliseconds time) override { std::this_thread::sleep_for(time); }

private:
    Date m_now;
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

/// Thrown by the end statement. Not a RuntimeError, so that nothing in the program traps it.
struct ScriptEnded {};

/// Answers each box at once (OK, or Cancel for a question), so that no play hangs.
class AnsweringBoxes : public MessageBoxes {
public:
    void show(const std::string &, Icon, const std::string &) override {}
    [[nodiscard]] bool askRetry(const std::string &, Icon, const std::string &) override { return false; }
};

/// Starts programs only if the command line of the play asks for it, and opens no address: a play has no user who would
/// read the page.
class ScriptProcesses : public Processes {
public:
    ScriptProcesses(std::unique_ptr<Processes> system, bool startProcesses)
        : m_system(std::move(system)), m_startProcesses(startProcesses)
    {
    }
    void start(const std::string &commandLine, WindowStyle style) override
    {
        if (m_startProcesses) m_system->start(commandLine, style);
    }
    void openAddress(const std::string &) override {}
    [[nodiscard]] std::optional<std::string> computerName(std::size_t capacity) override
    {
        return m_system->computerName(capacity);
    }
    [[nodiscard]] std::uint32_t processId() override { return m_system->processId(); }
    [[noreturn]] void end() override { throw ScriptEnded{}; }

private:
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
    AnsweringBoxes m_answers;
    ScriptProcesses m_starts;
    RecordingDatabase m_database;
    RecordingBoxes m_boxes;
    RecordingProcesses m_processes;
    ScriptWindows m_windows;
};

} // namespace inin::script
