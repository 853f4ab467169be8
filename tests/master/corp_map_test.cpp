#include "master/corp_map.h"

#include "master/corp_table.h"
#include "master/table_fixture.h"

using namespace inin;

namespace {

using Boxes = std::vector<ShownBox>;

constexpr const char *kPicture = "./zenrinCGI/zenrin.gif";
/// The path as the fake files normalize it.
constexpr const char *kPictureKey = ".\\zenrincgi\\zenrin.gif";
const std::string kBytes("GIF\x00\x0A\xFF", 6);

const std::string kInsertBeginning = " INSERT INTO  RIYOUSHA_MAP (  iKyotenCd,  iKyotenEb,  nIDNo,  bAddr1,  bAddr2,"
                                     "  bAddr3,  dTimeStamp ) VALUES (       1     , 2     , ";
const std::string kInsertEnd = "     , 0x00     , 0x00     , getdate())";

ShownBox critical(const std::string &text)
{
    return {text, Icon::critical, ""};
}

/// The map operations, with the statuses as results.
struct MapWorld : FakeWorld {
    MapWorld() : map(app) {}
    void putPicture(const std::string &bytes = kBytes) { files.put(kPicture, bytes); }
    std::int16_t load(std::int32_t nIDNo)
    {
        std::int16_t status = 99;
        map.iChizuLoad(nIDNo, status);
        return status;
    }
    std::int16_t save(std::int32_t nIDNo)
    {
        std::int16_t status = 99;
        map.iChizuSave(nIDNo, status);
        return status;
    }
    std::int16_t update(std::int32_t nIDNo)
    {
        std::int16_t status = 99;
        map.iChizuUpdate(nIDNo, status);
        return status;
    }
    CorpMap map;
};

FakeResult oneMap()
{
    FakeResult result;
    result.columns = {"nIDNo"};
    result.rows = {{0}};
    return result;
}

/// A company table on session 1 with a map. Map sessions count from 2.
struct CompanyWorld : TableFixture<cT_CORP> {
    CompanyWorld() { app.cChizuFlg = "1"; }
    /// The log with statements reduced to their kind and table.
    [[nodiscard]] Log steps() const
    {
        Log steps;
        for (const std::string &line : database.log) {
            const bool isMap = line.find("RIYOUSHA_MAP") != std::string::npos;
            steps.push_back(line.substr(0, line.find(' ', line.find(' ') + 1)) + (isMap ? " map" : ""));
        }
        return steps;
    }
    cD_CORP row;
};

} // namespace

TEST_CASE("an existing map loads with 0, a missing one with -2")
{
    MapWorld world;
    world.database.results.push_back(oneMap());
    CHECK(world.load(7) == iGood);
    CHECK(world.load(7) == -2);
    const std::string sql = " select *  from RIYOUSHA_MAP  where  nIDNo=7  and iKyotenCd=1  and iKyotenEb=2";
    CHECK(world.database.log == Log{"connect 1", "sql 1  " + sql, "disconnect 1", "connect 2", "sql 2  " + sql});
    CHECK(world.boxes.shown.empty());
}

TEST_CASE("a load with a refused statement fails with the session's error text and without a box")
{
    MapWorld world;
    world.database.results.push_back(failure(-2147217865, "表がありません。"));
    CHECK(world.load(0) == iBad);
    CHECK(
        world.map.sErrMsg() ==
        "(-2147217865)表がありません。\rSQL=  select *  from RIYOUSHA_MAP  where  nIDNo=0  and iKyotenCd=1  and iKyotenEb=2");
    CHECK(world.boxes.shown.empty());
}

TEST_CASE("a saved picture is written to the statement byte by byte, and its file is deleted")
{
    MapWorld world;
    world.putPicture();
    CHECK(world.save(7) == iGood);
    CHECK(world.database.log == Log{"connect 1", "begin 1",
                                    "exec 1  " + kInsertBeginning + "7     , 0x474946000AFF" + kInsertEnd, "commit 1",
                                    "disconnect 1"});
    CHECK_FALSE(world.files.has(kPicture));
    CHECK(world.boxes.shown.empty());
}

TEST_CASE("a save without a picture inserts a row of empty values")
{
    MapWorld world;
    CHECK(world.save(0) == iGood);
    CHECK(world.database.log[2] == "exec 1  " + kInsertBeginning + "0     , 0x00" + kInsertEnd);
}

TEST_CASE("a picture of 0 bytes counts as none and its file is deleted")
{
    MapWorld world;
    world.putPicture("");
    CHECK(world.save(0) == iGood);
    CHECK(world.database.log[2] == "exec 1  " + kInsertBeginning + "0     , 0x00" + kInsertEnd);
    CHECK_FALSE(world.files.has(kPicture));
}

TEST_CASE("a folder in place of the picture is not a picture")
{
    MapWorld world;
    world.files.makeFolder(kPictureKey);
    CHECK_FALSE(world.map.isPictureThere());
}

TEST_CASE("an update replaces only the first picture")
{
    MapWorld world;
    world.putPicture();
    CHECK(world.update(7) == iGood);
    const char *sql = "exec 1   UPDATE  RIYOUSHA_MAP  set       bAddr1 = 0x474946000AFF"
                      "      ,dTimeStamp = getdate()  WHERE nIDNo =7  and iKyotenCd =1  and iKyotenEb =2";
    CHECK(world.database.log == Log{"connect 1", "begin 1", sql, "commit 1", "disconnect 1"});
    CHECK_FALSE(world.files.has(kPicture));
}

TEST_CASE("an update without a picture sends a set list that begins with a comma")
{
    MapWorld world;
    CHECK(world.update(0) == iGood); // the fake accepts any statement
    CHECK(world.database.log[2] == "exec 1   UPDATE  RIYOUSHA_MAP  set       ,dTimeStamp = getdate()"
                                   "  WHERE nIDNo =0  and iKyotenCd =1  and iKyotenEb =2");
}

TEST_CASE("the number 99999999 reads and deletes the picture and sends nothing to the database")
{
    for (const auto operation : {&MapWorld::save, &MapWorld::update}) {
        MapWorld world;
        world.putPicture();
        CHECK((world.*operation)(99999999) == iGood);
        CHECK_FALSE(world.files.has(kPicture));
        CHECK(world.database.log.empty());
        CHECK(world.database.connectionStrings.empty());
    }
}

TEST_CASE("a failed statement of a map closes the session without a rollback and without a box")
{
    MapWorld world;
    world.putPicture("A");
    world.database.executions.push_back(failure(-2147217900, "構文。"));
    CHECK(world.update(0) == iBad);
    CHECK(world.map.sErrMsg() == "ERR:iExecSQL (-2147217900)構文。\rSQL=  UPDATE  RIYOUSHA_MAP  set       bAddr1 = 0x41"
                                 "      ,dTimeStamp = getdate()  WHERE nIDNo =0  and iKyotenCd =1  and iKyotenEb =2");
    CHECK(world.database.log[1] == "begin 1");
    CHECK(world.database.log[3] == "disconnect 1");
    CHECK(world.database.log.size() == 4);
    CHECK(world.boxes.shown.empty());
}

TEST_CASE("a transaction of a map that does not begin or commit fails with the session's error text and no rollback")
{
    MapWorld begins;
    begins.database.beginError = -2147467259;
    CHECK(begins.save(0) == iBad);
    CHECK(begins.map.sErrMsg() == "ERR:BeginTrans (-2147467259)トランザクションの失敗。");
    CHECK(begins.database.log == Log{"connect 1", "begin 1", "disconnect 1"});

    MapWorld commits;
    commits.database.commitError = -2147467259;
    CHECK(commits.save(0) == iBad);
    CHECK(commits.map.sErrMsg() == "ERR:CommitTrans (-2147467259)トランザクションの失敗。");
    CHECK(commits.database.log.back() == "disconnect 1");
    CHECK(commits.database.log.size() == 5);
}

TEST_CASE("each step of a map's opening is reported under the operation's name and its own")
{
    struct Row {
        std::int16_t (MapWorld::*operation)(std::int32_t);
        const char *name;
    };
    for (const Row &given : {Row{&MapWorld::load, "iChizuLoad"}, Row{&MapWorld::save, "iChizuSave"},
                             Row{&MapWorld::update, "iChizuUpdate"}}) {
        CAPTURE(given.name);
        const std::string name = given.name;
        MapWorld world;
        world.database.connectError = -2147217843;
        CHECK((world.*given.operation)(0) == iBad);
        CHECK(world.map.sErrMsg() == "(-2147217843)接続できません。");
        world.files.putText("C:\\SUITE\\adodb.ini", "[接続情報]\n接続情報=\n");
        CHECK((world.*given.operation)(0) == iBad);
        world.files.remove("C:\\SUITE\\adodb.ini");
        CHECK((world.*given.operation)(0) == iBad);
        CHECK(world.boxes.shown ==
              Boxes{critical(name + "() でエラー：m_cADOTo接続\r\n(-2147217843)接続できません。"),
                    critical(name + "() でエラー\r\n接続文字列取得できません。"),
                    critical(name + "() でエラー：cIni初期化\r\n"
                                    "指定されたIni（C:\\SUITE\\adodb.ini）ファイルが見つかりません。")});
        CHECK(world.database.log.empty());
    }
}

TEST_CASE("a picture that cannot be deleted or read is reported, and nothing is written")
{
    MapWorld deleting;
    deleting.putPicture();
    deleting.files.removeErrors[kPictureKey] = 70;
    CHECK(deleting.save(0) == iBad);
    CHECK(deleting.boxes.shown == Boxes{critical("iChizuSave() でエラー\r\n(70)書き込みできません。")});
    CHECK(deleting.map.sErrMsg() == "70\r\n書き込みできません。");
    CHECK(deleting.database.log.empty());

    MapWorld reading;
    reading.putPicture();
    reading.files.openInputErrors[kPictureKey] = 75;
    CHECK(reading.update(0) == iBad);
    CHECK(reading.boxes.shown == Boxes{critical("iChizuUpdate() でエラー\r\n(75)パス名が無効です。")});
    CHECK(reading.files.has(kPicture));
    CHECK(reading.database.log.empty());
}

TEST_CASE("an insert of a company saves the map of number 0 before its commit, on a session of its own")
{
    CompanyWorld corp;
    corp.files.put(kPicture, "A");
    corp.row.nIDNo = 55;
    CHECK(corp->iDataInsert(&corp.row, 0, Transaction::own) == iGood);
    CHECK(corp.steps() ==
          Log{"begin 1", "exec 1", "connect 2", "begin 2", "exec 2 map", "commit 2", "disconnect 2", "commit 1"});
    CHECK(corp.database.log[4].find("VALUES (       1     , 2     , 0     , 0x41     ,") != std::string::npos);
}

TEST_CASE("an insert of a company without a picture saves a row of empty values all the same")
{
    CompanyWorld corp;
    CHECK(corp->iDataInsert(&corp.row, 0) == iGood);
    CHECK(corp.steps() == Log{"exec 1", "connect 2", "begin 2", "exec 2 map", "commit 2", "disconnect 2"});
}

TEST_CASE("an update of a company inserts a missing map and updates an existing one")
{
    CompanyWorld missing;
    missing.files.put(kPicture, "A");
    CHECK(missing->iDataUpdate(&missing.row, 0, Transaction::own) == iGood);
    CHECK(missing.steps() == Log{"begin 1", "exec 1", "connect 2", "sql 2 map", "disconnect 2", "connect 3", "begin 3",
                                 "exec 3 map", "commit 3", "disconnect 3", "commit 1"});
    CHECK(missing.database.log[7].find("INSERT INTO") != std::string::npos);

    CompanyWorld present;
    present.files.put(kPicture, "A");
    present.database.resultsByText.emplace_back("RIYOUSHA_MAP", oneMap());
    CHECK(present->iDataUpdate(&present.row, 0) == iGood);
    CHECK(present.database.log[6].find("UPDATE  RIYOUSHA_MAP") != std::string::npos);
}

TEST_CASE("an update of a company without a picture leaves the map unchanged")
{
    CompanyWorld corp;
    CHECK(corp->iDataUpdate(&corp.row, 0, Transaction::own) == iGood);
    CHECK(corp.steps() == Log{"begin 1", "exec 1", "commit 1"});
}

TEST_CASE("an update of a company writes the map in the caller's transaction too")
{
    CompanyWorld corp;
    corp.files.put(kPicture, "A");
    CHECK(corp->iDataUpdate(&corp.row, 0) == iGood);
    CHECK(corp.steps() == Log{"exec 1", "connect 2", "sql 2 map", "disconnect 2", "connect 3", "begin 3", "exec 3 map",
                              "commit 3", "disconnect 3"});
}

TEST_CASE("unless the flag is the text 1, a write of a company leaves picture and map unchanged")
{
    for (const char *flag : {"", "0", " 1", "１"}) {
        CAPTURE(flag);
        CompanyWorld corp;
        corp.app.cChizuFlg = flag;
        corp.files.put(kPicture, "A");
        CHECK(corp->iDataInsert(&corp.row, 0, Transaction::own) == iGood);
        CHECK(corp->iDataUpdate(&corp.row, 0, Transaction::own) == iGood);
        CHECK(corp.steps() == Log{"begin 1", "exec 1", "commit 1", "begin 1", "exec 1", "commit 1"});
        CHECK(corp.files.has(kPicture));
    }
}

TEST_CASE("a delete of a company and a failed statement leave picture and map unchanged")
{
    CompanyWorld deleted;
    deleted.files.put(kPicture, "A");
    CHECK(deleted->iData削除(&deleted.row, 0, Transaction::own) == iGood);
    CHECK(deleted.steps() == Log{"begin 1", "exec 1", "commit 1"});
    CHECK(deleted.files.has(kPicture));

    CompanyWorld failed;
    failed.files.put(kPicture, "A");
    failed.database.executions.push_back(failure(-2147217900, "構文。"));
    CHECK(failed->iDataUpdate(&failed.row, 0, Transaction::own) == iBad);
    CHECK(failed.steps() == Log{"begin 1", "exec 1", "rollback 1"});
    CHECK(failed.files.has(kPicture));
}

TEST_CASE(
    "a map that cannot be written fails a company's update with its error text and rolls it back, but never its insert")
{
    CompanyWorld updated;
    updated.files.put(kPicture, "A");
    updated.database.executions = {{}, failure(-2147217900, "構文。")};
    CHECK(updated->iDataUpdate(&updated.row, 0, Transaction::own) == iBad);
    CHECK(updated->sErrMsg().starts_with("ERR:iExecSQL (-2147217900)構文。\rSQL=  INSERT INTO  RIYOUSHA_MAP"));
    CHECK(updated.steps().back() == "rollback 1");

    CompanyWorld inserted;
    inserted.files.put(kPicture, "A");
    inserted.database.executions = {{}, failure(-2147217900, "構文。")};
    CHECK(inserted->iDataInsert(&inserted.row, 0, Transaction::own) == iGood);
    CHECK(inserted.steps().back() == "commit 1");
}

TEST_CASE("an update of a company whose map cannot be queried tries to update the map")
{
    CompanyWorld corp;
    corp.files.put(kPicture, "A");
    corp.database.resultsByText.emplace_back("RIYOUSHA_MAP", failure(-2147217865, "表がありません。"));
    CHECK(corp->iDataUpdate(&corp.row, 0) == iGood);
    CHECK(corp.database.log[6].find("UPDATE  RIYOUSHA_MAP") != std::string::npos);
}
