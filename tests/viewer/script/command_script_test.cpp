#include "suite_text/code_page_932.h"
#include "viewer/script/command_script.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;

namespace {

CommandScript readScript(const std::string &text)
{
    return readCommandScript(encodeCp932(text));
}

} // namespace

TEST_CASE("a print run's script has form, title, letter file, paper and ending")
{
    const CommandScript script = readScript("FileName,\"C:\\SYS\\委任状37_01.wfd\"\r\nTitle,\"委任状\"\r\n"
                                            "SetDataText,\"委任状\",\"C:\\TMP\\委任状.csv\"\r\nPrintPaper, A4\r\n"
                                            "PrintOutFromDialog\r\n");
    REQUIRE(script.reports.size() == 1);
    CHECK(script.reports[0].form == "C:\\SYS\\委任状37_01.wfd");
    CHECK(script.title == "委任状");
    REQUIRE(script.reports[0].data.size() == 1);
    CHECK(script.reports[0].data[0].name == "委任状");
    CHECK(script.reports[0].data[0].path == "C:\\TMP\\委任状.csv");
    CHECK(script.reports[0].data[0].hasTitles);
    CHECK(script.paper == Paper::A4);
    CHECK(script.ending == Ending::printByDialog);
    CHECK(script.notices.empty());
}

TEST_CASE("each ending of a script is read")
{
    CHECK(readScript("PrintOut\r\n").ending == Ending::print);
    CHECK(readScript("PrintOutFromDialog\r\n").ending == Ending::printByDialog);
    CHECK(readScript("ShowWindow,2\r\n").ending == Ending::show);
    CHECK(readScript("Title,\"a\"\r\n").ending == Ending::none);
}

TEST_CASE("each paper size of a script is read, and an unknown one is reported")
{
    CHECK(readScript("PrintPaper, A5\r\n").paper == Paper::A5);
    CHECK(readScript("PrintPaper, B5\r\n").paper == Paper::B5);
    CHECK(readScript("PrintPaper, A4\r\n").paper == Paper::A4);
    CHECK(readScript("PrintPaper, A3\r\n").notices.size() == 1);
}

TEST_CASE("offsets are read with their sign")
{
    const CommandScript script = readScript("PrintOffsetX, -12\r\nPrintOffsetY, 7\r\n");
    CHECK(script.offsetX == -12);
    CHECK(script.offsetY == 7);
}

TEST_CASE("zoom and repeat start are reported as having no effect")
{
    const CommandScript script = readScript("PrintZoom, 1\r\nSectionRepeatStart, 3\r\n");
    CHECK(script.notices == std::vector<std::string>{"コマンドファイルの1行目の表示倍率の指定は使いません。",
                                                     "コマンドファイルの2行目の繰り返し開始位置の指定は使いません。"});
}

TEST_CASE("the flag of a data source without a header row is read as a number and as a word")
{
    CHECK_FALSE(readScript("SetDataText,\"a\",\"b.csv\",,,1\r\n").reports[0].data[0].hasTitles);
    CHECK_FALSE(readScript(R"(SetDataText,"a","b.csv",",", """", True)").reports[0].data[0].hasTitles);
    CHECK(readScript("SetDataText,\"a\",\"b.csv\"\r\n").reports[0].data[0].hasTitles);
}

TEST_CASE("item values keep their dots, blanks and quotes")
{
    const CommandScript script =
        readScript("SetItemValue,\"rep. a .item\",\"x \"y\" z\"\r\nSetItemValue,\"r.i\",\"\"\r\n");
    REQUIRE(script.items.size() == 2);
    CHECK(script.items[0].name == "rep. a .item");
    CHECK(script.items[0].text == "x \"y\" z");
    CHECK(script.items[1].text.empty());
}

TEST_CASE("a merger's script has a report for each form, in order")
{
    const CommandScript script =
        readScript("setTitle,\"まとめ\"\r\n"
                   "SetDataText,\"d\",\"1.csv\",\",\", \"\"\"\", True\r\n"
                   "SetDataText,\"e\",\"2.csv\",\",\", \"\"\"\", True\r\nsetreport,\"1.wfd\"\r\nAddReport\r\n"
                   "SetDataText,\"d\",\"3.csv\",\",\", \"\"\"\", True\r\nsetreport,\"2.wfd\"\r\n");
    CHECK(script.title == "まとめ");
    REQUIRE(script.reports.size() == 2);
    CHECK(script.reports[0].form == "1.wfd");
    REQUIRE(script.reports[0].data.size() == 2);
    CHECK(script.reports[0].data[1].name == "e");
    CHECK(script.reports[1].form == "2.wfd");
    CHECK(script.reports[1].data[0].path == "3.csv");
    CHECK(script.notices.empty());
}

TEST_CASE("commands are case-insensitive")
{
    CHECK(readScript("FILENAME,\"x\"\r\ntitle,\"t\"\r\nprintout\r\n").reports[0].form == "x");
    CHECK(readScript("printOUT\r\n").ending == Ending::print);
}

TEST_CASE("a quote inside a form's name or a title is kept")
{
    CHECK(readScript("Title,\"a\"b\"\r\n").title == "a\"b");
}

TEST_CASE("an unknown line is reported with its number and skipped")
{
    const CommandScript script = readScript("Beep\r\nTitle,\"t\"\r\n");
    CHECK(script.title == "t");
    CHECK(script.notices ==
          std::vector<std::string>{"コマンドファイルの1行目は、知らない命令なので読み飛ばしました：Beep"});
}

TEST_CASE("a known command with wrong arguments is reported and skipped")
{
    for (const char *line : {"FileName,x", "Title", "SetDataText,\"a\"", "SetDataText,\"a\",\"b", "PrintOffsetX, far",
                             "SetItemValue,\"a\"", "SetDataText,\"a\",\"b\",;,,1", "SetDataText,\"a\",\"b\",,,1,2"}) {
        CAPTURE(line);
        const CommandScript script = readScript(line);
        CHECK(script.notices.size() == 1);
        CHECK(script.reports[0].form.empty());
        CHECK(script.reports[0].data.empty());
    }
}

TEST_CASE("blank lines, a missing last line end and NUL bytes do not end the script")
{
    CHECK(readScript("\r\n\r\nTitle,\"t\"").title == "t");
    CHECK(readScript(std::string("\0\0\r\nTitle,\"t\"\r\n", 15)).title == "t");
    CHECK(readCommandScript("").notices.empty());
}
