#include "demo_site/demo_tables.h"

#include "demo_site/demo_irregularities.h"

#include <array>

namespace inin::site {

namespace {

constexpr std::string_view kPlannedColumns[] = {"iKyotenCd", "iKyotenEb", "nIDRiyoushaNo", "nIDStaffNo", "nDate"};
constexpr std::string_view kActualColumns[] = {"iKyotenCd", "iKyotenEb", "nRiyoushaIDNo", "nStaffIDNo",
                                               "tServicyDayStart"};

constexpr int kFirstMinute = 9 * 60;
constexpr int kMinutesBetween = 30;
constexpr int kLastSlot = 16; // 17:00

struct Visits {
    RowSink &planned;
    RowSink &actual;
};

bool isVisitDay(const Patient &patient, Day day)
{
    if (patient.expire && day > *patient.expire) return false;
    return (patient.weekdays >> std::chrono::weekday{day}.c_encoding() & 1U) != 0;
}

/// One visit in twenty is cancelled; one in ten is made by the second member of staff, planned or actual.
void writeVisit(const Visits &visits, const Patient &patient, Day day, Dice &dice)
{
    const std::int64_t staff = patient.staff[dice.oneIn(10) ? 1 : 0];
    const std::int64_t substitute = patient.staff[dice.oneIn(10) ? 2 : 0];
    const int minute = kFirstMinute + kMinutesBetween * dice.between(0, kLastSlot);
    const bool isCalledOff = dice.oneIn(20);
    visits.planned.row({kBranchCode, kBranchSubCode, patient.number, staff, dayNumber(day)});
    if (isCalledOff) return;
    visits.actual.row({kBranchCode, kBranchSubCode, patient.number, substitute, isoText(day, minute)});
}

/// The last day is planned twice, and two actual visits share the latest time: each case produces a second letter.
void writeSecondVisit(const Visits &visits, const Patient &patient, Day day)
{
    constexpr int kEvening = 19 * 60;
    const std::int64_t staff = patient.staff[0];
    visits.planned.row({kBranchCode, kBranchSubCode, patient.number, staff, dayNumber(day)});
    for (int i = 0; i < 2; ++i) {
        visits.actual.row({kBranchCode, kBranchSubCode, patient.number, staff, isoText(day, kEvening)});
    }
}

void writeMonth(const Visits &visits, const Patient &patient, YearMonth month, Dice &dice)
{
    std::optional<Day> last;
    for (Day day = dayOfMonth(month, 1); day <= lastDayOf(month); day += std::chrono::days{1}) {
        if (!isVisitDay(patient, day)) continue;
        writeVisit(visits, patient, day, dice);
        last = day;
    }
    if (last && kTwiceADay.has(patient.number)) writeSecondVisit(visits, patient, *last);
}

/// Visits that were created but never filled in: each column except the branch is NULL once.
void writeUnfinishedVisits(const Visits &visits, YearMonth month)
{
    const Day day = dayOfMonth(month, 15);
    const std::int64_t patient = 1;
    const std::int64_t staff = 1;
    visits.planned.row({kBranchCode, kBranchSubCode, kNull, staff, dayNumber(day)});
    visits.planned.row({kBranchCode, kBranchSubCode, patient, kNull, dayNumber(day)});
    visits.planned.row({kBranchCode, kBranchSubCode, patient, staff, kNull});
    visits.actual.row({kBranchCode, kBranchSubCode, kNull, staff, isoText(day, kFirstMinute)});
    visits.actual.row({kBranchCode, kBranchSubCode, patient, kNull, isoText(day, kFirstMinute)});
    visits.actual.row({kBranchCode, kBranchSubCode, patient, staff, kNull});
}

} // namespace

void writeVisits(RowTarget &database, const SiteOrder &order)
{
    const Visits visits{database.into("SCHEDULE", kPlannedColumns), database.into("JISSEKI", kActualColumns)};
    const std::chrono::months oneMonth{1};
    const std::array months{order.month - oneMonth, order.month, order.month + oneMonth};
    for (std::int64_t number = 1; number <= order.patients; ++number) {
        const Patient patient = makePatient(order, number);
        Dice dice = diceFor(order, Kind::visits, number);
        for (const YearMonth month : months) {
            if (month == order.month && kAway.has(number)) continue;
            writeMonth(visits, patient, month, dice);
        }
    }
    writeUnfinishedVisits(visits, order.month);
}

} // namespace inin::site
