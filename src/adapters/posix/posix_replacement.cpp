#include "adapters/posix/posix_replacement.h"

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace inin {

namespace {

constexpr mode_t kByTheMask = 0666;
constexpr std::string_view kMark = ".~";

/// With a trailing slash; empty for the current folder.
std::string folderOf(const std::string &path)
{
    return path.substr(0, path.rfind('/') + 1);
}

std::string placeOf(const FileDescriptor &file)
{
    return "/proc/self/fd/" + std::to_string(file.get());
}

bool isLocked(const FileDescriptor &file)
{
    return flock(file.get(), LOCK_EX | LOCK_NB) == 0;
}

/// Locks a newly created file. False, with EEXIST, if another program has taken it for an abandoned one.
bool isOwned(FileDescriptor &file)
{
    struct stat status {};
    const bool isTaken = !isLocked(file) && errno == EWOULDBLOCK; // some file systems do not support locks
    if (!isTaken && fstat(file.get(), &status) == 0 && status.st_nlink > 0) return true;
    file = FileDescriptor();
    errno = EEXIST;
    return false;
}

/// Gives the new file the permissions and the owner of the old one.
bool takeOver(const FileDescriptor &file, const struct stat &old)
{
    struct stat own {};
    if (fstat(file.get(), &own) != 0) return false;
    const bool sameOwner = own.st_uid == old.st_uid && own.st_gid == old.st_gid;
    if (!sameOwner && fchown(file.get(), old.st_uid, old.st_gid) != 0) return false;
    return fchmod(file.get(), old.st_mode & 07777) == 0;
}

/// True for text of the form "PID-N".
bool isProcessAndNumber(std::string_view text)
{
    const std::size_t dash = text.find('-');
    return dash != 0 && dash != std::string_view::npos && dash + 1 < text.size() &&
           text.find_first_not_of("0123456789-") == std::string_view::npos && text.rfind('-') == dash;
}

void removeIfAbandoned(const std::string &path)
{
    const FileDescriptor file(open(path.c_str(), O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat status {};
    if (!file.isOpen() || fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) return;
    if (isLocked(file)) unlink(path.c_str());
}

} // namespace

BlockedSignals::BlockedSignals()
{
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &m_before);
}

BlockedSignals::~BlockedSignals()
{
    pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
}

Replacement::Replacement(const std::string &target) : m_target(target), m_file(create()) {}

Replacement::~Replacement()
{
    if (!m_name.empty()) unlink(m_name.c_str());
}

FileDescriptor Replacement::create()
{
    FileDescriptor file(open((folderOf(m_target) + ".").c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, kByTheMask));
    // The file gets its name through /proc/self/fd, which may be missing.
    if (file.isOpen() && isLocked(file) && access(placeOf(file).c_str(), F_OK) == 0) return file;
    (void)takeName([&file](const std::string &name) { // after a failure the file is closed
        file = FileDescriptor(open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, kByTheMask));
        return file.isOpen() && isOwned(file);
    });
    return file;
}

bool Replacement::takeName(const std::function<bool(const std::string &name)> &isTaken)
{
    constexpr int attempts = 100;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        std::string name = m_target + std::string(kMark) + std::to_string(getpid()) + "-" + std::to_string(attempt);
        if (isTaken(name)) {
            m_name = std::move(name);
            return true;
        }
        if (errno != EEXIST) return false;
    }
    return false;
}

bool Replacement::canReplace(const struct stat *old) const
{
    return m_file.isOpen() && (old == nullptr || takeOver(m_file, *old));
}

bool Replacement::commit(std::string_view bytes)
{
    if (!writeAll(m_file, bytes) || fsync(m_file.get()) != 0) return false;
    const bool isNamed = !m_name.empty() || takeName([this](const std::string &name) {
        return linkat(AT_FDCWD, placeOf(m_file).c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0;
    });
    if (!isNamed || rename(m_name.c_str(), m_target.c_str()) != 0) return false;
    m_name.clear();
    return true;
}

void removeAbandonedReplacements(const std::string &target)
{
    const std::string folder = folderOf(target);
    const std::string prefix = target.substr(folder.size()) + std::string(kMark);
    const FolderHandle entries(opendir(folder.empty() ? "." : folder.c_str()));
    while (const dirent *const entry = entries ? readdir(entries.get()) : nullptr) {
        const std::string_view name = entry->d_name;
        if (name.starts_with(prefix) && isProcessAndNumber(name.substr(prefix.size())))
            removeIfAbandoned(folder + entry->d_name);
    }
}

} // namespace inin
