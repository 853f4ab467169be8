// The properties of a staff member that each read fills.

#include "master/staff_table.h"
#include "master/table_fixture.h"

#include <variant>

using namespace inin;

namespace {

using Property = std::variant<std::string cD_STAFF::*, std::int32_t cD_STAFF::*, std::int16_t cD_STAFF::*>;

struct Marks {
    const char *column;
    Property property;
    bool grid, read, allBranches;
};
const Marks kMarks[] = {
    {"iKyotenCd", &cD_STAFF::iKyotenId, false, false, true},
    {"iKyotenEb", &cD_STAFF::iKyotenEb, false, false, true},
    {"cAdress1", &cD_STAFF::cAdress1, true, true, true},
    {"cAdress2", &cD_STAFF::cAdress2, true, true, true},
    {"cFaxNo", &cD_STAFF::cFaxNo, true, true, true},
    {"cKaiNo", &cD_STAFF::cKaiNo, true, true, true},
    {"cKaiNo2", &cD_STAFF::cKaiNo2, true, true, false},
    {"cKaiNo3", &cD_STAFF::cKaiNo3, true, true, false},
    {"cMobNo", &cD_STAFF::cMobNo, true, true, true},
    {"cName", &cD_STAFF::cName, true, true, true},
    {"cNameKana", &cD_STAFF::cNameKana, true, true, true},
    {"cNameRyaku", &cD_STAFF::cNameRyaku, false, true, false},
    {"cRken", &cD_STAFF::cRken, false, true, false},
    {"cRno", &cD_STAFF::cRno, false, true, false},
    {"cTelNo", &cD_STAFF::cTelNo, true, true, true},
    {"cYubinNo", &cD_STAFF::cYubinNo, true, true, true},
    {"iChusiFlg", &cD_STAFF::iChusiFlg, true, true, true},
    {"iSexKubun", &cD_STAFF::iSexKubun, true, true, true},
    {"iShikakuKubun", &cD_STAFF::iShikakuKubun, false, true, false},
    {"iSyokushuKubun", &cD_STAFF::iSyokushuKubun, false, true, false},
    {"iYaku", &cD_STAFF::iYaku, false, true, false},
    {"nIDNo", &cD_STAFF::nIDNo, true, true, true},
    {"cEmail", &cD_STAFF::cEmail, true, true, true},
    {"iTecAbi", &cD_STAFF::iTecAbi, true, true, true},
    {"iSpeechAbi", &cD_STAFF::iSpeechAbi, true, true, true},
    {"cPhysical", &cD_STAFF::cPhysical, true, true, true},
    {"iClaimRate", &cD_STAFF::iClaimRate, true, true, true},
    {"cSikaku", &cD_STAFF::cSikaku, true, true, true},
    {"cTourokuNo", &cD_STAFF::cTourokuNo, true, true, true},
    {"cSmileCd", &cD_STAFF::cSmileCd, true, true, true},
    {"tBirthday", &cD_STAFF::sBirthday, true, true, true},
    {"tKousinDay", &cD_STAFF::sKousinDay, false, true, false},
    {"tNyusyaDay", &cD_STAFF::sNyusyaDay, true, true, true},
    {"tKisanDay", &cD_STAFF::sKisanDay, true, true, true},
    {"tRday", &cD_STAFF::sRday, false, true, false},
    {"tTourokuDay", &cD_STAFF::sTourokuDay, false, true, false},
    {"cPcName", &cD_STAFF::cPcName, false, true, false},
    {"tUpDateTime", &cD_STAFF::tUpDateTime, false, true, false},
    {"cTourokuNo2", &cD_STAFF::cTourokuNo2, true, true, false},
    {"iVehicleType", &cD_STAFF::iVehicleType, true, true, true},
    {"cVehicleNumber", &cD_STAFF::cVehicleNumber, true, true, true},
    {"cVehicleComment", &cD_STAFF::cVehicleComment, true, true, true},
    {"cEmployeeNumber", &cD_STAFF::cEmployeeNumber, true, true, true},
    {"iLookAllRiyousya", &cD_STAFF::iLookAllRiyousya, true, true, true},
    {"iWebLicense", &cD_STAFF::iWebLicense, true, true, true},
    {"iLookCharge", &cD_STAFF::iLookCharge, true, true, true},
    {"iStaffHokenTouroku", &cD_STAFF::iStaffHokenTouroku, true, true, true},
    {"cShikaiNo", &cD_STAFF::cShikaiNo, true, true, true},
    {"cShikaiNo_Josei", &cD_STAFF::cShikaiNo_Josei, true, true, true},
    {"iContractType", &cD_STAFF::iContractType, true, true, true},
    {"nLat", &cD_STAFF::nLat, true, true, true},
    {"nLon", &cD_STAFF::nLon, true, true, true},
    {"cIninTourokuNo", &cD_STAFF::cIninTourokuNo, true, true, true},
    {"iIninTourokuChk", &cD_STAFF::iIninTourokuChk, true, true, true},
    {"iKanriSekininFlg", &cD_STAFF::iKanriSekininFlg, true, true, true},
    {"cKyotenName", &cD_STAFF::cKyotenName, false, false, true},
};

/// A value unique to the column: its name, or a number from its position.
Variant valueOf(std::size_t place)
{
    if (std::holds_alternative<std::string cD_STAFF::*>(kMarks[place].property)) return kMarks[place].column;
    return static_cast<std::int32_t>(100 + place);
}

std::string textOf(const cD_STAFF &row, const Property &property)
{
    return std::visit(
        [&row](auto member) {
            if constexpr (std::is_same_v<decltype(member), std::string cD_STAFF::*>)
                return row.*member;
            else
                return std::to_string(row.*member);
        },
        property);
}

/// A staff member whose columns all have different values.
FakeResult everyColumn()
{
    FakeResult result;
    result.rows.emplace_back();
    for (std::size_t place = 0; place < std::size(kMarks); ++place) {
        result.columns.emplace_back(kMarks[place].column);
        result.rows[0].push_back(valueOf(place));
    }
    return result;
}

using Read = std::int16_t (cT_STAFF::*)(const cD_STAFF *);

void checkFilled(Read read, bool Marks::*isFilled)
{
    TableFixture<cT_STAFF> staff;
    staff.database.results.push_back(everyColumn());
    const cD_STAFF fresh;
    REQUIRE((staff.table.*read)(&fresh) == iGood);
    REQUIRE(staff->nデータ数() == 1);
    for (std::size_t place = 0; place < std::size(kMarks); ++place) {
        const Marks &marks = kMarks[place];
        CAPTURE(marks.column);
        const Variant value = valueOf(place);
        const auto *number = value.getIf<std::int32_t>();
        const std::string filled = number != nullptr ? std::to_string(*number) : marks.column;
        CHECK(textOf(staff->clsSTAFF(0), marks.property) == (marks.*isFilled ? filled : textOf(fresh, marks.property)));
    }
}

} // namespace

TEST_CASE("the grid of a branch fills these properties of a staff member and no others")
{
    checkFilled(&cT_STAFF::iDataReadGrid, &Marks::grid);
}

TEST_CASE("the read of one staff member and the check of a number fill these properties and no others")
{
    checkFilled(&cT_STAFF::iDataRead, &Marks::read);
    checkFilled(&cT_STAFF::iDataIdentChk, &Marks::read);
}

TEST_CASE("the grid of all branches fills these properties and no others")
{
    checkFilled(&cT_STAFF::iDataReadGrid_AllKyoten, &Marks::allBranches);
}
