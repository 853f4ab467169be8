#pragma once

#include "master/table_contract.h"

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

/// The staff of the branches.
class cT_STAFF : public TableClass<cD_STAFF> {
public:
    explicit cT_STAFF(App &app);

    /// A row of the last read, from 0; error 9 outside. Valid until the next read.
    [[nodiscard]] const cD_STAFF &clsSTAFF(std::int32_t nIdx) const { return rowAt(nIdx); }
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
};

} // namespace inin
