#include "demo_site/patients.h"

#include <fmt/format.h>

namespace inin::site {

namespace {

Cell illness(const Patient &, Dice &dice)
{
    return std::string(dice.pick(illnesses()));
}

Cell clinic(const Patient &, Dice &dice)
{
    return std::string(dice.pick(clinics()));
}

Cell address(const Patient &, Dice &dice)
{
    return makeHome(dice).address1;
}

Cell person(const Patient &, Dice &dice)
{
    return makeName(dice, dice.oneIn(2)).kanji;
}

Cell personKana(const Patient &, Dice &dice)
{
    return makeName(dice, dice.oneIn(2)).kana;
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

Cell remark(const Patient &, Dice &dice)
{
    constexpr std::string_view kRemarks[] = {
        "玄関右のインターホンを使用", "犬あり", "訪問前に電話", "午前希望", "家族同席", "駐車は裏手"};
    return std::string(dice.pick(std::span{kRemarks}));
}

Cell bank(const Patient &, Dice &dice)
{
    constexpr std::string_view kBanks[] = {"讃岐あさひ", "瀬戸内みなと信用", "讃州ひまわり", "尾張ひまわり",
                                           "東都中央"};
    return std::string(dice.pick(std::span{kBanks}));
}

/// Reading the row puts this value over the end of the consent's renewal, so only few rows have one.
Cell roomShare(const Patient &, Dice &dice)
{
    return dice.oneIn(50) ? Cell{std::int64_t{0}} : Cell{kNull};
}

constexpr DemoPatientColumn kColumns[] = {
    {"cByoumei", illness},
    {"iKaigoLevel", number<0, 5>},
    {"iFutanritsu", number<1, 3>},
    {"iV", number<0, 1>},
    {"iSys", number<0, 1>},
    {"iSejutuBui1", number<0, 1>},
    {"iSejutuBui2", number<0, 1>},
    {"iSejutuBui3", number<0, 1>},
    {"iSejutuBui4", number<0, 1>},
    {"iSejutuBui5", number<0, 1>},
    {"iHenke", number<0, 4>},
    {"iOnan", number<0, 1>},
    {"iDenki", number<0, 1>},
    {"iSejutuBui11", number<0, 1>},
    {"iSejutuBui12", number<0, 1>},
    {"iSejutuBui13", number<0, 1>},
    {"iSejutuBui14", number<0, 1>},
    {"iSejutuBui15", number<0, 1>},
    {"iOnan1", number<0, 1>},
    {"iDenki1", number<0, 1>},
    {"tHenkeSday", dayAfterStart<0, 30>},
    {"tHenKeEday", dayAfterStart<90, 180>},
    {"tOnanSday", dayAfterStart<0, 30>},
    {"tOnanEday", dayAfterStart<90, 180>},
    {"tDenkiSday", dayAfterStart<0, 30>},
    {"tDenkiEday", dayAfterStart<90, 180>},
    {"iPtype", number<0, 3>},
    {"iGyoumuUmu", number<0, 1>},
    {"cGeninKeika", remark},
    {"tHatsubyou", dateText},
    {"tSyoryoDay", dateText},
    {"tSyosinDay", dayAfterStart<-20, 0>},
    {"tStartDay", dayAfterStart<0, 0>},
    {"tKHkigen", dayAfterStart<300, 700>},
    {"cHTno", digits<6>},
    {"tHTStartDay", dayAfterStart<0, 60>},
    {"cHTRiyuu", remark},
    {"cHTIryoName", clinic},
    {"cHTIryoYubin", postalCode},
    {"cHTIryoAdd", address},
    {"cDouiIsiName1", person},
    {"cDouiIsiKikan1", clinic},
    {"cDouiIsiAdd1", address},
    {"cDouiByoumei1", illness},
    {"tDouiDay1", dayAfterStart<-10, 0>},
    {"tDouiKaryoS1", dayAfterStart<0, 0>},
    {"tDouiKaryoE1", dayAfterStart<180, 184>},
    {"cDouiIsiName2", person},
    {"cDouiIsiKikan2", clinic},
    {"cDouiIsiAdd2", address},
    {"cDouiByoumei2", illness},
    {"tDouiDay2", rareDay},
    {"tDouiKaryoS2", rareDay},
    {"tDouiKaryoE2", rareDay},
    {"cSyoumeiName", person},
    {"cSyoumeiYubin", postalCode},
    {"cSyoumeiAdd", address},
    {"cSyoumeiTel", telephone},
    {"tSyoumeiDay", dayAfterStart<0, 30>},
    {"cSinseiName", person},
    {"cSinseiYubin", postalCode},
    {"cSinseiAdd", address},
    {"cSinseiTel", telephone},
    {"tSinseiDay", dayAfterStart<0, 30>},
    {"cSinseiAtena", person},
    {"iSeiKyuKubun", number<0, 3>},
    {"iTenki", number<0, 3>},
    {"cTekiyou", remark},
    {"cBikou", remark},
    {"iKinSyubetsu", number<1, 4>},
    {"cKinName", bank},
    {"iKinSiten", number<1, 5>},
    {"cKinSiten", bank},
    {"iKozaSyubetsu", number<1, 4>},
    {"cKozaNo", digits<7>},
    {"cKozaName", person},
    {"cKozaKana", personKana},
    {"iKozaKubun", number<0, 2>},
    {"cComment", remark},
    {"cYotei", remark},
    {"iPcnt", number<1, 12>},
    {"iSyogai", number<0, 1>},
    {"cSyogaiNo", digits<8>},
    {"cSyogaiJu", digits<7>},
    {"cSyogaiFname", nothing},
    {"nHKSyobyouCd", number<1, 6>},
    {"cHKSyobyouName", illness},
    {"iHKSyokaiHiyo", number<0, 1>},
    {"iHKHariUmu", number<0, 1>},
    {"iHKKyuUmu", number<0, 1>},
    {"iHKDekiUmu", number<0, 1>},
    {"tHKHariSday", dayAfterStart<0, 30>},
    {"tHKHariEday", dayAfterStart<90, 180>},
    {"tHKKyuSday", dayAfterStart<0, 30>},
    {"tHKKyuEday", dayAfterStart<90, 180>},
    {"tHKDenkiSday", dayAfterStart<0, 30>},
    {"tHKDenkiEday", dayAfterStart<90, 180>},
    {"iHKHari1Umu", number<0, 1>},
    {"iHKKyu1Umu", number<0, 1>},
    {"iHKDeki1Umu", number<0, 1>},
    {"tHenkeSday2", rareDay},
    {"tHenKeEday2", rareDay},
    {"tOnanSday2", rareDay},
    {"tOnanEday2", rareDay},
    {"tDenkiSday2", rareDay},
    {"tDenkiEday2", rareDay},
    {"tHKHariSday2", rareDay},
    {"tHKHariEday2", rareDay},
    {"tHKKyuSday2", rareDay},
    {"tHKKyuEday2", rareDay},
    {"tHKDenkiSday2", rareDay},
    {"tHKDenkiEday2", rareDay},
    {"tDouishoSaishutokuFrom", dayAfterStart<150, 180>},
    {"tDouishoSaishutokuTo", dayAfterStart<180, 210>},
    {"iOuryouKyoka", number<0, 1>},
    {"nRoomNo", number<101, 512>},
    {"iRoomAnbunUmu", roomShare},
    {"cSyogaiFSubAddress", nothing},
    {"iJikofutanKubun", number<0, 2>},
    {"nJikofutanTanka", number<0, 800>},
    {"nTantou6", nothing},
    {"nTantou7", nothing},
    {"nTantou8", nothing},
    {"nTantou9", nothing},
    {"nTantou10", nothing},
    {"cFMCode", number<1000, 9999>},
};

} // namespace

std::span<const DemoPatientColumn> careColumns()
{
    return kColumns;
}

} // namespace inin::site
