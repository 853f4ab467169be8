// Claims that hold for every driver: each runs on SQLite's and on PostgreSQL's.

#include "adapters/odbc/driver_stage.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::odbc;
using namespace inin::test;

namespace {

std::vector<std::string> drivers()
{
    return {sqliteFile(), postgres()};
}

Session numbersSession(const std::string &driver, int count)
{
    Session session(driver);
    session.table("numbers", "n INTEGER, t VARCHAR(40)");
    session.connection->BeginTrans();
    for (int n = 1; n <= count; ++n)
        session.run("INSERT INTO numbers VALUES (" + std::to_string(n) + ", 'row " + std::to_string(n) + "')");
    session.connection->CommitTrans();
    return session;
}

} // namespace

TEST_CASE("rows are read forward, block after block, each once")
{
    for (const std::string &driver : drivers()) {
        const Session session = numbersSession(driver, 1500);
        const auto rows = session.open("SELECT n, t FROM numbers ORDER BY n");
        std::int32_t expected = 0;
        for (; !rows->isEndOfFile(); rows->MoveNext()) {
            ++expected;
            REQUIRE(rows->Field("n") == Variant(expected));
            REQUIRE(rows->Field("T") == Variant("row " + std::to_string(expected)));
        }
        CHECK(expected == 1500);
        CHECK(errorOf([&] { rows->MoveNext(); }).number() == 3021);
        CHECK(errorOf([&] { (void)rows->Value(0); }).number() == 3021);
    }
}

TEST_CASE("a SELECT without rows is at its end at once and has its columns")
{
    for (const std::string &driver : drivers()) {
        const Session session = numbersSession(driver, 0);
        const auto rows = session.open("SELECT n, t FROM numbers");
        CHECK(rows->isEndOfFile());
        CHECK(rows->fieldCount() == 2);
        CHECK(rows->fieldName(1) == "t");
        CHECK(rows->RecordCount() == -1);
    }
}

TEST_CASE("Japanese text is unchanged in both directions, also outside code page 932")
{
    // SQLite's driver has no wide functions, and the driver manager cuts every character to a byte for it.
    for (const std::string &driver : {postgres()}) {
        const Session session(driver);
        session.table("texts", "id INTEGER, t VARCHAR(60)");
        session.run("INSERT INTO texts VALUES (1, '委任状 髙橋 﨑 ｶﾅ'), (2, '𠮷野家 😀 é ❶'), (3, '')");
        CHECK(session.value("SELECT t FROM texts WHERE id = 1") == Variant("委任状 髙橋 﨑 ｶﾅ"));
        CHECK(session.value("SELECT t FROM texts WHERE id = 2") == Variant("𠮷野家 😀 é ❶"));
        CHECK(session.value("SELECT id FROM texts WHERE t = '𠮷野家 😀 é ❶'") == Variant(std::int32_t{2}));
        CHECK(session.value("SELECT t FROM texts WHERE id = 3") == Variant(""));
    }
}

TEST_CASE("a long text is fetched in pieces and is complete, with surrogate pairs across the pieces")
{
    std::string plain, pairs = "a";
    for (int n = 0; plain.size() < 150000; ++n) plain += std::to_string(n) + " ";
    while (pairs.size() < 150000) pairs += "𠮷委";
    struct Row {
        std::string driver;
        const std::string &text;
    };
    for (const auto &[driver, text] : {Row{sqliteFile(), plain}, Row{postgres(), plain}, Row{postgres(), pairs}}) {
        const Session session(driver);
        session.table("longs", "id INTEGER, t TEXT, n INTEGER");
        session.run("INSERT INTO longs VALUES (1, '" + text + "', 7), (2, NULL, 8), (3, '', 9), (4, 'short', NULL)");
        const auto rows = session.open("SELECT id, t, n FROM longs ORDER BY id");
        CHECK((rows->Value(1) == Variant(text)));
        CHECK((rows->Value(1) == Variant(text))); // a second read
        CHECK(rows->Value(2) == Variant(std::int32_t{7}));
        rows->MoveNext();
        CHECK(rows->Value(1).isNull());
        CHECK(rows->Value(2) == Variant(std::int32_t{8}));
        rows->MoveNext();
        CHECK(rows->Value(1) == Variant(""));
        rows->MoveNext();
        CHECK(rows->Value(1) == Variant("short"));
        CHECK(rows->Value(2).isNull());
        CHECK(rows->Value(0) == Variant(std::int32_t{4}));
        rows->MoveNext();
        CHECK(rows->isEndOfFile());
    }
}

TEST_CASE("of two columns with one name the first is found, and an unknown name is error 3265")
{
    for (const std::string &driver : drivers()) {
        const Session session(driver);
        const auto rows = session.open("SELECT 1 AS a, 2 AS b, 3 AS a");
        CHECK(rows->fieldCount() == 3);
        CHECK(rows->fieldIndex("A") == 0);
        CHECK(errorOf([&] { (void)rows->Field("c"); }).number() == 3265);
        CHECK(errorOf([&] { (void)rows->Value(3); }).number() == 3265);
        CHECK(errorOf([&] { (void)rows->fieldName(3); }).number() == 3265);
        CHECK(errorOf([&] { (void)rows->fieldType(3); }).number() == 3265);
    }
}

TEST_CASE("a second statement runs while a record set is open, which then continues at its row")
{
    for (const std::string &driver : drivers()) {
        const Session session = numbersSession(driver, 900);
        const auto outer = session.open("SELECT n FROM numbers ORDER BY n");
        outer->MoveNext();
        const auto inner = session.open("SELECT n FROM numbers WHERE n > 898 ORDER BY n");
        CHECK(inner->Value(0) == Variant(std::int32_t{899}));
        CHECK(outer->Value(0) == Variant(std::int32_t{2}));
        CHECK(session.run("DELETE FROM numbers WHERE n > 10") == 890);
        inner->MoveNext();
        CHECK(inner->Value(0) == Variant(std::int32_t{900}));
        std::int32_t last = 0;
        for (; !outer->isEndOfFile(); outer->MoveNext()) last = *outer->Value(0).getIf<std::int32_t>();
        CHECK(last == 900);
    }
}

TEST_CASE("a record set continues after a commit and after a rollback")
{
    for (const std::string &driver : drivers()) {
        const Session session = numbersSession(driver, 5);
        session.connection->BeginTrans();
        const auto rows = session.open("SELECT n FROM numbers ORDER BY n");
        session.connection->CommitTrans();
        CHECK(rows->Value(0) == Variant(std::int32_t{1}));
        rows->MoveNext();
        session.connection->BeginTrans();
        session.connection->RollbackTrans();
        CHECK(rows->Value(0) == Variant(std::int32_t{2}));
    }
}

TEST_CASE("changed rows are counted; a statement that changes none returns -1")
{
    for (const std::string &driver : drivers()) {
        const Session session = numbersSession(driver, 4);
        CHECK(session.run("UPDATE numbers SET t = 'x' WHERE n > 1") == 3);
        CHECK(session.run("UPDATE numbers SET t = 'x' WHERE n > 9") == 0);
        CHECK(session.run("DELETE FROM numbers WHERE n > 9") == 0);
        CHECK(session.run("INSERT INTO numbers VALUES (5, 'five'), (6, 'six')") == 2);
        CHECK(session.run("   ") == -1);
        CHECK(session.run(";\r\n") == -1);
    }
}

TEST_CASE("a commit keeps a transaction and a rollback undoes it")
{
    for (const std::string &driver : drivers()) {
        const Session session = numbersSession(driver, 1);
        session.connection->BeginTrans();
        session.run("INSERT INTO numbers VALUES (2, 'kept')");
        session.connection->CommitTrans();
        session.connection->BeginTrans();
        session.run("INSERT INTO numbers VALUES (3, 'gone')");
        session.connection->RollbackTrans();
        session.run("INSERT INTO numbers VALUES (4, 'by itself')");
        CHECK(session.column("SELECT n FROM numbers ORDER BY n") ==
              std::vector<Variant>{std::int32_t{1}, std::int32_t{2}, std::int32_t{4}});
    }
}

TEST_CASE("a second BeginTrans is refused, and so is an end without a transaction")
{
    for (const std::string &driver : drivers()) {
        const Session session(driver);
        CHECK(errorOf([&] { session.connection->CommitTrans(); }).number() == -2147168242);
        CHECK(errorOf([&] { session.connection->RollbackTrans(); }).number() == -2147168242);
        session.connection->BeginTrans();
        CHECK(errorOf([&] { session.connection->BeginTrans(); }).number() == -2147168237);
        CHECK(session.connection->Errors().size() == 1);
        session.connection->RollbackTrans();
    }
}

TEST_CASE("closing a session undoes its open transaction")
{
    for (const std::string &driver : drivers()) {
        const Session session = numbersSession(driver, 1);
        session.connection->BeginTrans();
        session.run("INSERT INTO numbers VALUES (2, 'gone')");
        session.connection->Close();
        session.connection->Open(driver, "", "", -1);
        CHECK(session.column("SELECT n FROM numbers") == std::vector<Variant>{std::int32_t{1}});
        CHECK(errorOf([&] { session.connection->CommitTrans(); }).number() == -2147168242);
    }
}

TEST_CASE("a faulty statement adds an entry to the error list and leaves the session usable")
{
    struct Row {
        std::string driver;
        std::int32_t number; ///< SQLite's driver reports only that there was an error
    };
    for (const Row &row : {Row{sqliteFile(), -2147467259}, Row{postgres(), -2147217900}}) {
        const Session session(row.driver);
        const RuntimeError error = errorOf([&] { (void)session.open("SELECT FROM WHERE"); });
        CHECK(error.number() == row.number);
        REQUIRE(session.connection->Errors().size() == 1);
        CHECK(session.connection->Errors()[0].Description == error.description());
        CHECK(session.connection->Errors()[0].Number == row.number);
        CHECK(session.connection->State() == adStateOpen);
        CHECK(session.value("SELECT 1") == Variant(std::int32_t{1}));
    }
}

TEST_CASE("a missing table has its own error number")
{
    for (const std::string &driver : drivers()) {
        const Session session(driver);
        CHECK(errorOf([&] { (void)session.open("SELECT a FROM no_such_table"); }).number() == -2147217865);
        CHECK(errorOf([&] { session.run("DELETE FROM no_such_table"); }).number() == -2147217865);
    }
}

TEST_CASE("a read-only record set refuses a write without calling the server")
{
    for (const std::string &driver : drivers()) {
        const Session session = numbersSession(driver, 1);
        for (const char *sql :
             {"DELETE FROM numbers", "SELECT 1; DELETE FROM numbers", "SELECT 1 DELETE FROM numbers"}) {
            CHECK(errorOf([&] { (void)session.open(sql); }).number() == -2147217900);
            REQUIRE(session.connection->Errors().size() == 1);
            CHECK(session.connection->Errors()[0].SQLState == "42000");
        }
        CHECK(session.column("SELECT n FROM numbers").size() == 1);
    }
}

TEST_CASE("a client-side record set knows its row count and can move back")
{
    for (const std::string &driver : drivers()) {
        const Session session = numbersSession(driver, 600);
        const auto rows = session.open("SELECT n FROM numbers ORDER BY n", adUseClient);
        CHECK(rows->RecordCount() == 600);
        rows->MoveLast();
        CHECK(rows->Value(0) == Variant(std::int32_t{600}));
        rows->MoveNext();
        CHECK(rows->isEndOfFile());
        rows->MoveFirst();
        CHECK(rows->Value(0) == Variant(std::int32_t{1}));
    }
}

TEST_CASE("MoveFirst on a server-side record set runs the statement again; MoveLast is not supported")
{
    for (const std::string &driver : drivers()) {
        const Session session = numbersSession(driver, 3);
        const auto rows = session.open("SELECT n FROM numbers ORDER BY n");
        rows->MoveNext();
        rows->MoveFirst();
        CHECK(rows->Value(0) == Variant(std::int32_t{1}));
        CHECK(errorOf([&] { rows->MoveLast(); }).number() == 3219);
    }
}

TEST_CASE("operations on closed objects are error 3704, opening open ones is error 3705")
{
    for (const std::string &driver : drivers()) {
        const Session session(driver);
        const auto rows = session.open("SELECT 1 AS a");
        CHECK(errorOf([&] { session.connection->Open(driver, "", "", -1); }).number() == 3705);
        CHECK(errorOf([&] { rows->setCursorLocation(adUseClient); }).number() == 3705);
        CHECK(errorOf([&] { rows->Open("SELECT 1", *session.connection, 0, 1, 1); }).number() == 3705);
        rows->Close();
        CHECK(rows->State() == adStateClosed);
        CHECK(errorOf([&] { rows->Close(); }).number() == 3704);
        CHECK(errorOf([&] { (void)rows->isEndOfFile(); }).number() == 3704);
        session.connection->Close();
        CHECK(session.connection->State() == adStateClosed);
        CHECK(errorOf([&] { session.connection->Close(); }).number() == 3704);
        CHECK(errorOf([&] { session.run("SELECT 1"); }).number() == 3704);
        CHECK(errorOf([&] { session.connection->BeginTrans(); }).number() == 3704);
        CHECK(session.connection->DefaultDatabase() == "");
    }
}

TEST_CASE("a record set is closed when its session is closed")
{
    for (const std::string &driver : drivers()) {
        const Session session = numbersSession(driver, 3);
        const auto rows = session.open("SELECT n FROM numbers");
        session.connection->Close();
        CHECK(rows->State() == adStateClosed);
        CHECK(errorOf([&] { rows->MoveNext(); }).number() == 3704);
        CHECK(errorOf([&] { (void)rows->fieldCount(); }).number() == 3704);
    }
}

TEST_CASE("consecutive sessions share one log-in, simultaneous ones do not")
{
    for (const std::string &driver : drivers()) {
        const std::shared_ptr<OdbcDatabase> library = makeOdbcDatabase();
        for (int unit = 0; unit < 5; ++unit) {
            const Session session(driver, library);
            CHECK(session.value("SELECT 1") == Variant(std::int32_t{1}));
        }
        CHECK(library->logIns() == 1);
        const Session first(driver, library);
        const Session second(driver, library);
        CHECK(library->logIns() == 2);
    }
}

TEST_CASE("a session that closes with an open record set returns a clean connection")
{
    for (const std::string &driver : drivers()) {
        const std::shared_ptr<OdbcDatabase> library = makeOdbcDatabase();
        std::unique_ptr<Recordset> left;
        {
            const Session session(driver, library);
            session.table("numbers", "n INTEGER, t VARCHAR(40)");
            session.run("INSERT INTO numbers VALUES (1, 'a'), (2, 'b')");
            left = session.open("SELECT n FROM numbers");
        }
        const Session next(driver, library);
        CHECK(next.column("SELECT n FROM numbers ORDER BY n").size() == 2);
        CHECK(left->State() == adStateClosed);
        CHECK(library->logIns() == 1);
    }
}

TEST_CASE("the default database is the one in the connection string")
{
    const Session session(postgres());
    CHECK(session.connection->DefaultDatabase() == "postgres");
}

TEST_CASE("a negative command timeout is refused; a valid one is kept when the session is reopened")
{
    for (const std::string &driver : drivers()) {
        const Session session(driver);
        CHECK(session.connection->CommandTimeout() == 30);
        CHECK(errorOf([&] { session.connection->setCommandTimeout(-1); }).number() == 3001);
        session.connection->setCommandTimeout(180);
        session.connection->Close();
        session.connection->Open(driver, "", "", -1);
        CHECK(session.connection->CommandTimeout() == 180);
    }
}
