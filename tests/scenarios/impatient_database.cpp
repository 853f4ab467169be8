#include "scenarios/impatient_database.h"

namespace inin {

namespace {

class ImpatientConnection : public Connection {
public:
    explicit ImpatientConnection(std::unique_ptr<Connection> inner) : m_inner(std::move(inner))
    {
        m_inner->setCommandTimeout(1);
    }
    [[nodiscard]] Connection &inner() { return *m_inner; }

    [[nodiscard]] std::int32_t State() const override { return m_inner->State(); }
    void Open(const std::string &connectionString, const std::string &user, const std::string &password,
              std::int32_t options) override
    {
        m_inner->Open(connectionString, user, password, options);
    }
    void Close() override { m_inner->Close(); }
    [[nodiscard]] std::string DefaultDatabase() const override { return m_inner->DefaultDatabase(); }
    [[nodiscard]] std::int32_t CommandTimeout() const override { return m_timeout; }
    void setCommandTimeout(std::int32_t seconds) override { m_timeout = seconds; }
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
    std::int32_t m_timeout = 0;
};

/// A record set that knows its session's inner one.
class ImpatientRecordset : public Recordset {
public:
    explicit ImpatientRecordset(std::unique_ptr<Recordset> inner) : m_inner(std::move(inner)) {}

    void setCursorLocation(std::int32_t location) override { m_inner->setCursorLocation(location); }
    void Open(const std::string &sql, Connection &connection, std::int32_t cursorType, std::int32_t lockType,
              std::int32_t options) override
    {
        m_inner->Open(sql, dynamic_cast<ImpatientConnection &>(connection).inner(), cursorType, lockType, options);
    }
    void Close() override { m_inner->Close(); }
    [[nodiscard]] std::int32_t State() const override { return m_inner->State(); }
    [[nodiscard]] bool isEndOfFile() const override { return m_inner->isEndOfFile(); }
    void MoveNext() override { m_inner->MoveNext(); }
    void MoveFirst() override { m_inner->MoveFirst(); }
    void MoveLast() override { m_inner->MoveLast(); }
    [[nodiscard]] std::int32_t RecordCount() const override { return m_inner->RecordCount(); }
    [[nodiscard]] std::size_t fieldCount() const override { return m_inner->fieldCount(); }
    [[nodiscard]] std::string fieldName(std::size_t index) const override { return m_inner->fieldName(index); }
    [[nodiscard]] std::int32_t fieldType(std::size_t index) const override { return m_inner->fieldType(index); }
    [[nodiscard]] std::size_t fieldIndex(std::string_view name) const override { return m_inner->fieldIndex(name); }
    [[nodiscard]] Variant Value(std::size_t index) const override { return m_inner->Value(index); }

private:
    std::unique_ptr<Recordset> m_inner;
};

} // namespace

std::unique_ptr<Connection> ImpatientDatabase::newConnection()
{
    return std::make_unique<ImpatientConnection>(m_inner->newConnection());
}

std::unique_ptr<Recordset> ImpatientDatabase::newRecordset()
{
    return std::make_unique<ImpatientRecordset>(m_inner->newRecordset());
}

} // namespace inin
