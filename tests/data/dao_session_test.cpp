#include "data/dao_session.h"

#include "support/fake_dao.h"

#include <doctest/doctest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

using namespace inin;

namespace {

using Log = std::vector<std::string>;

struct DaoFixture {
    FakeDao dao;
    std::optional<clsT_Dao> session{dao};
    std::unique_ptr<DaoRecordset> rows;

    DaoFixture() = default;
    DaoFixture(const DaoFixture &) = delete;
    DaoFixture &operator=(const DaoFixture &) = delete;
    ~DaoFixture()
    {
        dao.failing.clear();
        session.reset(); // before the library that it uses
    }
    void open()
    {
        REQUIRE(session->iInit("C:\\DATA\\a.mdb", 0, "ws", "admin", "pw", 2) == 0);
        REQUIRE(session->iDbOpen() == 0);
        REQUIRE(session->iOpenRecordset(rows, "STAFF", 1, 0, 0) == 0);
        dao.log.clear();
    }
};

struct Operation {
    const char *call;
    std::int16_t (*run)(DaoFixture &);
};
constexpr Operation kOperations[] = {
    {"CreateWorkspace", [](DaoFixture &f) { return f.session->iInit("b.mdb", 0, "", "", "", 2); }},
    {"OpenDatabase", [](DaoFixture &f) { return f.session->iDbOpen(); }},
    {"OpenRecordset", [](DaoFixture &f) { return f.session->iOpenRecordset(f.rows, "T", 1, 0, 0); }},
    {"Execute", [](DaoFixture &f) { return f.session->iExecuteSql("DELETE FROM T", 128); }},
    {"Execute", [](DaoFixture &f) { return f.session->iExecSQL("DELETE FROM T"); }},
    {"BeginTrans", [](DaoFixture &f) { return f.session->iBeginTrans(); }},
    {"CommitTrans", [](DaoFixture &f) { return f.session->iCommitTrans(); }},
    {"Rollback", [](DaoFixture &f) { return f.session->iRollbackTrans(); }},
    {"Recordset.Close", [](DaoFixture &f) { return f.session->iCloseRecordset(f.rows); }},
    {"Database.Close", [](DaoFixture &f) { return f.session->iDbClose(); }},
    {"Workspace.Close", [](DaoFixture &f) { return f.session->iWorkSpaceClose(); }},
};

} // namespace

TEST_CASE("a fresh session has no error text, and the greeting does nothing")
{
    DaoFixture fixture;
    CHECK(fixture.session->ihehe() == 0);
    CHECK(fixture.session->sErrMsg().empty());
    CHECK(fixture.dao.log.empty());
}

TEST_CASE("each operation makes one call to the library, with the settings of the start")
{
    DaoFixture fixture;
    clsT_Dao &session = *fixture.session;
    CHECK(session.iInit("C:\\DATA\\a.mdb", 0, "ws", "admin", "pw", 2) == 0);
    CHECK(session.iDbOpen() == 0);
    CHECK(session.iBeginTrans() == 0);
    CHECK(session.iOpenRecordset(fixture.rows, "SELECT * FROM STAFF", 4, 8, 2) == 0);
    CHECK(fixture.rows != nullptr);
    CHECK(session.iCloseRecordset(fixture.rows) == 0);
    CHECK(fixture.rows == nullptr);
    CHECK(session.iExecuteSql("DELETE FROM STAFF", 128) == 0);
    CHECK(session.iExecSQL("DELETE FROM CORP") == 0);
    CHECK(session.iCommitTrans() == 0);
    CHECK(session.iRollbackTrans() == 0);
    CHECK(session.iDbClose() == 0);
    CHECK(session.iWorkSpaceClose() == 0);
    CHECK(fixture.dao.log == Log{"CreateWorkspace ws|admin|pw|2", "OpenDatabase C:\\DATA\\a.mdb|shared", "BeginTrans",
                                 "OpenRecordset SELECT * FROM STAFF|4|8|2", "Recordset.Close",
                                 "Execute DELETE FROM STAFF|128", "Execute DELETE FROM CORP", "CommitTrans", "Rollback",
                                 "Database.Close", "Workspace.Close"});
    CHECK(session.sErrMsg().empty());
}

TEST_CASE("any flag except 0 opens the database exclusively")
{
    struct Mark {
        std::int16_t i排他;
        const char *opened;
    };
    for (const Mark &mark : {Mark{0, "OpenDatabase a.mdb|shared"}, Mark{1, "OpenDatabase a.mdb|exclusive"},
                             Mark{-1, "OpenDatabase a.mdb|exclusive"}}) {
        CAPTURE(mark.i排他);
        DaoFixture fixture;
        CHECK(fixture.session->iInit("a.mdb", mark.i排他, "", "", "", 2) == 0);
        CHECK(fixture.session->iDbOpen() == 0);
        CHECK(fixture.dao.log.back() == mark.opened);
    }
}

TEST_CASE("a failure of the library is -1 with its number, CR LF and text")
{
    for (const Operation &operation : kOperations) {
        CAPTURE(operation.call);
        DaoFixture fixture;
        fixture.open();
        fixture.dao.failing = operation.call;
        CHECK(operation.run(fixture) == -1);
        CHECK(fixture.session->sErrMsg() == "3420\r\n閉じられています。");
        CHECK(fixture.dao.log.size() == 1);
    }
}

TEST_CASE("an operation before its object is created is error 91")
{
    for (const Operation &operation : kOperations) {
        if (std::string(operation.call) == "CreateWorkspace") continue;
        CAPTURE(operation.call);
        DaoFixture fixture;
        CHECK(operation.run(fixture) == -1);
        CHECK(fixture.session->sErrMsg() == "91\r\nオブジェクト変数または With ブロック変数が設定されていません。");
        CHECK(fixture.dao.log.empty());
    }
}

TEST_CASE("a record set that cannot be closed stays in its reference")
{
    DaoFixture fixture;
    fixture.open();
    fixture.dao.failing = "Recordset.Close";
    CHECK(fixture.session->iCloseRecordset(fixture.rows) == -1);
    CHECK(fixture.rows != nullptr);
}

TEST_CASE("a record set that cannot be opened leaves the reference unchanged")
{
    DaoFixture fixture;
    fixture.open();
    const DaoRecordset *before = fixture.rows.get();
    fixture.dao.failing = "OpenRecordset";
    CHECK(fixture.session->iOpenRecordset(fixture.rows, "T", 1, 0, 0) == -1);
    CHECK(fixture.rows.get() == before);
}

TEST_CASE("a later success keeps the text of the last failure")
{
    DaoFixture fixture;
    CHECK(fixture.session->iDbOpen() == -1);
    CHECK(fixture.session->iInit("a.mdb", 0, "", "", "", 2) == 0);
    CHECK(fixture.session->sErrMsg() == "91\r\nオブジェクト変数または With ブロック変数が設定されていません。");
}

TEST_CASE("destroying a session closes database and workspace, whether or not they fail")
{
    for (const char *failing : {"", "Database.Close", "Workspace.Close"}) {
        CAPTURE(failing);
        DaoFixture fixture;
        fixture.open();
        fixture.dao.failing = failing;
        fixture.session.reset();
        CHECK(fixture.dao.log == Log{"Database.Close", "Workspace.Close"});
    }
}

TEST_CASE("destroying a session that opened nothing calls nothing")
{
    DaoFixture fixture;
    fixture.session.reset();
    CHECK(fixture.dao.log.empty());
}
