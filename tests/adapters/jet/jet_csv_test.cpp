// The CSV class on a Jet file, through the settings file, the database session and the real driver.

#include "adapters/odbc/jet_dao.h"
#include "adapters/odbc/odbc_database.h"
#include "data/jet_db_to_csv.h"
#include "support/fake_platform.h"
#include "support/replace_all.h"

#include <doctest/doctest.h>

#include <memory>
#include <string>
#include <vector>

using namespace inin;
using namespace inin::odbc;

namespace {

constexpr const char *kFile = "C:\\SUITE\\TMP\\out.csv";

struct JetCsv : FakeWorld {
    JetCsv()
    {
        files.putText("C:\\SUITE\\adodb.ini",
                      "[接続情報]\n接続情報=Driver={" + jetDriver() + "};DBQ=" ININ_TEST_DATA "/jet/practice.mdb\n");
        site.gcsAppPath = app.gcsAppPath;
    }

    std::unique_ptr<OdbcDatabase> jet = makeOdbcDatabase();
    Platform real{boxes, windows, *jet, profile, files, processes, clock, locale, automation};
    App site{real};
    cls_JetDB2CSV csv{site};
    std::int32_t nRecSuu = -7;
};

} // namespace

TEST_CASE("a Jet table becomes a CSV file of code page 932, byte for byte")
{
    JetCsv world;
    REQUIRE(world.csv.iInitJ2C(
                "SELECT nIDNo, c氏名, cカナ, t生年月日, b終了, n単価, nRate, iKubun, nSingle, n割合 FROM 患者", kFile,
                world.nRecSuu) == iGood);
    CHECK(world.nRecSuu == 4);
    CHECK(world.csv.nExecJ2C(Midasi::ari) == 4);
    // 髙 and 﨑 are FBFC and FAB1, extensions of the code page; half-width kana are single bytes.
    // Newer versions of the driver return a single as a double with all its digits.
    CHECK(
        replaceAll(world.files.bytes(kFile), "3.00000000549776E+38", "3E+38") ==
        "\"nIDNo\",\"c\x8E\x81\x96\xBC\",\"c\x83J\x83i\",\"t\x90\xB6\x94N\x8C\x8E\x93\xFA\",\"b\x8FI\x97\xB9\","
        "\"n\x92P\x89\xBF\",\"nRate\",\"iKubun\",\"nSingle\",\"n\x8A\x84\x8D\x87\"\r\n"
        "1,\"\xFB\xFC\x8B\xB4 \x88\xEA\x98Y\",\"\xC0\xB6\xCA\xBC \xB2\xC1\xDB\xB3\",1940/05/01,0,1234.5,0.1,2,1.5,\"12.50\"\r\n"
        "2,\"\xFA\xB1\x93"
        "c \x89\xD4\x8Eq\",,,-1,,,,,\r\n"
        "3,\"\x8ER\x93"
        "c\"\x91\xBE\"\x98Y, O'Hara\",,2024/02/29 9:30:00,-1,-0.0001,-1E+100,-32768,-0.25,\"-0.05\"\r\n"
        "2147483647,\"Smith\",\"\x83X\x83~\x83X\",1900-01-00,0,922337203685478,70000.5,32767,3E+38,"
        "\"123456789012.34\"\r\n");
    CHECK(world.boxes.shown.empty());
    CHECK(world.csv.iEndJ2C() == iGood);
}

TEST_CASE("a Jet memo with a line break is one CSV field, and the branch name is the last column")
{
    JetCsv world;
    REQUIRE(world.csv.iInitJ2C("SELECT nIDNo, m備考 FROM 患者", kFile, world.nRecSuu) == iGood);
    CHECK(world.nRecSuu == 4);
    CHECK(world.csv.nExecJ2C(Midasi::nasi, "高松") == 4);
    std::string third;
    for (int times = 0; times < 300; ++times)
        third += "\x92\xB7\x82\xA2\x94\xF5\x8Dl\x81"
                 "B";
    CHECK(world.files.bytes(kFile).starts_with(
        "1,\"\x88\xEA\x8Ds\x96\xDA\r\n\x93\xF1\x8Ds\x96\xDA\",\"\x8D\x82\x8F\xBC\"\r\n"
        "2,,\"\x8D\x82\x8F\xBC\"\r\n"
        "3,\"" +
        third + "\",\"\x8D\x82\x8F\xBC\"\r\n2147483647,\"\x82\xC6\x82\xC4\x82\xE0"));
}

TEST_CASE("the rows of a second Jet statement follow those of the first")
{
    JetCsv world;
    REQUIRE(world.csv.iInitJ2C_WSQL("SELECT nIDNo, cName FROM STAFF", "SELECT nDate, c内容 FROM 実績", kFile,
                                    world.nRecSuu) == iGood);
    CHECK(world.nRecSuu == 995);
    CHECK(world.csv.nExecJ2C_WSQL(Midasi::ari) == 995);
    const std::string bytes = world.files.bytes(kFile);
    CHECK(bytes.starts_with("\"nIDNo\",\"cName\"\r\n1,\"\x8ER\x93"
                            "c\"\r\n2,\"\x97\xE9\x96\xD8\"\r\n3,\r\n"
                            "20240501,\"\x96K\x96\xE2\"\r\n"));
    CHECK(bytes.ends_with("\r\n20240531,\"\x96K\x96\xE2\"\r\n"));
}

TEST_CASE("an empty Jet table becomes a CSV file with only the field names")
{
    JetCsv world;
    REQUIRE(world.csv.iInitJ2C("SELECT * FROM 空表", kFile, world.nRecSuu) == iGood);
    CHECK(world.nRecSuu == 0);
    CHECK(world.csv.iExecJ2C(Midasi::ari) == iGood);
    CHECK(world.files.bytes(kFile) == "\"nIDNo\",\"cName\"\r\n");
}

TEST_CASE("a refused statement on a Jet file is shown under the operation's heading")
{
    JetCsv world;
    CHECK(world.csv.iInitJ2C("SELECT * FROM 無い表", kFile, world.nRecSuu) == iBad);
    CHECK(world.nRecSuu == -7);
    REQUIRE(world.boxes.shown.size() == 1);
    CHECK(world.boxes.shown[0].icon == Icon::critical);
    CHECK(world.boxes.shown[0].text.starts_with("iInitJ2C() でエラー\r\n"));
    CHECK(world.boxes.shown[0].text.find("Couldn't parse SQL") != std::string::npos);
}
