#include "adapters/script/recording_database.h"

#include "adapters/database/forwarding_database.h"

#include <utility>

namespace inin::script {

namespace {

class RecordingConnection : public ForwardingConnection {
public:
    RecordingConnection(std::unique_ptr<Connection> quiet, RecordingDatabase &database, Transcript &transcript)
        : ForwardingConnection(std::move(quiet)), m_database(database), m_transcript(transcript)
    {
    }
    RecordingConnection(const RecordingConnection &) = delete;
    RecordingConnection &operator=(const RecordingConnection &) = delete;
    /// Destroying an open connection ends its session, too.
    ~RecordingConnection() override { recordEnd(); }

    /// Recorded before it runs, so that a statement that fails or hangs is in the transcript. On a closed connection
    /// nothing runs and nothing is recorded.
    void recordStatement(const std::string &sql)
    {
        if (m_session != 0) m_transcript.write({{"event", "sql"}, {"session", m_session}, {"text", sql}});
    }

    void Open(const std::string &connectionString, const std::string &user, const std::string &password,
              std::int32_t options) override
    {
        ForwardingConnection::Open(connectionString, user, password, options);
        if (State() != adStateOpen) return;
        m_session = m_database.nextSession();
        m_transcript.write({{"event", "connect"}, {"session", m_session}});
    }
    void Close() override
    {
        ForwardingConnection::Close();
        recordEnd();
    }
    std::int32_t Execute(const std::string &sql, std::int32_t options) override
    {
        recordStatement(sql);
        return ForwardingConnection::Execute(sql, options);
    }

private:
    void recordEnd() noexcept
    {
        if (const int session = std::exchange(m_session, 0)) m_transcript.disconnect(session);
    }

    RecordingDatabase &m_database;
    Transcript &m_transcript;
    int m_session = 0; ///< 0 while it is not open
};

class RecordingRecordset : public ForwardingRecordset {
public:
    using ForwardingRecordset::ForwardingRecordset;
    void Open(const std::string &sql, Connection &connection, std::int32_t cursorType, std::int32_t lockType,
              std::int32_t options) override
    {
        if (auto *recording = dynamic_cast<RecordingConnection *>(&connection)) recording->recordStatement(sql);
        ForwardingRecordset::Open(sql, connection, cursorType, lockType, options);
    }
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

} // namespace inin::script
