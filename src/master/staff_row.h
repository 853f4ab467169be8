#pragma once

#include <cstdint>
#include <string>

namespace inin {

/// A practitioner or another employee. A new row sets no condition in a grid read. The order is that of the suite.
struct cD_STAFF {
    std::string cShikaiNo, cShikaiNo_Josei;
    std::int16_t iStaffHokenTouroku = 0;
    std::string cTourokuNo2;
    /// Filled only by the grid of all branches; writes use the branch of this installation.
    std::string cKyotenName;
    std::int32_t iKyotenId = 0, iKyotenEb = 0;
    std::string cTourokuNo, cSmileCd;
    /// Dates as texts.
    std::string sBirthday, sKousinDay, sNyusyaDay, sRday, sTourokuDay;
    std::string cAdress1, sKisanDay, cAdress2, cFaxNo, cKaiNo, cKaiNo2, cKaiNo3, cMobNo;
    std::string cName, cNameKana, cNameRyaku, cRken, cRno, cTelNo, cYubinNo;
    /// 0 is active, anything else means that the management has ended.
    std::int32_t iChusiFlg = 0;
    std::int32_t iSexKubun = -1, iShikakuKubun = -1, iSyokushuKubun = -1, iYaku = -1;
    /// Unique within a branch.
    std::int32_t nIDNo = -1;
    std::string cPcName, tUpDateTime, cEmail;
    std::int16_t iTecAbi = 0, iSpeechAbi = 0;
    std::string cPhysical;
    std::int16_t iClaimRate = 0;
    std::string cSikaku;
    std::int32_t iVehicleType = 0;
    std::string cVehicleNumber, cVehicleComment, cEmployeeNumber;
    std::int32_t iLookAllRiyousya = 0, iWebLicense = 0, iLookCharge = 0;
    std::int32_t nLat = 0, nLon = 0, iContractType = 0;
    std::string cIninTourokuNo;
    std::int32_t iIninTourokuChk = 0, iKanriSekininFlg = 0;
};

} // namespace inin
