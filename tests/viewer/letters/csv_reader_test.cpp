#include "suite_text/code_page_932.h"
#include "support/errors.h"
#include "support/sample_size.h"
#include "viewer/letters/csv_reader.h"

#include <doctest/doctest.h>

#include <random>

using namespace inin;
using namespace inin::viewer;

namespace {

LetterTable read(const std::string &text, TitleRow titles = TitleRow::first)
{
    return readLetters(encodeCp932(text), titles);
}

std::vector<std::string> rowOf(const LetterTable &table, std::size_t row)
{
    std::vector<std::string> values;
    for (std::size_t i = 0; i < table.columns().size(); ++i) values.emplace_back(table.value(row, i));
    return values;
}

std::string csvRefusal(const std::string &bytes)
{
    return errorWordsOf([&] { return readLetters(bytes, TitleRow::first); });
}

using Values = std::vector<std::string>;

} // namespace

TEST_CASE("rows are read in code page 932, with the column names of the first line")
{
    const LetterTable table =
        readLetters("\"\x96\xbc\x91\x4f\",\"b\"\r\n\"\xfb\xfc\x8b\xb4\",\"\"\r\n", TitleRow::first);
    CHECK(table.columns() == Values{"名前", "b"});
    REQUIRE(table.size() == 1);
    CHECK(rowOf(table, 0) == Values{"髙橋", ""});
}

TEST_CASE("a quote inside or at the ends of a value is kept")
{
    const LetterTable table = read("\"a\",\"b\"\r\n\"x\"y\",\"\"z\"\"\r\n");
    REQUIRE(table.fault(0) == RowFault::none);
    CHECK(rowOf(table, 0) == Values{"x\"y", "\"z\""});
}

TEST_CASE("a comma inside a value is kept, even as the whole value")
{
    const LetterTable table = read("\"a\",\"b\",\"c\"\r\n\"x,y\",\",\",\"z\"\r\n");
    REQUIRE(table.fault(0) == RowFault::none);
    CHECK(rowOf(table, 0) == Values{"x,y", ",", "z"});
}

TEST_CASE("an ambiguous row is marked and has no values")
{
    // The values are either "x\"," and "y" or "x" and ",\"y".
    const LetterTable table = read("\"a\",\"b\"\r\n\"x\",\",\"y\"\r\n");
    REQUIRE(table.size() == 1);
    CHECK(table.fault(0) == RowFault::ambiguous);
    CHECK(rowOf(table, 0) == Values{"", ""});
    CHECK(table.rawText(0) == "\"x\",\",\"y\"");
}

TEST_CASE("a value that contains the separator gives its row too many columns")
{
    CHECK(read("\"a\",\"b\"\r\n\"x\",\"y\",\"z\"\r\n").fault(0) == RowFault::tooManyColumns);
}

TEST_CASE("a row with too few columns is marked")
{
    CHECK(read("\"a\",\"b\"\r\n\"x\"\r\n").fault(0) == RowFault::tooFewColumns);
}

TEST_CASE("the rows of a value with a line end are marked, and the rows around them are read")
{
    const LetterTable table = read("\"a\",\"b\"\r\n\"1\",\"2\"\r\n\"x\",\"y\r\nz\"\r\n\"3\",\"4\"\r\n");
    REQUIRE(table.size() == 4);
    CHECK(table.fault(1) == RowFault::notQuoted);
    CHECK(table.fault(2) == RowFault::notQuoted);
    CHECK(rowOf(table, 3) == Values{"3", "4"});
}

TEST_CASE("a last line without a line end is marked as truncated, even if it is a valid row")
{
    CHECK(read("\"a\",\"b\"\r\n\"x\",\"y\"").fault(0) == RowFault::cutOff);
    CHECK(read("\"a\",\"b\"\r\n\"x\",\"y\"\r").fault(0) == RowFault::cutOff);
    CHECK(read("\"a\",\"b\"\r\n\"x\",\"y").fault(0) == RowFault::cutOff);
}

TEST_CASE("a file that ends inside its header row is refused as truncated")
{
    CHECK(csvRefusal("\"a\",\"b") == "見出し行が途中で切れています。");
    CHECK(csvRefusal("\"a\",\"b\"\r") == "見出し行が途中で切れています。");
}

TEST_CASE("column names may have any order and number")
{
    const LetterTable table = read("\"署名日\",\"余分\",\"保険者名\"\r\n\"1\",\"2\",\"3\"\r\n");
    REQUIRE(table.columnOf("保険者名"));
    CHECK(table.value(0, *table.columnOf("保険者名")) == "3");
    CHECK_FALSE(table.columnOf("利用者氏名"));
}

TEST_CASE("a file without rows has none")
{
    CHECK(read("\"a\",\"b\"\r\n").size() == 0);
}

TEST_CASE("an empty file, a first line without quotes and a duplicate column name are refused with a sentence")
{
    CHECK(csvRefusal("") == "ファイルが空です。");
    CHECK(csvRefusal("FileName,\"x\"\r\n") == "先頭の行が見出し行ではありません。各列を引用符で囲んだ行が必要です。");
    CHECK(csvRefusal("\"a\",\"a\"\r\n") == "見出し行に列「a」が二つあります。");
}

TEST_CASE("a file without a header row has numbers as column names, or the program's names for twenty columns")
{
    CHECK(read("\"x\",\"y\"\r\n", TitleRow::none).columns() == Values{"1", "2"});
    std::string line = "\"v1\"";
    for (int i = 2; i <= 20; ++i) line += ",\"v" + std::to_string(i) + "\"";
    const LetterTable table = read(line + "\r\n", TitleRow::none);
    REQUIRE(table.size() == 1);
    CHECK(table.value(0, *table.columnOf("対象開始日")) == "v1");
    CHECK(table.value(0, *table.columnOf("世帯主電話")) == "v17");
    CHECK(table.value(0, *table.columnOf("署名日")) == "v20");
}

TEST_CASE("half a character at the end of a row does not consume the quote or the line end")
{
    const LetterTable table = readLetters("\"a\",\"b\"\r\n\"x\x83\",\"y\x83\"\r\n\"1\",\"2\"\r\n", TitleRow::first);
    REQUIRE(table.size() == 2);
    CHECK(rowOf(table, 0) == Values{"x\uFFFD", "y\uFFFD"});
    CHECK(rowOf(table, 1) == Values{"1", "2"});
}

TEST_CASE("a NUL and an invalid byte are shown as replacement characters")
{
    const LetterTable table = readLetters(std::string("\"a\"\r\n\"x\0\x80y\"\r\n", 13), TitleRow::first);
    REQUIRE(table.size() == 1);
    CHECK(table.value(0, 0).substr(0, 4) == "x\xEF\xBF\xBD");
    CHECK(table.value(0, 0).back() == 'y');
}

TEST_CASE("a field of a megabyte is read completely")
{
    const std::string megabyte(1'000'000, 'x');
    const LetterTable table = read("\"a\",\"b\"\r\n\"" + megabyte + "\",\"y\"\r\n");
    CHECK(table.value(0, 0) == megabyte);
    CHECK(table.value(0, 1) == "y");
}

TEST_CASE("a file of 32,767 rows has 32,767 letters")
{
    std::string text = "\"a\",\"b\"\r\n";
    for (int i = 0; i < 32'767; ++i) text += "\"" + std::to_string(i) + "\",\"x\"\r\n";
    const LetterTable table = read(text);
    REQUIRE(table.size() == 32'767);
    CHECK(table.value(32'766, 0) == "32766");
}

TEST_CASE("rows are the same in any reading order, also next to blank lines and faulty rows")
{
    std::string text = "\"a\",\"b\"\r\n";
    for (int i = 0; i < 1'000; ++i) {
        if (i % 7 == 0) text += "\r\n";
        text += i % 100 == 55 ? "\"" + std::to_string(i) + "\"\r\n" : "\"" + std::to_string(i) + "\",\"髙\"\r\n";
    }
    text += "\"cut";
    const LetterTable table = read(text);
    REQUIRE(table.size() == 1'001);
    CHECK(table.fault(1'000) == RowFault::cutOff);
    for (std::size_t row = 1'000; row-- > 0;) {
        const bool isShort = row % 100 == 55;
        REQUIRE(table.fault(row) == (isShort ? RowFault::tooFewColumns : RowFault::none));
        REQUIRE(table.value(row, 0) == (isShort ? "" : std::to_string(row)));
        REQUIRE(table.rawText(row) == (isShort ? "\"" + std::to_string(row) + "\"" : ""));
    }
}

TEST_CASE("a value stays valid when other rows are read and the table is moved")
{
    std::string text = "\"a\"\r\n";
    for (int i = 0; i < 5'000; ++i) text += "\"" + std::to_string(i) + "番\"\r\n";
    LetterTable table = read(text);
    const std::string_view first = table.value(0, 0);
    CHECK(table.value(4'999, 0) == "4999番");
    const LetterTable moved = std::move(table);
    CHECK(first == "0番");
    CHECK(moved.value(300, 0) == "300番");
}

TEST_CASE("a row of random quotes and commas is either read correctly or marked")
{
    std::mt19937 dice(20240501);
    const auto roll = [&](unsigned sides) { return std::uniform_int_distribution<unsigned>(0, sides - 1)(dice); };
    int readRows = 0, markedRows = 0;
    for (int round = 0; round < sampleSize(20'000); ++round) {
        Values values(3);
        for (std::string &value : values)
            for (unsigned length = roll(5); length > 0; --length) value += "\",x漢"[roll(3)];
        const std::string line = "\"" + values[0] + "\",\"" + values[1] + "\",\"" + values[2] + "\"\r\n";
        const LetterTable table = read("\"a\",\"b\",\"c\"\r\n" + line);
        REQUIRE(table.size() == 1);
        const bool isRead = table.fault(0) == RowFault::none;
        (isRead ? readRows : markedRows) += 1;
        CAPTURE(line);
        if (isRead) REQUIRE(rowOf(table, 0) == values);
    }
    CHECK(readRows > sampleSize(5'000));
    CHECK(markedRows > sampleSize(1'000));
}
