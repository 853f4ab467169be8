#include "viewer/ledger/ledger_place.h"

#include "system/file_path.h"

#include <doctest/doctest.h>

#include <map>

using namespace inin;
using namespace inin::viewer;

namespace {

LedgerSettings placedAt(const std::string &place)
{
    return {true, place, 24};
}

/// With the separator of this system.
std::string in(const std::string &folder, const std::string &name)
{
    return textOf(pathOf(folder) / pathOf(name));
}

} // namespace

TEST_CASE("the environment precedes the settings, and these the operator's own folder")
{
    CHECK(ledgerPath("", {}, "/home/a/data") == in("/home/a/data", "委任状台帳.db"));
    CHECK(ledgerPath("", placedAt("/share"), "/home/a/data") == in("/share", "委任状台帳.db"));
    CHECK(ledgerPath("/other", placedAt("/share"), "/home/a/data") == in("/other", "委任状台帳.db"));
}

TEST_CASE("a place is a folder, or a file with the extension db")
{
    CHECK(ledgerPath("/other/", {}, "") == in("/other", "委任状台帳.db"));
    CHECK(ledgerPath("/other/高松.DB", {}, "") == "/other/高松.DB");
}

TEST_CASE("the ledger is switched off by the environment or the settings, or without any folder")
{
    CHECK(ledgerPath("off", placedAt("/share"), "/data").empty());
    CHECK(ledgerPath("", {false, "/share", 24}, "/data").empty());
    CHECK(ledgerPath("/other", {false, "", 24}, "/data") == in("/other", "委任状台帳.db"));
    CHECK(ledgerPath("", {}, "").empty());
}

TEST_CASE("the operator's data folder follows the system's environment")
{
    std::map<std::string, std::string> variables;
    const Environment environment = [&](const std::string &name) { return variables[name]; };
    CHECK(operatorDataFolder(environment).empty());
#ifdef _WIN32
    variables["LOCALAPPDATA"] = "C:\\Users\\a\\AppData\\Local";
    CHECK(operatorDataFolder(environment) == "C:\\Users\\a\\AppData\\Local\\formviewer");
#else
    variables["HOME"] = "/home/a";
    CHECK(operatorDataFolder(environment) == "/home/a/.local/share/formviewer");
    variables["XDG_DATA_HOME"] = "relative";
    CHECK(operatorDataFolder(environment) == "/home/a/.local/share/formviewer");
    variables["XDG_DATA_HOME"] = "/data";
    CHECK(operatorDataFolder(environment) == "/data/formviewer");
#endif
}
