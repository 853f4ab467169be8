#include "adapters/odbc/odbc_session.h"

#include "adapters/odbc/mdb_driver.h"
#include "adapters/odbc/odbc_api.h"
#include "adapters/odbc/single_select.h"
#include "runtime/utf8.h"

#include <array>
#include <limits>

namespace inin::odbc {

namespace {

/// A connection on which the server does not answer within this time is given up.
constexpr std::int32_t kLivenessSeconds = 5;

bool isBlankText(const std::string &sql)
{
    return sql.find_first_not_of(" \t\r\n;") == std::string::npos;
}

/// Success, including a statement that changes no row or returns none.
bool isDone(SQLRETURN result)
{
    return SQL_SUCCEEDED(result) || result == SQL_NO_DATA;
}

} // namespace

OdbcSession::OdbcSession(std::shared_ptr<OdbcEnvironment> environment, const OdbcString &target, Errors &errors)
    : m_environment(std::move(environment)), m_handle(OdbcHandle::Kind::connection, m_environment->get()),
      m_secrets(target.secrets)
{
    SQLSetConnectAttrW(m_handle.get(), SQL_ATTR_LOGIN_TIMEOUT,
                       asPointer(static_cast<std::uintptr_t>(target.loginTimeout)), 0);
    const std::u16string text = utf16FromUtf8(target.text);
    std::array<SQLWCHAR, 1024> completed{}; // the completed connection string, unused
    SQLSMALLINT length = 0;
    const SQLRETURN result =
        SQLDriverConnectW(m_handle.get(), nullptr, wide(text), static_cast<SQLSMALLINT>(text.size()), completed.data(),
                          static_cast<SQLSMALLINT>(completed.size()), &length, SQL_DRIVER_NOPROMPT);
    if (!SQL_SUCCEEDED(result)) raiseRecords(errors, m_handle.records(), m_secrets, Failure::logIn);
    m_isMdb = isMdbDriver(databaseName());
    if (m_isMdb) checkMdbFile(errors);
    m_firstDatabase = defaultDatabase();
}

/// The server rolls back an open transaction by itself, but a driver refuses to disconnect during one.
OdbcSession::~OdbcSession()
{
    if (const auto reading = m_reading.lock()) reading->close();
    if (m_inTransaction) SQLEndTran(SQL_HANDLE_DBC, m_handle.get(), SQL_ROLLBACK);
    SQLDisconnect(m_handle.get());
}

/// That driver opens any file; only the first statement shows whether it contains a database.
void OdbcSession::checkMdbFile(Errors &errors) const
{
    const std::unique_ptr<OdbcHandle> statement = newStatement(kDefaultCommandTimeout);
    const std::u16string text = utf16FromUtf8(kMdbCatalogue);
    if (!SQL_SUCCEEDED(SQLExecDirectW(statement->get(), wide(text), static_cast<SQLINTEGER>(text.size()))))
        raise(errors, ownError(ado_error::unspecified, "08001", "the file cannot be read as a Jet database"));
}

/// The product name of the database.
std::string OdbcSession::databaseName() const
{
    std::array<SQLWCHAR, 64> name{};
    SQLSMALLINT bytes = 0;
    const SQLRETURN result = SQLGetInfoW(m_handle.get(), SQL_DBMS_NAME, name.data(),
                                         static_cast<SQLSMALLINT>(name.size() * sizeof(SQLWCHAR)), &bytes);
    if (!SQL_SUCCEEDED(result)) return {};
    const std::u16string_view text = units(name.data(), name.size());
    return utf8FromUtf16(text.substr(0, text.find(u'\0')));
}

std::string OdbcSession::defaultDatabase() const
{
    if (m_isMdb) return {};
    std::array<SQLWCHAR, 512> name{};
    SQLINTEGER bytes = 0;
    const SQLRETURN result = SQLGetConnectAttrW(m_handle.get(), SQL_ATTR_CURRENT_CATALOG, name.data(),
                                                static_cast<SQLINTEGER>(sizeof name), &bytes);
    if (!SQL_SUCCEEDED(result) || bytes < 0) return {};
    // Some drivers count the NUL, some do not: end the name at the NUL in either case.
    std::u16string_view text = units(name.data(), name.size());
    return utf8FromUtf16(text.substr(0, std::min(text.find(u'\0'), text.size())));
}

std::unique_ptr<OdbcHandle> OdbcSession::newStatement(std::int32_t timeout) const
{
    const auto newHandle = [&] {
        auto handle = std::make_unique<OdbcHandle>(OdbcHandle::Kind::statement, m_handle.get());
        SQLSetStmtAttrW(handle->get(), SQL_ATTR_QUERY_TIMEOUT, asPointer(static_cast<std::uintptr_t>(timeout)), 0);
        return handle;
    };
    auto statement = newHandle();
    // The statements are in the server's own language: disable ODBC escapes. A driver without this attribute may keep the
    // record of its refusal and return it with the result of the statement, so another handle replaces this one.
    if (!SQL_SUCCEEDED(SQLSetStmtAttrW(statement->get(), SQL_ATTR_NOSCAN, asPointer(SQL_NOSCAN_ON), 0)))
        statement = newHandle();
    return statement;
}

std::string OdbcSession::spelled(const std::string &sql)
{
    if (!m_isMdb) return sql;
    MdbStatement statement = mdbStatement(sql);
    if (!statement.problem.empty())
        raise(*m_errors, ownError(ado_error::faultyStatement, "42000", std::move(statement.problem)));
    return std::move(statement.text);
}

std::unique_ptr<OdbcHandle> OdbcSession::run(const std::string &sql)
{
    freeConnection();
    const std::u16string text = utf16FromUtf8(spelled(sql));
    std::unique_ptr<OdbcHandle> statement = newStatement(m_timeout);
    const SQLRETURN result = SQLExecDirectW(statement->get(), wide(text), static_cast<SQLINTEGER>(text.size()));
    // Read the records first: any further call would clear them.
    if (result != SQL_SUCCESS) checkRecords(*statement, isDone(result));
    return statement;
}

std::shared_ptr<OdbcCursor> OdbcSession::openReading(const std::string &sql)
{
    if (std::string problem = singleSelectProblem(sql); !problem.empty())
        raise(*m_errors, ownError(ado_error::faultyStatement, "42000", std::move(problem)));
    auto cursor = std::make_shared<OdbcCursor>(*this, run(sql));
    m_reading = cursor;
    return cursor;
}

void OdbcSession::restart(std::shared_ptr<OdbcCursor> &cursor, const std::string &sql)
{
    cursor->close();
    cursor = openReading(sql);
}

std::int32_t OdbcSession::execute(const std::string &sql)
{
    if (isBlankText(sql)) return -1; // a server accepts blank text without error
    const std::unique_ptr<OdbcHandle> statement = run(sql);
    SQLLEN affected = -1;
    while (true) {
        SQLSMALLINT columns = 0;
        SQLLEN rows = -1;
        if (SQL_SUCCEEDED(SQLNumResultCols(statement->get(), &columns)) && columns == 0 &&
            SQL_SUCCEEDED(SQLRowCount(statement->get(), &rows)) && rows >= 0)
            affected = affected < 0 ? rows : affected + rows;
        const SQLRETURN result = SQLMoreResults(statement->get());
        if (result == SQL_NO_DATA) break;
        // A later statement of the text failed.
        if (result != SQL_SUCCESS) checkRecords(*statement, SQL_SUCCEEDED(result));
    }
    return static_cast<std::int32_t>(std::min<SQLLEN>(affected, std::numeric_limits<std::int32_t>::max()));
}

void OdbcSession::setAutoCommit(bool isOn)
{
    const SQLRETURN result = SQLSetConnectAttrW(m_handle.get(), SQL_ATTR_AUTOCOMMIT,
                                                asPointer(isOn ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF), 0);
    if (!SQL_SUCCEEDED(result)) fail(m_handle.records());
}

void OdbcSession::begin()
{
    if (m_inTransaction)
        raise(*m_errors, ownError(ado_error::transactionRunning, "25000", "a transaction is running already"));
    freeConnection();
    setAutoCommit(false);
    m_inTransaction = true;
}

void OdbcSession::commit()
{
    endTransaction(SQL_COMMIT);
}

void OdbcSession::rollback()
{
    endTransaction(SQL_ROLLBACK);
}

void OdbcSession::endTransaction(std::int16_t how)
{
    if (!m_inTransaction) raise(*m_errors, ownError(ado_error::noTransaction, "25000", "no transaction is running"));
    freeConnection();
    if (!SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, m_handle.get(), how))) fail(m_handle.records());
    m_inTransaction = false;
    setAutoCommit(true);
}

void OdbcSession::freeConnection()
{
    if (const auto reading = m_reading.lock()) reading->keepRest();
    m_reading.reset();
}

bool OdbcSession::tidy()
{
    if (const auto reading = m_reading.lock()) reading->close();
    m_reading.reset();
    m_timeout = kDefaultCommandTimeout;
    if (m_isMdb || m_isLost || isMarkedDead()) return false; // an idle Jet file is closed
    if (m_inTransaction) {
        if (!SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, m_handle.get(), SQL_ROLLBACK))) return false;
        m_inTransaction = false;
        if (!SQL_SUCCEEDED(SQLSetConnectAttrW(m_handle.get(), SQL_ATTR_AUTOCOMMIT, asPointer(SQL_AUTOCOMMIT_ON), 0)))
            return false;
    }
    // A session that changed its database would surprise the next user of the connection.
    return defaultDatabase() == m_firstDatabase;
}

bool OdbcSession::isMarkedDead() const
{
    SQLUINTEGER dead = SQL_CD_FALSE;
    const SQLRETURN result =
        SQLGetConnectAttrW(m_handle.get(), SQL_ATTR_CONNECTION_DEAD, &dead, SQL_IS_UINTEGER, nullptr);
    return SQL_SUCCEEDED(result) && dead == SQL_CD_TRUE;
}

bool OdbcSession::isAlive()
{
    if (m_isLost || isMarkedDead()) return false;
    const std::unique_ptr<OdbcHandle> statement = newStatement(kLivenessSeconds);
    std::u16string text = u"SELECT 1";
    return SQL_SUCCEEDED(SQLExecDirectW(statement->get(), wide(text), static_cast<SQLINTEGER>(text.size()))) &&
           SQL_SUCCEEDED(SQLFetch(statement->get()));
}

void OdbcSession::checkRecords(const OdbcHandle &statement, bool hasSucceeded)
{
    const std::vector<DiagnosticRecord> records = statement.records();
    if (!hasSucceeded || isFailureRecord(records)) fail(records);
}

void OdbcSession::fail(const std::vector<DiagnosticRecord> &records)
{
    if (tellsLostConnection(records) || isMarkedDead()) m_isLost = true;
    raiseRecords(*m_errors, records, m_secrets, m_isLost ? Failure::lostConnection : Failure::statement);
}

} // namespace inin::odbc
