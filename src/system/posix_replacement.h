#pragma once

#include "system/posix_io.h"

#include <functional>
#include <string>
#include <string_view>

#include <signal.h>

namespace inin {

/// Signals wait while it lives, on this thread: a request to end the process does not leave a half-written file behind.
class BlockedSignals {
public:
    BlockedSignals();
    BlockedSignals(const BlockedSignals &) = delete;
    BlockedSignals &operator=(const BlockedSignals &) = delete;
    ~BlockedSignals();

private:
    sigset_t m_before{};
};

/// New content for a file, complete before it takes the place of the old one. It has no name until it is complete,
/// where the system has such files; elsewhere, and for the moment between the two last calls, it is "NAME.~PID-N" in the
/// same folder. It is locked all the while, so that one that was left behind can be told from one in use.
class Replacement {
public:
    explicit Replacement(const std::string &target);
    Replacement(const Replacement &) = delete;
    Replacement &operator=(const Replacement &) = delete;
    ~Replacement();

    /// False when the folder takes no new file, or none with the owner and the rights of `old`.
    [[nodiscard]] bool canReplace(const struct stat *old) const;
    /// Writes the bytes to the disk and takes the target's name; the old content stays on a failure.
    [[nodiscard]] bool commit(std::string_view bytes);

private:
    [[nodiscard]] FileDescriptor create();
    [[nodiscard]] bool takeName(const std::function<bool(const std::string &name)> &isTaken);

    BlockedSignals m_blocked;
    std::string m_target;
    std::string m_name; ///< empty while it has none
    FileDescriptor m_file;
};

/// Removes what killed processes have left of their replacements of the file.
void removeAbandonedReplacements(const std::string &target);

} // namespace inin
