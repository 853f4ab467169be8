#include "adapters/native/native_platform.h"
#include "runtime/runtime_error.h"
#include "system/directory_search.h"
#include "system/file_path.h"
#include "system/output_buffer.h"
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

namespace inin {

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

/// The system's path of a file to open or delete. Wildcards and other characters that the suite's file system does not
/// allow in names are refused; this system would accept them.
std::string filePath(const std::string &path)
{
    const std::string name = path.substr(path.find_last_of("\\/") + 1);
    if (path.empty() || path.find('\0') != std::string::npos || name.find_first_of("*?\"<>|") != std::string::npos)
        throw RuntimeError(error_number::badFileName);
    if (name.empty()) throw RuntimeError(error_number::pathAccess);
    return systemPath(path);
}

class PosixOutput : public OutputFile {
public:
    PosixOutput(FileDescriptor file, std::string path) : m_file(std::move(file)), m_path(std::move(path)) {}
    ~PosixOutput() override
    {
        if (m_file.isOpen()) (void)put(m_buffer.takeCutOff()); // a destructor cannot report a failure
    }

    void write(std::string_view bytes) override
    {
        m_buffer.add(bytes);
        if (!put(m_buffer.takeDue())) fail(errno, m_path);
    }

    void close() override
    {
        if (!m_file.isOpen()) return;
        const int writeError = put(m_buffer.takeAll()) ? 0 : errno;
        const int closeError = m_file.close() ? 0 : errno;
        if (writeError != 0 || closeError != 0) fail(writeError != 0 ? writeError : closeError, m_path);
    }

private:
    /// After a failure nothing more is written: the file stays as it is.
    bool put(std::string_view bytes)
    {
        if (writeAll(m_file, bytes)) {
            m_size += static_cast<off_t>(bytes.size());
            return true;
        }
        const int error = errno;
        removeLineEnd(bytes);
        m_buffer = {};
        errno = error;
        return false;
    }

    /// A failed write may have stored the bytes up to the end of a line; remove that line end.
    void removeLineEnd(std::string_view bytes) const
    {
        const off_t end = lseek(m_file.get(), 0, SEEK_CUR);
        if (end <= m_size) return;
        const std::string_view stored = bytes.substr(0, static_cast<std::size_t>(end - m_size));
        const std::size_t kept = lengthWithoutLineEnd(stored);
        if (kept < stored.size()) (void)!ftruncate(m_file.get(), m_size + static_cast<off_t>(kept));
    }

    FileDescriptor m_file;
    std::string m_path;
    off_t m_size = 0; ///< of what was written successfully
    OutputBuffer m_buffer;
};

/// A file that is locked as long as its descriptor is open.
class PosixLockedOutput : public OutputFile {
public:
    PosixLockedOutput(FileDescriptor file, std::string path) : m_file(std::move(file)), m_path(std::move(path)) {}

    void write(std::string_view bytes) override
    {
        if (!writeAll(m_file, bytes)) fail(errno, m_path);
    }

    void close() override
    {
        if (!m_file.close()) fail(errno, m_path);
    }

private:
    FileDescriptor m_file;
    std::string m_path;
};

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

/// False if the name was removed or reused for another file after opening.
bool isNamed(const struct stat &opened, const std::string &place)
{
    struct stat named {};
    return lstat(place.c_str(), &named) == 0 && opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
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
    if (file.isOpen() && !isNamed(opened, place)) return std::nullopt;
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

class PosixInput : public InputFile {
public:
    PosixInput(FileDescriptor file, std::string path) : m_file(std::move(file)), m_path(std::move(path)) {}

    std::string read(std::size_t size) override
    {
        std::string bytes;
        if (!readUpTo(m_file, size, bytes)) fail(errno, m_path);
        return bytes;
    }

private:
    FileDescriptor m_file;
    std::string m_path;
};

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

std::unique_ptr<Files> makeSystemFiles(std::string applicationFolder)
{
    return std::make_unique<PosixFiles>(std::move(applicationFolder));
}

} // namespace inin
