#include "adapters/script/script_player.h"

#include "script_stage.h"
#include "support/fake_database.h"

#include <doctest/doctest.h>

#include <filesystem>
#include <new>
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

TEST_CASE("a box is recorded and answered, and without a title it has the application's")
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

TEST_CASE("a question is recorded as a box and answered with Cancel at once")
{
    bool again = true;
    const Played played =
        play("", [&](const Platform &platform) { again = platform.boxes.askRetry("出力中です。", Icon::exclamation); });
    CHECK(played.events == Log{R"({"event":"box","text":"出力中です。","icon":48,"title":"委任状印刷"})"});
    CHECK_FALSE(again);
}

TEST_CASE("the end statement ends the play with exit code 0, and nothing is recorded after it")
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

TEST_CASE("by default processes are only recorded, not started")
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

TEST_CASE("with starts enabled a program that cannot be started is recorded, then error 53")
{
    const Played played = play(
        "",
        [](const Platform &platform) { platform.processes.start("no-such-program.exe 2", WindowStyle::normalFocus); },
        std::nullopt, true);
    CHECK(played.events == Log{R"({"event":"start","command":"no-such-program.exe 2","style":1})",
                               R"({"event":"fatal","number":53,"text":"ファイルが見つかりません。"})"});
    CHECK(played.code == 1);
}

TEST_CASE("the clock is stopped at the given moment")
{
    const Date moment = *readMoment("2024-06-15 10:00:00");
    static_cast<void>(play(
        "", [&](const Platform &platform) { CHECK(platform.clock.now() == moment); }, moment));
}

TEST_CASE("without a given moment the clock is the system's")
{
    static_cast<void>(play("", [&](const Platform &platform) { CHECK(Year(platform.clock.now()) >= 2024); }));
}

TEST_CASE("a run-time error that leaves the program is recorded as fatal with exit code 1")
{
    const Played played = play("", [](const Platform &) { throw RuntimeError(94); });
    CHECK(played.events == Log{R"({"event":"fatal","number":94,"text":"Null の使い方が不正です。"})"});
    CHECK(played.code == 1);
}

TEST_CASE("an error that no event procedure traps is recorded as fatal with exit code 1")
{
    const Played played = play("", [](const Platform &) { throw UnhandledError(RuntimeError(76)); });
    CHECK(played.events == Log{R"({"event":"fatal","number":76,"text":"パスが見つかりません。"})"});
    CHECK(played.code == 1);
}

TEST_CASE("a bad command gives exit code 2 and its line on the error stream")
{
    const Played played = play("# first\n{\"click\":\"nobody\"}\n", [](const Platform &platform) {
        StageForm form;
        platform.windows.show(form, Modality::modal);
    });
    CHECK(played.code == 2);
    CHECK(played.errors == "line 2: frmStage has no control \"nobody\"\n");
    CHECK(played.events == Log{R"({"event":"window","name":"frmStage","shown":true})"});
}

TEST_CASE("an internal error gives exit code 1 and its text on the error stream")
{
    const Played played = play("", [](const Platform &) { throw std::logic_error("a fault"); });
    CHECK(played.code == 1);
    CHECK(played.errors == "a fault\n");
    CHECK(played.events.empty());
}

TEST_CASE("exhausted memory is recorded as the runtime's error 7 with exit code 1")
{
    const Played played = play("", [](const Platform &) { throw std::bad_alloc(); });
    CHECK(played.code == 1);
    CHECK(played.events == Log{R"({"event":"fatal","number":7,"text":"メモリが不足しています。"})"});
    CHECK(played.errors.empty());
}

TEST_CASE("a form that never closes gives exit code 1 and its name on the error stream")
{
    const Played played = play("", [](const Platform &platform) {
        StageForm form;
        form.refusals = 1000;
        platform.windows.show(form, Modality::modal);
    });
    CHECK(played.code == 1);
    CHECK(played.errors == "frmStage refuses to close after the last command\n");
}

TEST_CASE("a program that returns by itself gives exit code 0")
{
    CHECK(play("", [](const Platform &) {}).code == 0);
}

TEST_CASE("a transcript that cannot be written gives exit code 1")
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
