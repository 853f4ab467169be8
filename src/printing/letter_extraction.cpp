#include "printing/letter_extraction.h"

#include "data/connection_settings.h"
#include "printing/letter_reader.h"
#include "runtime/conversion.h"
#include "runtime/format.h"
#include "shell/error_box.h"

#include <cstddef>
#include <limits>

namespace inin {

namespace {

constexpr const char *kHeading = "iGetKanjaData でエラー";
/// The form that the central error box names.
constexpr const char *kFormName = "frmPrintInin";
constexpr std::size_t kMaxLetters = std::size_t{std::numeric_limits<std::int16_t>::max()} + 1;

std::int16_t openForward(cT_ADODB &session, Recordset &rsData, const std::string &sql)
{
    return session.iOpenRecSet(rsData, sql, adOpenForwardOnly, adLockReadOnly, adCmdText);
}

std::string heading(const LastVisitRule &rule)
{
    return std::string(rule.procedure) + " でエラー";
}

} // namespace

std::optional<std::int16_t> LetterExtraction::readLetters(const ExtractionRule &rule,
                                                          const LetterConditions &conditions,
                                                          std::vector<IninRow> &letters)
{
    // Outside the trap, so that the session is open until the box of a failure is answered. It ends with its scope.
    StartedSession own;
    return readOver(own, rule, conditions, letters);
}

std::optional<std::int16_t> LetterExtraction::readOver(StartedSession &own, const ExtractionRule &rule,
                                                       const LetterConditions &conditions,
                                                       std::vector<IninRow> &letters)
try {
    own = startSession(m_app, kHeading);
    if (!own.isConnected()) return std::nullopt;
    letters.assign(1, IninRow{});
    // Reserve the largest possible count: unused capacity costs no memory, but growing would move the rows a dozen
    // times.
    letters.reserve(kMaxLetters);
    const TargetDate target(conditions.csTargetDate, m_app.regional);
    ExtractionQuery query = conditions.query;
    query.bounds = (target.*rule.bounds)();
    const LetterDates dates = datesOf(conditions, target);
    std::unique_ptr<Recordset> rsData = m_app.platform.database.newRecordset();
    if (openForward(*own.session, *rsData, extractionSql(rule, query)) != iGood) {
        headingBox(m_app, rule.openFailureHeading, own.session->sErrMsg());
        return std::nullopt;
    }
    const std::int16_t count = fill(letters, *rsData, rule, dates);
    static_cast<void>(own.session->iCloseRecSet(rsData)); // all rows are read; a failure has no effect
    return count;
} catch (const RuntimeError &error) {
    vErrorBox(m_app, error, kErrorBoxTask, kFormName, rule.procedure);
    return std::nullopt;
}

LetterDates LetterExtraction::datesOf(const LetterConditions &conditions, const TargetDate &target) const
{
    const auto dayText = [this](const Variant &date) { return formatText(date, "yyyy/mm/dd", m_app.regional); };
    LetterDates dates{target, {}, {}, {}};
    if (conditions.iDspPeriodKind == 1) {
        dates.periodStart = target.firstOfMonth();
        dates.periodEnd = target.lastOfMonth();
    } else {
        // Deliberate: an end before the start is printed as entered.
        dates.periodStart = dayText(conditions.imSetDateFrom);
        dates.periodEnd = dayText(conditions.imSetDateTo);
    }
    dates.signature = conditions.iSyomeiKind != 0 ? dayText(conditions.imSyomei) : dates.periodStart;
    return dates;
}

/// Returns the number of rows kept. The row index is a 16-bit number: the increment after index 32,767 is an overflow,
/// and that row is already kept. For a day only patients whose last visit is on it are kept: every visit of the patient
/// in the month counts, whichever staff member made it, so that a later visit by another one removes the letter.
std::int16_t LetterExtraction::fill(std::vector<IninRow> &letters, Recordset &rsData, const ExtractionRule &rule,
                                    const LetterDates &dates)
{
    LetterReader reader(rsData, m_app.regional);
    const auto isKept = [&] {
        return rule.lastVisit == nullptr || lastVisitDay(*rule.lastVisit, reader.number(Column::nIDNo),
                                                         dates.target.year, dates.target.month) == dates.target.day;
    };
    std::int16_t index = 0;
    for (; !rsData.isEndOfFile(); rsData.MoveNext()) {
        if (!isKept()) continue;
        if (index > 0) letters.emplace_back();
        reader.fill(letters.back(), rule, dates);
        index = narrow(index + 1);
    }
    return index;
}

std::int32_t LetterExtraction::lastVisitDay(const LastVisitRule &rule, std::int32_t nRiyoushaNo, std::int32_t nYear,
                                            std::int32_t nMonth)
try {
    const StartedSession own = startSession(m_app, heading(rule));
    if (!own.isConnected()) return iBad;
    ExtractionQuery query;
    query.iKyotenCd = m_app.iKyotenCd;
    query.iKyotenEb = m_app.iKyotenEb;
    query.nKanjaNo = nRiyoushaNo;
    const VisitMonth month{nYear, nMonth, m_app.regional};
    query.bounds = (month.*rule.bounds)();
    std::unique_ptr<Recordset> rsData = m_app.platform.database.newRecordset();
    if (openForward(*own.session, *rsData, lastVisitSql(rule, query)) != iGood) {
        headingBox(m_app, heading(rule), own.session->sErrMsg());
        return iBad;
    }
    std::int32_t day = iBad;
    if (rsData->isEndOfFile())
        // Deliberate: both helpers show this text, although the second one is not getLastScheduleDay.
        headingBox(m_app, "getLastScheduleDay で０件取得", own.session->sErrMsg());
    else
        day = (month.*rule.dayOf)(rsData->Value(rsData->fieldIndex(rule.column)));
    static_cast<void>(own.session->iCloseRecSet(rsData)); // the row is read; a failure has no effect
    return day;
} catch (const RuntimeError &error) {
    // No box: the text is kept, and the row is left out as if its day differed.
    m_csErrMsg = heading(rule) + numberLineText(error);
    return iBad;
}

} // namespace inin
