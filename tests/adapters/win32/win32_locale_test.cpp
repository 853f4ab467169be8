#include "adapters/native/native_platform.h"
#include "runtime/conversion.h"
#include "system/win32_text.h"

#include <doctest/doctest.h>
#include <windows.h>

using namespace inin;

namespace {

/// Sets the user's short date format for one test.
class ShortDate {
public:
    explicit ShortDate(const wchar_t *picture)
    {
        GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, m_before, 80);
        REQUIRE(SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, picture) != 0);
    }
    ShortDate(const ShortDate &) = delete;
    ShortDate &operator=(const ShortDate &) = delete;
    ~ShortDate() { SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, m_before); }

private:
    wchar_t m_before[80] = {};
};

} // namespace

TEST_CASE("the short date is the user's own format")
{
    CHECK(makeSystemLocale()->regional().shortDate == "yyyy/MM/dd");
    const ShortDate form(L"d/M/yy");
    CHECK(makeSystemLocale()->regional().shortDate == "d/M/yy");
}

TEST_CASE("a date is written in the user's own format, with an era too, and is read back")
{
    struct Row {
        const wchar_t *picture;
        const char *text;
    };
    const Row rows[] = {{L"ggyy/MM/dd", "令和06/05/01"},
                        {L"ggy'年'M'月'd'日'", "令和6年5月1日"},
                        {L"d/M/yy", "1/5/24"},
                        {L"yyyy/MM/dd", "2024/05/01"}};
    for (const Row &row : rows) {
        const ShortDate form(row.picture);
        const Regional regional = makeSystemLocale()->regional();
        CAPTURE(row.text);
        CHECK(dateText(dateOf({2024, 5, 1}), regional) == row.text);
        CHECK(toDate(Variant(row.text), regional) == dateOf({2024, 5, 1}));
    }
}

TEST_CASE("the suite's text survives conversion to the ANSI code page and back")
{
    REQUIRE(GetACP() == 932);
    const auto locale = makeSystemLocale();
    CHECK(locale->toCodePage("委任状") == "\x88\xCF\x94\x43\x8F\xF3");
    CHECK(locale->fromCodePage("\xFB\xFC\x8B\xB4\xB1") == "髙橋ｱ");
}

TEST_CASE("a character that the code page lacks becomes one question mark, never a similar character")
{
    const auto locale = makeSystemLocale();
    CHECK(locale->toCodePage("é") == "?");
    CHECK(locale->toCodePage("¥") == "?");
    CHECK(locale->toCodePage("𠮷野") == "?\x96\xEC");
    CHECK(locale->toCodePage("a\xFFz") == "a?z");
}

TEST_CASE("a byte that is not a character becomes U+FFFD")
{
    const auto locale = makeSystemLocale();
    CHECK(locale->fromCodePage("a\x81") == "a\uFFFD");
    CHECK(locale->fromCodePage("\xFF z") == "\uFFFD z");
}

TEST_CASE("UTF-8 survives conversion to UTF-16 and back")
{
    CHECK(wideFromUtf8("髙𠮷") == L"\u9AD9\U00020BB7");
    CHECK(utf8FromWide(L"\u9AD9\U00020BB7") == "髙𠮷");
    CHECK(wideFromUtf8("").empty());
    CHECK(utf8FromWide(L"").empty());
}

TEST_CASE("the clock reports the local time of day with its fraction, and the same day in both calls")
{
    const auto clock = makeSystemClock();
    const double timer = clock->timer();
    CHECK(timer >= 0);
    CHECK(timer < 86400);
    SYSTEMTIME time{};
    GetLocalTime(&time);
    CHECK(partsOf(clock->now()).year == time.wYear);
    CHECK(partsOf(clock->now()).month == time.wMonth);
}
