#include "adapters/native/native_platform.h"
#include "adapters/posix/command_line.h"
#include "runtime/runtime_error.h"
#include "system/posix_io.h"
#include "system/web_address.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <string_view>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace inin::posix {

namespace {

/// Executes the program; if that fails, writes errno to `report` and exits. Only async-signal-safe calls are allowed
/// between fork and exec.
[[noreturn]] void becomeProgram(const char *program, char *const *arguments, int nullDevice, int report)
{
    setsid();
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(nullDevice, stream);
    execv(program, arguments);
    const int error = errno;
    (void)!write(report, &error, sizeof error);
    _exit(127);
}

/// Starts a program as a grandchild; the child exits at once and is waited for, so that no zombie remains. Returns true
/// once the program runs: the pipe is closed by a successful exec and carries errno of a failed one.
bool spawn(const std::string &program, std::vector<std::string> arguments)
{
    arguments.insert(arguments.begin(), program);
    std::vector<char *> pointers;
    pointers.reserve(arguments.size() + 1);
    for (std::string &argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);

    std::array<int, 2> ends{};
    const FileDescriptor nullDevice(open("/dev/null", O_RDWR | O_CLOEXEC));
    if (!nullDevice.isOpen() || pipe2(ends.data(), O_CLOEXEC) != 0) return false;
    const FileDescriptor reading(ends[0]);
    FileDescriptor writing(ends[1]);

    const pid_t child = fork();
    if (child < 0) return false;
    if (child == 0) {
        const pid_t grandchild = fork();
        if (grandchild == 0) becomeProgram(program.c_str(), pointers.data(), nullDevice.get(), writing.get());
        const int error = errno;
        if (grandchild < 0) (void)!write(writing.get(), &error, sizeof error);
        _exit(0);
    }
    writing.close();
    while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) continue;
    std::string report;
    return readUpTo(reading, sizeof(int), report) && report.empty();
}

class PosixProcesses : public Processes {
public:
    explicit PosixProcesses(std::function<void()> end) : m_end(std::move(end)) {}

    /// The window style has no counterpart: the window manager places windows.
    void start(const std::string &commandLine, WindowStyle) override
    {
        const auto command = parseCommandLine(commandLine);
        if (!command || !spawn(command->program, command->arguments)) throw RuntimeError(error_number::fileNotFound);
    }

    void openAddress(const std::string &address) override
    {
        if (!isWebAddress(address)) return;
        // The port does not report the result.
        if (const auto opener = findSystemProgram("xdg-open")) (void)spawn(*opener, {address});
    }

    std::optional<std::string> computerName(std::size_t capacity) override
    {
        std::array<char, 256> buffer{};
        if (gethostname(buffer.data(), buffer.size() - 1) != 0) return std::nullopt;
        const std::string whole = buffer.data();
        const std::string name = whole.substr(0, whole.find('.'));
        if (name.size() + 1 > capacity) return std::nullopt;
        return name;
    }

    std::uint32_t processId() override { return static_cast<std::uint32_t>(getpid()); }

    [[noreturn]] void end() override
    {
        if (m_end) m_end();
        std::_Exit(0);
    }

private:
    std::function<void()> m_end;
};

} // namespace

} // namespace inin::posix

std::unique_ptr<inin::Processes> inin::makeSystemProcesses(std::function<void()> end)
{
    return std::make_unique<posix::PosixProcesses>(std::move(end));
}
