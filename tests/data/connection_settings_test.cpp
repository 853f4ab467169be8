#include "data/connection_settings.h"

#include "support/fake_platform.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

using namespace inin;

namespace {

constexpr const char *kFile = "C:\\SUITE\\adodb.ini";
constexpr const char *kMissingFile = "指定されたIni（C:\\SUITE\\adodb.ini）ファイルが見つかりません。";

struct SettingsFixture : FakeWorld {
    explicit SettingsFixture(const std::string &utf8) { files.putText(kFile, utf8); }
};

} // namespace

TEST_CASE("a start gives a connected session")
{
    FakeWorld world;
    const StartedSession started = startSession(world.app);
    CHECK(started.isConnected());
    CHECK(started.step == ConnectStep::connected);
    REQUIRE(started.session != nullptr);
    CHECK(started.csErrMsg.empty());
    CHECK(world.database.connectionStrings == std::vector<std::string>{"Provider=Fake;Data Source=demo"});
    CHECK(world.database.lastTimeout == 180);
    CHECK(world.boxes.shown.empty());
}

TEST_CASE("the connection string is passed to the database unchanged except for blanks on the right")
{
    struct Row {
        const char *claim;
        const char *value;
        const char *used;
    };
    const Row rows[] = {
        {"trailing blanks are cut", "Provider=X;Data Source=s   ", "Provider=X;Data Source=s"},
        {"trailing blanks inside quotes are cut too", "\"Provider=X;Data Source=s   \"", "Provider=X;Data Source=s"},
        {"leading blanks inside quotes stay", "\"  Provider=X\"", "  Provider=X"},
        {"a password with its semicolons passes unread", "Provider=X;Password=\"a;b=c;;\";User ID=u",
         "Provider=X;Password=\"a;b=c;;\";User ID=u"},
        {"Japanese", "Provider=X;Data Source=サーバー表", "Provider=X;Data Source=サーバー表"},
        {"a full-width blank is no blank", "Provider=X　", "Provider=X　"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.claim);
        SettingsFixture fixture{std::string("[接続情報]\n接続情報=") + row.value + "\n"};
        CHECK(startSession(fixture.app).isConnected());
        CHECK(fixture.database.connectionStrings == std::vector<std::string>{row.used});
    }
}

TEST_CASE("a connection string is truncated at 255 bytes, as by the platform's buffer")
{
    SettingsFixture fixture{"[接続情報]\n接続情報=" + std::string(300, 'x') + "\n"};
    CHECK(startSession(fixture.app).isConnected());
    CHECK(fixture.database.connectionStrings == std::vector<std::string>{std::string(255, 'x')});
}

TEST_CASE("the file is read anew for each session")
{
    FakeWorld world;
    static_cast<void>(startSession(world.app));
    world.files.putText(kFile, "[接続情報]\n接続情報=Provider=Other\n");
    static_cast<void>(startSession(world.app));
    CHECK(world.database.connectionStrings ==
          std::vector<std::string>{"Provider=Fake;Data Source=demo", "Provider=Other"});
}

TEST_CASE("the file is in the folder that the runtime reports, whatever the current folder")
{
    FakeWorld world;
    world.app.gcsAppPath = "D:\\ELSEWHERE";
    CHECK(startSession(world.app).isConnected());
}

TEST_CASE("a missing file fails before any session with the file's text")
{
    FakeWorld world;
    world.files.remove(kFile);
    const StartedSession started = startSession(world.app);
    CHECK(started.step == ConnectStep::settingsFile);
    CHECK(started.session == nullptr);
    CHECK(started.csErrMsg == kMissingFile);
    CHECK(world.database.connectionStrings.empty());
    CHECK(world.boxes.shown.empty());
}

TEST_CASE("a file without a connection string fails before any session")
{
    struct Row {
        const char *claim;
        const char *lines;
    };
    const Row rows[] = {
        {"the key is missing", "[接続情報]\nother=1\n"},
        {"the section is missing", "接続情報=Provider=X\n"},
        {"the value is empty", "[接続情報]\n接続情報=\n"},
        {"the value is blanks", "[接続情報]\n接続情報=    \n"},
        {"the file is empty", ""},
        {"another section has it", "[接続]\n接続情報=Provider=X\n"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.claim);
        SettingsFixture fixture{row.lines};
        const StartedSession started = startSession(fixture.app);
        CHECK(started.step == ConnectStep::emptyText);
        CHECK(started.session == nullptr);
        CHECK(started.csErrMsg == "接続文字列取得できません。");
        CHECK(fixture.database.connectionStrings.empty());
    }
}

TEST_CASE("an unreadable profile file counts as one without a connection string")
{
    FakeWorld world;
    world.profile.error = 57;
    const StartedSession started = startSession(world.app);
    CHECK(started.step == ConnectStep::emptyText);
    CHECK(started.csErrMsg == "接続文字列取得できません。");
}

TEST_CASE("a file with bytes invalid in the code page has no connection string")
{
    FakeWorld world;
    world.files.put(kFile, std::string("\xFF\xFE\x00\x80[\xA0\xFD]\r\n\x80=\xFF\r\n", 15));
    CHECK(startSession(world.app).csErrMsg == "接続文字列取得できません。");
}

TEST_CASE("a failed connect gives the session's error text and keeps the session")
{
    FakeWorld world;
    world.database.connectError = -2147217843;
    world.database.connectDescription = "ログインに失敗しました。";
    const StartedSession started = startSession(world.app);
    CHECK(started.step == ConnectStep::connect);
    CHECK_FALSE(started.isConnected());
    CHECK(started.session != nullptr);
    CHECK(started.csErrMsg == "(-2147217843)ログインに失敗しました。");
    CHECK(world.boxes.shown.empty());
}

TEST_CASE("each failure is shown under the caller's heading")
{
    struct Row {
        const char *claim;
        void (*spoil)(FakeWorld &);
        std::string text;
    };
    const Row rows[] = {
        {"no file", [](FakeWorld &world) { world.files.remove(kFile); },
         std::string("iGetKanjaData でエラー\r\n") + kMissingFile},
        {"no string", [](FakeWorld &world) { world.files.putText(kFile, "[接続情報]\n"); },
         "iGetKanjaData でエラー\r\n接続文字列取得できません。"},
        {"no connection", [](FakeWorld &world) { world.database.connectError = -2147467259; },
         "iGetKanjaData でエラー\r\n(-2147467259)接続できません。"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.claim);
        FakeWorld world;
        row.spoil(world);
        CHECK_FALSE(startSession(world.app, "iGetKanjaData でエラー").isConnected());
        CHECK(world.boxes.shown == std::vector<ShownBox>{{row.text, Icon::critical, ""}});
    }
}

TEST_CASE("a successful start under a heading shows nothing")
{
    FakeWorld world;
    CHECK(startSession(world.app, "iGetKanjaData でエラー").isConnected());
    CHECK(world.boxes.shown.empty());
}

TEST_CASE("the session is disconnected when the caller releases it")
{
    FakeWorld world;
    static_cast<void>(startSession(world.app));
    CHECK(world.database.log == std::vector<std::string>{"connect 1", "disconnect 1"});
}
