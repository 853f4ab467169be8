#include "viewer/io/system_file.h"

#include "adapters/posix/posix_io.h"
#include "adapters/system/system_platform.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace inin::viewer {

std::string foundPath(const std::string &path)
{
    return systemPath(path);
}

std::string absolutePath(const std::string &systemPath)
{
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(systemPath, error);
    return error ? systemPath : absolute.lexically_normal().string();
}

EntryFacts entryFacts(const std::string &systemPath)
{
    constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;
    struct stat status {};
    if (stat(systemPath.c_str(), &status) != 0) return {};
    return {S_ISREG(status.st_mode) ? EntryFacts::Kind::file : EntryFacts::Kind::other,
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

struct UnfinishedFile::State {
    std::string path, unfinished;
    FileDescriptor file;
};

UnfinishedFile::UnfinishedFile(const std::string &systemPath)
{
    std::string unfinished = systemPath + ".XXXXXX";
    FileDescriptor file(mkostemp(unfinished.data(), O_CLOEXEC));
    if (!file.isOpen()) unfinished.clear();
    m_state = std::make_unique<State>(State{systemPath, std::move(unfinished), std::move(file)});
}

UnfinishedFile::~UnfinishedFile()
{
    if (!m_state->unfinished.empty()) ::unlink(m_state->unfinished.c_str());
}

bool UnfinishedFile::isOpen() const
{
    return m_state->file.isOpen();
}

bool UnfinishedFile::write(std::string_view bytes)
{
    return writeAll(m_state->file, bytes);
}

bool UnfinishedFile::takeName()
{
    // The name is given to a file as it would have been created by hand: readable as the user's mask allows.
    const mode_t mask = umask(0);
    umask(mask);
    if (fchmod(m_state->file.get(), 0666 & ~mask) != 0 || !m_state->file.close()) return false;
    if (std::rename(m_state->unfinished.c_str(), m_state->path.c_str()) != 0) return false;
    m_state->unfinished.clear();
    return true;
}

} // namespace inin::viewer
