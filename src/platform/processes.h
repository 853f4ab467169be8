#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace inin {

/// Window of a started program, numbered as the runtime numbers it.
enum class WindowStyle : std::int16_t { normalFocus = 1, minimizedFocus = 2, maximizedFocus = 3 };

class Processes {
public:
    Processes() = default;
    Processes(const Processes &) = delete;
    Processes &operator=(const Processes &) = delete;
    virtual ~Processes() = default;

    /// Starts a command line and does not wait. Error 53 when the program cannot be found or started.
    virtual void start(const std::string &commandLine, WindowStyle style) = 0;
    /// Opens an address with its default program; the result is not told.
    virtual void openAddress(const std::string &address) = 0;
    /// The computer's name when it fits, with its NUL, into `capacity` bytes.
    [[nodiscard]] virtual std::optional<std::string> computerName(std::size_t capacity) = 0;
    /// The number by which the system knows this process.
    [[nodiscard]] virtual std::uint32_t processId() = 0;
    /// The end statement: the process ends at once, without further events.
    [[noreturn]] virtual void end() = 0;
};

} // namespace inin
