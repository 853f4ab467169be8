#include "formoutput/wfd_print_exe.h"

#include "support/fake_platform.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

using namespace inin;

namespace {

using Log = std::vector<std::string>;

constexpr const char *kScript = "C:\\SUITE\\TMP\\WfdCom.dat";
constexpr const char *kForm = "C:\\SUITE\\SYS\\a.wfd";
constexpr const char *kViewerStart = "2 wfrfv10.exe /c C:\\SUITE\\TMP\\WfdCom.dat";
constexpr const char *kPreviewStart = "3 WrVb6Viewer.exe /c ./TMP\\WfdCom.dat";

/// An object after iInit with a form and without a title.
struct WfdFixture {
    FakeWorld world;
    cls_WfdPrintExe wfd{world.app};
    WfdFixture() { REQUIRE(wfd.iInit(kForm) == 0); }
    std::string script() const { return world.files.bytes(kScript); }
    /// The script of a preview that starts nothing.
    std::string dataScript()
    {
        wfd.iPreviewData();
        return script();
    }
};

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
    CHECK(world.processes.started == Log{kViewerStart});
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
    CHECK(world.processes.started == Log{kPreviewStart});
}

TEST_CASE("the preview window's command names the folder TMP whatever the settings name")
{
    FakeWorld world;
    world.files.putText("C:\\SUITE\\Massage.ini", "SYSTEM_TMP=\\WORK\n");
    world.files.makeFolder("C:\\SUITE\\WORK");
    cls_WfdPrintExe wfd(world.app);
    REQUIRE(wfd.iInit(kForm) == 0);

    wfd.iPreviewActX();

    CHECK(world.files.has("C:\\SUITE\\WORK\\WfdCom.dat"));
    CHECK(world.processes.started == Log{kPreviewStart});
}

TEST_CASE("each output operation writes its last line and starts its tool")
{
    struct Row {
        const char *claim;
        Variant (*run)(cls_WfdPrintExe &);
        const char *paper;
        const char *end;
        Log started;
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

TEST_CASE("paper 1 is A5, paper 2 is B5, any other but -1 is A4")
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

TEST_CASE("paper -1 writes the line before a second time and no paper")
{
    SUBCASE("the form's line when nothing else is set")
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

TEST_CASE("a script with everything set has its lines in the protocol's order")
{
    WfdFixture fixture;
    REQUIRE(fixture.wfd.iSetDataTextNoTitle(5, "E", "D:\\e.csv") == 0);
    REQUIRE(fixture.wfd.iSetDataText(1, "A", "a.csv") == 0);
    REQUIRE(fixture.wfd.iInit("x.wfd", "題") == 0);
    REQUIRE(fixture.wfd.iSetItemValue("Rep", "Sec", "Item", "値") == 0);
    REQUIRE(fixture.wfd.iSetRepeatStart(2) == 0);
    REQUIRE(fixture.wfd.iSetPrintZoom(1) == 0);
    REQUIRE(fixture.wfd.iSetOffset(10, -20) == 0);

    fixture.wfd.iPrintBk();

    CHECK(fixture.script() == "FileName,\"x.wfd\"\r\n"
                              "Title,\"\x91\xE8\"\r\n"
                              "SetDataText,\"A\",\"C:\\SUITE\\TMP\\a.csv\"\r\n"
                              "SetDataText,\"E\",\"D:\\e.csv\",,,1\r\n"
                              "PrintOffsetX, 10\r\n"
                              "PrintOffsetY, -20\r\n"
                              "PrintZoom, 1\r\n"
                              "SectionRepeatStart, 2\r\n"
                              "PrintPaper, A4\r\n"
                              "SetItemValue,\"Rep.Sec.Item\",\"\x92\x6C\"\r\n"
                              "PrintOut\r\n");
}

TEST_CASE("each run replaces the last script")
{
    WfdFixture fixture;
    fixture.world.files.put(kScript, std::string(5000, 'x'));
    CHECK(fixture.dataScript() == "FileName,\"C:\\SUITE\\SYS\\a.wfd\"\r\nPrintPaper, A4\r\nShowWindow,2\r\n");
}

TEST_CASE("iInit resets numbers and items but keeps data entries")
{
    WfdFixture fixture;
    REQUIRE(fixture.wfd.iSetOffset(1, 2) == 0);
    REQUIRE(fixture.wfd.iSetPrintZoom(5) == 0);
    REQUIRE(fixture.wfd.iSetRepeatStart(4) == 0);
    REQUIRE(fixture.wfd.iSetItemValue("R", "S", "I", "v") == 0);
    REQUIRE(fixture.wfd.iSetDataText(2, "D", "d.csv") == 0);

    REQUIRE(fixture.wfd.iInit("b.wfd") == 0);

    CHECK(fixture.dataScript() == "FileName,\"b.wfd\"\r\n"
                                  "SetDataText,\"D\",\"C:\\SUITE\\TMP\\d.csv\"\r\n"
                                  "PrintPaper, A4\r\n"
                                  "ShowWindow,2\r\n");
}

TEST_CASE("an empty title writes no title line, and iInit without one keeps the earlier title")
{
    WfdFixture fixture;
    CHECK(fixture.dataScript().find("Title") == std::string::npos);

    REQUIRE(fixture.wfd.iInit(kForm, "T") == 0);
    REQUIRE(fixture.wfd.iInit(kForm, "") == 0);
    CHECK(fixture.dataScript() ==
          "FileName,\"C:\\SUITE\\SYS\\a.wfd\"\r\nTitle,\"T\"\r\nPrintPaper, A4\r\nShowWindow,2\r\n");
}

TEST_CASE("iInit leaves the text of an earlier failure")
{
    WfdFixture fixture;
    fixture.wfd.sErrMsg = "前の失敗";
    REQUIRE(fixture.wfd.iInit(kForm) == 0);
    CHECK(fixture.wfd.sErrMsg == "前の失敗");
}

TEST_CASE("iInit reads the temporary folder with the warning on")
{
    FakeWorld world;
    world.files.putText("C:\\SUITE\\Massage.ini", "A=1\n");
    cls_WfdPrintExe wfd(world.app);
    CHECK(wfd.iInit(kForm) == 0);
    CHECK(world.boxes.shown == std::vector<ShownBox>{{"システム設定ファイルに、指定の項目が見つかりません。\r"
                                                      "[SYSTEM_TMP]",
                                                      Icon::critical, "警告！"}});
    wfd.iPreviewData();
    CHECK(world.files.has("C:\\SUITE\\WfdCom.dat"));
}

TEST_CASE("an iInit that cannot read the settings gives -1 and the words, and shows nothing")
{
    FakeWorld world;
    world.files.openInputErrors["c:\\suite\\massage.ini"] = 70;
    cls_WfdPrintExe wfd(world.app);
    CHECK(wfd.iInit(kForm) == -1);
    CHECK(wfd.sErrMsg == "(70)書き込みできません。");
    CHECK(world.boxes.shown.empty());
}

TEST_CASE("an iInit that cannot read the settings leaves form and title of the one before")
{
    WfdFixture fixture;
    REQUIRE(fixture.wfd.iInit(kForm, "前") == 0);
    REQUIRE(fixture.wfd.iSetOffset(3, 0) == 0);
    fixture.world.files.openInputErrors["c:\\suite\\massage.ini"] = 70;
    REQUIRE(fixture.wfd.iInit("C:\\SUITE\\SYS\\b.wfd", "後") == -1);

    CHECK(fixture.dataScript() == "FileName,\"C:\\SUITE\\SYS\\a.wfd\"\r\n"
                                  "Title,\"\x91\x4F\"\r\n"
                                  "PrintOffsetX, 3\r\n"
                                  "PrintPaper, A4\r\n"
                                  "ShowWindow,2\r\n");
}

TEST_CASE("a gap in the data numbers writes no line")
{
    WfdFixture fixture;
    REQUIRE(fixture.wfd.iSetDataText(3, "C", "c.csv") == 0);
    REQUIRE(fixture.wfd.iSetDataText(1, "A", "a.csv") == 0);
    CHECK(fixture.dataScript() == "FileName,\"C:\\SUITE\\SYS\\a.wfd\"\r\n"
                                  "SetDataText,\"A\",\"C:\\SUITE\\TMP\\a.csv\"\r\n"
                                  "SetDataText,\"C\",\"C:\\SUITE\\TMP\\c.csv\"\r\n"
                                  "PrintPaper, A4\r\n"
                                  "ShowWindow,2\r\n");
}

TEST_CASE("a data entry is replaced by its number, its flag too")
{
    WfdFixture fixture;
    REQUIRE(fixture.wfd.iSetDataTextNoTitle(1, "A", "D:\\a.csv") == 0);
    REQUIRE(fixture.wfd.iSetDataText(1, "B", "b.csv") == 0);
    CHECK(fixture.dataScript() == "FileName,\"C:\\SUITE\\SYS\\a.wfd\"\r\n"
                                  "SetDataText,\"B\",\"C:\\SUITE\\TMP\\b.csv\"\r\n"
                                  "PrintPaper, A4\r\n"
                                  "ShowWindow,2\r\n");
}

TEST_CASE("a data entry with an empty name writes no line")
{
    WfdFixture fixture;
    REQUIRE(fixture.wfd.iSetDataText(1, "", "a.csv") == 0);
    CHECK(fixture.dataScript() == "FileName,\"C:\\SUITE\\SYS\\a.wfd\"\r\nPrintPaper, A4\r\nShowWindow,2\r\n");
}

TEST_CASE("a data number outside 1 to 5 is error 9 and changes no entry")
{
    struct Row {
        std::int16_t iDataNo;
    };
    for (const Row row : {Row{0}, Row{6}, Row{-1}, Row{32767}, Row{-32768}}) {
        CAPTURE(row.iDataNo);
        WfdFixture fixture;
        CHECK(fixture.wfd.iSetDataText(row.iDataNo, "A", "a.csv") == -1);
        CHECK(fixture.wfd.sErrMsg == "(9)インデックスが有効範囲にありません。");
        fixture.wfd.sErrMsg.clear();
        CHECK(fixture.wfd.iSetDataTextNoTitle(row.iDataNo, "A", "a.csv") == -1);
        CHECK(fixture.wfd.sErrMsg == "(9)インデックスが有効範囲にありません。");
        CHECK(fixture.world.boxes.shown.empty());
        CHECK(fixture.dataScript() == "FileName,\"C:\\SUITE\\SYS\\a.wfd\"\r\nPrintPaper, A4\r\nShowWindow,2\r\n");
    }
}

TEST_CASE("a numeric setting writes a line only when it is not at rest")
{
    struct Row {
        const char *claim;
        std::int16_t (*set)(cls_WfdPrintExe &);
        const char *lines;
    };
    const Row rows[] = {
        {"offset 0", [](cls_WfdPrintExe &wfd) { return wfd.iSetOffset(0, 0); }, ""},
        {"offset X alone", [](cls_WfdPrintExe &wfd) { return wfd.iSetOffset(7, 0); }, "PrintOffsetX, 7\r\n"},
        {"offset Y alone", [](cls_WfdPrintExe &wfd) { return wfd.iSetOffset(0, 7); }, "PrintOffsetY, 7\r\n"},
        {"the least offsets", [](cls_WfdPrintExe &wfd) { return wfd.iSetOffset(-2147483647 - 1, -1); },
         "PrintOffsetX, -2147483648\r\nPrintOffsetY, -1\r\n"},
        {"zoom 2", [](cls_WfdPrintExe &wfd) { return wfd.iSetPrintZoom(2); }, ""},
        {"zoom 0", [](cls_WfdPrintExe &wfd) { return wfd.iSetPrintZoom(0); }, "PrintZoom, 0\r\n"},
        {"zoom -3", [](cls_WfdPrintExe &wfd) { return wfd.iSetPrintZoom(-3); }, "PrintZoom, -3\r\n"},
        {"repeat start 0", [](cls_WfdPrintExe &wfd) { return wfd.iSetRepeatStart(0); }, ""},
        {"repeat start -1", [](cls_WfdPrintExe &wfd) { return wfd.iSetRepeatStart(-1); }, ""},
        {"repeat start 1", [](cls_WfdPrintExe &wfd) { return wfd.iSetRepeatStart(1); }, "SectionRepeatStart, 1\r\n"},
        {"repeat start 32767", [](cls_WfdPrintExe &wfd) { return wfd.iSetRepeatStart(32767); },
         "SectionRepeatStart, 32767\r\n"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.claim);
        WfdFixture fixture;
        REQUIRE(row.set(fixture.wfd) == 0);
        CHECK(fixture.dataScript() ==
              std::string("FileName,\"C:\\SUITE\\SYS\\a.wfd\"\r\n") + row.lines + "PrintPaper, A4\r\nShowWindow,2\r\n");
    }
}

TEST_CASE("an item's name leaves out a blank section and keeps the blanks of any other")
{
    struct Row {
        const char *claim;
        const char *section;
        const char *line;
    };
    const Row rows[] = {
        {"a section", "Sec", "SetItemValue,\"Rep.Sec.Item\",\"v\"\r\n"},
        {"no section", "", "SetItemValue,\"Rep.Item\",\"v\"\r\n"},
        {"blanks only", "   ", "SetItemValue,\"Rep.Item\",\"v\"\r\n"},
        {"blanks around", " a ", "SetItemValue,\"Rep. a .Item\",\"v\"\r\n"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.claim);
        WfdFixture fixture;
        REQUIRE(fixture.wfd.iSetItemValue("Rep", row.section, "Item", "v") == 0);
        CHECK(fixture.dataScript() ==
              std::string("FileName,\"C:\\SUITE\\SYS\\a.wfd\"\r\nPrintPaper, A4\r\n") + row.line + "ShowWindow,2\r\n");
    }
}

TEST_CASE("items are written in the order in which they were set, one name twice too")
{
    WfdFixture fixture;
    REQUIRE(fixture.wfd.iSetItemValue("R", "", "B", "1") == 0);
    REQUIRE(fixture.wfd.iSetItemValue("R", "", "A", "2") == 0);
    REQUIRE(fixture.wfd.iSetItemValue("R", "", "B", "3") == 0);
    CHECK(fixture.dataScript() == "FileName,\"C:\\SUITE\\SYS\\a.wfd\"\r\nPrintPaper, A4\r\n"
                                  "SetItemValue,\"R.B\",\"1\"\r\n"
                                  "SetItemValue,\"R.A\",\"2\"\r\n"
                                  "SetItemValue,\"R.B\",\"3\"\r\n"
                                  "ShowWindow,2\r\n");
}

TEST_CASE("the 32768th item is error 6 and is not kept")
{
    WfdFixture fixture;
    for (int i = 0; i < 32767; ++i) REQUIRE(fixture.wfd.iSetItemValue("R", "", "I", "v") == 0);
    CHECK(fixture.wfd.iSetItemValue("R", "", "LAST", "v") == -1);
    CHECK(fixture.wfd.sErrMsg == "(6)オーバーフローしました。");
    CHECK(fixture.dataScript().find("LAST") == std::string::npos);
}

TEST_CASE("nothing in a value is escaped")
{
    WfdFixture fixture;
    REQUIRE(fixture.wfd.iInit("a\"b.wfd", "x\r\ny") == 0);
    REQUIRE(fixture.wfd.iSetItemValue("R", "", "I", "say \"hi\"") == 0);
    CHECK(fixture.dataScript() == "FileName,\"a\"b.wfd\"\r\n"
                                  "Title,\"x\r\ny\"\r\n"
                                  "PrintPaper, A4\r\n"
                                  "SetItemValue,\"R.I\",\"say \"hi\"\"\r\n"
                                  "ShowWindow,2\r\n");
    CHECK(fixture.wfd.sErrMsg.empty());
}

TEST_CASE("a character that the code page lacks goes out as a question mark")
{
    WfdFixture fixture;
    REQUIRE(fixture.wfd.iInit("a.wfd", "𠮷") == 0);
    CHECK(fixture.dataScript() == "FileName,\"a.wfd\"\r\nTitle,\"?\"\r\nPrintPaper, A4\r\nShowWindow,2\r\n");
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

TEST_CASE("a script that breaks off keeps what was written")
{
    WfdFixture fixture;
    fixture.world.files.failingWrite = 2;
    fixture.wfd.iPrintDialog();
    CHECK(fixture.script().starts_with("FileName,"));
    CHECK(fixture.script().find("PrintOut") == std::string::npos);
}

TEST_CASE("a tool that cannot be started leaves its words and shows nothing")
{
    WfdFixture fixture;
    fixture.world.processes.startError = 53;
    CHECK(fixture.wfd.iPrintDialog().isEmpty());
    CHECK(fixture.wfd.sErrMsg == "(53)ファイルが見つかりません。");
    CHECK(fixture.world.boxes.shown.empty());
    CHECK(fixture.world.files.has(kScript));
}
