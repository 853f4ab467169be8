#pragma once

#include "master/hoken_row.h"
#include "master/table_contract.h"

namespace inin {

/// The insurance kinds of all branches. Statuses are 0 or -1, with the reason in sErrMsg. nullptr is a row that is
/// Nothing. `eOptions` is ignored. Texts are written into the statements unchanged, quote characters included.
class cT_HOKEN {
public:
    explicit cT_HOKEN(App &app);

    [[nodiscard]] const std::string &sErrMsg() const { return m_table.sErrMsg(); }
    /// A row of the last read, from 0; error 9 outside. Valid until the next read.
    [[nodiscard]] const cD_HOKEN &clsHOKEN(std::int32_t nIdx) const { return m_table.row(nIdx); }
    [[nodiscard]] std::int32_t nデータ数() const { return m_table.count(); }
    /// Keeps a reference to the caller's connected session and clears the rows.
    [[nodiscard]] std::int16_t iInit(cT_ADODB &cADO) { return m_table.init(cADO); }
    /// Reads the whole table in the order of iType. The row sets no condition but is required. A kind that two branches
    /// define appears twice.
    [[nodiscard]] std::int16_t iDataRead(const cD_HOKEN *cData);
    [[nodiscard]] std::int16_t iDataInsert(const cD_HOKEN *cData, std::int32_t eOptions,
                                           Transaction bTransactionFlg = Transaction::ofTheCaller);
    /// Finds the row by its iType, which therefore cannot change.
    [[nodiscard]] std::int16_t iDataUpdate(const cD_HOKEN *cData, std::int32_t eOptions,
                                           Transaction bTransactionFlg = Transaction::ofTheCaller);
    [[nodiscard]] std::int16_t iData削除(const cD_HOKEN *cData, std::int32_t eOptions,
                                         Transaction bTransactionFlg = Transaction::ofTheCaller);

private:
    App &m_app;
    TableContract<cD_HOKEN> m_table;
};

} // namespace inin
