#pragma once

#include "adapters/posix/posix_io.h"

#include <functional>
#include <string>
#include <string_view>

#include <signal.h>

namespace inin {

/// Blocks signals on this thread during its lifetime, so that a request to end the process leaves no half-written file.
class BlockedSignals {
public:
    BlockedSignals();
    BlockedSignals(const BlockedSignals &) = delete;
    BlockedSignals &operator=(const BlockedSignals &) = delete;
    ~BlockedSignals();

private:
    sigset_t m_before{};
};

/// New content of a file, completed before it replaces the old file. It has no name until then, where the file system
/// supports that; otherwise, and between the last two system calls, it is "NAME.~PID-N" in the same folder. It stays
/// locked, so that an abandoned one can be distinguished from one in use.
class Replacement {
public:
    explicit Replacement(const std::string &target);
    Replacement(const Replacement &) = delete;
    Replacement &operator=(const Replacement &) = delete;
    ~Replacement();

    /// False if the folder allows no new file, or none with the owner and the permissions of `old`.
    [[nodiscard]] bool canReplace(const struct stat *old) const;
    /// Writes the bytes to the disk and takes the target's name; on failure the old content stays.
    [[nodiscard]] bool commit(std::string_view bytes);

private:
    [[nodiscard]] FileDescriptor create();
    [[nodiscard]] bool takeName(const std::function<bool(const std::string &name)> &isTaken);

    BlockedSignals m_blocked;
    std::string m_target;
    std::string m_name; ///< empty while the file has no name
    FileDescriptor m_file;
};

/// Removes replacements of the file that killed processes left.
void removeAbandonedReplacements(const std::string &target);

} // namespace inin
