#include "adapters/script/recording_database.h"

#include <utility>

namespace inin {

namespace {

class RecordingConnection : public Connection {
public:
    RecordingConnection(std::unique_ptr<Connection> inner, RecordingDatabase &database, Transcript &transcript)
        : m_inner(std::move(inner)), m_database(database), m_transcript(transcript)
    {
    }
    RecordingConnection(const RecordingConnection &) = delete;
    RecordingConnection &operator=(const RecordingConnection &) = delete;
    /// A connection that is dropped while it is open ends its session too.
    ~RecordingConnection() override { tellEnd(); }

    [[nodiscard]] Connection &inner() { return *m_inner; }
    /// Told before it runs, so that a statement that fails or hangs stands in the transcript. On a closed connection
    /// nothing runs and nothing is told.
    void tellStatement(const std::string &sql)
    {
        if (m_session != 0) m_transcript.write({{"event", "sql"}, {"session", m_session}, {"text", sql}});
    }

    [[nodiscard]] std::int32_t State() const override { return m_inner->State(); }
    void Open(const std::string &connectionString, const std::string &user, const std::string &password,
              std::int32_t options) override
    {
        m_inner->Open(connectionString, user, password, options);
        if (m_inner->State() != adStateOpen) return;
        m_session = m_database.nextSession();
        m_transcript.write({{"event", "connect"}, {"session", m_session}});
    }
    void Close() override
    {
        m_inner->Close();
        tellEnd();
    }
    [[nodiscard]] std::string DefaultDatabase() const override { return m_inner->DefaultDatabase(); }
    [[nodiscard]] std::int32_t CommandTimeout() const override { return m_inner->CommandTimeout(); }
    void setCommandTimeout(std::int32_t seconds) override { m_inner->setCommandTimeout(seconds); }
    std::int32_t Execute(const std::string &sql, std::int32_t options) override
    {
        tellStatement(sql);
        return m_inner->Execute(sql, options);
    }
    void BeginTrans() override { m_inner->BeginTrans(); }
    void CommitTrans() override { m_inner->CommitTrans(); }
    void RollbackTrans() override { m_inner->RollbackTrans(); }
    [[nodiscard]] std::vector<ProviderError> &Errors() override { return m_inner->Errors(); }

private:
    void tellEnd()
    {
        const int session = std::exchange(m_session, 0);
        if (session != 0) m_transcript.write({{"event", "disconnect"}, {"session", session}});
    }

    std::unique_ptr<Connection> m_inner;
    RecordingDatabase &m_database;
    Transcript &m_transcript;
    int m_session = 0; ///< 0 while it is not open
};

class RecordingRecordset : public Recordset {
public:
    explicit RecordingRecordset(std::unique_ptr<Recordset> inner) : m_inner(std::move(inner)) {}

    void setCursorLocation(std::int32_t location) override { m_inner->setCursorLocation(location); }
    void Open(const std::string &sql, Connection &connection, std::int32_t cursorType, std::int32_t lockType,
              std::int32_t options) override
    {
        // The inner record set knows its own provider's connections only.
        auto *recording = dynamic_cast<RecordingConnection *>(&connection);
        if (recording != nullptr) recording->tellStatement(sql);
        m_inner->Open(sql, recording != nullptr ? recording->inner() : connection, cursorType, lockType, options);
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

std::unique_ptr<Connection> RecordingDatabase::newConnection()
{
    return std::make_unique<RecordingConnection>(m_inner.newConnection(), *this, m_transcript);
}

std::unique_ptr<Recordset> RecordingDatabase::newRecordset()
{
    return std::make_unique<RecordingRecordset>(m_inner.newRecordset());
}

} // namespace inin
