#include "adapters/native/native_platform.h"

#include "ordinary_user.h"
#include "support/small_disk.h"
#include "support/temp_folder.h"

#include <filesystem>
#include <vector>

#include <doctest/doctest.h>
#include <fcntl.h>
#include <sched.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace inin;
using namespace std::string_literals;

namespace {

mode_t permissionsOf(const std::string &path)
{
    struct stat status {};
    REQUIRE(lstat(path.c_str(), &status) == 0);
    return status.st_mode & 07777;
}

} // namespace

TEST_CASE("a write replaces the file, keeps its permissions and leaves no other file")
{
    const TempFolder folder;
    const std::string path = folder.put("x.ini", "[s]\r\nk=old\r\n");
    chmod(path.c_str(), 0640);

    CHECK(makeSystemProfile()->WritePrivateProfileString("s", "k", "new", path) == 1);

    CHECK(folder.bytes("x.ini") == "[s]\r\nk=new\r\n");
    CHECK(permissionsOf(path) == 0640);
    CHECK(folder.entries() == 1);
}

TEST_CASE("a write of the existing value does not change the file")
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

TEST_CASE("a write follows a link to its target")
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

TEST_CASE("a write keeps the owner of another user's file")
{
    if (geteuid() != 0) {
        MESSAGE("only root can make a file of another user: not run");
        return;
    }
    const TempFolder folder;
    const std::string path = folder.put("x.ini", "[s]\r\nk=a longer old value\r\n");
    chmod(path.c_str(), 0666);
    REQUIRE(chown(folder.path().c_str(), kOrdinaryUser, kOrdinaryUser) == 0);

    const std::string result = asOrdinaryUser(
        [&] { return std::to_string(makeSystemProfile()->WritePrivateProfileString("s", "k", "new", path)); });

    CHECK(result == "1");
    struct stat status {};
    REQUIRE(stat(path.c_str(), &status) == 0);
    CHECK(status.st_uid == 0);
    CHECK(folder.bytes("x.ini") == "[s]\r\nk=new\r\n");
    CHECK(folder.entries() == 1);
}

TEST_CASE("on a full disk a write is refused and the old file is intact")
{
    const TempFolder folder;
    const SmallDisk disk(folder.path(), 64);
    if (!disk.fault().empty()) {
        MESSAGE("skipped: ", disk.fault());
        return;
    }
    const std::string old = "[s]\r\nk=old\r\n; " + std::string(3000, '-') + "\r\n";
    const std::string path = folder.put("x.ini", old);
    disk.fill();

    CHECK(makeSystemProfile()->WritePrivateProfileString("s", "k", std::string(200, 'v'), path) == 0);

    CHECK(folder.bytes("x.ini") == old);
    CHECK(folder.entries() == 2); // the file that fills the disk is the other
}

TEST_CASE("a write keeps a file readable by its owner only")
{
    const TempFolder folder;
    const std::string path = folder.put("x.ini", "[s]\r\nk=old\r\n");
    chmod(path.c_str(), 0600);

    CHECK(makeSystemProfile()->WritePrivateProfileString("s", "k", "new", path) == 1);

    CHECK(permissionsOf(path) == 0600);
}

TEST_CASE("a write removes the unfinished file that a killed process left in the folder")
{
    const TempFolder folder;
    const std::string path = folder.put("x.ini", "[s]\r\nk=old\r\n");
    folder.put(".inin-3.tmp", "half");

    CHECK(makeSystemProfile()->WritePrivateProfileString("s", "k", "new", path) == 1);

    CHECK(folder.bytes("x.ini") == "[s]\r\nk=new\r\n");
    CHECK(folder.entries() == 1);
}

TEST_CASE("a new profile has the rights that the process's mask leaves")
{
    const TempFolder folder;
    const mode_t mask = umask(022);
    const std::int32_t written = makeSystemProfile()->WritePrivateProfileString("s", "k", "v", folder / "new.ini");
    umask(mask);

    CHECK(written == 1);
    CHECK(permissionsOf(folder / "new.ini") == 0644);
}

TEST_CASE("a signal that ends the program during a write leaves the old file and no other")
{
    const TempFolder folder;
    const std::string path = folder.put("x.ini", "[s]\r\nk=old\r\n");
    const pid_t child = fork();
    if (child == 0) {
        // The write itself causes the signal: it exceeds the allowed file size.
        const rlimit small{8, 8};
        signal(SIGXFSZ, SIG_DFL);
        setrlimit(RLIMIT_FSIZE, &small);
        (void)makeSystemProfile()->WritePrivateProfileString("s", "k", "new", path);
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    CHECK(WIFSIGNALED(status));
    CHECK(folder.bytes("x.ini") == "[s]\r\nk=old\r\n");
    CHECK(folder.entries() == 1);
}

TEST_CASE("a write succeeds where unnamed files are not supported")
{
    const TempFolder folder;
    const std::string path = folder.put("x.ini", "[s]\r\nk=old\r\n");
    int ends[2];
    REQUIRE(pipe(ends) == 0);
    const pid_t child = fork();
    if (child == 0) {
        // Without /proc an unnamed file cannot be named later.
        const bool isHidden = unshare(CLONE_NEWNS) == 0 && mount("", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                              mount("tmpfs", "/proc", "tmpfs", 0, nullptr) == 0;
        const std::int32_t written =
            isHidden ? makeSystemProfile()->WritePrivateProfileString("s", "k", "new", path) : 2;
        const char result = static_cast<char>('0' + written);
        (void)!write(ends[1], &result, 1);
        _exit(0);
    }
    char result = 0;
    const bool isReported = read(ends[0], &result, 1) == 1;
    waitpid(child, nullptr, 0);
    close(ends[0]);
    close(ends[1]);
    REQUIRE(isReported);
    if (result == '2') {
        MESSAGE("no folder can be hidden here: not run");
        return;
    }
    CHECK(result == '1');
    CHECK(folder.bytes("x.ini") == "[s]\r\nk=new\r\n");
    CHECK(folder.entries() == 1);
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
