#include "adapters/sqlite/file_identity.h"

#ifdef _WIN32
#include <filesystem>
#else
#include <sys/stat.h>
#endif

namespace inin {

#ifdef _WIN32
std::optional<FileIdentity> fileIdentity(const std::string &path)
{
    std::error_code error;
    const std::u8string name(path.begin(), path.end());
    if (!std::filesystem::is_regular_file(std::filesystem::path(name), error)) return std::nullopt;
    return FileIdentity{};
}
#else
std::optional<FileIdentity> fileIdentity(const std::string &path)
{
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
    return FileIdentity{status.st_dev, status.st_ino};
}
#endif

} // namespace inin
