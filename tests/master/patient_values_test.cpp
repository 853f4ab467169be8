// Single columns: the conversion of their values, and the columns with unexpected rules.

#include "master/patient_fixture.h"
#include "runtime/date.h"

#include <doctest/doctest.h>

#include <type_traits>

using namespace inin;

namespace {

using R = RIYOUSHA_REC;

struct SecondPeriod {
    const char *first;
    const char *second;
    Date R::*field;
};
constexpr SecondPeriod kSecondPeriods[] = {
    {"tHenkeSday", "tHenkeSday2", &R::tHenkeSday},       {"tHenKeEday", "tHenKeEday2", &R::tHenKeEday},
    {"tOnanSday", "tOnanSday2", &R::tOnanSday},          {"tOnanEday", "tOnanEday2", &R::tOnanEday},
    {"tDenkiSday", "tDenkiSday2", &R::tDenkiSday},       {"tDenkiEday", "tDenkiEday2", &R::tDenkiEday},
    {"tHKHariSday", "tHKHariSday2", &R::tHKHariSday},    {"tHKHariEday", "tHKHariEday2", &R::tHKHariEday},
    {"tHKKyuSday", "tHKKyuSday2", &R::tHKKyuSday},       {"tHKKyuEday", "tHKKyuEday2", &R::tHKKyuEday},
    {"tHKDenkiSday", "tHKDenkiSday2", &R::tHKDenkiSday}, {"tHKDenkiEday", "tHKDenkiEday2", &R::tHKDenkiEday},
};

const Date kFirst = DateSerial(2023, 4, 1);
const Date kSecond = DateSerial(2024, 4, 1);

/// The field after a read of both columns of a period.
Date period(const SecondPeriod &row, const Variant &first, const Variant &second)
{
    return recordOf({{row.first, first}, {row.second, second}}).*row.field;
}

} // namespace

TEST_CASE("a second period that is NULL keeps the first")
{
    for (const SecondPeriod &row : kSecondPeriods) {
        CAPTURE(row.second);
        CHECK(period(row, kFirst, Null{}) == kFirst);
    }
}

TEST_CASE("a second period overrides the first, at any position in the row")
{
    for (const SecondPeriod &row : kSecondPeriods) {
        CAPTURE(row.second);
        CHECK(period(row, kFirst, kSecond) == kSecond);
        CHECK(recordOf({{row.second, kSecond}, {row.first, kFirst}}).*row.field == kSecond);
    }
}

TEST_CASE("a second period is used if the first is NULL")
{
    for (const SecondPeriod &row : kSecondPeriods) {
        CAPTURE(row.second);
        CHECK(period(row, Null{}, kSecond) == kSecond);
    }
}

TEST_CASE("a second period that is not a date keeps the first")
{
    for (const SecondPeriod &row : kSecondPeriods) {
        CAPTURE(row.second);
        CHECK(period(row, kFirst, "未定") == kFirst);
    }
}

TEST_CASE("iRoomAnbunUmu is stored in the end of the renewed consent")
{
    struct Row {
        const char *claim;
        Variant anbun;
        Date expected;
    };
    const Row rows[] = {
        {"NULL keeps the stored date", Null{}, kFirst},
        {"0 is the date of the number 0", std::int16_t{0}, Date(0)},
        {"1 is the day after", std::int16_t{1}, Date(1)},
        {"a date replaces it", kSecond, kSecond},
        {"a text that is a date replaces it", "2024/04/01", kSecond},
        {"a text that is no date keeps it", "有", kFirst},
        {"a number beyond all dates keeps it", 2958466, kFirst},
    };
    for (const Row &row : rows) {
        CAPTURE(row.claim);
        const R rec = recordOf({{"tDouishoSaishutokuTo", kFirst}, {"iRoomAnbunUmu", row.anbun}});
        CHECK(rec.tDouishoSaishutokuTo == row.expected);
        CHECK(rec.tDouishoSaishutokuFrom == Date());
    }
}

TEST_CASE("telephone numbers have 14 characters, postal codes 8")
{
    struct Row {
        const char *claim;
        Variant value;
        std::string tel;
        std::string yubin;
    };
    const Row rows[] = {
        {"longer ones are cut", "03-1234-5678-901", "03-1234-5678-9", "03-1234-"},
        {"shorter ones end in blanks", "06", "06            ", "06      "},
        {"NULL is blanks", Null{}, "              ", "        "},
        {"the empty text is blanks", "", "              ", "        "},
        {"a number is its digits", 1234567, "1234567       ", "1234567 "},
        {"full-width digits count as one each", "０３－１２３４－５６７８内線９９", "０３－１２３４－５６７８内線",
         "０３－１２３４－"},
        {"a pair is never split", "1234567890123𠮷", "1234567890123 ", "12345678"},
        {"bytes leave it full of NULs", Binary{std::byte{1}}, std::string(14, '\0'), std::string(8, '\0')},
    };
    for (const Row &row : rows) {
        CAPTURE(row.claim);
        const R rec = recordOf({{"cTelNo", row.value}, {"cYubinNo", row.value}});
        CHECK(rec.cTelNo.text() == row.tel);
        CHECK(rec.cYubinNo.text() == row.yubin);
    }
}

TEST_CASE("a missing fixed column leaves its field full of NULs, unlike NULL")
{
    CHECK(recordOf({{"cFaxNo", Null{}}}).cTelNo.text() == std::string(14, '\0'));
}

TEST_CASE("a name that is NULL is the empty name of a patient who was found")
{
    PatientFixture fixture({{"nIDNo", 101}, {"cName", Null{}}});
    CHECK(fixture.read() == -1);
    CHECK(fixture.rec.cName.empty());
    CHECK(fixture.rec.nIDNo == 101);
}

TEST_CASE("texts keep their blanks, and other values are stored as their default text")
{
    struct Row {
        Variant value;
        const char *text;
    };
    const Row rows[] = {
        {"　山田 ", "　山田 "}, {12, "12"}, {0.5, "0.5"}, {DateSerial(2024, 5, 1), "2024/05/01"}, {"", ""},
    };
    for (const Row &row : rows) {
        CAPTURE(row.text);
        const R rec = recordOf({{"cName", row.value}, {"cCityNo", row.value}});
        CHECK(rec.cName == row.text);
        CHECK(rec.cCityNo == row.text);
    }
}

TEST_CASE("tHatsubyou and tSyoryoDay are texts, whether the column is a text or a date")
{
    const R words = recordOf({{"tHatsubyou", "昨年の春"}, {"tSyoryoDay", "不詳"}});
    CHECK(words.tHatsubyou == "昨年の春");
    CHECK(words.tSyoryoDay == "不詳");
    const R dates = recordOf({{"tHatsubyou", kFirst}, {"tSyoryoDay", kSecond}});
    CHECK(dates.tHatsubyou == "2023/04/01");
    CHECK(dates.tSyoryoDay == "2024/04/01");
}

TEST_CASE("numbers are converted by the rules of the runtime")
{
    struct Row {
        const char *claim;
        Variant value;
        std::int32_t guarded;
        std::int32_t zero;
    };
    const Row rows[] = {
        {"a text of digits", "12", 12, 12},
        {"blanks around them", " 12 ", 12, 12},
        {"a half goes to the even neighbour", 2.5, 2, 2},
        {"the other half too", 3.5, 4, 4},
        {"the least", -2147483647 - 1, -2147483647 - 1, -2147483647 - 1},
        {"NULL", Null{}, 0, 0},
        {"the empty text", "", 0, 0},
        {"no number", "A12", 0, 0},
        {"beyond 32 bits", "2147483648", 0, 0},
        {"a date is its days", Date(45000), 45000, 45000},
    };
    for (const Row &row : rows) {
        CAPTURE(row.claim);
        const R rec = recordOf({{"nIDNo", row.value}, {"nDairiID", row.value}});
        CHECK(rec.nIDNo == row.guarded);
        CHECK(rec.nDairiID == row.zero);
    }
}

// "&HFFFF" is 65535 if the number is first converted to 32 bits, as rule zero does, and -1 otherwise.
TEST_CASE("a number of rule zero is narrowed to 16 bits or left at 0")
{
    struct Row {
        Variant value;
        std::int16_t expected;
    };
    const Row rows[] = {
        {Null{}, 0}, {"無", 0}, {"12", 12}, {32767, 32767}, {32768, 0}, {-32768, -32768}, {-32769, 0}, {"&HFFFF", 0},
    };
    for (const char *column : {"iSejutuBui11", "iOnan1", "iHKHari1Umu"}) {
        for (const Row &row : rows) {
            CAPTURE(column);
            const R rec = recordOf({{column, row.value}});
            CHECK(rec.iSejutuBui11 + rec.iOnan1 + rec.iHKHari1Umu == row.expected);
        }
    }
}

TEST_CASE("a number of a guarded 16-bit column is converted directly to 16 bits")
{
    struct Row {
        Variant value;
        std::int16_t expected;
    };
    const Row rows[] = {
        {Null{}, 0}, {"無", 0}, {" 12", 12}, {2.5, 2}, {32767, 32767}, {32768, 0}, {-32768, -32768}, {"&HFFFF", -1},
    };
    for (const Row &row : rows) {
        CAPTURE(row.expected);
        CHECK(recordOf({{"iSex", row.value}}).iSex == row.expected);
    }
}

TEST_CASE("fields with a misleading prefix have the suite's types")
{
    static_assert(std::is_same_v<decltype(R::cFMCode), std::int32_t>);
    static_assert(std::is_same_v<decltype(R::iHoseUmu), std::int32_t>);
    static_assert(std::is_same_v<decltype(R::iHoseCol), std::int32_t>);
    static_assert(std::is_same_v<decltype(R::iHoseCut), std::int32_t>);
    static_assert(std::is_same_v<decltype(R::iOuryouKyoka), std::int32_t>);
    const R rec = recordOf(
        {{"cFMCode", "70000"}, {"iHoseUmu", 70001}, {"iHoseCol", 70002}, {"iHoseCut", 70003}, {"iOuryouKyoka", 70004}});
    CHECK(rec.cFMCode == 70000);
    CHECK(rec.iHoseUmu == 70001);
    CHECK(rec.iHoseCol == 70002);
    CHECK(rec.iHoseCut == 70003);
    CHECK(rec.iOuryouKyoka == 70004);
}
