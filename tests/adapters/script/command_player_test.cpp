#include "adapters/script/command_reader.h"
#include "script_stage.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::script;
using Log = std::vector<std::string>;

namespace {

/// The form's log between its activation and its closing.
Log playedOn(StageForm &form, const std::string &commands)
{
    static_cast<void>(playOn(form, commands));
    Log log = form.log;
    REQUIRE(log.size() >= 3);
    CHECK(log.back() == "close by box");
    return {log.begin() + 2, log.end() - 1};
}

std::string refused(const char *control)
{
    return std::string(R"({"event":"refused","control":")") + control + "\"}";
}

std::string complaint(const std::string &command)
{
    StageForm form;
    try {
        static_cast<void>(playOn(form, command));
    } catch (const BadScriptCommand &bad) {
        return bad.what();
    }
    return {};
}

} // namespace

TEST_CASE("a click selects an option and raises its event once")
{
    StageForm form;
    CHECK(playedOn(form, "{\"click\":\"opt(1)\"}\n{\"click\":\"opt(1)\"}\n") == Log{"opt 1"});
    CHECK(form.opt.marked() == 1);
}

TEST_CASE("a click toggles a check box")
{
    StageForm form;
    CHECK(playedOn(form, R"({"click":"chk"})") == Log{"chk"});
    CHECK(form.chk.Value == 1);
    static_cast<void>(playOn(form, R"({"click":"chk"})"));
    CHECK(form.chk.Value == 0);
}

TEST_CASE("a click presses a button and a menu entry")
{
    StageForm form;
    CHECK(playedOn(form, "{\"click\":\"btn\"}\n{\"click\":\"mnu\"}\n") == Log{"btn", "mnu"});
}

TEST_CASE("a click on a menu entry without an action does nothing")
{
    StageForm form;
    form.mnu.onClick = nullptr;
    CHECK(playedOn(form, R"({"click":"mnu"})").empty());
}

TEST_CASE("a date box accepts the text of a date, and null")
{
    StageForm form;
    CHECK(playedOn(form, R"({"set":"dat","to":"2024/05/01"})") == Log{"dat"});
    CHECK(form.dat.Value.get() == Variant(DateSerial(2024, 5, 1)));
    static_cast<void>(playOn(form, R"({"set":"dat","to":null})"));
    CHECK(form.dat.Value.get().isNull());
}

TEST_CASE("a number box accepts a whole number, and null")
{
    StageForm form;
    static_cast<void>(playOn(form, R"({"set":"num","to":31})"));
    CHECK(form.num.Value.get() == Variant(std::int32_t{31}));
    static_cast<void>(playOn(form, R"({"set":"num","to":null})"));
    CHECK(form.num.Value.get().isNull());
}

TEST_CASE("a number outside the box's limits is refused to a user and accepted with force")
{
    StageForm form;
    CHECK(playOn(form, "{\"set\":\"num\",\"to\":0}\n{\"set\":\"num\",\"to\":32}\n") ==
          Log{refused("num"), refused("num")});
    CHECK(form.num.Value.get().isNull());
    CHECK(playOn(form, R"({"set":"num","to":32,"force":true})").empty());
    CHECK(form.num.Value.get() == Variant(std::int32_t{32}));
}

TEST_CASE("a text box accepts a text")
{
    StageForm form;
    static_cast<void>(playOn(form, R"({"set":"txt","to":"髙橋"})"));
    CHECK(form.txt.Text.get() == "髙橋");
}

TEST_CASE("a check box is set by 0, 1, true and false")
{
    struct Row {
        std::string to;
        std::int16_t value;
    };
    for (const Row &row : {Row{"1", 1}, Row{"0", 0}, Row{"true", 1}, Row{"false", 0}}) {
        CAPTURE(row.to);
        StageForm form;
        form.chk.Value = row.value == 1 ? std::int16_t{0} : std::int16_t{1};
        static_cast<void>(playOn(form, std::string(R"({"set":"chk","to":)") + row.to + "}"));
        CHECK(form.chk.Value == row.value);
    }
}

TEST_CASE("an option is set by true and cleared only with force")
{
    StageForm form;
    CHECK(playedOn(form, R"x({"set":"opt(0)","to":true})x") == Log{"opt 0"});
    CHECK(complaint(R"x({"set":"opt(0)","to":false})x") == "line 1: an option takes true");
    static_cast<void>(playOn(form, R"x({"set":"opt(0)","to":false,"force":true})x"));
    CHECK(form.opt.marked() == -1);
}

TEST_CASE("a list entry is selected by its index")
{
    StageForm form;
    CHECK(playedOn(form, R"({"choose":"lst","to":1})") == Log{"lst"});
    CHECK(form.lst.ListIndex == 1);
}

TEST_CASE("selecting the selected entry again raises its click event, with force it raises none")
{
    const std::string choose = "{\"choose\":\"lst\",\"to\":1}\n";
    const std::string force = "{\"choose\":\"lst\",\"to\":1,\"force\":true}\n";
    StageForm twice, once;
    CHECK(playedOn(twice, choose + choose) == Log{"lst", "lst"});
    CHECK(playedOn(once, choose + force) == Log{"lst"});
}

TEST_CASE("an index outside the list is refused to a user")
{
    StageForm form;
    form.lst.ListIndex = 1;
    CHECK(playOn(form, "{\"choose\":\"lst\",\"to\":2}\n{\"choose\":\"lst\",\"to\":-1}\n") ==
          Log{refused("lst"), refused("lst")});
    CHECK(form.lst.ListIndex == 1);
}

TEST_CASE("with force the selection of a list can be cleared")
{
    StageForm form;
    form.lst.ListIndex = 1;
    static_cast<void>(playOn(form, R"({"choose":"lst","to":-1,"force":true})"));
    CHECK(form.lst.ListIndex == -1);
}

TEST_CASE("with force an index outside the list raises the same run-time error as the program's own code")
{
    StageForm form;
    CHECK_THROWS_AS(static_cast<void>(playOn(form, R"({"choose":"lst","to":2,"force":true})")), UnhandledError);
}

TEST_CASE("a key is sent to its control")
{
    StageForm form;
    CHECK(playedOn(form, R"({"key":"num","code":13})") == Log{"key 13"});
}

TEST_CASE("a key without a control triggers a menu's short-cut")
{
    StageForm form;
    CHECK(playedOn(form, R"({"key":"","code":112})") == Log{"mnu"});
}

TEST_CASE("a command for a disabled control does nothing and is recorded as refused")
{
    for (const std::string command : {R"({"click":"btn"})", R"({"set":"btn","to":1})", R"({"choose":"btn","to":1})",
                                      R"({"key":"btn","code":13})"}) {
        CAPTURE(command);
        StageForm form;
        form.btn.Enabled = false;
        CHECK(playOn(form, command) == Log{refused("btn")});
        CHECK(form.log == Log{"resize", "activate", "close by box"});
    }
}

TEST_CASE("a command for a hidden control or one in a disabled frame does nothing")
{
    StageForm hidden;
    hidden.chk.Visible = false;
    CHECK(playOn(hidden, R"({"click":"chk"})") == Log{refused("chk")});
    CHECK(hidden.chk.Value == 0);

    StageForm framed;
    framed.fraBox.Enabled = false;
    CHECK(playOn(framed, R"x({"click":"opt(0)"})x") == Log{refused("opt(0)")});
    CHECK(framed.opt.marked() == -1);
}

TEST_CASE("force acts on a control that a user cannot reach")
{
    StageForm form;
    form.fraBox.Enabled = false;
    form.btn.Visible = false;
    form.num.Enabled = false;
    CHECK(playedOn(form, "{\"click\":\"opt(0)\",\"force\":true}\n{\"click\":\"btn\",\"force\":true}\n"
                         "{\"key\":\"num\",\"code\":13,\"force\":true}\n") == Log{"opt 0", "btn", "key 13"});
}

TEST_CASE("the error of a command that cannot be played names its line and the reason")
{
    struct Row {
        std::string line;
        std::string reason;
    };
    const Row kRows[] = {
        {R"x({"click":"optPrint(7)"})x", "frmStage has no control \"optPrint(7)\""},
        {R"({"click":"lbl"})", "\"lbl\" does not take this command"},
        {R"({"click":"num"})", "\"num\" does not take this command"},
        {R"({"set":"lst","to":1})", "\"lst\" does not take this command"},
        {R"({"set":"img","to":"a"})", "\"img\" does not take this command"},
        {R"({"choose":"num","to":1})", "\"num\" does not take this command"},
        {R"({"set":"dat","to":"yesterday"})", "\"yesterday\" is no date"},
        {R"({"set":"dat","to":"2024/02/30"})", "\"2024/02/30\" is no date"},
        {R"({"set":"dat","to":20240501})", "a date box takes a text or null"},
        {R"({"set":"num","to":"5"})", "a number box takes a whole number of 32 bits or null"},
        {R"({"set":"num","to":1.5})", "a number box takes a whole number of 32 bits or null"},
        {R"({"set":"num","to":2147483648})", "a number box takes a whole number of 32 bits or null"},
        {R"({"set":"txt","to":5})", "a text box takes a text"},
        {R"({"set":"chk","to":2})", "a check box takes 0, 1, true or false"},
        {R"({"set":"chk","to":"1"})", "a check box takes 0, 1, true or false"},
        {R"x({"set":"opt(0)","to":1})x", "an option takes true"},
    };
    for (const Row &row : kRows) {
        CAPTURE(row.line);
        CHECK(complaint(row.line) == "line 1: " + row.reason);
    }
}
