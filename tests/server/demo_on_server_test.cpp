// The demo's rows on a server, using the PostgreSQL that with_postgres starts.

#include "adapters/odbc/driver_stage.h"
#include "adapters/sqlite/sqlite_database.h"
#include "demo_site/database_maker.h"
#include "demo_site/embedded.h"
#include "demo_site/server_maker.h"
#include "due_letters/due_letters_reader.h"
#include "due_letters/due_letters_text.h"
#include "runtime/conversion.h"
#include "support/replace_all.h"

#include <doctest/doctest.h>
#include <fmt/format.h>

#include <algorithm>
#include <filesystem>

using namespace inin;
using namespace inin::sqlite;
using namespace inin::odbc;
using namespace inin::test;

namespace {

const std::string &schema()
{
    static const std::string text =
        replaceAll(replaceAll(std::string(site::schemaText()), " DATETIME", " TIMESTAMP"), " BLOB", " BYTEA");
    return text;
}

site::SiteOrder order()
{
    site::SiteOrder own;
    own.patients = 120;
    own.month = std::chrono::year{2024} / 5;
    return own;
}

std::string shown(const Variant &value)
{
    if (value.isNull()) return "NULL";
    if (const auto *bytes = value.getIf<Binary>()) return fmt::format("{} bytes", bytes->size());
    return toText(value, Regional{});
}

/// All rows of a table, one line each, sorted because the two databases return different orders.
std::vector<std::string> rowsOf(Database &database, Connection &connection, const site::TableColumns &table)
{
    std::vector<std::string> lines;
    const auto rows = database.newRecordset();
    rows->Open("SELECT * FROM " + table.name, connection, 0, 1, 1);
    for (; !rows->isEndOfFile(); rows->MoveNext()) {
        std::string line;
        for (const site::SchemaColumn &column : table.columns) line += shown(rows->Field(column.name)) + "|";
        lines.push_back(line);
    }
    std::ranges::sort(lines);
    return lines;
}

void dropAll(const Session &session)
{
    for (const site::TableColumns &table : site::schemaTables()) session.run("DROP TABLE IF EXISTS " + table.name);
    session.run("DROP TABLE IF EXISTS ININ_SITE_DEMO");
}

RuntimeError makeError(const Session &session, site::Overwrite overwrite, const std::string &script = schema())
{
    return errorOf([&] {
        site::makeServerDatabase(*session.database, *session.connection, {script, {"'\\x", "'"}}, order(), overwrite);
    });
}

/// The demo's rows on the server and in an embedded database.
struct TwoDatabases {
    Session server{postgres()};
    std::string file = fromEnvironment("ININ_ODBC_FOLDER") + "/demo.db";
    std::unique_ptr<Database> embedded = makeSqliteDatabase([this](const std::string &) { return file; });
    std::unique_ptr<Connection> connection = embedded->newConnection();

    TwoDatabases()
    {
        dropAll(server);
        site::makeServerDatabase(*server.database, *server.connection, {schema(), {"'\\x", "'"}}, order(),
                                 site::Overwrite::onlyOwnFolder);
        std::filesystem::remove(file);
        site::makeDatabase(file, order());
        connection->Open("Provider=SQLite;Data Source=demo.db", "", "", -1);
    }
};

} // namespace

TEST_CASE("a server gets the same rows as the embedded database, in every table and column")
{
    const TwoDatabases both;
    for (const site::TableColumns &table : site::schemaTables()) {
        CAPTURE(table.name);
        const auto ours = rowsOf(*both.server.database, *both.server.connection, table);
        CHECK_FALSE(ours.empty());
        CHECK((ours == rowsOf(*both.embedded, *both.connection, table)));
    }
}

TEST_CASE("the letters that are due, and the reasons of the others, are the same on a server")
{
    const TwoDatabases both;
    const Regional regional;
    const due::Source server{*both.server.database, *both.server.connection, 1, 1, regional};
    const due::Source embedded{*both.embedded, *both.connection, 1, 1, regional};
    for (const due::Conditions &conditions : {
             due::Conditions{.year = 2024, .month = 5},
             due::Conditions{.visits = due::Visits::actual, .year = 2024, .month = 5, .trustee = due::Trustee::agent},
             due::Conditions{.year = 2024, .month = 5, .lastDay = 31, .staff = 3},
             due::Conditions{.visits = due::Visits::actual, .year = 2024, .month = 5, .lastDay = 30},
             due::Conditions{.visits = due::Visits::ignored, .year = 2024, .month = 5, .insuranceKind = 2},
         }) {
        const auto lines = due::linesOf(due::dueLetters(server, conditions), conditions);
        CHECK(lines.size() > 10);
        CHECK(lines == due::linesOf(due::dueLetters(embedded, conditions), conditions));
    }
}

TEST_CASE("a table without the demo's marker is kept, also with --force, and --force is not recommended")
{
    const Session session(postgres());
    dropAll(session);
    session.run("CREATE TABLE HOKEN (mine INTEGER)");
    session.run("INSERT INTO HOKEN VALUES (1)");
    for (const site::Overwrite overwrite : {site::Overwrite::onlyOwnFolder, site::Overwrite::anyFolder}) {
        CHECK(
            makeError(session, overwrite).description() ==
            "データベースにテーブル「HOKEN」が既にあるので、何も書き込みませんでした。"
            "見本データではない行が失われるおそれがあるため、上書きはできません。空のデータベースを指定してください。");
        CHECK(session.column("SELECT mine FROM HOKEN").size() == 1);
        CHECK(errorOf([&] { (void)session.open("SELECT nIDNo FROM RIYOUSHA"); }).number() == -2147217865);
    }
}

TEST_CASE("the demo's own tables are replaced with --force only")
{
    const Session session(postgres());
    dropAll(session);
    CHECK(makeError(session, site::Overwrite::onlyOwnFolder).number() == 0);
    session.run("DELETE FROM HOKEN");
    CHECK(makeError(session, site::Overwrite::onlyOwnFolder).description() ==
          "データベースにテーブル「RIYOUSHA」が既にあるので、何も書き込みませんでした。"
          "前に作った見本データを作り直すときは --force を付けてください。");
    CHECK(session.column("SELECT cName FROM HOKEN").empty());
    CHECK(makeError(session, site::Overwrite::anyFolder).number() == 0);
    CHECK(session.column("SELECT cName FROM HOKEN").size() == 8);
}

TEST_CASE("an aborted make keeps the existing tables and rows")
{
    const Session session(postgres());
    dropAll(session);
    REQUIRE(makeError(session, site::Overwrite::onlyOwnFolder).number() == 0);
    const std::string broken = replaceAll(schema(), "tServicyDayStart TIMESTAMP", "tServicyDayStart INTEGER");
    CHECK(makeError(session, site::Overwrite::anyFolder, broken).number() == -2147217900);
    CHECK(session.column("SELECT nIDNo FROM RIYOUSHA").size() > 100);
    CHECK_FALSE(session.column("SELECT tServicyDayStart FROM JISSEKI").empty());

    dropAll(session);
    CHECK(makeError(session, site::Overwrite::anyFolder, broken).number() == -2147217900);
    CHECK(errorOf([&] { (void)session.open("SELECT nIDNo FROM RIYOUSHA"); }).number() == -2147217865);
}

TEST_CASE("the server's script has the tables and columns of the embedded schema, and its indexes")
{
    std::vector<std::string> tables, indexes;
    for (const std::string &statement : site::statementsOf(site::serverSchemaText())) {
        CHECK(statement.find("--") == std::string::npos);
        if (statement.starts_with("CREATE INDEX")) indexes.push_back(statement);
        if (statement.starts_with("CREATE TABLE")) tables.push_back(statement);
    }
    const auto expected = site::schemaTables();
    REQUIRE(tables.size() == expected.size());
    CHECK(indexes.size() == 6);
    for (std::size_t at = 0; at < tables.size(); ++at) {
        CHECK(tables[at].starts_with("CREATE TABLE " + expected[at].name + " ("));
        for (const site::SchemaColumn &column : expected[at].columns) {
            CAPTURE(column.name);
            const bool isFirst = tables[at].find("(" + column.name + " ") != std::string::npos;
            CHECK((isFirst || tables[at].find(" " + column.name + " ") != std::string::npos));
        }
    }
}

TEST_CASE("every text column of the server's script has the Japanese collation")
{
    for (const std::string &statement : site::statementsOf(site::serverSchemaText())) {
        for (std::size_t at = statement.find("VARCHAR("); at != std::string::npos;
             at = statement.find("VARCHAR(", at)) {
            at = statement.find(')', at);
            CHECK(statement.substr(at, 24) == ") COLLATE Japanese_CI_AS");
        }
    }
}

TEST_CASE("a script is split at semicolons outside quotes and comments")
{
    CHECK(site::statementsOf("-- a; b\nCREATE TABLE t (a INT); /* ; */ INSERT INTO t VALUES (';');\n;") ==
          std::vector<std::string>{"CREATE TABLE t (a INT)", "INSERT INTO t VALUES (';')"});
}

TEST_CASE("a connection string that is too long for the suite is refused before anything is written")
{
    CHECK(site::connectionFile("DSN=x") == std::string("[\x90\xDA\x91\xB1\x8F\xEE\x95\xF1]\r\n"
                                                       "\x90\xDA\x91\xB1\x8F\xEE\x95\xF1=DSN=x\r\n"));
    CHECK(errorOf([] { (void)site::connectionFile(std::string(255, 'x')); }).number() == 0);
    CHECK(errorOf([] { (void)site::connectionFile(std::string(256, 'x')); }).number() == 5);
}
