#include "formoutput/wfd_fixture.h"

#include <functional>

using namespace inin;

namespace {

using Texts = cls_WfdPrintExe::Array<std::string>;
using Flags = cls_WfdPrintExe::Array<std::int16_t>;

constexpr const char *kMergerStart = "2 wfrimg10.exe C:\\SUITE\\TMP\\tmp.wfd /c C:\\SUITE\\TMP\\WfdCom.dat";
constexpr const char *kPrintScript = "Title,\"T\"\r\n"
                                     "FileName,\"C:\\SUITE\\TMP\\tmp.wfd\"\r\n"
                                     "PrintOutFromDialog\r\n";

/// Keeps the script that each tool would find at its start; the n-th start can fail.
class ReadingProcesses : public Processes {
public:
    explicit ReadingProcesses(FakeFiles &files) : m_files(files) {}
    Lines started, scripts;
    std::size_t failingStart = 0; ///< 1 is the first start
    void start(const std::string &commandLine, WindowStyle style) override
    {
        if (started.size() + 1 == failingStart) throw RuntimeError(error_number::fileNotFound);
        started.push_back(std::to_string(static_cast<int>(style)) + " " + commandLine);
        scripts.push_back(m_files.bytes(kScript));
    }
    void openAddress(const std::string &) override {}
    std::optional<std::string> computerName(std::size_t) override { return std::nullopt; }
    std::uint32_t processId() override { return 1; }
    [[noreturn]] void end() override { throw ProcessEnded{}; }

private:
    FakeFiles &m_files;
};

struct MergeFixture {
    FakeWorld world;
    ReadingProcesses processes{world.files};
    Platform platform{world.boxes, world.windows, world.database, world.profile,   world.files,
                      processes,   world.clock,   world.locale,   world.automation};
    App app{platform};
    cls_WfdPrintExe wfd{app};
    MergeFixture()
    {
        app.gcsAppPath = "C:\\SUITE";
        REQUIRE(wfd.iInit("unused.wfd", "unused") == 0);
    }
};

const Variant kDone = std::int16_t{0};
const Variant kNotWritten = std::int16_t{1};

} // namespace

TEST_CASE("merging writes one script for the merger and another for the viewer")
{
    MergeFixture fixture;
    CHECK(fixture.wfd.addPrint(2, "データ", Texts{1, {"C:\\a.csv", "C:\\b.csv"}}, Texts{1, {"a.wfd", "b.wfd"}}, "T") ==
          kDone);
    CHECK(fixture.processes.started == Lines{kMergerStart, kViewerStart});
    REQUIRE(fixture.processes.scripts.size() == 2);
    CHECK(fixture.processes.scripts[0] ==
          "setTitle,\"T\"\r\n"
          "SetDataText,\"\x83\x66\x81\x5B\x83\x5E\",\"C:\\a.csv\",\",\", \"\"\"\", True\r\n"
          "setreport,\"a.wfd\"\r\n"
          "AddReport\r\n"
          "SetDataText,\"\x83\x66\x81\x5B\x83\x5E\",\"C:\\b.csv\",\",\", \"\"\"\", True\r\n"
          "setreport,\"b.wfd\"\r\n");
    CHECK(fixture.processes.scripts[1] == kPrintScript);
    CHECK(fixture.wfd.sErrMsg.empty());
    CHECK(fixture.world.boxes.shown.empty());
}

TEST_CASE("a merge script whose last bytes cannot be written starts nothing")
{
    MergeFixture fixture;
    fixture.world.files.failingClose = 1;
    CHECK(fixture.wfd.addPrint(0, "D", Texts{}, Texts{}, "T") == kNotWritten);
    CHECK(fixture.wfd.sErrMsg == "(61)ディスクの空き容量が不足しています。");
    CHECK(fixture.processes.started.empty());
}

TEST_CASE("a second script whose last bytes cannot be written starts only the merger")
{
    MergeFixture fixture;
    fixture.world.files.failingClose = 2;
    CHECK(fixture.wfd.addPrint(0, "D", Texts{}, Texts{}, "T") == kDone);
    CHECK(fixture.wfd.sErrMsg == "(61)ディスクの空き容量が不足しています。");
    CHECK(fixture.processes.started == Lines{kMergerStart});
}

TEST_CASE("merging one report adds no report")
{
    MergeFixture fixture;
    CHECK(fixture.wfd.addPrint(1, "D", Texts{1, {"a.csv"}}, Texts{1, {"a.wfd"}}, "T") == kDone);
    REQUIRE(fixture.processes.scripts.size() == 2);
    CHECK(fixture.processes.scripts[0] == "setTitle,\"T\"\r\n"
                                          "SetDataText,\"D\",\"a.csv\",\",\", \"\"\"\", True\r\n"
                                          "setreport,\"a.wfd\"\r\n");
}

TEST_CASE("merging no report writes only the title and starts the merger all the same")
{
    struct Row {
        std::int16_t wfNum;
    };
    for (const Row row : {Row{0}, Row{-1}}) {
        CAPTURE(row.wfNum);
        MergeFixture fixture;
        CHECK(fixture.wfd.addPrint(row.wfNum, "D", Texts{}, Texts{}, "T") == kDone);
        CHECK(fixture.processes.scripts == Lines{"setTitle,\"T\"\r\n", kPrintScript});
        CHECK(fixture.processes.started == Lines{kMergerStart, kViewerStart});
    }
}

TEST_CASE("merging with an empty title writes both title lines all the same")
{
    MergeFixture fixture;
    CHECK(fixture.wfd.addPrint(0, "D", Texts{}, Texts{}, "") == kDone);
    CHECK(fixture.processes.scripts == Lines{"setTitle,\"\"\r\n", "Title,\"\"\r\n"
                                                                  "FileName,\"C:\\SUITE\\TMP\\tmp.wfd\"\r\n"
                                                                  "PrintOutFromDialog\r\n"});
}

TEST_CASE("merging uses none of the stored data entries")
{
    MergeFixture fixture;
    REQUIRE(fixture.wfd.iSetDataText(1, "STORED", "s.csv") == 0);
    CHECK(fixture.wfd.addPrint(0, "D", Texts{}, Texts{}, "T") == kDone);
    CHECK(fixture.processes.scripts == Lines{"setTitle,\"T\"\r\n", kPrintScript});
}

TEST_CASE("a second data source follows the first if the report's flag is 1")
{
    MergeFixture fixture;
    CHECK(fixture.wfd.addPrint_addCSV(3, "D", Texts{1, {"a.csv", "b.csv", "c.csv"}}, "E",
                                      Texts{1, {"a2.csv", "b2.csv", "c2.csv"}}, Texts{1, {"a.wfd", "b.wfd", "c.wfd"}},
                                      Flags{1, {0, 1, -1}}, "T") == kDone);
    REQUIRE(fixture.processes.scripts.size() == 2);
    CHECK(fixture.processes.scripts[0] == "setTitle,\"T\"\r\n"
                                          "SetDataText,\"D\",\"a.csv\",\",\", \"\"\"\", True\r\n"
                                          "setreport,\"a.wfd\"\r\n"
                                          "AddReport\r\n"
                                          "SetDataText,\"D\",\"b.csv\",\",\", \"\"\"\", True\r\n"
                                          "SetDataText,\"E\",\"b2.csv\",\",\", \"\"\"\", True\r\n"
                                          "setreport,\"b.wfd\"\r\n"
                                          "AddReport\r\n"
                                          "SetDataText,\"D\",\"c.csv\",\",\", \"\"\"\", True\r\n"
                                          "setreport,\"c.wfd\"\r\n");
    CHECK(fixture.processes.scripts[1] == kPrintScript);
}

TEST_CASE("the second source's path is not read if the flag is not 1")
{
    MergeFixture fixture;
    CHECK(fixture.wfd.addPrint_addCSV(1, "D", Texts{1, {"a.csv"}}, "E", Texts{}, Texts{1, {"a.wfd"}}, Flags{1, {2}},
                                      "T") == kDone);
    CHECK(fixture.wfd.sErrMsg.empty());
}

TEST_CASE("arrays are read from index 1 on, whatever their lower bound")
{
    MergeFixture fixture;
    CHECK(fixture.wfd.addPrint(1, "D", Texts{0, {"zero.csv", "one.csv"}}, Texts{-1, {"m.wfd", "z.wfd", "one.wfd"}},
                               "T") == kDone);
    REQUIRE(fixture.processes.scripts.size() == 2);
    CHECK(fixture.processes.scripts[0] == "setTitle,\"T\"\r\n"
                                          "SetDataText,\"D\",\"one.csv\",\",\", \"\"\"\", True\r\n"
                                          "setreport,\"one.wfd\"\r\n");
}

TEST_CASE("an array without the element is error 9: result 1, the part of the script already written, no tool")
{
    struct Row {
        const char *claim;
        std::function<Variant(cls_WfdPrintExe &)> run;
        const char *script;
    };
    const Row rows[] = {
        {"no second CSV path",
         [](cls_WfdPrintExe &wfd) {
             return wfd.addPrint(2, "D", Texts{1, {"a.csv"}}, Texts{1, {"a.wfd", "b.wfd"}}, "T");
         },
         "setTitle,\"T\"\r\nSetDataText,\"D\",\"a.csv\",\",\", \"\"\"\", True\r\nsetreport,\"a.wfd\"\r\nAddReport\r\n"},
        {"no form",
         [](cls_WfdPrintExe &wfd) {
             return wfd.addPrint(1, "D", Texts{1, {"a.csv"}}, Texts{}, "T");
         },
         "setTitle,\"T\"\r\nSetDataText,\"D\",\"a.csv\",\",\", \"\"\"\", True\r\n"},
        {"the lower bound lies above 1",
         [](cls_WfdPrintExe &wfd) {
             return wfd.addPrint(1, "D", Texts{2, {"b.csv"}}, Texts{1, {"a.wfd"}}, "T");
         },
         "setTitle,\"T\"\r\n"},
        {"no flag",
         [](cls_WfdPrintExe &wfd) {
             return wfd.addPrint_addCSV(1, "D", Texts{1, {"a.csv"}}, "E", Texts{1, {"a2.csv"}}, Texts{1, {"a.wfd"}},
                                        Flags{}, "T");
         },
         "setTitle,\"T\"\r\nSetDataText,\"D\",\"a.csv\",\",\", \"\"\"\", True\r\n"},
        {"no path of the second source",
         [](cls_WfdPrintExe &wfd) {
             return wfd.addPrint_addCSV(1, "D", Texts{1, {"a.csv"}}, "E", Texts{}, Texts{1, {"a.wfd"}}, Flags{1, {1}},
                                        "T");
         },
         "setTitle,\"T\"\r\nSetDataText,\"D\",\"a.csv\",\",\", \"\"\"\", True\r\n"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.claim);
        MergeFixture fixture;
        CHECK(row.run(fixture.wfd) == kNotWritten);
        CHECK(fixture.wfd.sErrMsg == "(9)インデックスが有効範囲にありません。");
        CHECK(fixture.world.files.bytes(kScript) == row.script);
        CHECK(fixture.processes.started.empty());
        CHECK(fixture.world.boxes.shown.empty());
    }
}

TEST_CASE("a first script that cannot be opened gives 1 and its error text, and shows nothing")
{
    MergeFixture fixture;
    fixture.world.files.openOutputErrors["c:\\suite\\tmp\\wfdcom.dat"] = 75;
    CHECK(fixture.wfd.addPrint(0, "D", Texts{}, Texts{}, "T") == kNotWritten);
    CHECK(fixture.wfd.sErrMsg == "(75)パス名が無効です。");
    CHECK(fixture.processes.started.empty());
    CHECK(fixture.world.boxes.shown.empty());
}

TEST_CASE("a merger that cannot be started gives 0 and keeps the first script")
{
    MergeFixture fixture;
    fixture.processes.failingStart = 1;
    CHECK(fixture.wfd.addPrint(0, "D", Texts{}, Texts{}, "T") == kDone);
    CHECK(fixture.wfd.sErrMsg == "(53)ファイルが見つかりません。");
    CHECK(fixture.world.files.bytes(kScript) == "setTitle,\"T\"\r\n");
}

TEST_CASE("a second script that cannot be written gives 0 and starts no viewer")
{
    MergeFixture fixture;
    // The title line of the first script is the first write.
    fixture.world.files.failingWrite = 2;
    CHECK(fixture.wfd.addPrint(0, "D", Texts{}, Texts{}, "T") == kDone);
    CHECK(fixture.wfd.sErrMsg == "(61)ディスクの空き容量が不足しています。");
    CHECK(fixture.processes.started == Lines{kMergerStart});
}

TEST_CASE("a viewer that cannot be started gives 0 and keeps the second script")
{
    MergeFixture fixture;
    fixture.processes.failingStart = 2;
    CHECK(fixture.wfd.addPrint(0, "D", Texts{}, Texts{}, "T") == kDone);
    CHECK(fixture.wfd.sErrMsg == "(53)ファイルが見つかりません。");
    CHECK(fixture.world.files.bytes(kScript) == kPrintScript);
}

TEST_CASE("merging opens the script twice and has no other file access")
{
    MergeFixture fixture;
    fixture.world.files.log.clear();
    CHECK(fixture.wfd.addPrint(0, "D", Texts{}, Texts{}, "T") == kDone);
    CHECK(fixture.world.files.log == Lines{"open >C:\\SUITE\\TMP\\WfdCom.dat", "open >C:\\SUITE\\TMP\\WfdCom.dat"});
}
