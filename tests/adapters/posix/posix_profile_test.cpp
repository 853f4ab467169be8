#include "adapters/system/system_platform.h"

#include "ordinary_user.h"
#include "small_disk.h"
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

TEST_CASE("a pipe or a device reads as an empty profile")
{
    const TempFolder folder;
    REQUIRE(mkfifo((folder / "pipe").c_str(), 0600) == 0);
    const auto profile = makeSystemProfile();
    for (const std::string &path : {folder / "pipe", "/dev/zero"s}) {
        INFO(path);
        CHECK(profile->GetPrivateProfileString("s", "k", "none", 256, path) == "none");
        CHECK(profile->GetPrivateProfileInt("s", "k", 5, path) == 5);
    }
}
