#pragma once

#include "platform/database.h"

#include <cstdint>
#include <memory>

namespace inin::odbc {

/// The database port on SQL Server (or any server with an ODBC driver). Accepts an ADO connection string, an ODBC one
/// or the name of a data source. Idle physical connections are kept for a minute, by connection string.
class OdbcDatabase : public Database {
public:
    /// The number of physical log-ins so far.
    [[nodiscard]] virtual std::int64_t logIns() const = 0;
};

[[nodiscard]] std::unique_ptr<OdbcDatabase> makeOdbcDatabase();

} // namespace inin::odbc
