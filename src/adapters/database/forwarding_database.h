#pragma once

#include "adapters/database/ado_error.h"
#include "platform/database.h"

#include <memory>
#include <utility>

namespace inin {

/// A connection that forwards every call to another one. Decorators override the calls that they observe or change.
class ForwardingConnection : public Connection {
public:
    explicit ForwardingConnection(std::unique_ptr<Connection> inner) : m_inner(std::move(inner)) {}
    [[nodiscard]] Connection &inner() { return *m_inner; }

    [[nodiscard]] std::int32_t State() const override { return m_inner->State(); }
    void Open(const std::string &connectionString, const std::string &user, const std::string &password,
              std::int32_t options) override
    {
        m_inner->Open(connectionString, user, password, options);
    }
    void Close() override { m_inner->Close(); }
    [[nodiscard]] std::string DefaultDatabase() const override { return m_inner->DefaultDatabase(); }
    [[nodiscard]] std::int32_t CommandTimeout() const override { return m_inner->CommandTimeout(); }
    void setCommandTimeout(std::int32_t seconds) override { m_inner->setCommandTimeout(seconds); }
    std::int32_t Execute(const std::string &sql, std::int32_t options) override
    {
        return m_inner->Execute(sql, options);
    }
    void BeginTrans() override { m_inner->BeginTrans(); }
    void CommitTrans() override { m_inner->CommitTrans(); }
    void RollbackTrans() override { m_inner->RollbackTrans(); }
    [[nodiscard]] std::vector<ProviderError> &Errors() override { return m_inner->Errors(); }

private:
    std::unique_ptr<Connection> m_inner;
};

/// A record set that forwards every call to another one, error 3704 if there is none. Open() unwraps a forwarding connection, because a provider's
/// record set accepts only connections of its own provider.
class ForwardingRecordset : public Recordset {
public:
    explicit ForwardingRecordset(std::unique_ptr<Recordset> inner = nullptr) : m_inner(std::move(inner)) {}

    void setCursorLocation(std::int32_t location) override { inner().setCursorLocation(location); }
    void Open(const std::string &sql, Connection &connection, std::int32_t cursorType, std::int32_t lockType,
              std::int32_t options) override
    {
        auto *forwarding = dynamic_cast<ForwardingConnection *>(&connection);
        inner().Open(sql, forwarding != nullptr ? forwarding->inner() : connection, cursorType, lockType, options);
    }
    void Close() override { inner().Close(); }
    [[nodiscard]] std::int32_t State() const override { return m_inner ? m_inner->State() : adStateClosed; }
    [[nodiscard]] bool isEndOfFile() const override { return inner().isEndOfFile(); }
    void MoveNext() override { inner().MoveNext(); }
    void MoveFirst() override { inner().MoveFirst(); }
    void MoveLast() override { inner().MoveLast(); }
    [[nodiscard]] std::int32_t RecordCount() const override { return inner().RecordCount(); }
    [[nodiscard]] std::size_t fieldCount() const override { return inner().fieldCount(); }
    [[nodiscard]] std::string fieldName(std::size_t index) const override { return inner().fieldName(index); }
    [[nodiscard]] std::int32_t fieldType(std::size_t index) const override { return inner().fieldType(index); }
    [[nodiscard]] std::size_t fieldIndex(std::string_view name) const override { return inner().fieldIndex(name); }
    [[nodiscard]] Variant Value(std::size_t index) const override { return inner().Value(index); }

protected:
    void forwardTo(std::unique_ptr<Recordset> inner) { m_inner = std::move(inner); }

private:
    [[nodiscard]] Recordset &inner() const
    {
        if (!m_inner) raiseClosed();
        return *m_inner;
    }

    std::unique_ptr<Recordset> m_inner;
};

} // namespace inin
