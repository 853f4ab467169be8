#include "adapters/native/native_platform.h"

#include "runtime/runtime_error.h"
#include "search_path.h"
#include "support/errors.h"
#include "support/temp_folder.h"

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include <doctest/doctest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace inin;

namespace {

std::unique_ptr<Processes> processes()
{
    return makeSystemProcesses([] {});
}

/// A folder for the test's programs, current and first in PATH.
struct Stage {
    void program(const std::string &name, const std::string &script) const
    {
        chmod(folder.put(name, "#!/bin/sh\n" + script).c_str(), 0755);
    }
    /// The bytes of a file that a started program completes under this name; waits at most ten seconds.
    [[nodiscard]] std::string awaited(const std::string &name) const
    {
        for (int wait = 0; wait < 1000 && !folder.has(name); ++wait)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        return folder.bytes(name);
    }

    TempFolder folder;
    CurrentFolder current{folder.path()};
    SearchPath searched{folder.path()};
};

std::int32_t startError(const std::string &line)
{
    return errorOf([&] { processes()->start(line, WindowStyle::normalFocus); });
}

} // namespace

TEST_CASE("a started program gets its arguments and the suite's folder")
{
    const Stage stage;
    stage.program("wfrfv10.exe", "{ printf '%s|' \"$@\"; pwd; } > result.part; mv result.part result\n");
    processes()->start("wfrfv10.exe -c ./TMP\\WfdCom.dat \"a b\" c\\d", WindowStyle::maximizedFocus);
    CHECK(stage.awaited("result") ==
          "-c|./TMP/WfdCom.dat|a b|c\\d|" + std::filesystem::canonical(stage.folder.path()).string() + "\n");
}

TEST_CASE("a start does not wait for the program and leaves no child process")
{
    const Stage stage;
    // It runs until the file "end" exists, or for ten seconds, so that a start that waits ends as well.
    stage.program("slow", "for turn in $(seq 500); do [ -e end ] && break; sleep 0.02; done\n: > ended\n");

    processes()->start("slow", WindowStyle::normalFocus);

    CHECK_FALSE(stage.folder.has("ended"));
    stage.folder.put("end", "");
    CHECK(stage.awaited("ended") == "");
    CHECK(stage.folder.has("ended"));
    errno = 0;
    CHECK(waitpid(-1, nullptr, WNOHANG) == -1);
    CHECK(errno == ECHILD);
}

TEST_CASE("a started program has no input and no output")
{
    const Stage stage;
    stage.program("p", "ends=$(readlink /proc/$$/fd/0 /proc/$$/fd/1 /proc/$$/fd/2)\n"
                       "printf '%s' \"$ends\" > result.part; mv result.part result\n");
    processes()->start("p", WindowStyle::normalFocus);
    CHECK(stage.awaited("result") == "/dev/null\n/dev/null\n/dev/null");
}

TEST_CASE("a missing or non-executable program is error 53")
{
    const Stage stage;
    chmod(stage.folder.put("broken", "#!/no/such/interpreter\n").c_str(), 0755);
    chmod(stage.folder
              .put("bytes", "\x7F"
                            "ELF nothing")
              .c_str(),
          0755);
    stage.folder.put("data", "");
    CHECK(startError("nothing.exe /c x") == 53);
    CHECK(startError("broken") == 53);
    CHECK(startError("bytes") == 53);
    CHECK(startError("data") == 53);
    CHECK(startError("") == 53);
}

TEST_CASE("a web address is opened unchanged and without a shell")
{
    const Stage stage;
    stage.program("xdg-open", "printf '%s' \"$#|$1\" > result.part; mv result.part result\n");
    processes()->openAddress("https://example.jp/?zi=a&zp=$(id);\"x y\"&lk=1");
    CHECK(stage.awaited("result") == "1|https://example.jp/?zi=a&zp=$(id);\"x y\"&lk=1");
}

TEST_CASE("a program in the application folder is never used to open a web address")
{
    const Stage stage;
    const TempFolder elsewhere;
    stage.program("xdg-open", "touch result\n");
    chmod(elsewhere.put("xdg-open", "#!/bin/sh\n: > " + (elsewhere / "opened") + "\n").c_str(), 0755);
    const SearchPath searched("./:" + elsewhere.path());
    processes()->openAddress("https://example.jp/");
    for (int wait = 0; wait < 1000 && !elsewhere.has("opened"); ++wait)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    CHECK(elsewhere.has("opened"));
    CHECK_FALSE(stage.folder.has("result"));
}

TEST_CASE("only a web address is opened")
{
    const Stage stage;
    stage.program("xdg-open", "printf '%s\\n' \"$1\" > \"result$(date +%N)\"\n");
    for (const char *address : {"", "file:///etc/passwd", "httpx://a", "--version", "/bin/sh", "http:"})
        processes()->openAddress(address);
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    CHECK(stage.folder.entries() == 1);
}

TEST_CASE("a missing program for web addresses is not reported")
{
    const SearchPath restored("");
    setenv("PATH", "/no/such/folder", 1);
    CHECK_NOTHROW(processes()->openAddress("http://example.jp/"));
}

TEST_CASE("the computer's name is returned if it fits with its NUL")
{
    char buffer[256] = {};
    REQUIRE(gethostname(buffer, sizeof buffer - 1) == 0);
    std::string name = buffer;
    name = name.substr(0, name.find('.'));
    CHECK(processes()->computerName(name.size() + 1) == name);
    CHECK(processes()->computerName(name.size()) == std::nullopt);
    CHECK(processes()->computerName(0) == std::nullopt);
}

TEST_CASE("the end statement calls this program's own end")
{
    struct Ended {};
    const auto ending = makeSystemProcesses([] { throw Ended{}; });
    CHECK_THROWS_AS(ending->end(), Ended);
}

TEST_CASE("an end that returns still ends the process, with the code 0")
{
    const pid_t child = fork();
    if (child == 0) makeSystemProcesses([] {})->end();
    int status = -1;
    waitpid(child, &status, 0);
    CHECK(WIFEXITED(status));
    CHECK(WEXITSTATUS(status) == 0);
}

TEST_CASE("no automation object can be created")
{
    try {
        (void)makeSystemAutomation()->create("wfrfv.Document.1");
        FAIL("created");
    } catch (const RuntimeError &error) {
        CHECK(error.number() == 429);
    }
}
