#include "viewer/ledger/ledger_records.h"

#include "viewer/ledger/ledger_world.h"
#include "viewer/ledger/text_codec.h"

#include <doctest/doctest.h>

using namespace inin::viewer;
using namespace inin::viewer::test;

TEST_CASE("a text is stored after its length plus one, in bytes of seven bits, the lowest first")
{
    const std::string text(200, 'x');
    CHECK(encodedList({"ab", text}) == "\x03"
                                       "ab"
                                       "\xC9\x01" +
                                           text);
    CHECK(decodedList("\x03"
                      "ab"
                      "\xC9\x01" +
                      text) == std::vector<std::string>{"ab", text});
}

TEST_CASE("what became of a code has these names in JSON")
{
    using enum CodeResult;
    std::string names;
    for (const CodeResult result : {marked, already, unreadable, otherLedger, unknown, notRecorded})
        names.append(wordsOf(result).name).append(" ");
    CHECK(names == "marked already unreadable otherLedger unknown notRecorded ");
}

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
