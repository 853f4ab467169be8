#include "master/patient_record.h"

#include "common/helpers.h"
#include "data/connection_settings.h"
#include "runtime/conversion.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

namespace inin {

namespace {

/// Selects all columns without naming them, so that a column missing at a branch does not fail the statement.
std::string patientSql(const App &app, std::int32_t nCode)
{
    return "SELECT * FROM RIYOUSHA WHERE nIDNo = " + std::to_string(nCode) +
           " and iKyotenCd = " + std::to_string(app.iKyotenCd) + " and iKyotenEb = " + std::to_string(app.iKyotenEb);
}

/// Reads the current row into a record.
class PatientReader {
public:
    PatientReader(const Recordset &rsData, const Regional &regional, RIYOUSHA_REC &rec)
        : m_rsData(rsData), m_regional(regional), m_rec(rec)
    {
    }
    void read(const PatientColumn &column);

private:
    [[nodiscard]] std::optional<Variant> valueOf(const PatientColumn &column) const;
    void assign(std::int32_t &field, const Variant &value) const { field = toLong(value); }
    void assign(std::int16_t &field, const Variant &value) const { field = toInteger(value); }
    void assign(Date &field, const Variant &value) const { field = toDate(value, m_regional); }
    template <class Text> void assign(Text &field, const Variant &value) const { field = toText(value, m_regional); }

    const Recordset &m_rsData;
    const Regional &m_regional;
    RIYOUSHA_REC &m_rec;
};

/// The column's value by its rule, before its conversion; no value if the field is to stay unchanged.
std::optional<Variant> PatientReader::valueOf(const PatientColumn &column) const
{
    Variant value = m_rsData.Field(column.name);
    switch (column.rule) {
    case NullRule::empty:
        return csNullToStr(value, m_regional);
    case NullRule::zero:
        return nNullToLong(value);
    case NullRule::guarded:
        break;
    }
    if (value.isNull()) return std::nullopt;
    return value;
}

/// A column that the database lacks and a value that cannot be converted leave their field unchanged: sites differ in
/// the later columns, and most callers need only the name.
void PatientReader::read(const PatientColumn &column)
try {
    const std::optional<Variant> value = valueOf(column);
    if (value) std::visit([&](auto field) { assign(m_rec.*field, *value); }, column.field);
} catch (const RuntimeError &) {
    return;
}

/// The patient's row and its session.
struct OpenPatient {
    std::unique_ptr<cT_ADODB> session;
    std::unique_ptr<Recordset> rsData;
};

/// True if at least one row was found. Failed steps show nothing; only a run-time error shows a box.
bool openPatient(App &app, std::int32_t nCode, OpenPatient &patient)
try {
    const std::string sql = patientSql(app, nCode);
    StartedSession started = startSession(app);
    if (started.step == ConnectStep::connect) app.patientConnectError = started.csErrMsg;
    if (!started.isConnected()) return false;
    patient.session = std::move(started.session);
    patient.rsData = app.platform.database.newRecordset();
    // Only a client-side cursor counts its rows.
    patient.rsData->setCursorLocation(adUseClient);
    if (patient.session->iOpenRecSet(*patient.rsData, sql, adOpenForwardOnly, adLockReadOnly, adCmdText) != iGood)
        return false;
    return patient.rsData->RecordCount() != 0;
} catch (const RuntimeError &error) {
    app.platform.boxes.show("Read Error:" + error.description(), Icon::none);
    return false;
}

/// A failure to close has no effect: the row is already read.
void close(OpenPatient &patient)
{
    static_cast<void>(patient.session->iCloseRecSet(patient.rsData));
    patient.rsData.reset();
    static_cast<void>(patient.session->iDisConnect());
}

using R = RIYOUSHA_REC;
using enum NullRule;

/// Two required irregularities of the suite. The twelve second periods, named with a 2 at the end, are stored in the
/// field of the first one: a second period overrides it. iRoomAnbunUmu is stored in a date although it is named like a
/// flag: its value, 0 included, replaces the end of the renewed consent.
constexpr PatientColumn kPatientColumns[] = {
    {"nIDNo", &R::nIDNo, guarded},
    {"cName", &R::cName, empty},
    {"cNameRyaku", &R::cNameRyaku, empty},
    {"cNameKana", &R::cNameKana, empty},
    {"iSex", &R::iSex, guarded},
    {"cCityNo", &R::cCityNo, guarded},
    {"cJukyuNo", &R::cJukyuNo, guarded},
    {"cHokenKigouNo", &R::cHokenKigouNo, empty},
    {"cHokenKigouNo2", &R::cHokenKigouNo2, empty},
    {"cHokenNo", &R::cHokenNo, guarded},
    {"cHokenNo2", &R::cHokenNo2, guarded},
    {"cFutanNo", &R::cFutanNo, guarded},
    {"tBirthday", &R::tBirthday, guarded},
    {"cYubinNo", &R::cYubinNo, empty},
    {"cAdress1", &R::cAdress1, empty},
    {"cAdress2", &R::cAdress2, empty},
    {"cAddressKana", &R::cAddressKana, empty},
    {"cTelNo", &R::cTelNo, empty},
    {"cFaxNo", &R::cFaxNo, empty},
    {"cMobNo", &R::cMobNo, empty},
    {"cSetaiName", &R::cSetaiName, empty},
    {"cSetaiKana", &R::cSetaiKana, empty},
    {"iSetaiSex", &R::iSetaiSex, guarded},
    {"cSetaiYubinNo", &R::cSetaiYubinNo, empty},
    {"cSetaiAdress1", &R::cSetaiAdress1, empty},
    {"cSetaiAdress2", &R::cSetaiAdress2, empty},
    {"cSetaiAddKana", &R::cSetaiAddKana, empty},
    {"cSetaiTelNo", &R::cSetaiTelNo, empty},
    {"cSetaiFaxNo", &R::cSetaiFaxNo, empty},
    {"cSetaiMobNo", &R::cSetaiMobNo, empty},
    {"cSetaiTsuzuki", &R::cSetaiTsuzuki, empty},
    {"tSetaiBirthday", &R::tSetaiBirthday, guarded},
    {"iTikuNo", &R::iTikuNo, guarded},
    {"nHokui", &R::nHokui, guarded},
    {"nToukei", &R::nToukei, guarded},
    {"iHoseUmu", &R::iHoseUmu, guarded},
    {"nLenFix", &R::nLenFix, guarded},
    {"nLenInp", &R::nLenInp, guarded},
    {"nLenAdd", &R::nLenAdd, guarded},
    {"nHoseLen", &R::nHoseLen, guarded},
    {"iHoseCol", &R::iHoseCol, guarded},
    {"iHoseCut", &R::iHoseCut, guarded},
    {"iVisitFlg", &R::iVisitFlg, guarded},
    {"iOuryoCalType", &R::iOuryoCalType, guarded},
    {"nTantou", &R::nTantou, guarded},
    {"nTantou2", &R::nTantou2, guarded},
    {"nTantou3", &R::nTantou3, guarded},
    {"nTantou4", &R::nTantou4, guarded},
    {"nTantou5", &R::nTantou5, guarded},
    {"cByoumei", &R::cByoumei, empty},
    {"iKaigoLevel", &R::iKaigoLevel, guarded},
    {"iFutanritsu", &R::iFutanritsu, guarded},
    {"iV", &R::iV, guarded},
    {"iSys", &R::iSys, guarded},
    {"iSejutuBui1", &R::iSejutuBui1, guarded},
    {"iSejutuBui2", &R::iSejutuBui2, guarded},
    {"iSejutuBui3", &R::iSejutuBui3, guarded},
    {"iSejutuBui4", &R::iSejutuBui4, guarded},
    {"iSejutuBui5", &R::iSejutuBui5, guarded},
    {"iHenke", &R::iHenke, guarded},
    {"iOnan", &R::iOnan, guarded},
    {"iDenki", &R::iDenki, guarded},
    {"iSejutuBui11", &R::iSejutuBui11, zero},
    {"iSejutuBui12", &R::iSejutuBui12, zero},
    {"iSejutuBui13", &R::iSejutuBui13, zero},
    {"iSejutuBui14", &R::iSejutuBui14, zero},
    {"iSejutuBui15", &R::iSejutuBui15, zero},
    {"iOnan1", &R::iOnan1, zero},
    {"iDenki1", &R::iDenki1, zero},
    {"tHenkeSday", &R::tHenkeSday, guarded},
    {"tHenKeEday", &R::tHenKeEday, guarded},
    {"tOnanSday", &R::tOnanSday, guarded},
    {"tOnanEday", &R::tOnanEday, guarded},
    {"tDenkiSday", &R::tDenkiSday, guarded},
    {"tDenkiEday", &R::tDenkiEday, guarded},
    {"iPtype", &R::iPtype, guarded},
    {"iGyoumuUmu", &R::iGyoumuUmu, guarded},
    {"cGeninKeika", &R::cGeninKeika, empty},
    {"tHatsubyou", &R::tHatsubyou, guarded},
    {"tSyoryoDay", &R::tSyoryoDay, guarded},
    {"tSyosinDay", &R::tSyosinDay, guarded},
    {"tStartDay", &R::tStartDay, guarded},
    {"tKHkigen", &R::tKHkigen, guarded},
    {"cHTno", &R::cHTno, empty},
    {"tHTStartDay", &R::tHTStartDay, guarded},
    {"cHTRiyuu", &R::cHTRiyuu, empty},
    {"cHTIryoName", &R::cHTIryoName, empty},
    {"cHTIryoYubin", &R::cHTIryoYubin, empty},
    {"cHTIryoAdd", &R::cHTIryoAdd, empty},
    {"cDouiIsiName1", &R::cDouiIsiName1, empty},
    {"cDouiIsiKikan1", &R::cDouiIsiKikan1, empty},
    {"cDouiIsiAdd1", &R::cDouiIsiAdd1, empty},
    {"cDouiByoumei1", &R::cDouiByoumei1, empty},
    {"tDouiDay1", &R::tDouiDay1, guarded},
    {"tDouiKaryoS1", &R::tDouiKaryoS1, guarded},
    {"tDouiKaryoE1", &R::tDouiKaryoE1, guarded},
    {"cDouiIsiName2", &R::cDouiIsiName2, empty},
    {"cDouiIsiKikan2", &R::cDouiIsiKikan2, empty},
    {"cDouiIsiAdd2", &R::cDouiIsiAdd2, empty},
    {"cDouiByoumei2", &R::cDouiByoumei2, empty},
    {"tDouiDay2", &R::tDouiDay2, guarded},
    {"tDouiKaryoS2", &R::tDouiKaryoS2, guarded},
    {"tDouiKaryoE2", &R::tDouiKaryoE2, guarded},
    {"cSyoumeiName", &R::cSyoumeiName, empty},
    {"cSyoumeiYubin", &R::cSyoumeiYubin, empty},
    {"cSyoumeiAdd", &R::cSyoumeiAdd, empty},
    {"cSyoumeiTel", &R::cSyoumeiTel, empty},
    {"tSyoumeiDay", &R::tSyoumeiDay, guarded},
    {"nDairiID", &R::nDairiID, zero},
    {"cSinseiName", &R::cSinseiName, empty},
    {"cSinseiYubin", &R::cSinseiYubin, empty},
    {"cSinseiAdd", &R::cSinseiAdd, empty},
    {"cSinseiTel", &R::cSinseiTel, empty},
    {"tSinseiDay", &R::tSinseiDay, guarded},
    {"cSinseiAtena", &R::cSinseiAtena, empty},
    {"iSeiKyuKubun", &R::iSeiKyuKubun, guarded},
    {"iTenki", &R::iTenki, guarded},
    {"cTekiyou", &R::cTekiyou, empty},
    {"cBikou", &R::cBikou, empty},
    {"iHoken", &R::iHoken, guarded},
    {"iKinSyubetsu", &R::iKinSyubetsu, guarded},
    {"cKinName", &R::cKinName, empty},
    {"iKinSiten", &R::iKinSiten, guarded},
    {"cKinSiten", &R::cKinSiten, empty},
    {"iKozaSyubetsu", &R::iKozaSyubetsu, guarded},
    {"cKozaNo", &R::cKozaNo, empty},
    {"cKozaName", &R::cKozaName, empty},
    {"cKozaKana", &R::cKozaKana, empty},
    {"iKozaKubun", &R::iKozaKubun, guarded},
    {"cComment", &R::cComment, empty},
    {"cYotei", &R::cYotei, empty},
    {"iPcnt", &R::iPcnt, guarded},
    {"cHokenJname", &R::cHokenJname, guarded},
    {"cHokenJname2", &R::cHokenJname2, guarded},
    {"iSyogai", &R::iSyogai, guarded},
    {"cSyogaiNo", &R::cSyogaiNo, empty},
    {"cSyogaiJu", &R::cSyogaiJu, empty},
    {"cSyogaiFname", &R::cSyogaiFname, empty},
    {"iSejutsuKubun", &R::iSejutsuKubun, guarded},
    {"nHKSyobyouCd", &R::nHKSyobyouCd, guarded},
    {"cHKSyobyouName", &R::cHKSyobyouName, empty},
    {"iHKSyokaiHiyo", &R::iHKSyokaiHiyo, guarded},
    {"iHKHariUmu", &R::iHKHariUmu, guarded},
    {"iHKKyuUmu", &R::iHKKyuUmu, guarded},
    {"iHKDekiUmu", &R::iHKDekiUmu, guarded},
    {"tHKHariSday", &R::tHKHariSday, guarded},
    {"tHKHariEday", &R::tHKHariEday, guarded},
    {"tHKKyuSday", &R::tHKKyuSday, guarded},
    {"tHKKyuEday", &R::tHKKyuEday, guarded},
    {"tHKDenkiSday", &R::tHKDenkiSday, guarded},
    {"tHKDenkiEday", &R::tHKDenkiEday, guarded},
    {"iHKHari1Umu", &R::iHKHari1Umu, zero},
    {"iHKKyu1Umu", &R::iHKKyu1Umu, zero},
    {"iHKDeki1Umu", &R::iHKDeki1Umu, zero},
    {"tHenkeSday2", &R::tHenkeSday, guarded},
    {"tHenKeEday2", &R::tHenKeEday, guarded},
    {"tOnanSday2", &R::tOnanSday, guarded},
    {"tOnanEday2", &R::tOnanEday, guarded},
    {"tDenkiSday2", &R::tDenkiSday, guarded},
    {"tDenkiEday2", &R::tDenkiEday, guarded},
    {"tHKHariSday2", &R::tHKHariSday, guarded},
    {"tHKHariEday2", &R::tHKHariEday, guarded},
    {"tHKKyuSday2", &R::tHKKyuSday, guarded},
    {"tHKKyuEday2", &R::tHKKyuEday, guarded},
    {"tHKDenkiSday2", &R::tHKDenkiSday, guarded},
    {"tHKDenkiEday2", &R::tHKDenkiEday, guarded},
    {"tDouishoSaishutokuFrom", &R::tDouishoSaishutokuFrom, guarded},
    {"tDouishoSaishutokuTo", &R::tDouishoSaishutokuTo, guarded},
    {"iOuryouKyoka", &R::iOuryouKyoka, guarded},
    {"nRoomNo", &R::nRoomNo, guarded},
    {"iRoomAnbunUmu", &R::tDouishoSaishutokuTo, guarded},
    {"cHokenJSubAddress", &R::cHokenJSubAddress, guarded},
    {"cSyogaiFSubAddress", &R::cSyogaiFSubAddress, guarded},
    {"iJikofutanKubun", &R::iJikofutanKubun, guarded},
    {"nJikofutanTanka", &R::nJikofutanTanka, guarded},
    {"nTantou6", &R::nTantou6, guarded},
    {"nTantou7", &R::nTantou7, guarded},
    {"nTantou8", &R::nTantou8, guarded},
    {"nTantou9", &R::nTantou9, guarded},
    {"nTantou10", &R::nTantou10, guarded},
    {"cFMCode", &R::cFMCode, guarded},
};

/// Only texts can become empty and only numbers zero; any other pair would fail silently at every NULL.
constexpr bool isSound(const PatientColumn &column)
{
    const bool isNumber = std::holds_alternative<std::int32_t R::*>(column.field) ||
                          std::holds_alternative<std::int16_t R::*>(column.field);
    const bool isDate = std::holds_alternative<Date R::*>(column.field);
    return column.rule == guarded || (!isDate && isNumber == (column.rule == zero));
}
static_assert(std::ranges::all_of(kPatientColumns, isSound));

} // namespace

std::int16_t iGetRiyoushaRec(App &app, std::int32_t nCode, RIYOUSHA_REC &rec)
{
    // Outside the trap, so that the session is open until the box is answered.
    OpenPatient patient;
    if (!openPatient(app, nCode, patient)) return kPatientNotRead;
    RIYOUSHA_REC row;
    PatientReader reader(*patient.rsData, app.regional, row);
    for (const PatientColumn &column : patientColumns()) reader.read(column);
    close(patient);
    rec = std::move(row);
    return kPatientRead;
}

std::span<const PatientColumn> patientColumns()
{
    return kPatientColumns;
}

} // namespace inin
