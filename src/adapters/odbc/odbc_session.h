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

/// One physical connection, logged in. Lives longer than a session; the pool hands it from one to the next.
/// Every operation that fails leaves an entry for each diagnostic record in the list and raises a RuntimeError.
class OdbcSession {
public:
    using Errors = std::vector<ProviderError>;

    /// Logs in.
    OdbcSession(std::shared_ptr<OdbcEnvironment> environment, const OdbcString &target, Errors &errors);
    OdbcSession(const OdbcSession &) = delete;
    OdbcSession &operator=(const OdbcSession &) = delete;
    ~OdbcSession();

    /// The list of the session that has the connection at present.
    void setErrors(std::shared_ptr<Errors> errors) { m_errors = std::move(errors); }
    /// Of the statements to come; 0 waits for ever.
    void setTimeout(std::int32_t seconds) { m_timeout = seconds; }
    [[nodiscard]] std::string defaultDatabase() const;

    /// Runs one SELECT; refuses everything else.
    [[nodiscard]] std::shared_ptr<OdbcCursor> openReading(const std::string &sql);
    /// Runs statements and drops their rows; the number of rows that they changed, -1 where none changes rows.
    std::int32_t execute(const std::string &sql);
    void begin();
    void commit();
    void rollback();

    /// Ends what a session left: an open result and a transaction. False when the connection is of no use any more.
    bool tidy();
    /// Asks the server, for a driver notices a lost connection only when it is used.
    [[nodiscard]] bool isAlive();

    /// True on the driver that reads Jet files outside Windows, see mdb_driver.h.
    [[nodiscard]] bool isMdb() const { return m_isMdb; }
    /// For the cursors: raises what a statement's failure told.
    [[noreturn]] void fail(const std::vector<DiagnosticRecord> &records);

private:
    [[nodiscard]] std::string databaseName() const;
    void checkMdbFile(Errors &errors) const;
    /// As the driver takes it.
    [[nodiscard]] std::string spelled(const std::string &sql);
    [[nodiscard]] std::unique_ptr<OdbcHandle> newStatement(std::int32_t timeout) const;
    [[nodiscard]] std::unique_ptr<OdbcHandle> run(const std::string &sql);
    /// Behind a call that did not plainly succeed.
    void checkRecords(const OdbcHandle &statement, bool hasSucceeded);
    void setAutoCommit(bool isOn);
    void endTransaction(std::int16_t how);
    /// Nothing of the open result may be left on the server when something else is asked of it.
    void freeConnection();
    [[nodiscard]] bool isMarkedDead() const;

    std::shared_ptr<OdbcEnvironment> m_environment;
    OdbcHandle m_handle;
    std::vector<std::string> m_secrets;
    std::shared_ptr<Errors> m_errors;
    std::weak_ptr<OdbcCursor> m_reading; ///< the one whose rows still come from the server
    std::string m_firstDatabase;
    std::int32_t m_timeout = kDefaultCommandTimeout;
    bool m_isMdb = false;
    bool m_inTransaction = false;
    bool m_isLost = false;
};

} // namespace inin::odbc
