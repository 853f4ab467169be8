#include "adapters/script/state_writer.h"
#include "script_stage.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::script;

namespace {

std::string control(const Form &form, const char *name)
{
    return stateEvent(form, Regional{})["controls"][name].dump();
}

} // namespace

TEST_CASE("a state event names the window, then its controls in the form's order, fields and rows")
{
    StageForm form;
    const Json state = stateEvent(form, Regional{});
    std::vector<std::string> keys, controls;
    for (const auto &[key, value] : state.items()) keys.push_back(key);
    for (const auto &[key, value] : state["controls"].items()) controls.push_back(key);
    CHECK(keys == std::vector<std::string>{"event", "window", "controls", "fields", "rows"});
    CHECK(state["event"] == "state");
    CHECK(state["window"] == "frmStage");
    CHECK(controls == std::vector<std::string>{"fraBox", "opt(0)", "opt(1)", "chk", "btn", "num", "dat", "txt", "lst",
                                               "lbl", "mnu", "img"});
}

TEST_CASE("each kind of control writes the attributes of its kind")
{
    StageForm form;
    form.opt(0).Value = true;
    form.chk.Value = 1;
    form.txt.Text = "髙橋";
    form.lst.ListIndex = 0;
    form.lbl.Caption = "施術者";
    form.fraBox.Caption = "帳票種類";
    form.btn.Caption = "印刷";
    form.mnu.Caption = "機能(&F)";
    form.img.Picture = "C:\\wall.bmp";
    CHECK(control(form, "opt(0)") == R"({"Value":true,"Enabled":true,"Visible":true})");
    CHECK(control(form, "opt(1)") == R"({"Value":false,"Enabled":true,"Visible":true})");
    CHECK(control(form, "chk") == R"({"Value":1,"Enabled":true,"Visible":true})");
    CHECK(control(form, "txt") == R"({"Text":"髙橋","Enabled":true,"Visible":true})");
    CHECK(control(form, "lst") ==
          R"({"ListIndex":0,"items":[["－ 指定なし －",-1],["佐藤",11]],"Enabled":true,"Visible":true})");
    CHECK(control(form, "lbl") == R"({"Caption":"施術者","Enabled":true,"Visible":true})");
    CHECK(control(form, "fraBox") == R"({"Caption":"帳票種類","Enabled":true,"Visible":true})");
    CHECK(control(form, "btn") == R"({"Caption":"印刷","Enabled":true,"Visible":true})");
    CHECK(control(form, "mnu") == R"x({"Caption":"機能(&F)","Enabled":true,"Visible":true})x");
    CHECK(control(form, "img") == R"({"Picture":"C:\\wall.bmp","Enabled":true,"Visible":true})");
}

TEST_CASE("a disabled or hidden control writes its own attributes, independent of its frame")
{
    StageForm form;
    form.fraBox.Enabled = false;
    form.opt(1).Visible = false;
    CHECK(control(form, "opt(0)") == R"({"Value":false,"Enabled":true,"Visible":true})");
    CHECK(control(form, "opt(1)") == R"({"Value":false,"Enabled":true,"Visible":false})");
    CHECK(control(form, "fraBox") == R"({"Caption":"","Enabled":false,"Visible":true})");
}

TEST_CASE("a number box writes a number or null")
{
    StageForm form;
    CHECK(control(form, "num") == R"({"Value":null,"Enabled":true,"Visible":true})");
    form.num.Value = std::int32_t{-5};
    CHECK(control(form, "num") == R"({"Value":-5,"Enabled":true,"Visible":true})");
}

TEST_CASE("a date box writes its day as yyyy/mm/dd or null, independent of the system's date format")
{
    StageForm form;
    CHECK(control(form, "dat") == R"({"Value":null,"Enabled":true,"Visible":true})");
    form.dat.Value = DateSerial(2024, 5, 1);
    CHECK(stateEvent(form, Regional{"d.M.yy"})["controls"]["dat"]["Value"] == "2024/05/01");
}

TEST_CASE("fields are numbers, texts and the default texts of dates")
{
    StageForm form;
    form.shownFields = {{"iTgtDateKind", std::int16_t{2}}, {"nKanjaNo", std::int32_t{-1}},  {"factor", 1.5},
                        {"csTargetDate", "2024/05/1"},     {"day", DateSerial(2024, 5, 1)}, {"nothing", Null{}}};
    CHECK(
        stateEvent(form, Regional{})["fields"].dump() ==
        R"({"iTgtDateKind":2,"nKanjaNo":-1,"factor":1.5,"csTargetDate":"2024/05/1","day":"2024/05/01","nothing":null})");
}

TEST_CASE("rows are lists of texts")
{
    StageForm form;
    CHECK(stateEvent(form, Regional{})["rows"].dump() == "[]");
    form.shownRows = {{"2024/05/01", "青木"}, {"", "髙橋"}};
    CHECK(stateEvent(form, Regional{})["rows"].dump() == R"([["2024/05/01","青木"],["","髙橋"]])");
}
