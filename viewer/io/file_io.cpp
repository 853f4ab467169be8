#include "viewer/io/file_io.h"

#include "runtime/runtime_error.h"
#include "viewer/io/system_file.h"

#include <fmt/format.h>

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
    return absolutePath(resolvedPath(path));
}

std::string readWholeFile(const std::string &path, std::size_t limit)
{
    const std::string systemPath = resolvedPath(path);
    const FileInfo info = fileInfo(systemPath);
    if (info.kind == FileInfo::Kind::missing) failReading(path, error_number::fileNotFound, "が見つかりません。");
    // Reading a pipe or a device could block forever.
    if (info.kind == FileInfo::Kind::other)
        failReading(path, error_number::pathAccess, "は読めるファイルではありません。");
    if (info.size > limit) failReading(path, error_number::outOfMemory, "は大きすぎます。");
    std::string bytes;
    if (!readBytes(systemPath, static_cast<std::size_t>(info.size), bytes))
        failReading(path, error_number::pathAccess, "を読めません。");
    return bytes;
}

void makeFolder(const std::string &systemPath)
{
    if (!makeFolders(systemPath))
        throw RuntimeError(error_number::pathAccess, fmt::format("フォルダー「{}」を作成できません。", systemPath));
}

AtomicFile::AtomicFile(const std::string &path) : m_path(path)
{
    // Do not replace a folder, a device or a pipe of that name.
    if (fileInfo(m_path).kind == FileInfo::Kind::other) fail();
    m_file = std::make_unique<TemporaryFile>(m_path);
    if (!m_file->isOpen()) fail();
    m_buffer.reserve(kBufferSize);
}

AtomicFile::~AtomicFile() = default;

void AtomicFile::fail() const
{
    throw RuntimeError(error_number::pathAccess, fmt::format("ファイル「{}」に書き込めません。", m_path));
}

void AtomicFile::flush()
{
    if (!m_file->write(m_buffer)) fail();
    m_buffer.clear();
}

void AtomicFile::write(std::string_view bytes)
{
    if (m_buffer.size() + bytes.size() > kBufferSize) flush();
    m_buffer += bytes;
    if (m_buffer.size() >= kBufferSize) flush();
}

void AtomicFile::commit()
{
    flush();
    if (!m_file->commit()) fail();
}

} // namespace inin::viewer
