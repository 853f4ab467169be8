#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include <dirent.h>
#include <sys/stat.h>

namespace inin {

/// Owns a file descriptor of the system.
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
    /// False with errno when the system tells a failure of an earlier write here.
    bool close();

private:
    int m_descriptor = -1;
};

struct CloseFolder {
    void operator()(DIR *folder) const { closedir(folder); }
};
using FolderHandle = std::unique_ptr<DIR, CloseFolder>;

// Both go on after an interruption; false with errno on a failure.
[[nodiscard]] bool writeAll(const FileDescriptor &file, std::string_view bytes);
/// Appends up to `size` bytes, fewer only at the end of the file.
[[nodiscard]] bool readUpTo(const FileDescriptor &file, std::size_t size, std::string &bytes);

[[nodiscard]] bool isFolderAt(const std::string &systemPath);
/// True for anything there that is no folder.
[[nodiscard]] bool isFileAt(const std::string &systemPath);
/// True for a file without any write bit: read-only for every user, as the suite's file system has it.
[[nodiscard]] bool isReadOnly(const struct stat &status);
/// True when the file may be written: it is not read-only, and the system lets this user write it.
[[nodiscard]] bool isWritableFile(const std::string &systemPath);

/// The path with slashes, its names as they are.
[[nodiscard]] std::string withSlashes(const std::string &path);
/// A name with its ASCII and full-width Latin letters in lower case.
[[nodiscard]] std::string foldedName(std::string_view name);

} // namespace inin
