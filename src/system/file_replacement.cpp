#include "system/file_replacement.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <utility>

#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <unistd.h>

namespace inin {

namespace {

/// The number of programs that can write into one folder at the same time.
constexpr int kTemporaryNames = 32;

/// The temporary names of this process. Atomic, because a signal may arrive at any time.
std::array<std::atomic<const char *>, kTemporaryNames> removedBySignal{};
static_assert(std::atomic<const char *>::is_always_lock_free);

/// Calls only functions that are safe in a signal handler.
void removeAndEnd(int signal)
{
    for (const std::atomic<const char *> &name : removedBySignal)
        if (const char *const path = name.load()) (void)unlink(path);
    (void)raise(signal); // the default action is in force again
}

void handleSignals()
{
    for (const int signal : {SIGHUP, SIGINT, SIGTERM}) {
        struct sigaction action {};
        // A signal that the program ignores or handles keeps its action.
        if (sigaction(signal, nullptr, &action) != 0 || action.sa_handler != SIG_DFL) continue;
        action.sa_handler = removeAndEnd;
        action.sa_flags = static_cast<int>(SA_RESETHAND);
        (void)sigaction(signal, &action, nullptr);
    }
}

std::string temporaryName(const std::string &folder, int number)
{
    return folder + ".inin-" + std::to_string(number) + ".tmp";
}

/// The lock lasts as long as the descriptor is open: it shows that the file's writer is alive.
bool lock(const FileDescriptor &file)
{
    return flock(file.get(), LOCK_EX | LOCK_NB) == 0;
}

/// Removes temporary files that killed processes left in the folder.
void removeAbandoned(const std::string &folder)
{
    for (int number = 0; number < kTemporaryNames; ++number) {
        const std::string path = temporaryName(folder, number);
        const FileDescriptor file(open(path.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
        // Only the owner of the lock removes or renames the file, so the name still refers to the locked file.
        if (file.isOpen() && lock(file) && isNamed(file, path)) (void)unlink(path.c_str());
    }
}

} // namespace

FileReplacement::FileReplacement(std::string systemPath, mode_t rights, Storage storage)
    : m_target(std::move(systemPath)), m_folder(m_target.substr(0, m_target.rfind('/') + 1)), m_rights(rights)
{
    removeAbandoned(m_folder);
    if (storage == Storage::unnamedIfPossible) openUnnamed();
    if (!isOpen()) openNamed();
}

FileReplacement::~FileReplacement()
{
    if (m_temporary.empty()) return;
    (void)unlink(m_temporary.c_str());
    forgetTemporary();
}

void FileReplacement::openUnnamed()
{
#ifdef O_TMPFILE
    m_file =
        FileDescriptor(open(m_folder.empty() ? "." : m_folder.c_str(), O_WRONLY | O_TMPFILE | O_CLOEXEC, m_rights));
    // The file is linked to its name through this entry.
    if (isOpen() && access(("/proc/self/fd/" + std::to_string(m_file.get())).c_str(), F_OK) != 0) m_file.close();
#endif
}

void FileReplacement::openNamed()
{
    errno = EEXIST;
    for (int number = 0; number < kTemporaryNames && !isOpen() && errno == EEXIST; ++number) {
        std::string path = temporaryName(m_folder, number);
        FileDescriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, m_rights));
        if (!file.isOpen()) continue;
        // In a file system without locks no process treats the file as abandoned.
        const bool isOwn = lock(file) || errno != EWOULDBLOCK;
        if (isOwn && isNamed(file, path)) {
            m_file = std::move(file);
            setTemporary(std::move(path));
        }
        errno = EEXIST; // another process removed it as abandoned before it was locked
    }
}

bool FileReplacement::keepRights(const struct stat &old)
{
    struct stat own {};
    if (fstat(m_file.get(), &own) != 0) return false;
    const bool sameOwner = own.st_uid == old.st_uid && own.st_gid == old.st_gid;
    if (!sameOwner && fchown(m_file.get(), old.st_uid, old.st_gid) != 0) return false;
    return fchmod(m_file.get(), old.st_mode & 07777) == 0;
}

bool FileReplacement::linkAs(const std::string &path) const
{
    const std::string descriptor = "/proc/self/fd/" + std::to_string(m_file.get());
    return linkat(AT_FDCWD, descriptor.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) == 0;
}

bool FileReplacement::linkAsTemporary()
{
    (void)lock(m_file);
    errno = EEXIST;
    for (int number = 0; number < kTemporaryNames && errno == EEXIST; ++number) {
        std::string path = temporaryName(m_folder, number);
        if (!linkAs(path)) continue;
        setTemporary(std::move(path));
        return true;
    }
    return false;
}

bool FileReplacement::commit()
{
    if (fsync(m_file.get()) != 0) return false;
    if (m_temporary.empty()) {
        if (linkAs(m_target)) return true;
        // An existing name can only be replaced by renaming another file to it.
        if (errno != EEXIST || !linkAsTemporary()) return false;
    }
    if (std::rename(m_temporary.c_str(), m_target.c_str()) != 0) return false;
    forgetTemporary();
    return true;
}

/// Moves the path and never copies it: a failed allocation would leave the file in the folder.
void FileReplacement::setTemporary(std::string &&path)
{
    m_temporary = std::move(path);
    handleSignals();
    for (std::atomic<const char *> &name : removedBySignal) {
        const char *expected = nullptr;
        if (name.compare_exchange_strong(expected, m_temporary.c_str())) return;
    }
}

void FileReplacement::forgetTemporary()
{
    for (std::atomic<const char *> &name : removedBySignal) {
        const char *expected = m_temporary.c_str();
        if (name.compare_exchange_strong(expected, nullptr)) break;
    }
    m_temporary.clear();
}

} // namespace inin
