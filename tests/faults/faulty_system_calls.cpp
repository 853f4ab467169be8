#include "faults/faulty_system_calls.h"

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <ctime>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

namespace inin {

namespace {

std::atomic<FaultPlan *> armedPlan = nullptr;
std::atomic<FaultySystemCalls::Fault> armedFault = FaultySystemCalls::Fault::failure;

void killThisProcess()
{
    (void)kill(getpid(), SIGKILL);
    for (;;) (void)pause();
}

/// True if the call must fail; errno is set then.
bool mustFail(const char *call, int error)
{
    FaultPlan *const plan = armedPlan;
    if (plan == nullptr || !plan->fails(call)) return false;
    if (armedFault == FaultySystemCalls::Fault::killed) killThisProcess();
    errno = error;
    return true;
}

/// True for a file on a disk that is open for writing.
bool isWrittenFile(int file)
{
    if (armedPlan.load() == nullptr) return false;
    const int before = errno;
    struct stat status {};
    const bool isWritten =
        (fcntl(file, F_GETFL) & O_ACCMODE) != O_RDONLY && fstat(file, &status) == 0 && S_ISREG(status.st_mode);
    errno = before;
    return isWritten;
}

/// The same for a call that writes: a killed process has written half of the bytes.
bool mustFailToWrite(int file, const void *bytes, std::size_t size)
{
    if (!isWrittenFile(file)) return false;
    FaultPlan *const plan = armedPlan;
    if (!plan->fails("write")) return false;
    if (armedFault == FaultySystemCalls::Fault::killed) {
        (void)syscall(SYS_write, file, bytes, size / 2);
        killThisProcess();
    }
    errno = ENOSPC;
    return true;
}

bool createsFile(int flags)
{
    return (flags & (O_CREAT | O_TRUNC)) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
}

int openAt(int folder, const char *path, int flags, mode_t rights)
{
    if (createsFile(flags) && mustFail("open", ENOSPC)) return -1;
    return static_cast<int>(syscall(SYS_openat, folder, path, flags, rights));
}

} // namespace

FaultySystemCalls::FaultySystemCalls(FaultPlan &plan, Fault fault)
{
    armedFault = fault;
    armedPlan = &plan;
}

FaultySystemCalls::~FaultySystemCalls()
{
    armedPlan = nullptr;
}

// The program's own definitions take precedence over those of the C library for all its libraries. They have other names
// here, because the headers may define the real ones inline.
extern "C" {

ssize_t faultyWrite(int file, const void *bytes, size_t size) __asm__("write");
ssize_t faultyWrite(int file, const void *bytes, size_t size)
{
    if (mustFailToWrite(file, bytes, size)) return -1;
    return syscall(SYS_write, file, bytes, size);
}

ssize_t faultyWritev(int file, const struct iovec *parts, int count) __asm__("writev");
ssize_t faultyWritev(int file, const struct iovec *parts, int count)
{
    if (mustFailToWrite(file, parts->iov_base, parts->iov_len)) return -1;
    return syscall(SYS_writev, file, parts, count);
}

ssize_t faultyPwrite(int file, const void *bytes, size_t size, off_t place) __asm__("pwrite64");
ssize_t faultyPwrite(int file, const void *bytes, size_t size, off_t place)
{
    if (isWrittenFile(file) && mustFail("pwrite", ENOSPC)) return -1;
    return syscall(SYS_pwrite64, file, bytes, size, place);
}

int faultyFtruncate(int file, off_t size) __asm__("ftruncate");
int faultyFtruncate(int file, off_t size)
{
    if (isWrittenFile(file) && mustFail("ftruncate", EIO)) return -1;
    return static_cast<int>(syscall(SYS_ftruncate, file, size));
}

int faultyFsync(int file) __asm__("fsync");
int faultyFsync(int file)
{
    if (isWrittenFile(file) && mustFail("fsync", EIO)) return -1;
    return static_cast<int>(syscall(SYS_fsync, file));
}

int faultyFdatasync(int file) __asm__("fdatasync");
int faultyFdatasync(int file)
{
    if (isWrittenFile(file) && mustFail("fdatasync", EIO)) return -1;
    return static_cast<int>(syscall(SYS_fdatasync, file));
}

/// The system closes the file even if it reports the failure of an earlier write.
int faultyClose(int file) __asm__("close");
int faultyClose(int file)
{
    const bool fails = isWrittenFile(file) && mustFail("close", EIO);
    const int result = static_cast<int>(syscall(SYS_close, file));
    if (!fails) return result;
    errno = EIO;
    return -1;
}

int faultyOpen(const char *path, int flags, ...) __asm__("open");
int faultyOpen(const char *path, int flags, ...)
{
    va_list more;
    va_start(more, flags);
    // va_start has initialized it. NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized)
    const mode_t rights = createsFile(flags) ? va_arg(more, mode_t) : 0;
    va_end(more);
    return openAt(AT_FDCWD, path, flags, rights);
}

int faultyOpen64(const char *path, int flags, ...) __asm__("open64");
int faultyOpen64(const char *path, int flags, ...)
{
    va_list more;
    va_start(more, flags);
    // va_start has initialized it. NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized)
    const mode_t rights = createsFile(flags) ? va_arg(more, mode_t) : 0;
    va_end(more);
    return openAt(AT_FDCWD, path, flags, rights);
}

int faultyRename(const char *from, const char *to) __asm__("rename");
int faultyRename(const char *from, const char *to)
{
    if (mustFail("rename", EIO)) return -1;
    return static_cast<int>(syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}

int faultyLinkat(int fromFolder, const char *from, int toFolder, const char *to, int flags) __asm__("linkat");
int faultyLinkat(int fromFolder, const char *from, int toFolder, const char *to, int flags)
{
    if (mustFail("linkat", EIO)) return -1;
    return static_cast<int>(syscall(SYS_linkat, fromFolder, from, toFolder, to, flags));
}

int faultyUnlink(const char *path) __asm__("unlink");
int faultyUnlink(const char *path)
{
    if (mustFail("unlink", EIO)) return -1;
    return static_cast<int>(syscall(SYS_unlinkat, AT_FDCWD, path, 0));
}
}

} // namespace inin
