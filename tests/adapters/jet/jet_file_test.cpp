// A real Jet file through the real driver. Tests that begin with "the driver" describe its defects; when a later version
// corrects one, its test must be changed.

#include "adapters/odbc/jet_dao.h"

#include "data/dao_session.h"
#include "support/errors.h"
#include "support/temp_folder.h"

#include <doctest/doctest.h>

#include <memory>
#include <string>
#include <vector>

using namespace inin;
using namespace inin::odbc;

namespace {

constexpr const char *kSample = ININ_TEST_DATA "/jet/practice.mdb";

std::string sampleBytes()
{
    return bytesOf(pathOf(kSample));
}

std::unique_ptr<DaoEngine> realEngine()
{
    return makeJetDao([](const std::string &name) { return name; });
}

/// A session whose database was opened by the system's driver.
struct JetFile {
    explicit JetFile(const std::string &path = kSample, std::int16_t i排他 = 0)
    {
        REQUIRE(session.iInit(path, i排他, "ws", "", "", dbUseJet) == 0);
        status = session.iDbOpen();
    }
    [[nodiscard]] std::unique_ptr<DaoRecordset> open(const std::string &source, std::int32_t type = dbOpenSnapshot)
    {
        std::unique_ptr<DaoRecordset> rows;
        INFO(source);
        INFO(session.sErrMsg());
        REQUIRE(session.iOpenRecordset(rows, source, type, dbReadOnly, 0) == 0);
        return rows;
    }
    /// One field of each row.
    [[nodiscard]] std::vector<Variant> column(const std::string &source, const std::string &name,
                                              std::int32_t type = dbOpenSnapshot)
    {
        std::vector<Variant> values;
        const auto rows = open(source, type);
        for (; !rows->isEndOfFile(); rows->MoveNext()) values.push_back(rows->Field(name));
        return values;
    }
    /// The sErrMsg of a failed opening.
    [[nodiscard]] std::string refusal(const std::string &source, std::int32_t type = dbOpenSnapshot)
    {
        std::unique_ptr<DaoRecordset> rows;
        CHECK(session.iOpenRecordset(rows, source, type, dbReadOnly, 0) == -1);
        CHECK(rows == nullptr);
        return session.sErrMsg();
    }

    std::unique_ptr<DaoEngine> engine = realEngine();
    clsT_Dao session{*engine};
    std::int16_t status = -1;
};

using Values = std::vector<Variant>;

std::string repeated(const std::string &text, int times)
{
    std::string whole;
    for (int index = 0; index < times; ++index) whole += text;
    return whole;
}

} // namespace

TEST_CASE("a Jet file can be opened shared and exclusively")
{
    for (const std::int16_t i排他 : {std::int16_t{0}, std::int16_t{-1}}) {
        JetFile jet(kSample, i排他);
        CHECK(jet.status == 0);
        CHECK(jet.session.iDbClose() == 0);
        CHECK(jet.session.iWorkSpaceClose() == 0);
        CHECK(jet.session.sErrMsg().empty());
    }
}

TEST_CASE("the columns of a Jet table with a Japanese name have their order")
{
    JetFile jet;
    const auto rows = jet.open("患者", dbOpenTable);
    std::vector<std::string> names;
    for (std::size_t index = 0; index < rows->fieldCount(); ++index) names.push_back(rows->fieldName(index));
    CHECK(names == std::vector<std::string>{"nIDNo", "c氏名", "cカナ", "t生年月日", "b終了", "n単価", "nRate", "iKubun",
                                            "iByte", "nSingle", "n割合", "m備考"});
}

TEST_CASE("each type of a Jet column is read as a type of the runtime")
{
    struct Row {
        const char *column;
        Values values; ///< without those of deleted rows
    };
    const std::string longText = repeated("長い備考。", 300);
    JetFile jet;
    for (const Row &given :
         {Row{"nIDNo", {1, 2, 3, 2147483647}},
          Row{"c氏名", {"髙橋 一郎", "﨑田 花子", "山田\"太\"郎, O'Hara", "Smith"}},
          Row{"b終了", {std::int16_t{0}, std::int16_t{-1}, std::int16_t{-1}, std::int16_t{0}}},
          Row{"n単価", {1234.5, Null{}, -0.0001, 922337203685477.5807}}, Row{"nRate", {0.1, Null{}, -1e100, 70000.5}},
          Row{"iKubun", {std::int16_t{2}, Null{}, std::int16_t{-32768}, std::int16_t{32767}}},
          Row{"iByte", {std::int16_t{255}, Null{}, std::int16_t{0}, std::int16_t{1}}}}) {
        CAPTURE(given.column);
        CHECK(jet.column("患者", given.column) == given.values);
    }
    const Values singles = jet.column("患者", "nSingle");
    CHECK(singles[0] == Variant(1.5));
    CHECK(singles[1] == Variant(Null{}));
    CHECK(singles[2] == Variant(-0.25));
    // Newer versions of the driver return a double with the digits of the single.
    CHECK((singles[3] == Variant(3e38) || singles[3] == Variant(double{3e38F})));
    const Values birthdays = jet.column("患者", "t生年月日");
    CHECK(birthdays[0] == Variant(DateSerial(1940, 5, 1)));
    CHECK(birthdays[1] == Variant(Null{}));
    CHECK(birthdays[2] == Variant(dateOf({2024, 2, 29, 9, 30, 0})));
    const Values notes = jet.column("患者", "m備考");
    CHECK(notes[0] == Variant("一行目\r\n二行目"));
    CHECK(notes[1] == Variant(Null{}));
    CHECK(notes[2] == Variant(longText));
}

TEST_CASE("the rows of a Jet file are read by statement and by table name, streamed and at once")
{
    const Values names{"山田", "鈴木", Null{}};
    JetFile jet;
    for (const std::int32_t type : {dbOpenSnapshot, dbOpenForwardOnly}) {
        CHECK(jet.column("STAFF", "cName", type) == names);
        CHECK(jet.column("[STAFF]", "CNAME", type) == names);
        CHECK(jet.column("SELECT nIDNo, cName FROM STAFF;", "cName", type) == names);
        CHECK(jet.column("SELECT c氏名 FROM 患者", "c氏名", type)[1] == Variant("﨑田 花子"));
        CHECK(jet.column("SELECT TOP 2 * FROM STAFF", "nIDNo", type) == Values{1, 2});
    }
    CHECK(jet.column("my table", "a", dbOpenTable) == Values{7});
    CHECK(jet.column("SELECT a FROM [my table]", "a") == Values{7});
    CHECK(jet.column("空表", "nIDNo").empty());
}

TEST_CASE("all rows of a Jet table of many pages are read in order")
{
    for (const std::int32_t type : {dbOpenSnapshot, dbOpenForwardOnly}) {
        JetFile jet;
        const Values days = jet.column("実績", "nDate", type);
        REQUIRE(days.size() == 992);
        CHECK(days.front() == Variant(20240501));
        CHECK(days[31] == Variant(20240501));
        CHECK(days.back() == Variant(20240531));
    }
}

TEST_CASE("in a Jet file, a field that the table lacks and a row after the last one are errors")
{
    for (const std::int32_t type : {dbOpenSnapshot, dbOpenForwardOnly}) {
        JetFile jet;
        auto rows = jet.open("SELECT a FROM [my table]", type);
        CHECK_FALSE(rows->isEndOfFile());
        CHECK(errorOf([&] { (void)rows->Field("cNone"); }) == 3265);
        rows->MoveNext();
        CHECK(rows->isEndOfFile());
        CHECK(errorOf([&] { (void)rows->Field("a"); }) == 3021);
        CHECK(errorOf([&] { rows->MoveNext(); }) == 3021);
        CHECK(jet.session.iCloseRecordset(rows) == 0);
        CHECK(rows == nullptr);
    }
}

TEST_CASE("an unknown table of a Jet file is error 3078, whatever its name")
{
    JetFile jet;
    for (const char *name : {"NONE", "無い表", "[無い表]", "[a]b]", ""}) {
        CAPTURE(name);
        CHECK(jet.refusal(name) == "3078\r\nテーブルが見つかりません。");
    }
    CHECK(jet.refusal("no such table", dbOpenTable) == "3078\r\nテーブルが見つかりません。");
    CHECK(jet.column("STAFF", "nIDNo") == Values{1, 2, 3});
}

TEST_CASE("a faulty statement on a Jet file is error 3075 with the driver's message, and the next one runs")
{
    JetFile jet;
    for (const char *sql :
         {"SELECT FROM", "SELECT * FROM NONE", "SELECT cNone FROM STAFF", "SELECT * FROM STAFF ORDER BY nIDNo"}) {
        CAPTURE(sql);
        CHECK(jet.refusal(sql) == "3075\r\nCouldn't parse SQL");
        CHECK(jet.column("STAFF", "nIDNo") == Values{1, 2, 3});
    }
}

TEST_CASE("a record set of a Jet file accepts only a single SELECT")
{
    JetFile jet;
    for (const char *sql :
         {"DELETE FROM STAFF", "SELECT * FROM STAFF; DELETE FROM STAFF", "UPDATE STAFF SET nIDNo = 1"})
        CHECK(jet.refusal(sql) == "3075\r\na read-only record set runs one SELECT and nothing else");
}

TEST_CASE("a condition is refused in a Jet file, because the driver returns wrong rows for it")
{
    JetFile jet;
    for (const char *sql : {"SELECT * FROM STAFF WHERE cName IS NULL", "SELECT * FROM 患者 where iKubun = -32768"})
        CHECK(jet.refusal(sql) == "3075\r\nthe driver for Jet files finds the wrong rows by a condition");
}

TEST_CASE("a statement of more than 4000 bytes is not passed to the driver")
{
    JetFile jet;
    const auto padded = [](std::size_t bytes) { return "SELECT nIDNo FROM" + std::string(bytes - 22, ' ') + "STAFF"; };
    CHECK(jet.column(padded(4000), "nIDNo") == Values{1, 2, 3});
    for (const std::size_t bytes : {std::size_t{4001}, std::size_t{100000}})
        CHECK(jet.refusal(padded(bytes)) == "3075\r\nthe statement is too long for the driver for Jet files");
}

TEST_CASE("writing to a Jet file is refused and does not change it")
{
    const TempFolder folder;
    const std::string bytes = sampleBytes();
    JetFile jet(folder.put("a.mdb", bytes));
    REQUIRE(jet.session.iBeginTrans() == 0);
    for (const char *sql : {"DELETE FROM STAFF", "INSERT INTO STAFF VALUES (4, 'x')", "SELECT * FROM STAFF", ""}) {
        CAPTURE(sql);
        CHECK(jet.session.iExecSQL(sql) == -1);
        CHECK(jet.session.sErrMsg() == "3027\r\n更新できません。データベースは読み取り専用です。");
        CHECK(jet.session.iExecuteSql(sql, dbFailOnError) == -1);
        CHECK(jet.session.sErrMsg() == "3027\r\n更新できません。データベースは読み取り専用です。");
    }
    CHECK(jet.session.iCommitTrans() == 0);
    CHECK(jet.session.iDbClose() == 0);
    CHECK(folder.bytes("a.mdb") == bytes);
    CHECK(folder.entries() == 1);
}

TEST_CASE("rows of a Jet file can be read during a transaction")
{
    JetFile jet;
    CHECK(jet.session.iCommitTrans() == -1);
    CHECK(jet.session.sErrMsg() == "3034\r\nトランザクションが開始されていません。");
    REQUIRE(jet.session.iBeginTrans() == 0);
    CHECK(jet.session.iBeginTrans() == -1);
    CHECK(jet.session.sErrMsg() == "3003\r\nトランザクションは既に開始されています。");
    CHECK(jet.column("STAFF", "nIDNo") == Values{1, 2, 3});
    CHECK(jet.session.iRollbackTrans() == 0);
    CHECK(jet.session.iRollbackTrans() == -1);
    CHECK(jet.session.sErrMsg() == "3034\r\nトランザクションが開始されていません。");
}

TEST_CASE("two Jet files can be open at once")
{
    // The same file with another table name.
    const TempFolder folder;
    std::string bytes = sampleBytes();
    const std::string name("\xFF\xFESTAFF", 7);
    REQUIRE(bytes.find(name) != std::string::npos);
    bytes.replace(bytes.find(name), 7, "\xFF\xFESTUFF");
    const std::string other = folder.put("b.mdb", bytes);
    const auto engine = realEngine();
    const auto workspace = engine->CreateWorkspace("ws", "", "", dbUseJet);
    const auto first = workspace->OpenDatabase(kSample, DaoWorkspace::Sharing::shared);
    const auto second = workspace->OpenDatabase(other, DaoWorkspace::Sharing::shared);
    const auto ofFirst = first->OpenRecordset("STAFF", dbOpenForwardOnly, 0, 0);
    const auto ofSecond = second->OpenRecordset("STUFF", dbOpenForwardOnly, 0, 0);
    CHECK(ofFirst->Field("cName") == Variant("山田"));
    CHECK(ofSecond->Field("cName") == Variant("山田"));
    ofFirst->MoveNext();
    CHECK(ofFirst->Field("cName") == Variant("鈴木"));
    CHECK(errorOf([&] { (void)first->OpenRecordset("STUFF", dbOpenSnapshot, 0, 0); }) == 3078);
    CHECK(errorOf([&] { (void)second->OpenRecordset("STAFF", dbOpenSnapshot, 0, 0); }) == 3078);
    ofSecond->MoveNext();
    CHECK(ofSecond->Field("cName") == Variant("鈴木"));
}

TEST_CASE("two record sets of one Jet file can be read alternately, one of them streamed")
{
    JetFile jet;
    const auto staff = jet.open("STAFF", dbOpenForwardOnly);
    const auto visits = jet.open("実績", dbOpenForwardOnly);
    CHECK(staff->Field("cName") == Variant("山田"));
    CHECK(visits->Field("nDate") == Variant(20240501));
    staff->MoveNext();
    visits->MoveNext();
    CHECK(staff->Field("cName") == Variant("鈴木"));
    CHECK(visits->Field("nDate") == Variant(20240502));
}

TEST_CASE("a Jet file that replaced another one is read after closing and opening")
{
    const TempFolder folder;
    std::string bytes = sampleBytes();
    JetFile jet(folder.put("a.mdb", bytes));
    CHECK(jet.column("STAFF", "nIDNo") == Values{1, 2, 3});
    CHECK(jet.session.iDbClose() == 0);
    std::filesystem::remove(folder / "a.mdb");
    bytes.replace(bytes.find("\xFF\xFESTAFF"), 7, "\xFF\xFESTUFF");
    folder.put("a.mdb", bytes);
    CHECK(jet.session.iDbOpen() == 0);
    CHECK(jet.column("STUFF", "nIDNo") == Values{1, 2, 3});
}

TEST_CASE("the path of a Jet file may contain Japanese characters, blanks and symbols")
{
    const TempFolder folder;
    for (const char *name : {"髙﨑 患者.mdb", "a=b 'c'.mdb", "データ.mdb", "a}b {c}.mdb"}) {
        CAPTURE(name);
        JetFile jet(folder.put(name, sampleBytes()));
        CHECK(jet.session.sErrMsg() == "");
        CHECK(jet.status == 0);
        CHECK(jet.column("STAFF", "nIDNo") == Values{1, 2, 3});
    }
}

TEST_CASE("a path with a semicolon, which the driver does not accept, is a failed connection")
{
    const TempFolder folder;
    const JetFile jet(folder.put("a;b.mdb", sampleBytes()));
    CHECK(jet.status == -1);
    CHECK(jet.session.sErrMsg() == "3151\r\nthe driver failed and told no reason");
}

TEST_CASE("a file with only the header of a Jet file is a failed connection")
{
    const TempFolder folder;
    const std::string bytes = sampleBytes();
    const std::string zeros = bytes.substr(0, 64) + std::string(100000, '\0');
    for (const std::string &cut : {bytes.substr(0, 64), bytes.substr(0, 4096), bytes.substr(0, 8192), zeros}) {
        CAPTURE(cut.size());
        const JetFile jet(folder.put("a.mdb", cut));
        CHECK(jet.status == -1);
        CHECK(jet.session.sErrMsg() == "3151\r\nthe file cannot be read as a Jet database");
    }
}

TEST_CASE("a closed Jet file fails with error 3420 and can be opened again")
{
    JetFile jet;
    auto rows = jet.open("STAFF");
    CHECK(jet.session.iDbClose() == 0);
    CHECK(jet.session.iCloseRecordset(rows) == -1);
    CHECK(jet.session.sErrMsg() == "3420\r\nオブジェクトが無効であるか、閉じられています。");
    CHECK(jet.session.iDbOpen() == 0);
    CHECK(jet.column("STAFF", "nIDNo") == Values{1, 2, 3});
}

TEST_CASE("the driver reads at most 16383 bytes of a Jet text")
{
    JetFile jet;
    CHECK(jet.column("患者", "m備考")[3] == Variant(repeated("とても長い備考。", 700).substr(0, 16383)));
}

TEST_CASE("the driver reads an empty Jet text as NULL")
{
    JetFile jet;
    CHECK(jet.column("患者", "cカナ") == Values{"ﾀｶﾊｼ ｲﾁﾛｳ", Null{}, Null{}, "スミス"});
}

TEST_CASE("the driver reads decimals and GUIDs as texts, binary values up to the first zero byte, and no early dates")
{
    JetFile jet;
    CHECK(jet.column("患者", "n割合") == Values{"12.50", Null{}, "-0.05", "123456789012.34"});
    CHECK(jet.column("印", "gKey") == Values{"01234567-89AB-CDEF-0123-456789ABCDEF"});
    CHECK(jet.column("印", "bData") == Values{""});
    CHECK(jet.column("患者", "t生年月日")[3] == Variant("1900-01-00"));
}
