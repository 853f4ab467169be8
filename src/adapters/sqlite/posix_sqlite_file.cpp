#include "adapters/sqlite/sqlite_file.h"

#include <sys/stat.h>

namespace inin::sqlite {

std::optional<FileIdentity> fileIdentity(const std::string &path)
{
    constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
    return FileIdentity{status.st_dev, status.st_ino, static_cast<std::uint64_t>(status.st_size),
                        status.st_mtim.tv_sec * kNanosecondsPerSecond + status.st_mtim.tv_nsec};
}

} // namespace inin::sqlite
