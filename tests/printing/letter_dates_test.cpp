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
        VisitBounds (*bounds)(const TargetDate &, const Regional &);
        const char *target;
        const char *lower;
        const char *upper;
    };
    for (const Row &row : {
             Row{"planned month from day 1 to day 99", scheduleMonth, "2024/05/1", "20240501", "20240599"},
             Row{"planned month of December stays in its year", scheduleMonth, "2024/12/1", "20241201", "20241299"},
             Row{"actual month up to below the first of the next", jissekiMonth, "2024/05/1", "2024/05/01",
                 "2024/06/01"},
             Row{"actual December up to below January", jissekiMonth, "2024/12/1", "2024/12/01", "2025/01/01"},
             Row{"actual month of a date joined by hand", jissekiMonth, "2024/6/5", "2024/06/01", "2024/07/01"},
             Row{"planned day is one number", scheduleDay, "2024/02/29", "20240229", ""},
             Row{"actual day up to below the next", jissekiDay, "2024/05/28", "2024/05/28", "2024/05/29"},
             Row{"day 31 rolls into the next month", jissekiDay, "2024/05/31", "2024/05/31", "2024/06/01"},
             Row{"the last day of the year rolls into the next", jissekiDay, "2024/12/31", "2024/12/31", "2025/01/01"},
             Row{"28 February before a 29th", jissekiDay, "2024/02/28", "2024/02/28", "2024/02/29"},
             Row{"29 February rolls into March", jissekiDay, "2024/02/29", "2024/02/29", "2024/03/01"},
             Row{"no period knows no bounds", noBounds, "2024/05/1", "", ""},
         }) {
        CAPTURE(row.what);
        const VisitBounds bounds = row.bounds(target(row.target), kJapanese);
        CHECK(bounds.lower == row.lower);
        CHECK(bounds.upper == row.upper);
    }
}

TEST_CASE("dates in a statement use the short-date setting, except the first of the month")
{
    const Regional german{"dd.MM.yyyy"};
    const TargetDate day("2024/05/28", german);

    CHECK(jissekiDay(day, german).lower == "28.05.2024");
    CHECK(jissekiDay(day, german).upper == "29.05.2024");
    CHECK(jissekiMonth(day, german).lower == "2024/05/01");
    CHECK(jissekiMonth(day, german).upper == "01.06.2024");
    CHECK(lastOfMonthText(day, german) == "31.05.2024");
}

TEST_CASE("the bounds of a planned month for the day helper begin at day 00")
{
    const VisitBounds bounds = scheduleMonthFromZero(2024, 5, kJapanese);

    CHECK(bounds.lower == "20240500");
    CHECK(bounds.upper == "20240599");
}

TEST_CASE("the bounds of an actual month for the day helper continue into the next year")
{
    const VisitBounds bounds = jissekiMonthByDates(2024, 12, kJapanese);

    CHECK(bounds.lower == "2024/12/01");
    CHECK(bounds.upper == "2025/01/01");
}

TEST_CASE("a year or month beyond 32 bits of the visit number is an overflow")
{
    CHECK(errorOf([] { return scheduleMonthFromZero(300000, 1, kJapanese); }) == 6);
    CHECK(errorOf([] { return jissekiMonthByDates(2024, std::numeric_limits<std::int32_t>::max(), kJapanese); }) != 0);
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
        CHECK(lastOfMonthText(target(row.target), kJapanese) == row.last);
    }
}

} // namespace inin
