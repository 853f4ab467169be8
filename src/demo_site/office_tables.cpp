#include "demo_site/demo_tables.h"

#include "demo_site/ruled_table.h"

#include <fmt/format.h>

#include <charconv>

namespace inin::site {

namespace {

constexpr std::int64_t kOtherSubCode = 2;

/// A cell of a table in the demo data; site/demo_data.txt describes the types.
Cell cellOf(std::string_view column, std::string_view text, const SiteOrder &order)
{
    if (text.empty()) return kNull;
    if (text == "''") return std::string();
    const char type = column.front();
    if (type == 't' || type == 'd') return yearMonthText(order.month).append(text);
    if (type != 'i' && type != 'n' && type != 'b') return textCell(text);
    std::int64_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    if (type == 'b') return Blob{std::string(1, static_cast<char>(number))};
    return number;
}

std::vector<Cell> cellsOf(const DataRow &columns, const DataRow &row, const SiteOrder &order)
{
    std::vector<Cell> cells;
    for (std::size_t at = 0; at < row.size(); ++at) cells.push_back(cellOf(columns[at], row[at], order));
    return cells;
}

struct Company {
    std::vector<Cell> fixed; ///< in the order of the demo data
    std::string updated;
    Home home;
    PersonName head;
};

template <std::size_t At> constexpr auto fixed = [](const Company &company, Dice &) { return company.fixed[At]; };
template <int Low> constexpr auto degrees = number<Low, Low + 9999>;

constexpr ColumnRule<Company> kCompanyRules[] = {
    {"iKyotenCd", always<kBranchCode>},
    {"iKyotenEb", fixed<0>},
    {"nIDNo", fixed<1>},
    {"iType", fixed<2>},
    {"cShamei1", fixed<3>},
    {"cShamei2", fixed<4>},
    {"cShameiKana1", fixed<5>},
    {"cShameiKana2", nothing},
    {"cAddress1", home<&Home::address1>},
    {"cAddress2", home<&Home::address2>},
    {"cAddressKana", home<&Home::kana>},
    {"cYubinNo", home<&Home::postalCode>},
    {"cTelNo", home<&Home::telephone>},
    {"cFaxNo", telephone},
    {"cDaihyo", [](const Company &company, Dice &) -> Cell { return company.head.kanji; }},
    {"cDaihyoKana", [](const Company &company, Dice &) -> Cell { return company.head.kana; }},
    {"cKinyuName", fixed<6>},
    {"iKinSyubetsu", fixed<7>},
    {"cKinyuSiten", fixed<8>},
    {"iKinSiten", fixed<9>},
    {"iKozaType", fixed<10>},
    {"iKozaKubun", always<1>},
    {"cKozaBangou", digits<7>},
    {"cKozaMeigi1", fixed<3>},
    {"cKozaMeigi2", fixed<4>},
    {"cKozaKana", fixed<5>},
    {"nLat", degrees<34340000>},
    {"nLon", degrees<134040000>},
    {"cPcName", [](const Company &, Dice &) -> Cell { return "DEMO-PC"; }},
    {"tUpDateTime", [](const Company &company, Dice &) -> Cell { return company.updated; }},
    {"cKinyuNo", digits<4>},
    {"cKinyuSitenNo", digits<3>},
    {"cJigyousyoNo", digits<10>},
    {"cJigyousyoNo2", nothing},
    {"cJigyouReceiptName", fixed<3>},
    {"cMailDestination", home<&Home::address1>},
    {"cMailDestinationZipNo", home<&Home::postalCode>},
    {"cHokenTourokuKubetsu", digits<6>},
    {"cPersonalNumberCorp", digits<13>},
    {"iKyotenToshiNo", always<37201>},
    {"cKokuhoTourokuNo", digits<8>},
    {"cEmail", [](const Company &, Dice &) -> Cell { return "demo@example.invalid"; }},
};

struct Employee {
    std::int64_t subCode = kBranchSubCode;
    std::int64_t number = 0;
    bool isFemale = false;
    PersonName name;
    Home home;
    Day start;
};

/// One in five is inactive; NULL counts as active.
Cell stoppedFlag(const Employee &employee, Dice &)
{
    if (employee.number % 7 == 3) return kNull;
    return std::int64_t{employee.number % 5 == 4};
}

Cell vehicle(const Employee &, Dice &dice)
{
    const std::string plate = fmt::format("香川 000 い 00-{}", makeDigits(dice, 2));
    return dice.oneIn(2) ? Cell{plate} : Cell{kNull};
}

constexpr ColumnRule<Employee> kStaffRules[] = {
    {"iKyotenCd", always<kBranchCode>},
    {"iKyotenEb", [](const Employee &employee, Dice &) -> Cell { return employee.subCode; }},
    {"nIDNo", ownNumber},
    {"cName", name<&PersonName::kanji>},
    {"cNameKana", name<&PersonName::kana>},
    {"iChusiFlg", stoppedFlag},
    {"cNameRyaku", familyName},
    {"iSexKubun", sex},
    {"cAdress1", home<&Home::address1>},
    {"cAdress2", home<&Home::address2>},
    {"cYubinNo", home<&Home::postalCode>},
    {"cTelNo", home<&Home::telephone>},
    {"cFaxNo cMobNo", telephone},
    {"cKaiNo cKaiNo2 cKaiNo3", digits<6>},
    {"cRken", digits<2>},
    {"cRno", digits<6>},
    {"iShikakuKubun iSyokushuKubun", number<0, 3>},
    {"iYaku", number<0, 2>},
    {"cEmail",
     [](const Employee &employee, Dice &) -> Cell { return fmt::format("staff{}@example.invalid", employee.number); }},
    {"iTecAbi iSpeechAbi", number<1, 5>},
    {"cPhysical", digits<2>},
    {"iClaimRate", number<0, 5>},
    {"cSikaku", [](const Employee &, Dice &dice) { return textCell(pickRow(dice, "licences")[0]); }},
    {"cTourokuNo cTourokuNo2", digits<8>},
    {"cSmileCd", digits<4>},
    {"tBirthday", dayAfterStart<-18000, -8000>},
    {"tKousinDay", dayAfterStart<100, 900>},
    {"tNyusyaDay tKisanDay", dayAfterStart<0, 0>},
    {"tRday", dayAfterStart<-900, -100>},
    {"tTourokuDay", dayAfterStart<0, 60>},
    {"cPcName", [](const Employee &, Dice &) -> Cell { return "DEMO-PC"; }},
    {"tUpDateTime", dayAfterStart<900, 1000>},
    {"iVehicleType", number<0, 3>},
    {"cVehicleNumber cVehicleComment", vehicle},
    {"cEmployeeNumber", digits<5>},
    {"iLookAllRiyousya iWebLicense iLookCharge iStaffHokenTouroku", number<0, 1>},
    {"cShikaiNo cShikaiNo_Josei", digits<6>},
    {"iContractType", number<0, 2>},
    {"nLat", number<34200000, 34400000>},
    {"nLon", number<133800000, 134200000>},
    {"cIninTourokuNo", digits<8>},
    {"iIninTourokuChk iKanriSekininFlg", number<0, 1>},
};

Employee makeEmployee(const SiteOrder &order, std::int64_t subCode, std::int64_t number, Dice &dice)
{
    Employee employee;
    employee.subCode = subCode;
    employee.number = number;
    employee.isFemale = dice.oneIn(2);
    employee.name = makeName(dice, employee.isFemale);
    employee.home = makeHome(dice);
    employee.start = dayOfMonth(order.month, 1) - std::chrono::days{dice.between(1100, 6000)};
    return employee;
}

} // namespace

void writeFixedTables(RowTarget &database, const SiteOrder &order)
{
    for (const std::string_view table :
         {"HOKENJA", "KYOTEN", "HOKEN", "SHINSEISYO", "療養費単価", "往療費区分", "RIYOUSHA_MAP"}) {
        const DataSection &section = dataSection(table);
        RowSink &sink = database.into(table, section.columns);
        for (const DataRow &row : section.rows) sink.row(cellsOf(section.columns, row, order));
    }
}

void writeCompanies(RowTarget &database, const SiteOrder &order)
{
    constexpr std::int64_t kBlankCompany = 99;
    const DataSection &section = dataSection("companies");
    RuledTable<Company> table(database, "CORP", kCompanyRules);
    for (const DataRow &row : section.rows) {
        Company company{cellsOf(section.columns, row, order), isoText(dayOfMonth(order.month, 1), 9 * 60), {}, {}};
        Dice dice = diceFor(order, Kind::company,
                            std::get<std::int64_t>(company.fixed[0]) * 1000 + std::get<std::int64_t>(company.fixed[1]));
        company.home = makeHome(dice);
        company.head = makeName(dice, dice.oneIn(3));
        table.write(company, dice, [](std::int64_t) { return false; });
    }
    table.writeBlank({kBranchCode, kBranchSubCode, kBlankCompany});
}

void writeStaff(RowTarget &database, const SiteOrder &order)
{
    constexpr std::int64_t kOtherStaff = 2;
    RuledTable<Employee> table(database, "STAFF", kStaffRules);
    for (const std::int64_t subCode : {kBranchSubCode, kOtherSubCode}) {
        const std::int64_t count = subCode == kBranchSubCode ? staffCount(order) : kOtherStaff;
        for (std::int64_t number = 1; number <= count; ++number) {
            Dice dice = diceFor(order, Kind::staff, subCode * 100000 + number);
            const Employee employee = makeEmployee(order, subCode, number, dice);
            table.write(employee, dice, [number](std::int64_t column) {
                // The first columns (keys, name, kana, flag) keep their values, so that the pick lists are readable. The
                // diagonal has twelve rows and columns, the staff count of the smallest site.
                return column >= 6 && number % 12 == column % 12;
            });
        }
    }
    // Inactive, so that the lists show no empty line.
    table.writeBlank({kBranchCode, kBranchSubCode, staffCount(order) + 1, kNull, kNull, std::int64_t{1}});
}

void writeConsultations(RowTarget &database, const SiteOrder &order)
{
    constexpr std::string_view kNames[] = {"nIDNo", "iStaffKyotenCd", "iStaffKyotenEb", "nStaffIDNo"};
    constexpr std::int64_t kConsultations = 5;
    RowSink &sink = database.into("SOUDAN_TANTOU", kNames);
    for (std::int64_t consultation = 1; consultation <= kConsultations; ++consultation) {
        for (std::int64_t place = 0; place < 1 + consultation % 3; ++place) {
            const std::int64_t staff = 1 + (consultation * 3 + place) % staffCount(order);
            sink.row({consultation, kBranchCode, kBranchSubCode, staff});
        }
    }
}

} // namespace inin::site
