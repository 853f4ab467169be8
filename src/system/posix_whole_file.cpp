#include "system/file_path.h"
#include "system/file_replacement.h"
#include "system/pending_file.h"
#include "system/posix_io.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace inin {

namespace {

class PosixPendingFile : public PendingFile {
public:
    PosixPendingFile(const std::string &systemPath, mode_t rights) : m_path(systemPath), m_file(systemPath, rights) {}

    [[nodiscard]] bool isOpen() const { return m_file.isOpen(); }
    bool write(std::string_view bytes) override { return m_file.write(bytes); }
    bool commit() override
    {
        struct stat old {};
        // If owner and group cannot be kept, the file has the rights of a new one.
        if (lstat(m_path.c_str(), &old) == 0 && S_ISREG(old.st_mode)) (void)m_file.keepRights(old);
        return m_file.commit();
    }

private:
    std::string m_path;
    FileReplacement m_file;
};

} // namespace

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

std::unique_ptr<PendingFile> createPendingFile(const std::string &systemPath, NewFile rights)
{
    auto file = std::make_unique<PosixPendingFile>(
        systemPath, rights == NewFile::ownerOnly ? FileReplacement::kOwnerOnly : FileReplacement::kByTheMask);
    if (!file->isOpen()) return nullptr;
    return file;
}

void createForOwner(const std::string &systemPath)
{
    const FileDescriptor file(
        open(systemPath.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, FileReplacement::kOwnerOnly));
}

} // namespace inin
