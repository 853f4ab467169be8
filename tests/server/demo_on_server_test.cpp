// The demo's rows on a server, over the PostgreSQL that with_postgres starts.

#include "adapters/odbc/driver_stage.h"
#include "adapters/sqlite/sqlite_database.h"
#include "app/inin_site/database_maker.h"
#include "app/inin_site/embedded.h"
#include "app/inin_site/schema.h"
#include "app/inin_site/server_maker.h"
#include "runtime/conversion.h"
#include "support/replace_all.h"

#include <doctest/doctest.h>
#include <fmt/format.h>

#include <filesystem>

using namespace inin;
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

/// All rows of a table, a line each, sorted: the two databases have no order in common.
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
}

} // namespace

TEST_CASE("a server gets the same rows as the embedded database, in every table and column")
{
    const Session session(postgres());
    dropAll(session);
    site::makeServerDatabase(*session.database, *session.connection, {schema(), {"'\\x", "'"}}, order(),
                             site::Overwrite::onlyOwnFolder);
    const std::string file = fromEnvironment("ININ_ODBC_FOLDER") + "/demo.db";
    std::filesystem::remove(file);
    site::makeDatabase(file, order());
    const auto embedded = makeSqliteDatabase([&file](const std::string &) { return std::string(file); });
    const auto connection = embedded->newConnection();
    connection->Open("Provider=SQLite;Data Source=demo.db", "", "", -1);

    for (const site::TableColumns &table : site::schemaTables()) {
        CAPTURE(table.name);
        const auto ours = rowsOf(*session.database, *session.connection, table);
        CHECK_FALSE(ours.empty());
        CHECK((ours == rowsOf(*embedded, *connection, table)));
    }
}

TEST_CASE("tables that are there are left alone unless they may go")
{
    const Session session(postgres());
    dropAll(session);
    session.run("CREATE TABLE HOKEN (mine INTEGER)");
    session.run("INSERT INTO HOKEN VALUES (1)");
    const site::ServerDialect dialect{schema(), {"'\\x", "'"}};
    const auto make = [&](site::Overwrite overwrite) {
        return errorOf(
            [&] { site::makeServerDatabase(*session.database, *session.connection, dialect, order(), overwrite); });
    };
    CHECK(
        make(site::Overwrite::onlyOwnFolder).description() ==
        "データベースにテーブル「HOKEN」が既にあるので、何も書き込みませんでした。作り直すときは --force を付けてください。");
    CHECK(session.column("SELECT mine FROM HOKEN").size() == 1);
    CHECK(make(site::Overwrite::anyFolder).number() == 0);
    CHECK(session.column("SELECT cName FROM HOKEN").size() > 1);
}

TEST_CASE("rows that break off are taken back")
{
    const Session session(postgres());
    dropAll(session);
    const std::string broken = replaceAll(schema(), "tServicyDayStart TIMESTAMP", "tServicyDayStart INTEGER");
    const RuntimeError error = errorOf([&] {
        site::makeServerDatabase(*session.database, *session.connection, {broken, {"'\\x", "'"}}, order(),
                                 site::Overwrite::anyFolder);
    });
    CHECK(error.number() == -2147217900);
    CHECK(session.column("SELECT nIDNo FROM RIYOUSHA").empty());
}

TEST_CASE("the server's script has the tables and columns of the embedded one, and its indexes")
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

TEST_CASE("a script is cut at its semicolons, not at those in quotes and comments")
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
