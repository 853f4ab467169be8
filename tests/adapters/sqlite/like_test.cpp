#include "suite_text/like_pattern.h"

#include "adapters/sqlite/database_file.h"

#include <doctest/doctest.h>

#include <string>
#include <string_view>
#include <vector>

using namespace inin;
using namespace inin::sqlite;

namespace {

struct LikeRow {
    std::string_view text, pattern;
    bool matches;
};

} // namespace

TEST_CASE("LIKE matches by wildcards, classes and the collation")
{
    static constexpr LikeRow kRows[] = {
        {"やまだ たろう", "%ﾔﾏﾀﾞ%", true},
        {"ヤマダ", "%ﾔﾏﾀﾞ%", true},
        {"ﾔﾏﾀﾞ ﾀﾛｳ", "%やまだ%", true},
        {"やまた", "%ﾔﾏﾀﾞ%", false},
        {"やまだ", "%ﾔﾏﾀ%", false},
        {"ＡＢＣ商会", "%abc%", true},
        {"abc", "ABC", true},
        {"abc", "ab", false},
        {"ab", "abc", false},
        {"", "%", true},
        {"", "%%", true},
        {"", "_", false},
        {"", "", true},
        {"a", "", false},
        {"山田太郎", "山%郎", true},
        {"山田太郎", "山%次", false},
        {"山田太郎", "____", true},
        {"山田太郎", "___", false},
        {"ダ", "_", true},
        {"ﾀﾞ", "_", true}, // one character, like its full-width form
        {"タ゛", "_", true},
        {"葛\U000E0100城", "葛_", true},
        {"葛城", "葛\U000E0100_", true},
        {"Ōta", "%ōTA", true},
        {"𠮷野", "_野", true},
        {"aXbXc", "%X%X%", true},
        {"aXbc", "%X%X%", false},
        {"aaaaaaaaab", "%a%a%a%b", true},
        {"mississippi", "%iss%ip%", true},
        {"a1", "a[0-9]", true},
        {"ax", "a[0-9]", false},
        {"ax", "a[^0-9]", true},
        {"a5", "a[^0-9]", false},
        {"b", "[abc]", true},
        {"d", "[abc]", false},
        {"-", "[-a]", true},
        {"-", "[a-]", true},
        {"ん", "[ア-ン]", true},
        {"Ａ", "[a-c]", true},
        {"50%", "50[%]", true},
        {"50x", "50[%]", false},
        {"a_b", "a[_]b", true},
        {"axb", "a[_]b", false},
        {"a[b", "a[[]b", true},
        {"a]b", "a]b", true},
        {"a", "[]", false},
        {"a", "[a", false},
        {"[a", "[a", false},
        {"50％", "50％", true},
        {"50 percent", "50％", false}, // only the half-width character is a wildcard
        {"abc ", "abc", false},        // trailing blanks are significant in LIKE
        {"abc ", "abc%", true},
        {"a\nb", "a%b", true},
    };
    for (const LikeRow &row : kRows) {
        CAPTURE(row.text);
        CAPTURE(row.pattern);
        CHECK(LikePattern(row.pattern).matches(row.text) == row.matches);
    }
}

TEST_CASE("the character after an ESCAPE character is literal")
{
    CHECK(LikePattern("50!%", U'!').matches("50%"));
    CHECK_FALSE(LikePattern("50!%", U'!').matches("500"));
    CHECK(LikePattern("a!_b", U'!').matches("a_b"));
    CHECK(LikePattern("a!!b", U'!').matches("a!b"));
    CHECK(LikePattern("a![b", U'!').matches("a[b"));
}

TEST_CASE("a pattern of many runs against a long text ends soon")
{
    const std::string text(4000, 'a');
    CHECK_FALSE(LikePattern("%a%a%a%a%a%a%a%a%a%a%a%a%b").matches(text));
}

TEST_CASE("a pattern and a text of invalid UTF-8 match without a fault")
{
    CHECK(LikePattern("%\xFF%").matches("a\xFE"));
    CHECK_FALSE(LikePattern("\xE5\xB1").matches("山"));
}

TEST_CASE("LIKE in a statement matches texts like the pattern, and never NULL")
{
    const DatabaseFile file(
        "CREATE TABLE T (nID INTEGER, cName TEXT);"
        "INSERT INTO T VALUES (1, 'やまだ'), (2, 'ヤマダ'), (3, 'ﾔﾏﾀﾞ'), (4, 'やまた'), (5, NULL), (6, '50%'),"
        "(7, '５０円'), (8, 'a[b')");
    Session session(file);
    struct Found {
        const char *condition;
        std::vector<std::string> numbers;
    };
    const Found kFound[] = {{"LIKE '%ﾔﾏﾀﾞ%'", {"1", "2", "3"}},
                            {"LIKE 'やまた'", {"4"}},
                            {"NOT LIKE 'やま%'", {"6", "7", "8"}},
                            {"LIKE '50%'", {"6", "7"}},
                            {"LIKE '50[%]'", {"6"}},
                            {"LIKE '50!%' ESCAPE '!'", {"6"}},
                            {"LIKE '[0-9]_円'", {"7"}},
                            {"LIKE '%[[]%'", {"8"}},
                            {"LIKE '___'", {"1", "2", "3", "4", "6", "7", "8"}},
                            {"LIKE NULL", {}}};
    for (const Found &found : kFound) {
        CAPTURE(std::string(found.condition));
        CHECK(session.firstColumn(std::string("SELECT nID FROM T WHERE cName ") + found.condition + " ORDER BY nID") ==
              found.numbers);
    }
    CHECK(raisedBy([&] { (void)session.open("SELECT nID FROM T WHERE cName LIKE 'a' ESCAPE '!!'"); }).number ==
          ado_error::faultyStatement);
}
