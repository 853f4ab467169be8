#include "adapters/sqlite/database_file.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

using namespace inin;
using namespace inin::sqlite;

namespace {

using Texts = std::vector<std::string>;

/// Two names in three spellings.
struct NamesInOrder {
    DatabaseFile file{"CREATE TABLE T (n INTEGER, cName TEXT);"
                      "INSERT INTO T VALUES (1, 'ヤマダ'), (2, 'やまだ'), (3, 'ﾔﾏﾀﾞ'), (4, 'b'), (5, 'B'), (6, 'ａ')"};
    Session session{file};
};

} // namespace

TEST_CASE_FIXTURE(NamesInOrder, "DISTINCT merges texts that are equal under the collation")
{
    const auto rows = session.open("SELECT DISTINCT cName FROM T ORDER BY cName");
    CHECK(rows->fieldName(0) == "cName");
    std::size_t count = 0;
    for (; !rows->isEndOfFile(); rows->MoveNext()) ++count;
    CHECK(count == 3);
    CHECK(session.firstColumn("SELECT DISTINCT TOP 2 T.cName AS x FROM T ORDER BY x").size() == 2);
    CHECK(session.open("SELECT DISTINCT n, T.[cName] 氏名 FROM T")->fieldName(1) == "氏名");
    CHECK(session.open("SELECT DISTINCT n, T.[cName] FROM T")->fieldName(1) == "cName");
    CHECK(session.value("SELECT COUNT(DISTINCT cName) FROM T") == "3");
    CHECK(session.value("SELECT COUNT(*) FROM (SELECT DISTINCT LEFT(cName, 9) AS x FROM T) y") == "3");
}

TEST_CASE_FIXTURE(NamesInOrder, "GROUP BY groups texts that are equal under the collation")
{
    CHECK(session.rows("SELECT min(n) AS n, count(*) AS m FROM T GROUP BY cName HAVING count(*) > 1 ORDER BY min(n)",
                       {"n", "m"}) == Texts{"1|3", "4|2"});
    CHECK(session.rows("SELECT count(*) AS m FROM T GROUP BY cName, n % 2 ORDER BY 1", {"m"}) ==
          Texts{"1", "1", "1", "1", "2"});
}

TEST_CASE_FIXTURE(NamesInOrder, "MIN and MAX compare by the collation")
{
    CHECK(session.value("SELECT MIN(cName) FROM T") == "ａ"); // its code point is greater than that of B
    CHECK(session.value("SELECT MAX(cName) FROM T WHERE n > 3") != "ａ");
    CHECK(session.firstColumn("SELECT n FROM T WHERE cName = (SELECT max(cName) FROM T) ORDER BY n") ==
          Texts{"1", "2", "3"});
}

TEST_CASE_FIXTURE(NamesInOrder, "CASE with an operand compares texts under the collation")
{
    CHECK(
        session.firstColumn("SELECT CASE cName WHEN N'やまだ' THEN 1 WHEN 'Ｂ' THEN 2 ELSE 3 END FROM T ORDER BY n") ==
        Texts{"1", "1", "1", "2", "2", "3"});
}

TEST_CASE_FIXTURE(NamesInOrder, "a joined text sorts under the collation as a whole")
{
    CHECK(session.firstColumn("SELECT n FROM T WHERE n > 3 ORDER BY cName + 'x', n") == Texts{"6", "4", "5"});
}
