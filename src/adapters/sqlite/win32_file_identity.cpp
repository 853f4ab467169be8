#include "adapters/sqlite/file_identity.h"

#include "runtime/file_path.h"

namespace inin {

std::optional<FileIdentity> fileIdentity(const std::string &path)
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(pathOf(path), error)) return std::nullopt;
    return FileIdentity{};
}

} // namespace inin
