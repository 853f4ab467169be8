#include "formoutput/wfd_fixture.h"

using namespace inin;

namespace {

constexpr const char *kPreviewStart = "3 WrVb6Viewer.exe /c ./TMP\\WfdCom.dat";

} // namespace

TEST_CASE("the print run's script has five lines in code page 932, ended by CR LF")
{
    FakeWorld world;
    cls_WfdPrintExe wfd(world.app);
    REQUIRE(wfd.iInit("C:\\SUITE\\SYS\\委任状37_01.wfd", "委任状") == 0);
    REQUIRE(wfd.iSetDataText(1, "委任状", "委任状.csv") == 0);

    wfd.iPrintDialog(0);

    // 委任状 in the code page
    CHECK(world.files.bytes(kScript) == "FileName,\"C:\\SUITE\\SYS\\\x88\xCF\x94\x43\x8F\xF3"
                                        "37_01.wfd\"\r\n"
                                        "Title,\"\x88\xCF\x94\x43\x8F\xF3\"\r\n"
                                        "SetDataText,\"\x88\xCF\x94\x43\x8F\xF3\",\"C:\\SUITE\\TMP\\"
                                        "\x88\xCF\x94\x43\x8F\xF3.csv\"\r\n"
                                        "PrintPaper, A4\r\n"
                                        "PrintOutFromDialog\r\n");
    CHECK(world.processes.started == Lines{kViewerStart});
}

TEST_CASE("the preview of the print run ends its script with the window and starts the preview window maximised")
{
    FakeWorld world;
    cls_WfdPrintExe wfd(world.app);
    REQUIRE(wfd.iInit("C:\\SUITE\\SYS\\a.wfd", "T") == 0);
    REQUIRE(wfd.iSetDataText(1, "D", "d.csv") == 0);

    CHECK(wfd.iPreviewActX().isEmpty());

    CHECK(world.files.bytes(kScript) == "FileName,\"C:\\SUITE\\SYS\\a.wfd\"\r\n"
                                        "Title,\"T\"\r\n"
                                        "SetDataText,\"D\",\"C:\\SUITE\\TMP\\d.csv\"\r\n"
                                        "PrintPaper, A4\r\n"
                                        "ShowWindow,2\r\n");
    CHECK(world.processes.started == Lines{kPreviewStart});
}

TEST_CASE("the preview window's command names the folder TMP whatever the setting")
{
    FakeWorld world;
    world.files.putText("C:\\SUITE\\Massage.ini", "SYSTEM_TMP=\\WORK\n");
    world.files.makeFolder("C:\\SUITE\\WORK");
    cls_WfdPrintExe wfd(world.app);
    REQUIRE(wfd.iInit(kForm) == 0);

    wfd.iPreviewActX();

    CHECK(world.files.has("C:\\SUITE\\WORK\\WfdCom.dat"));
    CHECK(world.processes.started == Lines{kPreviewStart});
}

TEST_CASE("each output operation writes its last line and starts its tool")
{
    struct Row {
        const char *claim;
        Variant (*run)(cls_WfdPrintExe &);
        const char *paper;
        const char *end;
        Lines started;
    };
    const Row rows[] = {
        {"iPreview", [](cls_WfdPrintExe &wfd) { return wfd.iPreview(); }, "A4", "ShowWindow,2", {kViewerStart}},
        {"iPreview with a paper",
         [](cls_WfdPrintExe &wfd) { return wfd.iPreview(1); },
         "A5",
         "ShowWindow,2",
         {kViewerStart}},
        {"iPreviewData", [](cls_WfdPrintExe &wfd) { return wfd.iPreviewData(); }, "A4", "ShowWindow,2", {}},
        {"iPreviewActX",
         [](cls_WfdPrintExe &wfd) { return wfd.iPreviewActX(); },
         "A4",
         "ShowWindow,2",
         {kPreviewStart}},
        {"iPrintBk", [](cls_WfdPrintExe &wfd) { return wfd.iPrintBk(); }, "A4", "PrintOut", {kViewerStart}},
        {"iPrintDialog",
         [](cls_WfdPrintExe &wfd) { return wfd.iPrintDialog(); },
         "A4",
         "PrintOutFromDialog",
         {kViewerStart}},
        {"iPrintDialog with a paper",
         [](cls_WfdPrintExe &wfd) { return wfd.iPrintDialog(2); },
         "B5",
         "PrintOutFromDialog",
         {kViewerStart}},
    };
    for (const Row &row : rows) {
        CAPTURE(row.claim);
        WfdFixture fixture;
        CHECK(row.run(fixture.wfd).isEmpty());
        CHECK(fixture.script() == std::string("FileName,\"C:\\SUITE\\SYS\\a.wfd\"\r\nPrintPaper, ") + row.paper +
                                      "\r\n" + row.end + "\r\n");
        CHECK(fixture.world.processes.started == row.started);
        CHECK(fixture.wfd.sErrMsg.empty());
    }
}

TEST_CASE("paper 1 is A5, paper 2 is B5, any other except -1 is A4")
{
    struct Row {
        std::int16_t iPaper;
        const char *line;
    };
    for (const Row row : {Row{0, "PrintPaper, A4"}, Row{1, "PrintPaper, A5"}, Row{2, "PrintPaper, B5"},
                          Row{3, "PrintPaper, A4"}, Row{-2, "PrintPaper, A4"}, Row{32767, "PrintPaper, A4"}}) {
        CAPTURE(row.iPaper);
        WfdFixture fixture;
        fixture.wfd.iPreview(row.iPaper);
        CHECK(fixture.script() ==
              std::string("FileName,\"C:\\SUITE\\SYS\\a.wfd\"\r\n") + row.line + "\r\nShowWindow,2\r\n");
    }
}

TEST_CASE("paper -1 repeats the previous line and writes no paper")
{
    SUBCASE("the form's line if nothing else is set")
    {
        WfdFixture fixture;
        fixture.wfd.iPrintDialog(-1);
        CHECK(fixture.script() == "FileName,\"C:\\SUITE\\SYS\\a.wfd\"\r\n"
                                  "FileName,\"C:\\SUITE\\SYS\\a.wfd\"\r\n"
                                  "PrintOutFromDialog\r\n");
    }
    SUBCASE("the last setting's line, before the items")
    {
        WfdFixture fixture;
        REQUIRE(fixture.wfd.iSetRepeatStart(3) == 0);
        REQUIRE(fixture.wfd.iSetItemValue("R", "", "I", "v") == 0);
        fixture.wfd.iPreview(-1);
        CHECK(fixture.script() == "FileName,\"C:\\SUITE\\SYS\\a.wfd\"\r\n"
                                  "SectionRepeatStart, 3\r\n"
                                  "SectionRepeatStart, 3\r\n"
                                  "SetItemValue,\"R.I\",\"v\"\r\n"
                                  "ShowWindow,2\r\n");
    }
}

TEST_CASE("each run replaces the last script")
{
    WfdFixture fixture;
    fixture.world.files.put(kScript, std::string(5000, 'x'));
    CHECK(fixture.dataScript() == "FileName,\"C:\\SUITE\\SYS\\a.wfd\"\r\nPrintPaper, A4\r\nShowWindow,2\r\n");
}

TEST_CASE("a temporary folder that cannot be written shows the failure and starts no tool")
{
    struct Row {
        const char *claim;
        void (*spoil)(FakeWorld &);
        const char *words;
    };
    const Row rows[] = {
        {"the folder is missing", [](FakeWorld &world) { world.files.remove("C:\\SUITE\\TMP"); },
         "(76)パスが見つかりません。"},
        {"the folder is read-only",
         [](FakeWorld &world) { world.files.openOutputErrors["c:\\suite\\tmp\\wfdcom.dat"] = 75; },
         "(75)パス名が無効です。"},
        {"the script is held by another program",
         [](FakeWorld &world) { world.files.openOutputErrors["c:\\suite\\tmp\\wfdcom.dat"] = 70; },
         "(70)書き込みできません。"},
        {"the disk is full at the second line", [](FakeWorld &world) { world.files.failingWrite = 2; },
         "(61)ディスクの空き容量が不足しています。"},
        {"the disk is full at the last bytes, which the closing writes",
         [](FakeWorld &world) { world.files.failingClose = 1; }, "(61)ディスクの空き容量が不足しています。"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.claim);
        WfdFixture fixture;
        row.spoil(fixture.world);
        CHECK(fixture.wfd.iPrintDialog().isEmpty());
        CHECK(fixture.wfd.sErrMsg == row.words);
        CHECK(fixture.world.boxes.shown == std::vector<ShownBox>{{row.words, Icon::critical, ""}});
        CHECK(fixture.world.processes.started.empty());
    }
}

TEST_CASE("every output operation that cannot write its script shows one box and starts nothing")
{
    struct Row {
        const char *claim;
        Variant (*run)(cls_WfdPrintExe &);
    };
    const Row rows[] = {
        {"iPreview", [](cls_WfdPrintExe &wfd) { return wfd.iPreview(); }},
        {"iPreviewData", [](cls_WfdPrintExe &wfd) { return wfd.iPreviewData(); }},
        {"iPreviewActX", [](cls_WfdPrintExe &wfd) { return wfd.iPreviewActX(); }},
        {"iPrintBk", [](cls_WfdPrintExe &wfd) { return wfd.iPrintBk(); }},
        {"iPrintDialog", [](cls_WfdPrintExe &wfd) { return wfd.iPrintDialog(); }},
    };
    for (const Row &row : rows) {
        CAPTURE(row.claim);
        WfdFixture fixture;
        fixture.world.files.openOutputErrors["c:\\suite\\tmp\\wfdcom.dat"] = 75;
        CHECK(row.run(fixture.wfd).isEmpty());
        CHECK(fixture.wfd.sErrMsg == "(75)パス名が無効です。");
        CHECK(fixture.world.boxes.shown.size() == 1);
        CHECK(fixture.world.processes.started.empty());
    }
}

TEST_CASE("a script that fails in the middle keeps the part already written")
{
    WfdFixture fixture;
    fixture.world.files.failingWrite = 2;
    fixture.wfd.iPrintDialog();
    CHECK(fixture.script().starts_with("FileName,"));
    CHECK(fixture.script().find("PrintOut") == std::string::npos);
}

TEST_CASE("a tool that cannot be started sets its error text and shows nothing")
{
    WfdFixture fixture;
    fixture.world.processes.startError = 53;
    CHECK(fixture.wfd.iPrintDialog().isEmpty());
    CHECK(fixture.wfd.sErrMsg == "(53)ファイルが見つかりません。");
    CHECK(fixture.world.boxes.shown.empty());
    CHECK(fixture.world.files.has(kScript));
}
