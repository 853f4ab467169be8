#pragma once

#include "platform/dao.h"
#include "runtime/runtime_error.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace inin {

/// A session with a local database through DAO, the counterpart of cT_ADODB: iInit, iDbOpen, the work, iDbClose,
/// iWorkSpaceClose. For the suite's other programs; nothing in this program creates it. All results are 0, or -1 with
/// the error text in sErrMsg. Nothing is shown.
class clsT_Dao {
public:
    explicit clsT_Dao(DaoEngine &engine) : m_engine(engine) {}
    clsT_Dao(const clsT_Dao &) = delete;
    clsT_Dao &operator=(const clsT_Dao &) = delete;
    /// Closes database and workspace, if they are open.
    ~clsT_Dao();

    /// Number, CR LF and description of the last failure.
    [[nodiscard]] const std::string &sErrMsg() const { return m_errMsg; }

    /// Does nothing; always 0.
    [[nodiscard]] std::int16_t ihehe() const { return 0; }
    /// Keeps the settings and creates the workspace; `i排他` other than 0 opens the database exclusively.
    [[nodiscard]] std::int16_t iInit(const std::string &sDbName, std::int16_t i排他, const std::string &sName,
                                     const std::string &sUser, const std::string &sPassword, std::int32_t eType);
    [[nodiscard]] std::int16_t iWorkSpaceClose();
    [[nodiscard]] std::int16_t iDbOpen();
    [[nodiscard]] std::int16_t iDbClose();
    [[nodiscard]] std::int16_t iOpenRecordset(std::unique_ptr<DaoRecordset> &rsData, const std::string &sSql,
                                              std::int32_t eType, std::int32_t eOptions, std::int32_t eLock);
    /// Closes the record set and clears the reference; a record set that cannot be closed is kept.
    [[nodiscard]] std::int16_t iCloseRecordset(std::unique_ptr<DaoRecordset> &rsData);
    [[nodiscard]] std::int16_t iExecuteSql(const std::string &sSql, std::int32_t eOptions);
    [[nodiscard]] std::int16_t iExecSQL(const std::string &sSql);
    [[nodiscard]] std::int16_t iBeginTrans();
    [[nodiscard]] std::int16_t iCommitTrans();
    [[nodiscard]] std::int16_t iRollbackTrans();

private:
    /// Runs the steps; -1 with the error text in sErrMsg if one of them fails.
    [[nodiscard]] std::int16_t trapped(const std::function<void()> &steps);
    // Error 91 before it is created.
    [[nodiscard]] DaoWorkspace &workspace() const;
    [[nodiscard]] DaoDatabase &database() const;

    DaoEngine &m_engine;
    std::string m_errMsg;
    std::unique_ptr<DaoWorkspace> m_workspace;
    std::unique_ptr<DaoDatabase> m_database; ///< destroyed before its workspace

    // The settings given to iInit.
    std::string m_sDbName;
    std::int16_t m_i排他 = 0;
    std::string m_sName;
    std::string m_sUser;
    std::string m_sPassword;
    std::int32_t m_eType = 0;
};

} // namespace inin
