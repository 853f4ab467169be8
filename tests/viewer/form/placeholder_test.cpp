#include "runtime/runtime_error.h"
#include "viewer/form/date_pattern.h"
#include "viewer/form/placeholder.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;

TEST_CASE("a text is split into literal text and placeholders")
{
    const auto pieces = readPieces("私は{{利用者氏名}}、{{ 署名日 | ggge年m月d日 |　年　月　日}}");
    REQUIRE(pieces.size() == 4);
    CHECK(pieces[0].literal == "私は");
    CHECK(pieces[1].column == "利用者氏名");
    CHECK(pieces[2].literal == "、");
    CHECK(pieces[3].column == "署名日");
    CHECK(pieces[3].pattern == "ggge年m月d日");
    CHECK(pieces[3].whenBlank == "　年　月　日");
}

TEST_CASE("a text without braces is one literal piece, and single braces are plain characters")
{
    REQUIRE(readPieces("a{b}c").size() == 1);
    CHECK(readPieces("a{b}c")[0].literal == "a{b}c");
    CHECK(readPieces("").empty());
}

TEST_CASE("braces that are not closed or contain no name are refused")
{
    CHECK_THROWS_WITH_AS(static_cast<void>(readPieces("a{{b")), "「a{{b」の「{{」が閉じられていません。", RuntimeError);
    CHECK_THROWS_WITH_AS(static_cast<void>(readPieces("{{|x}}")), "「{{|x}}」に列の名前がありません。", RuntimeError);
}

TEST_CASE("a date is formatted with its era, and the first year is 元")
{
    struct Case {
        std::string text, pattern, written;
    };
    const Case cases[] = {
        {"2024/05/01", "ggge年m月d日", "令和6年5月1日"},
        {"2019/05/01", "ggge年m月d日", "令和元年5月1日"},
        {"2019/12/31", "gggee年mm月dd日", "令和元年12月31日"},
        {"2019/04/30", "ggge年m月d日", "平成31年4月30日"},
        {"1989/01/08", "ggge年m月d日", "平成元年1月8日"},
        {"1989/01/07", "ggge年m月d日", "昭和64年1月7日"},
        {"1926/12/25", "gge.m.d", "昭元.12.25"},
        {"2019/05/01", "yyyy/mm/dd", "2019/05/01"},
        {"24/05/28", "ggge年m月d日", "令和6年5月28日"},
        {"2024/05/28", "\"e\"e", "e6"},
        {"2019/05/28", "\"e\"e\\e", "e元e"},
        {"2024/5/1", "m/d", "5/1"},
    };
    for (const Case &each : cases) {
        CAPTURE(each.text);
        CAPTURE(each.pattern);
        CHECK(formattedDate(each.text, each.pattern) == each.written);
    }
}

TEST_CASE("a text that is not a date has no formatted date")
{
    for (const char *text : {"", "二十日", "2024/02/30x", "10:30", "12"}) {
        CAPTURE(text);
        CHECK_FALSE(formattedDate(text, "ggge年m月d日"));
    }
}

TEST_CASE("a pattern with an equals sign is a list of words for codes, of which the first entry of a code counts")
{
    const auto pieces = readPieces("{{保険種別|1=社保; 2 = 国保 ;2=二番目;*=その他|未登録}}");
    REQUIRE(pieces.size() == 1);
    CHECK(pieces[0].column == "保険種別");
    CHECK(pieces[0].pattern.empty());
    CHECK(pieces[0].whenBlank == "未登録");
    CHECK(*pieces[0].words.wordFor("1") == "社保");
    CHECK(*pieces[0].words.wordFor("　2 ") == "国保");
    CHECK(*pieces[0].words.wordFor("22") == "その他");
    CHECK(readPieces("{{a|1=社保}}")[0].words.wordFor("2") == nullptr);
    CHECK(readPieces("{{a|\"=\"m月}}")[0].pattern == "\"=\"m月");
    CHECK_THROWS_WITH_AS(static_cast<void>(readPieces("{{a|1=社保;国保}}")),
                         "コードの一覧の「国保」に「=」がありません。", RuntimeError);
}

TEST_CASE("a list of ten thousand words is read, and each word is found")
{
    std::string list;
    for (int i = 0; i < 10'000; ++i) list += std::to_string(i) + "=語" + std::to_string(i) + ";";
    const auto pieces = readPieces("{{a|" + list + "}}");
    REQUIRE(pieces.size() == 1);
    CHECK(pieces[0].words.words.size() == 10'000);
    for (const int i : {0, 9, 999, 9'999})
        CHECK(*pieces[0].words.wordFor(std::to_string(i)) == "語" + std::to_string(i));
    CHECK(pieces[0].words.wordFor("10000") == nullptr);
}

TEST_CASE("a blank date is written as blanks with the pattern's own characters")
{
    CHECK(blankDate("ggge年m月d日") == "　　　　年　　月　　日");
    CHECK(blankDate("yyyy/mm/dd") == "　　　　/　　/　　");
    CHECK(blankDate("\"令和\"e年\\m") == "令和　　年m");
    CHECK(blankDate("") == "");
}
