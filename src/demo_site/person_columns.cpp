#include "demo_site/patients.h"

#include "demo_site/companies.h"

#include <fmt/format.h>

namespace inin::site {

namespace {

template <int Place> Cell staffAt(const Patient &patient, Dice &)
{
    return patient.staff[Place];
}

/// The patient's own address if he is the householder, as most are, else a different one.
template <std::string Home::*Field> Cell householderHome(const Patient &patient, Dice &dice)
{
    const Home other = makeHome(dice);
    const std::string &value = (patient.isOwnHouseholder ? patient.home : other).*Field;
    return textOrNull(value);
}

template <std::string Home::*Field> Cell home(const Patient &patient, Dice &)
{
    return textOrNull(patient.home.*Field);
}

Cell shortName(const Patient &patient, Dice &)
{
    return patient.name.kanji.substr(0, patient.name.kanji.find("　"));
}

Cell expireDay(const Patient &patient, Dice &)
{
    return patient.expire ? Cell{isoText(*patient.expire)} : Cell{kNull};
}

Cell relation(const Patient &patient, Dice &)
{
    return std::string(patient.isOwnHouseholder ? "本人" : "夫");
}

Cell householderBirthday(const Patient &patient, Dice &dice)
{
    const int yearsOlder = dice.between(-5, 10);
    return isoText(patient.isOwnHouseholder ? patient.birthday
                                            : patient.birthday - std::chrono::days{365 * yearsOlder});
}

constexpr DemoPatientColumn kColumns[] = {
    {"iKyotenCd", [](const Patient &, Dice &) -> Cell { return kBranchCode; }},
    {"iKyotenEb", [](const Patient &, Dice &) -> Cell { return kBranchSubCode; }},
    {"nIDNo", [](const Patient &patient, Dice &) -> Cell { return patient.number; }},
    {"cName", [](const Patient &patient, Dice &) -> Cell { return patient.name.kanji; }},
    {"cNameRyaku", shortName},
    {"cNameKana", [](const Patient &patient, Dice &) -> Cell { return patient.name.kana; }},
    {"iSex", [](const Patient &patient, Dice &) -> Cell { return std::int64_t{patient.isFemale ? 2 : 1}; }},
    {"tExpireDay", expireDay},
    {"cCityNo", digits<8>},
    {"cJukyuNo", digits<7>},
    {"cHokenKigouNo", [](const Patient &, Dice &dice) -> Cell { return fmt::format("ひだ{}", makeDigits(dice, 3)); }},
    {"cHokenKigouNo2", digits<6>},
    {"cHokenNo", [](const Patient &patient, Dice &) -> Cell { return std::string(patient.insurer->number); }},
    {"cHokenNo2", digits<8>},
    {"cFutanNo", digits<8>},
    {"tBirthday", [](const Patient &patient, Dice &) -> Cell { return isoText(patient.birthday); }},
    {"cYubinNo", home<&Home::postalCode>},
    {"cAdress1", home<&Home::address1>},
    {"cAdress2", home<&Home::address2>},
    {"cAddressKana", home<&Home::kana>},
    {"cTelNo", home<&Home::telephone>},
    {"cFaxNo", telephone},
    {"cMobNo", telephone},
    {"cSetaiName", [](const Patient &patient, Dice &) -> Cell { return patient.householder.kanji; }},
    {"cSetaiKana", [](const Patient &patient, Dice &) -> Cell { return patient.householder.kana; }},
    {"iSetaiSex",
     [](const Patient &patient, Dice &) -> Cell {
         return std::int64_t{patient.isOwnHouseholder && patient.isFemale ? 2 : 1};
     }},
    {"cSetaiYubinNo", householderHome<&Home::postalCode>},
    {"cSetaiAdress1", householderHome<&Home::address1>},
    {"cSetaiAdress2", householderHome<&Home::address2>},
    {"cSetaiAddKana", householderHome<&Home::kana>},
    {"cSetaiTelNo", householderHome<&Home::telephone>},
    {"cSetaiFaxNo", telephone},
    {"cSetaiMobNo", telephone},
    {"cSetaiTsuzuki", relation},
    {"tSetaiBirthday", householderBirthday},
    {"iTikuNo", number<1, 30>},
    {"nHokui", number<34200000, 34400000>},
    {"nToukei", number<133800000, 134200000>},
    {"iHoseUmu", number<0, 1>},
    {"nLenFix", number<300, 12000>},
    {"nLenInp", number<300, 12000>},
    {"nLenAdd", number<0, 500>},
    {"nHoseLen", number<0, 800>},
    {"iHoseCol", number<0, 7>},
    {"iHoseCut", number<0, 1>},
    {"iVisitFlg", number<0, 1>},
    {"iOuryoCalType", number<0, 2>},
    {"nTantou", staffAt<0>},
    {"nTantou2", staffAt<1>},
    {"nTantou3", staffAt<2>},
    {"nTantou4", number<0, 12>},
    {"nTantou5", number<0, 12>},
    {"nDairiID", [](const Patient &patient, Dice &) -> Cell { return patient.agent; }},
    {"iHoken", [](const Patient &patient, Dice &) -> Cell { return patient.insurer->kind; }},
    {"cHokenJname", [](const Patient &patient, Dice &) -> Cell { return std::string(patient.insurer->name); }},
    {"cHokenJname2", nothing},
    {"cHokenJSubAddress", [](const Patient &patient, Dice &) -> Cell { return textOrNull(patient.insurer->district); }},
    {"iSejutsuKubun", [](const Patient &patient, Dice &) -> Cell { return std::int64_t{patient.isAcupuncture}; }},
};

} // namespace

std::span<const DemoPatientColumn> personColumns()
{
    return kColumns;
}

} // namespace inin::site
