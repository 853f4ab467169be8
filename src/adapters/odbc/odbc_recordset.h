#pragma once

#include "adapters/database/provider_recordset.h"
#include "adapters/odbc/odbc_connection.h"
#include "adapters/odbc/odbc_cursor.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace inin::odbc {

/// The rows of one SELECT. A server-side cursor streams them in blocks.
class OdbcRecordset : public ProviderRecordset {
public:
    OdbcRecordset() = default;
    ~OdbcRecordset() override { release(); }

    [[nodiscard]] std::size_t fieldCount() const override;
    [[nodiscard]] std::string fieldName(std::size_t index) const override { return column(index).name; }
    [[nodiscard]] std::int32_t fieldType(std::size_t index) const override { return column(index).adoType; }

private:
    [[nodiscard]] bool isOpen() const override { return m_cursor && m_lease->session; }
    void openCursor(const std::string &sql, Connection &connection) override;
    void closeCursor() override;
    [[nodiscard]] bool isCursorAtEnd() const override { return m_cursor->atEnd(); }
    void nextRow() override { m_cursor->next(); }
    void restartCursor() override;
    [[nodiscard]] std::size_t cursorFieldIndex(std::string_view name) const override
    {
        return m_cursor->fieldIndex(name);
    }
    [[nodiscard]] Variant cursorValue(std::size_t index) const override { return m_cursor->value(index); }
    [[nodiscard]] const OdbcColumn &column(std::size_t index) const;

    std::shared_ptr<OdbcLease> m_lease;
    std::shared_ptr<OdbcCursor> m_cursor;
    std::string m_sql;
};

} // namespace inin::odbc
