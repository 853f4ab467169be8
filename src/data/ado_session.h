#pragma once

#include "runtime/runtime_error.h"
#include "shell/app.h"

#include <cstdint>
#include <memory>
#include <string>

namespace inin {

/// Status results of the system's operations.
inline constexpr std::int16_t iGood = 0;
inline constexpr std::int16_t iBad = -1;

/// One database session; all SQL of the system goes through it. Every operation returns a status and keeps the text of
/// its last failure in sErrMsg, which a later success never clears. It shows nothing itself.
class cT_ADODB {
public:
    explicit cT_ADODB(App &app) : m_app(app) {}
    cT_ADODB(const cT_ADODB &) = delete;
    cT_ADODB &operator=(const cT_ADODB &) = delete;
    /// Disconnects and ignores a failure.
    ~cT_ADODB();

    [[nodiscard]] const std::string &sErrMsg() const { return m_errMsg; }
    [[nodiscard]] std::string sDbName();
    /// A placeholder of the suite's class, always 0.
    [[nodiscard]] static std::int16_t ihehe() { return iGood; }
    /// Keeps the connection string without connecting.
    [[nodiscard]] std::int16_t iInit(const std::string &sConnectionString);
    /// The computer's name if it has at most 15 characters, else the empty text.
    [[nodiscard]] std::string csGetComputerName();
    /// Replaces the text by sErrMsg and the provider's error list, and clears the list; with an empty list it changes
    /// nothing.
    void vAddAdoErrorLog(std::string &csDstErrString);
    /// Opens the session and sets its timeout to 180 seconds; does nothing on an open one.
    [[nodiscard]] std::int16_t iConnect();
    [[nodiscard]] std::int16_t iDisConnect();
    /// Opens the caller's record set on this session. All record sets use 0, 1, 1: forward-only, read-only, text.
    [[nodiscard]] std::int16_t iOpenRecSet(Recordset &rsData, const std::string &sSql, std::int32_t nCursorType,
                                           std::int32_t nLockType, std::int32_t nOptions);
    /// Closes the record set and clears the caller's reference.
    [[nodiscard]] std::int16_t iCloseRecSet(std::unique_ptr<Recordset> &rsData);
    /// Executes a statement that changes rows; `nKousinRecSuu`, if given, receives the number of rows affected.
    [[nodiscard]] std::int16_t iExecSQL(const std::string &csSql, Variant *nKousinRecSuu = nullptr);
    [[nodiscard]] std::int16_t iBeginTrans();
    [[nodiscard]] std::int16_t iCommitTrans();
    [[nodiscard]] std::int16_t iRollback();
    /// Seconds until a command times out; 0 or less changes nothing.
    [[nodiscard]] std::int16_t iSetTimeout(std::int16_t iTime);

private:
    /// The connection, created unopened on first use and again after iDisConnect.
    Connection &connection();

    App &m_app;
    std::unique_ptr<Connection> m_connection;
    std::string m_connectionString;
    std::string m_errMsg;
};

} // namespace inin
