#include "master/staff_columns.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>

namespace inin {

namespace {

using enum WrittenAs;
using enum ValueFrom;

constexpr StaffColumn kStaffColumns[] = {
    // column, property, notation; filled by the grid, by the read, by the grid of all branches
    {{"iKyotenCd", &cD_STAFF::iKyotenId, number, siteCode, OnUpdate::kept}, false, false, true},
    {{"iKyotenEb", &cD_STAFF::iKyotenEb, number, siteSubCode, OnUpdate::kept}, false, false, true},
    {{"cAdress1", &cD_STAFF::cAdress1, quoted}, true, true, true},
    {{"cAdress2", &cD_STAFF::cAdress2, quoted}, true, true, true},
    {{"cFaxNo", &cD_STAFF::cFaxNo, quoted}, true, true, true},
    {{"cKaiNo", &cD_STAFF::cKaiNo, quoted}, true, true, true},
    {{"cKaiNo2", &cD_STAFF::cKaiNo2, quoted}, true, true, false},
    {{"cKaiNo3", &cD_STAFF::cKaiNo3, quoted}, true, true, false},
    {{"cMobNo", &cD_STAFF::cMobNo, quoted}, true, true, true},
    {{"cName", &cD_STAFF::cName, quoted}, true, true, true},
    {{"cNameKana", &cD_STAFF::cNameKana, quoted}, true, true, true},
    {{"cNameRyaku", &cD_STAFF::cNameRyaku, quoted}, false, true, false},
    {{"cRken", &cD_STAFF::cRken, quoted}, false, true, false},
    {{"cRno", &cD_STAFF::cRno, quoted}, false, true, false},
    {{"cTelNo", &cD_STAFF::cTelNo, quoted}, true, true, true},
    {{"cYubinNo", &cD_STAFF::cYubinNo, quoted}, true, true, true},
    {{"iChusiFlg", ThroughInteger<cD_STAFF>{&cD_STAFF::iChusiFlg}, number}, true, true, true},
    {{"iSexKubun", &cD_STAFF::iSexKubun, number}, true, true, true},
    {{"iShikakuKubun", &cD_STAFF::iShikakuKubun, number}, false, true, false},
    {{"iSyokushuKubun", &cD_STAFF::iSyokushuKubun, number}, false, true, false},
    {{"iYaku", &cD_STAFF::iYaku, number}, false, true, false},
    {{"nIDNo", &cD_STAFF::nIDNo, number}, true, true, true},
    {{"cEmail", &cD_STAFF::cEmail, quoted}, true, true, true},
    {{"iTecAbi", &cD_STAFF::iTecAbi, number}, true, true, true},
    {{"iSpeechAbi", &cD_STAFF::iSpeechAbi, number}, true, true, true},
    {{"cPhysical", &cD_STAFF::cPhysical, quoted}, true, true, true},
    {{"iClaimRate", &cD_STAFF::iClaimRate, number}, true, true, true},
    {{"cSikaku", &cD_STAFF::cSikaku, quoted}, true, true, true},
    {{"cTourokuNo", &cD_STAFF::cTourokuNo, quoted}, true, true, true},
    {{"cSmileCd", &cD_STAFF::cSmileCd, quoted}, true, true, true},
    {{"tBirthday", &cD_STAFF::sBirthday, nullIfEmpty}, true, true, true},
    {{"tKousinDay", &cD_STAFF::sKousinDay, nullIfEmpty}, false, true, false},
    {{"tNyusyaDay", &cD_STAFF::sNyusyaDay, nullIfEmpty}, true, true, true},
    {{"tKisanDay", &cD_STAFF::sKisanDay, nullIfEmpty}, true, true, true},
    {{"tRday", &cD_STAFF::sRday, nullIfEmpty}, false, true, false},
    {{"tTourokuDay", &cD_STAFF::sTourokuDay, nullIfEmpty}, false, true, false},
    {{"cPcName", &cD_STAFF::cPcName, quoted, computerName}, false, true, false},
    {{"tUpDateTime", &cD_STAFF::tUpDateTime, serverTime}, false, true, false},
    {{"cTourokuNo2", &cD_STAFF::cTourokuNo2, quoted}, true, true, false},
    {{"iVehicleType", &cD_STAFF::iVehicleType, number}, true, true, true},
    {{"cVehicleNumber", &cD_STAFF::cVehicleNumber, nullIfEmptyOnInsert}, true, true, true},
    {{"cVehicleComment", &cD_STAFF::cVehicleComment, nullIfEmptyOnInsert}, true, true, true},
    {{"cEmployeeNumber", &cD_STAFF::cEmployeeNumber, nullIfEmptyOnInsert}, true, true, true},
    {{"iLookAllRiyousya", &cD_STAFF::iLookAllRiyousya, number}, true, true, true},
    {{"iWebLicense", &cD_STAFF::iWebLicense, number}, true, true, true},
    {{"iLookCharge", &cD_STAFF::iLookCharge, number}, true, true, true},
    {{"iStaffHokenTouroku", &cD_STAFF::iStaffHokenTouroku, number}, true, true, true},
    {{"cShikaiNo", &cD_STAFF::cShikaiNo, quoted}, true, true, true},
    {{"cShikaiNo_Josei", &cD_STAFF::cShikaiNo_Josei, quoted}, true, true, true},
    {{"iContractType", &cD_STAFF::iContractType, number}, true, true, true},
    {{"nLat", &cD_STAFF::nLat, number}, true, true, true},
    {{"nLon", &cD_STAFF::nLon, number}, true, true, true},
    {{"cIninTourokuNo", &cD_STAFF::cIninTourokuNo, quoted}, true, true, true},
    {{"iIninTourokuChk", &cD_STAFF::iIninTourokuChk, number}, true, true, true},
    {{"iKanriSekininFlg", &cD_STAFF::iKanriSekininFlg, number}, true, true, true},
    {{"cKyotenName", &cD_STAFF::cKyotenName, never}, false, false, true},
};

struct SelectedName {
    const char *name;
    SelectForm form;
};

using enum SelectForm;

/// The select list of the grids. Duplicate names are part of the text and harmless: a read finds columns by name.
constexpr SelectedName kGridNames[] = {
    {"cAdress1", aliased},
    {"cAdress2", aliased},
    {"cFaxNo", aliased},
    {"cKaiNo", aliased},
    {"cMobNo", aliased},
    {"cName", aliased},
    {"cNameKana", aliased},
    {"cTelNo", aliased},
    {"cYubinNo", aliased},
    {"iChusiFlg", aliased},
    {"nIDNo", aliased},
    {"cTourokuNo", qualified},
    {"cSmileCd", qualified},
    {"cNameKana", qualified},
    {"tBirthday", qualified},
    {"iSexKubun", qualified},
    {"tNyusyaDay", qualified},
    {"tNyusyaDay", qualified},
    {"tKisanDay", qualified},
    {"cTourokuNo", qualified},
    {"cTourokuNo2", qualified},
    {"cEmail", qualified},
    {"iTecAbi", qualified},
    {"iSpeechAbi", qualified},
    {"cPhysical", qualified},
    {"iClaimRate", qualified},
    {"cSikaku", qualified},
    {"iVehicleType", qualified},
    {"cVehicleNumber", qualified},
    {"cVehicleComment", qualified},
    {"cEmployeeNumber", qualified},
    {"iLookAllRiyousya", qualified},
    {"iWebLicense", qualified},
    {"iLookCharge", qualified},
    {"cKaiNo2", qualified},
    {"cKaiNo3", qualified},
    {"iStaffHokenTouroku", qualified},
    {"cShikaiNo", qualified},
    {"cShikaiNo_Josei", qualified},
    {"iContractType", qualified},
    {"nLat", qualified},
    {"nLon", qualified},
    {"cIninTourokuNo", qualified},
    {"iIninTourokuChk", qualified},
    {"iKanriSekininFlg", qualified},
};

/// The columns that the single read adds to the list of the grids.
constexpr SelectedName kReadNames[] = {
    {"cKaiNo2", qualified},     {"cKaiNo3", qualified},       {"cNameRyaku", qualified},     {"cRken", qualified},
    {"cRno", qualified},        {"iShikakuKubun", qualified}, {"iSyokushuKubun", qualified}, {"iYaku", qualified},
    {"tKousinDay", qualified},  {"tRday", qualified},         {"tTourokuDay", qualified},    {"cPcName", qualified},
    {"tUpDateTime", qualified},
};

/// The columns that the grid of all branches adds to the list of the grids.
constexpr SelectedName kAllBranchesNames[] = {{"iKyotenCd", qualified}, {"iKyotenEb", qualified}};
constexpr const char *kBranchName = "cKyotenName";

const StaffColumn &columnOf(std::string_view name)
{
    const auto *found = std::find_if(std::begin(kStaffColumns), std::end(kStaffColumns),
                                     [name](const StaffColumn &column) { return column.name == name; });
    if (found == std::end(kStaffColumns)) throw std::logic_error("no such column of STAFF");
    return *found;
}

bool isFilledBy(const StaffColumn &column, StaffRead read)
{
    if (read == StaffRead::grid) return column.grid;
    return read == StaffRead::read ? column.read : column.allBranches;
}

void add(SelectList<cD_STAFF> &list, std::span<const SelectedName> names, StaffRead read)
{
    for (const SelectedName &selected : names) {
        const StaffColumn &column = columnOf(selected.name);
        if (isFilledBy(column, read))
            list.add(column, selected.form);
        else
            list.addUnread(column.name, selected.form);
    }
}

} // namespace

std::span<const StaffColumn> staffColumns()
{
    return kStaffColumns;
}

SelectList<cD_STAFF> staffSelectList(StaffRead read)
{
    SelectList<cD_STAFF> list(kStaff.name);
    add(list, kGridNames, read);
    if (read == StaffRead::read) add(list, kReadNames, read);
    if (read == StaffRead::allBranches) {
        add(list, kAllBranchesNames, read);
        list.addJoined(columnOf(kBranchName), "KYOTEN");
    }
    return list;
}

} // namespace inin
