#pragma once

#include "master/shinseisyo_row.h"
#include "master/table_contract.h"

#include <cstdint>
#include <string>

namespace inin {

/// The claim forms. Rows of print types 0 and 1 are system-wide and have branch 0, 0; all others belong to this branch.
/// Statuses are 0 or -1, with the reason in sErrMsg. nullptr is a row that is Nothing. `eOptions` is ignored. Texts are
/// written into the statements unchanged, quote characters included.
class cT_SHINSEISYO {
public:
    explicit cT_SHINSEISYO(App &app);

    [[nodiscard]] const std::string &sErrMsg() const { return m_table.sErrMsg(); }
    /// A row of the last read, from 0; error 9 outside. Valid until the next read.
    [[nodiscard]] const cD_SHINSEISYO &clsSHINSEISYO(std::int32_t nIdx) const { return m_table.row(nIdx); }
    [[nodiscard]] std::int32_t nデータ数() const { return m_table.count(); }
    /// The computer's name; the empty text on a failure.
    [[nodiscard]] std::int16_t iGetComputerName(std::string &sName) { return m_table.computerName(sName); }
    /// Keeps a reference to the caller's connected session and clears the rows.
    [[nodiscard]] std::int16_t iInit(cT_ADODB &cADO) { return m_table.init(cADO); }
    /// The highest number of the print type, 0 if there is no form.
    [[nodiscard]] std::int16_t iGetMaxIDNo(std::int32_t &nMaxNo, std::int16_t iPrintType);
    /// The forms of the row's print type: only undeleted ones if its iDelFlg is 0, only those of its prefecture if that
    /// is above 0. Here a row that is Nothing is the runtime's error 91.
    [[nodiscard]] std::int16_t iDataReadGrid(const cD_SHINSEISYO *cData);
    /// The forms of the row's print type, deleted ones included; only its number unless that is -1.
    [[nodiscard]] std::int16_t iDataRead(const cD_SHINSEISYO *cData);
    [[nodiscard]] std::int16_t iDataInsert(const cD_SHINSEISYO *cData, std::int32_t eOptions,
                                           Transaction bTransactionFlg = Transaction::ofTheCaller);
    [[nodiscard]] std::int16_t iDataUpdate(const cD_SHINSEISYO *cData, std::int32_t eOptions,
                                           Transaction bTransactionFlg = Transaction::ofTheCaller);
    [[nodiscard]] std::int16_t iData削除(const cD_SHINSEISYO *cData, std::int32_t eOptions,
                                         Transaction bTransactionFlg = Transaction::ofTheCaller);

private:
    App &m_app;
    TableContract<cD_SHINSEISYO> m_table;
};

} // namespace inin
