// Jet files through ODBC, as far as it can be tested without a driver for them.

#include "adapters/odbc/jet_dao.h"

#include "data/dao_session.h"
#include "support/temp_folder.h"

#include <doctest/doctest.h>

#include <cstdlib>
#include <memory>
#include <string>

using namespace inin;

namespace {

constexpr const char *kNoDriver = "No Such Driver";

/// The first bytes of a file of the older and of the newer engine; the rest is not a database.
std::string jetStart(const char *name)
{
    return std::string("\0\1\0\0", 4) + name + std::string(4000, '\0');
}

struct JetSession {
    explicit JetSession(const std::string &path, const char *driver = kNoDriver)
        : engine(makeJetDao([](const std::string &name) { return name; }, driver))
    {
        REQUIRE(session.iInit(path, 0, "", "", "", dbUseJet) == 0);
        status = session.iDbOpen();
    }
    std::unique_ptr<DaoEngine> engine;
    clsT_Dao session{*engine};
    std::int16_t status = 0;
};

} // namespace

TEST_CASE("a missing Jet file is reported")
{
    const TempFolder folder;
    const JetSession jet(folder / "none.mdb");
    CHECK(jet.status == -1);
    CHECK(jet.session.sErrMsg() == "3024\r\nデータベースファイルが見つかりません。");
}

TEST_CASE("a file that is not a Jet file is reported before the driver is used, whatever its name")
{
    const TempFolder folder;
    for (const std::string &bytes :
         {std::string(), std::string("abc"), std::string("\0\1\0\0", 4), std::string(5000, 'x'),
          std::string("Standard Jet DB"), "SQLite format 3" + std::string(100, '\0'), jetStart("Standard Jet")}) {
        CAPTURE(bytes.substr(0, 20));
        const JetSession jet(folder.put("a.mdb", bytes));
        CHECK(jet.status == -1);
        CHECK(jet.session.sErrMsg() == "3343\r\nデータベースの形式を認識できません。");
    }
}

TEST_CASE("a Jet file without a driver for it is a failed connection")
{
    const TempFolder folder;
    for (const char *name : {"Standard Jet DB", "Standard ACE DB"}) {
        CAPTURE(name);
        const JetSession jet(folder.put("a.mdb", jetStart(name)));
        CHECK(jet.status == -1);
        CHECK(jet.session.sErrMsg().starts_with("3151\r\n"));
        CHECK(jet.session.sErrMsg().size() > 6);
    }
}

TEST_CASE("each operation fails with error 91 when the database did not open")
{
    const TempFolder folder;
    JetSession jet(folder / "none.mdb");
    std::unique_ptr<DaoRecordset> rows;
    CHECK(jet.session.iOpenRecordset(rows, "T", dbOpenTable, 0, 0) == -1);
    CHECK(jet.session.sErrMsg() == "91\r\nオブジェクト変数または With ブロック変数が設定されていません。");
}
