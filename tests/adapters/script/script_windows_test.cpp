#include "script_stage.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::script;
using Log = std::vector<std::string>;

namespace {

constexpr const char *kShown = R"({"event":"window","name":"frmStage","shown":true})";
constexpr const char *kGone = R"({"event":"window","name":"frmStage","shown":false})";

} // namespace

TEST_CASE("a modal form is recorded as shown, played to its end and recorded as hidden")
{
    ScriptStage stage;
    StageForm form;
    stage.windows().show(form, Modality::modal);
    CHECK(stage.events() == Log{kShown, kGone});
    CHECK(form.log == Log{"resize", "activate", "close by box"});
}

TEST_CASE("a modeless form is shown and reads no commands")
{
    ScriptStage stage(R"({"click":"btn"})");
    StageForm form;
    stage.windows().show(form, Modality::modeless);
    CHECK(stage.events() == Log{kShown});
    CHECK(form.isLoaded());
    CHECK(form.log == Log{"resize", "activate"});
}

TEST_CASE("the load runs before the form is recorded as shown")
{
    ScriptStage stage;
    StageForm form;
    form.onLoad = [&] { form.setMousePointer(11); };
    stage.windows().show(form, Modality::modal);
    CHECK(stage.events() == Log{R"({"event":"pointer","kind":11})", kShown, kGone});
}

TEST_CASE("a form unloaded by its own load is never recorded as shown")
{
    ScriptStage stage;
    StageForm form;
    form.onLoad = [&] { form.unload(); };
    stage.windows().show(form, Modality::modal);
    CHECK(stage.events().empty());
    CHECK(form.log == Log{"close by code"});
}

TEST_CASE("a run-time error of the load reaches the caller of show")
{
    ScriptStage stage;
    StageForm form;
    form.onLoad = [] { throw RuntimeError(13); };
    CHECK_THROWS_AS(stage.windows().show(form, Modality::modal), RuntimeError);
    CHECK(stage.events().empty());
}

TEST_CASE("every assignment of the pointer is recorded, also one that changes nothing")
{
    StageForm form;
    form.btn.onClick = [&] {
        form.setMousePointer(11);
        form.setMousePointer(0);
        form.setMousePointer(0);
    };
    CHECK(playOn(form, R"({"click":"btn"})") == Log{R"({"event":"pointer","kind":11})",
                                                    R"({"event":"pointer","kind":0})",
                                                    R"({"event":"pointer","kind":0})"});
}

TEST_CASE("commands are applied to the form shown last, and to the one below when it closes")
{
    ScriptStage stage("{\"click\":\"btn\"}\n{\"click\":\"btn\"}\n{\"close\":true}\n{\"click\":\"chk\"}\n");
    StageForm below, above("frmAbove");
    below.btn.onClick = [&] { stage.windows().show(above, Modality::modal); };
    stage.windows().show(below, Modality::modal);
    CHECK(above.log == Log{"resize", "activate", "btn", "close by box"});
    CHECK(below.log == Log{"resize", "activate", "chk", "close by box"});
    CHECK(stage.events() == Log{kShown, R"({"event":"window","name":"frmAbove","shown":true})",
                                R"({"event":"window","name":"frmAbove","shown":false})", kGone});
}

TEST_CASE("a form is recorded as hidden at the moment of its unload")
{
    ScriptStage stage(R"({"click":"btn"})");
    StageForm form;
    form.btn.onClick = [&] {
        form.unload();
        stage.windows().beep();
    };
    stage.windows().show(form, Modality::modal);
    CHECK(stage.events() == Log{kShown, kGone, R"({"event":"beep"})"});
}

TEST_CASE("a form that is shown again is recorded once each time")
{
    ScriptStage stage;
    StageForm form;
    stage.windows().show(form, Modality::modal);
    stage.windows().show(form, Modality::modal);
    CHECK(stage.events() == Log{kShown, kGone, kShown, kGone});
}

TEST_CASE("a form that refuses its control box stays open for the next command")
{
    StageForm form;
    form.refusals = 1;
    static_cast<void>(playOn(form, "{\"close\":true}\n{\"click\":\"btn\"}\n"));
    CHECK(form.log == Log{"resize", "activate", "close by box", "btn", "close by box"});
}

TEST_CASE("at the end of the commands a form may refuse to close 99 times")
{
    StageForm form;
    form.refusals = 99;
    CHECK_NOTHROW(static_cast<void>(playOn(form, "")));
    CHECK_FALSE(form.isLoaded());
}

TEST_CASE("a form that refuses to close 100 times ends the play")
{
    StageForm form;
    form.refusals = 100;
    CHECK_THROWS_WITH_AS(static_cast<void>(playOn(form, "")), "frmStage refuses to close after the last command",
                         std::runtime_error);
}

TEST_CASE("an error that an event procedure does not trap is recorded as fatal and ends the play")
{
    ScriptStage stage("{\"click\":\"btn\"}\n{\"click\":\"chk\"}\n");
    StageForm form;
    form.btn.onClick = [] { throw RuntimeError(76, "パスが見つかりません。"); };
    CHECK_THROWS_AS(stage.windows().show(form, Modality::modal), UnhandledError);
    stage.windows().beep();
    CHECK(stage.events() == Log{kShown, R"({"event":"fatal","number":76,"text":"パスが見つかりません。"})"});
    CHECK(form.chk.Value == 0);
}

TEST_CASE("a bad command ends the play, and nothing is recorded after it")
{
    ScriptStage stage("{\"click\":\"nobody\"}\n{\"click\":\"btn\"}\n");
    StageForm form;
    CHECK_THROWS_AS(stage.windows().show(form, Modality::modal), BadScriptCommand);
    stage.windows().beep();
    CHECK(stage.events() == Log{kShown});
    CHECK(form.log == Log{"resize", "activate"});
}

TEST_CASE("a form without a grid refuses a row command")
{
    StageForm form;
    CHECK(playOn(form, R"({"row":1,"double":true})") == Log{R"({"event":"refused","control":"grid"})"});
}

TEST_CASE("a state command writes the state")
{
    StageForm form;
    const Log events = playOn(form, "{\"state\":true}\n{\"state\":true}\n");
    REQUIRE(events.size() == 2);
    CHECK(events[0].starts_with(R"({"event":"state","window":"frmStage","controls":{"fraBox":)"));
    CHECK(events[0] == events[1]);
}

TEST_CASE("the focus follows the commands")
{
    ScriptStage stage("{\"click\":\"btn\"}\n{\"key\":\"num\",\"code\":13}\n");
    StageForm form;
    Log focus;
    form.btn.onClick = [&] { focus.push_back(stage.windows().activeControl(form)->name()); };
    form.num.onKeyPress = [&](std::int16_t) { focus.push_back(stage.windows().activeControl(form)->name()); };
    CHECK(stage.windows().activeControl(form) == nullptr);
    stage.windows().show(form, Modality::modal);
    CHECK(focus == Log{"btn", "num"});
}

TEST_CASE("Tab moves the focus in tab order, skips unusable controls and starts again after the last")
{
    ScriptStage stage;
    StageForm form;
    form.num.TabIndex = 0;
    form.txt.TabIndex = 1;
    form.dat.TabIndex = 2;
    form.txt.Enabled = false;
    Log focus;
    for (int press = 0; press < 3; ++press) {
        stage.windows().sendTab(form);
        focus.push_back(stage.windows().activeControl(form)->name());
    }
    CHECK(focus == Log{"num", "dat", "num"});
}

TEST_CASE("the form's own code can move the focus")
{
    ScriptStage stage;
    StageForm form;
    stage.windows().moveFocus(form, form.txt);
    CHECK(stage.windows().activeControl(form) == &form.txt);
}

TEST_CASE("a picture is checked by the contents of its file")
{
    ScriptStage stage;
    stage.files.put("C:\\SUITE\\ICON\\note.bmp", "no picture");
    CHECK_THROWS_AS(stage.windows().checkPicture("C:\\SUITE\\ICON\\note.bmp"), RuntimeError);
}

TEST_CASE("a refused command leaves the focus unchanged")
{
    ScriptStage stage("{\"click\":\"btn\"}\n{\"click\":\"chk\"}\n");
    StageForm form;
    form.chk.Enabled = false;
    stage.windows().show(form, Modality::modal);
    CHECK(stage.windows().activeControl(form) == &form.btn);
}

TEST_CASE("a form that is shown again has no focus from its previous show")
{
    ScriptStage stage("{\"click\":\"btn\"}\n");
    StageForm form;
    stage.windows().show(form, Modality::modal);
    stage.windows().show(form, Modality::modal);
    CHECK(stage.windows().activeControl(form) == nullptr);
}
