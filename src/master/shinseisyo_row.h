#pragma once

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

} // namespace inin
