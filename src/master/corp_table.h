#pragma once

#include "master/corp_row.h"
#include "master/table_contract.h"

#include <functional>
#include <string>

namespace inin {

/// The map operations in a write of a company: called after the statement and before its commit while the process-wide
/// cChizuFlg is "1". An empty function is not called. Error texts go to the company table's sErrMsg.
struct CorpMapHook {
    /// Its status is ignored: the company is saved without its map.
    std::function<std::int16_t(std::string &sErrMsg)> afterInsert;
    /// A status other than 0 fails the update.
    std::function<std::int16_t(std::string &sErrMsg)> afterUpdate;
};

/// The companies of this branch. Statuses are 0 or -1, with the reason in sErrMsg. nullptr is a row that is Nothing.
/// `eOptions` is ignored. Texts are written into the statements unchanged, quote characters included.
class cT_CORP {
public:
    /// With the branch's own map operations (corp_map.h).
    explicit cT_CORP(App &app);
    cT_CORP(App &app, CorpMapHook mapHook);

    [[nodiscard]] const std::string &sErrMsg() const { return m_table.sErrMsg(); }
    /// A row of the last read, from 0; error 9 outside. Valid until the next read.
    [[nodiscard]] const cD_CORP &clsCORP(std::int32_t nIdx) const { return m_table.row(nIdx); }
    [[nodiscard]] std::int32_t nデータ数() const { return m_table.count(); }
    /// The computer's name; the empty text on a failure.
    [[nodiscard]] std::int16_t iGetComputerName(std::string &sName) { return m_table.computerName(sName); }
    /// Keeps a reference to the caller's connected session and clears the rows.
    [[nodiscard]] std::int16_t iInit(cT_ADODB &cADO) { return m_table.init(cADO); }
    /// The highest number of this branch, 0 for a branch without companies.
    [[nodiscard]] std::int16_t iGetMaxIDNo(std::int32_t &nMaxNo);
    /// All companies, with the columns of a list.
    [[nodiscard]] std::int16_t iDataReadGrid();
    /// The companies of the number and kind, as far as these are above -1; all columns.
    [[nodiscard]] std::int16_t iDataRead(const cD_CORP *cData);
    /// Like iDataRead, but all companies except that number.
    [[nodiscard]] std::int16_t iDataReadChk(const cD_CORP *cData);
    [[nodiscard]] std::int16_t iDataInsert(const cD_CORP *cData, std::int32_t eOptions,
                                           Transaction bTransactionFlg = Transaction::ofTheCaller);
    [[nodiscard]] std::int16_t iDataUpdate(const cD_CORP *cData, std::int32_t eOptions,
                                           Transaction bTransactionFlg = Transaction::ofTheCaller);
    [[nodiscard]] std::int16_t iData削除(const cD_CORP *cData, std::int32_t eOptions,
                                         Transaction bTransactionFlg = Transaction::ofTheCaller);
    /// The columns of a list, by a number above 0 and by parts of the name and its kana. Here a row that is Nothing is
    /// the runtime's error 91.
    [[nodiscard]] std::int16_t iDataReadGrid_Jouken(const cD_CORP *cData);

private:
    App &m_app;
    CorpMapHook m_mapHook;
    TableContract<cD_CORP> m_table;
};

} // namespace inin
