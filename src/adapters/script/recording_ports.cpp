#include "adapters/script/recording_ports.h"

#include "adapters/database/forwarding_database.h"
#include "runtime/runtime_error.h"

#include <stdexcept>
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

void RecordingBoxes::show(const std::string &text, Icon icon, const std::string &title)
{
    m_transcript.box(text, icon, title);
    m_inner.show(text, icon, title);
}

bool RecordingBoxes::askRetry(const std::string &text, Icon icon, const std::string &title)
{
    m_transcript.box(text, icon, title);
    return m_inner.askRetry(text, icon, title);
}

void RecordingProcesses::start(const std::string &commandLine, WindowStyle style)
{
    m_transcript.start(commandLine, style);
    m_inner.start(commandLine, style);
}

void RecordingProcesses::openAddress(const std::string &address)
{
    m_transcript.address(address);
    m_inner.openAddress(address);
}

std::optional<std::string> RecordingProcesses::computerName(std::size_t capacity)
{
    return m_inner.computerName(capacity);
}

void RecordingProcesses::end()
{
    m_transcript.end(0);
    m_inner.end();
    // The compiler does not know that end() never returns.
    throw std::logic_error("the end statement came back");
}

void RecordingWindows::show(Form &form, Modality modality)
try {
    form.onMousePointer = [this](std::int16_t kind) { m_transcript.pointer(kind); };
    form.load();
    if (!form.isLoaded()) return; // its own load has unloaded it: it is never shown
    m_transcript.followWindow(form);
    m_inner.show(form, modality);
} catch (const UnhandledError &unhandled) {
    // Recorded here, before unwinding destroys the program's objects.
    m_transcript.fatal(unhandled.error().number(), unhandled.error().description());
    throw;
}

void RecordingWindows::beep()
{
    m_transcript.beep();
    m_inner.beep();
}

std::unique_ptr<Connection> RecordingDatabase::newConnection()
{
    return std::make_unique<RecordingConnection>(m_inner.newConnection(), *this, m_transcript);
}

std::unique_ptr<Recordset> RecordingDatabase::newRecordset()
{
    return std::make_unique<RecordingRecordset>(m_inner.newRecordset());
}

} // namespace inin::script
