#include "viewer/io/file_io.h"

#include "adapters/posix/posix_io.h"
#include "adapters/posix/posix_platform.h"
#include "runtime/runtime_error.h"

#include <fmt/format.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace inin::viewer {

namespace {

constexpr std::size_t kBufferSize = std::size_t{1} << 16;

[[noreturn]] void failReading(const std::string &path, std::int32_t number, const char *what)
{
    throw RuntimeError(number, fmt::format("ファイル「{}」{}", path, what));
}

} // namespace

std::string systemPathOf(const std::string &path)
{
    const std::string found = posixPath(path);
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(found, error);
    return error ? found : absolute.lexically_normal().string();
}

std::string readWholeFile(const std::string &path, std::size_t limit)
{
    const std::string systemPath = posixPath(path);
    struct stat status {};
    if (stat(systemPath.c_str(), &status) != 0) failReading(path, error_number::fileNotFound, "が見つかりません。");
    // A pipe or a device could keep the reader for ever.
    if (!S_ISREG(status.st_mode)) failReading(path, error_number::pathAccess, "は読めるファイルではありません。");
    if (static_cast<std::size_t>(status.st_size) > limit)
        failReading(path, error_number::outOfMemory, "は大きすぎます。");
    const FileDescriptor file(open(systemPath.c_str(), O_RDONLY | O_CLOEXEC));
    std::string bytes;
    if (!file.isOpen() || !readUpTo(file, static_cast<std::size_t>(status.st_size), bytes))
        failReading(path, error_number::pathAccess, "を読めません。");
    return bytes;
}

FinishedFile::FinishedFile(const std::string &path) : m_path(posixPath(path)), m_unfinished(m_path + ".XXXXXX")
{
    // A folder, a device or a pipe of that name must not be replaced by a file.
    struct stat status {};
    if (stat(m_path.c_str(), &status) == 0 && !S_ISREG(status.st_mode)) fail();
    m_descriptor = mkostemp(m_unfinished.data(), O_CLOEXEC);
    if (m_descriptor < 0) {
        m_unfinished.clear();
        fail();
    }
    m_buffer.reserve(kBufferSize);
}

FinishedFile::~FinishedFile()
{
    if (m_descriptor >= 0) ::close(m_descriptor);
    if (!m_unfinished.empty()) ::unlink(m_unfinished.c_str());
}

void FinishedFile::fail() const
{
    throw RuntimeError(error_number::pathAccess, fmt::format("ファイル「{}」に書き込めません。", m_path));
}

void FinishedFile::flush()
{
    std::string_view rest = m_buffer;
    while (!rest.empty()) {
        const ssize_t written = ::write(m_descriptor, rest.data(), rest.size());
        if (written < 0 && errno != EINTR) fail();
        if (written > 0) rest.remove_prefix(static_cast<std::size_t>(written));
    }
    m_buffer.clear();
}

void FinishedFile::write(std::string_view bytes)
{
    if (m_buffer.size() + bytes.size() > kBufferSize) flush();
    m_buffer += bytes;
    if (m_buffer.size() >= kBufferSize) flush();
}

void FinishedFile::finish()
{
    flush();
    // The name is given to a file as it would have been created by hand: readable as the user's mask allows.
    const mode_t mask = umask(0);
    umask(mask);
    if (fchmod(m_descriptor, 0666 & ~mask) != 0) fail();
    const int descriptor = m_descriptor;
    m_descriptor = -1;
    if (::close(descriptor) != 0 && errno != EINTR) fail();
    if (std::rename(m_unfinished.c_str(), m_path.c_str()) != 0) fail();
    m_unfinished.clear();
}

} // namespace inin::viewer
