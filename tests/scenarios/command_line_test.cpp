#include "scenarios/temporary_site.h"
#include "support/file_bytes.h"

#include <doctest/doctest.h>

#include <cstdlib>
#include <fstream>

#ifndef _WIN32
#include <sys/wait.h>
#endif

using namespace inin;

namespace {

/// The exit code in the result of std::system; -1 for a process that ended otherwise.
int exitCodeOf(int status)
{
#ifdef _WIN32
    return status;
#else
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
#endif
}

struct Ran {
    int code = -1;
    std::string out, errors;
};

/// The basic site, and the program run on it from a shell.
class CommandLine {
public:
    [[nodiscard]] Ran run(const std::string &arguments, const std::string &commands = {}) const
    {
        std::ofstream(path("commands")) << commands;
        const std::string line =
            m_program + " " + arguments + " <" + path("commands") + " >" + path("out") + " 2>" + path("errors");
        const int status = std::system(line.c_str()); // NOLINT: the line is composed here
        return {exitCodeOf(status), bytesOf(path("out")), bytesOf(path("errors"))};
    }
    [[nodiscard]] std::string app() const { return "--app " + m_site.folder().string(); }

private:
    [[nodiscard]] std::string path(const char *name) const { return (m_site.folder() / name).string(); }
    static Play basic()
    {
        Play play;
        play.site = "basic";
        return play;
    }

    TemporarySite m_site{basic()};
    /// Absolute, because a test may change the current folder.
#ifdef _WIN32
    std::string m_program = std::filesystem::absolute(ININ_SCRIPT_PROGRAM).make_preferred().string();
#else
    std::string m_program = "'" ININ_SCRIPT_PROGRAM "'"; // the build folder may have a blank in its name
#endif
};

} // namespace

TEST_CASE(
    "a command line without a folder, with an unknown option or an invalid moment gives exit code 2 and a message")
{
    const CommandLine line;
    for (const std::string &arguments :
         {std::string(), std::string("--app"), std::string("--app /no/such/folder"), line.app() + " --fast",
          line.app() + " --now yesterday", line.app() + " --now \"2024-02-30 00:00:00\"", line.app() + " extra"}) {
        CAPTURE(arguments);
        const Ran ran = line.run(arguments);
        CHECK(ran.code == 2);
        CHECK_FALSE(ran.errors.empty());
        CHECK(ran.out.empty());
    }
}

TEST_CASE("help gives exit code 0")
{
    const Ran ran = CommandLine().run("--help");
    CHECK(ran.code == 0);
    CHECK(ran.out.find("--app") != std::string::npos);
}

TEST_CASE("the program plays its standard input and writes the events to its standard output")
{
    const CommandLine line;
    const Ran ran =
        line.run(line.app() + " --now \"2024-06-15 10:00:00\"", "# look and leave\n{\"click\":\"mnF12\"}\n");
    CHECK(ran.code == 0);
    CHECK(ran.errors.empty());
    CHECK(ran.out.starts_with("{\"event\":\"pointer\",\"kind\":11}\n"));
    CHECK(ran.out.ends_with("{\"event\":\"end\",\"code\":0}\n"));
}

TEST_CASE("a relative folder is found, and so is the database in it")
{
    const CommandLine line;
    const std::string folder = line.app().substr(std::string("--app ").size());
    const CurrentFolder outside(std::filesystem::path(folder).parent_path());
    const Ran ran = line.run("--app " + std::filesystem::path(folder).filename().string(), "");
    CHECK(ran.code == 0);
    CHECK(ran.out.find("{\"event\":\"connect\",\"session\":1}") != std::string::npos);
}

TEST_CASE("a bad command gives exit code 2 and its line")
{
    const CommandLine line;
    const Ran ran = line.run(line.app(), "# first\n{\"click\":\"nobody\"}\n");
    CHECK(ran.code == 2);
    CHECK(ran.errors == "line 2: frmPrintInin has no control \"nobody\"\n");
}
