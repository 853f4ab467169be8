#include "adapters/sqlite/file_identity.h"

#include <sys/stat.h>

namespace inin {

std::optional<FileIdentity> fileIdentity(const std::string &path)
{
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
    return FileIdentity{status.st_dev, status.st_ino};
}

} // namespace inin
