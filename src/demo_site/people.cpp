#include "demo_site/people.h"

#include "demo_site/demo_data.h"
#include "demo_site/demo_irregularities.h"

#include <fmt/format.h>

#include <algorithm>

namespace inin::site {

namespace {

constexpr const char *kLongName = "マリア・アレハンドラ・デ・ロス・アンヘレス長曽我部";
constexpr const char *kLongNameKana = "マリア　アレハンドラ　デ　ロス　アンヘレス　チョウソカベ";
constexpr const char *kLongAddress =
    "香川県高松市木漏日台十丁目三百四十五番地の六十七、特別養護老人ホーム併設ケア付き高齢者向け住宅"
    "「瀬戸内の夕凪と白鷺の見える丘」西館別棟二号棟十階一千二十三号室（旧称ひだまりの里第二分館三階東側角部屋）";

/// From this age on a patient is insured under the late-stage scheme.
constexpr int kLateStageAge = 75;

PersonName nameOf(const DataRow &family, const DataRow &given)
{
    return {fmt::format("{}　{}", family[0], given[0]), fmt::format("{}　{}", family[1], given[1])};
}

const DataRow &givenName(Dice &dice, bool isFemale)
{
    return pickRow(dice, isFemale ? "female names" : "male names");
}

PersonName patientName(std::int64_t number, Dice &dice, bool isFemale)
{
    PersonName name = makeName(dice, isFemale);
    const DataRow &given = givenName(dice, isFemale);
    const std::vector<DataRow> &families = dataSection("family names").rows;
    if (number == kVendorCharacterPatient1) return nameOf(families[0], given);
    if (number == kVendorCharacterPatient2) return nameOf(families[1], given);
    if (number == kLongNamePatient) return {kLongName, kLongNameKana};
    return name;
}

void moveTo(Home &home, const DataRow &city)
{
    home.nationalInsurer = city[2];
    home.lateStageInsurer = city[3];
}

Insurer insurerOf(const Home &home, int age, Dice &dice)
{
    const std::string_view number = age >= kLateStageAge ? home.lateStageInsurer
                                    : dice.oneIn(3)      ? pickRow(dice, "health insurance associations")[0]
                                                         : home.nationalInsurer;
    const std::vector<DataRow> &insurers = dataSection("HOKENJA").rows;
    const DataRow &row = *std::ranges::find(insurers, number, [](const DataRow &insurer) { return insurer[0]; });
    return {row[0], row[1], row[2], row[3].front() - '0'};
}

/// One third each ended a year ago, in the previous month and in the current month.
std::optional<Day> expireDay(const SiteOrder &order, std::int64_t number, Dice &dice)
{
    const unsigned day = static_cast<unsigned>(dice.between(10, 28));
    if (!kEnded.has(number)) return std::nullopt;
    constexpr std::array<int, 3> kMonthsAgo{12, 1, 0};
    const auto index = static_cast<std::size_t>((number / kEnded.divisor) % 3);
    return dayOfMonth(order.month - std::chrono::months{kMonthsAgo[index]}, day);
}

std::array<std::int64_t, 3> staffOf(const SiteOrder &order, Dice &dice)
{
    const int last = static_cast<int>(staffCount(order));
    return {dice.between(1, last), dice.between(1, last), dice.between(1, last)};
}

std::int64_t agentOf(std::int64_t number, Dice &dice)
{
    // nIDNo of the agents in CORP, and the distance to numbers that CORP does not contain.
    constexpr int kFirstAgent = 11;
    constexpr int kLastAgent = 18;
    constexpr std::int64_t kNoSuchCompany = 9000;
    const std::int64_t agent = dice.between(kFirstAgent, kLastAgent);
    return kMissingAgent.has(number) ? kNoSuchCompany + agent : agent;
}

std::uint8_t weekdaysOf(Dice &dice)
{
    unsigned days = 0;
    for (int i = dice.between(1, 3); i > 0; --i) days |= 1U << dice.between(1, 6);
    return static_cast<std::uint8_t>(days);
}

void putHouseholder(Patient &patient, Dice &dice)
{
    patient.isOwnHouseholder = !patient.isFemale || dice.oneIn(2);
    const PersonName other = makeName(dice, false);
    patient.householder = patient.isOwnHouseholder ? patient.name : other;
}

} // namespace

PersonName makeName(Dice &dice, bool isFemale)
{
    const DataRow &family = pickRow(dice, "family names");
    return nameOf(family, givenName(dice, isFemale));
}

std::string makeDigits(Dice &dice, int count)
{
    std::string digits;
    for (int i = 0; i < count; ++i) digits += static_cast<char>('0' + dice.between(0, 9));
    return digits;
}

std::string makeTelephone(Dice &dice)
{
    return "000-0000-" + makeDigits(dice, 4);
}

Home makeHome(Dice &dice)
{
    const DataRow &city = pickRow(dice, "cities");
    const DataRow &town = pickRow(dice, "towns");
    const DataRow &house = pickRow(dice, "houses");
    Home home;
    moveTo(home, city);
    home.postalCode = "000-" + makeDigits(dice, 4);
    // One draw a statement: the order of arguments depends on the compiler, the demo data must not.
    const auto number = dice.between(1, 30);
    const auto block = dice.between(1, 40);
    const auto quarter = dice.between(1, 6);
    home.address1 = fmt::format("{}{}{}丁目{}番{}号", city[0], town[0], quarter, block, number);
    home.kana = fmt::format("{}{}", city[1], town[1]);
    if (dice.oneIn(4)) home.address2 = fmt::format("{}{}号室", house[0], dice.between(101, 512));
    home.telephone = makeTelephone(dice);
    return home;
}

std::int64_t staffCount(const SiteOrder &order)
{
    return order.staff > 0 ? order.staff : std::clamp<std::int64_t>(order.patients / 25, 12, 400);
}

Patient makePatient(const SiteOrder &order, std::int64_t number)
{
    Dice dice = diceFor(order, Kind::patient, number);
    Patient patient;
    patient.number = number;
    patient.isFemale = !dice.oneIn(3);
    patient.name = patientName(number, dice, patient.isFemale);
    patient.home = makeHome(dice);
    if (number == kLongAddressPatient) {
        patient.home.address1 = kLongAddress;
        moveTo(patient.home, dataSection("cities").rows.front());
    }
    const int age = dice.oneIn(4) ? dice.between(45, 74) : dice.between(75, 99);
    const Day thisMonth = dayOfMonth(order.month, 1);
    patient.birthday = thisMonth - std::chrono::days{age * 366 + dice.between(0, 360)};
    putHouseholder(patient, dice);
    patient.insurer = insurerOf(patient.home, age, dice);
    patient.staff = staffOf(order, dice);
    patient.agent = agentOf(number, dice);
    patient.start = thisMonth - std::chrono::days{dice.between(400, 2400)};
    patient.expire = expireDay(order, number, dice);
    patient.isAcupuncture = dice.oneIn(4);
    patient.weekdays = weekdaysOf(dice);
    return patient;
}

} // namespace inin::site
