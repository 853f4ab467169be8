#pragma once

#include "system/posix_io.h"

#include <string>
#include <string_view>

#include <sys/stat.h>

namespace inin {

/// Writes a file anew. The new file takes its name only when it is complete, in place of an older file or link of that
/// name, so that a reader sees the old bytes or the new ones. It has the given rights until keepRights() succeeds.
///
/// Until then it has no name, and disappears with the process. Where the file system has no unnamed files it is
/// ".inin-N.tmp" in the same folder, as it is for a moment when an older file is replaced. That name is removed by the
/// destructor and by SIGHUP, SIGINT and SIGTERM; one left by a killed process, by the next replacement in that folder.
class FileReplacement {
public:
    enum class Storage { unnamedIfPossible, named };

    static constexpr mode_t kOwnerOnly = S_IRUSR | S_IWUSR;
    static constexpr mode_t kByTheMask = 0666;

    explicit FileReplacement(std::string systemPath, mode_t rights = kOwnerOnly,
                             Storage storage = Storage::unnamedIfPossible);
    FileReplacement(const FileReplacement &) = delete;
    FileReplacement &operator=(const FileReplacement &) = delete;
    ~FileReplacement();

    [[nodiscard]] bool isOpen() const { return m_file.isOpen(); }
    /// Gives the new file the owner, the group and the rights of the old one; false when the system refuses any of them.
    [[nodiscard]] bool keepRights(const struct stat &old);
    // Both are false with errno on a failure.
    [[nodiscard]] bool write(std::string_view bytes) { return writeAll(m_file, bytes); }
    /// Stores the bytes on the disk and gives the file its name.
    [[nodiscard]] bool commit();

private:
    void openUnnamed();
    void openNamed();
    [[nodiscard]] bool linkAs(const std::string &path) const;
    [[nodiscard]] bool linkAsTemporary();
    void setTemporary(std::string path);
    void forgetTemporary();

    std::string m_target, m_folder; ///< the folder with its slash; empty for the current one
    std::string m_temporary;        ///< empty while the file has no name
    mode_t m_rights;                ///< of the new file, as the process's mask permits
    FileDescriptor m_file;
};

} // namespace inin
