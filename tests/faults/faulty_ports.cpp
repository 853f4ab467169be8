#include "faults/faulty_ports.h"

#include "adapters/database/forwarding_database.h"
#include "runtime/runtime_error.h"

#include <cstdlib>
#include <utility>

namespace inin {

namespace {

void failIfPlanned(FaultPlan &plan, const char *operation, std::int32_t number)
{
    if (plan.fails(operation)) throw RuntimeError(number, kFaultText);
}

class FaultyOutput : public OutputFile {
public:
    FaultyOutput(std::unique_ptr<OutputFile> inner, FaultPlan &plan) : m_inner(std::move(inner)), m_plan(plan) {}
    void write(std::string_view bytes) override
    {
        failIfPlanned(m_plan, "OutputFile::write", error_number::diskFull);
        m_inner->write(bytes);
    }
    void close() override
    {
        failIfPlanned(m_plan, "OutputFile::close", error_number::diskFull);
        m_inner->close();
    }

private:
    std::unique_ptr<OutputFile> m_inner;
    FaultPlan &m_plan;
};

class FaultyInput : public InputFile {
public:
    FaultyInput(std::unique_ptr<InputFile> inner, FaultPlan &plan) : m_inner(std::move(inner)), m_plan(plan) {}
    std::string read(std::size_t size) override
    {
        failIfPlanned(m_plan, "InputFile::read", error_number::deviceIo);
        return m_inner->read(size);
    }

private:
    std::unique_ptr<InputFile> m_inner;
    FaultPlan &m_plan;
};

class FaultyFiles : public Files {
public:
    FaultyFiles(Files &inner, FaultPlan &plan) : m_inner(inner), m_plan(plan) {}

    std::unique_ptr<OutputFile> openForOutput(const std::string &path) override
    {
        failIfPlanned(m_plan, "Files::openForOutput", error_number::pathAccess);
        return std::make_unique<FaultyOutput>(m_inner.openForOutput(path), m_plan);
    }
    LockedFile openLocked(const std::string &path) override
    {
        if (m_plan.fails("Files::openLocked")) return {};
        LockedFile locked = m_inner.openLocked(path);
        if (locked.output) locked.output = std::make_unique<FaultyOutput>(std::move(locked.output), m_plan);
        return locked;
    }
    std::unique_ptr<InputFile> openForInput(const std::string &path) override
    {
        failIfPlanned(m_plan, "Files::openForInput", error_number::permissionDenied);
        return std::make_unique<FaultyInput>(m_inner.openForInput(path), m_plan);
    }
    std::string directorySearch(const std::string &path) override
    {
        return m_plan.fails("Files::directorySearch") ? std::string() : m_inner.directorySearch(path);
    }
    bool isFolder(const std::string &path) override
    {
        return !m_plan.fails("Files::isFolder") && m_inner.isFolder(path);
    }
    void remove(const std::string &path) override
    {
        failIfPlanned(m_plan, "Files::remove", error_number::permissionDenied);
        m_inner.remove(path);
    }
    std::string applicationFolder() override { return m_inner.applicationFolder(); }
    void changeDrive(const std::string &path) override
    {
        failIfPlanned(m_plan, "Files::changeDrive", error_number::diskNotReady);
        m_inner.changeDrive(path);
    }
    void changeFolder(const std::string &path) override
    {
        failIfPlanned(m_plan, "Files::changeFolder", error_number::pathNotFound);
        m_inner.changeFolder(path);
    }
    std::string currentFolder() override
    {
        failIfPlanned(m_plan, "Files::currentFolder", error_number::pathNotFound);
        return m_inner.currentFolder();
    }

private:
    Files &m_inner;
    FaultPlan &m_plan;
};

/// A profile that cannot be opened has no keys and refuses writes.
class FaultyProfile : public Profile {
public:
    FaultyProfile(Profile &inner, FaultPlan &plan) : m_inner(inner), m_plan(plan) {}

    std::int32_t GetPrivateProfileInt(const Text &section, const Text &key, std::int32_t defaultValue,
                                      const std::string &file) override
    {
        if (m_plan.fails("Profile::GetPrivateProfileInt")) return defaultValue;
        return m_inner.GetPrivateProfileInt(section, key, defaultValue, file);
    }
    std::string GetPrivateProfileString(const Text &section, const Text &key, const std::string &defaultValue,
                                        std::size_t size, const std::string &file) override
    {
        if (m_plan.fails("Profile::GetPrivateProfileString")) return defaultValue;
        return m_inner.GetPrivateProfileString(section, key, defaultValue, size, file);
    }
    std::int32_t WritePrivateProfileString(const Text &section, const Text &key, const Text &value,
                                           const std::string &file) override
    {
        if (m_plan.fails("Profile::WritePrivateProfileString")) return 0;
        return m_inner.WritePrivateProfileString(section, key, value, file);
    }

private:
    Profile &m_inner;
    FaultPlan &m_plan;
};

class FaultyConnection : public ForwardingConnection {
public:
    FaultyConnection(std::unique_ptr<Connection> inner, FaultPlan &plan)
        : ForwardingConnection(std::move(inner)), m_plan(plan)
    {
    }
    void Open(const std::string &connectionString, const std::string &user, const std::string &password,
              std::int32_t options) override
    {
        failIfPlanned(m_plan, "Connection::Open", ado_error::logInRefused);
        ForwardingConnection::Open(connectionString, user, password, options);
    }
    void Close() override
    {
        failIfPlanned(m_plan, "Connection::Close", ado_error::unspecified);
        ForwardingConnection::Close();
    }
    void setCommandTimeout(std::int32_t seconds) override
    {
        failIfPlanned(m_plan, "Connection::setCommandTimeout", ado_error::unspecified);
        ForwardingConnection::setCommandTimeout(seconds);
    }
    std::int32_t Execute(const std::string &sql, std::int32_t options) override
    {
        failIfPlanned(m_plan, "Connection::Execute", ado_error::timedOut);
        return ForwardingConnection::Execute(sql, options);
    }
    void BeginTrans() override
    {
        failIfPlanned(m_plan, "Connection::BeginTrans", ado_error::unspecified);
        ForwardingConnection::BeginTrans();
    }
    void CommitTrans() override
    {
        failIfPlanned(m_plan, "Connection::CommitTrans", ado_error::unspecified);
        ForwardingConnection::CommitTrans();
    }
    void RollbackTrans() override
    {
        failIfPlanned(m_plan, "Connection::RollbackTrans", ado_error::unspecified);
        ForwardingConnection::RollbackTrans();
    }

private:
    FaultPlan &m_plan;
};

class FaultyRows : public ForwardingRecordset {
public:
    FaultyRows(std::unique_ptr<Recordset> inner, FaultPlan &plan) : ForwardingRecordset(std::move(inner)), m_plan(plan)
    {
    }
    void setCursorLocation(std::int32_t location) override
    {
        failIfPlanned(m_plan, "Recordset::setCursorLocation", ado_error::unspecified);
        ForwardingRecordset::setCursorLocation(location);
    }
    void Open(const std::string &sql, Connection &connection, std::int32_t cursorType, std::int32_t lockType,
              std::int32_t options) override
    {
        failIfPlanned(m_plan, "Recordset::Open", ado_error::timedOut);
        ForwardingRecordset::Open(sql, connection, cursorType, lockType, options);
    }
    void Close() override
    {
        failIfPlanned(m_plan, "Recordset::Close", ado_error::unspecified);
        ForwardingRecordset::Close();
    }
    void MoveNext() override
    {
        failIfPlanned(m_plan, "Recordset::MoveNext", ado_error::unspecified);
        ForwardingRecordset::MoveNext();
    }
    void MoveFirst() override
    {
        failIfPlanned(m_plan, "Recordset::MoveFirst", ado_error::unspecified);
        ForwardingRecordset::MoveFirst();
    }
    void MoveLast() override
    {
        failIfPlanned(m_plan, "Recordset::MoveLast", ado_error::unspecified);
        ForwardingRecordset::MoveLast();
    }
    [[nodiscard]] std::int32_t RecordCount() const override
    {
        failIfPlanned(m_plan, "Recordset::RecordCount", ado_error::unspecified);
        return ForwardingRecordset::RecordCount();
    }
    [[nodiscard]] std::size_t fieldIndex(std::string_view name) const override
    {
        failIfPlanned(m_plan, "Recordset::fieldIndex", error_number::noSuchField);
        return ForwardingRecordset::fieldIndex(name);
    }
    [[nodiscard]] Variant Value(std::size_t index) const override
    {
        failIfPlanned(m_plan, "Recordset::Value", ado_error::unspecified);
        return ForwardingRecordset::Value(index);
    }

private:
    FaultPlan &m_plan;
};

class FaultyDatabase : public Database {
public:
    FaultyDatabase(Database &inner, FaultPlan &plan) : m_inner(inner), m_plan(plan) {}

    std::unique_ptr<Connection> newConnection() override
    {
        failIfPlanned(m_plan, "Database::newConnection", error_number::automationCannotCreate);
        return std::make_unique<FaultyConnection>(m_inner.newConnection(), m_plan);
    }
    std::unique_ptr<Recordset> newRecordset() override
    {
        failIfPlanned(m_plan, "Database::newRecordset", error_number::automationCannotCreate);
        return std::make_unique<FaultyRows>(m_inner.newRecordset(), m_plan);
    }
    [[nodiscard]] bool isWriterBusy() const override { return m_inner.isWriterBusy(); }

private:
    Database &m_inner;
    FaultPlan &m_plan;
};

class FaultyProcesses : public Processes {
public:
    FaultyProcesses(Processes &inner, FaultPlan &plan, const std::function<void(const std::string &)> &onStart)
        : m_inner(inner), m_plan(plan), m_onStart(onStart)
    {
    }
    void start(const std::string &commandLine, WindowStyle style) override
    {
        m_onStart(commandLine);
        failIfPlanned(m_plan, "Processes::start", error_number::fileNotFound);
        m_inner.start(commandLine, style);
    }
    void openAddress(const std::string &address) override { m_inner.openAddress(address); }
    std::optional<std::string> computerName(std::size_t capacity) override
    {
        if (m_plan.fails("Processes::computerName")) return std::nullopt;
        return m_inner.computerName(capacity);
    }
    std::uint32_t processId() override { return m_inner.processId(); }
    [[noreturn]] void end() override
    {
        m_inner.end();
        std::abort(); // the compiler does not know that end() never returns
    }

private:
    Processes &m_inner;
    FaultPlan &m_plan;
    const std::function<void(const std::string &)> &m_onStart;
};

class FaultyWindows : public Windows {
public:
    FaultyWindows(Windows &inner, FaultPlan &plan) : m_inner(inner), m_plan(plan) {}

    void show(Form &form, Modality modality) override { m_inner.show(form, modality); }
    void checkPicture(const std::string &path) override
    {
        failIfPlanned(m_plan, "Windows::checkPicture", error_number::invalidPicture);
        m_inner.checkPicture(path);
    }
    void beep() override { m_inner.beep(); }
    void processWaitingEvents() override { m_inner.processWaitingEvents(); }
    void moveFocus(Form &form, Control &control) override { m_inner.moveFocus(form, control); }
    void sendTab(Form &form) override { m_inner.sendTab(form); }
    [[nodiscard]] Control *activeControl(Form &form) override { return m_inner.activeControl(form); }

private:
    Windows &m_inner;
    FaultPlan &m_plan;
};

} // namespace

FaultyPorts::FaultyPorts(const Platform &inner, FaultPlan &plan)
    : m_inner(inner), m_windows(std::make_unique<FaultyWindows>(inner.windows, plan)),
      m_database(std::make_unique<FaultyDatabase>(inner.database, plan)),
      m_profile(std::make_unique<FaultyProfile>(inner.profile, plan)),
      m_files(std::make_unique<FaultyFiles>(inner.files, plan)),
      m_processes(std::make_unique<FaultyProcesses>(inner.processes, plan, onStart))
{
}

FaultyPorts::~FaultyPorts() = default;

Platform FaultyPorts::platform()
{
    return {m_inner.boxes, *m_windows,    *m_database,    *m_profile,        *m_files,
            *m_processes,  m_inner.clock, m_inner.locale, m_inner.automation};
}

} // namespace inin
