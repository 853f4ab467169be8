#pragma once

#include "adapters/database/provider_recordset.h"
#include "adapters/sqlite/sqlite_connection.h"
#include "adapters/sqlite/sqlite_statement.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace inin::sqlite {

/// The rows of one SELECT. A server-side cursor streams them from SQLite.
class SqliteRecordset : public ProviderRecordset {
public:
    SqliteRecordset() = default;
    ~SqliteRecordset() override { release(); }

    [[nodiscard]] std::size_t fieldCount() const override;
    [[nodiscard]] std::string fieldName(std::size_t index) const override;
    [[nodiscard]] std::int32_t fieldType(std::size_t index) const override;

private:
    [[nodiscard]] bool isOpen() const override { return m_statement && m_lease->handle; }
    void openCursor(const std::string &sql, Connection &connection) override;
    void closeCursor() override;
    [[nodiscard]] bool isCursorAtEnd() const override { return m_atEnd; }
    void nextRow() override;
    void restartCursor() override;
    void endReading() override { m_statement->reset(); }
    [[nodiscard]] std::size_t cursorFieldIndex(std::string_view name) const override
    {
        return m_statement->fieldIndex(name);
    }
    [[nodiscard]] Variant cursorValue(std::size_t index) const override { return m_statement->value(index); }

    std::shared_ptr<SqliteLease> m_lease;
    std::shared_ptr<SqliteStatement> m_statement;
    bool m_atEnd = false;
};

} // namespace inin::sqlite
