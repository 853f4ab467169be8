#include "scenarios/play_check.h"
#include "scenarios/script_driver.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <stdexcept>

using namespace inin;

namespace {

/// A play with its own site, and a driver's record made by the test.
struct Checked {
    explicit Checked(const std::string &text) : play(readText(text)), site(play) {}

    static Play readText(const std::string &text)
    {
        const TempFolder folder;
        return readPlay(folder.put("test.play", text));
    }
    [[nodiscard]] std::string difference() const { return firstDifference(play, record, site); }

    Play play;
    TemporarySite site;
    PlayRecord record;
};

constexpr const char *kHead = "# a claim\nsite: basic\nnow: 2024-06-15 10:00:00\n";

std::string complaint(const std::string &text)
try {
    Checked::readText(text);
    return {};
} catch (const std::runtime_error &error) {
    return error.what();
}

std::string differenceOf(const std::string &steps, std::vector<std::vector<std::string>> events)
{
    Checked checked(kHead + steps);
    checked.record.events = std::move(events);
    return checked.difference();
}

/// The text as a JSON string contains it.
std::string escaped(const std::string &path)
{
    std::string text;
    for (const char sign : path) text += sign == '\\' ? std::string("\\\\") : std::string(1, sign);
    return text;
}

} // namespace

TEST_CASE("a play is read with its settings, steps and files")
{
    const Play play = Checked::readText("# a claim\n# more words\nsite: basic\nnow: 2024-06-15 10:00:00\nstart: yes\n"
                                        "remove: adodb.ini\nfolder: TMP\\X\nput A.ini:\n    [a]\n    b=1\n"
                                        "< ...\n> {\"click\":\"x\"}\n< {\"event\":\"beep\"}\n<~ {\"event\":\"sql\"}\n"
                                        "file TMP\\a.csv:\n    1\n    2\nabsent: B\nexit: 1\n");
    CHECK(play.claim == "a claim");
    CHECK(play.site == "basic");
    CHECK(play.now == "2024-06-15 10:00:00");
    CHECK(play.startProcesses);
    CHECK(play.removed == std::vector<std::string>{"adodb.ini"});
    CHECK(play.folders == std::vector<std::string>{"TMP\\X"});
    REQUIRE(play.put.size() == 1);
    CHECK(play.put[0].path == "A.ini");
    CHECK(play.put[0].text == "[a]\nb=1\n");
    REQUIRE(play.steps.size() == 2);
    CHECK(play.steps[0].command.empty());
    CHECK(play.steps[0].expected.size() == 1);
    CHECK(play.steps[1].command == "{\"click\":\"x\"}");
    REQUIRE(play.steps[1].expected.size() == 2);
    CHECK(play.steps[1].expected[0].event == "{\"event\":\"beep\"}");
    CHECK(play.steps[1].expected[1].how == PlayStep::Expected::How::containing);
    REQUIRE(play.expectedFiles.size() == 1);
    CHECK(play.expectedFiles[0].text == "1\n2\n");
    CHECK(play.absentFiles == std::vector<std::string>{"B"});
    CHECK(play.exitCode == 1);
}

TEST_CASE("a play without a claim, without a site or with an invalid line is refused")
{
    CHECK(complaint("site: basic\n").ends_with("the play does not begin with what it shows"));
    CHECK(complaint("# a claim\n").ends_with("the play names no site"));
    CHECK(complaint("# a claim\nsight: basic\n").ends_with(":2: this line is no line of a play: sight: basic"));
}

TEST_CASE("events as expected by the play are no difference")
{
    CHECK(differenceOf("< {\"event\":\"beep\"}\n> {\"close\":true}\n< {\"event\":\"end\",\"code\":0}\n",
                       {{R"({"event":"beep"})"}, {R"({"event":"end","code":0})"}}) == "");
}

TEST_CASE("the first different event is reported with both texts")
{
    CHECK(differenceOf("< {\"event\":\"beep\"}\n< {\"event\":\"end\",\"code\":0}\n",
                       {{R"({"event":"beep"})", R"({"event":"end","code":1})"}}) ==
          "test.play:5:\n  wanted: {\"event\":\"end\",\"code\":0}\n  seen:   {\"event\":\"end\",\"code\":1}");
}

TEST_CASE("a missing event and an unexpected one are differences")
{
    CHECK(differenceOf("< {\"event\":\"beep\"}\n", {{}}).ends_with("seen:   no event"));
    CHECK(differenceOf("", {{R"({"event":"beep"})"}}).ends_with("seen:   {\"event\":\"beep\"}"));
    CHECK(differenceOf("< {\"event\":\"beep\"}\n", {{R"({"event":"beep"})", R"({"event":"beep"})"}}).empty() == false);
}

TEST_CASE("an event before its command is a difference")
{
    CHECK_FALSE(differenceOf("> {\"click\":\"a\"}\n< {\"event\":\"beep\"}\n", {{R"({"event":"beep"})"}, {}}).empty());
}

TEST_CASE("keys in another order are a difference")
{
    CHECK_FALSE(differenceOf("< {\"code\":0,\"event\":\"end\"}\n", {{R"({"event":"end","code":0})"}}).empty());
}

TEST_CASE("an ellipsis skips events up to the next expected one within its step")
{
    const std::vector<std::string> events = {R"({"event":"connect","session":1})", R"({"event":"beep"})"};
    CHECK(differenceOf("< ...\n< {\"event\":\"beep\"}\n", {events}) == "");
    CHECK(differenceOf("< ...\n", {events}) == "");
    CHECK(differenceOf("< {\"event\":\"connect\",\"session\":1}\n< ...\n", {events}) == "");
    CHECK_FALSE(differenceOf("< ...\n< {\"event\":\"connect\",\"session\":1}\n", {events}).empty());
    CHECK_FALSE(differenceOf("< ...\n< {\"event\":\"end\"}\n", {events}).empty());
}

TEST_CASE("a partial event matches an event that has its keys and values, nested objects likewise")
{
    const char *state = R"({"event":"state","fields":{"a":1,"b":2}})";
    CHECK(differenceOf("<~ {\"event\":\"state\",\"fields\":{\"b\":2}}\n", {{state}}) == "");
    CHECK_FALSE(differenceOf("<~ {\"fields\":{\"b\":3}}\n", {{state}}).empty());
    CHECK_FALSE(differenceOf("<~ {\"fields\":{\"c\":2}}\n", {{state}}).empty());
}

TEST_CASE("a command that was never requested is a difference")
{
    CHECK(differenceOf("> {\"close\":true}\n", {{}}) == "test.play: never asked for {\"close\":true}");
}

TEST_CASE("a form that is still open after the last command is a difference")
{
    Checked checked(std::string(kHead) + "> {\"close\":true}\n");
    checked.record.events = {{}, {}};
    CHECK(checked.difference() == "");
    checked.record.ranOutOfCommands = true;
    CHECK(checked.difference() == "test.play: a form is still open after the last command");
}

TEST_CASE("the end of the commands is a separate step, and the last one")
{
    const std::string end = "> end of commands\n";
    const Play play = Checked::readText(kHead + end + "< {\"event\":\"beep\"}\n");
    REQUIRE(play.steps.size() == 2);
    CHECK(play.steps[1].isEndOfCommands());
    CHECK(play.steps[1].expected.size() == 1);
    CHECK(complaint(kHead + end + "> {\"close\":true}\n").ends_with(":5: a command follows the end of the commands"));
}

TEST_CASE("a play that leaves the screen open runs out of commands, unless it has a step for their end")
{
    const auto ranOut = [](const std::string &steps) {
        const Checked checked(kHead + steps);
        return ScriptDriver().run(checked.play, checked.site).ranOutOfCommands;
    };
    CHECK(ranOut(""));
    CHECK(ranOut("> {\"click\":\"optObject(0)\"}\n"));
    CHECK_FALSE(ranOut("> {\"close\":true}\n"));
    CHECK_FALSE(ranOut("> end of commands\n"));
}

TEST_CASE("the site's folder is $APP in events with either separator")
{
    Checked checked(std::string(kHead) + "< {\"event\":\"open\",\"address\":\"$APP\\\\a $APP/b\"}\n");
    const std::string folder = checked.site.folder().string();
    std::string suite = folder;
    std::ranges::replace(suite, '/', '\\');
    checked.record.events = {
        {R"({"event":"open","address":")" + escaped(suite) + "\\\\a " + escaped(folder) + "/b\"}"}};
    CHECK(checked.difference() == "");
}

TEST_CASE("a different exit code is reported with the error stream")
{
    Checked checked(kHead);
    checked.record = {.events = {{}}, .exitCode = 2, .errors = "line 1: no"};
    CHECK(checked.difference() == "test.play: wanted exit 0, seen 2\n  errors: line 1: no");
}

TEST_CASE("files are compared in code page 932 with CR LF, and the first different line is reported")
{
    Checked checked(std::string(kHead) + "file TMP\\a.csv:\n    髙橋\n    青木\n");
    checked.record.events = {{}};
    CHECK(checked.difference().ends_with("seen:   no such file"));
    std::ofstream(checked.site.at("TMP\\a.csv"), std::ios::binary) << "\xFB\xFC\x8B\xB4\r\n\x90\xC2\x96\xD8\r\n";
    CHECK(checked.difference() == "");
    std::ofstream(checked.site.at("TMP\\a.csv"), std::ios::binary) << "\xFB\xFC\x8B\xB4\r\n\x90\xC2\r\n";
    CHECK(checked.difference() == "test.play:6:\n  wanted: 青木\r\n  seen:   青\r");
    std::ofstream(checked.site.at("TMP\\a.csv"), std::ios::binary) << "\xFB\xFC\x8B\xB4\n\x90\xC2\x96\xD8\n";
    CHECK_FALSE(checked.difference().empty());
}

TEST_CASE("a file that should be absent is a difference")
{
    Checked checked(std::string(kHead) + "absent: TMP\\a.csv\n");
    checked.record.events = {{}};
    CHECK(checked.difference() == "");
    std::ofstream(checked.site.at("TMP\\a.csv")) << "x";
    CHECK(checked.difference() == "test.play: there is a TMP\\a.csv");
}

TEST_CASE("a site is created with its database and its settings in code page 932, and deleted again")
{
    std::filesystem::path folder;
    {
        const Checked checked(std::string(kHead) + "remove: ICON\\wall.bmp\nput DATA\\a.ini:\n    [委任状]\n");
        folder = checked.site.folder();
        CHECK(bytesOf(checked.site.at("adodb.ini")).starts_with("[\x90\xDA\x91\xB1\x8F\xEE\x95\xF1]\r\n"));
        CHECK(bytesOf(checked.site.at("DATA\\a.ini")) == "[\x88\xCF\x94\x43\x8F\xF3]\r\n");
        CHECK(bytesOf(checked.site.at("site.db")).starts_with("SQLite format 3"));
        CHECK(std::filesystem::is_directory(checked.site.at("TMP")));
        CHECK_FALSE(std::filesystem::exists(checked.site.at("ICON\\wall.bmp")));
    }
    CHECK_FALSE(std::filesystem::exists(folder));
}

TEST_CASE("a play cannot remove a file that its site does not have")
{
    CHECK_THROWS_AS(Checked(std::string(kHead) + "remove: nothing.ini\n"), std::runtime_error);
}
