#pragma once

#include "system/file_path.h"

#include <functional>
#include <string>

namespace inin {

/// A Data Source without a folder is in the application folder, independent of the current folder at the start.
inline std::function<std::string(const std::string &)> dataSourceIn(const std::string &folder)
{
    return [folder](const std::string &dataSource) {
        return systemPath(isAbsolutePath(dataSource) ? dataSource : folder + "/" + dataSource);
    };
}

} // namespace inin
