#pragma once

#include "adapters/database/ado_error.h"
#include "adapters/odbc/odbc_cursor.h"
#include "adapters/odbc/odbc_handle.h"
#include "adapters/odbc/odbc_string.h"
#include "platform/database.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace inin::odbc {

/// One logged-in physical connection. It outlives a session; the pool hands it from one to the next. Every failing
/// operation adds an entry to the error list for each diagnostic record and raises a RuntimeError.
class OdbcSession {
public:
    using Errors = std::vector<ProviderError>;

    OdbcSession(std::shared_ptr<OdbcEnvironment> environment, const OdbcString &target, Errors &errors);
    OdbcSession(const OdbcSession &) = delete;
    OdbcSession &operator=(const OdbcSession &) = delete;
    ~OdbcSession();

    /// Sets the error list of the session that currently uses the connection.
    void setErrors(std::shared_ptr<Errors> errors) { m_errors = std::move(errors); }
    /// For the following statements; 0 waits forever.
    void setTimeout(std::int32_t seconds) { m_timeout = seconds; }
    [[nodiscard]] std::string defaultDatabase() const;

    /// Runs one SELECT; refuses any other statement.
    [[nodiscard]] std::shared_ptr<OdbcCursor> openReading(const std::string &sql);
    void restart(std::shared_ptr<OdbcCursor> &cursor, const std::string &sql);
    /// Runs statements and discards their rows. Returns the number of changed rows, or -1 for statements that change
    /// none.
    std::int32_t execute(const std::string &sql);
    void begin();
    void commit();
    void rollback();

    /// Cleans up after a session: closes its result, rolls back its transaction. False if the connection is no longer
    /// usable.
    bool tidy();
    /// Queries the server, because a driver notices a lost connection only when it is used.
    [[nodiscard]] bool isAlive();

    /// True for the driver that reads Jet files outside Windows, see mdb_driver.h.
    [[nodiscard]] bool isMdb() const { return m_isMdb; }
    /// For the cursors: raises the error that the records describe.
    [[noreturn]] void fail(const std::vector<DiagnosticRecord> &records);

private:
    [[nodiscard]] std::string databaseName() const;
    void checkMdbFile(Errors &errors) const;
    /// The statement in the form that the driver accepts.
    [[nodiscard]] std::string spelled(const std::string &sql);
    [[nodiscard]] std::unique_ptr<OdbcHandle> newStatement(std::int32_t timeout) const;
    [[nodiscard]] std::unique_ptr<OdbcHandle> run(const std::string &sql);
    /// Called after each result other than plain success.
    void checkRecords(const OdbcHandle &statement, bool hasSucceeded);
    void setAutoCommit(bool isOn);
    void endTransaction(std::int16_t how);
    /// Reads the rest of the open result: the connection can run only one statement at a time.
    void freeConnection();
    [[nodiscard]] bool isMarkedDead() const;

    std::shared_ptr<OdbcEnvironment> m_environment;
    OdbcHandle m_handle;
    std::vector<std::string> m_secrets;
    std::shared_ptr<Errors> m_errors;
    std::weak_ptr<OdbcCursor> m_reading; ///< the cursor whose rows still stream from the server
    std::string m_firstDatabase;
    std::int32_t m_timeout = kDefaultCommandTimeout;
    bool m_isMdb = false;
    bool m_inTransaction = false;
    bool m_isLost = false;
};

} // namespace inin::odbc
