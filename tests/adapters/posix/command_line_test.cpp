#include "adapters/native/native_platform.h"
#include "adapters/posix/command_line.h"

#include "search_path.h"
#include "support/temp_folder.h"

#include <filesystem>
#include <vector>

#include <doctest/doctest.h>
#include <sys/stat.h>

using namespace inin;
using namespace inin::posix;

namespace {

/// Two folders with programs: the current one and one in PATH.
struct Programs {
    Programs()
    {
        for (const char *name : {"Main.exe", "Form Viewer", "plain", "both.exe", "both"}) make(here, name);
        for (const char *name : {"wfrfv10.exe", "plain", "xonly"}) make(onPath, name);
        here.put("data.exe", "no program");
        std::filesystem::create_directory(here / "folder.exe");
    }

    static void make(const TempFolder &folder, const std::string &name)
    {
        chmod(folder.put(name, "#!/bin/sh\n").c_str(), 0755);
    }

    TempFolder here, onPath;
    CurrentFolder current{here.path()};
    SearchPath searched{onPath.path()};
};

std::string programOf(const std::string &line)
{
    const auto command = parseCommandLine(line);
    return command ? command->program : "none";
}

std::vector<std::string> argumentsOf(const std::string &line)
{
    const auto command = parseCommandLine(line);
    return command ? command->arguments : std::vector<std::string>{"none"};
}

using Arguments = std::vector<std::string>;

} // namespace

TEST_CASE("a program is found in the current folder first, then in PATH")
{
    const Programs programs;
    CHECK(programOf("Main.exe 2") == "./Main.exe");
    CHECK(programOf("plain") == "./plain");
    CHECK(programOf("wfrfv10.exe /c x") == programs.onPath / "wfrfv10.exe");
    CHECK(programOf("nothing.exe") == "none");
    CHECK(programOf("") == "none");
    CHECK(programOf("   ") == "none");
}

TEST_CASE("a program is found in any case, with and without its extension")
{
    const Programs programs;
    CHECK(programOf("MAIN.EXE 2") == "./Main.exe");
    CHECK(programOf("main") == "./Main.exe");
    CHECK(programOf("xonly.exe") == programs.onPath / "xonly");
    CHECK(programOf("both.exe") == "./both.exe");
    CHECK(programOf("both") == "./both");
}

TEST_CASE("a program with a folder in its name is found only there")
{
    const Programs programs;
    CHECK(programOf(programs.here.path() + "\\MAIN.EXE 2") == programs.here / "Main.exe");
    CHECK(programOf(programs.here.path() + "\\wfrfv10.exe") == "none");
    CHECK(programOf(".\\main.exe") == "./Main.exe");
}

TEST_CASE("a folder is not a program, nor is a file without execute permission")
{
    const Programs programs;
    CHECK(programOf("data.exe") == "none");
    CHECK(programOf("folder.exe") == "none");
}

TEST_CASE("a name with blanks is found with quotes and without")
{
    const Programs programs;
    CHECK(programOf("\"form viewer.exe\" /c x") == "./Form Viewer");
    CHECK(argumentsOf("\"form viewer.exe\" /c x") == Arguments{"/c", "x"});
    CHECK(programOf("Form Viewer /c x") == "./Form Viewer");
    CHECK(argumentsOf("Form Viewer /c x") == Arguments{"/c", "x"});
    CHECK(programOf("\"Main.exe") == "./Main.exe");
    CHECK(programOf("\"\" x") == "none");
}

TEST_CASE("a prefix of the application folder's own path is never taken for a program")
{
    const TempFolder parent;
    const std::string site = parent / "My  Site";
    Programs::make(parent, "My");
    std::filesystem::create_directory(site);
    chmod(parent.put("My  Site/Main.exe", "#!/bin/sh\n").c_str(), 0755);
    const CurrentFolder current(site);
    CHECK(programOf(site + "\\Main.exe 2") == site + "/Main.exe");
    CHECK(argumentsOf(site + "\\Main.exe 2") == Arguments{"2"});
    CHECK(programOf(site + "/main 2") == site + "/Main.exe");
    CHECK(programOf("\"" + site + "\\Main.exe\" 2") == site + "/Main.exe");
    CHECK(programOf("\"Main.exe\" 2") == "./Main.exe");
    CHECK(programOf(parent / "My 2") == parent / "My");
    CHECK(programOf(site + "\\Gone.exe 2") == "none");
}

TEST_CASE("the paths before and after /c keep their blanks")
{
    const Programs programs;
    CHECK(argumentsOf("wfrfv10.exe /c /x/My  Site \\TMP\\WfdCom.dat") ==
          Arguments{"/c", "/x/My  Site /TMP/WfdCom.dat"});
    CHECK(argumentsOf("wfrfv10.exe /x/My  Site\\TMP\\tmp.wfd /c /x/My  Site\\TMP\\WfdCom.dat") ==
          Arguments{"/x/My  Site/TMP/tmp.wfd", "/c", "/x/My  Site/TMP/WfdCom.dat"});
    CHECK(argumentsOf("\"Form Viewer\" /c \"/x/My  Site\\TMP\\WfdCom.dat\"") ==
          Arguments{"/c", "/x/My  Site/TMP/WfdCom.dat"});
    CHECK(argumentsOf("plain /c ") == Arguments{"/c"});
    CHECK(argumentsOf("plain /c") == Arguments{"/c"});
}

TEST_CASE("a program of the system is never searched in the current folder")
{
    const Programs programs;
    CHECK(findSystemProgram("plain") == programs.onPath / "plain");
    CHECK(findSystemProgram("both") == std::nullopt);
    setenv("PATH", ".::./", 1); // SearchPath restores it
    CHECK(findSystemProgram("plain") == std::nullopt);
}

TEST_CASE("the shortest prefix that is a program is started")
{
    const Programs programs;
    CHECK(programOf("plain Main.exe") == "./plain");
    CHECK(argumentsOf("plain Main.exe") == Arguments{"Main.exe"});
}

TEST_CASE("arguments are split at blanks outside quotes")
{
    const Programs programs;
    CHECK(argumentsOf("plain") == Arguments{});
    CHECK(argumentsOf("plain   a\t b ") == Arguments{"a", "b"});
    CHECK(argumentsOf("plain \"a b\" c\" \"d \"\"") == Arguments{"a b", "c d", ""});
    CHECK(argumentsOf("plain \"open end") == Arguments{"open end"});
    CHECK(argumentsOf("plain $HOME `id` ;x *") == Arguments{"$HOME", "`id`", ";x", "*"});
}

TEST_CASE_FIXTURE(
    Programs, "a program can be started from a site that is not the current folder, as a command line finds it there")
{
    const CurrentFolder elsewhere(onPath.folder());
    CHECK(canStart(here.path(), "Main.exe"));
    CHECK(canStart(here.path(), "MAIN"));
    CHECK(canStart(here.path(), "plain.exe"));
    CHECK(canStart(here.path(), "wfrfv10.exe")); // in PATH
    CHECK_FALSE(canStart(here.path(), "data.exe"));
    CHECK_FALSE(canStart(here.path(), "folder.exe"));
    CHECK_FALSE(canStart(here.path(), "missing.exe"));
}

TEST_CASE("a path argument gets slashes, any other keeps its backslashes")
{
    const Programs programs;
    CHECK(argumentsOf("plain /c ./TMP\\WfdCom.dat") == Arguments{"/c", "./TMP/WfdCom.dat"});
    CHECK(argumentsOf("plain /c /opt/suite\\TMP\\WfdCom.dat") == Arguments{"/c", "/opt/suite/TMP/WfdCom.dat"});
    CHECK(argumentsOf("plain \"/opt/the suite\\x\"") == Arguments{"/opt/the suite/x"});
    CHECK(argumentsOf("plain ..\\x .\\y") == Arguments{"../x", "./y"});
    CHECK(argumentsOf("plain a\\b \\c C:\\d") == Arguments{"a\\b", "\\c", "C:\\d"});
}
