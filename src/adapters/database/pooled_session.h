#pragma once

#include "adapters/database/ado_error.h"
#include "platform/database.h"
#include "runtime/runtime_error.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace inin {

/// The physical connection of an open session, shared with its record sets. `physical` is empty once the session is
/// closed.
template <class Physical> struct Lease {
    std::unique_ptr<Physical> physical;
};

/// A session on a physical connection that a pool lends. `Pool` has giveBack(), `Physical` the statements, and the error
/// list and the timeout of the session that uses it.
template <class Physical, class Pool> class PooledConnection : public Connection {
public:
    explicit PooledConnection(std::shared_ptr<Pool> pool) : m_pool(std::move(pool)) {}
    ~PooledConnection() override
    {
        if (m_lease) giveBack();
    }

    /// Remains open after the connection was lost, as in ADO: the next operation fails; Close and Open recover.
    [[nodiscard]] std::int32_t State() const override { return m_lease ? adStateOpen : adStateClosed; }
    void Close() override
    {
        if (!m_lease) raiseClosed();
        giveBack();
    }
    [[nodiscard]] std::int32_t CommandTimeout() const override { return m_timeout; }
    void setCommandTimeout(std::int32_t seconds) override
    {
        if (seconds < 0) throw RuntimeError(ado_error::badArgument, "the command timeout is negative");
        m_timeout = seconds;
        if (m_lease) m_lease->physical->setTimeout(seconds);
    }
    std::int32_t Execute(const std::string &sql, std::int32_t) override { return lease()->physical->execute(sql); }
    void BeginTrans() override { lease()->physical->begin(); }
    void CommitTrans() override { lease()->physical->commit(); }
    void RollbackTrans() override { lease()->physical->rollback(); }
    [[nodiscard]] std::vector<ProviderError> &Errors() override { return *m_errors; }

    /// Error 3704 when the session is closed.
    [[nodiscard]] std::shared_ptr<Lease<Physical>> lease() const
    {
        if (!m_lease) raiseClosed();
        return m_lease;
    }

protected:
    /// Begins a session. The connection returns to the pool under `key`.
    void use(std::unique_ptr<Physical> physical, std::string key)
    {
        physical->setErrors(m_errors);
        physical->setTimeout(m_timeout);
        m_key = std::move(key);
        m_lease = std::make_shared<Lease<Physical>>(Lease<Physical>{std::move(physical)});
    }
    [[nodiscard]] bool isOpen() const { return m_lease != nullptr; }
    [[nodiscard]] Pool &pool() const { return *m_pool; }
    [[nodiscard]] const std::shared_ptr<std::vector<ProviderError>> &errors() const { return m_errors; }

private:
    void giveBack()
    {
        m_pool->giveBack(m_key, std::move(m_lease->physical));
        m_lease.reset();
    }

    std::shared_ptr<Pool> m_pool;
    std::shared_ptr<std::vector<ProviderError>> m_errors = std::make_shared<std::vector<ProviderError>>();
    std::shared_ptr<Lease<Physical>> m_lease;
    std::string m_key;
    std::int32_t m_timeout = kDefaultCommandTimeout;
};

/// The rows of one SELECT. A server-side cursor streams them, a client-side one reads all when opened. A `Cursor` comes
/// from openReading() of the physical connection; next() moves it, and after a failure it has no current row.
template <class Physical, class Cursor, class Session> class PooledRecordset : public Recordset {
public:
    PooledRecordset() = default;
    ~PooledRecordset() override { release(); }

    void setCursorLocation(std::int32_t location) override
    {
        if (isOpen()) raiseOpen();
        m_client = location == adUseClient;
    }
    void Open(const std::string &sql, Connection &connection, std::int32_t, std::int32_t, std::int32_t) override
    {
        if (isOpen()) raiseOpen();
        release();
        auto *session = dynamic_cast<Session *>(&connection);
        if (session == nullptr) throw RuntimeError(ado_error::badArgument, "the connection is another provider's");
        m_lease = session->lease();
        m_sql = sql;
        m_cursor = m_lease->physical->openReading(sql);
        if (!m_client) return;
        try {
            readAll();
        } catch (...) {
            release();
            throw;
        }
    }
    void Close() override
    {
        (void)cursor(); // raises when closed
        release();
    }
    [[nodiscard]] std::int32_t State() const override { return isOpen() ? adStateOpen : adStateClosed; }
    [[nodiscard]] bool isEndOfFile() const override
    {
        const Cursor &rows = cursor();
        return m_client ? m_row >= m_rows.size() : rows.atEnd();
    }
    void MoveNext() override
    {
        if (isEndOfFile()) throw RuntimeError(error_number::noCurrentRecord);
        if (m_client)
            ++m_row;
        else
            m_cursor->next();
    }
    /// A server-side cursor runs the statement again.
    void MoveFirst() override
    {
        (void)cursor(); // raises when closed
        m_row = 0;
        if (!m_client) m_lease->physical->restart(m_cursor, m_sql);
    }
    void MoveLast() override
    {
        (void)cursor(); // raises when closed
        if (!m_client)
            throw RuntimeError(ado_error::notInThisContext, "a forward-only record set has no way to its end");
        m_row = m_rows.empty() ? 0 : m_rows.size() - 1;
    }
    /// Counts the rows that were read, because a driver's count is unreliable.
    [[nodiscard]] std::int32_t RecordCount() const override
    {
        (void)cursor(); // raises when closed
        return m_client ? static_cast<std::int32_t>(m_rows.size()) : -1;
    }
    [[nodiscard]] std::size_t fieldCount() const override { return cursor().fieldCount(); }
    [[nodiscard]] std::string fieldName(std::size_t index) const override { return cursor().fieldName(known(index)); }
    /// The type of an expression, which has no declared type, is that of its value in the current row.
    [[nodiscard]] std::int32_t fieldType(std::size_t index) const override
    {
        constexpr std::int32_t kInteger = 3, kDouble = 5, kText = 202, kBinary = 204;
        if (const std::int32_t declared = cursor().declaredType(known(index)); declared != 0) return declared;
        if (isEndOfFile()) return kText;
        const Variant value = Value(index);
        if (value.getIf<std::int32_t>() != nullptr) return kInteger;
        if (value.getIf<double>() != nullptr) return kDouble;
        return value.getIf<Binary>() != nullptr ? kBinary : kText;
    }
    [[nodiscard]] std::size_t fieldIndex(std::string_view name) const override
    {
        return known(cursor().fieldIndex(name));
    }
    [[nodiscard]] Variant Value(std::size_t index) const override
    {
        if (isEndOfFile()) throw RuntimeError(error_number::noCurrentRecord);
        return m_client ? m_rows[m_row][known(index)] : m_cursor->value(known(index));
    }

private:
    /// False also once the session is closed.
    [[nodiscard]] bool isOpen() const { return m_cursor && m_lease->physical; }
    /// Error 3704 when the record set is closed.
    [[nodiscard]] Cursor &cursor() const
    {
        if (!isOpen()) raiseClosed();
        return *m_cursor;
    }
    /// The index; error 3265 when there is no such field.
    [[nodiscard]] std::size_t known(std::size_t index) const
    {
        if (index >= fieldCount()) throw RuntimeError(error_number::noSuchField);
        return index;
    }
    void readAll()
    {
        const std::size_t count = m_cursor->fieldCount();
        for (; !m_cursor->atEnd(); m_cursor->next()) {
            std::vector<Variant> &row = m_rows.emplace_back();
            row.reserve(count);
            for (std::size_t index = 0; index < count; ++index) row.push_back(m_cursor->value(index));
        }
        m_cursor->close();
    }
    void release()
    {
        if (isOpen()) m_cursor->close();
        m_cursor.reset();
        m_rows.clear();
        m_row = 0;
    }

    std::shared_ptr<Lease<Physical>> m_lease;
    std::shared_ptr<Cursor> m_cursor;
    std::string m_sql;
    std::vector<std::vector<Variant>> m_rows; ///< of a client-side cursor
    std::size_t m_row = 0;
    bool m_client = false;
};

} // namespace inin
