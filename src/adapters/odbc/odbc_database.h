#pragma once

#include "platform/database.h"

#include <cstdint>
#include <memory>

namespace inin::odbc {

/// SQL Server (or any server with an ODBC driver) behind the database port. Takes an ADO connection string, an ODBC one
/// or the name of a data source. Physical connections are kept idle for a minute, by connection string.
class OdbcDatabase : public Database {
public:
    /// How many physical log-ins there have been.
    [[nodiscard]] virtual std::int64_t logIns() const = 0;
};

[[nodiscard]] std::unique_ptr<OdbcDatabase> makeOdbcDatabase();

} // namespace inin::odbc
