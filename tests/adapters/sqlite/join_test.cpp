#include "adapters/sqlite/database_file.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

using namespace inin;

// Without an index of that collation, SQLite builds a temporary one from the rows of the inner table.
TEST_CASE("a join finds equal texts of different length, whichever table is first")
{
    const DatabaseFile file(
        "CREATE TABLE INSURER (cNo TEXT PRIMARY KEY, cName TEXT);"
        "INSERT INTO INSURER VALUES ('01130012', 'a'), ('AB', 'b'), ('ヤマダ', 'c'), ('06', 'd');"
        "CREATE TABLE PATIENT (nID INTEGER PRIMARY KEY, cNo TEXT);"
        "INSERT INTO PATIENT VALUES (1, '０１１３００１２ '), (2, 'ａｂ  '), (3, 'ﾔﾏﾀﾞ'), (4, '6')");
    Session session(file);
    const std::vector<std::string> expected{"1|a", "2|b", "3|c"};
    CHECK(session.rows("SELECT nID, cName FROM INSURER, PATIENT WHERE INSURER.cNo = PATIENT.cNo ORDER BY nID",
                       {"nID", "cName"}) == expected);
    CHECK(session.rows("SELECT nID, cName FROM PATIENT, INSURER WHERE PATIENT.cNo = INSURER.cNo ORDER BY nID",
                       {"nID", "cName"}) == expected);
    CHECK(session.rows("SELECT nID, cName FROM PATIENT LEFT JOIN INSURER ON INSURER.cNo = PATIENT.cNo WHERE nID = 1",
                       {"nID", "cName"}) == std::vector<std::string>{"1|a"});
    CHECK(session.rows("SELECT nID, cName FROM INSURER, PATIENT WHERE INSURER.cNo = PATIENT.cNo AND nID = 1",
                       {"nID", "cName"}) == std::vector<std::string>{"1|a"});
}
