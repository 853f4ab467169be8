#include "data/csv_fixture.h"
#include "support/faulty_database.h"

using namespace inin;

// Opening, failing and closing.

TEST_CASE("a failure before the rows shows a box, with one heading for both openings, and leaves the count unchanged")
{
    const auto run = [](cls_JetDB2CSV &csv, bool two) {
        std::int32_t nRecSuu = -7;
        const std::int16_t status =
            two ? csv.iInitJ2C_WSQL("SELECT 1", "SELECT 2", kFile, nRecSuu) : csv.iInitJ2C("SELECT 1", kFile, nRecSuu);
        CHECK(nRecSuu == -7);
        return status;
    };
    for (const bool two : {false, true}) {
        const std::string heading = "iInitJ2C() でエラー\r\n";
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
        // The session of the refused statement ended at once.
        CHECK(world.database.log == Log{"connect 1", "sql 1 SELECT 1", "disconnect 1"});
    }
}

TEST_CASE("a refused second statement fails the opening of both")
{
    CsvFixture world;
    world.database.results = {answer({"a"}, {{"x"}}), refusal()};
    std::int32_t nRecSuu = -7;
    CHECK(world.csv.iInitJ2C_WSQL("SELECT 1", "SELECT 2", kFile, nRecSuu) == iBad);
    CHECK(nRecSuu == -7);
    CHECK(world.boxes.shown == Boxes{critical("iInitJ2C() でエラー\r\n(-2147217865)表がありません。\rSQL=SELECT 2")});
    CHECK(world.database.log.back() == "disconnect 1");
}

TEST_CASE("a run-time error of the opening is reported with its number")
{
    struct Row {
        std::int32_t RecordsetFaults::*fault;
        const char *words;
    };
    for (const Row &given :
         {Row{&RecordsetFaults::creation, "(429)故障 429"}, Row{&RecordsetFaults::cursorLocation, "(429)故障 429"},
          Row{&RecordsetFaults::recordCount, "(429)故障 429"}}) {
        FaultyWorld world;
        world.faulty.faults.*given.fault = 429;
        world.database.results.push_back(answer({"a"}, {{"x"}}));
        cls_JetDB2CSV csv(world.faultyApp);
        std::int32_t nRecSuu = -7;
        CHECK(csv.iInitJ2C("SELECT 1", kFile, nRecSuu) == iBad);
        CHECK(world.boxes.shown == Boxes{critical(std::string("iInitJ2C() でエラー\r\n") + given.words)});
        CHECK(world.database.log.back() == "disconnect 1");
    }
}

TEST_CASE("a file that cannot be opened or written is reported, and the part already written stays")
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

TEST_CASE("a connection lost between the rows is reported")
{
    CsvFixture world;
    FakeResult rows = answer({"a"}, {{"x"}, {"y"}});
    rows.failingMove = 1;
    world.init(rows);
    CHECK(world.csv.nExecJ2C(Midasi::nasi) == -1);
    CHECK(world.boxes.shown == Boxes{critical("nExecJ2C() でエラー\r\n(-2147467259)接続が失われました。")});
}

TEST_CASE("writing without an opened statement is error 91 and leaves an old file unchanged")
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

TEST_CASE("the end closes the session, and a second end does nothing")
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

TEST_CASE("destroying an object closes its session")
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

TEST_CASE("destroying an object calls iEndJ2C: a session that does not close is reported under its name")
{
    FakeWorld world;
    {
        cls_JetDB2CSV csv(world.app);
        std::int32_t nRecSuu = 0;
        REQUIRE(csv.iInitJ2C("SELECT 1", kFile, nRecSuu) == iGood);
        world.database.closeError = 11;
    }
    CHECK(world.boxes.shown == Boxes{critical("iEndJ2C() でエラー\r\n(11)閉じられません。")});
}

TEST_CASE("a new opening releases the previous session")
{
    CsvFixture world;
    world.init(answer({"a"}, {{"x"}}));
    world.init(answer({"a"}, {{"y"}}));
    CHECK(world.database.log == Log{"connect 1", "sql 1 SELECT 1", "disconnect 1", "connect 2", "sql 2 SELECT 1"});
    CHECK(world.csv.nExecJ2C(Midasi::nasi) == 1);
    CHECK(world.text() == "\"y\"\r\n");
}

TEST_CASE("a record set or session that does not close fails only the first end")
{
    FaultyWorld world;
    world.database.results.push_back(answer({"a"}, {{"x"}}));
    cls_JetDB2CSV csv(world.faultyApp);
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
