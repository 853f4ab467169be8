#pragma once

#include "adapters/odbc/odbc_database.h"
#include "runtime/runtime_error.h"

#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace inin::test {

inline std::string fromEnvironment(const char *name)
{
    const char *value = std::getenv(name);
    if (value == nullptr) throw std::runtime_error(std::string(name) + " is not set: run this test by with_postgres");
    return value;
}

inline std::string postgres()
{
    return fromEnvironment("ININ_ODBC_POSTGRES");
}

inline std::string sqliteFile()
{
    return "Driver=SQLite3;Timeout=2000;Database=" + fromEnvironment("ININ_ODBC_FOLDER") + "/contract.db";
}

/// A connected session on a real driver.
struct Session {
    explicit Session(const std::string &connectionString,
                     std::shared_ptr<odbc::OdbcDatabase> library = odbc::makeOdbcDatabase())
        : database(std::move(library)), connection(database->newConnection())
    {
        connection->Open(connectionString, "", "", -1);
    }

    std::int32_t run(const std::string &sql) const { return connection->Execute(sql, adExecuteNoRecords); }
    [[nodiscard]] std::unique_ptr<Recordset> open(const std::string &sql, std::int32_t location = adUseServer) const
    {
        std::unique_ptr<Recordset> rows = database->newRecordset();
        rows->setCursorLocation(location);
        rows->Open(sql, *connection, adOpenForwardOnly, adLockReadOnly, adCmdText);
        return rows;
    }
    /// The first column of all rows.
    [[nodiscard]] std::vector<Variant> column(const std::string &sql) const
    {
        std::vector<Variant> values;
        for (const auto rows = open(sql); !rows->isEndOfFile(); rows->MoveNext()) values.push_back(rows->Value(0));
        return values;
    }
    [[nodiscard]] Variant value(const std::string &sql) const
    {
        const std::vector<Variant> values = column(sql);
        return values.size() == 1 ? values[0] : Variant("not one row");
    }
    /// Creates an empty table.
    void table(const std::string &name, const std::string &columns) const
    {
        run("DROP TABLE IF EXISTS " + name);
        run("CREATE TABLE " + name + " (" + columns + ")");
    }

    std::shared_ptr<odbc::OdbcDatabase> database;
    std::unique_ptr<Connection> connection;
};

/// The error that a call raises; number 0 if it raises none.
inline RuntimeError errorOf(const std::function<void()> &call)
try {
    call();
    return RuntimeError(0, "");
} catch (const RuntimeError &error) {
    return error;
}

} // namespace inin::test
