#pragma once

#include <cerrno>
#include <functional>
#include <string>

#include <sys/wait.h>
#include <unistd.h>

namespace inin {

inline constexpr uid_t kOrdinaryUser = 65534;

/// Runs `body` in a child process as an ordinary user, to whom file permissions apply, and returns its text. A test run
/// by root drops its privileges first.
inline std::string asOrdinaryUser(const std::function<std::string()> &body)
{
    int ends[2];
    if (pipe(ends) != 0) return "no pipe";
    const pid_t child = fork();
    if (child == 0) {
        const bool ordinary = geteuid() != 0 || (setgid(kOrdinaryUser) == 0 && setuid(kOrdinaryUser) == 0);
        const std::string result = ordinary ? body() : "the rights cannot be given up";
        (void)!write(ends[1], result.data(), result.size());
        _exit(0);
    }
    close(ends[1]);
    std::string result;
    char piece[4096];
    for (ssize_t got = 0; (got = read(ends[0], piece, sizeof piece)) > 0;)
        result.append(piece, static_cast<size_t>(got));
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? result : "the child ended badly";
}

} // namespace inin
