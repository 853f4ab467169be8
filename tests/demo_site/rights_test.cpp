// File permissions of what `make` writes. On Windows files inherit those of their folder.

#include "adapters/native/native_platform.h"
#include "demo_site/scratch_site.h"
#include "demo_site/site_maker.h"
#include "system/whole_file.h"

#include <doctest/doctest.h>
#include <sqlite3.h>

using namespace inin;
using namespace inin::test;
namespace fs = std::filesystem;

namespace {

constexpr fs::perms kOwnerOnly = fs::perms::owner_read | fs::perms::owner_write;
constexpr fs::perms kGroupToo = kOwnerOnly | fs::perms::group_read;

fs::perms rightsOf(const fs::path &file)
{
    return fs::status(file).permissions();
}

void makeAgain(const TempFolder &folder)
{
    site::makeSite(folder.folder(), {7, 1, std::chrono::year{2024} / 5}, site::Overwrite::onlyOwnFolder);
}

} // namespace

TEST_CASE("only the owner can read the demo's database and connection string, every user the other files")
{
    CHECK(rightsOf(sharedSite() / "demo.db") == kOwnerOnly);
    CHECK(rightsOf(sharedSite() / "adodb.ini") == kOwnerOnly);
    CHECK((rightsOf(sharedSite() / "Massage.ini") & fs::perms::others_read) == fs::perms::others_read);
}

TEST_CASE("only the owner can read the journal of the demo's database")
{
    const TempFolder folder;
    makeAgain(folder);
    sqlite3 *database = nullptr;
    REQUIRE(sqlite3_open((folder.folder() / "demo.db").c_str(), &database) == SQLITE_OK);
    REQUIRE(sqlite3_exec(database, "BEGIN; DELETE FROM HOKEN;", nullptr, nullptr, nullptr) == SQLITE_OK);
    CHECK(rightsOf(folder.folder() / "demo.db-journal") == kOwnerOnly);
    sqlite3_close(database);
}

TEST_CASE("a database keeps its permissions when a site is made again; a connection string is the owner's again")
{
    const TempFolder folder;
    makeAgain(folder);
    for (const char *name : {"demo.db", "adodb.ini"}) fs::permissions(folder.folder() / name, kGroupToo);
    makeAgain(folder);
    CHECK(rightsOf(folder.folder() / "demo.db") == kGroupToo);
    CHECK(rightsOf(folder.folder() / "adodb.ini") == kOwnerOnly);
}

TEST_CASE("a connection string replaces a link, whose target keeps its content")
{
    const TempFolder folder;
    folder.put("other", "kept");
    fs::create_symlink("other", folder.folder() / "adodb.ini");
    site::writeConnectionFile(folder.folder(), "secret");
    CHECK(folder.bytes("adodb.ini") == "secret");
    CHECK(folder.bytes("other") == "kept");
}

TEST_CASE("a file created for its owner is empty, and an existing one is unchanged")
{
    const TempFolder folder;
    createForOwner((folder.folder() / "new").string());
    CHECK(rightsOf(folder.folder() / "new") == kOwnerOnly);
    CHECK(folder.bytes("new").empty());

    folder.put("old", "kept");
    fs::permissions(folder.folder() / "old", kGroupToo);
    createForOwner((folder.folder() / "old").string());
    CHECK(rightsOf(folder.folder() / "old") == kGroupToo);
    CHECK(folder.bytes("old") == "kept");
}
