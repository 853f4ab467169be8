#include "demo_site/scratch_site.h"
#include "runtime/runtime_error.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::test;
namespace fs = std::filesystem;

TEST_CASE("Massage.ini is code page 932 with CR LF")
{
    CHECK(bytesOf(sharedSite() / "Massage.ini") ==
          "[Sorvin\x91\x8d\x8d\x87\x83\x56\x83\x58\x83\x65\x83\x80]\r\n"
          "SYSTEM_SYS=\\SYS\r\n"
          "SYSTEM_TMP=\\TMP\r\n"
          "SYSTEM_ICON=\\ICON\r\n"
          "SYSTEM_DATA=\\DATA\r\n"
          "WALLPAPER=wall.bmp\r\n"
          "BASEID=0101\r\n"
          "\x8f\x49\x97\xb9\x8a\xb3\x8e\xd2\x8e\x7b\x8f\x70\x8a\xfa\x8a\xd4=3\r\n");
}

TEST_CASE("adodb.ini names the database in the same folder")
{
    CHECK(bytesOf(sharedSite() / "adodb.ini") == "[\x90\xda\x91\xb1\x8f\xee\x95\xf1]\r\n"
                                                 "\x90\xda\x91\xb1\x8f\xee\x95\xf1="
                                                 "Provider=SQLite;Data Source=demo.db\r\n");
}

TEST_CASE("the version file has a version, an update and a help address on a reserved host")
{
    CHECK(bytesOf(sharedSite() / "Sorvin.ver") == "VERSION=\x8c\xa9\x96\x7b\x83\x54\x83\x43\x83\x67 0.1.0\r\n"
                                                  "UUPDATE=2024-05\r\n"
                                                  "[OnlineHelp]\r\n"
                                                  "ADDRESS=https://example.invalid/help\r\n");
}

TEST_CASE("the folders of the settings exist")
{
    for (const char *name : {"SYS", "TMP", "ICON", "DATA"}) {
        CAPTURE(name);
        CHECK(fs::is_directory(sharedSite() / name));
    }
}

TEST_CASE("the wallpaper is a 24-bit bitmap of the size in its header")
{
    const std::string bytes = bytesOf(sharedSite() / "ICON" / "wall.bmp");
    REQUIRE(bytes.size() == 54 + 192 * 120 * 3);
    CHECK(bytes.substr(0, 6) == std::string("BM\x36\x0e\x01\x00", 6)); // 69174
    CHECK(bytes.substr(18, 8) == std::string("\xc0\0\0\0\x78\0\0\0", 8));
    CHECK(bytes[28] == 24);
}

TEST_CASE("a folder that is not empty is refused and not changed")
{
    const TempFolder folder;
    folder.put("mine.txt", "mine");

    CHECK_THROWS_AS(site::makeSite(folder.folder(), ordinaryOrder(), site::Overwrite::onlyOwnFolder), RuntimeError);

    CHECK(folder.bytes("mine.txt") == "mine");
    CHECK_FALSE(fs::exists(folder.folder() / "Massage.ini"));
}

TEST_CASE("a file in place of the folder is refused")
{
    const TempFolder folder;
    folder.put("site", "mine");

    CHECK_THROWS_AS(site::makeSite(folder.folder() / "site", ordinaryOrder(), site::Overwrite::onlyOwnFolder),
                    RuntimeError);

    CHECK(folder.bytes("site") == "mine");
}

TEST_CASE("a database that cannot be renamed to its final name is reported, and no unfinished one remains")
{
    const TempFolder folder;
    fs::create_directories(folder.folder() / "demo.db" / "mine");
    std::string words;
    try {
        site::makeSite(folder.folder(), ordinaryOrder(), site::Overwrite::anyFolder);
    } catch (const RuntimeError &error) {
        words = error.description();
    }

    CHECK(words.starts_with("データベース「"));
    CHECK(words.ends_with("demo.db」を置き換えられません。"));
    CHECK(fs::exists(folder.folder() / "demo.db" / "mine"));
    CHECK_FALSE(fs::exists(folder.folder() / "demo.db.new"));
}

TEST_CASE("--force writes to a folder that is not empty and keeps its other files")
{
    const TempFolder folder;
    folder.put("mine.txt", "mine");

    site::makeSite(folder.folder(), ordinaryOrder(), site::Overwrite::anyFolder);

    CHECK(folder.bytes("mine.txt") == "mine");
    CHECK(fs::exists(folder.folder() / "demo.db"));
}

TEST_CASE("the folder of a real suite is refused even with --force")
{
    const TempFolder folder;
    SUBCASE("for its menu program")
    {
        folder.put("Main.exe", "MZ the suite's menu");
    }
    SUBCASE("for its form tool")
    {
        folder.put("wfrimg10.exe", "MZ a form tool");
    }
    SUBCASE("for its connection to a server")
    {
        folder.put("adodb.ini", "[\x90\xda\x91\xb1\x8f\xee\x95\xf1]\r\n\x90\xda\x91\xb1\x8f\xee\x95\xf1="
                                "Provider=SQLOLEDB.1;Data Source=SERVER\r\n");
    }
    const std::vector<std::string> before = folder.names();
    std::string words;
    try {
        site::makeSite(folder.folder(), ordinaryOrder(), site::Overwrite::anyFolder);
    } catch (const RuntimeError &error) {
        words = error.description();
    }

    CHECK(words.find("は総合システムのフォルダーのようです（") != std::string::npos);
    CHECK(words.find("--force") == std::string::npos);
    CHECK(folder.names() == before);
}

TEST_CASE("a demo site that is connected to a server can be made again")
{
    const TempFolder folder;
    site::makeSite(folder.folder(), ordinaryOrder(), site::Overwrite::onlyOwnFolder);
    folder.put("adodb.ini", "[\x90\xda\x91\xb1\x8f\xee\x95\xf1]\r\n\x90\xda\x91\xb1\x8f\xee\x95\xf1=Server=x\r\n");

    site::makeSite(folder.folder(), ordinaryOrder(), site::Overwrite::onlyOwnFolder);

    CHECK(folder.bytes("adodb.ini").find("Provider=SQLite") != std::string::npos);
}

TEST_CASE("a folder with an unpacked package counts as empty")
{
    const TempFolder folder;
    folder.put("PrintInin.exe", "");
    folder.put("forms/a.wfd", "");
    const auto utf16 = [](std::string_view ascii) {
        std::string text = "\xFF\xFE";
        for (const char character : ascii) text += {character, '\0'};
        return text;
    };
    folder.put("guide/installed.txt", utf16("PrintInin.exe\r\nforms\\a.wfd\r\nguide\\installed.txt\r\n"));

    SUBCASE("without other files")
    {
        site::makeSite(folder.folder(), ordinaryOrder(), site::Overwrite::onlyOwnFolder);
        CHECK(folder.has("demo.db"));
    }
    SUBCASE("but not with another file")
    {
        folder.put("mine.txt", "mine");
        CHECK_THROWS_AS(site::makeSite(folder.folder(), ordinaryOrder(), site::Overwrite::onlyOwnFolder), RuntimeError);
    }
    SUBCASE("but not with another folder")
    {
        folder.put("PrintInin.exe.d/mine.txt", "mine");
        CHECK_THROWS_AS(site::makeSite(folder.folder(), ordinaryOrder(), site::Overwrite::onlyOwnFolder), RuntimeError);
    }
}

TEST_CASE("a folder that the tool made can be made again")
{
    const TempFolder folder;
    site::SiteOrder order = ordinaryOrder();
    site::makeSite(folder.folder(), order, site::Overwrite::onlyOwnFolder);
    order.patients = 12;

    site::makeSite(folder.folder(), order, site::Overwrite::onlyOwnFolder);

    CHECK(countOf(folder.folder() / "demo.db", "SELECT COUNT(*) FROM RIYOUSHA") == 12);
}

TEST_CASE("a missing folder is created with its parents")
{
    const TempFolder folder;

    site::makeSite(folder.folder() / "a" / "b", ordinaryOrder(), site::Overwrite::onlyOwnFolder);

    CHECK(fs::exists(folder.folder() / "a" / "b" / "demo.db"));
}

TEST_CASE("an unfinished database of a killed run is removed by the next one")
{
    const TempFolder folder;
    folder.put("demo.db.new", "half of a database");
    site::makeSite(folder.folder(), ordinaryOrder(), site::Overwrite::anyFolder);
    CHECK_FALSE(fs::exists(folder.folder() / "demo.db.new"));
    CHECK(countOf(folder.folder() / "demo.db", "SELECT COUNT(*) FROM RIYOUSHA WHERE iKyotenEb = 1") == 300);
}

TEST_CASE("no incomplete database remains")
{
    CHECK_FALSE(fs::exists(sharedSite() / "demo.db.new"));
}
