#include "viewer/letters/letter_table.h"

#include <doctest/doctest.h>

#include <string>

using namespace inin::viewer;

TEST_CASE("each reason why a row cannot be read has its sentence")
{
    struct Case {
        RowFault fault;
        const char *sentence;
    };
    for (const Case &each : {Case{RowFault::none, ""},
                             {RowFault::notQuoted, "行の始まりか終わりに引用符がありません。"},
                             {RowFault::cutOff, "行が途中で切れています。"},
                             {RowFault::tooFewColumns, "列の数が見出し行より少ない行です。"},
                             {RowFault::tooManyColumns, "列の数が見出し行より多い行です。"},
                             {RowFault::ambiguous, "値の中の引用符のため、列の区切りを決められません。"}}) {
        CAPTURE(std::string(each.sentence));
        CHECK(faultText(each.fault) == each.sentence);
    }
}

TEST_CASE("a faulty row keeps its raw text and has no values")
{
    LetterRows rows(2, "甲乙\"切れた");
    const std::string_view text = rows.text();
    rows.addRow({text.substr(0, 3), text.substr(3, 3)});
    rows.addFaultyRow(RowFault::cutOff, text.substr(6));
    CHECK(rows.size() == 2);
    CHECK(rows.value(0, 1) == "乙");
    CHECK(rows.rawText(0) == "");
    CHECK(rows.fault(1) == RowFault::cutOff);
    CHECK(rows.value(1, 0) == "");
    CHECK(rows.rawText(1) == "\"切れた");
}
