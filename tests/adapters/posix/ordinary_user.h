#pragma once

#include "support/child_process.h"

namespace inin {

inline constexpr uid_t kOrdinaryUser = 65534;

/// Runs `body` in a child process as an ordinary user, to whom file permissions apply, and returns its text. A test run
/// by root drops its privileges first.
inline std::string asOrdinaryUser(const std::function<std::string()> &body)
{
    const ChildEnd end = inChild([&] {
        const bool ordinary = geteuid() != 0 || (setgid(kOrdinaryUser) == 0 && setuid(kOrdinaryUser) == 0);
        return ordinary ? body() : "the rights cannot be given up";
    });
    return end.isGood() ? end.text : "the child ended badly";
}

} // namespace inin
