#pragma once

#include <csignal>
#include <exception>
#include <functional>
#include <string>

#include <sys/wait.h>
#include <unistd.h>

namespace inin {

/// How a child process ended.
struct ChildEnd {
    std::string text; ///< the result of its body
    int status = -1;  ///< as reported by the system
    [[nodiscard]] bool isGood() const { return WIFEXITED(status) && WEXITSTATUS(status) == 0; }
    [[nodiscard]] bool isKilled() const { return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL; }
};

/// Runs `body` in a child process, which ends without destructors of global objects. An exception is its text, and a bad
/// end.
inline ChildEnd inChild(const std::function<std::string()> &body)
{
    int ends[2];
    if (pipe(ends) != 0) return {"no pipe"};
    const pid_t child = fork();
    if (child == 0) {
        std::string result;
        int code = 0;
        try {
            result = body();
        } catch (const std::exception &error) {
            result = error.what();
            code = 1;
        } catch (...) {
            code = 1;
        }
        (void)!write(ends[1], result.data(), result.size());
        _exit(code);
    }
    close(ends[1]);
    ChildEnd end;
    char piece[4096];
    for (ssize_t got = 0; (got = read(ends[0], piece, sizeof piece)) > 0;)
        end.text.append(piece, static_cast<std::size_t>(got));
    close(ends[0]);
    waitpid(child, &end.status, 0);
    return end;
}

} // namespace inin
