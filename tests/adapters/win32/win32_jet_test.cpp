#include "adapters/odbc/jet_dao.h"

#include "adapters/native/native_platform.h"
#include "data/dao_session.h"
#include "support/temp_folder.h"
#include "system/file_path.h"

#include <filesystem>

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::odbc;

namespace {

struct Opening {
    explicit Opening(const std::string &path)
    {
        REQUIRE(session.iInit(path, 0, "ws", "", "", dbUseJet) == 0);
        status = session.iDbOpen();
    }
    std::unique_ptr<DaoEngine> engine = makeJetDao([](const std::string &name) { return name; });
    clsT_Dao session{*engine};
    std::int16_t status = 0;
};

const std::string kSample = ININ_TEST_DATA "/jet/practice.mdb";

} // namespace

TEST_CASE("opening a Jet file on a machine without the Access driver fails with the driver manager's text")
{
    const TempFolder folder;
    const std::string copy = systemPath(folder / "診療所.mdb");
    std::filesystem::copy_file(kSample, pathOf(copy));
    const Opening opening(copy);
    CHECK(opening.status == -1);
    CHECK(opening.session.sErrMsg().starts_with("3151\r\n"));
    CHECK(opening.session.sErrMsg().size() > 6);
}

TEST_CASE("a file that is not a Jet file is refused without calling a driver")
{
    const TempFolder folder;
    const Opening opening(systemPath(folder.put("text.mdb", "no database")));
    CHECK(opening.status == -1);
    CHECK(opening.session.sErrMsg().starts_with("3343\r\n"));
}
