#include "system/whole_file.h"

#include "runtime/runtime_error.h"
#include "system/file_path.h"
#include "system/pending_file.h"

#include <fstream>

namespace inin {

namespace {

constexpr std::size_t kBufferSize = std::size_t{1} << 16;

enum class ReadResult : std::uint8_t { done, missing, notAFile, tooLarge, unreadable };

ReadResult readInto(std::string &bytes, const std::string &systemPath, std::size_t limit)
{
    const FileInfo info = fileInfo(systemPath);
    if (info.kind == FileInfo::Kind::missing) return ReadResult::missing;
    if (info.kind == FileInfo::Kind::other) return ReadResult::notAFile;
    if (info.size > limit) return ReadResult::tooLarge;
    return readBytes(systemPath, static_cast<std::size_t>(info.size), bytes) ? ReadResult::done
                                                                             : ReadResult::unreadable;
}

RuntimeError readError(ReadResult result, const std::string &path)
{
    const std::string file = "ファイル「" + path + "」";
    switch (result) {
    case ReadResult::missing:
        return {error_number::fileNotFound, file + "が見つかりません。"};
    case ReadResult::notAFile:
        return {error_number::pathAccess, file + "は読めるファイルではありません。"};
    case ReadResult::tooLarge:
        return {error_number::outOfMemory, file + "は大きすぎます。"};
    default:
        return {error_number::pathAccess, file + "を読めません。"};
    }
}

} // namespace

std::string readWholeFile(const std::string &path, std::size_t limit)
{
    std::string bytes;
    const ReadResult result = readInto(bytes, systemPath(path), limit);
    if (result != ReadResult::done) throw readError(result, path);
    return bytes;
}

std::optional<std::string> tryReadWholeFile(const std::filesystem::path &systemPath)
{
    std::string bytes;
    if (readInto(bytes, textOf(systemPath), kLargestWholeFile) != ReadResult::done) return std::nullopt;
    return bytes;
}

std::string startOfFile(const std::filesystem::path &systemPath, std::size_t size)
{
    std::string bytes(size, '\0');
    std::ifstream file(systemPath, std::ios::binary);
    file.read(bytes.data(), static_cast<std::streamsize>(size));
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return bytes;
}

void writeWholeFile(const std::filesystem::path &systemPath, std::string_view bytes, NewFile rights)
{
    AtomicFile file(textOf(systemPath), rights);
    file.write(bytes);
    file.commit();
}

AtomicFile::AtomicFile(const std::string &systemPath, NewFile rights) : m_path(systemPath)
{
    // Do not replace a folder, a device or a pipe of that name.
    if (fileInfo(m_path).kind == FileInfo::Kind::other) fail();
    m_file = createPendingFile(m_path, rights);
    if (!m_file) fail();
}

AtomicFile::~AtomicFile() = default;

void AtomicFile::fail() const
{
    throw RuntimeError(error_number::pathAccess, "ファイル「" + m_path + "」に書き込めません。");
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

void makeFolder(const std::string &systemPath)
{
    std::error_code error;
    std::filesystem::create_directories(longPathOf(systemPath), error);
    if (error) throw RuntimeError(error_number::pathAccess, "フォルダー「" + systemPath + "」を作成できません。");
}

} // namespace inin
