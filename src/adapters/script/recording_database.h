#pragma once

#include "adapters/script/transcript.h"
#include "platform/database.h"

namespace inin::script {

/// Forwards to another database and records sessions and statements. Sessions are numbered from 1; each successful Open
/// is one session. Connection strings are never recorded, because they may contain a password.
class RecordingDatabase : public Database {
public:
    RecordingDatabase(Database &inner, Transcript &transcript) : m_inner(inner), m_transcript(transcript) {}

    [[nodiscard]] std::unique_ptr<Connection> newConnection() override;
    [[nodiscard]] std::unique_ptr<Recordset> newRecordset() override;
    [[nodiscard]] bool isWriterBusy() const override { return m_inner.isWriterBusy(); }

    /// For the recording connections: the number of a newly opened session.
    [[nodiscard]] int nextSession() { return ++m_sessions; }

private:
    Database &m_inner;
    Transcript &m_transcript;
    int m_sessions = 0;
};

} // namespace inin::script
