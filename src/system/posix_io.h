#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include <dirent.h>
#include <sys/stat.h>

namespace inin {

/// Owns a file descriptor.
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int descriptor) : m_descriptor(descriptor) {}
    FileDescriptor(FileDescriptor &&other) noexcept : m_descriptor(other.release()) {}
    FileDescriptor(const FileDescriptor &) = delete;
    FileDescriptor &operator=(const FileDescriptor &) = delete;
    FileDescriptor &operator=(FileDescriptor &&other) noexcept;
    ~FileDescriptor() { close(); }

    [[nodiscard]] bool isOpen() const { return m_descriptor >= 0; }
    [[nodiscard]] int get() const { return m_descriptor; }
    [[nodiscard]] int release();
    /// False, with errno, if the system reports the failure of an earlier write only now.
    bool close();

private:
    int m_descriptor = -1;
};

struct CloseFolder {
    void operator()(DIR *folder) const { closedir(folder); }
};
using FolderHandle = std::unique_ptr<DIR, CloseFolder>;

// Both resume after an interruption and return false, with errno, on failure.
[[nodiscard]] bool writeAll(const FileDescriptor &file, std::string_view bytes);
/// Appends `size` bytes; fewer only at the end of the file.
[[nodiscard]] bool readUpTo(const FileDescriptor &file, std::size_t size, std::string &bytes);

[[nodiscard]] bool isFolderAt(const std::string &systemPath);
/// True if the path exists and is not a folder.
[[nodiscard]] bool isFileAt(const std::string &systemPath);
/// True if the path still names the open file: it may have been removed, or reused for another file, after opening.
[[nodiscard]] bool isNamed(const FileDescriptor &file, const std::string &systemPath);
/// True for a file without any write permission: the suite's file system shows it as read-only for every user.
[[nodiscard]] bool isReadOnly(const struct stat &status);
/// True if the file is not read-only and the system allows this user to write it.
[[nodiscard]] bool isWritableFile(const std::string &systemPath);

/// The path with slashes as separators; names are unchanged.
[[nodiscard]] std::string withSlashes(const std::string &path);
/// A name with its ASCII and full-width Latin characters in lower case.
[[nodiscard]] std::string foldedName(std::string_view name);

} // namespace inin
