#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace inin {

/// The window of a started program, with the runtime's numbers.
enum class WindowStyle : std::int16_t { normalFocus = 1, minimizedFocus = 2, maximizedFocus = 3 };

class Processes {
public:
    Processes() = default;
    Processes(const Processes &) = delete;
    Processes &operator=(const Processes &) = delete;
    virtual ~Processes() = default;

    /// Starts a command line without waiting for its end. Error 53 when the program cannot be found or started.
    virtual void start(const std::string &commandLine, WindowStyle style) = 0;
    /// Opens an address in its default program. Failures are not reported.
    virtual void openAddress(const std::string &address) = 0;
    /// The computer's name; nothing when it does not fit into `capacity` bytes with its NUL.
    [[nodiscard]] virtual std::optional<std::string> computerName(std::size_t capacity) = 0;
    /// The system's id of this process.
    [[nodiscard]] virtual std::uint32_t processId() = 0;
    /// The End statement: ends the process at once, without further events.
    [[noreturn]] virtual void end() = 0;
};

} // namespace inin
