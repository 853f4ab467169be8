#include "adapters/database/dao_error.h"
#include "adapters/sqlite/database_file.h"
#include "adapters/sqlite/sqlite_database.h"
#include "data/dao_session.h"
#include "system/file_path.h"

#include <doctest/doctest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

using namespace inin;
using namespace inin::sqlite;

namespace {

constexpr const char *kTables = "CREATE TABLE STAFF (nIDNo INTEGER PRIMARY KEY, cName TEXT NOT NULL);"
                                "INSERT INTO STAFF VALUES (1, '山田'), (2, '鈴木');"
                                "CREATE TABLE [my table] (a INTEGER); INSERT INTO [my table] VALUES (7)";
constexpr std::int16_t kShared = 0;
constexpr std::int16_t kExclusive = -1;

std::unique_ptr<DaoEngine> plainEngine()
{
    return makeSqliteDao([](const std::string &path) { return path; });
}

/// A session whose database is open.
struct OpenDao {
    OpenDao(DaoEngine &engine, const std::string &path, std::int16_t i排他 = kShared) : session(engine)
    {
        REQUIRE(session.iInit(path, i排他, "ws", "", "", dbUseJet) == 0);
        status = session.iDbOpen();
    }
    [[nodiscard]] std::vector<std::string> names(const std::string &source, std::int32_t type = dbOpenSnapshot)
    {
        std::unique_ptr<DaoRecordset> rows;
        std::vector<std::string> found;
        if (session.iOpenRecordset(rows, source, type, dbReadOnly, 0) != 0) return {session.sErrMsg()};
        for (; !rows->isEndOfFile(); rows->MoveNext()) found.push_back(shown(rows->Field("cName")));
        CHECK(session.iCloseRecordset(rows) == 0);
        return found;
    }
    /// The error number at the beginning of the last error message.
    [[nodiscard]] std::string number() const { return session.sErrMsg().substr(0, session.sErrMsg().find('\r')); }
    clsT_Dao session;
    std::int16_t status = -1;
};

struct DaoFile {
    DatabaseFile file{kTables};
    std::unique_ptr<DaoEngine> engine = plainEngine();
};

using TableNames = std::vector<std::string>;

/// Checks that the file opens as a database under another name.
void openRenamed(DaoFile &at, const std::string &name)
{
    std::filesystem::rename(pathOf(at.file.path()), pathOf(name));
    {
        OpenDao open(*at.engine, name);
        CHECK(open.status == 0);
        CHECK(open.names("STAFF") == TableNames{"山田", "鈴木"});
    }
    at.engine.reset(); // with its idle connection, which would lock the file on Windows
    CHECK(std::filesystem::remove(pathOf(name)));
}

} // namespace

TEST_CASE("rows are read by statement and by table name, streamed and at once")
{
    DaoFile at;
    OpenDao open(*at.engine, at.file.path());
    for (const std::int32_t type : {dbOpenSnapshot, dbOpenForwardOnly}) {
        CHECK(open.names("SELECT * FROM STAFF ORDER BY nIDNo DESC", type) == TableNames{"鈴木", "山田"});
        CHECK(open.names("STAFF", type) == TableNames{"山田", "鈴木"});
    }
    CHECK(open.names("STAFF", dbOpenTable) == TableNames{"山田", "鈴木"});
    CHECK(open.names("[STAFF]") == TableNames{"山田", "鈴木"});
}

TEST_CASE("a table name with a blank opens as a table")
{
    DaoFile at;
    OpenDao open(*at.engine, at.file.path());
    std::unique_ptr<DaoRecordset> rows;
    for (const char *name : {"my table", "[my table]"}) {
        REQUIRE(open.session.iOpenRecordset(rows, name, dbOpenTable, 0, 0) == 0);
        CHECK(rows->fieldCount() == 1);
        CHECK(rows->fieldName(0) == "a");
        CHECK(shown(rows->Field("A")) == "7");
        CHECK(open.session.iCloseRecordset(rows) == 0);
    }
}

TEST_CASE("a source that cannot be opened has DAO's error number")
{
    struct Source {
        const char *source;
        const char *number;
    };
    DaoFile at;
    OpenDao open(*at.engine, at.file.path());
    for (const Source &each :
         {Source{"NONE", "3078"}, Source{"SELECT * FROM NONE", "3078"}, Source{"SELECT nothing FROM STAFF", "3075"},
          Source{"DELETE FROM STAFF", "3075"}, Source{"SELECT 1; DELETE FROM STAFF", "3075"}, Source{"[a]b]", "3078"},
          Source{"", "3078"}}) {
        CAPTURE(each.source);
        std::unique_ptr<DaoRecordset> rows;
        CHECK(open.session.iOpenRecordset(rows, each.source, dbOpenSnapshot, 0, 0) == -1);
        CHECK(open.number() == each.number);
        CHECK(rows == nullptr);
    }
    CHECK(at.file.value("SELECT count(*) FROM STAFF") == "2");
}

TEST_CASE("a field that the table lacks and a row after the last one are errors")
{
    DaoFile at;
    OpenDao open(*at.engine, at.file.path());
    std::unique_ptr<DaoRecordset> rows;
    REQUIRE(open.session.iOpenRecordset(rows, "STAFF", dbOpenTable, 0, 0) == 0);
    CHECK(raisedBy([&] { (void)rows->Field("cNone"); }).number == 3265);
    rows->MoveNext();
    rows->MoveNext();
    CHECK(rows->isEndOfFile());
    CHECK(raisedBy([&] { (void)rows->Field("cName"); }).number == 3021);
    CHECK(raisedBy([&] { rows->MoveNext(); }).number == 3021);
}

TEST_CASE("a statement changes the database with and without options")
{
    DaoFile at;
    OpenDao open(*at.engine, at.file.path());
    CHECK(open.session.iExecSQL("UPDATE STAFF SET cName = '佐藤' WHERE nIDNo = 1") == 0);
    CHECK(open.session.iExecuteSql("DELETE FROM STAFF WHERE nIDNo = 2", dbFailOnError) == 0);
    CHECK(at.file.value("SELECT cName FROM STAFF") == "佐藤");
    CHECK(at.file.value("SELECT count(*) FROM STAFF") == "1");
}

TEST_CASE("a failed statement has DAO's error number and the provider's message")
{
    struct Faulty {
        const char *sql;
        const char *words;
    };
    DaoFile at;
    OpenDao open(*at.engine, at.file.path());
    for (const Faulty &each :
         {Faulty{"DELTE FROM STAFF", "3075\r\nonly one statement that reads or changes data can be run"},
          Faulty{"DELETE FROM NONE", "3078\r\nテーブルがありません。（no such table: NONE）"},
          Faulty{"SELECT * FROM STAFF", "3065\r\nSELECT は Execute で実行できません。"},
          Faulty{"INSERT INTO STAFF VALUES (1, 'x')",
                 "3022\r\nデータの制約に反するため、書き込めません。（UNIQUE constraint failed: STAFF.nIDNo）"}}) {
        CAPTURE(each.sql);
        CHECK(open.session.iExecSQL(each.sql) == -1);
        CHECK(open.session.sErrMsg() == each.words);
    }
}

TEST_CASE("each failure of the provider has DAO's error number and keeps its message")
{
    struct Row {
        std::int32_t provider;
        std::int32_t library;
    };
    for (const Row row :
         {Row{-2147217900, 3075}, Row{-2147217865, 3078}, Row{-2147217843, 3151}, Row{-2147217871, 3260},
          Row{-2147217873, 3022}, Row{-2147467259, 3146}, Row{3704, 3420}, Row{3265, 3265}, Row{3021, 3021}}) {
        CAPTURE(row.provider);
        const RuntimeError error = asDaoError(RuntimeError(row.provider, "言葉"));
        CHECK(error.number() == row.library);
        CHECK(error.description() == "言葉");
    }
}

TEST_CASE("a missing file, a folder and a file of another kind have different errors")
{
    DaoFile at;
    const std::string other = at.file.path() + ".txt";
    std::ofstream(other) << "no database at all, but long enough to look like one to somebody who is in a hurry";
    const std::string empty = at.file.path() + ".empty";
    std::ofstream(empty) << "";
    struct Missing {
        std::string path;
        const char *words;
    };
    for (const Missing &each : {Missing{at.file.path() + ".none", "3024\r\nデータベースファイルが見つかりません。"},
                                Missing{"/", "3024\r\nデータベースファイルが見つかりません。"},
                                Missing{other, "3343\r\nデータベースの形式を認識できません。"},
                                Missing{empty, "3343\r\nデータベースの形式を認識できません。"}}) {
        CAPTURE(each.path);
        const OpenDao open(*at.engine, each.path);
        CHECK(open.status == -1);
        CHECK(open.session.sErrMsg() == each.words);
    }
    std::remove(other.c_str());
    std::remove(empty.c_str());
}

TEST_CASE("a database that is damaged after its header cannot be opened")
{
    DaoFile at;
    std::ofstream(at.file.path(), std::ios::binary) << "SQLite format 3" << '\0' << std::string(2000, 'x');
    const OpenDao open(*at.engine, at.file.path());
    CHECK(open.status == -1);
    CHECK(open.number() == "3151");
}

TEST_CASE("a commit keeps the changes of a transaction, and a rollback undoes them")
{
    DaoFile at;
    OpenDao open(*at.engine, at.file.path());
    REQUIRE(open.session.iBeginTrans() == 0);
    CHECK(open.session.iExecSQL("DELETE FROM STAFF WHERE nIDNo = 1") == 0);
    CHECK(open.names("STAFF") == TableNames{"鈴木"});
    CHECK(at.file.value("SELECT count(*) FROM STAFF") == "2");
    CHECK(open.session.iRollbackTrans() == 0);
    CHECK(open.names("STAFF") == TableNames{"山田", "鈴木"});
    REQUIRE(open.session.iBeginTrans() == 0);
    CHECK(open.session.iExecSQL("DELETE FROM STAFF WHERE nIDNo = 1") == 0);
    CHECK(open.session.iCommitTrans() == 0);
    CHECK(at.file.value("SELECT count(*) FROM STAFF") == "1");
}

TEST_CASE("a transaction can only end while it runs, and transactions do not nest")
{
    DaoFile at;
    OpenDao open(*at.engine, at.file.path());
    CHECK(open.session.iCommitTrans() == -1);
    CHECK(open.number() == "3034");
    CHECK(open.session.iRollbackTrans() == -1);
    CHECK(open.number() == "3034");
    REQUIRE(open.session.iBeginTrans() == 0);
    CHECK(open.session.iBeginTrans() == -1);
    CHECK(open.number() == "3003");
    CHECK(open.session.iExecSQL("DELETE FROM STAFF") == 0);
    CHECK(open.session.iCommitTrans() == 0);
    CHECK(at.file.value("SELECT count(*) FROM STAFF") == "0");
}

TEST_CASE("a transaction covers all databases of its workspace, including those opened during it")
{
    const DatabaseFile second(kTables);
    DaoFile at;
    const auto workspace = at.engine->CreateWorkspace("ws", "", "", dbUseJet);
    const auto first = workspace->OpenDatabase(at.file.path(), DaoWorkspace::Sharing::shared);
    for (const bool commits : {false, true}) {
        workspace->BeginTrans();
        const auto late = workspace->OpenDatabase(second.path(), DaoWorkspace::Sharing::shared);
        first->Execute("DELETE FROM STAFF WHERE nIDNo = 1", {});
        late->Execute("DELETE FROM STAFF WHERE nIDNo = 1", {});
        commits ? workspace->CommitTrans() : workspace->Rollback();
        for (const DatabaseFile *file : std::initializer_list<const DatabaseFile *>{&at.file, &second})
            CHECK(file->value("SELECT count(*) FROM STAFF") == (commits ? "1" : "2"));
    }
}

TEST_CASE("the end of a transaction includes the changes of a closed database")
{
    for (const bool commits : {false, true}) {
        DaoFile at;
        OpenDao open(*at.engine, at.file.path());
        REQUIRE(open.session.iBeginTrans() == 0);
        CHECK(open.session.iExecSQL("DELETE FROM STAFF") == 0);
        CHECK(open.session.iDbClose() == 0);
        CHECK((commits ? open.session.iCommitTrans() : open.session.iRollbackTrans()) == 0);
        CHECK(at.file.value("SELECT count(*) FROM STAFF") == (commits ? "0" : "2"));
    }
}

TEST_CASE("a workspace that is closed or destroyed rolls back its transaction")
{
    for (const bool closes : {false, true}) {
        DaoFile at;
        {
            OpenDao open(*at.engine, at.file.path());
            REQUIRE(open.session.iBeginTrans() == 0);
            CHECK(open.session.iExecSQL("DELETE FROM STAFF") == 0);
            if (closes) CHECK(open.session.iWorkSpaceClose() == 0);
        }
        CHECK(at.file.value("SELECT count(*) FROM STAFF") == "2");
    }
}

TEST_CASE("closed objects fail with error 3420")
{
    DaoFile at;
    OpenDao open(*at.engine, at.file.path());
    std::unique_ptr<DaoRecordset> rows;
    REQUIRE(open.session.iOpenRecordset(rows, "STAFF", dbOpenTable, 0, 0) == 0);
    CHECK(open.session.iDbClose() == 0);
    CHECK(raisedBy([&] { (void)rows->isEndOfFile(); }).number == 3420);
    CHECK(open.session.iCloseRecordset(rows) == -1);
    CHECK(open.session.iDbClose() == -1);
    CHECK(open.session.sErrMsg() == "3420\r\nオブジェクトが無効であるか、閉じられています。");
    CHECK(open.session.iExecSQL("DELETE FROM STAFF") == -1);
    CHECK(open.number() == "3420");
    CHECK(open.session.iWorkSpaceClose() == 0);
    for (const auto operation : {&clsT_Dao::iDbOpen, &clsT_Dao::iBeginTrans, &clsT_Dao::iCommitTrans,
                                 &clsT_Dao::iRollbackTrans, &clsT_Dao::iWorkSpaceClose}) {
        CHECK((open.session.*operation)() == -1);
        CHECK(open.number() == "3420");
    }
}

TEST_CASE("closing a workspace closes its databases")
{
    DaoFile at;
    OpenDao open(*at.engine, at.file.path());
    CHECK(open.session.iWorkSpaceClose() == 0);
    CHECK(open.session.iExecSQL("DELETE FROM STAFF") == -1);
    CHECK(open.number() == "3420");
}

TEST_CASE("a closed session can be opened again")
{
    DaoFile at;
    OpenDao open(*at.engine, at.file.path());
    CHECK(open.session.iDbClose() == 0);
    CHECK(open.session.iDbOpen() == 0);
    CHECK(open.names("STAFF") == TableNames{"山田", "鈴木"});
}

TEST_CASE("a database that is opened exclusively is in use for all other sessions until it is closed")
{
    DaoFile at;
    OpenDao alone(*at.engine, at.file.path(), kExclusive);
    REQUIRE(alone.status == 0);
    CHECK(alone.names("STAFF") == TableNames{"山田", "鈴木"});
    for (const std::int16_t other : {kShared, kExclusive}) {
        const OpenDao refused(*at.engine, at.file.path(), other);
        CHECK(refused.status == -1);
        CHECK(refused.number() == "3045");
    }
    CHECK(alone.session.iDbClose() == 0);
    CHECK(OpenDao(*at.engine, at.file.path()).status == 0);
}

TEST_CASE("a database that another session writes to cannot be opened exclusively")
{
    DaoFile at;
    OpenDao writer(*at.engine, at.file.path());
    REQUIRE(writer.session.iBeginTrans() == 0);
    CHECK(writer.session.iExecSQL("DELETE FROM STAFF") == 0);
    const OpenDao refused(*at.engine, at.file.path(), kExclusive);
    CHECK(refused.status == -1);
    CHECK(refused.number() == "3045");
}

TEST_CASE("a path may contain quotes and semicolons")
{
    DaoFile at;
#ifdef _WIN32 // file names cannot contain a double quote there
    const std::string odd = at.file.path() + ";Mode='x' '.db";
#else
    const std::string odd = at.file.path() + ";Mode=\"x\" '.db";
#endif
    openRenamed(at, odd);
}

TEST_CASE("a path may contain Japanese names")
{
    DaoFile at;
    openRenamed(at, at.file.path() + "診療所.db");
}
