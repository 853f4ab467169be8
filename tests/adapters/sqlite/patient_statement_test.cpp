#include "adapters/sqlite/practice_database.h"

#include <doctest/doctest.h>

#include <string>

using namespace inin;

namespace {

const std::string kPatient = "SELECT * FROM RIYOUSHA WHERE nIDNo = 1 and iKyotenCd = 1 and iKyotenEb = 1";

/// Every column of the patient record, in the order in which it is read.
constexpr const char *kColumns[] = {"nIDNo",
                                    "cName",
                                    "cNameRyaku",
                                    "cNameKana",
                                    "iSex",
                                    "cCityNo",
                                    "cJukyuNo",
                                    "cHokenKigouNo",
                                    "cHokenKigouNo2",
                                    "cHokenNo",
                                    "cHokenNo2",
                                    "cFutanNo",
                                    "tBirthday",
                                    "cYubinNo",
                                    "cAdress1",
                                    "cAdress2",
                                    "cAddressKana",
                                    "cTelNo",
                                    "cFaxNo",
                                    "cMobNo",
                                    "cSetaiName",
                                    "cSetaiKana",
                                    "iSetaiSex",
                                    "cSetaiYubinNo",
                                    "cSetaiAdress1",
                                    "cSetaiAdress2",
                                    "cSetaiAddKana",
                                    "cSetaiTelNo",
                                    "cSetaiFaxNo",
                                    "cSetaiMobNo",
                                    "cSetaiTsuzuki",
                                    "tSetaiBirthday",
                                    "iTikuNo",
                                    "nHokui",
                                    "nToukei",
                                    "iHoseUmu",
                                    "nLenFix",
                                    "nLenInp",
                                    "nLenAdd",
                                    "nHoseLen",
                                    "iHoseCol",
                                    "iHoseCut",
                                    "iVisitFlg",
                                    "iOuryoCalType",
                                    "nTantou",
                                    "nTantou2",
                                    "nTantou3",
                                    "nTantou4",
                                    "nTantou5",
                                    "cByoumei",
                                    "iKaigoLevel",
                                    "iFutanritsu",
                                    "iV",
                                    "iSys",
                                    "iSejutuBui1",
                                    "iSejutuBui2",
                                    "iSejutuBui3",
                                    "iSejutuBui4",
                                    "iSejutuBui5",
                                    "iHenke",
                                    "iOnan",
                                    "iDenki",
                                    "iSejutuBui11",
                                    "iSejutuBui12",
                                    "iSejutuBui13",
                                    "iSejutuBui14",
                                    "iSejutuBui15",
                                    "iOnan1",
                                    "iDenki1",
                                    "tHenkeSday",
                                    "tHenKeEday",
                                    "tOnanSday",
                                    "tOnanEday",
                                    "tDenkiSday",
                                    "tDenkiEday",
                                    "iPtype",
                                    "iGyoumuUmu",
                                    "cGeninKeika",
                                    "tHatsubyou",
                                    "tSyoryoDay",
                                    "tSyosinDay",
                                    "tStartDay",
                                    "tKHkigen",
                                    "cHTno",
                                    "tHTStartDay",
                                    "cHTRiyuu",
                                    "cHTIryoName",
                                    "cHTIryoYubin",
                                    "cHTIryoAdd",
                                    "cDouiIsiName1",
                                    "cDouiIsiKikan1",
                                    "cDouiIsiAdd1",
                                    "cDouiByoumei1",
                                    "tDouiDay1",
                                    "tDouiKaryoS1",
                                    "tDouiKaryoE1",
                                    "cDouiIsiName2",
                                    "cDouiIsiKikan2",
                                    "cDouiIsiAdd2",
                                    "cDouiByoumei2",
                                    "tDouiDay2",
                                    "tDouiKaryoS2",
                                    "tDouiKaryoE2",
                                    "cSyoumeiName",
                                    "cSyoumeiYubin",
                                    "cSyoumeiAdd",
                                    "cSyoumeiTel",
                                    "tSyoumeiDay",
                                    "nDairiID",
                                    "cSinseiName",
                                    "cSinseiYubin",
                                    "cSinseiAdd",
                                    "cSinseiTel",
                                    "tSinseiDay",
                                    "cSinseiAtena",
                                    "iSeiKyuKubun",
                                    "iTenki",
                                    "cTekiyou",
                                    "cBikou",
                                    "iHoken",
                                    "iKinSyubetsu",
                                    "cKinName",
                                    "iKinSiten",
                                    "cKinSiten",
                                    "iKozaSyubetsu",
                                    "cKozaNo",
                                    "cKozaName",
                                    "cKozaKana",
                                    "iKozaKubun",
                                    "cComment",
                                    "cYotei",
                                    "iPcnt",
                                    "cHokenJname",
                                    "cHokenJname2",
                                    "iSyogai",
                                    "cSyogaiNo",
                                    "cSyogaiJu",
                                    "cSyogaiFname",
                                    "iSejutsuKubun",
                                    "nHKSyobyouCd",
                                    "cHKSyobyouName",
                                    "iHKSyokaiHiyo",
                                    "iHKHariUmu",
                                    "iHKKyuUmu",
                                    "iHKDekiUmu",
                                    "tHKHariSday",
                                    "tHKHariEday",
                                    "tHKKyuSday",
                                    "tHKKyuEday",
                                    "tHKDenkiSday",
                                    "tHKDenkiEday",
                                    "iHKHari1Umu",
                                    "iHKKyu1Umu",
                                    "iHKDeki1Umu",
                                    "tHenkeSday2",
                                    "tHenKeEday2",
                                    "tOnanSday2",
                                    "tOnanEday2",
                                    "tDenkiSday2",
                                    "tDenkiEday2",
                                    "tHKHariSday2",
                                    "tHKHariEday2",
                                    "tHKKyuSday2",
                                    "tHKKyuEday2",
                                    "tHKDenkiSday2",
                                    "tHKDenkiEday2",
                                    "tDouishoSaishutokuFrom",
                                    "tDouishoSaishutokuTo",
                                    "iOuryouKyoka",
                                    "nRoomNo",
                                    "iRoomAnbunUmu",
                                    "cHokenJSubAddress",
                                    "cSyogaiFSubAddress",
                                    "iJikofutanKubun",
                                    "nJikofutanTanka",
                                    "nTantou6",
                                    "nTantou7",
                                    "nTantou8",
                                    "nTantou9",
                                    "nTantou10",
                                    "cFMCode"};

} // namespace

TEST_CASE_FIXTURE(PracticeSession, "a site's patients have every column of the patient record")
{
    const auto row = session.open(kPatient);
    for (const char *column : kColumns) {
        CAPTURE(column);
        CHECK(raisedBy([&] { (void)row->Field(column); }).number == 0);
    }
    CHECK(std::size(kColumns) == 181);
}

TEST_CASE_FIXTURE(PracticeSession, "the date columns of the patient record are dates, except the two text columns")
{
    constexpr std::int32_t kDateTime = 135, kText = 202, kInteger = 3;
    const auto row = session.open(kPatient);
    CHECK(row->fieldType(row->fieldIndex("tBirthday")) == kDateTime);
    CHECK(row->fieldType(row->fieldIndex("tHKDenkiEday2")) == kDateTime);
    CHECK(row->fieldType(row->fieldIndex("tHatsubyou")) == kText);
    CHECK(row->fieldType(row->fieldIndex("tSyoryoDay")) == kText);
    CHECK(row->fieldType(row->fieldIndex("iRoomAnbunUmu")) == kInteger);
}

TEST_CASE_FIXTURE(PracticeSession, "a client-side cursor reads a patient and counts the rows")
{
    const auto count = [&](const std::string &sql) {
        const auto row = session.database().newRecordset();
        row->setCursorLocation(adUseClient);
        row->Open(sql, session.connection(), adOpenForwardOnly, adLockReadOnly, adCmdText);
        return row->RecordCount();
    };
    CHECK(count(kPatient) == 1);
    CHECK(count("SELECT * FROM RIYOUSHA WHERE nIDNo = 4 and iKyotenCd = 1 and iKyotenEb = 1") == 0);
    CHECK(count("SELECT * FROM RIYOUSHA WHERE nIDNo = 2 and iKyotenCd = 1 and iKyotenEb = 2") == 0);
}
