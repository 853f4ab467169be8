#pragma once

#include "master/fixed_text.h"
#include "runtime/date.h"
#include "shell/app.h"

#include <cstdint>
#include <span>
#include <string>
#include <variant>

namespace inin {

/// One patient as shared by the suite's programs. A new record is blank: numbers and dates 0, texts empty, fixed texts
/// filled with NULs. Each field has the name of the column that fills it; the order is that of the suite.
struct RIYOUSHA_REC {
    // Patient and insurance.
    std::int32_t nIDNo = 0;
    std::string cName, cNameRyaku, cNameKana;
    std::int16_t iSex = 0, iHoken = 0;
    std::string cHokenKigouNo2, cHokenNo2, cHokenJname, cHokenJname2, cHokenKigouNo;
    std::string cCityNo, cJukyuNo, cHokenNo, cFutanNo;
    Date tBirthday;
    FixedText<8> cYubinNo;
    std::string cAdress1, cAdress2, cAddressKana;
    FixedText<14> cTelNo, cFaxNo, cMobNo;

    // Householder.
    std::string cSetaiName, cSetaiKana;
    std::int16_t iSetaiSex = 0;
    FixedText<8> cSetaiYubinNo;
    std::string cSetaiAdress1, cSetaiAdress2, cSetaiAddKana;
    FixedText<14> cSetaiTelNo, cSetaiFaxNo, cSetaiMobNo;
    std::string cSetaiTsuzuki;
    Date tSetaiBirthday;

    // Location of the home, staff in charge, illness and cost shares.
    std::int16_t iTikuNo = 0;
    std::int32_t nHokui = 0, nToukei = 0, nLenInp = 0, nLenAdd = 0;
    std::int32_t nTantou = 0, nTantou2 = 0, nTantou3 = 0, nTantou4 = 0, nTantou5 = 0;
    std::string cByoumei;
    std::int16_t iKaigoLevel = 0, iFutanritsu = 0, iV = 0, iSys = 0;

    // Massage: body parts, kinds of treatment and their periods.
    std::int16_t iSejutuBui1 = 0, iSejutuBui2 = 0, iSejutuBui3 = 0, iSejutuBui4 = 0, iSejutuBui5 = 0;
    std::int16_t iHenke = 0, iOnan = 0, iDenki = 0;
    std::int16_t iSejutuBui11 = 0, iSejutuBui12 = 0, iSejutuBui13 = 0, iSejutuBui14 = 0, iSejutuBui15 = 0;
    std::int16_t iOnan1 = 0, iDenki1 = 0;
    Date tHenkeSday, tHenKeEday, tOnanSday, tOnanEday, tDenkiSday, tDenkiEday;

    // Course of the illness. tHatsubyou and tSyoryoDay are texts, despite their prefix.
    std::int16_t iPtype = 0, iGyoumuUmu = 0;
    std::string cGeninKeika, tHatsubyou, tSyoryoDay;
    Date tSyosinDay, tStartDay, tKHkigen;

    // Disability certificate.
    std::int16_t iSyogai = 0;
    std::string cSyogaiNo, cSyogaiJu, cSyogaiFname;

    // Medical care fund.
    std::string cHTno;
    Date tHTStartDay;
    std::string cHTRiyuu, cHTIryoName;
    FixedText<8> cHTIryoYubin;
    std::string cHTIryoAdd;

    // Two consents: doctor, institution, address, illness, date and period.
    std::string cDouiIsiName1, cDouiIsiKikan1, cDouiIsiAdd1, cDouiByoumei1;
    Date tDouiDay1, tDouiKaryoS1, tDouiKaryoE1;
    std::string cDouiIsiName2, cDouiIsiKikan2, cDouiIsiAdd2, cDouiByoumei2;
    Date tDouiDay2, tDouiKaryoS2, tDouiKaryoE2;

    // Agent, certifier, applicant.
    std::int32_t nDairiID = 0;
    std::string cSyoumeiName;
    FixedText<8> cSyoumeiYubin;
    std::string cSyoumeiAdd;
    FixedText<14> cSyoumeiTel;
    Date tSyoumeiDay;
    std::string cSinseiName;
    FixedText<8> cSinseiYubin;
    std::string cSinseiAdd;
    FixedText<14> cSinseiTel;
    Date tSinseiDay;
    std::string cSinseiAtena;

    // Claim and bank account.
    std::int16_t iSeiKyuKubun = 0, iKinSyubetsu = 0;
    std::string cKinName;
    std::int16_t iKinSiten = 0;
    std::string cKinSiten;
    std::int16_t iKozaSyubetsu = 0;
    std::string cKozaNo, cKozaName, cKozaKana;
    std::int16_t iKozaKubun = 0, iTenki = 0;
    std::string cTekiyou, cBikou, cComment, cYotei;
    std::int16_t iPcnt = 0, iSejutsuKubun = 0;

    // Acupuncture and moxibustion.
    std::int32_t nHKSyobyouCd = 0;
    std::string cHKSyobyouName;
    std::int16_t iHKSyokaiHiyo = 0, iHKHariUmu = 0, iHKKyuUmu = 0, iHKDekiUmu = 0;
    Date tHKHariSday, tHKHariEday, tHKKyuSday, tHKKyuEday, tHKDenkiSday, tHKDenkiEday;
    std::int16_t iHKHari1Umu = 0, iHKKyu1Umu = 0, iHKDeki1Umu = 0;

    // Later additions: the patient's own share, the room, the renewal of the consent, the corrections of the visit
    // distance (32 bits despite their prefix), further staff.
    std::int16_t iJikofutanKubun = 0;
    std::int32_t nJikofutanTanka = 0, nRoomNo = 0;
    Date tDouishoSaishutokuFrom, tDouishoSaishutokuTo;
    std::string cHokenJSubAddress, cSyogaiFSubAddress;
    std::int32_t iHoseUmu = 0, nHoseLen = 0, nLenFix = 0, iHoseCol = 0, iHoseCut = 0, iOuryouKyoka = 0;
    std::int16_t iVisitFlg = 0, iOuryoCalType = 0;
    std::int32_t nTantou6 = 0, nTantou7 = 0, nTantou8 = 0, nTantou9 = 0, nTantou10 = 0;
    std::int32_t cFMCode = 0;

    friend bool operator==(const RIYOUSHA_REC &, const RIYOUSHA_REC &) = default;
};

/// Results of iGetRiyoushaRec. These are not the usual statuses: here -1 is success.
inline constexpr std::int16_t kPatientRead = -1;
inline constexpr std::int16_t kPatientNotRead = 0;

/// Reads the patient `nCode` of this branch on a session of its own. Returns -1 if the row was read into `rec`; 0 in
/// every other case, with `rec` unchanged. A column that is missing or cannot be converted leaves its field unchanged.
/// Shows a box only for a run-time error before the row is found; a failed connect leaves its error text in the App.
[[nodiscard]] std::int16_t iGetRiyoushaRec(App &app, std::int32_t nCode, RIYOUSHA_REC &rec);

/// How a NULL is converted.
enum class NullRule {
    guarded, ///< NULL leaves the field unchanged, blank or with the value of an earlier column
    empty,   ///< NULL becomes the empty text
    zero,    ///< NULL and anything that is not a 32-bit number become 0
};

/// A field of the record. Its type determines the conversion of the column.
using PatientField =
    std::variant<std::int32_t RIYOUSHA_REC::*, std::int16_t RIYOUSHA_REC::*, Date RIYOUSHA_REC::*,
                 std::string RIYOUSHA_REC::*, FixedText<8> RIYOUSHA_REC::*, FixedText<14> RIYOUSHA_REC::*>;

/// A column of RIYOUSHA, its field and its rule.
struct PatientColumn {
    const char *name;
    PatientField field;
    NullRule rule;
};

/// The columns known to the suite, in the order in which they are read: of two that share a field the later one
/// applies.
[[nodiscard]] std::span<const PatientColumn> patientColumns();

} // namespace inin
