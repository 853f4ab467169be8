#include "master/table_contract.h"

#include "common/helpers.h"

#include <memory>

namespace inin {

namespace {

/// Size of the buffer that the system fills with the computer's name and its NUL.
constexpr std::size_t kComputerNameBuffer = 250;

/// A transaction that is rolled back unless it is committed.
class OwnTransaction {
public:
    explicit OwnTransaction(cT_ADODB &session) : m_session(&session) {}
    OwnTransaction(const OwnTransaction &) = delete;
    OwnTransaction &operator=(const OwnTransaction &) = delete;
    ~OwnTransaction()
    {
        // The write has already failed and kept its error text; that of the rollback would replace it.
        if (m_session != nullptr) static_cast<void>(m_session->iRollback());
    }
    void committed() { m_session = nullptr; }

private:
    cT_ADODB *m_session;
};

} // namespace

std::int16_t TableSession::failed(std::string words)
{
    m_errMsg = std::move(words);
    return iBad;
}

cT_ADODB &TableSession::session() const
{
    if (m_session == nullptr) throw RuntimeError(error_number::objectNotSet);
    return *m_session;
}

std::int16_t TableSession::computerName(std::string &sName)
{
    sName.clear();
    return trapped([&] {
        const std::optional<std::string> name = m_app.platform.processes.computerName(kComputerNameBuffer);
        if (!name) return iBad;
        sName = csCutNul(*name);
        return iGood;
    });
}

std::int16_t TableSession::walk(const std::string &sql, const std::function<void()> &onOpened,
                                const std::function<void(const Recordset &)> &onRow)
{
    std::unique_ptr<Recordset> rsData = m_app.platform.database.newRecordset();
    if (session().iOpenRecSet(*rsData, sql, adOpenForwardOnly, adLockReadOnly, adCmdText) != iGood)
        return failedInSession();
    onOpened();
    try {
        for (; !rsData->isEndOfFile(); rsData->MoveNext()) onRow(*rsData);
    } catch (const RuntimeError &) {
        // Report the first error, whether or not the closing succeeds.
        static_cast<void>(session().iCloseRecSet(rsData));
        throw;
    }
    // All rows are read; a failure to close has no effect on them.
    static_cast<void>(session().iCloseRecSet(rsData));
    return iGood;
}

std::int16_t TableSession::number(const std::string &sql, const char *column, std::int32_t &result)
{
    std::optional<std::int32_t> found;
    const std::int16_t status = walk(
        sql, [] {}, [&](const Recordset &rsData) { found = reader().number(rsData.Field(column)); });
    if (status != iGood) return status;
    // An aggregate always returns a row.
    if (!found) throw RuntimeError(error_number::noCurrentRecord);
    result = *found;
    return iGood;
}

std::int16_t TableSession::write(const std::string &sql, Transaction bTransactionFlg,
                                 const AfterExecution &afterExecution)
{
    const bool isOwn = bTransactionFlg != Transaction::ofTheCaller;
    std::optional<OwnTransaction> toRollBack;
    if (isOwn && session().iBeginTrans() != iGood) return failedInSession();
    if (bTransactionFlg == Transaction::own) toRollBack.emplace(session());
    if (session().iExecSQL(sql) != iGood) return failedInSession();
    if (afterExecution && afterExecution(m_errMsg) != iGood) return iBad;
    if (isOwn && session().iCommitTrans() != iGood) return failedInSession();
    if (toRollBack) toRollBack->committed();
    return iGood;
}

} // namespace inin
