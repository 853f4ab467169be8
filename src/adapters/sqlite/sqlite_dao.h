#pragma once

#include "platform/dao.h"

#include <functional>
#include <memory>
#include <string>

namespace inin {

/// The embedded database behind the older library's port: a database's name is the path of its file. `resolvePath`
/// turns it, a path of the suite, into one that the system opens.
[[nodiscard]] std::unique_ptr<DaoEngine> makeSqliteDao(std::function<std::string(const std::string &)> resolvePath);

} // namespace inin
