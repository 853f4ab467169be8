#include "adapters/native/native_platform.h"
#include "adapters/native/open_file.h"
#include "adapters/native/path_rules.h"
#include "runtime/runtime_error.h"
#include "system/directory_search.h"
#include "system/file_path.h"
#include "system/posix_io.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <optional>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace inin::posix {

namespace {

/// A new file may contain patient data.
constexpr mode_t kOwnerOnly = S_IRUSR | S_IWUSR;
/// Attempts at a name that other processes create and remove at the same time.
constexpr int kAttempts = 100;
/// Do not block if the name is a pipe: it reads as an empty file and cannot be written.
constexpr int kOpenFlags = O_CLOEXEC | O_NONBLOCK;

struct ErrorRule {
    int systemError;
    std::int32_t number;
};
/// The runtime's error numbers for system errors; errorNumber adds the access errors.
constexpr ErrorRule kErrorRules[] = {
    {ENOENT, error_number::fileNotFound}, {ENOTDIR, error_number::pathNotFound},
    {ELOOP, error_number::pathNotFound},  {EISDIR, error_number::pathAccess},
    {ENOSPC, error_number::diskFull},     {EDQUOT, error_number::diskFull},
    {EFBIG, error_number::diskFull},      {EMFILE, error_number::tooManyFiles},
    {ENFILE, error_number::tooManyFiles}, {EIO, error_number::deviceIo},
    {EPIPE, error_number::deviceIo},      {ENAMETOOLONG, error_number::badFileName},
    {EINVAL, error_number::badFileName},  {EILSEQ, error_number::badFileName},
    {ENOMEM, error_number::outOfMemory},  {ENXIO, error_number::diskNotReady},
    {ENODEV, error_number::diskNotReady},
};

struct SplitPath {
    std::string folder; ///< with a trailing slash; empty for the current folder
    std::string name;
};

SplitPath split(const std::string &place)
{
    const std::size_t name = place.rfind('/') + 1;
    return {place.substr(0, name), place.substr(name)};
}

std::int32_t errorNumber(int systemError, const std::string &place)
{
    // Access was denied: a file is read-only; otherwise the folder or the path is the cause.
    if (systemError == EACCES || systemError == EPERM || systemError == EROFS)
        return isFileAt(place) ? error_number::permissionDenied : error_number::pathAccess;
    const std::string folder = split(place).folder;
    if (systemError == ENOENT && !folder.empty() && !isFolderAt(folder)) return error_number::pathNotFound;
    const auto rule = std::ranges::find(kErrorRules, systemError, &ErrorRule::systemError);
    return rule != std::end(kErrorRules) ? rule->number : error_number::pathAccess;
}

[[noreturn]] void fail(int systemError, const std::string &place)
{
    throw RuntimeError(errorNumber(systemError, place));
}

std::string filePath(const std::string &path)
{
    checkFilePath(path);
    return systemPath(path);
}

struct PosixFileCalls {
    using Handle = FileDescriptor;
    using Path = std::string;
    using Error = int;
    static Error lastError() { return errno; }
    static void setLastError(Error error) { errno = error; }
    [[noreturn]] static void fail(Error error, const Path &path) { posix::fail(error, path); }
    static std::int64_t position(const Handle &file) { return lseek(file.get(), 0, SEEK_CUR); }
    static void cutAt(const Handle &file, std::int64_t size) { (void)!ftruncate(file.get(), size); }
};
using PosixOutput = OpenOutput<PosixFileCalls>;
/// Locked by flock(), which lasts as long as the descriptor is open.
using PosixLockedOutput = OpenLockedOutput<PosixFileCalls>;
using PosixInput = OpenInput<PosixFileCalls>;

/// True if no file or link has that name any more; folders are not removed.
bool isRemoved(const std::string &place)
{
    return unlink(place.c_str()) == 0 || errno == ENOENT;
}

/// Creates the file in place of a file or link of that name. Not open, with EEXIST, if the old one cannot be removed.
FileDescriptor createAnew(const std::string &place)
{
    int created = -1;
    for (int attempt = 0; attempt < kAttempts && created < 0 && isRemoved(place); ++attempt) {
        created = open(place.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | kOpenFlags, kOwnerOnly);
        if (created < 0 && errno != EEXIST) return FileDescriptor();
    }
    if (created < 0) errno = EEXIST;
    return FileDescriptor(created);
}

/// For a device, or a file that cannot be removed from its folder.
FileDescriptor openInPlace(const std::string &place)
{
    return FileDescriptor(open(place.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | kOpenFlags, kOwnerOnly));
}

/// One attempt to lock the file. Returns nothing if the name was removed or replaced meanwhile: try again.
std::optional<LockedFile> tryToLock(const std::string &place)
{
    using State = LockedFile::State;
    // No patient data is in this file, and every user of the site must be able to lock it, whatever the umask.
    FileDescriptor file(open(place.c_str(), O_WRONLY | O_CREAT | O_NOFOLLOW | kOpenFlags, 0666));
    const bool isLink = !file.isOpen() && errno == ELOOP;
    if (!file.isOpen() && !isLink) return LockedFile{};
    if (file.isOpen() && flock(file.get(), LOCK_EX | LOCK_NB) != 0)
        return LockedFile{errno == EWOULDBLOCK ? State::busy : State::unavailable, nullptr};
    struct stat opened {};
    if (file.isOpen() && fstat(file.get(), &opened) != 0) return LockedFile{};
    if (file.isOpen() && !isNamed(file, place)) return std::nullopt;
    (void)fchmod(file.get(), 0666);    // only its owner can do this, and the owner has created it
    if (isLink || opened.st_nlink > 1) // truncating it would truncate a file elsewhere
        return isRemoved(place) ? std::nullopt : std::optional(LockedFile{});
    if (ftruncate(file.get(), 0) != 0) return LockedFile{};
    return LockedFile{State::locked, std::make_unique<PosixLockedOutput>(std::move(file), place)};
}

/// Many devices supply bytes without end.
bool isDevice(const FileDescriptor &file)
{
    struct stat status {};
    return fstat(file.get(), &status) == 0 && (S_ISCHR(status.st_mode) || S_ISBLK(status.st_mode));
}

class PosixFiles : public Files {
public:
    explicit PosixFiles(std::string applicationFolder) : m_applicationFolder(std::move(applicationFolder))
    {
        while (m_applicationFolder.size() > 1 && m_applicationFolder.ends_with('/')) m_applicationFolder.pop_back();
    }

    std::unique_ptr<OutputFile> openForOutput(const std::string &path) override
    {
        const std::string place = filePath(path);
        struct stat old {};
        const bool isThere = lstat(place.c_str(), &old) == 0;
        if (isThere && S_ISREG(old.st_mode) && isReadOnly(old)) fail(EACCES, place);
        const bool isReplaced = !isThere || S_ISREG(old.st_mode) || S_ISLNK(old.st_mode);
        FileDescriptor file = isReplaced ? createAnew(place) : openInPlace(place);
        // A folder that permits no removal may still contain a writable file.
        if (!file.isOpen() && errno == EEXIST) file = openInPlace(place);
        if (!file.isOpen()) fail(errno, place);
        // Do not copy the permissions of another user's file: it may have been planted to read the new content.
        if (isThere && S_ISREG(old.st_mode) && old.st_uid == geteuid()) (void)!fchmod(file.get(), old.st_mode & 0777);
        return std::make_unique<PosixOutput>(std::move(file), place);
    }

    LockedFile openLocked(const std::string &path) override
    {
        const std::string place = filePath(path);
        std::optional<LockedFile> result;
        for (int attempt = 0; attempt < kAttempts && !result; ++attempt) result = tryToLock(place);
        return result ? std::move(*result) : LockedFile{};
    }

    std::unique_ptr<InputFile> openForInput(const std::string &path) override
    {
        const std::string place = filePath(path);
        if (isFolderAt(place)) fail(EISDIR, place);
        FileDescriptor file(open(place.c_str(), O_RDONLY | kOpenFlags));
        if (!file.isOpen()) fail(errno, place);
        if (isDevice(file)) fail(ENODEV, place);
        return std::make_unique<PosixInput>(std::move(file), place);
    }

    std::string directorySearch(const std::string &path) override
    {
        const std::string asGiven = withSlashes(path);
        const SplitPath given = split(asGiven);
        // Most searches name one file with its exact case.
        if (isFileAt(asGiven)) return given.name;
        if (given.name.find_first_of("*?") == std::string::npos && !given.name.empty()) {
            const std::string found = systemPath(path);
            return isFileAt(found) ? split(found).name : std::string();
        }
        if (path.empty()) return {};
        // "*.*" matches every name, also one without a dot.
        const bool every = given.name.empty() || given.name == "*.*";
        return firstFile(systemPath(given.folder), every ? "*" : foldedName(given.name));
    }

    bool isFolder(const std::string &path) override { return isFolderAt(systemPath(path)); }

    void remove(const std::string &path) override
    {
        const std::string place = filePath(path);
        if (isFolderAt(place)) fail(EISDIR, place);
        struct stat status {};
        if (lstat(place.c_str(), &status) == 0 && isReadOnly(status)) fail(EACCES, place);
        if (unlink(place.c_str()) == 0) return;
        // The file itself is writable: the folder denies the removal.
        if ((errno == EACCES || errno == EPERM || errno == EROFS) && isWritableFile(place))
            throw RuntimeError(error_number::pathAccess);
        fail(errno, place);
    }

    std::string applicationFolder() override { return m_applicationFolder; }

    void changeDrive(const std::string &) override {} // a single tree without drives

    void changeFolder(const std::string &path) override
    {
        const std::string folder = systemPath(path);
        if (chdir(folder.c_str()) == 0) return;
        throw RuntimeError(errno == ENOENT || errno == ENOTDIR ? error_number::pathNotFound
                                                               : errorNumber(errno, folder));
    }

    std::string currentFolder() override
    {
        std::vector<char> folder(PATH_MAX);
        while (!getcwd(folder.data(), folder.size())) {
            if (errno != ERANGE) throw RuntimeError(error_number::pathNotFound);
            folder.resize(folder.size() * 2);
        }
        return folder.data();
    }

private:
    std::string m_applicationFolder;
};

} // namespace

} // namespace inin::posix

std::unique_ptr<inin::Files> inin::makeSystemFiles(std::string applicationFolder)
{
    return std::make_unique<posix::PosixFiles>(std::move(applicationFolder));
}
