#include "viewer/io/file_stamp.h"

#include "viewer/io/file_io.h"

#include <sys/stat.h>

namespace inin::viewer {

FileStamp stampOf(const std::string &path)
{
    constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;
    struct stat status {};
    if (stat(systemPathOf(path).c_str(), &status) != 0) return {};
    return {true, status.st_mtim.tv_sec * kNanosecondsPerSecond + status.st_mtim.tv_nsec, status.st_size};
}

} // namespace inin::viewer
