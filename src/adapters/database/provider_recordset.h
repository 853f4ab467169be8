#pragma once

#include "adapters/database/ado_error.h"
#include "platform/database.h"
#include "runtime/runtime_error.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace inin {

/// A provider's record set over its forward-only cursor. A server-side cursor streams the rows, a client-side one reads
/// all on opening. A subclass calls release() in its destructor.
class ProviderRecordset : public Recordset {
public:
    void setCursorLocation(std::int32_t location) final;
    void Open(const std::string &sql, Connection &connection, std::int32_t cursorType, std::int32_t lockType,
              std::int32_t options) final;
    void Close() final;
    [[nodiscard]] std::int32_t State() const final { return isOpen() ? adStateOpen : adStateClosed; }
    [[nodiscard]] bool isEndOfFile() const final;
    void MoveNext() final;
    /// A server-side cursor runs the statement again.
    void MoveFirst() final;
    void MoveLast() final;
    /// A provider's count is unreliable: counts the rows that were read.
    [[nodiscard]] std::int32_t RecordCount() const final;
    [[nodiscard]] std::size_t fieldIndex(std::string_view name) const final;
    [[nodiscard]] Variant Value(std::size_t index) const final;

protected:
    void release();
    /// Error 3704 if the record set is closed.
    void requireOpen() const;
    /// Error 3265 if there is no such field.
    void requireField(std::size_t index) const;
    /// Error 3001 for a connection of another provider.
    template <class Own> [[nodiscard]] static Own &ownConnection(Connection &connection)
    {
        auto *own = dynamic_cast<Own *>(&connection);
        if (own == nullptr) throw RuntimeError(ado_error::badArgument, "the connection is another provider's");
        return *own;
    }

private:
    /// Also false when the session was closed while the record set was open.
    [[nodiscard]] virtual bool isOpen() const = 0;
    // The provider's cursor. All but the first two are called only while it is open.
    virtual void openCursor(const std::string &sql, Connection &connection) = 0;
    virtual void closeCursor() = 0;
    [[nodiscard]] virtual bool isCursorAtEnd() const = 0;
    virtual void nextRow() = 0;
    virtual void restartCursor() = 0;
    /// All rows were read; only the fields are needed from now on.
    virtual void endReading() {}
    /// fieldCount() for an unknown name.
    [[nodiscard]] virtual std::size_t cursorFieldIndex(std::string_view name) const = 0;
    [[nodiscard]] virtual Variant cursorValue(std::size_t index) const = 0;

    void readAll();

    std::vector<std::vector<Variant>> m_rows; ///< client-side cursor only
    std::size_t m_row = 0;
    bool m_client = false;
};

} // namespace inin
