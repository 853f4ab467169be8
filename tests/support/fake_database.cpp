#include "support/fake_database.h"

#include "runtime/runtime_error.h"
#include "runtime/text.h"

#include <algorithm>

namespace inin {

namespace {

class FakeConnection : public Connection {
public:
    explicit FakeConnection(FakeDatabase &database) : m_database(database) {}
    std::int32_t State() const override { return m_session == 0 ? adStateClosed : adStateOpen; }
    void Open(const std::string &connectionString, const std::string &, const std::string &, std::int32_t) override
    {
        if (m_session != 0) throw RuntimeError(error_number::openObject, "オブジェクトは開いています。");
        m_database.connectionStrings.push_back(connectionString);
        m_errors = m_database.connectErrors;
        if (m_database.connectError != 0) throw RuntimeError(m_database.connectError, m_database.connectDescription);
        if (m_database.stayClosed) return;
        m_session = m_database.nextSession();
        log("connect");
    }
    void Close() override
    {
        if (m_session == 0) throw RuntimeError(error_number::closedObject, "オブジェクトは閉じています。");
        if (m_database.closeError != 0) throw RuntimeError(m_database.closeError, "閉じられません。");
        log("disconnect");
        m_session = 0;
    }
    std::string DefaultDatabase() const override { return m_session == 0 ? std::string() : m_database.defaultDatabase; }
    std::int32_t CommandTimeout() const override { return m_database.lastTimeout; }
    void setCommandTimeout(std::int32_t seconds) override
    {
        if (m_database.timeoutError != 0) throw RuntimeError(m_database.timeoutError, "設定できません。");
        m_database.lastTimeout = seconds;
    }
    std::int32_t Execute(const std::string &sql, std::int32_t) override
    {
        log("exec", sql);
        if (m_database.executions.empty()) return 0;
        const FakeResult result = m_database.executions.front();
        m_database.executions.pop_front();
        raiseIfAsked(result);
        return result.rowsAffected;
    }
    void BeginTrans() override { transaction("begin", m_database.beginError); }
    void CommitTrans() override { transaction("commit", m_database.commitError); }
    void RollbackTrans() override
    {
        transaction("rollback", m_database.rollbackError);
        if (!m_database.rollbackLeaves.empty()) m_errors = m_database.rollbackLeaves;
    }
    std::vector<ProviderError> &Errors() override { return m_errors; }

    void log(const std::string &what, const std::string &text = {})
    {
        m_database.log.push_back(what + " " + std::to_string(m_session) + (text.empty() ? "" : " " + text));
    }
    void raiseIfAsked(const FakeResult &result)
    {
        if (result.error == 0) return;
        m_errors = result.providerErrors;
        throw RuntimeError(result.error, result.description);
    }
    FakeResult answerTo(const std::string &sql) { return m_database.answerTo(sql); }

private:
    void transaction(const std::string &what, std::int32_t error)
    {
        log(what);
        if (error != 0) throw RuntimeError(error, "トランザクションの失敗。");
    }

    FakeDatabase &m_database;
    std::vector<ProviderError> m_errors;
    int m_session = 0;
};

class FakeRecordset : public Recordset {
public:
    explicit FakeRecordset(FakeDatabase &database) : m_database(database) {}
    void setCursorLocation(std::int32_t location) override { m_client = location == adUseClient; }
    void Open(const std::string &sql, Connection &connection, std::int32_t cursorType, std::int32_t lockType,
              std::int32_t options) override
    {
        auto &fake = dynamic_cast<FakeConnection &>(connection);
        if (fake.State() == adStateClosed)
            throw RuntimeError(error_number::closedObject, "オブジェクトは閉じています。");
        fake.log("sql", sql);
        m_result = fake.answerTo(sql);
        fake.raiseIfAsked(m_result);
        m_open = true;
        m_database.opened({cursorType, lockType, options});
        m_reached = 0;
        goTo(0);
    }
    void Close() override
    {
        if (!m_open) throw RuntimeError(error_number::closedObject, "オブジェクトは閉じています。");
        m_open = false;
        --m_database.openRecordsets;
    }
    std::int32_t State() const override { return m_open ? adStateOpen : adStateClosed; }
    bool isEndOfFile() const override { return m_row >= m_result.rows.size(); }
    void MoveNext() override
    {
        if (isEndOfFile()) throw RuntimeError(error_number::noCurrentRecord, "レコードがありません。");
        goTo(m_row + 1);
        if (m_result.failingMove != 0 && m_row == static_cast<std::size_t>(m_result.failingMove))
            throw RuntimeError(ado_error::unspecified, "接続が失われました。");
    }
    void MoveFirst() override { goTo(firstRow()); }
    void MoveLast() override { goTo(firstRow() + m_result.rows.size() - 1); }
    /// Counts the rows reached so far, as some providers do: the count is complete only after MoveLast.
    std::int32_t RecordCount() const override { return m_client ? static_cast<std::int32_t>(m_reached) : -1; }
    std::size_t fieldCount() const override { return m_result.columns.size(); }
    std::string fieldName(std::size_t index) const override { return m_result.columns.at(index); }
    std::int32_t fieldType(std::size_t index) const override
    {
        return index < m_result.types.size() ? m_result.types[index] : 202;
    }
    std::size_t fieldIndex(std::string_view name) const override
    {
        for (std::size_t index = 0; index < m_result.columns.size(); ++index)
            if (equalsIgnoringAsciiCase(m_result.columns[index], name)) return index;
        throw RuntimeError(error_number::noSuchField);
    }
    Variant Value(std::size_t index) const override
    {
        if (isEndOfFile()) throw RuntimeError(error_number::noCurrentRecord, "レコードがありません。");
        return m_result.rows[m_row].at(index);
    }

private:
    [[nodiscard]] std::size_t firstRow() const
    {
        if (m_result.rows.empty()) throw RuntimeError(error_number::noCurrentRecord, "レコードがありません。");
        return 0;
    }
    void goTo(std::size_t row)
    {
        m_row = row;
        m_reached = std::max(m_reached, std::min(row + 1, m_result.rows.size()));
    }

    FakeDatabase &m_database;
    FakeResult m_result;
    std::size_t m_row = 0;
    std::size_t m_reached = 0;
    bool m_open = false;
    bool m_client = false;
};

} // namespace

std::unique_ptr<Connection> FakeDatabase::newConnection()
{
    return std::make_unique<FakeConnection>(*this);
}

std::unique_ptr<Recordset> FakeDatabase::newRecordset()
{
    return std::make_unique<FakeRecordset>(*this);
}

FakeResult FakeDatabase::answerTo(const std::string &sql)
{
    for (const auto &[part, result] : resultsByText)
        if (sql.find(part) != std::string::npos) return result;
    if (results.empty()) return {};
    FakeResult result = results.front();
    results.pop_front();
    return result;
}

} // namespace inin
