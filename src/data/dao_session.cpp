#include "data/dao_session.h"

#include "common/error_text.h"
#include "data/ado_session.h"

#include <optional>

namespace inin {

namespace {

template <class Object> Object &made(const std::unique_ptr<Object> &object)
{
    if (!object) throw RuntimeError(error_number::objectNotSet);
    return *object;
}

} // namespace

clsT_Dao::~clsT_Dao()
{
    // No caller is left to report a failure to; a database that was never opened is such a failure.
    if (m_database) (void)iDbClose();
    if (m_workspace) (void)iWorkSpaceClose();
}

std::int16_t clsT_Dao::iInit(const std::string &sDbName, std::int16_t i排他, const std::string &sName,
                             const std::string &sUser, const std::string &sPassword, std::int32_t eType)
{
    m_sDbName = sDbName;
    m_i排他 = i排他;
    m_sName = sName;
    m_sUser = sUser;
    m_sPassword = sPassword;
    m_eType = eType;
    return trapped([&] { m_workspace = m_engine.CreateWorkspace(m_sName, m_sUser, m_sPassword, m_eType); });
}

std::int16_t clsT_Dao::iWorkSpaceClose()
{
    return trapped([&] { workspace().Close(); });
}

std::int16_t clsT_Dao::iDbOpen()
{
    using Sharing = DaoWorkspace::Sharing;
    return trapped(
        [&] { m_database = workspace().OpenDatabase(m_sDbName, m_i排他 != 0 ? Sharing::exclusive : Sharing::shared); });
}

std::int16_t clsT_Dao::iDbClose()
{
    return trapped([&] { database().Close(); });
}

std::int16_t clsT_Dao::iOpenRecordset(std::unique_ptr<DaoRecordset> &rsData, const std::string &sSql,
                                      std::int32_t eType, std::int32_t eOptions, std::int32_t eLock)
{
    return trapped([&] { rsData = database().OpenRecordset(sSql, eType, eOptions, eLock); });
}

std::int16_t clsT_Dao::iCloseRecordset(std::unique_ptr<DaoRecordset> &rsData)
{
    return trapped([&] {
        made(rsData).Close();
        rsData.reset();
    });
}

std::int16_t clsT_Dao::iExecuteSql(const std::string &sSql, std::int32_t eOptions)
{
    return trapped([&] { database().Execute(sSql, eOptions); });
}

std::int16_t clsT_Dao::iExecSQL(const std::string &sSql)
{
    return trapped([&] { database().Execute(sSql, std::nullopt); });
}

std::int16_t clsT_Dao::iBeginTrans()
{
    return trapped([&] { workspace().BeginTrans(); });
}

std::int16_t clsT_Dao::iCommitTrans()
{
    return trapped([&] { workspace().CommitTrans(); });
}

std::int16_t clsT_Dao::iRollbackTrans()
{
    return trapped([&] { workspace().Rollback(); });
}

std::int16_t clsT_Dao::trapped(const std::function<void()> &steps)
try {
    steps();
    return iGood;
} catch (const RuntimeError &error) {
    m_errMsg = numberLineText(error);
    return iBad;
}

DaoWorkspace &clsT_Dao::workspace() const
{
    return made(m_workspace);
}

DaoDatabase &clsT_Dao::database() const
{
    return made(m_database);
}

} // namespace inin
