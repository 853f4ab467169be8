#include "demo_site/demo_tables.h"

#include "demo_site/demo_irregularities.h"
#include "demo_site/ruled_table.h"

#include <fmt/format.h>

namespace inin::site {

namespace {

template <int Place>
constexpr auto staffAt = [](const Patient &patient, Dice &) -> Cell { return patient.staff[Place]; };

/// The patient's own address if he is the householder, as most are, else a different one.
template <std::string Home::*Field> Cell householderHome(const Patient &patient, Dice &dice)
{
    const Home other = makeHome(dice);
    return textOrNull((patient.isOwnHouseholder ? patient.home : other).*Field);
}

Cell expireDay(const Patient &patient, Dice &)
{
    return patient.expire ? Cell{isoText(*patient.expire)} : Cell{kNull};
}

Cell householderBirthday(const Patient &patient, Dice &dice)
{
    const int yearsOlder = dice.between(-5, 10);
    return isoText(patient.isOwnHouseholder ? patient.birthday
                                            : patient.birthday - std::chrono::days{365 * yearsOlder});
}

constexpr std::string_view kIllnesses = "illnesses", kClinics = "clinics", kRemarks = "remarks", kBanks = "banks";
template <const std::string_view &List>
constexpr auto picked = [](const Patient &, Dice &dice) { return textCell(pickRow(dice, List)[0]); };

Cell postalCode(const Patient &, Dice &dice)
{
    return "000-" + makeDigits(dice, 4);
}

Cell address(const Patient &, Dice &dice)
{
    return makeHome(dice).address1;
}

template <std::string PersonName::*Field> Cell person(const Patient &, Dice &dice)
{
    return makeName(dice, dice.oneIn(2)).*Field;
}

/// Second periods are rare: most patients had only one.
Cell rareDay(const Patient &patient, Dice &dice)
{
    const Cell day = dayAfterStart<200, 380>(patient, dice);
    return dice.oneIn(8) ? day : Cell{kNull};
}

/// Text dates have slashes and no time.
Cell dateText(const Patient &patient, Dice &dice)
{
    return slashText(patient.start - std::chrono::days{dice.between(30, 900)});
}

/// Reading the row puts this value over the end of the consent's renewal, so only few rows have one.
Cell roomShare(const Patient &, Dice &dice)
{
    return dice.oneIn(50) ? Cell{std::int64_t{0}} : Cell{kNull};
}

constexpr ColumnRule<Patient> kRules[] = {
    {"iKyotenCd", always<kBranchCode>},
    {"iKyotenEb", always<kBranchSubCode>},
    {"nIDNo", ownNumber},
    {"cName", name<&PersonName::kanji>},
    {"cNameRyaku", familyName},
    {"cNameKana", name<&PersonName::kana>},
    {"iSex", sex},
    {"tExpireDay", expireDay},
    {"cCityNo", digits<8>},
    {"cJukyuNo", digits<7>},
    {"cHokenKigouNo", [](const Patient &, Dice &dice) -> Cell { return fmt::format("ひだ{}", makeDigits(dice, 3)); }},
    {"cHokenKigouNo2", digits<6>},
    {"cHokenNo", [](const Patient &patient, Dice &) { return textCell(patient.insurer.number); }},
    {"cHokenNo2 cFutanNo", digits<8>},
    {"tBirthday", [](const Patient &patient, Dice &) -> Cell { return isoText(patient.birthday); }},
    {"cYubinNo", home<&Home::postalCode>},
    {"cAdress1", home<&Home::address1>},
    {"cAdress2", home<&Home::address2>},
    {"cAddressKana", home<&Home::kana>},
    {"cTelNo", home<&Home::telephone>},
    {"cFaxNo cMobNo", telephone},
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
    {"cSetaiFaxNo cSetaiMobNo", telephone},
    {"cSetaiTsuzuki", [](const Patient &patient, Dice &) -> Cell { return patient.isOwnHouseholder ? "本人" : "夫"; }},
    {"tSetaiBirthday", householderBirthday},
    {"iTikuNo", number<1, 30>},
    {"nHokui", number<34200000, 34400000>},
    {"nToukei", number<133800000, 134200000>},
    {"iHoseUmu", number<0, 1>},
    {"nLenFix nLenInp", number<300, 12000>},
    {"nLenAdd", number<0, 500>},
    {"nHoseLen", number<0, 800>},
    {"iHoseCol", number<0, 7>},
    {"iHoseCut iVisitFlg", number<0, 1>},
    {"iOuryoCalType", number<0, 2>},
    {"nTantou", staffAt<0>},
    {"nTantou2", staffAt<1>},
    {"nTantou3", staffAt<2>},
    {"nTantou4 nTantou5", number<0, 12>},
    {"nDairiID", [](const Patient &patient, Dice &) -> Cell { return patient.agent; }},
    {"iHoken", [](const Patient &patient, Dice &) -> Cell { return patient.insurer.kind; }},
    {"cHokenJname", [](const Patient &patient, Dice &) { return textCell(patient.insurer.name); }},
    {"cHokenJname2", nothing},
    {"cHokenJSubAddress", [](const Patient &patient, Dice &) { return textOrNull(patient.insurer.district); }},
    {"iSejutsuKubun", [](const Patient &patient, Dice &) -> Cell { return std::int64_t{patient.isAcupuncture}; }},
    {"cByoumei", picked<kIllnesses>},
    {"iKaigoLevel", number<0, 5>},
    {"iFutanritsu", number<1, 3>},
    {"iV iSys iSejutuBui1 iSejutuBui2 iSejutuBui3 iSejutuBui4 iSejutuBui5", number<0, 1>},
    {"iHenke", number<0, 4>},
    {"iOnan iDenki iSejutuBui11 iSejutuBui12 iSejutuBui13 iSejutuBui14 iSejutuBui15 iOnan1 iDenki1", number<0, 1>},
    {"tHenkeSday", dayAfterStart<0, 30>},
    {"tHenKeEday", dayAfterStart<90, 180>},
    {"tOnanSday", dayAfterStart<0, 30>},
    {"tOnanEday", dayAfterStart<90, 180>},
    {"tDenkiSday", dayAfterStart<0, 30>},
    {"tDenkiEday", dayAfterStart<90, 180>},
    {"iPtype", number<0, 3>},
    {"iGyoumuUmu", number<0, 1>},
    {"cGeninKeika", picked<kRemarks>},
    {"tHatsubyou tSyoryoDay", dateText},
    {"tSyosinDay", dayAfterStart<-20, 0>},
    {"tStartDay", dayAfterStart<0, 0>},
    {"tKHkigen", dayAfterStart<300, 700>},
    {"cHTno", digits<6>},
    {"tHTStartDay", dayAfterStart<0, 60>},
    {"cHTRiyuu", picked<kRemarks>},
    {"cHTIryoName", picked<kClinics>},
    {"cHTIryoYubin", postalCode},
    {"cHTIryoAdd", address},
    {"cDouiIsiName1", person<&PersonName::kanji>},
    {"cDouiIsiKikan1", picked<kClinics>},
    {"cDouiIsiAdd1", address},
    {"cDouiByoumei1", picked<kIllnesses>},
    {"tDouiDay1", dayAfterStart<-10, 0>},
    {"tDouiKaryoS1", dayAfterStart<0, 0>},
    {"tDouiKaryoE1", dayAfterStart<180, 184>},
    {"cDouiIsiName2", person<&PersonName::kanji>},
    {"cDouiIsiKikan2", picked<kClinics>},
    {"cDouiIsiAdd2", address},
    {"cDouiByoumei2", picked<kIllnesses>},
    {"tDouiDay2 tDouiKaryoS2 tDouiKaryoE2", rareDay},
    {"cSyoumeiName", person<&PersonName::kanji>},
    {"cSyoumeiYubin", postalCode},
    {"cSyoumeiAdd", address},
    {"cSyoumeiTel", telephone},
    {"tSyoumeiDay", dayAfterStart<0, 30>},
    {"cSinseiName", person<&PersonName::kanji>},
    {"cSinseiYubin", postalCode},
    {"cSinseiAdd", address},
    {"cSinseiTel", telephone},
    {"tSinseiDay", dayAfterStart<0, 30>},
    {"cSinseiAtena", person<&PersonName::kanji>},
    {"iSeiKyuKubun iTenki", number<0, 3>},
    {"cTekiyou cBikou", picked<kRemarks>},
    {"iKinSyubetsu", number<1, 4>},
    {"cKinName", picked<kBanks>},
    {"iKinSiten", number<1, 5>},
    {"cKinSiten", picked<kBanks>},
    {"iKozaSyubetsu", number<1, 4>},
    {"cKozaNo", digits<7>},
    {"cKozaName", person<&PersonName::kanji>},
    {"cKozaKana", person<&PersonName::kana>},
    {"iKozaKubun", number<0, 2>},
    {"cComment cYotei", picked<kRemarks>},
    {"iPcnt", number<1, 12>},
    {"iSyogai", number<0, 1>},
    {"cSyogaiNo", digits<8>},
    {"cSyogaiJu", digits<7>},
    {"cSyogaiFname", nothing},
    {"nHKSyobyouCd", number<1, 6>},
    {"cHKSyobyouName", picked<kIllnesses>},
    {"iHKSyokaiHiyo iHKHariUmu iHKKyuUmu iHKDekiUmu", number<0, 1>},
    {"tHKHariSday", dayAfterStart<0, 30>},
    {"tHKHariEday", dayAfterStart<90, 180>},
    {"tHKKyuSday", dayAfterStart<0, 30>},
    {"tHKKyuEday", dayAfterStart<90, 180>},
    {"tHKDenkiSday", dayAfterStart<0, 30>},
    {"tHKDenkiEday", dayAfterStart<90, 180>},
    {"iHKHari1Umu iHKKyu1Umu iHKDeki1Umu", number<0, 1>},
    {"tHenkeSday2 tHenKeEday2 tOnanSday2 tOnanEday2 tDenkiSday2 tDenkiEday2 tHKHariSday2 tHKHariEday2", rareDay},
    {"tHKKyuSday2 tHKKyuEday2 tHKDenkiSday2 tHKDenkiEday2", rareDay},
    {"tDouishoSaishutokuFrom", dayAfterStart<150, 180>},
    {"tDouishoSaishutokuTo", dayAfterStart<180, 210>},
    {"iOuryouKyoka", number<0, 1>},
    {"nRoomNo", number<101, 512>},
    {"iRoomAnbunUmu", roomShare},
    {"cSyogaiFSubAddress", nothing},
    {"iJikofutanKubun", number<0, 2>},
    {"nJikofutanTanka", number<0, 800>},
    {"nTantou6 nTantou7 nTantou8 nTantou9 nTantou10", nothing},
    {"cFMCode", number<1000, 9999>},
};

Cell groupFlag(std::int64_t number)
{
    if (kUnknownGroup.has(number)) return kNull;
    return std::int64_t{kGroupBilled.has(number)};
}

} // namespace

void writePatients(RowTarget &database, const SiteOrder &order)
{
    constexpr std::int64_t kKeyColumns = 3; // never NULL
    constexpr std::string_view kSideColumns[] = {"iKyotenCd", "iKyotenEb", "nIDNo", "iDantaiUmu"};
    RuledTable<Patient> patients(database, "RIYOUSHA", kRules);
    RowSink &sides = database.into("RIYOUSHA_SUB", kSideColumns);
    for (std::int64_t number = 1; number <= order.patients; ++number) {
        Dice dice = diceFor(order, Kind::patientColumns, number);
        patients.write(makePatient(order, number), dice,
                       [number](std::int64_t column) { return column >= kKeyColumns && isNullHere(number, column); });
        if (!kWithoutSide.has(number)) sides.row({kBranchCode, kBranchSubCode, number, groupFlag(number)});
    }
}

} // namespace inin::site
