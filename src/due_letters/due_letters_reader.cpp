#include "due_letters/due_letters_reader.h"

#include "common/helpers.h"
#include "printing/extraction.h"

#include <fmt/format.h>

#include <functional>
#include <string_view>

namespace inin::due {

namespace {

using OnRow = std::function<void(const Recordset &row)>;

void read(const Source &source, const std::string &sql, const OnRow &onRow)
{
    const auto rows = source.database.newRecordset();
    for (rows->Open(sql, source.connection, adOpenForwardOnly, adLockReadOnly, adCmdText); !rows->isEndOfFile();
         rows->MoveNext())
        onRow(*rows);
}

std::string branchCondition(const Source &source, std::string_view table)
{
    return fmt::format("{0}.iKyotenCd = {1} AND {0}.iKyotenEb = {2}", table, source.iKyotenCd, source.iKyotenEb);
}

std::string numberCondition(std::string_view column, std::int32_t number)
{
    return number > 0 ? fmt::format(" AND {} = {}", column, number) : std::string();
}

/// The database compares the joined columns, so that its rules for texts hold here too.
std::string countOf(std::string_view table, const std::string &condition)
{
    return fmt::format(", (SELECT COUNT(*) FROM {} WHERE {})", table, condition);
}

std::string patientsSql(const Source &source, const Conditions &conditions)
{
    const std::string company =
        conditions.trustee == Trustee::headOffice ? "CORP.iType = 0" : "CORP.nIDNo = RIYOUSHA.nDairiID";
    return "SELECT RIYOUSHA.nIDNo, RIYOUSHA.cName, RIYOUSHA.nTantou, RIYOUSHA.iHoken, RIYOUSHA.tExpireDay" +
           countOf("HOKENJA", "HOKENJA.cIDno = RIYOUSHA.cHokenNo") + " AS nInsurers" +
           countOf("CORP", branchCondition(source, "CORP") + " AND " + company) + " AS nCompanies" +
           countOf("RIYOUSHA_SUB",
                   branchCondition(source, "RIYOUSHA_SUB") + " AND RIYOUSHA_SUB.nIDNo = RIYOUSHA.nIDNo") +
           " AS nSideRows" + countOf("CORP", branchCondition(source, "CORP") + " AND CORP.iType = 3") +
           " AS nGroupCompanies FROM RIYOUSHA WHERE " + branchCondition(source, "RIYOUSHA") +
           numberCondition("RIYOUSHA.nIDNo", conditions.patient) + " ORDER BY RIYOUSHA.nIDNo";
}

/// The differences of the two tables of visits.
struct VisitTable {
    std::string_view table;
    std::string_view patient;
    std::string_view staff;
    std::string_view visit;
    std::string_view within; ///< the condition on the visit, with its bounds
    const LastVisitRule &lastVisit;
    VisitBounds (TargetDate::*monthBounds)() const;
};

const VisitTable kPlanned{"SCHEDULE",       "nIDRiyoushaNo",           "nIDStaffNo", "nDate", "nDate BETWEEN {} AND {}",
                          kLastScheduleDay, &TargetDate::scheduleMonth};
const VisitTable kActual{"JISSEKI",
                         "nRiyoushaIDNo",
                         "nStaffIDNo",
                         "tServicyDayStart",
                         "tServicyDayStart >= '{}' AND tServicyDayStart < '{}'",
                         kLastJissekieDay,
                         &TargetDate::jissekiMonth};

/// The last visit of a month is found within slightly other bounds than the visits of the month.
VisitBounds boundsOf(const VisitTable &table, VisitMonth month, const Conditions &conditions)
{
    if (conditions.lastDay) return (month.*table.lastVisit.bounds)();
    const TargetDate target(fmt::format("{:04}/{:02}/1", month.nYear, month.nMonth), month.regional);
    return (target.*table.monthBounds)();
}

double momentOf(const Variant &visit)
{
    const Date *date = visit.getIf<Date>();
    return date != nullptr ? date->days() : nNullToLong(visit);
}

std::optional<std::int32_t> numberOrNone(const Variant &value)
{
    return value.isNull() ? std::nullopt : std::optional(nNullToLong(value));
}

VisitsOfPatients readVisits(const Source &source, const Conditions &conditions)
{
    VisitsOfPatients visits;
    if (conditions.visits == Visits::ignored) return visits;
    const VisitTable &table = conditions.visits == Visits::planned ? kPlanned : kActual;
    const VisitMonth month{conditions.year, conditions.month, source.regional};
    const VisitBounds bounds = boundsOf(table, month, conditions);
    const std::string sql = fmt::format("SELECT {0}, {1}, {2} FROM {3} WHERE {4} AND ", table.patient, table.staff,
                                        table.visit, table.table, branchCondition(source, table.table)) +
                            fmt::format(fmt::runtime(table.within), bounds.lower, bounds.upper) +
                            numberCondition(table.patient, conditions.patient);
    read(source, sql, [&](const Recordset &row) {
        if (row.Value(0).isNull()) return;
        const Variant visit = row.Value(2);
        visits[nNullToLong(row.Value(0))].push_back(
            {(month.*table.lastVisit.dayOf)(visit), momentOf(visit), numberOrNone(row.Value(1))});
    });
    return visits;
}

PatientRow patientOf(const Recordset &row, const Regional &regional)
{
    const auto number = [&](std::size_t index) { return nNullToLong(row.Value(index)); };
    const Variant endDay = row.Value(4);
    return {.number = number(0),
            .name = csNullToStr(row.Value(1), regional),
            .mainStaff = numberOrNone(row.Value(2)),
            .insuranceKind = numberOrNone(row.Value(3)),
            .endDay = endDay.isNull() ? std::nullopt : std::optional(csNullToStr(endDay, regional)),
            .insurers = number(5),
            .companies = number(6),
            .sideRows = number(7),
            .groupCompanies = number(8)};
}

} // namespace

std::vector<Answer> dueLetters(const Source &source, const Conditions &conditions)
{
    const VisitsOfPatients visits = readVisits(source, conditions);
    std::vector<Answer> answers;
    read(source, patientsSql(source, conditions), [&](const Recordset &row) {
        const PatientRow patient = patientOf(row, source.regional);
        const auto own = visits.find(patient.number);
        answers.push_back(answerFor(patient, own == visits.end() ? std::vector<Visit>() : own->second, conditions));
    });
    return answers;
}

} // namespace inin::due
