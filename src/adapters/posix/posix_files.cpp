#include "adapters/posix/directory_search.h"
#include "adapters/posix/posix_io.h"
#include "adapters/system/system_platform.h"
#include "runtime/runtime_error.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace inin {

namespace {

constexpr std::size_t kBufferSize = 65536;
/// Not to wait where a pipe bears the name: it reads as an empty file and takes nothing.
constexpr int kOpenFlags = O_CLOEXEC | O_NONBLOCK;

struct ErrorRule {
    int systemError;
    std::int32_t number;
};
/// What the runtime calls the failures of the system; errorNumber adds the refusals.
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
    std::string folder; ///< with its slash; empty for the current folder
    std::string name;
};

SplitPath split(const std::string &place)
{
    const std::size_t name = place.rfind('/') + 1;
    return {place.substr(0, name), place.substr(name)};
}

std::int32_t errorNumber(int systemError, const std::string &place)
{
    // A file that refuses is read-only; else it is the folder or the path.
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

/// The system's path of a file that is to be opened or deleted. The marks of a search and the other signs that no name
/// of the suite's file system holds are refused before the system would take them.
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
        if (m_file.isOpen()) (void)flush(); // nobody is left to hear of a failure
    }

    void write(std::string_view bytes) override
    {
        m_buffer += bytes;
        if (m_buffer.size() >= kBufferSize && !flush()) fail(errno, m_path);
    }

    void close() override
    {
        if (!m_file.isOpen()) return;
        const int writeError = flush() ? 0 : errno;
        const int closeError = m_file.close() ? 0 : errno;
        if (writeError != 0 || closeError != 0) fail(writeError != 0 ? writeError : closeError, m_path);
    }

private:
    /// What failed once is not tried again: the file stays as far as it was written.
    bool flush() { return writeAll(m_file, std::exchange(m_buffer, {})); }

    FileDescriptor m_file;
    std::string m_path;
    std::string m_buffer;
};

/// Many devices can be read without an end.
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
        if (isFileAt(place) && !isWritableFile(place)) fail(EACCES, place);
        FileDescriptor file(open(place.c_str(), O_WRONLY | O_CREAT | O_TRUNC | kOpenFlags, 0666));
        if (!file.isOpen()) fail(errno, place);
        return std::make_unique<PosixOutput>(std::move(file), place);
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
        // Most searches ask for one file by its right name.
        if (isFileAt(asGiven)) return given.name;
        if (given.name.find_first_of("*?") == std::string::npos && !given.name.empty()) {
            const std::string found = systemPath(path);
            return isFileAt(found) ? split(found).name : std::string();
        }
        if (path.empty()) return {};
        // "*.*" fits every name, one without a dot too.
        const bool every = given.name.empty() || given.name == "*.*";
        return firstFile(systemPath(given.folder), every ? "*" : foldedName(given.name));
    }

    bool isFolder(const std::string &path) override { return isFolderAt(systemPath(path)); }

    void remove(const std::string &path) override
    {
        const std::string place = filePath(path);
        if (isFolderAt(place)) fail(EISDIR, place);
        if (isFileAt(place) && !isWritableFile(place)) fail(EACCES, place);
        if (unlink(place.c_str()) == 0) return;
        // The file itself would let: it is the folder that refuses.
        if (errno == EACCES || errno == EPERM || errno == EROFS) throw RuntimeError(error_number::pathAccess);
        fail(errno, place);
    }

    std::string applicationFolder() override { return m_applicationFolder; }

    void changeDrive(const std::string &) override {} // one tree, no drives

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
