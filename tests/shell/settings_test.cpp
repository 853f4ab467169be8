#include "shell/settings.h"

#include "support/errors.h"
#include "support/fake_platform.h"

#include <doctest/doctest.h>

#include <string>

using namespace inin;

namespace {

constexpr const char *kFile = "C:\\SUITE\\Massage.ini";

/// A world whose settings file has exactly these lines.
struct SettingsFixture : FakeWorld {
    explicit SettingsFixture(const std::string &utf8) { files.putText(kFile, utf8); }
    Variant read(const std::string &key, WarnIfMissing warn = WarnIfMissing::no)
    {
        return vGetSystemValue(app, key, warn);
    }
};

const ShownBox kMissingTmpBox{"システム設定ファイルに、指定の項目が見つかりません。\r[SYSTEM_TMP]", Icon::critical,
                              "警告！"};

} // namespace

TEST_CASE("a setting is the text after its first equals sign")
{
    struct Row {
        const char *claim;
        const char *lines;
        const char *value;
    };
    const Row rows[] = {
        {"plain", "SYSTEM_TMP=\\TMP\n", "\\TMP"},
        {"blanks around the key", "  SYSTEM_TMP  =\\TMP\n", "\\TMP"},
        {"blanks of the value stay on both sides", "SYSTEM_TMP= \\TMP  \n", " \\TMP  "},
        {"a value with an equals sign stays whole", "SYSTEM_TMP=a=b=c\n", "a=b=c"},
        {"an empty value", "SYSTEM_TMP=\n", ""},
        {"the first of two lines counts", "SYSTEM_TMP=one\nSYSTEM_TMP=two\n", "one"},
        {"another key before it", "SYSTEM_TMPX=x\nSYSTEM_TMP=\\TMP\n", "\\TMP"},
        {"a section header is skipped", "[SYSTEM]\n\nSYSTEM_TMP=\\TMP\n", "\\TMP"},
        {"a line without equals is skipped", "SYSTEM_TMP\nSYSTEM_TMP=\\TMP\n", "\\TMP"},
        {"the last line without a line end", "A=1\nSYSTEM_TMP=\\TMP", "\\TMP"},
        {"a Japanese value", "SYSTEM_TMP=\\一時ソ表\n", "\\一時ソ表"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.claim);
        SettingsFixture fixture{row.lines};
        CHECK(fixture.read("SYSTEM_TMP") == Variant(row.value));
        CHECK(fixture.boxes.shown.empty());
    }
}

TEST_CASE("a Japanese key is found by its bytes in the code page")
{
    SettingsFixture fixture{"終了患者施術期間=3\n"};
    CHECK(fixture.read("終了患者施術期間") == Variant("3"));
}

TEST_CASE("a key is searched with its blanks trimmed")
{
    SettingsFixture fixture{"WALLPAPER=wall.bmp\n"};
    CHECK(fixture.read("  WALLPAPER ") == Variant("wall.bmp"));
}

TEST_CASE("a key in a different case is a different key")
{
    SettingsFixture fixture{"system_tmp=\\TMP\n"};
    CHECK(fixture.read("SYSTEM_TMP", WarnIfMissing::yes) == Variant(""));
    REQUIRE(fixture.boxes.shown.size() == 1);
    CHECK(fixture.boxes.shown[0] == kMissingTmpBox);
}

TEST_CASE("a comment that contains an equals sign is a key like any other")
{
    SettingsFixture fixture{";WALLPAPER=old.bmp\nWALLPAPER=new.bmp\n"};
    CHECK(fixture.read("WALLPAPER") == Variant("new.bmp"));
    CHECK(fixture.read(";WALLPAPER") == Variant("old.bmp"));
}

TEST_CASE("a line that begins with an equals sign matches the empty key only")
{
    SettingsFixture fixture{"=nameless\nA=1\n"};
    CHECK(fixture.read("") == Variant("nameless"));
    CHECK(fixture.read("A") == Variant("1"));
}

TEST_CASE("a missing key gives an Empty without a box if no warning is requested")
{
    SettingsFixture fixture{"A=1\n"};
    CHECK(fixture.read("BASEID").isEmpty());
    CHECK(fixture.boxes.shown.empty());
}

TEST_CASE("a missing key gives the empty text after a warning with its name")
{
    SettingsFixture fixture{"A=1\n"};
    CHECK(fixture.read("SYSTEM_TMP", WarnIfMissing::yes) == Variant(""));
    REQUIRE(fixture.boxes.shown.size() == 1);
    CHECK(fixture.boxes.shown[0] == kMissingTmpBox);
}

TEST_CASE("a missing settings file shows a warning and ends the process")
{
    FakeWorld world;
    world.files.remove(kFile);
    CHECK_THROWS_AS(static_cast<void>(vGetSystemValue(world.app, "BASEID", WarnIfMissing::no)), ProcessEnded);
    REQUIRE(world.boxes.shown.size() == 1);
    CHECK(world.boxes.shown[0] == ShownBox{"システム設定ファイルが見つかりません。", Icon::critical, "警告！"});
    CHECK(world.processes.ended);
}

TEST_CASE("the settings file is searched and read anew at each call")
{
    SettingsFixture fixture{"A=1\n"};
    CHECK(fixture.read("A") == Variant("1"));
    fixture.files.putText(kFile, "A=2\n");
    CHECK(fixture.read("A") == Variant("2"));
    CHECK(fixture.files.log == std::vector<std::string>{"search C:\\SUITE\\Massage.ini", "open <C:\\SUITE\\Massage.ini",
                                                        "search C:\\SUITE\\Massage.ini",
                                                        "open <C:\\SUITE\\Massage.ini"});
}

TEST_CASE("a settings file that cannot be opened is a run-time error for the caller")
{
    FakeWorld world;
    world.files.openInputErrors["c:\\suite\\massage.ini"] = 70;
    CHECK(errorOf([&] { return vGetSystemValue(world.app, "A", WarnIfMissing::yes); }) == 70);
    CHECK(world.boxes.shown.empty());
}

TEST_CASE("an empty settings file has no key")
{
    SettingsFixture fixture{""};
    CHECK(fixture.read("BASEID").isEmpty());
}

TEST_CASE("a settings file without any equals sign has no key")
{
    SettingsFixture fixture{"SYSTEM_TMP\n[SYSTEM_TMP]\n \n\n"};
    CHECK(fixture.read("SYSTEM_TMP").isEmpty());
}

TEST_CASE("NUL bytes in the settings file do not hide the lines after them")
{
    FakeWorld world;
    world.files.put(kFile, std::string("A=\0x\r\n\0\0=\r\nB=2\r\n", 16));
    CHECK(vGetSystemValue(world.app, "B", WarnIfMissing::no) == Variant("2"));
    CHECK(vGetSystemValue(world.app, "A", WarnIfMissing::no) == Variant(std::string("\0x", 2)));
}

TEST_CASE("a key after ten megabytes of settings is found")
{
    FakeWorld world;
    std::string bytes = std::string(5'000'000, 'x') + "\r\n";
    while (bytes.size() < 10'000'000) bytes += "KEY=value of no interest\r\n";
    world.files.put(kFile, bytes + "BASEID=0102\r\n");
    CHECK(vGetSystemValue(world.app, "BASEID", WarnIfMissing::no) == Variant("0102"));
}

TEST_CASE("bytes invalid in the code page do not end the reading")
{
    FakeWorld world;
    world.files.put(kFile, "\xFF\xFE\x80=\xA0\xFD\r\nBASEID=0102\r\n");
    CHECK(vGetSystemValue(world.app, "BASEID", WarnIfMissing::no) == Variant("0102"));
}

TEST_CASE("lines that end with CR or LF alone are lines too")
{
    FakeWorld world;
    world.files.put(kFile, "A=1\rB=2\nC=3\r\n");
    CHECK(vGetSystemValue(world.app, "B", WarnIfMissing::no) == Variant("2"));
    CHECK(vGetSystemValue(world.app, "C", WarnIfMissing::no) == Variant("3"));
}

TEST_CASE("the folders are the application folder, the setting and a backslash")
{
    FakeWorld world;
    CHECK(csSysDir(world.app) == "C:\\SUITE\\SYS\\");
    CHECK(csTmpDir(world.app) == "C:\\SUITE\\TMP\\");
    CHECK(csIconDir(world.app) == "C:\\SUITE\\ICON\\");
    CHECK(csDataDir(world.app) == "C:\\SUITE\\DATA\\");
}

TEST_CASE("a folder setting keeps its blanks, and nothing is inserted between application folder and value")
{
    SettingsFixture fixture{"SYSTEM_TMP=TMP \n"};
    CHECK(csTmpDir(fixture.app) == "C:\\SUITETMP \\");
}

TEST_CASE("a missing folder setting warns and gives the application folder with its backslash")
{
    SettingsFixture fixture{"A=1\n"};
    CHECK(csTmpDir(fixture.app) == "C:\\SUITE\\");
    REQUIRE(fixture.boxes.shown.size() == 1);
    CHECK(fixture.boxes.shown[0] == kMissingTmpBox);
}

TEST_CASE("the application folder is made current, drive first, and returned as the system reports it")
{
    FakeWorld world;
    CHECK(csSetAppDir(world.app, "D:\\OTHER") == "D:\\OTHER");
    CHECK(world.files.log == std::vector<std::string>{"chdrive D:\\OTHER", "chdir D:\\OTHER"});
}

TEST_CASE("a file exists if a directory search finds a name")
{
    FakeWorld world;
    struct Row {
        const char *path;
        bool exists;
    };
    const Row rows[] = {
        {"C:\\SUITE\\ICON\\wall.bmp", true},  {"C:\\SUITE\\ICON\\WALL.BMP", true},
        {"C:\\SUITE\\ICON\\none.bmp", false}, {"C:\\SUITE\\ICON\\", true}, // the folder's first file
        {"C:\\SUITE\\TMP\\", false},                                       // an empty folder has none
        {"C:\\SUITE\\ICON", false},                                        // a folder is not a file
        {"C:\\SUITE\\ICON\\*.bmp", true},
    };
    for (const Row &row : rows) {
        CAPTURE(row.path);
        CHECK(bFileExists(world.app, row.path) == row.exists);
    }
}
