#include "master/patient_record.h"

#include "common/helpers.h"
#include "data/connection_settings.h"
#include "runtime/conversion.h"

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

} // namespace inin
