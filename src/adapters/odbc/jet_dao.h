#pragma once

#include "adapters/database/dao_over_ado.h"
#include "platform/dao.h"

#include <functional>
#include <memory>
#include <string>

namespace inin::odbc {

/// The driver for Jet files: part of the system on Windows, from a package elsewhere (see mdb_driver.h).
[[nodiscard]] std::string jetDriver();
/// What that driver supports: outside Windows it is read-only.
[[nodiscard]] DaoAccess jetAccess();

/// Opens Jet files through the older library's port: a database's name is the path of its file. `resolvePath` turns
/// that path of the suite into one of the system. `driver` is a registered name or jetDriver(); if it is missing,
/// opening is error 3151.
[[nodiscard]] std::unique_ptr<DaoEngine> makeJetDao(std::function<std::string(const std::string &)> resolvePath,
                                                    std::string driver = jetDriver());

} // namespace inin::odbc
