#pragma once

#include "master/staff_row.h"
#include "master/table_contract.h"

namespace inin {

/// The staff of the branches. Statuses are 0 or -1, with the reason in sErrMsg. nullptr is a row that is Nothing.
/// `eOptions` is ignored. Names are written into the statements unchanged, quote characters included.
class cT_STAFF {
public:
    explicit cT_STAFF(App &app);

    [[nodiscard]] const std::string &sErrMsg() const { return m_table.sErrMsg(); }
    /// A row of the last read, from 0; error 9 outside. Valid until the next read.
    [[nodiscard]] const cD_STAFF &clsSTAFF(std::int32_t nIdx) const { return m_table.row(nIdx); }
    [[nodiscard]] std::int32_t nデータ数() const { return m_table.count(); }
    /// The computer's name; the empty text on a failure.
    [[nodiscard]] std::int16_t iGetComputerName(std::string &sName) { return m_table.computerName(sName); }
    /// Keeps a reference to the caller's connected session and clears the rows.
    [[nodiscard]] std::int16_t iInit(cT_ADODB &cADO) { return m_table.init(cADO); }
    /// The highest number of this branch, 0 for a branch without staff. If iKyotenIdMode is 1, only numbers that begin
    /// with the branch count, and the first one is the branch followed by four zeros.
    [[nodiscard]] std::int16_t iGetMaxIDNo(std::int32_t &nMaxNo);
    /// The number of other members with this name in the whole table, 0 if it is unused; -1 on a failure.
    [[nodiscard]] std::int16_t iChkStaffName(const std::int32_t &nIDNo, const std::string &cName);
    /// The staff of this branch: only active members if the row's iChusiFlg is 0, one member for a number above 0,
    /// names by their parts.
    [[nodiscard]] std::int16_t iDataReadGrid(const cD_STAFF *cData);
    /// The member with the row's number. If iKyotenIdMode is set, of any branch and, if the row has a name, with that
    /// name.
    [[nodiscard]] std::int16_t iDataRead(const cD_STAFF *cData);
    /// All members with the row's number in this branch.
    [[nodiscard]] std::int16_t iDataIdentChk(const cD_STAFF *cData);
    [[nodiscard]] std::int16_t iDataInsert(const cD_STAFF *cData, std::int32_t eOptions,
                                           Transaction bTransactionFlg = Transaction::ofTheCaller);
    [[nodiscard]] std::int16_t iDataUpdate(const cD_STAFF *cData, std::int32_t eOptions,
                                           Transaction bTransactionFlg = Transaction::ofTheCaller);
    [[nodiscard]] std::int16_t iData削除(const cD_STAFF *cData, std::int32_t eOptions,
                                         Transaction bTransactionFlg = Transaction::ofTheCaller);
    /// Like iDataReadGrid over all branches, with the branch and its name.
    [[nodiscard]] std::int16_t iDataReadGrid_AllKyoten(const cD_STAFF *cData);

private:
    App &m_app;
    TableContract<cD_STAFF> m_table;
};

} // namespace inin
