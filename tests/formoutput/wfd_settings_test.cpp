// The settings made before an output operation, and their lines in the script.
#include "formoutput/wfd_fixture.h"

using namespace inin;

TEST_CASE("a script with every setting has its lines in the protocol's order")
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

TEST_CASE("iInit keeps the text of an earlier failure")
{
    WfdFixture fixture;
    fixture.wfd.sErrMsg = "前の失敗";
    REQUIRE(fixture.wfd.iInit(kForm) == 0);
    CHECK(fixture.wfd.sErrMsg == "前の失敗");
}

TEST_CASE("iInit reads the temporary folder with the warning box")
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

TEST_CASE("an iInit that cannot read the settings gives -1 and the error text, and shows nothing")
{
    FakeWorld world;
    world.files.openInputErrors["c:\\suite\\massage.ini"] = 70;
    cls_WfdPrintExe wfd(world.app);
    CHECK(wfd.iInit(kForm) == -1);
    CHECK(wfd.sErrMsg == "(70)書き込みできません。");
    CHECK(world.boxes.shown.empty());
}

TEST_CASE("an iInit that cannot read the settings keeps form and title of the previous one")
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

TEST_CASE("a data entry is replaced by its number, its flag included")
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

TEST_CASE("a numeric setting writes a line only if it differs from its default")
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

TEST_CASE("an item's name omits a blank section and keeps the blanks of any other")
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

TEST_CASE("items are written in the order in which they were set, duplicate names included")
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

TEST_CASE("a character missing in the code page is written as a question mark")
{
    WfdFixture fixture;
    REQUIRE(fixture.wfd.iInit("a.wfd", "𠮷") == 0);
    CHECK(fixture.dataScript() == "FileName,\"a.wfd\"\r\nTitle,\"?\"\r\nPrintPaper, A4\r\nShowWindow,2\r\n");
}
