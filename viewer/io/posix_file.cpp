#include "viewer/io/system_file.h"

#include "system/file_path.h"
#include "system/file_replacement.h"
#include "system/posix_io.h"

#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>

namespace inin::viewer {

std::string resolvedPath(const std::string &path)
{
    return systemPath(path);
}

std::string absolutePath(const std::string &systemPath)
{
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(systemPath, error);
    return error ? systemPath : absolute.lexically_normal().string();
}

FileInfo fileInfo(const std::string &systemPath)
{
    constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;
    struct stat status {};
    if (stat(systemPath.c_str(), &status) != 0) return {};
    return {S_ISREG(status.st_mode) ? FileInfo::Kind::file : FileInfo::Kind::other,
            static_cast<std::uint64_t>(status.st_size),
            status.st_mtim.tv_sec * kNanosecondsPerSecond + status.st_mtim.tv_nsec};
}

bool readBytes(const std::string &systemPath, std::size_t size, std::string &bytes)
{
    const FileDescriptor file(open(systemPath.c_str(), O_RDONLY | O_CLOEXEC));
    return file.isOpen() && readUpTo(file, size, bytes);
}

bool makeFolders(const std::string &systemPath)
{
    std::error_code error;
    std::filesystem::create_directories(systemPath, error);
    return !error;
}

std::vector<std::string> namesIn(const std::string &systemFolder)
{
    std::vector<std::string> names;
    const FolderHandle folder(opendir(systemFolder.c_str()));
    while (const dirent *const entry = folder ? readdir(folder.get()) : nullptr) names.emplace_back(entry->d_name);
    return names;
}

struct TemporaryFile::State {
    explicit State(const std::string &systemPath) : path(systemPath), file(systemPath) {}
    std::string path;
    FileReplacement file;
};

TemporaryFile::TemporaryFile(const std::string &systemPath) : m_state(std::make_unique<State>(systemPath)) {}

TemporaryFile::~TemporaryFile() = default;

bool TemporaryFile::isOpen() const
{
    return m_state->file.isOpen();
}

bool TemporaryFile::write(std::string_view bytes)
{
    return m_state->file.write(bytes);
}

bool TemporaryFile::commit()
{
    struct stat old {};
    // If owner and group cannot be kept, the file stays readable by its owner only.
    if (lstat(m_state->path.c_str(), &old) == 0 && S_ISREG(old.st_mode)) (void)m_state->file.keepRights(old);
    return m_state->file.commit();
}

} // namespace inin::viewer
