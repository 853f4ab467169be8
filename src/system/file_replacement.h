#pragma once

#include "system/posix_io.h"

#include <string>
#include <string_view>

#include <sys/stat.h>

namespace inin {

/// Replaces a file. The new file takes the name, from an older file or link, only when it is complete; a reader sees
/// either the old bytes or the new ones. It has the given rights unless keepRights()
/// succeeds.
///
/// Until then it has no name and disappears with the process. In a file system without unnamed files it is
/// ".inin-N.tmp" in the same folder, and always for the moment when an older file is replaced. That name is removed by
/// the destructor and by SIGHUP, SIGINT and SIGTERM; one left by a killed process is removed by the next replacement in
/// that folder.
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
    /// Gives the new file the owner, group and permissions of the old one; false if the system refuses any of them.
    [[nodiscard]] bool keepRights(const struct stat &old);
    // Both return false and set errno on failure.
    [[nodiscard]] bool write(std::string_view bytes) { return writeAll(m_file, bytes); }
    /// Flushes the bytes to the disk and gives the file its name.
    [[nodiscard]] bool commit();

private:
    void openUnnamed();
    void openNamed();
    [[nodiscard]] bool linkAs(const std::string &path) const;
    [[nodiscard]] bool linkAsTemporary();
    void setTemporary(std::string &&path);
    void forgetTemporary();

    std::string m_target, m_folder; ///< the folder with a trailing slash; empty for the current one
    std::string m_temporary;        ///< empty while the file has no name
    mode_t m_rights;                ///< of the new file, as the process's mask permits
    FileDescriptor m_file;
};

} // namespace inin
