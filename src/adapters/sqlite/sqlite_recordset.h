#pragma once

#include "adapters/sqlite/sqlite_connection.h"
#include "adapters/sqlite/sqlite_statement.h"
#include "platform/database.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace inin {

/// The rows of one SELECT. A server-side cursor streams them from SQLite, a client-side one reads all when opened.
class SqliteRecordset : public Recordset {
public:
    SqliteRecordset() = default;
    ~SqliteRecordset() override;

    void setCursorLocation(std::int32_t location) override;
    void Open(const std::string &sql, Connection &connection, std::int32_t cursorType, std::int32_t lockType,
              std::int32_t options) override;
    void Close() override;
    [[nodiscard]] std::int32_t State() const override { return isOpen() ? adStateOpen : adStateClosed; }
    [[nodiscard]] bool isEndOfFile() const override;
    void MoveNext() override;
    void MoveFirst() override;
    void MoveLast() override;
    [[nodiscard]] std::int32_t RecordCount() const override;
    [[nodiscard]] std::size_t fieldCount() const override { return statement().fieldCount(); }
    [[nodiscard]] std::string fieldName(std::size_t index) const override;
    [[nodiscard]] std::int32_t fieldType(std::size_t index) const override;
    [[nodiscard]] std::size_t fieldIndex(std::string_view name) const override;
    [[nodiscard]] Variant Value(std::size_t index) const override;

private:
    /// False also once the session is closed.
    [[nodiscard]] bool isOpen() const { return m_statement && m_lease->handle; }
    /// Error 3704 when the record set is closed.
    [[nodiscard]] SqliteStatement &statement() const;
    void step();
    void readAll();
    void release();

    std::shared_ptr<SqliteLease> m_lease;
    std::shared_ptr<SqliteStatement> m_statement;
    std::vector<std::vector<Variant>> m_rows; ///< of a client-side cursor
    std::size_t m_row = 0;
    bool m_atEnd = false;
    bool m_client = false;
};

} // namespace inin
