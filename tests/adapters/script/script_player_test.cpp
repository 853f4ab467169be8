#include "adapters/script/script_player.h"

#include "script_stage.h"
#include "support/fake_database.h"

#include <doctest/doctest.h>

#include <filesystem>
#include <stdexcept>

using namespace inin;
using namespace inin::script;
using Log = std::vector<std::string>;

namespace {

struct Played {
    int code = -1;
    Log events;
    std::string errors;
};

Played play(const std::string &commands, const std::function<void(const Platform &)> &run,
            std::optional<Date> now = std::nullopt, bool startProcesses = false)
{
    FakeDatabase database;
    std::istringstream in(commands);
    std::ostringstream out, errors;
    const ScriptOptions options{std::filesystem::temp_directory_path().string(), now, startProcesses};
    const int code = playScript(options, {in, out, errors}, database, run);
    return {code, linesOf(out.str()), errors.str()};
}

} // namespace

TEST_CASE("a box is told and answered, and without a title it shows the application's")
{
    const Played played = play("", [](const Platform &platform) {
        platform.boxes.show("起動できません！", Icon::critical);
        platform.boxes.show("選択してください。", Icon::information, "情報");
        platform.boxes.show("Error:x", Icon::none);
        platform.boxes.show("!", Icon::exclamation);
    });
    CHECK(played.events == Log{R"({"event":"box","text":"起動できません！","icon":16,"title":"委任状印刷"})",
                               R"({"event":"box","text":"選択してください。","icon":64,"title":"情報"})",
                               R"({"event":"box","text":"Error:x","icon":0,"title":"委任状印刷"})",
                               R"({"event":"box","text":"!","icon":48,"title":"委任状印刷"})"});
    CHECK(played.code == 0);
}

TEST_CASE("a question is told as a box and answered with Cancel at once")
{
    bool again = true;
    const Played played =
        play("", [&](const Platform &platform) { again = platform.boxes.askRetry("出力中です。", Icon::exclamation); });
    CHECK(played.events == Log{R"({"event":"box","text":"出力中です。","icon":48,"title":"委任状印刷"})"});
    CHECK_FALSE(again);
}

TEST_CASE("the end statement ends the play with exit code 0, and nothing is told after it")
{
    bool cameBack = false;
    const Played played = play("{\"state\":true}\n", [&](const Platform &platform) {
        const auto session = platform.database.newConnection();
        session->Open("Provider=Fake", "", "", -1);
        StageForm form;
        form.onLoad = [&] { platform.processes.end(); };
        platform.windows.show(form, Modality::modal);
        cameBack = true;
    });
    CHECK(played.events == Log{R"({"event":"connect","session":1})", R"({"event":"end","code":0})"});
    CHECK(played.code == 0);
    CHECK_FALSE(cameBack);
}

TEST_CASE("without being asked no process is started, only told")
{
    const Played played = play("", [](const Platform &platform) {
        platform.processes.start("no-such-program.exe 2", WindowStyle::normalFocus);
        platform.processes.start("wfrfv10.exe /c C:\\TMP\\WfdCom.dat", WindowStyle::minimizedFocus);
        platform.processes.openAddress("http://www.example.jp/help?page=1");
    });
    CHECK(played.events == Log{R"({"event":"start","command":"no-such-program.exe 2","style":1})",
                               R"({"event":"start","command":"wfrfv10.exe /c C:\\TMP\\WfdCom.dat","style":2})",
                               R"({"event":"open","address":"http://www.example.jp/help?page=1"})"});
}

TEST_CASE("with starts asked for, a program that cannot be started is told, then error 53")
{
    const Played played = play(
        "",
        [](const Platform &platform) { platform.processes.start("no-such-program.exe 2", WindowStyle::normalFocus); },
        std::nullopt, true);
    CHECK(played.events == Log{R"({"event":"start","command":"no-such-program.exe 2","style":1})",
                               R"({"event":"fatal","number":53,"text":"ファイルが見つかりません。"})"});
    CHECK(played.code == 1);
}

TEST_CASE("the clock stands still at the moment that was asked for")
{
    const Date moment = *readMoment("2024-06-15 10:00:00");
    static_cast<void>(play(
        "", [&](const Platform &platform) { CHECK(platform.clock.now() == moment); }, moment));
}

TEST_CASE("without a moment the clock is the system's")
{
    static_cast<void>(play("", [&](const Platform &platform) { CHECK(Year(platform.clock.now()) >= 2024); }));
}

TEST_CASE("a run-time error that leaves the program is told as fatal with exit code 1")
{
    const Played played = play("", [](const Platform &) { throw RuntimeError(94); });
    CHECK(played.events == Log{R"({"event":"fatal","number":94,"text":"Null の使い方が不正です。"})"});
    CHECK(played.code == 1);
}

TEST_CASE("an error that an event procedure does not trap is told as fatal with exit code 1")
{
    const Played played = play("", [](const Platform &) { throw UnhandledError(RuntimeError(76)); });
    CHECK(played.events == Log{R"({"event":"fatal","number":76,"text":"パスが見つかりません。"})"});
    CHECK(played.code == 1);
}

TEST_CASE("a bad command is exit code 2 with its line on the error stream")
{
    const Played played = play("# first\n{\"click\":\"nobody\"}\n", [](const Platform &platform) {
        StageForm form;
        platform.windows.show(form, Modality::modal);
    });
    CHECK(played.code == 2);
    CHECK(played.errors == "line 2: frmStage has no control \"nobody\"\n");
    CHECK(played.events == Log{R"({"event":"window","name":"frmStage","shown":true})"});
}

TEST_CASE("a fault of ours is exit code 1 with its words on the error stream")
{
    const Played played = play("", [](const Platform &) { throw std::logic_error("a fault"); });
    CHECK(played.code == 1);
    CHECK(played.errors == "a fault\n");
    CHECK(played.events.empty());
}

TEST_CASE("a form that never closes is exit code 1 with its name on the error stream")
{
    const Played played = play("", [](const Platform &platform) {
        StageForm form;
        form.refusals = 1000;
        platform.windows.show(form, Modality::modal);
    });
    CHECK(played.code == 1);
    CHECK(played.errors == "frmStage refuses to close after the last command\n");
}

TEST_CASE("a program that comes back by itself is exit code 0")
{
    CHECK(play("", [](const Platform &) {}).code == 0);
}

TEST_CASE("a transcript that cannot be written is exit code 1")
{
    FakeDatabase database;
    std::istringstream in;
    std::ostringstream out, errors;
    out.setstate(std::ios::badbit);
    const ScriptOptions options{std::filesystem::temp_directory_path().string(), std::nullopt, false};
    const int code =
        playScript(options, {in, out, errors}, database, [](const Platform &platform) { platform.windows.beep(); });
    CHECK(code == 1);
    CHECK(errors.str() == "the transcript could not be written\n");
}
