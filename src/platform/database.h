#pragma once

#include "runtime/variant.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace inin {

// The interface of ADO. Failures are RuntimeErrors with ADO's numbers; the connection's error list has the details.

inline constexpr std::int32_t adOpenForwardOnly = 0;
inline constexpr std::int32_t adLockReadOnly = 1;
inline constexpr std::int32_t adCmdText = 1;
inline constexpr std::int32_t adExecuteNoRecords = 128;
inline constexpr std::int32_t adUseServer = 2;
inline constexpr std::int32_t adUseClient = 3;
inline constexpr std::int32_t adStateClosed = 0;
inline constexpr std::int32_t adStateOpen = 1;

/// ADO's numbers for the failures of a provider.
namespace ado_error {
inline constexpr std::int32_t faultyStatement = -2147217900;
inline constexpr std::int32_t noSuchTable = -2147217865;
inline constexpr std::int32_t logInRefused = -2147217843;
inline constexpr std::int32_t timedOut = -2147217871;
inline constexpr std::int32_t constraint = -2147217873;
inline constexpr std::int32_t unspecified = -2147467259;
} // namespace ado_error

/// One entry of a connection's error list.
struct ProviderError {
    std::int32_t Number = 0;
    std::string Description;
    std::string Source;
    std::string SQLState;
    std::int32_t NativeError = 0;
};

/// A session on a database.
class Connection {
public:
    Connection() = default;
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;
    virtual ~Connection() = default;

    [[nodiscard]] virtual std::int32_t State() const = 0;
    /// Error 3705 when already open.
    virtual void Open(const std::string &connectionString, const std::string &user, const std::string &password,
                      std::int32_t options) = 0;
    /// Error 3704 when not open.
    virtual void Close() = 0;
    [[nodiscard]] virtual std::string DefaultDatabase() const = 0;
    [[nodiscard]] virtual std::int32_t CommandTimeout() const = 0;
    virtual void setCommandTimeout(std::int32_t seconds) = 0;
    /// Runs a statement and discards its rows. Returns the number of affected rows, -1 for a statement of another kind.
    virtual std::int32_t Execute(const std::string &sql, std::int32_t options) = 0;
    virtual void BeginTrans() = 0;
    virtual void CommitTrans() = 0;
    virtual void RollbackTrans() = 0;
    /// The entries of the last failure; the caller may clear them.
    [[nodiscard]] virtual std::vector<ProviderError> &Errors() = 0;
};

/// The rows of one SELECT, read forward.
class Recordset {
public:
    Recordset() = default;
    Recordset(const Recordset &) = delete;
    Recordset &operator=(const Recordset &) = delete;
    virtual ~Recordset() = default;

    /// adUseServer, or adUseClient where RecordCount or MoveLast is needed.
    virtual void setCursorLocation(std::int32_t location) = 0;
    /// Runs one read-only statement. Refuses a batch or a statement that writes, with ado_error::faultyStatement.
    virtual void Open(const std::string &sql, Connection &connection, std::int32_t cursorType, std::int32_t lockType,
                      std::int32_t options) = 0;
    virtual void Close() = 0;
    [[nodiscard]] virtual std::int32_t State() const = 0;
    [[nodiscard]] virtual bool isEndOfFile() const = 0;
    virtual void MoveNext() = 0;
    virtual void MoveFirst() = 0;
    virtual void MoveLast() = 0;
    /// -1 for a server-side cursor.
    [[nodiscard]] virtual std::int32_t RecordCount() const = 0;

    [[nodiscard]] virtual std::size_t fieldCount() const = 0;
    [[nodiscard]] virtual std::string fieldName(std::size_t index) const = 0;
    /// ADO's type code: 2 smallint, 3 integer, 5 double, 135 date and time, 202 text, 204 binary, ...
    [[nodiscard]] virtual std::int32_t fieldType(std::size_t index) const = 0;
    /// The index of the first field of that name, ignoring ASCII case; error 3265 when there is none.
    [[nodiscard]] virtual std::size_t fieldIndex(std::string_view name) const = 0;
    /// The value in the current row; error 3021 without a current row.
    [[nodiscard]] virtual Variant Value(std::size_t index) const = 0;
    [[nodiscard]] Variant Field(std::string_view name) const { return Value(fieldIndex(name)); }
};

/// The provider library: creates unopened objects.
class Database {
public:
    Database() = default;
    Database(const Database &) = delete;
    Database &operator=(const Database &) = delete;
    virtual ~Database() = default;

    [[nodiscard]] virtual std::unique_ptr<Connection> newConnection() = 0;
    [[nodiscard]] virtual std::unique_ptr<Recordset> newRecordset() = 0;
    /// True while the transaction of an open session keeps all other sessions from writing, in a database that allows
    /// one writer at a time. Their writes fail until the transaction ends.
    [[nodiscard]] virtual bool isWriterBusy() const { return false; }
};

} // namespace inin
