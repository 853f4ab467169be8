#include "suite_text/code_page_932.h"
#include "viewer/document/letter_set.h"
#include "viewer/script/command_script.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

/// The values that the three letters of a file show of a second file with `rows`.
std::vector<std::string> secondFileOf(const std::string &rows)
{
    const TempFolder folder;
    writeBytes(folder / "f.svg", svgPage("<text x='9' y='9'>{{名}}{{控え.値}}</text>"));
    writeBytes(folder / "a.csv", encodeCp932("\"名\"\r\n\"甲\"\r\n\"乙\"\r\n\"丙\"\r\n"));
    writeBytes(folder / "b.csv", encodeCp932("\"値\"\r\n" + rows));
    writeBytes(folder / "s.dat",
               encodeCp932("FileName,\"" + folder / "f.svg" + "\"\r\nSetDataText,\"主\",\"" + folder / "a.csv" +
                           "\"\r\nSetDataText,\"控え\",\"" + folder / "b.csv" + "\"\r\n"));
    const LetterSet set = openScript(folder / "s.dat");
    REQUIRE(set.size() == 3);
    REQUIRE(set.reports[0].columns == std::vector<std::string>{"名", "控え.値"});
    std::vector<std::string> values;
    for (std::size_t row = 0; row < 3; ++row) values.emplace_back(set.reports[0].value(row, 1));
    return values;
}

using Values = std::vector<std::string>;

} // namespace

TEST_CASE("the rows of a second letter file are joined to those of the first, and a single row is joined to all")
{
    CHECK(secondFileOf("\"1\"\r\n\"2\"\r\n\"3\"\r\n\"4\"\r\n") == Values{"1", "2", "3"});
    CHECK(secondFileOf("\"1\"\r\n") == Values{"1", "1", "1"});
    CHECK(secondFileOf("\"1\"\r\n\"2\"\r\n") == Values{"1", "2", ""});
    CHECK(secondFileOf("") == Values{"", "", ""});
}

TEST_CASE("a data source with an unsupported separator or quote is reported and skipped")
{
    struct Case {
        const char *tail;
        std::size_t sources;
    };
    for (const Case &row : {Case{R"(,",","""",0)", 1}, Case{R"(,",","",0)", 1}, Case{R"(,",","'",0)", 0},
                            Case{R"(,";","""",0)", 0}, Case{R"(,",","""",maybe)", 0}}) {
        CAPTURE(row.tail);
        const CommandScript script = readCommandScript(R"(SetDataText,"d","x.csv")" + std::string(row.tail));
        CHECK(script.reports[0].data.size() == row.sources);
        CHECK(script.notices.size() == 1 - row.sources);
    }
}
