#include "adapters/native/native_platform.h"

#include "ordinary_user.h"
#include "support/errors.h"
#include "support/small_disk.h"
#include "support/temp_folder.h"

#include <filesystem>
#include <vector>

#include <doctest/doctest.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace inin;
using namespace std::string_literals;

namespace {

std::int32_t openOutputError(const std::string &path)
{
    return errorOf([&] { return makeSystemFiles("/")->openForOutput(path); });
}

std::int32_t openInputError(const std::string &path)
{
    return errorOf([&] { return makeSystemFiles("/")->openForInput(path); });
}

std::int32_t removalError(const std::string &path)
{
    return errorOf([&] { makeSystemFiles("/")->remove(path); });
}

mode_t modeOf(const std::string &path)
{
    struct stat status {};
    REQUIRE(lstat(path.c_str(), &status) == 0);
    return status.st_mode & 07777;
}

} // namespace

TEST_CASE("a name longer than the system's limit is error 52")
{
    const TempFolder folder;
    CHECK(openOutputError(folder / std::string(300, 'x')) == 52);
    CHECK(openInputError(folder / std::string(300, 'x')) == 52);
    CHECK(folder.entries() == 0);
}

TEST_CASE("a change to a folder with an empty name is error 76")
{
    CHECK(errorOf([] { makeSystemFiles("/")->changeFolder(""); }) == 76);
}

TEST_CASE("denied access to a folder is error 75, to a file error 70")
{
    const TempFolder folder;
    chmod(folder.put("x", "old").c_str(), 0444);
    folder.put("secret", "old");
    chmod((folder / "secret").c_str(), 0000);
    chmod(folder.path().c_str(), 0555);
    const std::string result = asOrdinaryUser([&] {
        return std::to_string(openOutputError(folder / "new")) + " " + std::to_string(removalError(folder / "x")) +
               " " + std::to_string(openInputError(folder / "secret")) + " " +
               std::to_string(openOutputError(folder / "secret"));
    });
    CHECK(result == "75 70 70 70");
}

TEST_CASE("a writable file that its folder does not allow to be deleted is error 75")
{
    const TempFolder folder;
    chmod(folder.put("x", "old").c_str(), 0666);
    chmod(folder.path().c_str(), 0555);
    CHECK(asOrdinaryUser([&] { return std::to_string(removalError(folder / "x")); }) == "75");
}

TEST_CASE("too many open files are error 67")
{
    const TempFolder folder;
    const std::string file = folder.put("x", "");
    const std::string result = asOrdinaryUser([&] {
        rlimit before{};
        getrlimit(RLIMIT_NOFILE, &before);
        const rlimit few{16, before.rlim_max};
        setrlimit(RLIMIT_NOFILE, &few);
        const auto files = makeSystemFiles("/");
        std::vector<std::unique_ptr<InputFile>> open;
        const std::int32_t number = errorOf([&] {
            while (open.size() < 100) open.push_back(files->openForInput(file));
        });
        setrlimit(RLIMIT_NOFILE, &before); // a sanitizer opens a file to inspect what is closed
        return std::to_string(number);
    });
    CHECK(result == "67");
}

TEST_CASE("a full device is error 61 at the write that fills the buffer and at the close")
{
    const auto files = makeSystemFiles("/");
    const auto written = files->openForOutput("/dev/full");
    CHECK(errorOf([&] { written->write(std::string(70000, 'x')); }) == 61);
    const auto closed = files->openForOutput("/dev/full");
    CHECK(errorOf([&] { closed->write("x"); }) == 0);
    CHECK(errorOf([&] { closed->close(); }) == 61);
    CHECK(errorOf([&] { closed->close(); }) == 0); // it is closed by now
}

TEST_CASE("a full disk is error 61 and the file keeps what was written")
{
    const TempFolder folder;
    const SmallDisk disk(folder.path(), 64);
    if (!disk.fault().empty()) {
        MESSAGE("skipped: ", disk.fault());
        return;
    }
    const auto file = makeSystemFiles("/")->openForOutput(folder / "x");
    CHECK(errorOf([&] {
              for (int piece = 0; piece < 100; ++piece) file->write(std::string(1000, 'x'));
              file->close();
          }) == 61);
    CHECK(folder.bytes("x").size() > 30000);
    CHECK(folder.bytes("x").find_first_not_of('x') == std::string::npos);
}

TEST_CASE("a program that is killed between two lines leaves a file that does not end at a line end")
{
    const TempFolder folder;
    const std::string line = std::string(1022, 'x') + "\r\n";
    for (int lines = 0; lines < 200; lines += 3) {
        const pid_t child = fork();
        if (child == 0) {
            const auto file = makeSystemFiles("/")->openForOutput(folder / "x");
            for (int written = 0; written < lines; ++written) file->write(line);
            kill(getpid(), SIGKILL);
        }
        waitpid(child, nullptr, 0);
        const std::string left = folder.bytes("x");
        CAPTURE(lines);
        CHECK((left.empty() || left.back() == 'x'));
        CHECK((left.empty() == (lines < 64)));
    }
}

TEST_CASE("a disk that is full at a line end leaves a file that does not end there")
{
    const TempFolder folder;
    chmod(folder.path().c_str(), 0777);
    const std::string line = std::string(98, 'x') + "\r\n";
    const std::string result = asOrdinaryUser([&] {
        const rlimit full{50000, RLIM_INFINITY}, free{RLIM_INFINITY, RLIM_INFINITY};
        signal(SIGXFSZ, SIG_IGN);
        const auto file = makeSystemFiles("/")->openForOutput(folder / "x");
        setrlimit(RLIMIT_FSIZE, &full);
        const std::int32_t written = errorOf([&] {
            for (int count = 0; count < 1000; ++count) file->write(line);
        });
        setrlimit(RLIMIT_FSIZE, &free);
        return std::to_string(written) + " " + std::to_string(errorOf([&] { file->close(); }));
    });
    CHECK(result == "61 0"); // a failed write is not repeated
    CHECK(folder.bytes("x").size() == 49998);
    CHECK(folder.bytes("x").back() == 'x');
}

TEST_CASE("a new file is readable by its owner only, and the user's existing file keeps its permissions")
{
    const TempFolder folder;
    struct Row {
        std::string name;
        mode_t before, after;
    };
    for (const Row &row : {Row{"new", 0, 0600}, Row{"own", 0600, 0600}, Row{"group", 0664, 0664}}) {
        CAPTURE(row.name);
        if (row.before != 0) chmod(folder.put(row.name, "old").c_str(), row.before);
        makeSystemFiles("/")->openForOutput(folder / row.name)->write("new");
        CHECK(modeOf(folder / row.name) == row.after);
        CHECK(folder.bytes(row.name) == "new");
    }
}

TEST_CASE("another user's file in a shared folder is replaced by a file of this user only")
{
    if (geteuid() != 0) {
        MESSAGE("only root can make a file of another user: not run");
        return;
    }
    const TempFolder folder;
    for (const char *name : {"a", "b"}) chmod(folder.put(name, "root's").c_str(), 0666);
    chmod(folder.path().c_str(), 0777);
    const std::string result = asOrdinaryUser([&] {
        const std::int32_t removed = removalError(folder / "a");
        makeSystemFiles("/")->openForOutput(folder / "b")->write("new");
        return std::to_string(removed);
    });
    CHECK(result == "0");
    struct stat status {};
    REQUIRE(stat((folder / "b").c_str(), &status) == 0);
    CHECK(status.st_uid == kOrdinaryUser);
    CHECK((status.st_mode & 07777) == 0600);
    CHECK(folder.names() == std::vector<std::string>{"b"});
}

TEST_CASE("a link under a file's name is replaced by a file, and its target is unchanged")
{
    const TempFolder folder, elsewhere;
    elsewhere.put("soft", "kept");
    elsewhere.put("hard", "kept");
    std::filesystem::create_symlink(elsewhere / "soft", folder / "soft");
    std::filesystem::create_hard_link(elsewhere / "hard", folder / "hard");
    std::filesystem::create_symlink(elsewhere / "coming", folder / "dangling");
    for (const char *name : {"soft", "hard", "dangling"}) {
        CAPTURE(name);
        makeSystemFiles("/")->openForOutput(folder / name)->write("letters");
        CHECK(folder.bytes(name) == "letters");
        CHECK_FALSE(std::filesystem::is_symlink(folder / name));
    }
    CHECK(elsewhere.bytes("soft") == "kept");
    CHECK(elsewhere.bytes("hard") == "kept");
    CHECK(elsewhere.entries() == 2);
}

TEST_CASE("every user can open a locked file, whatever the mask of its creator")
{
    const TempFolder folder;
    const mode_t mask = umask(077);
    const LockedFile locked = makeSystemFiles("/")->openLocked(folder / "x");
    umask(mask);

    struct stat status {};
    REQUIRE(stat((folder / "x").c_str(), &status) == 0);
    CHECK((status.st_mode & 0777) == 0666);
}

TEST_CASE("a link under a locked file's name is replaced by a file, and its target is unchanged")
{
    const TempFolder folder, elsewhere;
    elsewhere.put("hard", "kept");
    std::filesystem::create_hard_link(elsewhere / "hard", folder / "hard");
    std::filesystem::create_symlink(elsewhere / "coming", folder / "dangling");
    for (const char *name : {"hard", "dangling"}) {
        const LockedFile locked = makeSystemFiles("/")->openLocked(folder / name);
        REQUIRE(locked.output);
        locked.output->write("run");
        CHECK(folder.bytes(name) == "run");
    }
    CHECK(elsewhere.bytes("hard") == "kept");
    CHECK(elsewhere.entries() == 1);
}

TEST_CASE("a link to a read-only file can be removed")
{
    const TempFolder folder;
    folder.putReadOnly("target", "kept");
    std::filesystem::create_symlink(folder / "target", folder / "link");
    CHECK(removalError(folder / "link") == 0);
    CHECK(folder.bytes("target") == "kept");
}

TEST_CASE("a file that cannot be removed from its folder is overwritten in place")
{
    const TempFolder folder;
    chmod(folder.put("x", "a longer old text").c_str(), 0666);
    chmod(folder.path().c_str(), 0555);
    CHECK(asOrdinaryUser([&] {
              makeSystemFiles("/")->openForOutput(folder / "x")->write("new");
              return folder.bytes("x");
          }) == "new");
}

TEST_CASE("a lock ends with the process that held it")
{
    const TempFolder folder;
    int ends[2];
    REQUIRE(pipe(ends) == 0);
    const pid_t child = fork();
    if (child == 0) {
        const LockedFile held = makeSystemFiles("/")->openLocked(folder / "x");
        (void)!write(ends[1], "x", 1);
        pause();
    }
    char ready = 0;
    REQUIRE(read(ends[0], &ready, 1) == 1);
    CHECK(makeSystemFiles("/")->openLocked(folder / "x").state == LockedFile::State::busy);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    CHECK(makeSystemFiles("/")->openLocked(folder / "x").state == LockedFile::State::locked);
    close(ends[0]);
    close(ends[1]);
}

TEST_CASE("a locked file that was removed meanwhile is created again")
{
    const TempFolder folder;
    const LockedFile first = makeSystemFiles("/")->openLocked(folder / "x");
    std::filesystem::remove(folder / "x");
    const LockedFile second = makeSystemFiles("/")->openLocked(folder / "x");
    CHECK(second.state == LockedFile::State::locked);
    CHECK(makeSystemFiles("/")->openLocked(folder / "x").state == LockedFile::State::busy);
}

TEST_CASE("a lock fails in a folder without write permission")
{
    const TempFolder folder;
    chmod(folder.path().c_str(), 0555);
    CHECK(asOrdinaryUser([&] {
              return makeSystemFiles("/")->openLocked(folder / "x").state == LockedFile::State::unavailable ? "none"
                                                                                                            : "locked";
          }) == "none");
}

TEST_CASE("a pipe under a file's name does not block: it reads as empty and refuses writes")
{
    const TempFolder folder;
    REQUIRE(mkfifo((folder / "Massage.ini").c_str(), 0600) == 0);

    CHECK(makeSystemFiles("/")->openForInput(folder.path() + "\\Massage.ini")->read(10) == "");
    CHECK(openOutputError(folder.path() + "\\Massage.ini") == 71);
}

TEST_CASE("a device under a file's name cannot be read and is error 71")
{
    const TempFolder folder;
    std::filesystem::create_symlink("/dev/zero", folder / "Massage.ini");
    CHECK(errorOf([&] { (void)makeSystemFiles("/")->openForInput(folder.path() + "\\Massage.ini"); }) == 71);
}

TEST_CASE("a directory search finds the first file that matches the pattern")
{
    const TempFolder folder;
    for (const char *name : {"b.csv", "A.csv", "c.txt", "plain", "委任状.csv", ".hidden"}) folder.put(name, "");
    std::filesystem::create_directory(folder / "a0.csv");
    const auto files = makeSystemFiles("/");
    const auto search = [&](const std::string &pattern) {
        return files->directorySearch(folder.path() + "\\" + pattern);
    };
    CHECK(search("*.csv") == "A.csv");
    CHECK(search("?.CSV") == "A.csv");
    CHECK(search("B*") == "b.csv");
    CHECK(search("???.csv") == "委任状.csv");
    CHECK(search("??.csv") == "");
    CHECK(search("p*n") == "plain");
    CHECK(search("*l*i*") == "plain");
    CHECK(search("*.*") == ".hidden");
    CHECK(search("*.doc") == "");
    CHECK(files->directorySearch(folder / "none/*") == "");
}

TEST_CASE("a pattern of many stars is matched at once")
{
    const TempFolder folder;
    folder.put(std::string(200, 'a'), "");
    std::string pattern;
    for (int star = 0; star < 40; ++star) pattern += "*a";
    CHECK(makeSystemFiles("/")->directorySearch(folder / (pattern + "b")) == "");
}

TEST_CASE("a removed current folder is error 76")
{
    const TempFolder folder;
    const CurrentFolder back(folder.path());
    std::filesystem::create_directory(folder / "sub");
    const auto files = makeSystemFiles("/");
    files->changeFolder(folder / "sub");
    std::filesystem::remove(folder / "sub");
    CHECK(errorOf([&] { (void)files->currentFolder(); }) == 76);
}
