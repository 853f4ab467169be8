#include "data/csv_fixture.h"
#include "runtime/date.h"

using namespace inin;

TEST_CASE("the opening counts the rows of a statement with a client-side cursor on its own session")
{
    CsvFixture world;
    CHECK(world.init(answer({"a"}, {{"x"}, {"y"}, {"z"}})) == 3);
    CHECK(world.database.log == Log{"connect 1", "sql 1 SELECT 1"});
    CHECK(world.boxes.shown.empty());
    CHECK(world.init(answer({"a"}, {})) == 0);
}

TEST_CASE("a CSV file has a line for each row, preceded by the names of the fields on request")
{
    CsvFixture world;
    world.init(answer({"cName", "nIDNo"}, {{"山田", 1}, {"鈴木", 2}}, {202, 3}));
    CHECK(world.csv.iExecJ2C(Midasi::ari) == iGood);
    CHECK(world.text() == "\"cName\",\"nIDNo\"\r\n\"山田\",1\r\n\"鈴木\",2\r\n");
    CHECK(world.csv.iExecJ2C(Midasi::nasi) == iGood);
    CHECK(world.text() == "\"山田\",1\r\n\"鈴木\",2\r\n");
}

TEST_CASE("a CSV file without rows has the names of the fields or nothing")
{
    CsvFixture world;
    world.init(answer({"a", "b"}, {}));
    CHECK(world.csv.nExecJ2C(Midasi::ari) == 0);
    CHECK(world.text() == "\"a\",\"b\"\r\n");
    CHECK(world.csv.nExecJ2C(Midasi::nasi) == 0);
    CHECK(world.text().empty());
}

TEST_CASE("the type of a field determines whether its value is quoted")
{
    struct Row {
        std::int32_t type;
        Variant value;
        const char *cell;
    };
    const Date day = DateSerial(2024, 5, 1);
    const Date moment(day.days() + 0.5);
    for (const Row &given : {Row{2, std::int16_t{-5}, "-5"},
                             Row{3, 70000, "70000"},
                             Row{4, 1.5, "1.5"},
                             Row{5, 0.1, "0.1"},
                             Row{6, 1234.5, "1234.5"},
                             Row{11, std::int16_t{-1}, "-1"},
                             Row{14, 2.25, "2.25"},
                             Row{17, 255, "255"},
                             Row{131, "12.50", "12.50"},
                             Row{20, 9007199254740991.0, "9.00719925474099E+15"},
                             Row{16, 1, "1"},
                             Row{7, day, "2024/05/01"},
                             Row{133, day, "2024/05/01"},
                             Row{135, moment, "2024/05/01 12:00:00"},
                             Row{134, Date(0.5), "12:00:00"},
                             Row{200, "文", "\"文\""},
                             Row{202, "文", "\"文\""},
                             Row{129, "A", "\"A\""},
                             Row{130, "A", "\"A\""},
                             Row{201, "A", "\"A\""},
                             Row{203, "A", "\"A\""},
                             Row{8, "A", "\"A\""},
                             Row{72, "A", "\"A\""},
                             Row{202, 5, "\"5\""},
                             Row{202, "", "\"\""},
                             Row{204, Binary{std::byte{0}, std::byte{0xAB}}, "0x00AB"}}) {
        CAPTURE(given.type);
        CsvFixture world;
        world.init(answer({"a", "b"}, {{given.value, "z"}}, {given.type}));
        CHECK(world.csv.iExecJ2C(Midasi::nasi) == iGood);
        CHECK(world.text() == std::string(given.cell) + ",\"z\"\r\n");
    }
}

TEST_CASE("NULL of any type gives nothing between the commas")
{
    CsvFixture world;
    world.init(answer({"a", "b", "c", "d"}, {{Null{}, Null{}, Null{}, 4}}, {3, 135, 202, 3}));
    CHECK(world.csv.iExecJ2C(Midasi::nasi) == iGood);
    CHECK(world.text() == ",,,4\r\n");
}

TEST_CASE("a date cell follows the machine's short date")
{
    CsvFixture world;
    world.app.regional.shortDate = "yy/MM/dd";
    world.init(answer({"a"}, {{DateSerial(2024, 5, 1)}}, {135}));
    CHECK(world.csv.iExecJ2C(Midasi::nasi) == iGood);
    CHECK(world.text() == "24/05/01\r\n");
}

TEST_CASE("quotes, commas and line ends in a cell are written unchanged between its quotes")
{
    CsvFixture world;
    world.init(answer({"a", "q\"n"}, {{"5\" tube", "one\r\ntwo,three\nfour"}}));
    CHECK(world.csv.iExecJ2C(Midasi::ari) == iGood);
    CHECK(world.text() == "\"a\",\"q\"n\"\r\n\"5\" tube\",\"one\r\ntwo,three\nfour\"\r\n");
}

TEST_CASE("a character missing in the code page becomes a question mark")
{
    CsvFixture world;
    world.init(answer({"a"}, {{"\U0001F600"}}));
    CHECK(world.csv.iExecJ2C(Midasi::nasi) == iGood);
    CHECK(world.files.bytes(kFile) == "\"?\"\r\n");
}

TEST_CASE("a given branch name is written to a last column of its own, even an empty one")
{
    CsvFixture world;
    world.init(answer({"a"}, {{"x"}, {Null{}}}));
    CHECK(world.csv.nExecJ2C(Midasi::ari, "高松本社") == 2);
    CHECK(world.text() == "\"a\",\"拠点名\"\r\n\"x\",\"高松本社\"\r\n,\"高松本社\"\r\n");
    CHECK(world.csv.nExecJ2C(Midasi::nasi, "") == 2);
    CHECK(world.text() == "\"x\",\"\"\r\n,\"\"\r\n");
    CHECK(world.csv.nExecJ2C(Midasi::ari) == 2);
    CHECK(world.text() == "\"a\"\r\n\"x\"\r\n\r\n");
}

TEST_CASE("the rows of two statements are written one after the other under the names of the first")
{
    CsvFixture world;
    world.database.results = {answer({"a", "b"}, {{"x", 1}}, {202, 3}),
                              answer({"c", "d"}, {{2, "y"}, {3, "z"}}, {3, 202})};
    std::int32_t nRecSuu = 0;
    CHECK(world.csv.iInitJ2C_WSQL("SELECT 1", "SELECT 2", kFile, nRecSuu) == iGood);
    CHECK(nRecSuu == 3);
    CHECK(world.database.log == Log{"connect 1", "sql 1 SELECT 1", "sql 1 SELECT 2"});
    CHECK(world.csv.nExecJ2C_WSQL(Midasi::ari) == 3);
    CHECK(world.text() == "\"a\",\"b\"\r\n\"x\",1\r\n2,\"y\"\r\n3,\"z\"\r\n");
    CHECK(world.csv.iExecJ2C(Midasi::nasi) == iGood);
    CHECK(world.text() == "\"x\",1\r\n");
}

TEST_CASE("257 fields fit, and 258 are a subscript error")
{
    std::vector<std::string> names(257, "f");
    std::vector<Variant> values(257, "v");
    CsvFixture fits;
    fits.init(answer(names, {values}));
    CHECK(fits.csv.iExecJ2C(Midasi::nasi) == iGood);

    names.emplace_back("f");
    values.emplace_back("v");
    struct Row {
        std::int32_t (*run)(cls_JetDB2CSV &);
        const char *name;
    };
    for (const Row &given :
         {Row{[](cls_JetDB2CSV &csv) { return std::int32_t{csv.iExecJ2C(Midasi::ari)}; }, "iExecJ2C"},
          Row{[](cls_JetDB2CSV &csv) { return csv.nExecJ2C(Midasi::ari, "高松"); }, "nExecJ2C"}}) {
        CsvFixture world;
        world.init(answer(names, {values}));
        CHECK(given.run(world.csv) == -1);
        CHECK(world.boxes.shown ==
              Boxes{critical(given.name + std::string("() でエラー\r\n(9)インデックスが有効範囲にありません。"))});
        CHECK(world.text().empty());
    }
}

TEST_CASE("a table of the embedded database is written by the types of its columns")
{
    EmbeddedCsv world;
    world.run("CREATE TABLE 見本 (cName TEXT, nIDNo INTEGER, iKubun SMALLINT, nRate REAL, tDay DATETIME, bAddr BLOB);"
              "INSERT INTO 見本 VALUES ('山田\"太\"郎', 70000, 2, 1.5, '2024-05-01 00:00:00', x'0AFF'),"
              " (NULL, NULL, NULL, NULL, NULL, NULL), ('a'||char(13,10)||'b', 1, 1, 2, '2024-05-01 09:30:00', x'')");
    CHECK(world.write("SELECT * FROM 見本") == "\"cName\",\"nIDNo\",\"iKubun\",\"nRate\",\"tDay\",\"bAddr\"\r\n"
                                               "\"山田\"太\"郎\",70000,2,1.5,2024/05/01,0x0AFF\r\n"
                                               ",,,,,\r\n"
                                               "\"a\r\nb\",1,1,2,2024/05/01 9:30:00,0x\r\n");
    CHECK(world.boxes.shown.empty());
}
