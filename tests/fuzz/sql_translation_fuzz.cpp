// Statements in the part of the language that the server and SQLite share, built from the input: their rows are the same
// before and after the translation. Only numbers are compared, because for texts the translation adds a collation.

#include "adapters/sqlite/sql_translator.h"
#include "fuzz/fuzz_input.h"

#include <sqlite3.h>

#include <memory>
#include <string>

using namespace inin;
using namespace inin::sqlite;
using inin::fuzz::require;

namespace {

/// Each byte of the input decides one point of the statement; after the last one the shortest form is taken.
class StatementMaker {
public:
    explicit StatementMaker(std::string_view input) : m_input(input) {}

    std::string statement()
    {
        std::string sql = pick({"SELECT ", "select ", "SELECT DISTINCT "});
        sql += number(3) + ", " + number(3);
        sql += pick({" FROM N", "\r\nFROM N n", " FROM [N]", " FROM N, M", " FROM N LEFT JOIN M ON M.nC = N.nA"});
        if (roll(2) != 0) sql += pick({" WHERE ", " where\t", " /* -- */ WHERE "}) + condition(3);
        return sql + " ORDER BY 1, 2" + pick({"", ";", " DESC -- end", " , " + number(2)});
    }

private:
    unsigned roll(unsigned sides)
    {
        if (m_input.empty()) return 0;
        const auto byte = static_cast<unsigned char>(m_input.front());
        m_input.remove_prefix(1);
        return byte % sides;
    }
    std::string pick(std::initializer_list<std::string> choices)
    {
        return *(choices.begin() + roll(static_cast<unsigned>(choices.size())));
    }
    std::string leaf() { return pick({"nA", "nB", "[nA]", "1", "0", "-3", "2147483648", "NULL", "20240531"}); }
    std::string number(int depth)
    {
        if (depth == 0) return leaf();
        switch (roll(9)) {
        case 1:
            return "(" + number(depth - 1) + pick({" + ", "-", " * ", "/ ", " % "}) + number(depth - 1) + ")";
        case 2:
            return "CASE WHEN " + condition(depth - 1) + " THEN " + number(depth - 1) + " ELSE " + number(depth - 1) +
                   " END";
        case 3:
            return "CASE " + number(depth - 1) + " WHEN 1 THEN " + number(depth - 1) + " END";
        case 4:
            return "(SELECT " + pick({"MAX", "min", "COUNT", "SUM"}) + "(nC) FROM M WHERE " + condition(depth - 1) +
                   ")";
        case 5:
            return "ABS(" + number(depth - 1) + ")";
        case 6:
            return "COALESCE(" + number(depth - 1) + "," + number(depth - 1) + ")";
        case 7:
            return "(" + number(depth - 1) + ")";
        default:
            return leaf();
        }
    }
    std::string condition(int depth)
    {
        if (depth == 0) return leaf() + " = " + leaf();
        switch (roll(8)) {
        case 1:
            return "(" + condition(depth - 1) + pick({" AND ", " or ", "\nAND "}) + condition(depth - 1) + ")";
        case 2:
            return "NOT " + condition(depth - 1);
        case 3:
            return number(depth - 1) + " BETWEEN " + number(depth - 1) + " AND " + number(depth - 1);
        case 4:
            return number(depth - 1) + pick({" IN (", " NOT IN ("}) + number(depth - 1) + ", " + leaf() + ")";
        case 5:
            return number(depth - 1) + pick({" IS NULL", " is not null"});
        case 6:
            return "EXISTS (SELECT * FROM M WHERE " + condition(depth - 1) + ")";
        default:
            return number(depth - 1) + pick({" = ", "<>", " < ", ">=", " != ", " <= "}) + number(depth - 1);
        }
    }

    std::string_view m_input;
};

struct CloseDatabase {
    void operator()(sqlite3 *db) const { sqlite3_close(db); }
};

sqlite3 *database()
{
    static const std::unique_ptr<sqlite3, CloseDatabase> kDatabase = [] {
        sqlite3 *db = nullptr;
        require(sqlite3_open(":memory:", &db) == SQLITE_OK, "a database in memory can be opened");
        std::unique_ptr<sqlite3, CloseDatabase> handle(db);
        const char *const tables = "CREATE TABLE N (nA INTEGER, nB INTEGER); CREATE TABLE M (nC INTEGER);"
                                   "INSERT INTO N VALUES (1, 2), (NULL, 0), (-3, 20240531), (7, NULL);"
                                   "INSERT INTO M VALUES (1), (7), (NULL)";
        require(sqlite3_exec(db, tables, nullptr, nullptr, nullptr) == SQLITE_OK, "the tables can be made");
        return handle;
    }();
    return kDatabase.get();
}

const SqlSchema &schema()
{
    static const SqlSchema kSchema = [] {
        SqlSchema made;
        made.add("N", "nA", "INTEGER");
        made.add("N", "nB", "INTEGER");
        made.add("M", "nC", "INTEGER");
        return made;
    }();
    return kSchema;
}

std::string rowsOf(const std::string &sql)
{
    std::string rows;
    const auto add = [](void *text, int count, char **values, char **) {
        for (int i = 0; i < count; ++i)
            static_cast<std::string *>(text)->append(values[i] == nullptr ? "NULL" : values[i]).append(",");
        return 0;
    };
    if (sqlite3_exec(database(), sql.c_str(), add, &rows, nullptr) != SQLITE_OK)
        return std::string("error: ") + sqlite3_errmsg(database());
    return rows;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string sql =
        StatementMaker({static_cast<const char *>(static_cast<const void *>(data)), size}).statement();
    const Translation translation = translateSql(sql, schema());
    require(translation.problem.empty(), "a statement of both languages is translated: " + sql + translation.problem);
    const std::string before = rowsOf(sql);
    if (before.starts_with("error: ")) return 0; // a sum that is too large, or a sub-select that hides a name
    require(rowsOf(translation.text) == before, "the translation has other rows: " + sql);
    return 0;
}
