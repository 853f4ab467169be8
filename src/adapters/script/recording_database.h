#pragma once

#include "adapters/script/transcript.h"
#include "platform/database.h"

namespace inin::script {

/// Passes everything on to another database and tells sessions and statements. Sessions are counted from 1, one for
/// each successful Open. A connection string is never told: it may hold a password.
class RecordingDatabase : public Database {
public:
    RecordingDatabase(Database &inner, Transcript &transcript) : m_inner(inner), m_transcript(transcript) {}

    [[nodiscard]] std::unique_ptr<Connection> newConnection() override;
    [[nodiscard]] std::unique_ptr<Recordset> newRecordset() override;
    [[nodiscard]] bool isWriterBusy() const override { return m_inner.isWriterBusy(); }

    /// For the recording connections: the number of a session that has just been opened.
    [[nodiscard]] int nextSession() { return ++m_sessions; }

private:
    Database &m_inner;
    Transcript &m_transcript;
    int m_sessions = 0;
};

} // namespace inin::script
