#include "data/jet_db_to_csv.h"

#include "runtime/date.h"
#include "support/embedded_world.h"
#include "support/spoiled_database.h"

#include <doctest/doctest.h>

using namespace inin;

namespace {

using Boxes = std::vector<ShownBox>;
using Log = std::vector<std::string>;

constexpr const char *kFile = "C:\\SUITE\\TMP\\out.csv";

ShownBox critical(const std::string &text)
{
    return {text, Icon::critical, ""};
}

FakeResult answer(const std::vector<std::string> &columns, const std::vector<std::vector<Variant>> &rows,
                  const std::vector<std::int32_t> &types = {})
{
    FakeResult result;
    result.columns = columns;
    result.rows = rows;
    result.types = types;
    return result;
}

FakeResult refusal()
{
    FakeResult result;
    result.error = -2147217865;
    result.description = "表がありません。";
    return result;
}

/// A statement with so many fields.
std::string wideStatement(int fields)
{
    std::string sql = "SELECT ";
    for (int field = 1; field <= fields; ++field)
        sql += (field == 1 ? "" : ",") + std::to_string(field) + " AS f" + std::to_string(field);
    return sql;
}

struct CsvFixture : FakeWorld {
    std::int32_t init(const FakeResult &result)
    {
        database.results.push_back(result);
        std::int32_t nRecSuu = -7;
        REQUIRE(csv.iInitJ2C("SELECT 1", kFile, nRecSuu) == iGood);
        return nRecSuu;
    }
    [[nodiscard]] std::string text() const { return fromCp932(files.bytes(kFile)); }
    cls_JetDB2CSV csv{app};
};

/// The class on the embedded database.
struct EmbeddedCsv : EmbeddedWorld {
    std::string write(const std::string &sql)
    {
        std::int32_t nRecSuu = 0;
        if (csv.iInitJ2C(sql, kFile, nRecSuu) != iGood || csv.iExecJ2C(Midasi::ari) != iGood) return "failed";
        return fromCp932(files.bytes(kFile));
    }
    cls_JetDB2CSV csv{site};
};

} // namespace

TEST_CASE("the opening counts the rows of a statement on a client's cursor of its own session")
{
    CsvFixture world;
    CHECK(world.init(answer({"a"}, {{"x"}, {"y"}, {"z"}})) == 3);
    CHECK(world.database.log == Log{"connect 1", "sql 1 SELECT 1"});
    CHECK(world.boxes.shown.empty());
    CHECK(world.init(answer({"a"}, {})) == 0);
}

TEST_CASE("a CSV file has a line for each row and, when asked for, the names of the fields before them")
{
    CsvFixture world;
    world.init(answer({"cName", "nIDNo"}, {{"山田", 1}, {"鈴木", 2}}, {202, 3}));
    CHECK(world.csv.iExecJ2C(Midasi::ari) == iGood);
    CHECK(world.text() == "\"cName\",\"nIDNo\"\r\n\"山田\",1\r\n\"鈴木\",2\r\n");
    CHECK(world.csv.iExecJ2C(Midasi::nasi) == iGood);
    CHECK(world.text() == "\"山田\",1\r\n\"鈴木\",2\r\n");
}

TEST_CASE("a CSV file of no rows has its names of the fields or nothing")
{
    CsvFixture world;
    world.init(answer({"a", "b"}, {}));
    CHECK(world.csv.nExecJ2C(Midasi::ari) == 0);
    CHECK(world.text() == "\"a\",\"b\"\r\n");
    CHECK(world.csv.nExecJ2C(Midasi::nasi) == 0);
    CHECK(world.text().empty());
}

TEST_CASE("the type of a field decides whether its value stands in quotes")
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

TEST_CASE("quotes, commas and line ends in a cell stand as they are between its quotes")
{
    CsvFixture world;
    world.init(answer({"a", "q\"n"}, {{"5\" tube", "one\r\ntwo,three\nfour"}}));
    CHECK(world.csv.iExecJ2C(Midasi::ari) == iGood);
    CHECK(world.text() == "\"a\",\"q\"n\"\r\n\"5\" tube\",\"one\r\ntwo,three\nfour\"\r\n");
}

TEST_CASE("a character that the code page lacks becomes a question mark")
{
    CsvFixture world;
    world.init(answer({"a"}, {{"\U0001F600"}}));
    CHECK(world.csv.iExecJ2C(Midasi::nasi) == iGood);
    CHECK(world.files.bytes(kFile) == "\"?\"\r\n");
}

TEST_CASE("a given branch name stands in a last column of its own, an empty one too")
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

TEST_CASE("the rows of two statements stand one behind the other under the names of the first")
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

TEST_CASE("what fails before the rows come is told under the operation's name and leaves the count")
{
    const auto run = [](cls_JetDB2CSV &csv, bool two) {
        std::int32_t nRecSuu = -7;
        const std::int16_t status =
            two ? csv.iInitJ2C_WSQL("SELECT 1", "SELECT 2", kFile, nRecSuu) : csv.iInitJ2C("SELECT 1", kFile, nRecSuu);
        CHECK(nRecSuu == -7);
        return status;
    };
    for (const bool two : {false, true}) {
        const std::string heading = two ? "iInitJ2C_WSQL() でエラー\r\n" : "iInitJ2C() でエラー\r\n";
        FakeWorld world;
        cls_JetDB2CSV csv(world.app);
        world.database.results.push_back(refusal());
        CHECK(run(csv, two) == iBad);
        world.database.connectError = -2147217843;
        CHECK(run(csv, two) == iBad);
        world.files.putText("C:\\SUITE\\adodb.ini", "[接続情報]\n");
        CHECK(run(csv, two) == iBad);
        world.files.remove("C:\\SUITE\\adodb.ini");
        CHECK(run(csv, two) == iBad);
        CHECK(world.boxes.shown ==
              Boxes{critical(heading + "(-2147217865)表がありません。\rSQL=SELECT 1"),
                    critical(heading + "(-2147217843)接続できません。"),
                    critical(heading + "接続文字列取得できません。"),
                    critical(heading + "指定されたIni（C:\\SUITE\\adodb.ini）ファイルが見つかりません。")});
        // The refused statement's session went at once.
        CHECK(world.database.log == Log{"connect 1", "sql 1 SELECT 1", "disconnect 1"});
    }
}

TEST_CASE("a second statement that is refused fails the opening of both")
{
    CsvFixture world;
    world.database.results = {answer({"a"}, {{"x"}}), refusal()};
    std::int32_t nRecSuu = -7;
    CHECK(world.csv.iInitJ2C_WSQL("SELECT 1", "SELECT 2", kFile, nRecSuu) == iBad);
    CHECK(nRecSuu == -7);
    CHECK(world.boxes.shown ==
          Boxes{critical("iInitJ2C_WSQL() でエラー\r\n(-2147217865)表がありません。\rSQL=SELECT 2")});
    CHECK(world.database.log.back() == "disconnect 1");
}

TEST_CASE("a run-time error of the opening is told with its number")
{
    struct Row {
        std::int32_t RecordsetFaults::*fault;
        const char *words;
    };
    for (const Row &given :
         {Row{&RecordsetFaults::creation, "(429)故障 429"}, Row{&RecordsetFaults::cursorLocation, "(429)故障 429"},
          Row{&RecordsetFaults::recordCount, "(429)故障 429"}}) {
        SpoiledWorld world;
        world.faulty.faults.*given.fault = 429;
        world.database.results.push_back(answer({"a"}, {{"x"}}));
        cls_JetDB2CSV csv(world.spoiled);
        std::int32_t nRecSuu = -7;
        CHECK(csv.iInitJ2C("SELECT 1", kFile, nRecSuu) == iBad);
        CHECK(world.boxes.shown == Boxes{critical(std::string("iInitJ2C() でエラー\r\n") + given.words)});
        CHECK(world.database.log.back() == "disconnect 1");
    }
}

TEST_CASE("a file that cannot be opened or written is told, and what was written stays")
{
    CsvFixture world;
    world.init(answer({"a"}, {{"x"}, {"y"}, {"z"}}));
    world.files.openOutputErrors["c:\\suite\\tmp\\out.csv"] = 70;
    CHECK(world.csv.nExecJ2C(Midasi::ari) == -1);
    world.files.openOutputErrors.clear();
    world.files.failingWrite = 3;
    CHECK(world.csv.iExecJ2C(Midasi::ari) == iBad);
    CHECK(world.boxes.shown == Boxes{critical("nExecJ2C() でエラー\r\n(70)書き込みできません。"),
                                     critical("iExecJ2C() でエラー\r\n(61)ディスクの空き容量が不足しています。")});
    CHECK(world.text() == "\"a\"\r\n\"x\"\r\n");
}

TEST_CASE("a connection that is lost among the rows is told")
{
    CsvFixture world;
    FakeResult rows = answer({"a"}, {{"x"}, {"y"}});
    rows.failingMove = 1;
    world.init(rows);
    CHECK(world.csv.nExecJ2C(Midasi::nasi) == -1);
    CHECK(world.boxes.shown == Boxes{critical("nExecJ2C() でエラー\r\n(-2147467259)接続が失われました。")});
}

TEST_CASE("writing without an opened statement is error 91 and leaves an old file alone")
{
    const std::string words = "(91)オブジェクト変数または With ブロック変数が設定されていません。";
    CsvFixture world;
    world.files.put(kFile, "old");
    CHECK(world.csv.iExecJ2C(Midasi::ari) == iBad);
    world.init(answer({"a"}, {{"x"}}));
    CHECK(world.csv.nExecJ2C_WSQL(Midasi::ari) == -1);
    CHECK(world.csv.iEndJ2C() == iGood);
    CHECK(world.csv.nExecJ2C(Midasi::ari) == -1);
    CHECK(world.boxes.shown == Boxes{critical("iExecJ2C() でエラー\r\n" + words),
                                     critical("nExecJ2C_WSQL() でエラー\r\n" + words),
                                     critical("nExecJ2C() でエラー\r\n" + words)});
    CHECK(world.files.bytes(kFile) == "old");
}

TEST_CASE("the end closes the session, and a second end has nothing to do")
{
    CsvFixture world;
    CHECK(world.csv.iEndJ2C() == iGood);
    world.init(answer({"a"}, {{"x"}}));
    CHECK(world.csv.iEndJ2C() == iGood);
    CHECK(world.database.log.back() == "disconnect 1");
    CHECK(world.csv.iEndJ2C() == iGood);
    CHECK(world.database.log.size() == 3);
    CHECK(world.boxes.shown.empty());
}

TEST_CASE("an object that goes closes its session")
{
    FakeWorld world;
    {
        cls_JetDB2CSV csv(world.app);
        std::int32_t nRecSuu = 0;
        REQUIRE(csv.iInitJ2C("SELECT 1", kFile, nRecSuu) == iGood);
    }
    CHECK(world.database.log.back() == "disconnect 1");
    CHECK(world.boxes.shown.empty());
}

TEST_CASE("a new opening lets the session before go")
{
    CsvFixture world;
    world.init(answer({"a"}, {{"x"}}));
    world.init(answer({"a"}, {{"y"}}));
    CHECK(world.database.log == Log{"connect 1", "sql 1 SELECT 1", "disconnect 1", "connect 2", "sql 2 SELECT 1"});
    CHECK(world.csv.nExecJ2C(Midasi::nasi) == 1);
    CHECK(world.text() == "\"y\"\r\n");
}

TEST_CASE("a record set or session that does not close fails the end once")
{
    SpoiledWorld world;
    world.database.results.push_back(answer({"a"}, {{"x"}}));
    cls_JetDB2CSV csv(world.spoiled);
    std::int32_t nRecSuu = 0;
    REQUIRE(csv.iInitJ2C("SELECT 1", kFile, nRecSuu) == iGood);
    world.faulty.faults.close = 3704;
    CHECK(csv.iEndJ2C() == iBad);
    CHECK(world.boxes.shown == Boxes{critical("iEndJ2C() でエラー\r\n3704\r\n故障 3704")});
    CHECK(world.database.log.back() == "disconnect 1");
    CHECK(csv.iEndJ2C() == iGood);

    CsvFixture session;
    session.init(answer({"a"}, {{"x"}}));
    session.database.closeError = -2147467259;
    CHECK(session.csv.iEndJ2C() == iBad);
    CHECK(session.boxes.shown == Boxes{critical("iEndJ2C() でエラー\r\n(-2147467259)閉じられません。")});
}

TEST_CASE("a table of the embedded database comes out by the types of its columns")
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

TEST_CASE("258 fields of the embedded database are refused, 257 written")
{
    EmbeddedCsv fits;
    const std::string text = fits.write(wideStatement(257));
    CHECK(text.ends_with(",256,257\r\n"));
    EmbeddedCsv world;
    CHECK(world.write(wideStatement(258)) == "failed");
    CHECK(world.boxes.shown == Boxes{critical("iExecJ2C() でエラー\r\n(9)インデックスが有効範囲にありません。")});
}

TEST_CASE("a statement that writes is refused by the opening")
{
    EmbeddedCsv world;
    CHECK(world.write("DELETE FROM CORP") == "failed");
    REQUIRE(world.boxes.shown.size() == 1);
    CHECK(world.boxes.shown[0].text.starts_with("iInitJ2C() でエラー\r\n(-2147217900)"));
}
