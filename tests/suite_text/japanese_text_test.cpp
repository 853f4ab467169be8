#include "suite_text/japanese_text.h"

#include <doctest/doctest.h>

#include <string>
#include <string_view>

using namespace inin;

namespace {

struct TextPair {
    std::string_view a, b;
    bool same;
};
constexpr TextPair kPairs[] = {
    // width
    {"ABC", "ＡＢＣ", true},
    {"123", "１２３", true},
    {"a-1", "ａ－１", true},
    {"(株)", "（株）", true},
    {"a b", "a　b", true},
    {"ｱｲｳ", "アイウ", true},
    {"ｶﾞｷﾞ", "ガギ", true},
    {"ﾊﾟﾋﾟ", "パピ", true},
    {"ｳﾞ", "ヴ", true},
    {"ﾜﾞ", "ヷ", true},
    {"ｦﾞ", "ヺ", true},
    {"ﾔﾏﾀﾞ", "ヤマダ", true},
    {"ｰ", "ー", true},
    {"｡｢｣､･", "。「」、・", true},
    {"￥", "¥", true},
    {"￠￡￢￣￤￦", "¢£¬¯¦₩", true},
    {"ﾞ", "゛", true},
    {"ﾟ", "゜", true},
    {"！", "!", true},
    {"～", "~", true},
    // case
    {"abc", "ABC", true},
    {"ａｂｃ", "ＡＢＣ", true},
    {"ａbＣ", "ABc", true},
    {"é", "É", true},
    {"α", "Α", true},
    {"ω", "Ω", true},
    {"я", "Я", true},
    {"ё", "Ё", true},
    {"ⅳ", "Ⅳ", true},
    {"ⓐ", "Ⓐ", true},
    {"÷", "×", false},
    {"Ōta", "ōTA", true},
    {"ō", "o", false},
    {"Š", "š", true},
    {"Ÿ", "ÿ", true},
    {"Ż", "ż", true},
    {"Ź", "ż", false},
    {"Ǎ", "ǎ", true},
    {"Ấ", "ấ", true},
    {"Ά", "ά", true},
    {"Ώ", "ώ", true},
    {"Ґ", "ґ", true},
    {"ʼ", "ʽ", false},
    // kana
    {"やまだ", "ヤマダ", true},
    {"やまだ", "ﾔﾏﾀﾞ", true},
    {"やまだ", "ﾔﾏﾀ", false},
    {"やまだ", "やまた", false},
    {"やまだ", "ヤマタ", false},
    {"ゔ", "ヴ", true},
    {"ゝ", "ヽ", true},
    {"ゞ", "ヾ", true},
    {"ゑゐ", "ヱヰ", true},
    {"ん", "ﾝ", true},
    {"を", "ｦ", true},
    // small kana equal large ones, like upper and lower case
    {"きょう", "キヨウ", true},
    {"っ", "ツ", true},
    {"ｯ", "つ", true},
    {"ゃゅょ", "ヤユヨ", true},
    {"ぁぃぅぇぉ", "アイウエオ", true},
    {"ヵヶ", "カケ", true},
    {"ゎ", "ワ", true},
    // 濁点 and 半濁点 are significant
    {"か", "が", false},
    {"は", "ば", false},
    {"は", "ぱ", false},
    {"ば", "ぱ", false},
    {"ハ", "ﾊﾞ", false},
    {"た", "だ", false},
    // combining 濁点 and 半濁点
    {"か\u3099", "が", true},
    {"カ゛", "ガ", true},
    {"か゛", "ｶﾞ", true},
    {"ハ゜", "パ", true},
    {"カ゜", "カ", false},
    {"ガ゛", "ガ", false},
    {"ア゛", "ア", false},
    {"山カ゛", "山ガ", true},
    {"カ゛", "カ゜", false},
    {"ハ\u309A", "パ", true},
    {"あ\u3099", "あ", false},
    // accents are significant
    {"e", "é", false},
    {"n", "ñ", false},
    // the long vowel mark differs from the vowel
    {"カー", "カア", false},
    // trailing blanks
    {"山田", "山田  ", true},
    {"山田", "山田　", true},
    {"山田 ", "山 田", false},
    {" 山田", "山田", false},
    {"", "   ", true},
    {"a", "a\t", false},
    {"山田 　 ", "山田", true},
    {"　", "", true},
    // variation selectors are ignored
    {"葛\U000E0100城", "葛城", true},
    {"葛\U000E0100城", "葛\U000E0101城", true},
    {"辻\uFE00", "辻", true},
    {"辻\uFE0F 　\U000E01EF", "辻", true},
    {"カ\uFE00゛", "ガ", true},
    {"葛\uFE10", "葛", false},
    {"葛\U000E01F0", "葛", false},
    // invalid bytes do not combine with adjacent characters
    {"カ\xE3\x82", "ガ", false},
    {"山\xE3\x80", "山", false},
    {"山\xE3\x80\x80\x80", "山\xE3\x80\x80\xFF", true},
    // kanji
    {"高", "髙", false},
    {"斉", "斎", false},
    {"山田", "山本", false},
    {"𠮷", "吉", false},
    {"", "a", false},
};

} // namespace

TEST_CASE("texts are compared without case, width and kana type, but with 濁点 and accents")
{
    for (const TextPair &pair : kPairs) {
        CAPTURE(pair.a);
        CAPTURE(pair.b);
        CHECK((compareJapanese(pair.a, pair.b) == 0) == pair.same);
        CHECK((compareJapanese(pair.b, pair.a) == 0) == pair.same);
    }
}

TEST_CASE("the order of texts does not depend on the form of kana and Latin characters")
{
    CHECK(compareJapanese("ア", "い") < 0);
    CHECK(compareJapanese("ｲ", "あ") > 0);
    CHECK(compareJapanese("か", "ガ") < 0);
    CHECK(compareJapanese("B", "ａ") > 0);
    CHECK(compareJapanese("10", "９") < 0);
    CHECK(compareJapanese("a", "ab") < 0);
    CHECK(compareJapanese("ab", "a") > 0);
    CHECK(compareJapanese("山", "あ") > 0);
    CHECK(compareJapanese("ガ", "カ゛ア") < 0);
    CHECK(compareJapanese("カア", "カ゛") < 0);
    CHECK(compareJapanese("ﾃ\xEF", "ﾃﾞ") < 0); // the 濁点 of the second text belongs to the preceding character
    CHECK(compareJapanese("葛\U000E0100", "葛城") < 0);
    CHECK(compareJapanese("葛\U000E0100城", "葛岡") < 0);
    CHECK(compareJapanese("a b", "a\tb") > 0);
    CHECK(compareJapanese("201904", "201905") < 0);
}

TEST_CASE("invalid UTF-8 compares without a fault and differs from valid text")
{
    CHECK(compareJapanese("\xFF\xFE", "山") != 0);
    CHECK(compareJapanese("\xE5\xB1", "山") != 0);
    CHECK(compareJapanese("\xFF", "\xFF") == 0);
    CHECK(compareJapanese("\xC0\x80", "") != 0);
}
