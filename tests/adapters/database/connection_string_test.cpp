#include "adapters/database/connection_string.h"

#include "adapters/suite/suite_database.h"
#include "runtime/runtime_error.h"

#include <doctest/doctest.h>

#include <string>
#include <string_view>

using namespace inin;

namespace {

constexpr std::string_view kUnreadable = "the connection string cannot be read: ";

std::string sourceOf(std::string_view text)
{
    return readConnectionString(text).value("data source").value_or("");
}

/// The path that the embedded database is asked to open; empty if another adapter is chosen.
std::string pathOpenedBy(const std::string &connectionString)
{
    std::string opened;
    const auto database = makeSuiteDatabase([&opened](const std::string &dataSource) {
        opened = dataSource;
        return std::string("/no such folder/") + dataSource;
    });
    const auto connection = database->newConnection();
    CHECK_THROWS_AS(connection->Open(connectionString, "", "", -1), RuntimeError);
    return opened;
}

} // namespace

TEST_CASE("the values of a connection string do not depend on key case, blanks and quotes")
{
    struct Row {
        std::string_view text, source;
    };
    static constexpr Row kRows[] = {
        {"Provider=SQLite;Data Source=demo.db", "demo.db"},
        {"provider=sqlite;DATA SOURCE=demo.db;", "demo.db"},
        {" Provider = SQLite ; Data Source = demo.db ; ", "demo.db"},
        {"Provider\t=\tSQLite;Data \t Source\t=\tdemo.db\t", "demo.db"},
        {"Data Source=\"C:\\a;b\\demo.db\";Provider=SQLite", "C:\\a;b\\demo.db"},
        {"Data Source='a \"b\".db';Provider=SQLite", "a \"b\".db"},
        {"Data Source=\"a\"\"b.db\"", "a\"b.db"},
        {"Data Source='it''s.db'", "it's.db"},
        {"Data Source=a=b.db", "a=b.db"},
        {"Data Source=one.db;Data Source=two.db", "two.db"},
        {";;Data Source=demo.db;;", "demo.db"},
        {"Data Source=デモ データ.db", "デモ データ.db"},
        {"Data Source=", ""},
        {"Data Source", ""},
        {"", ""},
    };
    for (const Row &row : kRows) {
        CAPTURE(row.text);
        CHECK(sourceOf(row.text) == row.source);
    }
}

TEST_CASE("a value after a quoted value is read")
{
    const ConnectionString parts = readConnectionString("Data Source=\"a.db\" ; Provider=SQLite;Password='p;w'");
    CHECK(parts.value("provider") == "SQLite");
    CHECK(parts.value("password") == "p;w");
    CHECK(parts.isForSqlite());
}

TEST_CASE("a malformed connection string has a problem that shows none of its values")
{
    for (const std::string_view text :
         {"word;Data Source=geheim", "=geheim;Provider=SQLite", "Provider=SQLite;Data Source=\"geheim",
          "Provider=SQLite;Data Source='geheim' x", "Provider=SQLite\nData Source=geheim"}) {
        CAPTURE(text);
        const std::string problem = readConnectionString(text).problem;
        CHECK(problem.starts_with(kUnreadable));
        CHECK(problem.find("geheim") == std::string::npos);
    }
}

TEST_CASE("the provider that is chosen and the source that is opened are read alike")
{
    for (const char *text :
         {"Provider=SQLite;Data Source=a.db", "Provider\t=\tSQLite;Data  Source\t=\ta.db",
          "Provider='SQLite';Data Source=\"a.db\"", "Provider=Other;Data Source=a.db;provider=sqlite"}) {
        CAPTURE(text);
        CHECK(pathOpenedBy(text) == "a.db");
    }
    for (const char *text : {"Provider=SQLite3;Data Source=a.db", "Provider=SQLite;Data Source=\"a.db",
                             "Provider=SQLite;Data Source=a.db;Provider=Other"}) {
        CAPTURE(text);
        CHECK(pathOpenedBy(text) == "");
    }
}
