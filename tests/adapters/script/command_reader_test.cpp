#include "adapters/script/command_reader.h"

#include <doctest/doctest.h>

#include <sstream>

using namespace inin;
using namespace inin::script;

namespace {

ScriptCommand readOne(const std::string &text)
{
    std::istringstream in(text);
    const auto command = CommandReader(in).next();
    REQUIRE(command.has_value());
    return *command;
}

std::string readingFault(const std::string &text)
{
    std::istringstream in(text);
    CommandReader reader(in);
    try {
        while (reader.next()) {
        }
    } catch (const BadScriptCommand &bad) {
        return bad.what();
    }
    return {};
}

} // namespace

TEST_CASE("each command is read with its values")
{
    const ScriptCommand click = readOne(R"x({"click":"optPrint(1)"})x");
    CHECK(click.kind == CommandKind::click);
    CHECK(click.control == "optPrint(1)");
    CHECK_FALSE(click.force);

    const ScriptCommand set = readOne(R"({"set":"imD_Out","to":"2024/05/01","force":true})");
    CHECK(set.kind == CommandKind::set);
    CHECK(set.to == Json("2024/05/01"));
    CHECK(set.force);

    const ScriptCommand choose = readOne(R"({"choose":"cbSejyutsu","to":2})");
    CHECK(choose.kind == CommandKind::choose);
    CHECK(choose.number == 2);

    const ScriptCommand key = readOne(R"({"key":"","code":123})");
    CHECK(key.kind == CommandKind::key);
    CHECK(key.control.empty());
    CHECK(key.number == 123);

    const ScriptCommand row = readOne(R"({"row":3,"double":true})");
    CHECK(row.kind == CommandKind::row);
    CHECK(row.row == 3);
    CHECK(row.doubleClick);
    CHECK_FALSE(readOne(R"({"row":3})").doubleClick);

    CHECK(readOne(R"({"close":true})").kind == CommandKind::close);
    CHECK(readOne(R"({"state":true})").kind == CommandKind::state);
}

TEST_CASE("blank lines, comments, a byte order mark and a CR at the end of a line are skipped")
{
    const ScriptCommand command = readOne("\xEF\xBB\xBF# a comment\r\n\r\n \t\n{\"state\":true}\r\n");
    CHECK(command.kind == CommandKind::state);
    CHECK(command.line == 4);
}

TEST_CASE("the end of the input gives no command")
{
    std::istringstream in("# nothing\n");
    CHECK_FALSE(CommandReader(in).next().has_value());
}

TEST_CASE("a last line without a line end is read")
{
    std::istringstream in("{\"state\":true}\n{\"close\":true}");
    CommandReader reader(in);
    REQUIRE(reader.next().has_value());
    CHECK(reader.next()->kind == CommandKind::close);
}

TEST_CASE("a line that is not a command is refused with its number and the reason")
{
    struct Row {
        std::string line;
        std::string reason;
    };
    const Row kRows[] = {
        {R"(["click"])", "a command is a JSON object"},
        {R"({})", "no command that is known"},
        {R"({"klick":"a"})", "no command that is known"},
        {R"({"click":"a","set":"b","to":1})", "two commands in one line: \"click\", \"set\""},
        {R"({"click":"a","to":1})", "unknown key \"to\""},
        {R"({"click":1})", "\"click\" must be a text"},
        {R"({"set":"a"})", "\"to\" is missing"},
        {R"({"choose":"a"})", "\"to\" is missing"},
        {R"({"choose":"a","to":"1"})", "\"to\" must be a whole number of 16 bits"},
        {R"({"choose":"a","to":1.5})", "\"to\" must be a whole number of 16 bits"},
        {R"({"choose":"a","to":32768})", "\"to\" must be a whole number of 16 bits"},
        {R"({"choose":"a","to":-32769})", "\"to\" must be a whole number of 16 bits"},
        {R"({"choose":"a","to":18446744073709551615})", "\"to\" must be a whole number of 16 bits"},
        {R"({"key":"a"})", "\"code\" is missing"},
        {R"({"row":"1"})", "\"row\" must be a whole number of 32 bits"},
        {R"({"row":1,"double":1})", "\"double\" must be true or false"},
        {R"({"close":false})", "\"close\" must be true"},
        {R"({"state":1})", "\"state\" must be true or false"},
        {R"({"click":"a","force":"yes"})", "\"force\" must be true or false"},
    };
    for (const Row &row : kRows) {
        CAPTURE(row.line);
        CHECK(readingFault("# first\n" + row.line) == "line 2: " + row.reason);
    }
}

TEST_CASE("an array or object as a value is refused, however deeply nested")
{
    const std::string reason = "line 1: a value must not be an array or an object";
    CHECK(readingFault(R"({"set":"a","to":[1]})") == reason);
    CHECK(readingFault(R"({"set":"a","to":{"b":1}})") == reason);
    CHECK(readingFault(R"([["click"]])") == reason);
    const std::size_t depth = 200000;
    CHECK(readingFault("{\"set\":\"a\",\"to\":" + std::string(depth, '[') + std::string(depth, ']') + "}") == reason);
}

TEST_CASE("a line in code page 932 is refused with the cure, a comment in any encoding is skipped")
{
    const std::string sentence = "この行は UTF-8 ではありません。命令のファイルは UTF-8 で保存してください。"
                                 "Windows のコマンドプロンプトでは、先に chcp 65001 を実行してください。";
    const std::string kokuho = "\x8D\x91\x95\xDB"; // 国保
    CHECK(readingFault("# " + kokuho + "\n{\"set\":\"a\",\"to\":\"" + kokuho + "\"}") == "line 2: " + sentence);
    CHECK(readingFault("{\"click\":\"a\x82\"}") == "line 1: " + sentence);
}

TEST_CASE("a line that is not JSON is refused with its number")
{
    CHECK(readingFault("{\"state\":true}\nclick it\n").starts_with("line 2: "));
    CHECK(readingFault("{\"state\":true} {\"state\":true}").starts_with("line 1: "));
}
