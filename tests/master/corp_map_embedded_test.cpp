#include "master/corp_map.h"

#include "adapters/native/native_platform.h"
#include "master/corp_table.h"
#include "master/embedded_fixture.h"
#include "support/temp_folder.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

using namespace inin;

// Maps on the embedded database: rows are written and read back.

namespace {

constexpr const char *kMapPicture = "./zenrinCGI/zenrin.gif";

struct MapOfSite : EmbeddedWorld {
    std::int16_t status(void (CorpMap::*operation)(const std::int32_t &, std::int16_t &), std::int32_t nIDNo)
    {
        std::int16_t iStatus = 99;
        (map.*operation)(nIDNo, iStatus);
        return iStatus;
    }
    [[nodiscard]] std::string pictures(int nIDNo) const
    {
        return value("SELECT hex(bAddr1) || ' ' || hex(bAddr2) || ' ' || hex(bAddr3) FROM RIYOUSHA_MAP WHERE nIDNo = " +
                     std::to_string(nIDNo));
    }
    CorpMap map{site};
};

using EmbeddedCorpFixture = EmbeddedFixture<cT_CORP>;

/// The current folder, with the picture's folder in it.
class PictureFolder {
public:
    PictureFolder() { std::filesystem::create_directory(picture().parent_path()); }
    [[nodiscard]] const std::string &path() const { return m_folder.path(); }
    [[nodiscard]] std::filesystem::path picture() const { return m_folder.folder() / "zenrinCGI" / "zenrin.gif"; }

private:
    TempFolder m_folder;
    CurrentFolder m_current{m_folder.folder()};
};

} // namespace

TEST_CASE("a missing map is reported, then saved, found and updated")
{
    MapOfSite world;
    CHECK(world.status(&CorpMap::iChizuLoad, 7) == kNoSuchMap);
    world.files.put(kMapPicture, "GIF");
    REQUIRE_MESSAGE(world.status(&CorpMap::iChizuSave, 7) == iGood, world.map.sErrMsg());
    CHECK(world.pictures(7) == "474946 00 00");
    CHECK(world.status(&CorpMap::iChizuLoad, 7) == iGood);

    world.run("UPDATE RIYOUSHA_MAP SET bAddr2 = x'22', dTimeStamp = NULL");
    world.files.put(kMapPicture, "new");
    REQUIRE_MESSAGE(world.status(&CorpMap::iChizuUpdate, 7) == iGood, world.map.sErrMsg());
    CHECK(world.pictures(7) == "6E6577 22 00");
    CHECK(world.value("SELECT dTimeStamp IS NOT NULL FROM RIYOUSHA_MAP") == "1");
    CHECK(world.boxes.shown.empty());
}

TEST_CASE("a map is separate for each site")
{
    MapOfSite world;
    REQUIRE(world.status(&CorpMap::iChizuSave, 0) == iGood);
    world.site.iKyotenEb = 3;
    CHECK(world.status(&CorpMap::iChizuLoad, 0) == kNoSuchMap);
    REQUIRE(world.status(&CorpMap::iChizuSave, 0) == iGood);
    CHECK(world.value("SELECT COUNT(*) FROM RIYOUSHA_MAP") == "2");
}

TEST_CASE("a second save of a map is refused and keeps the first one")
{
    MapOfSite world;
    world.files.put(kMapPicture, "1");
    REQUIRE(world.status(&CorpMap::iChizuSave, 0) == iGood);
    world.files.put(kMapPicture, "2");
    CHECK(world.status(&CorpMap::iChizuSave, 0) == iBad);
    CHECK(world.map.sErrMsg().starts_with("ERR:iExecSQL (-2147217873)"));
    CHECK(world.pictures(0) == "31 00 00");
    CHECK_FALSE(world.files.has(kMapPicture));
}

TEST_CASE("an update with no picture or an empty one is an invalid statement and keeps the map")
{
    MapOfSite world;
    world.files.put(kMapPicture, "1");
    REQUIRE(world.status(&CorpMap::iChizuSave, 0) == iGood);
    CHECK(world.status(&CorpMap::iChizuUpdate, 0) == iBad);
    CHECK(world.map.sErrMsg().starts_with("ERR:iExecSQL (-2147217900)"));
    world.files.put(kMapPicture, "");
    CHECK(world.status(&CorpMap::iChizuUpdate, 0) == iBad);
    CHECK_FALSE(world.files.has(kMapPicture));
    CHECK(world.pictures(0) == "31 00 00");
}

TEST_CASE("a picture of 20 MB in the current folder is written to the database completely and deleted from the disk")
{
    const PictureFolder folder;
    constexpr std::size_t kSize = std::size_t{20} * 1024 * 1024;
    std::string bytes(kSize, '\0');
    for (std::size_t at = 0; at < kSize; ++at) bytes[at] = static_cast<char>((at * 7U + at / 256U) & 0xFFU);
    std::ofstream(folder.picture(), std::ios::binary) << bytes;

    MapOfSite world;
    const std::unique_ptr<Files> files = makeSystemFiles(folder.path());
    const std::unique_ptr<Profile> profile = makeSystemProfile();
    std::ofstream(folder.path() + "/adodb.ini", std::ios::binary) << world.files.bytes("C:\\SUITE\\adodb.ini");
    const Platform platform{world.boxes, world.windows, world.embedded.database, *profile, *files, world.processes,
                            world.clock, world.locale,  world.automation};
    App app(platform);
    app.iKyotenCd = 1;
    app.iKyotenEb = 2;
    CorpMap map(app);

    std::int16_t status = 99;
    map.iChizuSave(0, status);
    REQUIRE_MESSAGE(status == iGood, map.sErrMsg().substr(0, 200));
    CHECK_FALSE(std::filesystem::exists(folder.picture()));

    const StartedSession reading = startSession(world.site);
    const std::unique_ptr<Recordset> rows = world.embedded.database.newRecordset();
    REQUIRE(reading.session->iOpenRecSet(*rows, "SELECT bAddr1 FROM RIYOUSHA_MAP", 0, 1, 1) == iGood);
    const Variant value = rows->Field("bAddr1");
    const auto *stored = value.getIf<Binary>();
    REQUIRE(stored != nullptr);
    REQUIRE(stored->size() == kSize);
    CHECK(std::equal(stored->begin(), stored->end(), bytes.begin(),
                     [](std::byte a, char b) { return static_cast<char>(a) == b; }));
}

TEST_CASE("writes of a company save the site's map with it")
{
    EmbeddedCorpFixture corp;
    corp.site.cChizuFlg = "1";
    cD_CORP row;
    row.nIDNo = 55;
    corp.files.put(kMapPicture, "A");
    REQUIRE_MESSAGE(corp->iDataInsert(&row, 0) == iGood, corp->sErrMsg());
    CHECK(corp.value("SELECT nIDNo || hex(bAddr1) FROM RIYOUSHA_MAP") == "041");

    corp.files.put(kMapPicture, "B");
    row.cShamei1 = "新社名";
    REQUIRE_MESSAGE(corp->iDataUpdate(&row, 0) == iGood, corp->sErrMsg());
    CHECK(corp.value("SELECT hex(bAddr1) FROM RIYOUSHA_MAP") == "42");
    CHECK(corp.value("SELECT cShamei1 FROM CORP") == "新社名");
    CHECK(corp.boxes.shown.empty());
}

TEST_CASE("an update of a company without its map row inserts one")
{
    EmbeddedCorpFixture corp;
    corp.site.cChizuFlg = "1";
    corp.run("INSERT INTO CORP (iKyotenCd, iKyotenEb, nIDNo) VALUES (1,2,55)");
    corp.files.put(kMapPicture, "B");
    cD_CORP row;
    row.nIDNo = 55;
    REQUIRE_MESSAGE(corp->iDataUpdate(&row, 0) == iGood, corp->sErrMsg());
    CHECK(corp.value("SELECT hex(bAddr1) FROM RIYOUSHA_MAP") == "42");
}

TEST_CASE("a map that is refused inside the company's own transaction keeps its picture on disk")
{
    EmbeddedCorpFixture corp;
    corp.site.cChizuFlg = "1";
    corp.run("INSERT INTO CORP (iKyotenCd, iKyotenEb, nIDNo, cShamei1) VALUES (1,2,55,'旧社名')");
    corp.files.put(kMapPicture, "B");
    cD_CORP row;
    row.nIDNo = 55;
    row.cShamei1 = "新社名";
    CHECK(corp->iDataUpdate(&row, 0, Transaction::own) == iBad);
    CHECK(corp->sErrMsg().starts_with("ERR:BeginTrans (-2147217871)"));
    CHECK(corp.value("SELECT cShamei1 FROM CORP") == "旧社名");
    CHECK(corp.value("SELECT COUNT(*) FROM RIYOUSHA_MAP") == "0");
    CHECK(corp.files.has(kMapPicture));

    row.nIDNo = 56; // an insert succeeds without its map
    CHECK(corp->iDataInsert(&row, 0, Transaction::own) == iGood);
    CHECK(corp.value("SELECT COUNT(*) FROM CORP") == "2");
    CHECK(corp.value("SELECT COUNT(*) FROM RIYOUSHA_MAP") == "0");
    CHECK(corp.files.has(kMapPicture));

    row.nIDNo = 55;
    REQUIRE_MESSAGE(corp->iDataUpdate(&row, 0) == iGood, corp->sErrMsg());
    CHECK(corp.value("SELECT hex(bAddr1) FROM RIYOUSHA_MAP") == "42");
    CHECK_FALSE(corp.files.has(kMapPicture));
}

TEST_CASE("a picture that is only read needs no writer")
{
    EmbeddedCorpFixture corp;
    corp.files.put(kMapPicture, "B");
    REQUIRE(corp.session.iBeginTrans() == iGood);
    std::int16_t status = 99;
    CorpMap(corp.site).iChizuSave(kMapTakeOnly, status);
    CHECK(status == iGood);
    CHECK_FALSE(corp.files.has(kMapPicture));
}
