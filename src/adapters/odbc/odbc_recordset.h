#pragma once

#include "adapters/odbc/odbc_connection.h"
#include "adapters/odbc/odbc_cursor.h"
#include "platform/database.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace inin::odbc {

/// The rows of one SELECT. A server-side cursor streams them in blocks, a client-side one reads all on opening.
class OdbcRecordset : public Recordset {
public:
    OdbcRecordset() = default;
    ~OdbcRecordset() override { release(); }

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
    [[nodiscard]] std::size_t fieldCount() const override { return cursor().columns().size(); }
    [[nodiscard]] std::string fieldName(std::size_t index) const override { return column(index).name; }
    [[nodiscard]] std::int32_t fieldType(std::size_t index) const override { return column(index).adoType; }
    [[nodiscard]] std::size_t fieldIndex(std::string_view name) const override;
    [[nodiscard]] Variant Value(std::size_t index) const override;

private:
    /// Also false when the session was closed while the record set was open.
    [[nodiscard]] bool isOpen() const { return m_cursor && m_lease->session; }
    /// Error 3704 if it is closed.
    [[nodiscard]] OdbcCursor &cursor() const;
    /// Error 3265 if there is none.
    [[nodiscard]] const OdbcColumn &column(std::size_t index) const;
    void readAll();
    void release();

    std::shared_ptr<OdbcLease> m_lease;
    std::shared_ptr<OdbcCursor> m_cursor;
    std::string m_sql;
    std::vector<std::vector<Variant>> m_rows; ///< client-side cursor only
    std::size_t m_row = 0;
    bool m_client = false;
};

} // namespace inin::odbc
