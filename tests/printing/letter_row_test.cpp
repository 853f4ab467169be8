#include "printing/letter_row.h"

#include <doctest/doctest.h>

#include <set>

namespace inin {

TEST_CASE("a kind of bank gives its word, and any other kind none")
{
    struct Row {
        std::int16_t iKind;
        std::string_view word;
    };
    for (const Row &row : {Row{1, "銀行"}, Row{2, "金庫"}, Row{3, "農協"}, Row{4, "郵便局"}, Row{0, ""}, Row{5, ""},
                           Row{-1, ""}, Row{32767, ""}, Row{-32768, ""}}) {
        CAPTURE(row.iKind);
        CHECK(csKinyuKind(row.iKind) == row.word);
    }
}

TEST_CASE("a kind of bank office gives its word, and any other kind none")
{
    struct Row {
        std::int16_t iKind;
        std::string_view word;
    };
    for (const Row &row : {Row{1, "本店"}, Row{2, "支店"}, Row{3, "本所"}, Row{4, "支所"}, Row{5, "出張所"}, Row{0, ""},
                           Row{6, ""}, Row{-1, ""}}) {
        CAPTURE(row.iKind);
        CHECK(csSitenKind(row.iKind) == row.word);
    }
}

TEST_CASE("the bank line has two blanks between bank and office")
{
    CHECK(bankLine("みどり", 2, "中央", 1) == "みどり金庫  中央本店");
}

TEST_CASE("a bank line without names and kinds is just the two blanks")
{
    CHECK(bankLine("", 0, "", 0) == "  ");
}

TEST_CASE("the second bank line contains 銀行 and 支店 whatever the kinds")
{
    CHECK(secondBankLine("みどり金庫  中央本店", "みどり", "中央") == "みどり銀行  中央支店");
}

TEST_CASE("the second bank line is empty when the bank line is blank")
{
    CHECK(secondBankLine("  ", "", "") == "");
    CHECK(secondBankLine("", "", "") == "");
    CHECK(secondBankLine("       ", "  ", "   ") == "");
}

TEST_CASE("kinds without names still fill both bank lines")
{
    const std::string line = bankLine("", 1, "", 2);

    CHECK(line == "銀行  支店");
    CHECK(secondBankLine(line, "", "") == "銀行  支店");
}

TEST_CASE("a full-width blank counts as a bank's name")
{
    CHECK(secondBankLine(bankLine("　", 0, "", 0), "　", "") == "　銀行  支店");
}

TEST_CASE("the account line has the word of the account, one blank and the number")
{
    struct Row {
        std::int32_t iKozaType;
        std::string_view line;
    };
    for (const Row &row : {Row{1, "(普) 123"}, Row{2, "(当) 123"}, Row{3, "(通) 123"}, Row{4, "(別) 123"},
                           Row{5, " 123"}, Row{0, " 123"}, Row{-1, " 123"}, Row{70000, " 123"}}) {
        CAPTURE(row.iKozaType);
        CHECK(accountLine(row.iKozaType, "123") == row.line);
    }
}

TEST_CASE("a company without an account has an account line of one blank")
{
    CHECK(accountLine(0, "") == " ");
}

TEST_CASE("a new letter is empty in all its twenty fields")
{
    const IninRow letter;
    for (const IninField field : kIninFields) CHECK((letter.*field).view().empty());
}

TEST_CASE("the field list contains each field once, in the order of the columns")
{
    IninRow letter;
    std::set<const SharedText *> places;
    for (const IninField field : kIninFields) places.insert(&(letter.*field));

    CHECK(places.size() == 20);
    CHECK(&(letter.*kIninFields[0]) == &letter.対象開始日);
    CHECK(&(letter.*kIninFields[9]) == &letter.金融機関名);
    CHECK(&(letter.*kIninFields[16]) == &letter.世帯主電話);
    CHECK(&(letter.*kIninFields[17]) == &letter.世帯主住所);
    CHECK(&(letter.*kIninFields[18]) == &letter.金融機関名２);
    CHECK(&(letter.*kIninFields[19]) == &letter.署名日);
}

} // namespace inin
