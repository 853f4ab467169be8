#include "adapters/native/native_platform.h"
#include "platform/settings_limit.h"
#include "suite_text/code_page_932.h"
#include "suite_text/profile_text.h"
#include "system/file_path.h"
#include "system/file_replacement.h"
#include "system/posix_io.h"

#include <cerrno>
#include <climits>
#include <cstdlib>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace inin::posix {

namespace {

/// An argument in the code page; a missing one stays missing.
std::optional<std::string> argument(const Profile::Text &text)
{
    return text ? std::optional(encodeCp932(*text)) : std::nullopt;
}

/// Opens the name as given; a different case is tried only if that does not exist.
FileDescriptor openForReading(const std::string &path)
{
    // Do not block if the name is a pipe.
    constexpr int flags = O_RDONLY | O_CLOEXEC | O_NONBLOCK;
    const int asGiven = open(withSlashes(path).c_str(), flags);
    if (asGiven >= 0 || (errno != ENOENT && errno != ENOTDIR)) return FileDescriptor(asGiven);
    return FileDescriptor(open(systemPath(path).c_str(), flags));
}

enum class Found { file, nothing, unreadable };

/// Reads the file's bytes and status in one opening, unlike readWholeFile(): a replacement must keep exactly these rights.
Found readWhole(const std::string &path, std::string &bytes, struct stat &status)
{
    const FileDescriptor file = openForReading(path);
    if (!file.isOpen()) return errno == ENOENT ? Found::nothing : Found::unreadable;
    if (fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) return Found::unreadable;
    const auto size = static_cast<std::size_t>(status.st_size);
    return size <= kMaxSettingsBytes && readUpTo(file, size, bytes) ? Found::file : Found::unreadable;
}

std::string bytesOf(const std::string &path)
{
    std::string bytes;
    struct stat status {};
    // This system has no folder for bare names: reading finds nothing, writing is refused.
    if (isBareProfileName(path) || readWhole(path, bytes, status) != Found::file) return {};
    return bytes;
}

/// The target of a link; the path itself if it is not a link or the link is broken.
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

/// For a folder that allows no new file, or a broken link: the old bytes are overwritten, where writeWholeFile() fails.
bool writeInPlace(const std::string &systemPath, const std::string &bytes)
{
    FileDescriptor file(open(systemPath.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666));
    return file.isOpen() && writeAll(file, bytes) && ftruncate(file.get(), static_cast<off_t>(bytes.size())) == 0 &&
           fsync(file.get()) == 0 && file.close();
}

bool replaceFile(const std::string &systemPath, const std::string &bytes, const struct stat *old)
{
    if (!old && isLink(systemPath)) return writeInPlace(systemPath, bytes);
    FileReplacement replacement(systemPath, FileReplacement::kByTheMask);
    if (replacement.isOpen() && (!old || replacement.keepRights(*old)))
        return replacement.write(bytes) && replacement.commit();
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

} // namespace inin::posix

std::unique_ptr<inin::Profile> inin::makeSystemProfile()
{
    return std::make_unique<posix::PosixProfile>();
}
