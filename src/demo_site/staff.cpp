#include "demo_site/staff.h"

#include <fmt/format.h>

#include <vector>

#include <iterator>

namespace inin::site {

namespace {

constexpr std::int64_t kOtherSubCode = 2;
constexpr std::int64_t kOtherStaff = 2;
constexpr std::int64_t kConsultations = 5;

struct Employee {
    std::int64_t subCode = kBranchSubCode;
    std::int64_t number = 0;
    bool isFemale = false;
    PersonName name;
    Home home;
    Day entered;
};

struct DemoStaffColumn {
    std::string_view name;
    Cell (*value)(const Employee &employee, Dice &dice);
};

template <int Low, int High> Cell number(const Employee &, Dice &dice)
{
    return std::int64_t{dice.between(Low, High)};
}

template <int Count> Cell digits(const Employee &, Dice &dice)
{
    return makeDigits(dice, Count);
}

Cell telephone(const Employee &, Dice &dice)
{
    return makeTelephone(dice);
}

template <int Low, int High> Cell dayAfterEntry(const Employee &employee, Dice &dice)
{
    return isoText(employee.entered + std::chrono::days{dice.between(Low, High)});
}

/// One in five is inactive; NULL counts as active.
Cell stoppedFlag(const Employee &employee, Dice &)
{
    if (employee.number % 7 == 3) return kNull;
    return std::int64_t{employee.number % 5 == 4};
}

template <std::string Home::*Field> Cell home(const Employee &employee, Dice &)
{
    const std::string &value = employee.home.*Field;
    return value.empty() ? Cell{kNull} : Cell{value};
}

Cell vehicle(const Employee &, Dice &dice)
{
    const std::string plate = fmt::format("香川 000 い 00-{}", makeDigits(dice, 2));
    return dice.oneIn(2) ? Cell{plate} : Cell{kNull};
}

Cell licence(const Employee &, Dice &dice)
{
    constexpr std::string_view kLicences[] = {"あん摩マッサージ指圧師", "はり師・きゅう師", "あはき師"};
    return std::string(dice.pick(std::span{kLicences}));
}

constexpr DemoStaffColumn kColumns[] = {
    {"iKyotenCd", [](const Employee &, Dice &) -> Cell { return kBranchCode; }},
    {"iKyotenEb", [](const Employee &employee, Dice &) -> Cell { return employee.subCode; }},
    {"nIDNo", [](const Employee &employee, Dice &) -> Cell { return employee.number; }},
    {"cName", [](const Employee &employee, Dice &) -> Cell { return employee.name.kanji; }},
    {"cNameKana", [](const Employee &employee, Dice &) -> Cell { return employee.name.kana; }},
    {"iChusiFlg", stoppedFlag},
    {"cNameRyaku",
     [](const Employee &employee, Dice &) -> Cell {
         return employee.name.kanji.substr(0, employee.name.kanji.find("　"));
     }},
    {"iSexKubun", [](const Employee &employee, Dice &) -> Cell { return std::int64_t{employee.isFemale ? 2 : 1}; }},
    {"cAdress1", home<&Home::address1>},
    {"cAdress2", home<&Home::address2>},
    {"cYubinNo", home<&Home::postalCode>},
    {"cTelNo", home<&Home::telephone>},
    {"cFaxNo", telephone},
    {"cMobNo", telephone},
    {"cKaiNo", digits<6>},
    {"cKaiNo2", digits<6>},
    {"cKaiNo3", digits<6>},
    {"cRken", digits<2>},
    {"cRno", digits<6>},
    {"iShikakuKubun", number<0, 3>},
    {"iSyokushuKubun", number<0, 3>},
    {"iYaku", number<0, 2>},
    {"cEmail",
     [](const Employee &employee, Dice &) -> Cell { return fmt::format("staff{}@example.invalid", employee.number); }},
    {"iTecAbi", number<1, 5>},
    {"iSpeechAbi", number<1, 5>},
    {"cPhysical", digits<2>},
    {"iClaimRate", number<0, 5>},
    {"cSikaku", licence},
    {"cTourokuNo", digits<8>},
    {"cTourokuNo2", digits<8>},
    {"cSmileCd", digits<4>},
    {"tBirthday", dayAfterEntry<-18000, -8000>},
    {"tKousinDay", dayAfterEntry<100, 900>},
    {"tNyusyaDay", dayAfterEntry<0, 0>},
    {"tKisanDay", dayAfterEntry<0, 0>},
    {"tRday", dayAfterEntry<-900, -100>},
    {"tTourokuDay", dayAfterEntry<0, 60>},
    {"cPcName", [](const Employee &, Dice &) -> Cell { return "DEMO-PC"; }},
    {"tUpDateTime", dayAfterEntry<900, 1000>},
    {"iVehicleType", number<0, 3>},
    {"cVehicleNumber", vehicle},
    {"cVehicleComment", vehicle},
    {"cEmployeeNumber", digits<5>},
    {"iLookAllRiyousya", number<0, 1>},
    {"iWebLicense", number<0, 1>},
    {"iLookCharge", number<0, 1>},
    {"iStaffHokenTouroku", number<0, 1>},
    {"cShikaiNo", digits<6>},
    {"cShikaiNo_Josei", digits<6>},
    {"iContractType", number<0, 2>},
    {"nLat", number<34200000, 34400000>},
    {"nLon", number<133800000, 134200000>},
    {"cIninTourokuNo", digits<8>},
    {"iIninTourokuChk", number<0, 1>},
    {"iKanriSekininFlg", number<0, 1>},
};

/// The first columns (keys, name, kana, flag) keep their values, so that the pick lists are readable.
constexpr std::size_t kKept = 6;

Employee makeEmployee(const SiteOrder &order, std::int64_t subCode, std::int64_t number, Dice &dice)
{
    Employee employee;
    employee.subCode = subCode;
    employee.number = number;
    employee.isFemale = dice.oneIn(2);
    employee.name = makeName(dice, employee.isFemale);
    employee.home = makeHome(dice);
    employee.entered = dayOfMonth(order.month, 1) - std::chrono::days{dice.between(1100, 6000)};
    return employee;
}

/// A diagonal of twelve rows and columns, the staff count of the smallest site.
bool isNullHere(std::int64_t number, std::size_t column)
{
    constexpr std::int64_t kDiagonal = 12;
    return column >= kKept && number % kDiagonal == static_cast<std::int64_t>(column) % kDiagonal;
}

void writeEmployee(Insert &insert, const Employee &employee, Dice &dice)
{
    std::vector<Cell> row;
    for (std::size_t i = 0; i < std::size(kColumns); ++i) {
        row.push_back(kColumns[i].value(employee, dice));
        if (isNullHere(employee.number, i)) row.back() = kNull;
    }
    insert.row(row);
}

/// A row that was created but never filled in; inactive, so that the lists show no empty line.
void writeBlankEmployee(Insert &insert, std::int64_t number)
{
    std::vector<Cell> row(std::size(kColumns), kNull);
    row[0] = kBranchCode;
    row[1] = kBranchSubCode;
    row[2] = number;
    row[kKept - 1] = std::int64_t{1};
    insert.row(row);
}

} // namespace

void writeStaff(RowTarget &database, const SiteOrder &order)
{
    std::vector<std::string_view> names;
    for (const DemoStaffColumn &column : kColumns) names.push_back(column.name);
    Insert insert(database, "STAFF", names);
    for (const std::int64_t subCode : {kBranchSubCode, kOtherSubCode}) {
        const std::int64_t count = subCode == kBranchSubCode ? staffCount(order) : kOtherStaff;
        for (std::int64_t number = 1; number <= count; ++number) {
            Dice dice = diceFor(order, Kind::staff, subCode * 100000 + number);
            writeEmployee(insert, makeEmployee(order, subCode, number, dice), dice);
        }
    }
    writeBlankEmployee(insert, staffCount(order) + 1);
}

void writeConsultations(RowTarget &database, const SiteOrder &order)
{
    constexpr std::string_view kNames[] = {"nIDNo", "iStaffKyotenCd", "iStaffKyotenEb", "nStaffIDNo"};
    Insert insert(database, "SOUDAN_TANTOU", kNames);
    for (std::int64_t consultation = 1; consultation <= kConsultations; ++consultation) {
        for (std::int64_t place = 0; place < 1 + consultation % 3; ++place) {
            const std::int64_t staff = 1 + (consultation * 3 + place) % staffCount(order);
            insert.row({consultation, kBranchCode, kBranchSubCode, staff});
        }
    }
}

} // namespace inin::site
