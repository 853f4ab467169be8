#include "master/patient_record.h"

#include "common/helpers.h"
#include "data/connection_settings.h"
#include "master/patient_record_columns.h"
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

void assign(std::int32_t &field, const Variant &value, const Regional &regional)
{
    field = toLong(value, regional);
}
void assign(std::int16_t &field, const Variant &value, const Regional &regional)
{
    field = toInteger(value, regional);
}
void assign(Date &field, const Variant &value, const Regional &regional)
{
    field = toDate(value, regional);
}
void assign(std::string &field, const Variant &value, const Regional &regional)
{
    field = toText(value, regional);
}
template <std::size_t N> void assign(FixedText<N> &field, const Variant &value, const Regional &regional)
{
    field = toText(value, regional);
}

/// Applies the column's rule to a value before its conversion; no value if the field is to stay unchanged.
std::optional<Variant> valueByRule(NullRule rule, Variant value, const Regional &regional)
{
    switch (rule) {
    case NullRule::empty:
        return csNullToStr(value, regional);
    case NullRule::zero:
        return nNullToLong(value, regional);
    case NullRule::guarded:
        break;
    }
    if (value.isNull()) return std::nullopt;
    return value;
}

/// A column that the database lacks and a value that cannot be converted leave their field unchanged: sites differ in
/// the later columns, and most callers need only the name.
void readColumn(const Recordset &rsData, const PatientColumn &column, const Regional &regional, RIYOUSHA_REC &rec)
try {
    const std::optional<Variant> value = valueByRule(column.rule, rsData.Field(column.name), regional);
    if (!value) return;
    std::visit([&](auto field) { assign(rec.*field, *value, regional); }, column.field);
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
    for (const PatientColumn &column : patientColumns()) readColumn(*patient.rsData, column, app.regional, row);
    close(patient);
    rec = std::move(row);
    return kPatientRead;
}

} // namespace inin
