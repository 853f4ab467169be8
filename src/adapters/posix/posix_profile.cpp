#include "adapters/posix/posix_io.h"
#include "adapters/suite_text/code_page_932.h"
#include "adapters/suite_text/profile_text.h"
#include "adapters/system/system_platform.h"
#include "platform/settings_limit.h"

#include <cerrno>
#include <climits>
#include <cstdlib>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace inin {

namespace {

/// An argument in the code page; one that is not given stays so.
std::optional<std::string> argument(const Profile::Text &text)
{
    return text ? std::optional(encodeCp932(*text)) : std::nullopt;
}

/// Opens the name as it is given; only a name that is not there is looked for in other case.
FileDescriptor openForReading(const std::string &path)
{
    // Not to wait where a pipe bears the name.
    constexpr int flags = O_RDONLY | O_CLOEXEC | O_NONBLOCK;
    const int asGiven = open(withSlashes(path).c_str(), flags);
    if (asGiven >= 0 || (errno != ENOENT && errno != ENOTDIR)) return FileDescriptor(asGiven);
    return FileDescriptor(open(systemPath(path).c_str(), flags));
}

enum class Found { file, nothing, unreadable };

/// The file's bytes and status by one opening.
Found readWhole(const std::string &path, std::string &bytes, struct stat &status)
{
    const FileDescriptor file = openForReading(path);
    if (!file.isOpen()) return errno == ENOENT ? Found::nothing : Found::unreadable;
    if (fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) return Found::unreadable;
    const auto size = static_cast<std::size_t>(status.st_size);
    return size <= kMostSettingsBytes && readUpTo(file, size, bytes) ? Found::file : Found::unreadable;
}

std::string bytesOf(const std::string &path)
{
    std::string bytes;
    struct stat status {};
    // This system has no folder of its own for bare names: nothing is read from it, and a write to it is refused.
    if (isBareProfileName(path) || readWhole(path, bytes, status) != Found::file) return {};
    return bytes;
}

/// Where a link leads, the path itself when it is none or leads nowhere.
std::string targetOf(const std::string &systemPath)
{
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(systemPath.c_str(), nullptr), &std::free);
    return real ? std::string(real.get()) : systemPath;
}

bool isLink(const std::string &systemPath)
{
    struct stat status {};
    return lstat(systemPath.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

/// For a folder that takes no new file, or a link that leads nowhere yet: the old bytes are written over.
bool writeInPlace(const std::string &systemPath, const std::string &bytes)
{
    FileDescriptor file(open(systemPath.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666));
    return file.isOpen() && writeAll(file, bytes) && ftruncate(file.get(), static_cast<off_t>(bytes.size())) == 0 &&
           fsync(file.get()) == 0 && file.close();
}

/// Gives the new file the rights and the owner of the old one.
bool takeOver(const FileDescriptor &file, const struct stat &old)
{
    struct stat own {};
    if (fstat(file.get(), &own) != 0) return false;
    const bool sameOwner = own.st_uid == old.st_uid && own.st_gid == old.st_gid;
    if (!sameOwner && fchown(file.get(), old.st_uid, old.st_gid) != 0) return false;
    return fchmod(file.get(), old.st_mode & 07777) == 0;
}

/// A second file in the folder of the first, gone again unless it took the first one's place.
class Replacement {
public:
    explicit Replacement(const std::string &systemPath) : m_target(systemPath), m_file(create()) {}
    Replacement(const Replacement &) = delete;
    Replacement &operator=(const Replacement &) = delete;
    ~Replacement()
    {
        if (m_created && !m_done) unlink(m_path.c_str());
    }
    /// False when the folder takes no new file, or none with the rights of the old.
    [[nodiscard]] bool canReplace(const struct stat *old) const
    {
        return m_created && (!old || takeOver(m_file, *old));
    }
    [[nodiscard]] bool commit(const std::string &bytes)
    {
        m_done = writeAll(m_file, bytes) && fsync(m_file.get()) == 0 && m_file.close() &&
                 rename(m_path.c_str(), m_target.c_str()) == 0;
        return m_done;
    }

private:
    /// A file that an earlier process left behind is passed over.
    FileDescriptor create()
    {
        constexpr int attempts = 100;
        int created = -1;
        errno = EEXIST;
        for (int attempt = 0; attempt < attempts && created < 0 && errno == EEXIST; ++attempt) {
            m_path = m_target + ".~" + std::to_string(getpid()) + "-" + std::to_string(attempt);
            created = open(m_path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
        }
        return FileDescriptor(created);
    }

    std::string m_target, m_path;
    FileDescriptor m_file;
    bool m_created = m_file.isOpen();
    bool m_done = false;
};

bool replaceFile(const std::string &systemPath, const std::string &bytes, const struct stat *old)
{
    if (!old && isLink(systemPath)) return writeInPlace(systemPath, bytes);
    Replacement replacement(systemPath);
    if (replacement.canReplace(old)) return replacement.commit(bytes);
    return old && writeInPlace(systemPath, bytes);
}

class PosixProfile : public Profile {
public:
    std::int32_t GetPrivateProfileInt(const Text &section, const Text &key, std::int32_t defaultValue,
                                      const std::string &file) override
    {
        return profileInt(bytesOf(file), argument(section), argument(key), defaultValue);
    }

    std::string GetPrivateProfileString(const Text &section, const Text &key, const std::string &defaultValue,
                                        std::size_t size, const std::string &file) override
    {
        return decodeCp932(
            profileString(bytesOf(file), argument(section), argument(key), encodeCp932(defaultValue), size));
    }

    std::int32_t WritePrivateProfileString(const Text &section, const Text &key, const Text &value,
                                           const std::string &file) override
    {
        std::string before;
        struct stat status {};
        if (isBareProfileName(file)) return 0;
        const Found found = readWhole(file, before, status);
        const std::string target = targetOf(systemPath(file));
        if (found == Found::unreadable || (found == Found::file && !isWritableFile(target))) return 0;
        const auto after = profileWrite(before, argument(section), argument(key), argument(value));
        if (!after) return 0;
        if (*after == before) return 1;
        return replaceFile(target, *after, found == Found::file ? &status : nullptr) ? 1 : 0;
    }
};

} // namespace

std::unique_ptr<Profile> makeSystemProfile()
{
    return std::make_unique<PosixProfile>();
}

} // namespace inin
