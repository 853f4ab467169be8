#include "adapters/sqlite/database_file.h"

#include <doctest/doctest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

using namespace inin;
using namespace inin::sqlite;

namespace {

constexpr std::int32_t kClosed = 3704, kOpen = 3705, kNoField = 3265, kNoRecord = 3021, kNotHere = 3219;

struct ThreeRows {
    DatabaseFile file{"CREATE TABLE T (nID INTEGER, cName TEXT); INSERT INTO T VALUES (1, 'a'), (2, 'b'), (3, 'c')"};
    Session session{file};
    std::unique_ptr<Recordset> onClient(const std::string &sql)
    {
        auto rows = session.database().newRecordset();
        rows->setCursorLocation(adUseClient);
        rows->Open(sql, session.connection(), adOpenForwardOnly, adLockReadOnly, adCmdText);
        return rows;
    }
};

#ifndef _WIN32
/// The number of files without a name that this process has open, such as SQLite's temporary files.
std::size_t namelessFiles()
{
    std::size_t count = 0;
    std::error_code gone; // the descriptor of the listing itself
    for (const auto &entry : std::filesystem::directory_iterator("/proc/self/fd"))
        if (std::filesystem::read_symlink(entry.path(), gone).string().ends_with(" (deleted)")) ++count;
    return count;
}
#endif

} // namespace

#ifndef _WIN32
// On Windows, listing the open files of a process requires the rights of a driver.
TEST_CASE("sorting twenty megabytes of patients' texts writes none of them to a temporary file")
{
    const DatabaseFile file("CREATE TABLE T (cName TEXT); "
                            "WITH RECURSIVE N (n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM N WHERE n < 20000) "
                            "INSERT INTO T SELECT hex(randomblob(500)) FROM N");
    Session session{file};
    const std::size_t before = namelessFiles();
    const auto rows = session.open("SELECT cName FROM T ORDER BY cName");
    REQUIRE_FALSE(rows->isEndOfFile());
    CHECK(namelessFiles() == before);
}
#endif

TEST_CASE_FIXTURE(ThreeRows, "each operation of a closed record set fails with error 3704")
{
    const auto rows = session.open("SELECT nID FROM T");
    rows->Close();
    CHECK(rows->State() == adStateClosed);
    const std::function<void()> operations[] = {
        [&] { rows->Close(); },
        [&] { (void)rows->isEndOfFile(); },
        [&] { rows->MoveNext(); },
        [&] { rows->MoveFirst(); },
        [&] { rows->MoveLast(); },
        [&] { (void)rows->RecordCount(); },
        [&] { (void)rows->fieldCount(); },
        [&] { (void)rows->fieldName(0); },
        [&] { (void)rows->fieldType(0); },
        [&] { (void)rows->fieldIndex("nID"); },
        [&] { (void)rows->Value(0); },
        [&] { (void)rows->Field("nID"); },
    };
    for (const auto &operation : operations) CHECK(raisedBy(operation).number == kClosed);
}

TEST_CASE_FIXTURE(ThreeRows, "an open record set cannot be opened again, and a closed one can")
{
    const auto rows = session.open("SELECT nID FROM T");
    CHECK(rows->State() == adStateOpen);
    CHECK(raisedBy([&] { rows->Open("SELECT 1", session.connection(), 0, 1, 1); }).number == kOpen);
    CHECK(raisedBy([&] { rows->setCursorLocation(adUseClient); }).number == kOpen);
    CHECK(shown(rows->Value(0)) == "1"); // unchanged
    rows->Close();
    rows->Open("SELECT cName FROM T WHERE nID = 2", session.connection(), 0, 1, 1);
    CHECK(shown(rows->Value(0)) == "b");
}

TEST_CASE_FIXTURE(ThreeRows, "a record set cannot be opened on a closed session")
{
    session.connection().Close();
    const auto rows = session.database().newRecordset();
    CHECK(raisedBy([&] { rows->Open("SELECT 1", session.connection(), 0, 1, 1); }).number == kClosed);
    CHECK(rows->State() == adStateClosed);
}

TEST_CASE_FIXTURE(ThreeRows, "closing a session closes its record sets")
{
    const auto rows = session.open("SELECT nID FROM T");
    session.connection().Close();
    CHECK(rows->State() == adStateClosed);
    CHECK(raisedBy([&] { rows->MoveNext(); }).number == kClosed);
    CHECK(raisedBy([&] { (void)rows->Value(0); }).number == kClosed);
}

TEST_CASE_FIXTURE(ThreeRows, "an unknown field is error 3265, by name and by number")
{
    const auto rows = session.open("SELECT nID FROM T");
    CHECK(raisedBy([&] { (void)rows->Field("cName"); }).number == kNoField);
    CHECK(raisedBy([&] { (void)rows->Field(""); }).number == kNoField);
    CHECK(raisedBy([&] { (void)rows->Value(1); }).number == kNoField);
    CHECK(raisedBy([&] { (void)rows->fieldName(1); }).number == kNoField);
    CHECK(raisedBy([&] { (void)rows->fieldType(1); }).number == kNoField);
    CHECK(raisedBy([&] { (void)rows->Field("cName"); }).description ==
          "要求された名前、または序数に対応する項目がコレクションで見つかりません。");
}

TEST_CASE_FIXTURE(ThreeRows, "reading and moving after the last row are errors")
{
    for (const bool client : {false, true}) {
        CAPTURE(client);
        const auto rows =
            client ? onClient("SELECT nID FROM T WHERE nID = 3") : session.open("SELECT nID FROM T WHERE nID = 3");
        CHECK_FALSE(rows->isEndOfFile());
        rows->MoveNext();
        CHECK(rows->isEndOfFile());
        CHECK(raisedBy([&] { rows->MoveNext(); }).number == kNoRecord);
        CHECK(raisedBy([&] { (void)rows->Value(0); }).number == kNoRecord);
        CHECK(rows->fieldCount() == 1);
    }
}

TEST_CASE_FIXTURE(ThreeRows, "there is no current row after a failed step")
{
    const std::string sql = "SELECT SUBSTRING(cName, 1, 2 - nID) AS c FROM T ORDER BY nID";
    const auto rows = session.open("SELECT nID, SUBSTRING(cName, 1, 2 - nID) AS c FROM T");
    CHECK(shown(rows->Field("c")) == "a");
    rows->MoveNext();
    CHECK(shown(rows->Field("c")) == "");
    CHECK(raisedBy([&] { rows->MoveNext(); }).number == ado_error::faultyStatement);
    CHECK(rows->State() == adStateOpen);
    CHECK(rows->isEndOfFile());
    CHECK(raisedBy([&] { (void)rows->Value(0); }).number == kNoRecord);
    CHECK(raisedBy([&] { rows->MoveNext(); }).number == kNoRecord);
    CHECK(raisedBy([&] { (void)onClient(sql); }).number == ado_error::faultyStatement);
}

TEST_CASE_FIXTURE(ThreeRows, "an empty result is at its end and has its fields")
{
    for (const bool client : {false, true}) {
        CAPTURE(client);
        const auto rows =
            client ? onClient("SELECT * FROM T WHERE nID = 9") : session.open("SELECT * FROM T WHERE nID = 9");
        CHECK(rows->isEndOfFile());
        CHECK(rows->fieldCount() == 2);
        CHECK(rows->fieldName(1) == "cName");
        CHECK(rows->RecordCount() == (client ? 0 : -1));
        CHECK(raisedBy([&] { (void)rows->Field("nID"); }).number == kNoRecord);
    }
}

TEST_CASE_FIXTURE(ThreeRows, "field names ignore case, and the first of two equal names is found")
{
    const auto rows = session.open("SELECT nID, cName AS NID, 7 AS 氏名 FROM T");
    CHECK(shown(rows->Field("nid")) == "1");
    CHECK(rows->fieldIndex("NID") == 0);
    CHECK(shown(rows->Field("氏名")) == "7");
}

TEST_CASE_FIXTURE(ThreeRows, "a server-side cursor moves forward, has no row count and can restart")
{
    const auto rows = session.open("SELECT nID FROM T ORDER BY nID");
    CHECK(rows->RecordCount() == -1);
    CHECK(raisedBy([&] { rows->MoveLast(); }).number == kNotHere);
    rows->MoveNext();
    CHECK(shown(rows->Value(0)) == "2");
    rows->MoveFirst();
    CHECK(shown(rows->Value(0)) == "1");
}

TEST_CASE_FIXTURE(ThreeRows, "a client-side cursor counts its rows and moves to the last and the first row")
{
    const auto rows = onClient("SELECT nID FROM T ORDER BY nID");
    CHECK(rows->RecordCount() == 3);
    rows->MoveLast();
    CHECK(shown(rows->Value(0)) == "3");
    rows->MoveNext();
    CHECK(rows->isEndOfFile());
    rows->MoveFirst();
    CHECK(shown(rows->Value(0)) == "1");
}

TEST_CASE_FIXTURE(ThreeRows,
                  "a client-side cursor keeps its rows, and a server-side cursor reads later changes when it restarts")
{
    const auto client = onClient("SELECT nID FROM T ORDER BY nID");
    const auto server = session.open("SELECT nID FROM T ORDER BY nID DESC");
    session.execute("INSERT INTO T VALUES (9, 'z')");
    client->MoveLast();
    CHECK(shown(client->Value(0)) == "3");
    server->MoveFirst();
    CHECK(shown(server->Value(0)) == "9");
}

TEST_CASE_FIXTURE(ThreeRows, "two record sets of the same statement can be read alternately")
{
    const std::string sql = "SELECT nID FROM T ORDER BY nID";
    const auto one = session.open(sql);
    one->MoveNext();
    const auto other = session.open(sql);
    CHECK(shown(one->Value(0)) == "2");
    CHECK(shown(other->Value(0)) == "1");
    one->MoveNext();
    CHECK(shown(other->Value(0)) == "1");
}

TEST_CASE_FIXTURE(ThreeRows, "a statement that runs again with another number returns its own rows")
{
    for (const char *number : {"1", "2", "3"})
        CHECK(session.value(std::string("SELECT nID FROM T WHERE nID = ") + number) == number);
    CHECK(session.value("SELECT nID FROM T WHERE nID = 4") == "-");
}

TEST_CASE_FIXTURE(ThreeRows, "a statement reads its own number when an earlier record set of it outlived its session")
{
    for (const char *number : {"1", "2"}) {
        const auto connection = session.database().newConnection();
        connection->Open(file.connectionString(), "", "", -1);
        const auto rows = session.database().newRecordset();
        rows->Open(std::string("SELECT nID FROM T WHERE nID = ") + number, *connection, 0, 1, 1);
        CHECK(shown(rows->Value(0)) == number);
        rows->MoveNext();
        CHECK(rows->isEndOfFile());
        connection->Close();
    }
}

TEST_CASE_FIXTURE(ThreeRows, "a statement returns the new columns after its table has changed")
{
    CHECK(session.open("SELECT * FROM T")->fieldCount() == 2);
    file.run("ALTER TABLE T ADD COLUMN tDay DATETIME; UPDATE T SET tDay = '2024-05-01'");
    const auto rows = session.open("SELECT * FROM T");
    CHECK(rows->fieldCount() == 3);
    CHECK(shown(rows->Field("tDay")) == "<2024-05-01 00:00:00>");
    CHECK(session.value("SELECT nID FROM T WHERE tDay = '2024/5/1' ORDER BY nID") == "1");
}
