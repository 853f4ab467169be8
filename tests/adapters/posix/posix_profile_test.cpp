#include "adapters/system/system_platform.h"

#include "adapters/suite_text/code_page_932.h"
#include "common/helpers.h"
#include "common/opl_ini_file.h"
#include "ordinary_user.h"
#include "small_disk.h"
#include "support/fake_platform.h"
#include "support/temp_folder.h"

#include <filesystem>

#include <doctest/doctest.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace inin;
using namespace std::string_literals;

namespace {

mode_t modeOf(const std::string &path)
{
    struct stat status {};
    REQUIRE(lstat(path.c_str(), &status) == 0);
    return status.st_mode & 07777;
}

/// The profile class over real files.
struct RealWorld {
    FakeWorld world;
    std::unique_ptr<Files> files = makeSystemFiles("/");
    std::unique_ptr<Profile> profile = makeSystemProfile();
    std::unique_ptr<Locale> locale = makeSystemLocale();
    Platform platform{world.boxes,     world.windows, world.database, *profile,        *files,
                      world.processes, world.clock,   *locale,        world.automation};
};

} // namespace

TEST_CASE("a write takes the old file's place with its rights and leaves no other file")
{
    const TempFolder folder;
    const std::string path = folder.put("x.ini", "[s]\r\nk=old\r\n");
    chmod(path.c_str(), 0640);

    CHECK(makeSystemProfile()->WritePrivateProfileString("s", "k", "new", path) == 1);

    CHECK(folder.bytes("x.ini") == "[s]\r\nk=new\r\n");
    CHECK(modeOf(path) == 0640);
    CHECK(folder.entries() == 1);
}

TEST_CASE("a write of what stands there leaves the file alone")
{
    const TempFolder folder;
    const std::string path = folder.put("x.ini", "[s]\r\nk=v\r\n");
    struct stat before {
    }, after{};
    REQUIRE(stat(path.c_str(), &before) == 0);

    CHECK(makeSystemProfile()->WritePrivateProfileString("s", "k", "v", path) == 1);

    REQUIRE(stat(path.c_str(), &after) == 0);
    CHECK(after.st_ino == before.st_ino);
}

TEST_CASE("a write goes through a link to the file that it leads to")
{
    const TempFolder folder, elsewhere;
    elsewhere.put("real.ini", "[s]\r\nk=old\r\n");
    std::filesystem::create_symlink(elsewhere / "real.ini", folder / "x.ini");
    std::filesystem::create_symlink(elsewhere / "coming.ini", folder / "y.ini");
    const auto profile = makeSystemProfile();

    CHECK(profile->WritePrivateProfileString("s", "k", "new", folder / "x.ini") == 1);
    CHECK(profile->WritePrivateProfileString("s", "k", "first", folder / "y.ini") == 1);

    CHECK(elsewhere.bytes("real.ini") == "[s]\r\nk=new\r\n");
    CHECK(elsewhere.bytes("coming.ini") == "[s]\r\nk=first\r\n");
    CHECK(std::filesystem::is_symlink(folder / "x.ini"));
    CHECK(std::filesystem::is_symlink(folder / "y.ini"));
}

TEST_CASE("a write keeps the owner of a file that belongs to another user")
{
    if (geteuid() != 0) {
        MESSAGE("only root can make a file of another user: not run");
        return;
    }
    const TempFolder folder;
    const std::string path = folder.put("x.ini", "[s]\r\nk=a longer old value\r\n");
    chmod(path.c_str(), 0666);
    REQUIRE(chown(folder.path().c_str(), kOrdinaryUser, kOrdinaryUser) == 0);

    const std::string told = asOrdinaryUser(
        [&] { return std::to_string(makeSystemProfile()->WritePrivateProfileString("s", "k", "new", path)); });

    CHECK(told == "1");
    struct stat status {};
    REQUIRE(stat(path.c_str(), &status) == 0);
    CHECK(status.st_uid == 0);
    CHECK(folder.bytes("x.ini") == "[s]\r\nk=new\r\n");
    CHECK(folder.entries() == 1);
}

TEST_CASE("a refused write gives 0 and leaves the file and the folder as they were")
{
    const TempFolder folder;
    const std::string readOnly = folder.put("x.ini", "[s]\r\nk=old\r\n");
    chmod(readOnly.c_str(), 0444);
    std::filesystem::create_directory(folder / "dir.ini");
    const auto profile = makeSystemProfile();

    CHECK(profile->WritePrivateProfileString("s", "k", "new", readOnly) == 0);
    CHECK(profile->WritePrivateProfileString("s", "k", "new", folder / "dir.ini") == 0);
    CHECK(profile->WritePrivateProfileString("s", "k", "new", folder / "missing/x.ini") == 0);
    CHECK(profile->WritePrivateProfileString("s", "k", "new", readOnly + "/x.ini") == 0);
    CHECK(profile->WritePrivateProfileString("s", "k", "new", folder / std::string(300, 'x')) == 0);
    CHECK(profile->WritePrivateProfileString(std::nullopt, "k", "new", folder / "new.ini") == 0);

    CHECK(folder.bytes("x.ini") == "[s]\r\nk=old\r\n");
    CHECK(folder.entries() == 2);
}

TEST_CASE("a full disk refuses a write and keeps the old file whole")
{
    const TempFolder folder;
    const SmallDisk disk(folder.path());
    if (!disk.isThere()) {
        MESSAGE("no small disk can be mounted here: not run");
        return;
    }
    const std::string old = "[s]\r\nk=old\r\n; " + std::string(3000, '-') + "\r\n";
    const std::string path = folder.put("x.ini", old);
    disk.fill();

    CHECK(makeSystemProfile()->WritePrivateProfileString("s", "k", std::string(200, 'v'), path) == 0);

    CHECK(folder.bytes("x.ini") == old);
    CHECK_FALSE(folder.has("x.ini.~" + std::to_string(getpid()) + "-0"));
}

TEST_CASE("a file that an earlier process left half written is passed over")
{
    const TempFolder folder;
    const std::string path = folder.put("x.ini", "[s]\r\nk=old\r\n");
    const std::string left = "x.ini.~" + std::to_string(getpid()) + "-0";
    folder.put(left, "half");

    CHECK(makeSystemProfile()->WritePrivateProfileString("s", "k", "new", path) == 1);

    CHECK(folder.bytes("x.ini") == "[s]\r\nk=new\r\n");
    CHECK(folder.bytes(left) == "half");
}

TEST_CASE("a profile file is found whatever the case of its path")
{
    const TempFolder folder;
    std::filesystem::create_directory(folder / "Data");
    folder.put("Data/印刷設定.INI", "[s]\r\nk=old\r\n");
    const auto profile = makeSystemProfile();

    CHECK(profile->GetPrivateProfileString("s", "k", "", 256, folder.path() + "\\DATA\\印刷設定.ini") == "old");
    CHECK(profile->WritePrivateProfileString("s", "k", "new", folder.path() + "\\DATA\\印刷設定.ini") == 1);
    CHECK(folder.bytes("Data/印刷設定.INI") == "[s]\r\nk=new\r\n");
}

TEST_CASE("what is no file reads as an empty profile")
{
    const TempFolder folder;
    REQUIRE(mkfifo((folder / "pipe").c_str(), 0600) == 0);
    const auto profile = makeSystemProfile();
    for (const std::string &path : {folder / "missing", folder / "pipe", folder.path(), "/dev/zero"s, ""s, "\\"s}) {
        INFO(path);
        CHECK(profile->GetPrivateProfileString("s", "k", "none", 256, path) == "none");
        CHECK(profile->GetPrivateProfileInt("s", "k", 5, path) == 5);
    }
}

TEST_CASE("a strange profile file is read by the profile class without a crash or a find")
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
        {"10 MB of lines",
         [] {
             std::string lines;
             while (lines.size() < (10 << 20)) lines += "[s]\r\nk=v\r\n";
             return lines;
         }()},
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

TEST_CASE("the profile class tells a missing file by its name and reads it as empty")
{
    RealWorld real;
    const TempFolder folder;
    clsOplIniFile file(real.platform);

    CHECK(file.iInit(folder / "none.ini") == -1);

    CHECK(file.csErrMsg == "指定されたIni（" + folder.path() + "/none.ini）ファイルが見つかりません。");
    CHECK(csCutNul(file.csGetProfileString("s", "k")) == "");
    CHECK(file.nGetProfileLong("s", "k") == 0);
}

TEST_CASE("the profile class gives 0 for a write to a read-only file and keeps its error text")
{
    RealWorld real;
    const TempFolder folder;
    const std::string path = folder.put("x.ini", "[s]\r\nk=1\r\n");
    chmod(path.c_str(), 0444);
    clsOplIniFile file(real.platform);
    REQUIRE(file.iInit(path) == 0);
    file.csErrMsg = "前の失敗";

    CHECK(file.iWriteProfileString("s", "k", "2") == 0);

    CHECK(file.csErrMsg == "前の失敗");
    CHECK(folder.bytes("x.ini") == "[s]\r\nk=1\r\n");
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
