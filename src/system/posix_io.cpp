#include "system/posix_io.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace inin {

FileDescriptor &FileDescriptor::operator=(FileDescriptor &&other) noexcept
{
    if (this == &other) return *this;
    close();
    m_descriptor = other.release();
    return *this;
}

int FileDescriptor::release()
{
    return std::exchange(m_descriptor, -1);
}

bool FileDescriptor::close()
{
    // close() closes the descriptor even if it is interrupted.
    return !isOpen() || ::close(release()) == 0 || errno == EINTR;
}

bool writeAll(const FileDescriptor &file, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = ::write(file.get(), bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) return false;
        if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool readUpTo(const FileDescriptor &file, std::size_t size, std::string &bytes)
{
    std::size_t filled = bytes.size();
    const std::size_t goal = filled + size;
    bytes.resize(goal);
    while (filled < goal) {
        const ssize_t got = ::read(file.get(), bytes.data() + filled, goal - filled);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) {
            bytes.resize(filled);
            return got == 0;
        }
        filled += static_cast<std::size_t>(got);
    }
    return true;
}

bool isFolderAt(const std::string &systemPath)
{
    struct stat status {};
    return stat(systemPath.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool isFileAt(const std::string &systemPath)
{
    struct stat status {};
    return stat(systemPath.c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

bool isNamed(const FileDescriptor &file, const std::string &systemPath)
{
    struct stat opened {
    }, named{};
    return fstat(file.get(), &opened) == 0 && lstat(systemPath.c_str(), &named) == 0 && opened.st_dev == named.st_dev &&
           opened.st_ino == named.st_ino;
}

bool isReadOnly(const struct stat &status)
{
    constexpr mode_t anyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
    return (status.st_mode & anyWrite) == 0;
}

bool isWritableFile(const std::string &systemPath)
{
    struct stat status {};
    if (stat(systemPath.c_str(), &status) != 0) return false;
    return !isReadOnly(status) && faccessat(AT_FDCWD, systemPath.c_str(), W_OK, AT_EACCESS) == 0;
}

std::string withSlashes(const std::string &path)
{
    std::string out = path;
    std::ranges::replace(out, '\\', '/');
    return out;
}

std::string foldedName(std::string_view name)
{
    std::string out(name);
    for (std::size_t at = 0; at < out.size(); ++at) {
        if (out[at] >= 'A' && out[at] <= 'Z') out[at] = static_cast<char>(out[at] - 'A' + 'a');
        // Ａ to Ｚ are EF BC A1 to EF BC BA, ａ to ｚ are EF BD 81 to EF BD 9A.
        if (out.compare(at, 2, "\xEF\xBC") != 0 || at + 2 >= out.size()) continue;
        const auto last = static_cast<unsigned char>(out[at + 2]);
        if (last < 0xA1 || last > 0xBA) continue;
        out[at + 1] = '\xBD';
        out[at + 2] = static_cast<char>(last - 0x20);
    }
    return out;
}

} // namespace inin
