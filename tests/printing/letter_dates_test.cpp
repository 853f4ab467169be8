#include "printing/letter_dates.h"

#include "support/errors.h"

#include <doctest/doctest.h>

#include <limits>

namespace inin {

namespace {
const Regional kJapanese;
TargetDate target(const std::string &text)
{
    return TargetDate(text, kJapanese);
}
} // namespace

TEST_CASE("the bounds of the visits depend on the target date")
{
    struct Row {
        const char *what;
        VisitBounds (TargetDate::*bounds)() const;
        const char *target;
        const char *lower;
        const char *upper;
    };
    for (const Row &row : {
             Row{"planned month from day 1 to day 99", &TargetDate::scheduleMonth, "2024/05/1", "20240501", "20240599"},
             Row{"planned month of December stays in its year", &TargetDate::scheduleMonth, "2024/12/1", "20241201",
                 "20241299"},
             Row{"actual month up to below the first of the next", &TargetDate::jissekiMonth, "2024/05/1", "2024/05/01",
                 "2024/06/01"},
             Row{"actual December up to below January", &TargetDate::jissekiMonth, "2024/12/1", "2024/12/01",
                 "2025/01/01"},
             Row{"actual month of a date joined by hand", &TargetDate::jissekiMonth, "2024/6/5", "2024/06/01",
                 "2024/07/01"},
             Row{"planned day is one number", &TargetDate::scheduleDay, "2024/02/29", "20240229", ""},
             Row{"actual day up to below the next", &TargetDate::jissekiDay, "2024/05/28", "2024/05/28", "2024/05/29"},
             Row{"day 31 rolls into the next month", &TargetDate::jissekiDay, "2024/05/31", "2024/05/31", "2024/06/01"},
             Row{"the last day of the year rolls into the next", &TargetDate::jissekiDay, "2024/12/31", "2024/12/31",
                 "2025/01/01"},
             Row{"28 February before a 29th", &TargetDate::jissekiDay, "2024/02/28", "2024/02/28", "2024/02/29"},
             Row{"29 February rolls into March", &TargetDate::jissekiDay, "2024/02/29", "2024/02/29", "2024/03/01"},
             Row{"no period knows no bounds", &TargetDate::noBounds, "2024/05/1", "", ""},
         }) {
        CAPTURE(row.what);
        const TargetDate date = target(row.target);
        const VisitBounds bounds = (date.*row.bounds)();
        CHECK(bounds.lower == row.lower);
        CHECK(bounds.upper == row.upper);
    }
}

TEST_CASE("dates in a statement use the short-date setting, except the first of the month")
{
    const Regional german{"dd.MM.yyyy"};
    const TargetDate day("2024/05/28", german);

    CHECK(day.jissekiDay().lower == "28.05.2024");
    CHECK(day.jissekiDay().upper == "29.05.2024");
    CHECK(day.jissekiMonth().lower == "2024/05/01");
    CHECK(day.jissekiMonth().upper == "01.06.2024");
    CHECK(day.lastOfMonth() == "31.05.2024");
}

TEST_CASE("the bounds of a planned month for the day helper begin at day 00")
{
    const VisitBounds bounds = VisitMonth{2024, 5, kJapanese}.scheduleFromZero();

    CHECK(bounds.lower == "20240500");
    CHECK(bounds.upper == "20240599");
}

TEST_CASE("the bounds of an actual month for the day helper continue into the next year")
{
    const VisitBounds bounds = VisitMonth{2024, 12, kJapanese}.jissekiByDates();

    CHECK(bounds.lower == "2024/12/01");
    CHECK(bounds.upper == "2025/01/01");
}

TEST_CASE("a year or month beyond 32 bits of the visit number is an overflow")
{
    CHECK(errorOf([] { return VisitMonth{300000, 1, kJapanese}.scheduleFromZero(); }) == 6);
    constexpr std::int32_t kLast = std::numeric_limits<std::int32_t>::max();
    CHECK(errorOf([] { return VisitMonth{2024, kLast, kJapanese}.jissekiByDates(); }) != 0);
}

TEST_CASE("the last day of the target month is correct in every month")
{
    struct Row {
        const char *target;
        const char *last;
    };
    for (const Row &row :
         {Row{"2024/02/1", "2024/02/29"}, Row{"2023/02/1", "2023/02/28"}, Row{"2024/12/1", "2024/12/31"},
          Row{"2024/04/1", "2024/04/30"}, Row{"2024/05/31", "2024/05/31"}}) {
        CAPTURE(row.target);
        CHECK(target(row.target).lastOfMonth() == row.last);
    }
}

} // namespace inin
