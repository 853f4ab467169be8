#include "demo_site/scratch_site.h"

#include <doctest/doctest.h>

#include <cstdlib>

using namespace inin;
using namespace inin::test;
namespace fs = std::filesystem;

namespace {

constexpr const char *kStandIns[] = {"Main.exe", "wfrfv10.exe", "WrVb6Viewer.exe", "wfrimg10.exe"};
constexpr const char *kToolNames[] = {"wfrfv10.exe", "WrVb6Viewer.exe", "wfrimg10.exe"};

int run(const fs::path &folder, const std::string &command)
{
    return std::system(("cd '" + folder.string() + "' && " + command + " 2>/dev/null").c_str());
}

struct Site {
    TempFolder folder;
    Site() { site::makeSite(folder.folder(), {1, 1, std::chrono::year{2024} / 5}, site::Overwrite::anyFolder); }
};

} // namespace

TEST_CASE("a substitute states in its own text that it is one, and is executable")
{
    for (const char *name : kStandIns) {
        CAPTURE(name);
        CHECK(bytesOf(sharedSite() / name).find("STAND-IN of the demo site") != std::string::npos);
        CHECK((fs::status(sharedSite() / name).permissions() & fs::perms::owner_exec) != fs::perms::none);
    }
}

TEST_CASE("the menu's substitute records each argument that it is started with")
{
    const Site site;

    REQUIRE(run(site.folder.folder(), "./Main.exe 2 && ./Main.exe") == 0);

    CHECK(site.folder.bytes("Main.log") == "2\n\n");
}

TEST_CASE("a form tool's substitute copies the command script to its own folder")
{
    for (const char *name : kToolNames) {
        CAPTURE(name);
        const Site site;
        site.folder.put("TMP/WfdCom.dat", "FileName,\"x\"\r\n");

        REQUIRE(run(site.folder.folder(), std::string("./") + name + " /c './TMP\\WfdCom.dat'") == 0);

        CHECK(site.folder.bytes(std::string(name) + ".WfdCom.dat") == "FileName,\"x\"\r\n");
    }
}

TEST_CASE("the merger's substitute copies the script given after the output form")
{
    const Site site;
    site.folder.put("TMP/WfdCom.dat", "AddReport\r\n");

    REQUIRE(run(site.folder.folder(), "./wfrimg10.exe 'TMP\\out.wfd' /c 'TMP\\WfdCom.dat'") == 0);

    CHECK(site.folder.bytes("wfrimg10.exe.WfdCom.dat") == "AddReport\r\n");
    CHECK_FALSE(fs::exists(site.folder.folder() / "TMP" / "out.wfd"));
}

TEST_CASE("a form tool's substitute rejoins a path that was split at a blank")
{
    const Site site;
    fs::create_directories(site.folder.folder() / "my site");
    site.folder.put("my site/WfdCom.dat", "x");

    REQUIRE(run(site.folder.folder(), "./wfrfv10.exe /c my 'site\\WfdCom.dat'") == 0);

    CHECK(site.folder.bytes("wfrfv10.exe.WfdCom.dat") == "x");
}

TEST_CASE("a form tool's substitute fails without a script")
{
    const Site site;
    CHECK(run(site.folder.folder(), "./wfrfv10.exe") != 0);
    CHECK(run(site.folder.folder(), "./wfrfv10.exe /c missing.dat") != 0);
}

TEST_CASE("the form documents of a site are those in the folder site/forms")
{
    for (const char *name :
         {"委任状37_01.wfd", "委任状23.wfd", "委任状23_空欄.wfd", "委任状37_高松市.wfd", "束の表紙.wfd"}) {
        CAPTURE(name);
        const std::string form = bytesOf(sharedSite() / "SYS" / name);
        CHECK(form.starts_with("<?xml"));
        CHECK(form == bytesOf(fs::path(ININ_SITE) / "forms" / name));
    }
}

TEST_CASE("the form tools are links to the form viewer if it was built")
{
    const TempFolder folder;
    folder.put("formviewer", "the viewer");

    site::makeSite(folder.folder() / "site", {1, 1, std::chrono::year{2024} / 5}, site::Overwrite::onlyOwnFolder,
                   folder.folder() / "formviewer");

    for (const char *name : kToolNames) {
        CAPTURE(name);
        CHECK(fs::read_symlink(folder.folder() / "site" / name) == folder.folder() / "formviewer");
    }
    CHECK(folder.bytes("site/Main.exe").find("STAND-IN") != std::string::npos);
}

TEST_CASE("a site that is made again without the form viewer does not change the viewer itself")
{
    const TempFolder folder;
    folder.put("formviewer", "the viewer");
    const site::SiteOrder order{1, 1, std::chrono::year{2024} / 5};
    site::makeSite(folder.folder() / "site", order, site::Overwrite::onlyOwnFolder, folder.folder() / "formviewer");

    site::makeSite(folder.folder() / "site", order, site::Overwrite::onlyOwnFolder);

    CHECK(folder.bytes("formviewer") == "the viewer");
    CHECK(folder.bytes("site/wfrfv10.exe").find("STAND-IN") != std::string::npos);
}
