// Texts that the filters of both search lists match on the embedded database, as the server's usual Japanese collation
// does.

#include "search/embedded_search.h"

#include <doctest/doctest.h>

using namespace inin;

namespace {

struct Pair {
    const char *filter;
    const char *stored;
    bool isFound;
};

constexpr Pair kPairs[] = {
    // upper and lower case
    {"abc", "ABC", true},
    {"ABC", "abc", true},
    {"aBc", "AbC", true},
    {"abd", "ABC", false},
    {"ａｂｃ", "ＡＢＣ", true},
    // width of Latin characters, digits and signs
    {"ABC", "ＡＢＣ", true},
    {"ＡＢＣ", "abc", true},
    {"123", "１２３", true},
    {"１２３", "123", true},
    {"124", "１２３", false},
    {"１－２", "1-2", true},
    {"(株)", "（株）", true},
    {"山田 太郎", "山田　太郎", true},
    {"山田　太郎", "山田 太郎", true},
    {"山田太郎", "山田 太郎", false},
    // kana kind
    {"やまだ", "ヤマダ", true},
    {"ヤマダ", "やまだ", true},
    {"さとう", "サトウ", true},
    {"サトウ", "さとう", true},
    {"さとう", "サイトウ", false},
    {"ん", "ン", true},
    {"を", "ヲ", true},
    // width of kana
    {"ヤマモト", "ﾔﾏﾓﾄ", true},
    {"ﾔﾏﾓﾄ", "ヤマモト", true},
    {"やまもと", "ﾔﾏﾓﾄ", true},
    {"ﾔﾏﾓﾄ", "やまもと", true},
    {"ﾔﾏﾓﾄ", "ヤマモリ", false},
    {"ﾋｶﾙ", "ひかる", true},
    {"ﾏｰﾁ", "マーチ", true},
    {"マーチ", "まーち", true},
    // 濁点 and 半濁点 distinguish characters, precomposed or combining
    {"ﾔﾏﾀﾞ", "やまだ", true},
    {"ﾔﾏﾀﾞ", "ヤマダ", true},
    {"ﾔﾏﾀﾞ", "やまた", false},
    {"ﾔﾏﾀﾞ", "ヤマタ", false},
    {"やまた", "ﾔﾏﾀﾞ", false},
    {"ﾔﾏﾀ", "やまだ", false},
    {"ﾔﾏﾀ", "やまた", true},
    {"ヤマダ", "ﾔﾏﾀﾞ", true},
    {"か", "が", false},
    {"が", "ｶﾞ", true},
    {"ガ", "か", false},
    {"は", "ば", false},
    {"ば", "ぱ", false},
    {"ﾊﾟ", "ぱ", true},
    {"ぱ", "ﾊﾟ", true},
    {"パ", "ﾊﾞ", false},
    {"ヴ", "ｳﾞ", true},
    {"ウ", "ｳﾞ", false},
    // kanji match only themselves
    {"髙", "髙橋 﨑子", true},
    {"高", "髙橋", false},
    {"崎", "﨑", false},
    {"斎", "齋", false},
    {"橋", "髙橋 﨑子", true},
    // a part of the text, at any position
    {"木", "青木 一郎", true},
    {"青", "青木 一郎", true},
    {"郎", "青木 一郎", true},
    {"木 一", "青木 一郎", true},
    {"郎木", "青木 一郎", false},
    {"青木 一郎 様", "青木 一郎", false},
    // % is any sequence of characters
    {"青%郎", "青木 一郎", true},
    {"%", "青木", true},
    {"青%赤", "青木 一郎", false},
    {"１００％", "100%", true},
    {"１００％", "100点", false},
    // _ is one character
    {"青_一", "青木一郎", true},
    {"青_一", "青一郎", false},
    {"青__一", "青木一郎", false},
    {"青＿一", "青木一郎", false},
    {"ﾔﾏ_ｼ", "ヤマダシ", true},
    // [ ] is one of a class
    {"[青赤]木", "青木", true},
    {"[青赤]木", "赤木", true},
    {"[青赤]木", "白木", false},
    {"[^青]木", "白木", true},
    {"[^青]木", "青木", false},
    {"[a-c]1", "b1", true},
    {"[a-c]1", "d1", false},
    {"50[%]", "50%", true},
    {"50[%]", "500", false},
    {"a[_]b", "a_b", true},
    {"a[_]b", "axb", false},
    {"a[[]b", "a[b", true},
    {"a[b", "a[b", false}, // without its ] a class matches nothing
    {"a]b", "a]b", true},
};

} // namespace

TEST_CASE("name and kana filters of patients ignore case, width and kana kind, and distinguish 濁点")
{
    static_assert(std::size(kPairs) >= 60);
    EmbeddedSearch world;
    for (std::size_t index = 0; index < std::size(kPairs); ++index)
        world.patient(static_cast<std::int32_t>(index) + 1, kPairs[index].stored, kPairs[index].stored);
    frm患者検索 window(world.site);
    REQUIRE(window.iInit(0) == 0);
    open(window);
    for (std::size_t index = 0; index < std::size(kPairs); ++index) {
        const Pair &pair = kPairs[index];
        CAPTURE(pair.filter);
        CAPTURE(pair.stored);
        window.in_SiboriID.Value = static_cast<std::int32_t>(index) + 1;
        window.txt_SiboriName.Text = pair.filter;
        window.txt_SiboriKana.Text = "";
        press(window.but_Read);
        CHECK(window.spr_1ran.RowCount() == (pair.isFound ? 1 : 0));
        window.txt_SiboriName.Text = "";
        window.txt_SiboriKana.Text = pair.filter;
        press(window.but_Read);
        CHECK(window.spr_1ran.RowCount() == (pair.isFound ? 1 : 0));
    }
    CHECK(window.CsErrStr().empty());
}

TEST_CASE("name and kana filters of staff match in the same way")
{
    EmbeddedSearch world;
    for (std::size_t index = 0; index < std::size(kPairs); ++index)
        world.staff(static_cast<std::int32_t>(index) + 100, kPairs[index].stored, kPairs[index].stored);
    frm施術者検索 window(world.site);
    REQUIRE(window.iInit(0, 0, -1) == 0);
    open(window);
    for (std::size_t index = 0; index < std::size(kPairs); ++index) {
        const Pair &pair = kPairs[index];
        CAPTURE(pair.filter);
        CAPTURE(pair.stored);
        window.in_SiboriID.Value = static_cast<std::int32_t>(index) + 100;
        window.txt_SiboriName.Text = pair.filter;
        window.txt_SiboriKana.Text = pair.filter;
        press(window.but_Read);
        CHECK(window.spr_1ran.RowCount() == (pair.isFound ? 1 : 0));
    }
}
