#include "adapters/sqlite/connection_string.h"

#include <doctest/doctest.h>

#include <string_view>

using namespace inin;

TEST_CASE("the values of a connection string do not depend on key case, blanks and quotes")
{
    struct Row {
        std::string_view text, source;
    };
    static constexpr Row kRows[] = {
        {"Provider=SQLite;Data Source=demo.db", "demo.db"},
        {"provider=sqlite;DATA SOURCE=demo.db;", "demo.db"},
        {" Provider = SQLite ; Data Source = demo.db ; ", "demo.db"},
        {"Data Source=\"C:\\a;b\\demo.db\";Provider=SQLite", "C:\\a;b\\demo.db"},
        {"Data Source='a \"b\".db';Provider=SQLite", "a \"b\".db"},
        {"Data Source=\"a\"\"b.db\"", "a\"b.db"},
        {"Data Source='it''s.db'", "it's.db"},
        {"Data Source=a=b.db", "a=b.db"},
        {"Data Source=one.db;Data Source=two.db", "two.db"},
        {";;Data Source=demo.db;;", "demo.db"},
        {"word;Data Source=demo.db", "demo.db"},
        {"Data Source=デモ データ.db", "デモ データ.db"},
        {"Data Source=\"open.db", "open.db"},
        {"Data Source=", ""},
        {"Data Source", ""},
        {"", ""},
    };
    for (const Row &row : kRows) {
        CAPTURE(row.text);
        CHECK(ConnectionString(row.text).value("Data Source") == row.source);
    }
}

TEST_CASE("a value after a quoted value is read")
{
    const ConnectionString parts("Data Source=\"a.db\" ; Provider=SQLite;Password='p;w'");
    CHECK(parts.value("provider") == "SQLite");
    CHECK(parts.value("PASSWORD") == "p;w");
}
