#include "adapters/database/sql_tokenizer.h"

#include <doctest/doctest.h>

#include <string>
#include <string_view>

using namespace inin;

namespace {

std::string kindName(TokenKind kind)
{
    switch (kind) {
    case TokenKind::word:
        return "word";
    case TokenKind::quotedName:
        return "name";
    case TokenKind::number:
        return "number";
    case TokenKind::binary:
        return "binary";
    case TokenKind::text:
        return "text";
    case TokenKind::symbol:
        return "symbol";
    case TokenKind::invalid:
        return "invalid";
    }
    return "?";
}

/// "kind:text" of all tokens, separated by blanks.
std::string tokens(std::string_view sql)
{
    std::string all;
    for (const Token &token : tokenizeSql(sql))
        all += (all.empty() ? "" : " ") + kindName(token.kind) + ":" + std::string(token.text);
    return all;
}

struct TokenRow {
    std::string_view sql;
    std::string_view tokens;
};

} // namespace

TEST_CASE("the tokenizer distinguishes words, names, numbers, binary values, texts and symbols")
{
    static constexpr TokenRow kRows[] = {
        {"", ""},
        {"  \t\r\n ", ""},
        {"SELECT a1,b_2", "word:SELECT word:a1 symbol:, word:b_2"},
        {"STAFF.nIDNo", "word:STAFF symbol:. word:nIDNo"},
        {"療養費単価.nTanka", "word:療養費単価 symbol:. word:nTanka"},
        {"[往療費 区分]", "name:[往療費 区分]"},
        {"[a]]b]", "name:[a]]b]"},
        {"\"a\"\"b\"", "name:\"a\"\"b\""},
        {"'山田'", "text:'山田'"},
        {"''", "text:''"},
        {"'O''Brien'", "text:'O''Brien'"},
        {"''''", "text:''''"},
        {"N'山'", "text:N'山'"},
        {"n'山'", "text:n'山'"},
        {"N '山'", "word:N text:'山'"},
        {"12 1.5 .5 1. 1e5 1.5E+3 2E-1",
         "number:12 number:1.5 number:.5 number:1. number:1e5 number:1.5E+3 number:2E-1"},
        {"1e", "number:1 word:e"},
        {"0x 0xAF 0X1", "binary:0x binary:0xAF binary:0X1"},
        {"0xFFG", "binary:0xFF word:G"},
        {"5AND", "number:5 word:AND"},
        {"a<=b>=c<>d!=e!<f!>g",
         "word:a symbol:<= word:b symbol:>= word:c symbol:<> word:d symbol:!= word:e symbol:!< word:f symbol:!> word:g"},
        {"a||b", "word:a symbol:|| word:b"},
        {"=(*);", "symbol:= symbol:( symbol:* symbol:) symbol:;"},
        {"@name @@ROWCOUNT #temp a#b$c", "word:@name word:@@ROWCOUNT word:#temp word:a#b$c"},
        {"?", "symbol:?"},
    };
    for (const TokenRow &row : kRows) {
        CAPTURE(row.sql);
        CHECK(tokens(row.sql) == row.tokens);
    }
}

TEST_CASE("the tokenizer removes comments, including nested ones, but not those inside quotes")
{
    static constexpr TokenRow kRows[] = {
        {"a -- b ' c\nd", "word:a word:d"},
        {"a --", "word:a"},
        {"a /* b ' c */ d", "word:a word:d"},
        {"a /* b /* c */ d */ e", "word:a word:e"},
        {"a/**/b", "word:a word:b"},
        {"'-- a'", "text:'-- a'"},
        {"'/* a */'", "text:'/* a */'"},
        {"[--]", "name:[--]"},
        {"a - - b", "word:a symbol:- symbol:- word:b"},
        {"a / * b", "word:a symbol:/ symbol:* word:b"},
    };
    for (const TokenRow &row : kRows) {
        CAPTURE(row.sql);
        CHECK(tokens(row.sql) == row.tokens);
    }
}

TEST_CASE("an unterminated token and an unknown byte are invalid")
{
    static constexpr TokenRow kRows[] = {
        {"a 'b", "word:a invalid:'b"},
        {"'b''", "invalid:'b''"},
        {"N'b", "invalid:N'b"},
        {"[b", "invalid:[b"},
        {"[b]]", "invalid:[b]]"},
        {"\"b", "invalid:\"b"},
        {"a /* b", "word:a invalid:/* b"},
        {"a /* /* */", "word:a invalid:/* /* */"},
        {"`a", "invalid:` word:a"},
        {std::string_view("a\0b", 3), std::string_view("word:a invalid:\0 word:b", 23)},
        {std::string_view("'a\0b'", 5), std::string_view("invalid:'a\0b'", 13)},
        {"\x01", "invalid:\x01"},
    };
    for (const TokenRow &row : kRows) {
        CAPTURE(row.sql);
        CHECK(tokens(row.sql) == row.tokens);
    }
}

TEST_CASE("a full-width blank separates words and becomes a plain blank")
{
    const std::vector<Token> all = tokenizeSql("SELECT　名前　FROM x");
    REQUIRE(all.size() == 4);
    CHECK(all[1].text == "名前");
    CHECK(all[1].gap == " ");
    CHECK(all[2].gap == " ");
}

TEST_CASE("a gap keeps its white space, and a gap with a comment is one blank")
{
    const std::vector<Token> all = tokenizeSql("a  \r\n b /* c */ d");
    REQUIRE(all.size() == 3);
    CHECK(all[0].gap == "");
    CHECK(all[1].gap == "  \r\n ");
    CHECK(all[2].gap == " ");
}
