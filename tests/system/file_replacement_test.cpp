#include "support/temp_folder.h"
#include "system/file_path.h"
#include "system/file_replacement.h"
#include "system/whole_file.h"

#include <csignal>
#include <functional>

#include <doctest/doctest.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace inin;
using Storage = FileReplacement::Storage;
using Names = std::vector<std::string>;

namespace {

constexpr const char *kTemporary = ".inin-0.tmp";

bool replace(const std::string &path, const std::string &bytes, Storage storage)
{
    FileReplacement file(path, FileReplacement::kOwnerOnly, storage);
    return file.isOpen() && file.write(bytes) && file.commit();
}

struct stat statusOf(const std::string &path)
{
    struct stat status {};
    REQUIRE(lstat(path.c_str(), &status) == 0);
    return status;
}

mode_t rightsOf(const std::string &path)
{
    return statusOf(path).st_mode & 07777;
}

/// Runs `body` in a child process and returns its status; the exit code is 0 if `body` returns.
int endOf(const std::function<void()> &body)
{
    const pid_t child = fork();
    if (child == 0) {
        body();
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return status;
}

} // namespace

TEST_CASE("a new file has its name only when it is complete, and a discarded one leaves nothing, named or not")
{
    for (const Storage storage : {Storage::unnamedIfPossible, Storage::named}) {
        const TempFolder folder;
        {
            FileReplacement file(folder / "委任状.pdf", FileReplacement::kOwnerOnly, storage);
            REQUIRE(file.write("half"));
            CHECK_FALSE(folder.has("委任状.pdf"));
        }
        CHECK(folder.names().empty());
        CHECK(replace(folder / "委任状.pdf", "whole", storage));
        CHECK(folder.names() == Names{"委任状.pdf"});
        CHECK(replace(folder / "委任状.pdf", "newer", storage));
        CHECK(folder.names() == Names{"委任状.pdf"});
        CHECK(folder.bytes("委任状.pdf") == "newer");
    }
}

TEST_CASE("an incomplete file has no name where the file system supports unnamed files")
{
    const TempFolder folder;
    const FileDescriptor unnamed(open(folder.path().c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600));
    const FileReplacement file(folder / "a");
    CHECK(folder.names() == (unnamed.isOpen() ? Names{} : Names{kTemporary}));
}

TEST_CASE("a new file is readable by its owner only, and takes the permissions of an older one on request")
{
    for (const Storage storage : {Storage::unnamedIfPossible, Storage::named}) {
        const TempFolder folder;
        REQUIRE(replace(folder / "new", "x", storage));
        CHECK(rightsOf(folder / "new") == 0600);
        folder.put("old", "x");
        REQUIRE(chmod((folder / "old").c_str(), 0640) == 0);
        FileReplacement file(folder / "old", FileReplacement::kOwnerOnly, storage);
        REQUIRE(file.keepRights(statusOf(folder / "old")));
        REQUIRE(file.commit());
        CHECK(rightsOf(folder / "old") == 0640);
    }
}

TEST_CASE(
    "a whole file is written for its owner or by the mask of the process, and a replaced one keeps its permissions")
{
    const TempFolder folder;
    const mode_t before = umask(022);
    const auto rightsAfter = [&](const char *name, NewFile rights) {
        writeWholeFile(pathOf(folder / name), "new", rights);
        CHECK(folder.bytes(name) == "new");
        return rightsOf(folder / name);
    };
    CHECK(rightsAfter("own", NewFile::ownerOnly) == 0600);
    CHECK(rightsAfter("shared", NewFile::byTheMask) == 0644);
    CHECK(rightsAfter("shared", NewFile::ownerOnly) == 0644);
    CHECK(rightsAfter("own", NewFile::byTheMask) == 0600);
    folder.put("target", "old");
    REQUIRE(symlink("target", (folder / "link").c_str()) == 0);
    CHECK(rightsAfter("link", NewFile::byTheMask) == 0644);
    CHECK(folder.bytes("target") == "old");
    umask(before);
}

TEST_CASE("a link of that name is replaced and its target is unchanged")
{
    const TempFolder folder;
    folder.put("target", "old");
    for (const char *target : {"target", "missing"}) {
        REQUIRE(symlink(target, (folder / "link").c_str()) == 0);
        CHECK(replace(folder / "link", "new", Storage::unnamedIfPossible));
        CHECK(folder.names() == Names{"link", "target"});
        CHECK(S_ISREG(statusOf(folder / "link").st_mode));
        CHECK(folder.bytes("target") == "old");
        REQUIRE(unlink((folder / "link").c_str()) == 0);
    }
}

TEST_CASE("a file in a missing folder cannot be created")
{
    const TempFolder folder;
    CHECK_FALSE(FileReplacement(folder / "missing/a").isOpen());
    CHECK_FALSE(FileReplacement(folder / "missing/a", FileReplacement::kOwnerOnly, Storage::named).isOpen());
}

TEST_CASE("each signal that requests the end removes the temporary file and still ends the program")
{
    for (const int signal : {SIGHUP, SIGINT, SIGTERM}) {
        CAPTURE(signal);
        const TempFolder folder;
        const int end = endOf([&] {
            std::signal(signal, SIG_DFL); // the test framework handles it
            FileReplacement file(folder / "a", FileReplacement::kOwnerOnly, Storage::named);
            if (!file.write("half") || !folder.has(kTemporary)) _exit(1);
            std::raise(signal);
        });
        CHECK(WIFSIGNALED(end));
        CHECK(WTERMSIG(end) == signal);
        CHECK(folder.names().empty());
    }
}

TEST_CASE("a signal that was ignored at the start stays ignored")
{
    const TempFolder folder;
    const int end = endOf([&] {
        std::signal(SIGHUP, SIG_IGN);
        FileReplacement file(folder / "a", FileReplacement::kOwnerOnly, Storage::named);
        std::raise(SIGHUP);
        if (!file.commit()) _exit(1);
    });
    CHECK(WIFEXITED(end));
    CHECK(WEXITSTATUS(end) == 0);
    CHECK(folder.names() == Names{"a"});
}

TEST_CASE("the next replacement in a folder removes the file of a killed process but not one in use")
{
    const TempFolder folder;
    const int end = endOf([&] {
        FileReplacement file(folder / "a", FileReplacement::kOwnerOnly, Storage::named);
        std::raise(SIGKILL);
    });
    REQUIRE(WTERMSIG(end) == SIGKILL);
    REQUIRE(folder.names() == Names{kTemporary});
    CHECK(replace(folder / "b", "x", Storage::unnamedIfPossible));
    CHECK(folder.names() == Names{"b"});

    FileReplacement inUse(folder / "c", FileReplacement::kOwnerOnly, Storage::named);
    CHECK(replace(folder / "d", "x", Storage::named));
    CHECK(folder.names() == Names{kTemporary, "b", "d"});
    CHECK(inUse.commit());
    CHECK(folder.names() == Names{"b", "c", "d"});
}
