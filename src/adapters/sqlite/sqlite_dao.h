#pragma once

#include "platform/dao.h"

#include <functional>
#include <memory>
#include <string>

namespace inin {

/// The embedded database with the interface of DAO. A database's name is the path of its file; `resolvePath` converts
/// that path of the suite to one of the operating system.
[[nodiscard]] std::unique_ptr<DaoEngine> makeSqliteDao(std::function<std::string(const std::string &)> resolvePath);

} // namespace inin
