#pragma once

#include "master/table_contract.h"

#include <cstdint>
#include <string>

namespace inin {

/// A printable claim form. Unlike in the other row classes, a new row has number 0, so that it selects number 0 of
/// print type 0. The order is that of the suite.
struct cD_SHINSEISYO {
    std::int32_t iTekiyouStaff = 0, iKanagawaStaffPrint = 0;
    std::int32_t iKyotenCd = 0, iKyotenEb = 0; ///< filled by reads; a write uses the codes of this branch or 0
    std::int32_t nIDNo = 0;                    ///< number within branch and print type
    std::string cFileName, cDispName;
    std::int32_t iSejutsuKubun = 0, iHokenType = 0;
    std::int32_t iDelFlg = 0; ///< 0 or NULL: not deleted
    std::int32_t iSinseiTP = 0, iSoufushoTP = 0, iDuplexFlg = 0;
    std::int32_t iStateNo = 0; ///< prefecture
    std::int32_t iRiyouHokenKbn = 0;
    std::string tUpDateTime;
    std::int32_t iPrintType = 0; ///< 0 and 1 are system-wide, all others belong to a branch
    std::int32_t iKubun = 0, iJoseiFutanKiriage = 0;
};

/// The claim forms. Rows of print types 0 and 1 are system-wide and have branch 0, 0; all others belong to this branch.
class cT_SHINSEISYO : public TableClass<cD_SHINSEISYO> {
public:
    explicit cT_SHINSEISYO(App &app);

    /// A row of the last read, from 0; error 9 outside. Valid until the next read.
    [[nodiscard]] const cD_SHINSEISYO &clsSHINSEISYO(std::int32_t nIdx) const { return rowAt(nIdx); }
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
};

} // namespace inin
