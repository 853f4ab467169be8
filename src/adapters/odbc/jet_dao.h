#pragma once

#include "adapters/database/dao_over_ado.h"
#include "platform/dao.h"

#include <functional>
#include <memory>
#include <string>

namespace inin::odbc {

/// The driver for Jet files: of the system on Windows, of a package elsewhere (see mdb_driver.h).
[[nodiscard]] std::string jetDriver();
/// What that driver can do: outside Windows it only reads.
[[nodiscard]] DaoAccess jetAccess();

/// Jet files behind the older library's port: a database's name is the path of its file. `resolvePath` turns it, a path
/// of the suite, into one that the system opens. `driver` is a registered name or jetDriver(); without it an opening is
/// error 3151.
[[nodiscard]] std::unique_ptr<DaoEngine> makeJetDao(std::function<std::string(const std::string &)> resolvePath,
                                                    std::string driver = jetDriver());

} // namespace inin::odbc
