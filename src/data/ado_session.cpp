#include "data/ado_session.h"

#include "runtime/text.h"
#include "shell/error_box.h"

namespace inin {

namespace {

constexpr std::int16_t kCommandTimeoutSeconds = 180;
constexpr std::int32_t kUnspecifiedOptions = -1;
constexpr std::size_t kStatementCut = 80;
/// Size of the buffer that the platform fills with the computer's name and its NUL.
constexpr std::size_t kComputerNameBuffer = 16;

/// A failed read shows only the beginning of its statement.
std::string cutStatement(const std::string &sSql)
{
    return length(sSql) > kStatementCut ? left(sSql, kStatementCut) + "・・・" : sSql;
}

std::string sqlLine(const std::string &statement)
{
    return std::string(kCr).append("SQL=").append(statement);
}

/// The status of a call that reports its own failures through `onError`.
template <class Call, class OnError> std::int16_t trapped(Call &&call, OnError &&onError)
try {
    call();
    return iGood;
} catch (const RuntimeError &error) {
    onError(error);
    return iBad;
}

std::string failedText(const char *operation, const RuntimeError &error)
{
    return std::string("ERR:") + operation + " " + numberedText(error);
}

} // namespace

cT_ADODB::~cT_ADODB()
{
    try {
        static_cast<void>(iDisConnect());
    } catch (...) {
        // A destructor has no caller to report to, and an exception would end the program.
    }
}

Connection &cT_ADODB::connection()
{
    if (!m_connection) m_connection = m_app.platform.database.newConnection();
    return *m_connection;
}

std::string cT_ADODB::sDbName()
try {
    return connection().DefaultDatabase();
} catch (const RuntimeError &) {
    return {};
}

std::int16_t cT_ADODB::iInit(const std::string &sConnectionString)
{
    m_connectionString = sConnectionString;
    return iGood;
}

std::string cT_ADODB::csGetComputerName()
try {
    return m_app.platform.processes.computerName(kComputerNameBuffer).value_or(std::string());
} catch (const RuntimeError &) {
    return {};
}

void cT_ADODB::vAddAdoErrorLog(std::string &csDstErrString)
try {
    std::vector<ProviderError> &errors = connection().Errors();
    if (errors.empty()) return;
    // The result always starts with sErrMsg, whatever the argument was.
    const std::string cr(kCr);
    std::string text = m_errMsg + cr + "Connection State=" + std::to_string(connection().State());
    for (const ProviderError &error : errors) {
        text += cr + "Error Number: " + std::to_string(error.Number);
        text += cr + "  Description: " + error.Description;
        text += cr + "  Source: " + error.Source;
        text += cr + "  SQL State: " + error.SQLState;
        text += cr + "  Native Error: " + std::to_string(error.NativeError);
    }
    csDstErrString = text + cr + cr + std::to_string(errors.size()) + " provider error(s) occurred.";
    errors.clear();
} catch (const RuntimeError &) {
    // If the error list cannot be read, use the text of that failure instead.
}

std::int16_t cT_ADODB::iConnect()
try {
    if (connection().State() == adStateClosed) {
        connection().Open(m_connectionString, {}, {}, kUnspecifiedOptions);
        if (connection().State() != adStateOpen && !connection().Errors().empty()) {
            vAddAdoErrorLog(m_errMsg);
            return iBad;
        }
        // Neither open nor an error: the session counts as connected, and the first statement fails.
    }
    // A failure to set the timeout does not invalidate the session; its text stays in sErrMsg.
    static_cast<void>(iSetTimeout(kCommandTimeoutSeconds));
    return iGood;
} catch (const RuntimeError &error) {
    // The log clears the provider's list; the loss of its detail is deliberate.
    vAddAdoErrorLog(m_errMsg);
    m_errMsg = numberedText(error);
    return iBad;
}

std::int16_t cT_ADODB::iDisConnect()
try {
    connection().Close();
    m_connection.reset();
    return iGood;
} catch (const RuntimeError &error) {
    vAddAdoErrorLog(m_errMsg);
    m_errMsg = numberedText(error);
    return iBad;
}

std::int16_t cT_ADODB::iOpenRecSet(Recordset &rsData, const std::string &sSql, std::int32_t nCursorType,
                                   std::int32_t nLockType, std::int32_t nOptions)
{
    return trapped([&] { rsData.Open(sSql, connection(), nCursorType, nLockType, nOptions); },
                   [&](const RuntimeError &error) {
                       m_errMsg = numberedText(error) + sqlLine(cutStatement(sSql));
                       vAddAdoErrorLog(m_errMsg);
                   });
}

std::int16_t cT_ADODB::iCloseRecSet(std::unique_ptr<Recordset> &rsData)
{
    return trapped(
        [&] {
            if (!rsData) throw RuntimeError(error_number::objectNotSet);
            rsData->Close();
            rsData.reset();
        },
        [&](const RuntimeError &error) {
            m_errMsg = numberLineText(error);
            vAddAdoErrorLog(m_errMsg);
        });
}

std::int16_t cT_ADODB::iExecSQL(const std::string &csSql, Variant *nKousinRecSuu)
{
    return trapped(
        [&] {
            const std::int32_t rows = connection().Execute(csSql, adExecuteNoRecords);
            if (nKousinRecSuu != nullptr) *nKousinRecSuu = rows;
        },
        [&](const RuntimeError &error) {
            m_errMsg = failedText("iExecSQL", error);
            vAddAdoErrorLog(m_errMsg);
            // A failed write shows its whole statement after the provider's list.
            m_errMsg += sqlLine(csSql);
        });
}

std::int16_t cT_ADODB::iBeginTrans()
{
    return trapped([&] { connection().BeginTrans(); },
                   [&](const RuntimeError &error) {
                       m_errMsg = failedText("BeginTrans", error);
                       vAddAdoErrorLog(m_errMsg);
                   });
}

std::int16_t cT_ADODB::iCommitTrans()
{
    return trapped([&] { connection().CommitTrans(); },
                   [&](const RuntimeError &error) {
                       m_errMsg = failedText("CommitTrans", error);
                       vAddAdoErrorLog(m_errMsg);
                   });
}

std::int16_t cT_ADODB::iRollback()
try {
    connection().RollbackTrans();
    // Some providers report a failed rollback only in the error list.
    if (connection().Errors().empty()) return iGood;
    vAddAdoErrorLog(m_errMsg);
    return iBad;
} catch (const RuntimeError &error) {
    m_errMsg = failedText("Rollback", error);
    vAddAdoErrorLog(m_errMsg);
    return iBad;
}

std::int16_t cT_ADODB::iSetTimeout(std::int16_t iTime)
{
    if (iTime <= 0) return iGood;
    return trapped([&] { connection().setCommandTimeout(iTime); },
                   [&](const RuntimeError &error) {
                       m_errMsg = failedText("iSetTimeout", error);
                       vAddAdoErrorLog(m_errMsg);
                   });
}

} // namespace inin
