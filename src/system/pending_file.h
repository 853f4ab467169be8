#pragma once

#include "system/whole_file.h"

namespace inin {

// The parts of whole_file.h that each system implements.

/// Appends up to `size` bytes, fewer only at the end of the file; false on failure. Does not lock the file.
[[nodiscard]] bool readBytes(const std::string &systemPath, std::size_t size, std::string &bytes);

/// A new file that gets its name on commit(). Otherwise it is removed, also when the process is killed.
class PendingFile {
public:
    PendingFile() = default;
    PendingFile(const PendingFile &) = delete;
    PendingFile &operator=(const PendingFile &) = delete;
    virtual ~PendingFile() = default;

    // Both return false on failure.
    [[nodiscard]] virtual bool write(std::string_view bytes) = 0;
    /// Stores the file on the disk and replaces an older one, whose rights it keeps on POSIX systems.
    [[nodiscard]] virtual bool commit() = 0;
};
/// Null if the folder permits no new file.
[[nodiscard]] std::unique_ptr<PendingFile> createPendingFile(const std::string &systemPath, NewFile rights);

} // namespace inin
