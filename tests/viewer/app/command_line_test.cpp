#include "viewer/app/options.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;
namespace fs = std::filesystem;

namespace {

template <class Command> Command parsed(const std::vector<std::string> &words)
{
    const ViewerCommand command = readViewerCommand(words);
    REQUIRE(std::holds_alternative<Command>(command));
    return std::get<Command>(command);
}

} // namespace

TEST_CASE("the arguments after /c are joined with blanks to the script's path")
{
    CHECK(parsed<ViewCommand>({"wfrfv10.exe", "/c", "C:\\my", "site\\TMP\\WfdCom.dat"}).script ==
          "C:\\my site\\TMP\\WfdCom.dat");
    CHECK(parsed<ViewCommand>({"x", "/C", "./TMP\\WfdCom.dat"}).script == "./TMP\\WfdCom.dat");
    CHECK(parsed<ViewCommand>({"x", "--pdf", "o.pdf", "/c", "a"}).pdf == "o.pdf");
}

TEST_CASE("the options of a run without a window are read")
{
    const auto command =
        parsed<ViewCommand>({"formviewer", "--png", "d", "--letters", "1-3,7", "--dpi", "96", "s.dat"});
    CHECK(command.pngFolder == "d");
    CHECK(command.letters == "1-3,7");
    CHECK(command.dotsPerInch == 96);
    CHECK(command.script == "s.dat");
    CHECK_FALSE(command.needsWindow());
    CHECK(parsed<ViewCommand>({"formviewer", "--check", "/site/s.dat"}).script == "/site/s.dat");
    CHECK(parsed<ViewCommand>({"formviewer", "--check", "--json", "s.dat"}).json);
    CHECK(parsed<ViewCommand>({"WrVb6Viewer.exe", "/c", "s.dat"}).needsWindow());
    const auto check = parsed<ViewCommand>(
        {"formviewer", "--check", "--without-check", "shrunk,noHolder", "--today", "2024-05-20", "s.dat"});
    CHECK(check.withoutChecks.count() == 2);
    CHECK(check.withoutChecks.test(static_cast<std::size_t>(Cause::shrunk)));
    CHECK(check.today == DateSerial(2024, 5, 20));
    CHECK(check.script == "s.dat");
}

TEST_CASE("--form takes the place of a script, and excludes one")
{
    const auto command = parsed<ViewCommand>({"formviewer", "--form", "封筒.svg"});
    CHECK(command.form == "封筒.svg");
    CHECK(command.needsWindow());
    CHECK_FALSE(parsed<ViewCommand>({"formviewer", "--form", "a.svg", "--pdf", "o.pdf"}).needsWindow());
    parsed<BadCommandLine>({"formviewer", "--form", "a.svg", "s.dat"});
    parsed<BadCommandLine>({"formviewer", "--form", "a.svg", "/c", "s.dat"});
    parsed<BadCommandLine>({"formviewer", "--form", "a.svg", "--ledger", "diff"});
    parsed<BadCommandLine>({"formviewer", "--form", "a.svg", "--returned", "b.pdf"});
}

TEST_CASE("under the merger's name, an output form and a script are read")
{
    for (const char *name : {"wfrimg10.exe", "/site/WFRIMG10.EXE", "wfrimg10"}) {
        const auto command = parsed<MergeCommand>({name, "C:\\my", "TMP\\tmp.wfd", "/c", "C:\\my", "TMP\\WfdCom.dat"});
        CHECK(command.output == "C:\\my TMP\\tmp.wfd");
        CHECK(command.script == "C:\\my TMP\\WfdCom.dat");
    }
    parsed<BadCommandLine>({"wfrimg10.exe", "/c", "s.dat"});
    parsed<BadCommandLine>({"wfrimg10.exe", "out.wfd"});
}

TEST_CASE("a command line without a script or with an unknown option is refused")
{
    parsed<BadCommandLine>({"formviewer"});
    parsed<BadCommandLine>({"formviewer", "/c"});
    parsed<BadCommandLine>({"formviewer", "--colour", "s.dat"});
    parsed<BadCommandLine>({"formviewer", "--dpi", "0", "s.dat"});
    parsed<BadCommandLine>({"formviewer", "--check", "--without-check", "noSuchCause", "s.dat"});
    parsed<BadCommandLine>({"formviewer", "--check", "--today", "soon", "s.dat"});
    parsed<ShowHelp>({"formviewer", "--help"});
}

TEST_CASE("paths with Japanese characters and blanks are accepted")
{
    TempFolder folder;
    fs::create_directory(pathOf(folder / "一時 置場𠮷"));
    const std::string script = writePrintJob(folder, kForm, {ordinaryRow()});
    fs::rename(pathOf(script), pathOf(folder / "一時 置場𠮷/コマンド.dat"));

    const Outcome outcome = runViewer(folder, "--pdf '一時 置場𠮷/髙橋 様.pdf' /c '一時 置場𠮷\\コマンド.dat'");

    CHECK(outcome.errors == "");
    CHECK(outcome.code == 0);
    CHECK(folder.bytes("一時 置場𠮷/髙橋 様.pdf").starts_with("%PDF-1.7"));
}

TEST_CASE("the exit code distinguishes success, failure and an invalid command line, and messages are UTF-8")
{
    TempFolder folder;
    const std::string script = writePrintJob(folder, kForm, {longestRow()});
    CHECK(contains(runViewer(folder, "--check " + script).output, "髙﨑勘解由"));
    CHECK(runViewer(folder, "--check --json " + script).output.starts_with("{"));
    const Outcome missing = runViewer(folder, "--pdf o.pdf 無い.dat");
    CHECK(missing.code == 1);
    CHECK(missing.errors == "formviewer: ファイル「無い.dat」が見つかりません。\n");
    const Outcome refused = runViewer(folder, "--colour");
    CHECK(refused.code == 2);
    CHECK(contains(refused.errors, "使い方は formviewer --help で見られます。（"));
    CHECK(runViewer(folder, "/c").errors == "formviewer: 「/c」の後にコマンドファイルがありません。\n");
}

TEST_CASE("a check ends with 1 when a letter has findings and with 0 when none has, with and without other output")
{
    TempFolder folder;
    const std::string good = writePrintJob(folder, kForm, {ordinaryRow()});
    CHECK(runViewer(folder, "--check --today 2024-05-20 " + good).code == 0);
    CHECK(runViewer(folder, "--check --today 2024-05-20 --pdf o.pdf " + good).code == 0);
    const std::string flagged = writePrintJob(folder, kForm, {ordinaryRow(), longestRow()});
    CHECK(runViewer(folder, "--check --today 2024-05-20 " + flagged).code == 1);
    CHECK(runViewer(folder, "--check --json --today 2024-05-20 " + flagged).code == 1);
    CHECK(runViewer(folder, "--check --today 2024-05-20 --letters 1 " + flagged).code == 0);
    fs::remove(pathOf(folder / "o.pdf"));
    CHECK(runViewer(folder, "--check --today 2024-05-20 --pdf o.pdf " + flagged).code == 1);
    CHECK(folder.has("o.pdf"));
}

TEST_CASE("the help is in Japanese throughout, and in English for an English locale")
{
    TempFolder folder;
    const std::string japanese = runViewer(folder, "--help").output;
    CHECK(contains(japanese, "使い方: formviewer [オプション] [コマンドファイル]"));
    CHECK(contains(japanese, "--letters 番号"));
    for (const char *english : {"Usage", "Options", "OPTIONS", "TEXT", "FLOAT", "Print this"}) {
        CAPTURE(english);
        CHECK(!contains(japanese, english));
    }
}

TEST_CASE("under the merger's name, in any case, the program writes a combined form that the viewer prints")
{
    TempFolder folder;
    const std::string &dir = folder.path();
    folder.put("1.svg", svgPage("<text x='9' y='9'>{{1}}</text>"));
    folder.put("1.csv", "\"a\"\r\n");
    folder.put("m.dat", "SetDataText,\"x\",\"" + dir + "\\1.csv\",\",\", \"\"\"\", True\r\nsetreport,\"" + dir +
                            "\\1.svg\"\r\n");
    folder.put("p.dat", "FileName,\"" + dir + "\\tmp.wfd\"\r\n");
    const std::string merge = "'" + dir + "\\tmp.wfd' /c '" + dir + "\\m.dat'";
    for (const char *name : {"wfrimg10.exe", "WFRIMG10.EXE"}) {
        CAPTURE(std::string(name));
        CHECK(runViewer(folder, merge, name).code == 0);
        CHECK(folder.has("tmp.wfd"));
        CHECK(runViewer(folder, "--pdf o.pdf p.dat", "wfrfv10.exe").code == 0);
        CHECK(contains(folder.bytes("o.pdf"), "/Count 1/"));
        fs::remove(folder.folder() / "tmp.wfd");
    }
}
