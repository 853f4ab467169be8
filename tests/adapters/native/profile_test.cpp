#include "adapters/native/native_platform.h"
#include "adapters/native/profile_player.h"
#include "common/helpers.h"
#include "common/opl_ini_file.h"
#include "platform/settings_limit.h"
#include "support/fake_platform.h"
#include "support/temp_folder.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace std::string_literals;

// Behaviour of the profile calls on every system. Differences of one system are tested in its own folder.

namespace {

/// The profile class on real files.
struct RealWorld {
    FakeWorld world;
    std::unique_ptr<Files> files = makeSystemFiles(textOf(std::filesystem::current_path()));
    std::unique_ptr<Profile> profile = makeSystemProfile();
    std::unique_ptr<Locale> locale = makeSystemLocale();
    Platform platform{world.boxes,     world.windows, world.database, *profile,        *files,
                      world.processes, world.clock,   *locale,        world.automation};
};

std::string manyLines(std::size_t size)
{
    std::string lines;
    while (lines.size() < size) lines += "[s]\r\nk=v\r\n";
    return lines;
}

} // namespace

TEST_CASE("every recorded profile call has the platform's result on a real file")
{
    std::size_t played = 0;
    const auto profile = makeSystemProfile();
    for (const ProfileCase &one : recordedProfileCases()) {
        if (!isAboutTheBytes(one) || one.id == kMendedCase || !canBeAskedFor(one)) continue;
        ++played;
        const TempFolder folder;
        if (one.file) folder.put("x.ini", *one.file);
        CHECK(differences(one, *profile, folder / "x.ini", pathOf(folder / "x.ini")) == "");
        CHECK(folder.entries() <= 1);
    }
    CHECK(played >= 190);
}

TEST_CASE("a profile file of more than 16 MB is unreadable and is not written")
{
    const TempFolder folder;
    const auto profile = makeSystemProfile();
    const std::string file = folder.put("adodb.ini", "[s]\r\nk=1\r\n");
    std::filesystem::resize_file(pathOf(file), kMaxSettingsBytes);
    CHECK(profile->GetPrivateProfileInt("s", "k", 5, file) == 1);
    std::filesystem::resize_file(pathOf(file), kMaxSettingsBytes + 1);
    CHECK(profile->GetPrivateProfileInt("s", "k", 5, file) == 5);
    CHECK(profile->GetPrivateProfileString("s", "k", "none", 256, file) == "none");
    CHECK(profile->WritePrivateProfileString("s", "k", "2", file) == 0);
    CHECK(std::filesystem::file_size(pathOf(file)) == kMaxSettingsBytes + 1);
}

TEST_CASE("a profile file is found with either separator in its path, and under a Japanese name")
{
    const TempFolder folder;
    const auto profile = makeSystemProfile();
    CHECK(profile->WritePrivateProfileString("委任状", "印刷種別", "1", folder.path() + "\\印刷設定.ini") == 1);
    CHECK(folder.bytes("印刷設定.ini") == "[\x88\xCF\x94\x43\x8F\xF3]\r\n\x88\xF3\x8D\xFC\x8E\xED\x95\xCA=1\r\n");
    CHECK(profile->GetPrivateProfileString("委任状", "印刷種別", "", 256, folder / "印刷設定.ini") == "1");
}

TEST_CASE("a profile file is found by a path in any case")
{
    const TempFolder folder;
    std::filesystem::create_directory(pathOf(folder / "Data"));
    folder.put("Data/印刷設定.INI", "[s]\r\nk=old\r\n");
    const auto profile = makeSystemProfile();

    CHECK(profile->GetPrivateProfileString("s", "k", "", 256, folder.path() + "\\DATA\\印刷設定.ini") == "old");
    CHECK(profile->WritePrivateProfileString("s", "k", "new", folder.path() + "\\DATA\\印刷設定.ini") == 1);
    CHECK(folder.bytes("Data/印刷設定.INI") == "[s]\r\nk=new\r\n");
}

TEST_CASE("a refused write returns 0 and changes neither the file nor the folder")
{
    const TempFolder folder;
    const std::string readOnly = folder.putReadOnly("x.ini", "[s]\r\nk=old\r\n");
    std::filesystem::create_directory(pathOf(folder / "dir.ini"));
    const auto profile = makeSystemProfile();

    for (const std::string &path : {readOnly, folder / "dir.ini", folder / "missing/x.ini", readOnly + "/x.ini",
                                    folder / std::string(300, 'x')}) {
        INFO(path);
        CHECK(profile->WritePrivateProfileString("s", "k", "new", path) == 0);
    }
    CHECK(profile->WritePrivateProfileString(std::nullopt, "k", "new", folder / "new.ini") == 0);

    CHECK(folder.bytes("x.ini") == "[s]\r\nk=old\r\n");
    CHECK(folder.entries() == 2);
}

TEST_CASE("anything but a file reads as an empty profile")
{
    const TempFolder folder;
    const auto profile = makeSystemProfile();
    for (const std::string &path : {folder / "missing", folder / "missing/x.ini", folder.path(), ""s, "\\"s}) {
        INFO(path);
        CHECK(profile->GetPrivateProfileString("s", "k", "none", 256, path) == "none");
        CHECK(profile->GetPrivateProfileInt("s", "k", 5, path) == 5);
    }
}

TEST_CASE("a number without a section or key is the default, and a buffer of size 0 gets no text")
{
    const TempFolder folder;
    const std::string path = folder.put("x.ini", "[a]\r\nk=3\r\n");
    const auto profile = makeSystemProfile();
    CHECK(profile->GetPrivateProfileInt(std::nullopt, "k", 7, path) == 7);
    CHECK(profile->GetPrivateProfileInt("a", std::nullopt, 7, path) == 7);
    CHECK(profile->GetPrivateProfileString("a", "k", "d", 0, path) == "");
}

TEST_CASE("a value outside the code page is written as question marks")
{
    const TempFolder folder;
    const std::string path = folder.put("x.ini", "");
    const auto profile = makeSystemProfile();

    CHECK(profile->WritePrivateProfileString("s", "名前", "髙𠮷é", path) == 1);

    CHECK(profile->GetPrivateProfileString("s", "名前", "", 256, path) == "髙??");
    CHECK(folder.bytes("x.ini") == "[s]\r\n\x96\xBC\x91\x4F=\xFB\xFC??\r\n");
}

TEST_CASE("the profile class reads arbitrary bytes without a crash and finds nothing")
{
    struct Row {
        std::string name, bytes;
    };
    const Row rows[] = {
        {"empty", ""},
        {"without an equals sign", "[接続情報]\r\n接続情報\r\n"},
        {"with NUL bytes", std::string(4096, '\0') + "[\0"s},
        {"UTF-8", "[接続情報]\r\n接続情報=Provider=X\r\n"},
        {"UTF-16 without its mark", "[\0\xA5\x63\x9A\x7D\xC5\x60\x31\x58]\0\r\0\n\0"s},
        {"lead bytes only", std::string(4097, '\x81')},
        {"10 MB in one line", "[x]\r\n" + std::string(10 << 20, 'a')},
        {"10 MB of lines", manyLines(10 << 20)},
    };
    RealWorld real;
    const TempFolder folder;
    for (const Row &row : rows) {
        INFO(row.name);
        clsOplIniFile file(real.platform);
        REQUIRE(file.iInit(folder.put("adodb.ini", row.bytes)) == 0);
        CHECK(csCutNul(file.csGetProfileString("接続情報", "接続情報")) == "");
        CHECK(file.nGetProfileLong("接続情報", "接続情報") == 0);
        CHECK(file.csErrMsg == "");
        CHECK(file.iWriteProfileString("委任状", "対象期間", "2") == 1);
        CHECK(file.nGetProfileLong("委任状", "対象期間") == 2);
    }
}

TEST_CASE("the profile class reports a missing file by its name and reads it as empty")
{
    RealWorld real;
    const TempFolder folder;
    clsOplIniFile file(real.platform);

    CHECK(file.iInit(folder / "none.ini") == -1);

    CHECK(file.csErrMsg == "指定されたIni（" + folder.path() + "/none.ini）ファイルが見つかりません。");
    CHECK(csCutNul(file.csGetProfileString("s", "k")) == "");
    CHECK(file.nGetProfileLong("s", "k") == 0);
}

TEST_CASE("the profile class returns 0 for a write to a read-only file and keeps its error text")
{
    RealWorld real;
    const TempFolder folder;
    clsOplIniFile file(real.platform);
    REQUIRE(file.iInit(folder.putReadOnly("x.ini", "[s]\r\nk=1\r\n")) == 0);
    file.csErrMsg = "前の失敗";

    CHECK(file.iWriteProfileString("s", "k", "2") == 0);

    CHECK(file.csErrMsg == "前の失敗");
    CHECK(folder.bytes("x.ini") == "[s]\r\nk=1\r\n");
}
