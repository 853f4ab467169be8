#include "support/list_answers.h"

namespace inin {

FakeResult staffMembers(const std::vector<std::pair<Variant, Variant>> &numbersAndNames)
{
    FakeResult result;
    result.columns = {"nIDNo",
                      "cName",
                      "cAdress1",
                      "cAdress2",
                      "cFaxNo",
                      "cKaiNo",
                      "cKaiNo2",
                      "cKaiNo3",
                      "cMobNo",
                      "cNameKana",
                      "cTelNo",
                      "cYubinNo",
                      "iChusiFlg",
                      "iSexKubun",
                      "cEmail",
                      "iTecAbi",
                      "iSpeechAbi",
                      "cPhysical",
                      "iClaimRate",
                      "cSikaku",
                      "cTourokuNo",
                      "cTourokuNo2",
                      "cSmileCd",
                      "tBirthday",
                      "tNyusyaDay",
                      "tKisanDay",
                      "iVehicleType",
                      "cVehicleNumber",
                      "cVehicleComment",
                      "cEmployeeNumber",
                      "iLookAllRiyousya",
                      "iWebLicense",
                      "iLookCharge",
                      "iStaffHokenTouroku",
                      "cShikaiNo",
                      "cShikaiNo_Josei",
                      "iContractType",
                      "nLat",
                      "nLon",
                      "cIninTourokuNo",
                      "iIninTourokuChk",
                      "iKanriSekininFlg"};
    for (const auto &[number, name] : numbersAndNames) {
        std::vector<Variant> &row = result.rows.emplace_back(result.columns.size(), Null{});
        row[0] = number;
        row[1] = name;
    }
    return result;
}

FakeResult insuranceKinds(const std::vector<std::pair<Variant, Variant>> &kindsAndLabels)
{
    FakeResult result;
    result.columns = {"cName", "cRyaku", "cType", "iType"};
    for (const auto &[kind, label] : kindsAndLabels) result.rows.push_back({Null{}, Null{}, label, kind});
    return result;
}

} // namespace inin
