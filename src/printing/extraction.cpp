#include "printing/extraction.h"

#include "data/connection_settings.h"
#include "printing/letter_reader.h"
#include "printing/print_form.h"
#include "runtime/conversion.h"
#include "runtime/format.h"
#include "shell/error_box.h"

#include <cstddef>
#include <limits>

namespace inin {

namespace {

constexpr const char *kHeading = "iGetKanjaData でエラー";
constexpr std::size_t kMaxLetters = std::size_t{std::numeric_limits<std::int16_t>::max()} + 1;

std::int16_t openForward(cT_ADODB &session, Recordset &rsData, const std::string &sql)
{
    return session.iOpenRecSet(rsData, sql, adOpenForwardOnly, adLockReadOnly, adCmdText);
}

/// Closes after the last read, where a failure has no effect.
void close(cT_ADODB &session, std::unique_ptr<Recordset> &rsData)
{
    static_cast<void>(session.iCloseRecSet(rsData));
    static_cast<void>(session.iDisConnect());
}

std::string heading(const LastVisitRule &rule)
{
    return std::string(rule.procedure) + " でエラー";
}

} // namespace

std::int16_t frmPrintInin::iGetKanjaDataMonth()
{
    return extract(kKanjaDataMonth);
}

std::int16_t frmPrintInin::iGetKanjaDataMonth_Jisseki()
{
    return extract(kKanjaDataMonth_Jisseki);
}

std::int16_t frmPrintInin::iGetKanjaDataDay()
{
    return extract(kKanjaDataDay);
}

std::int16_t frmPrintInin::iGetKanjaDataDay_Jisseki()
{
    return extract(kKanjaDataDay_Jisseki);
}

std::int16_t frmPrintInin::iGetKanjaDataNoPeriod()
{
    return extract(kKanjaDataNoPeriod);
}

std::int32_t frmPrintInin::getLastScheduleDay(std::int32_t nRiyoushaNo, std::int32_t nYear, std::int32_t nMonth)
{
    return lastVisitDay(kLastScheduleDay, nRiyoushaNo, nYear, nMonth);
}

std::int32_t frmPrintInin::getLastJissekieDay(std::int32_t nRiyoushaNo, std::int32_t nYear, std::int32_t nMonth)
{
    return lastVisitDay(kLastJissekieDay, nRiyoushaNo, nYear, nMonth);
}

/// The session is outside the trap, so that it is open until the box of a failure is answered.
std::int16_t frmPrintInin::extract(const ExtractionRule &rule)
{
    StartedSession own;
    return extractOver(own, rule);
}

std::int16_t frmPrintInin::extractOver(StartedSession &own, const ExtractionRule &rule)
try {
    own = startSession(m_app, kHeading);
    if (!own.isConnected()) return iBad;
    aIninRow.assign(1, IninRow{});
    // Reserve the largest possible count: unused capacity costs no memory, but growing would move the rows a dozen
    // times.
    aIninRow.reserve(kMaxLetters);
    const TargetDate target(csTargetDate, m_app.regional);
    const ExtractionQuery query = queryFor(rule, target);
    const LetterDates dates = datesOf(target);
    std::unique_ptr<Recordset> rsData = m_app.platform.database.newRecordset();
    if (openForward(*own.session, *rsData, extractionSql(rule, query)) != iGood) {
        headingBox(m_app, rule.openFailureHeading, own.session->sErrMsg());
        static_cast<void>(own.session->iDisConnect());
        return iBad;
    }
    const std::int16_t count = readLetters(*rsData, rule, dates);
    close(*own.session, rsData);
    iRowCount = count;
    return iGood;
} catch (const RuntimeError &error) {
    vErrorBox(m_app, error, kErrorBoxTask, name(), rule.procedure);
    return iBad;
}

ExtractionQuery frmPrintInin::queryFor(const ExtractionRule &rule, const TargetDate &target) const
{
    return {.iKyotenCd = m_app.iKyotenCd,
            .iKyotenEb = m_app.iKyotenEb,
            .iTrustKind = iTrustKind,
            .iPrintKind = iPrintKind,
            .nKanjaNo = nKanjaNo,
            .nStaffNo = nStaffNo,
            .iHokenIndex = iHokenIndex,
            .iExpireKind = iExpireKind,
            .bounds = rule.bounds(target, m_app.regional)};
}

LetterDates frmPrintInin::datesOf(const TargetDate &target) const
{
    const auto dayText = [this](const DateBox &box) { return formatText(box.Value, "yyyy/mm/dd", m_app.regional); };
    LetterDates dates{target, {}, {}, {}};
    if (iDspPeriodKind == 1) {
        dates.periodStart = firstOfMonthText(target, m_app.regional);
        dates.periodEnd = lastOfMonthText(target, m_app.regional);
    } else {
        dates.periodStart = dayText(imSetDateFrom);
        dates.periodEnd = dayText(imSetDateTo);
    }
    dates.signature = iSyomeiKind != 0 ? dayText(imSyomei) : dates.periodStart;
    return dates;
}

/// Reads the rows into aIninRow and returns the number of rows kept. The row index is a 16-bit number: the increment
/// after index 32,767 is an overflow, and that row is already kept.
std::int16_t frmPrintInin::readLetters(Recordset &rsData, const ExtractionRule &rule, const LetterDates &dates)
{
    LetterReader reader(rsData, m_app.regional);
    std::int16_t index = 0;
    for (; !rsData.isEndOfFile(); rsData.MoveNext()) {
        if (rule.lastVisit != nullptr && !isLastVisit(reader, *rule.lastVisit, dates.target)) continue;
        if (index > 0) aIninRow.emplace_back();
        reader.fill(aIninRow.back(), rule, dates);
        index = narrow(index + 1);
    }
    return index;
}

/// Every visit of the patient in the month counts, whichever staff member made it: a later visit by another one removes
/// the letter.
bool frmPrintInin::isLastVisit(LetterReader &reader, const LastVisitRule &rule, const TargetDate &target)
{
    return lastVisitDay(rule, reader.number(Column::nIDNo), target.year, target.month) == target.day;
}

std::int32_t frmPrintInin::lastVisitDay(const LastVisitRule &rule, std::int32_t nRiyoushaNo, std::int32_t nYear,
                                        std::int32_t nMonth)
try {
    const StartedSession own = startSession(m_app, heading(rule));
    if (!own.isConnected()) return iBad;
    ExtractionQuery query;
    query.iKyotenCd = m_app.iKyotenCd;
    query.iKyotenEb = m_app.iKyotenEb;
    query.nKanjaNo = nRiyoushaNo;
    query.bounds = rule.bounds(nYear, nMonth, m_app.regional);
    std::unique_ptr<Recordset> rsData = m_app.platform.database.newRecordset();
    if (openForward(*own.session, *rsData, lastVisitSql(rule, query)) != iGood) {
        headingBox(m_app, heading(rule), own.session->sErrMsg());
        static_cast<void>(own.session->iDisConnect());
        return iBad;
    }
    std::int32_t day = iBad;
    if (rsData->isEndOfFile())
        // Deliberate: both helpers show this text, although the second one is not getLastScheduleDay.
        headingBox(m_app, "getLastScheduleDay で０件取得", own.session->sErrMsg());
    else
        day = rule.dayOf(rsData->Value(rsData->fieldIndex(rule.column)), m_app.regional);
    close(*own.session, rsData);
    return day;
} catch (const RuntimeError &error) {
    // No box: the text is kept in the form, and the row is left out as if its day differed.
    csErrMsg = heading(rule) + numberLineText(error);
    return iBad;
}

} // namespace inin
