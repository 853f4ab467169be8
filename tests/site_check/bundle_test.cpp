#include "demo_site/scratch_site.h"
#include "demo_site/server_maker.h"
#include "site_check/site_check.h"
#include "site_check/support_bundle.h"
#include "site_check/zip_file.h"
#include "suite_text/code_page_932.h"
#include "support/replace_all.h"
#include "system/file_path.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::test;
namespace fs = std::filesystem;

namespace {

/// The columns that name or describe a person, a company or an account.
constexpr std::pair<const char *, std::vector<const char *> (*)()> kPersonalColumns[] = {
    {"RIYOUSHA",
     [] {
         return std::vector<const char *>{"cName",        "cNameKana",     "cAdress1", "cTelNo",
                                          "cSetaiName",   "cSetaiAdress1", "cHokenNo", "cJukyuNo",
                                          "cSyoumeiName", "cSinseiName",   "cKozaNo",  "cKozaName"};
     }},
    {"CORP",
     [] {
         return std::vector<const char *>{"cShamei1",   "cAddress1",   "cDaihyo",    "cTelNo",
                                          "cKinyuName", "cKozaBangou", "cKozaMeigi1"};
     }},
    {"HOKENJA",
     [] {
         return std::vector<const char *>{"cName", "cSubAddress", "cIDno"};
     }},
    {"STAFF",
     [] {
         return std::vector<const char *>{"cName", "cNameKana", "cAdress1", "cTelNo"};
     }},
};

/// A value of one or two bytes would be found in any text.
constexpr std::size_t kShortest = 4;

std::vector<std::string> personalValues(const fs::path &database)
{
    std::vector<std::string> values;
    for (const auto &[table, columns] : kPersonalColumns)
        for (const char *column : columns())
            for (const std::string &value : query(database, std::string("SELECT ") + column + " FROM " + table))
                if (value.size() >= kShortest && value != "NULL") values.push_back(value);
    return values;
}

void checkFreeOf(const std::string &zip, const std::string &value)
{
    CAPTURE(value);
    CHECK(zip.find(value) == std::string::npos);
    CHECK(zip.find(encodeCp932(value)) == std::string::npos);
}

struct BundleSite {
    TempFolder folder;
    BundleSite() { site::makeSite(path(), ordinaryOrder(), site::Overwrite::onlyOwnFolder); }
    [[nodiscard]] const fs::path &path() const { return folder.folder(); }
    [[nodiscard]] std::string bundle() const { return site::supportBundle(path(), site::checkSite(path())); }
};

} // namespace

TEST_CASE("the bundle of a site contains no name, address, telephone or account number of its database")
{
    const BundleSite site;
    execute(site.path() / "demo.db", "UPDATE RIYOUSHA SET cAdress1 = cAdress1 || char(10) WHERE nIDNo < 9");
    // The product's own form document bears the name of a town.
    const std::string zip = replaceAll(site.bundle(), "委任状37_高松市.wfd", "");
    const std::vector<std::string> values = personalValues(site.path() / "demo.db");
    REQUIRE(values.size() > 3000);
    for (const std::string &value : values) checkFreeOf(zip, value);
}

TEST_CASE("the bundle contains no password, user, server or database of the connection, whether it opens or not")
{
    const BundleSite site;
    for (const std::string connection :
         {"Provider=SQLite;Data Source=demo.db;User ID=kanri;Password=Himitsu#123",
          "Provider=SQLOLEDB;Data Source=127.0.0.1,1;Initial Catalog=karte_db;User ID=kanri;Password=\"Himitsu;#123\"",
          "Driver={No driver};Server=karte-sv\\himitsu;Database=karte_db;UID=kanri;PWD={Himitsu#123}", "karte_dsn",
          "Provider=Himitsu#123;Password"}) {
        CAPTURE(connection);
        writeBytes(site.path() / "adodb.ini", site::connectionFile(connection));
        const std::string zip = site.bundle();
        for (const char *secret : {"Himitsu", "himitsu", "#123", "kanri", "karte", "127.0.0.1"})
            checkFreeOf(zip, secret);
    }
}

TEST_CASE("the bundle contains no value that a user typed into the settings and no name of a user's file")
{
    const BundleSite site;
    const auto put = [&site](const char *name, const std::string &text) {
        writeBytes(site.path() / inin::pathOf(name), encodeCp932(text));
    };
    put("Massage.ini", "SYSTEM_SYS=\\山田\nSYSTEM_TMP=\\TMP\nSYSTEM_DATA=\\DATA\nWALLPAPER=山田.bmp\nBASEID=山田\n"
                       "終了患者施術期間=山田\n");
    put("EmapUser.ini", "USER=山田\nPASSWORD=Himitsu\n");
    put("DATA/帳票Format.ini", "[委任状]\n委任状=山田の帳票.wfd\n");
    put("DATA/印刷設定.ini", "[委任状]\n対象期間=1\n受任者=山田\n");
    put("TMP/山田　太郎.pdf", "山田");
    put("TMP/委任状.csv", "\"山田\"\n");
    put("山田.山田", "");
    const std::string zip = site.bundle();
    for (const char *value : {"山田", "Himitsu", "太郎"}) checkFreeOf(zip, value);
    for (const char *wanted : {"対象期間=1\n", "受任者=（別の値）\n", "SYSTEM_TMP=\\TMP\n", "BASEID=（別の値）\n",
                               "TMP/（ほかの名前）.pdf\t1\t4\n", "TMP/委任状.csv\t1\t7\n"}) {
        CAPTURE(wanted);
        CHECK(zip.find(wanted) != std::string::npos);
    }
}

TEST_CASE("the bundle has the number of rows of each table, the findings by number and the version")
{
    const BundleSite site;
    execute(site.path() / "demo.db", "DROP TABLE HOKEN");
    const std::string zip = site.bundle();
    for (const char *wanted : {"RIYOUSHA\t300\n", "CORP\t12\n", "HOKEN\t（エラー ", "\"number\": 405",
                               "\"subject\": \"HOKEN\"", "inin-site 0.", "provider=sqlite\n"}) {
        CAPTURE(wanted);
        CHECK(zip.find(wanted) != std::string::npos);
    }
}

TEST_CASE("the bundle of a folder that is no site reports that nothing can be read")
{
    const TempFolder folder;
    const std::string zip = site::supportBundle(folder.folder(), site::checkSite(folder.folder()));
    CHECK(zip.find("[Massage.ini]\n（読めません）\n") != std::string::npos);
    CHECK(zip.find("（接続文字列がありません）") != std::string::npos);
}

TEST_CASE("a zip file has its entries, their sizes and checksums at the places of the format")
{
    using namespace std::string_literals;
    site::ZipFile zip;
    zip.add("a", "123456789"); // the checksum's customary example: CBF43926
    const std::string fields = "\x14\0\0\x08\0\0\0\0\x21\0\x26\x39\xF4\xCB\x09\0\0\0\x09\0\0\0\x01\0\0\0"s;
    CHECK(zip.finished() == "PK\x03\x04"s + fields + "a123456789" +                               //
                                "PK\x01\x02\x14\0"s + fields + "\0\0\0\0\0\0\0\0\0\0\0\0\0\0a"s + //
                                "PK\x05\x06\0\0\0\0\x01\0\x01\0\x2F\0\0\0\x28\0\0\0\0\0"s);
}
