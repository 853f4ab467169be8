#pragma once

#include <string>
#include <vector>

namespace inin {

/// The select list of the staff grid as sent, name by name.
inline const std::string kStaffGridList =
    "      STAFF.cAdress1 as cAdress1     ,STAFF.cAdress2 as cAdress2     ,STAFF.cFaxNo as cFaxNo"
    "     ,STAFF.cKaiNo as cKaiNo     ,STAFF.cMobNo as cMobNo     ,STAFF.cName as cName"
    "     ,STAFF.cNameKana as cNameKana     ,STAFF.cTelNo as cTelNo     ,STAFF.cYubinNo as cYubinNo"
    "     ,STAFF.iChusiFlg as iChusiFlg     ,STAFF.nIDNo as nIDNo     ,STAFF.cTourokuNo     ,STAFF.cSmileCd"
    "     ,STAFF.cNameKana     ,STAFF.tBirthday     ,STAFF.iSexKubun     ,STAFF.tNyusyaDay     ,STAFF.tNyusyaDay"
    "     ,STAFF.tKisanDay     ,STAFF.cTourokuNo     ,STAFF.cTourokuNo2     ,STAFF.cEmail     ,STAFF.iTecAbi"
    "     ,STAFF.iSpeechAbi     ,STAFF.cPhysical     ,STAFF.iClaimRate     ,STAFF.cSikaku     ,STAFF.iVehicleType"
    "     ,STAFF.cVehicleNumber     ,STAFF.cVehicleComment     ,STAFF.cEmployeeNumber     ,STAFF.iLookAllRiyousya"
    "     ,STAFF.iWebLicense     ,STAFF.iLookCharge     ,STAFF.cKaiNo2     ,STAFF.cKaiNo3"
    "     ,STAFF.iStaffHokenTouroku     ,STAFF.cShikaiNo     ,STAFF.cShikaiNo_Josei     ,STAFF.iContractType"
    "     ,STAFF.nLat     ,STAFF.nLon     ,STAFF.cIninTourokuNo     ,STAFF.iIninTourokuChk     ,STAFF.iKanriSekininFlg";

/// The columns of a result of the staff grid.
inline const std::vector<std::string> kStaffGridColumns = {"cAdress1",
                                                           "cAdress2",
                                                           "cFaxNo",
                                                           "cKaiNo",
                                                           "cMobNo",
                                                           "cName",
                                                           "cNameKana",
                                                           "cTelNo",
                                                           "cYubinNo",
                                                           "iChusiFlg",
                                                           "nIDNo",
                                                           "cTourokuNo",
                                                           "cSmileCd",
                                                           "tBirthday",
                                                           "iSexKubun",
                                                           "tNyusyaDay",
                                                           "tKisanDay",
                                                           "cTourokuNo2",
                                                           "cEmail",
                                                           "iTecAbi",
                                                           "iSpeechAbi",
                                                           "cPhysical",
                                                           "iClaimRate",
                                                           "cSikaku",
                                                           "iVehicleType",
                                                           "cVehicleNumber",
                                                           "cVehicleComment",
                                                           "cEmployeeNumber",
                                                           "iLookAllRiyousya",
                                                           "iWebLicense",
                                                           "iLookCharge",
                                                           "cKaiNo2",
                                                           "cKaiNo3",
                                                           "iStaffHokenTouroku",
                                                           "cShikaiNo",
                                                           "cShikaiNo_Josei",
                                                           "iContractType",
                                                           "nLat",
                                                           "nLon",
                                                           "cIninTourokuNo",
                                                           "iIninTourokuChk",
                                                           "iKanriSekininFlg"};

} // namespace inin
