#pragma once

#include "master/corp_row.h"
#include "master/table_contract.h"

#include <functional>
#include <string>

namespace inin {

/// The turn of the map writer in a company's write: after the statement, before its commit, while the process-wide
/// cChizuFlg is "1". What is not set is not called. Words of a failure go into the company table's sErrMsg.
struct CorpMapHook {
    /// Its status is not looked at: the company stands without its map.
    std::function<std::int16_t(std::string &sErrMsg)> afterInsert;
    /// A status other than 0 fails the update.
    std::function<std::int16_t(std::string &sErrMsg)> afterUpdate;
};

/// The companies of this branch. Statuses are 0 or -1; the reason stands in sErrMsg. nullptr stands for a row that is
/// Nothing. `eOptions` is accepted and ignored. Texts go into the statements as they are, quote characters too.
class cT_CORP {
public:
    /// With the site's own map writer (corp_map.h).
    explicit cT_CORP(App &app);
    cT_CORP(App &app, CorpMapHook mapHook);

    [[nodiscard]] const std::string &sErrMsg() const { return m_table.sErrMsg(); }
    /// A row of the last read, from 0; error 9 outside. Good until the next read.
    [[nodiscard]] const cD_CORP &clsCORP(std::int32_t nIdx) const { return m_table.row(nIdx); }
    [[nodiscard]] std::int32_t nデータ数() const { return m_table.count(); }
    /// The computer's name, the empty text on a failure.
    [[nodiscard]] std::int16_t iGetComputerName(std::string &sName) { return m_table.computerName(sName); }
    /// Keeps the caller's connected session and drops the rows.
    [[nodiscard]] std::int16_t iInit(cT_ADODB &cADO) { return m_table.init(cADO); }
    /// The highest number of this branch, 0 for a branch without companies.
    [[nodiscard]] std::int16_t iGetMaxIDNo(std::int32_t &nMaxNo);
    /// All companies, with the columns that a list shows.
    [[nodiscard]] std::int16_t iDataReadGrid();
    /// By number and kind, as far as they are above -1; all columns.
    [[nodiscard]] std::int16_t iDataRead(const cD_CORP *cData);
    /// As iDataRead, but all others than the number.
    [[nodiscard]] std::int16_t iDataReadChk(const cD_CORP *cData);
    [[nodiscard]] std::int16_t iDataInsert(const cD_CORP *cData, std::int32_t eOptions,
                                           Transaction bTransactionFlg = Transaction::ofTheCaller);
    [[nodiscard]] std::int16_t iDataUpdate(const cD_CORP *cData, std::int32_t eOptions,
                                           Transaction bTransactionFlg = Transaction::ofTheCaller);
    [[nodiscard]] std::int16_t iData削除(const cD_CORP *cData, std::int32_t eOptions,
                                         Transaction bTransactionFlg = Transaction::ofTheCaller);
    /// The columns of a list by a number above 0 and by parts of the name and its kana. Here a row that is Nothing
    /// runs into the runtime's error 91.
    [[nodiscard]] std::int16_t iDataReadGrid_Jouken(const cD_CORP *cData);

private:
    App &m_app;
    CorpMapHook m_mapHook;
    TableContract<cD_CORP> m_table;
};

} // namespace inin
