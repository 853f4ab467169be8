#include "viewer/ledger/ledger_records.h"

#include "viewer/ledger/ledger_world.h"

#include <doctest/doctest.h>

using namespace inin::viewer;
using namespace inin::viewer::test;

TEST_CASE("months are read as they are written, and no other text is read")
{
    constexpr MonthRange kYears{monthNumber(2025, 12), monthNumber(2027, 1)};
    CHECK(monthRangeText(kDecember) == "2026-12");
    CHECK(monthRangeText(kYears) == "2025-12..2027-01");
    for (const MonthRange &months : {kNovember, kDecember, kYears, MonthRange{0, monthNumber(9999, 12)}}) {
        CAPTURE(monthRangeText(months));
        CHECK(readMonthRange(monthRangeText(months)) == months);
    }
    for (const char *text : {"", "2026", "2026-1", "2026-00", "2026-13", "2026/11", "2026-1x", "x026-11", "-026-11",
                             "2026-111", "2026-11..", "..2026-11", "2026-11..2026-10", "2026-11...2026-12"}) {
        CAPTURE(std::string(text));
        CHECK_FALSE(readMonthRange(text));
    }
}
