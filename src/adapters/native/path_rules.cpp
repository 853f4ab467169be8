#include "adapters/native/path_rules.h"

#include "runtime/runtime_error.h"

#include <algorithm>

namespace inin {

void checkFilePath(const std::string &path)
{
    const std::string name = path.substr(path.find_last_of("\\/") + 1);
    if (path.empty() || path.find('\0') != std::string::npos || name.find_first_of("*?\"<>|") != std::string::npos)
        throw RuntimeError(error_number::badFileName);
    if (name.empty()) throw RuntimeError(error_number::pathAccess);
}

std::vector<FolderPlace> placesAbove(const std::string &drive, const std::string &folder, char separator)
{
    std::vector<FolderPlace> places{{drive, drive}};
    for (std::size_t at = drive.ends_with(separator) ? drive.size() : drive.size() + 1; at < folder.size();) {
        const std::size_t end = std::min(folder.find(separator, at), folder.size());
        places.push_back({folder.substr(at, end - at), folder.substr(0, end)});
        at = end + 1;
    }
    return places;
}

} // namespace inin
