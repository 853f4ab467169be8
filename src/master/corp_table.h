#pragma once

#include "master/corp_map.h"
#include "master/corp_row.h"
#include "master/table_contract.h"

#include <string>

namespace inin {

/// The companies of this branch. Statuses are 0 or -1, with the reason in sErrMsg. nullptr is a row that is Nothing.
/// `eOptions` is ignored. Texts are written into the statements unchanged, quote characters included. While the
/// process-wide cChizuFlg is "1", an insert and an update write the company's map between statement and commit.
class cT_CORP {
public:
    explicit cT_CORP(App &app);

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
    [[nodiscard]] bool hasMap() const { return m_app.cChizuFlg == "1"; }

    App &m_app;
    CorpMap m_map;
    TableContract<cD_CORP> m_table;
};

} // namespace inin
