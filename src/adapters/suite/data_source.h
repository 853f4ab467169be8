#pragma once

#include "system/file_path.h"

#include <functional>
#include <string>

namespace inin {

/// A data source without a folder of its own lies in the application folder, wherever the program was started.
inline std::function<std::string(const std::string &)> dataSourceIn(const std::string &folder)
{
    return [folder](const std::string &dataSource) {
        return systemPath(isAbsolutePath(dataSource) ? dataSource : folder + "/" + dataSource);
    };
}

} // namespace inin
