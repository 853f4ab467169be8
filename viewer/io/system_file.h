#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

// File operations, implemented for each system. Paths are system paths, as returned by resolvedPath(). Results report
// failures; the caller writes the message.

/// The system path for a path in the suite's form: either slash, any ASCII case.
[[nodiscard]] std::string resolvedPath(const std::string &path);
[[nodiscard]] std::string absolutePath(const std::string &systemPath);

struct FileInfo {
    /// Folders, devices and pipes are `other`.
    enum class Kind : std::uint8_t { missing, file, other };
    Kind kind = Kind::missing;
    std::uint64_t size = 0;
    std::int64_t changed = 0; ///< nanoseconds since the beginning of 1970, UTC
};
[[nodiscard]] FileInfo fileInfo(const std::string &systemPath);

/// Appends up to `size` bytes, fewer only at the end of the file. Does not lock the file.
[[nodiscard]] bool readBytes(const std::string &systemPath, std::size_t size, std::string &bytes);

/// Creates a folder and its missing parents. True when the folder exists afterwards.
[[nodiscard]] bool makeFolders(const std::string &systemPath);
/// The names in a folder; empty for an inaccessible folder.
[[nodiscard]] std::vector<std::string> namesIn(const std::string &systemFolder);

/// A file that gets its name on commit(). Otherwise it is removed, also when the process is killed.
class TemporaryFile {
public:
    explicit TemporaryFile(const std::string &systemPath);
    TemporaryFile(const TemporaryFile &) = delete;
    TemporaryFile &operator=(const TemporaryFile &) = delete;
    ~TemporaryFile();

    [[nodiscard]] bool isOpen() const;
    [[nodiscard]] bool write(std::string_view bytes);
    /// Stores the file on the disk and replaces an older one atomically. On POSIX systems it keeps the rights of the older
    /// file; a new file is readable by its owner only.
    [[nodiscard]] bool commit();

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace inin::viewer
