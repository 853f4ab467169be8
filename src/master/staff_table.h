#pragma once

#include "master/staff_row.h"
#include "master/table_contract.h"

namespace inin {

/// The staff of the branches. Statuses are 0 or -1; the reason stands in sErrMsg. nullptr stands for a row that is
/// Nothing. `eOptions` is accepted and ignored. Names go into the statements as they are, quote characters too.
class cT_STAFF {
public:
    explicit cT_STAFF(App &app);

    [[nodiscard]] const std::string &sErrMsg() const { return m_table.sErrMsg(); }
    /// A row of the last read, from 0; error 9 outside. Good until the next read.
    [[nodiscard]] const cD_STAFF &clsSTAFF(std::int32_t nIdx) const { return m_table.row(nIdx); }
    [[nodiscard]] std::int32_t nデータ数() const { return m_table.count(); }
    /// The computer's name, the empty text on a failure.
    [[nodiscard]] std::int16_t iGetComputerName(std::string &sName) { return m_table.computerName(sName); }
    /// Keeps the caller's connected session and drops the rows.
    [[nodiscard]] std::int16_t iInit(cT_ADODB &cADO) { return m_table.init(cADO); }
    /// The highest number of this branch, 0 for a branch without staff. Where iKyotenIdMode is 1 only numbers that
    /// begin with the branch count, and the first one is made of the branch and four zeros.
    [[nodiscard]] std::int16_t iGetMaxIDNo(std::int32_t &nMaxNo);
    /// How many others bear the name in the whole table, 0 when it is free; -1 on a failure.
    [[nodiscard]] std::int16_t iChkStaffName(const std::int32_t &nIDNo, const std::string &cName);
    /// The staff of this branch: active ones where the row's iChusiFlg is 0, one number above 0, names by their parts.
    [[nodiscard]] std::int16_t iDataReadGrid(const cD_STAFF *cData);
    /// The one of the row's number; where iKyotenIdMode is set, of any branch and of the row's name if it has one.
    [[nodiscard]] std::int16_t iDataRead(const cD_STAFF *cData);
    /// All of the row's number in this branch.
    [[nodiscard]] std::int16_t iDataIdentChk(const cD_STAFF *cData);
    [[nodiscard]] std::int16_t iDataInsert(const cD_STAFF *cData, std::int32_t eOptions,
                                           Transaction bTransactionFlg = Transaction::ofTheCaller);
    [[nodiscard]] std::int16_t iDataUpdate(const cD_STAFF *cData, std::int32_t eOptions,
                                           Transaction bTransactionFlg = Transaction::ofTheCaller);
    [[nodiscard]] std::int16_t iData削除(const cD_STAFF *cData, std::int32_t eOptions,
                                         Transaction bTransactionFlg = Transaction::ofTheCaller);
    /// As iDataReadGrid over all branches, with the branch and its name.
    [[nodiscard]] std::int16_t iDataReadGrid_AllKyoten(const cD_STAFF *cData);

private:
    App &m_app;
    TableContract<cD_STAFF> m_table;
};

} // namespace inin
