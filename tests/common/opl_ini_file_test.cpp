#include "common/opl_ini_file.h"

#include "common/helpers.h"
#include "runtime/text.h"
#include "support/fake_platform.h"

#include <doctest/doctest.h>

using namespace inin;

namespace {

/// A world with one profile file, and the class that reads it.
struct IniFixture {
    IniFixture() { world.files.putText(kPath, "[委任状]\n対象期間=2\n対象データ=ｱ値 \n文字=abc\n空=\n"); }
    const std::string kPath = "C:\\SUITE\\DATA\\印刷設定.ini";
    FakeWorld world;
    clsOplIniFile file{world.platform};
};

} // namespace

TEST_CASE("an empty file name gives -1 and its text without disk access")
{
    IniFixture ini;
    CHECK(ini.file.iInit("") == -1);
    CHECK(ini.file.csErrMsg == "Iniファイル名を指定してください。");
    CHECK(ini.world.files.log.empty());
}

TEST_CASE("an empty file name keeps the stored name")
{
    IniFixture ini;
    REQUIRE(ini.file.iInit(ini.kPath) == 0);
    CHECK(ini.file.iInit("") == -1);
    CHECK(ini.file.nGetProfileLong("委任状", "対象期間") == 2);
}

TEST_CASE("a missing file gives -1 and a text with its name, and is the file that is written")
{
    IniFixture ini;
    CHECK(ini.file.iInit("C:\\SUITE\\DATA\\新.ini") == -1);
    CHECK(ini.file.csErrMsg == "指定されたIni（C:\\SUITE\\DATA\\新.ini）ファイルが見つかりません。");
    CHECK(ini.file.iWriteProfileString("委任状", "受任者", "1") == 1);
    CHECK(fromCp932(ini.world.files.bytes("C:\\SUITE\\DATA\\新.ini")) == "[委任状]\r\n受任者=1\r\n");
}

TEST_CASE("an existing file gives 0 and keeps the text of an earlier failure")
{
    IniFixture ini;
    ini.file.csErrMsg = "前の失敗";
    CHECK(ini.file.iInit(ini.kPath) == 0);
    CHECK(ini.file.csErrMsg == "前の失敗");
}

TEST_CASE("a folder is not a profile file")
{
    IniFixture ini;
    CHECK(ini.file.iInit("C:\\SUITE\\DATA") == -1);
}

TEST_CASE("a number key gives its number, a text and a missing key give 0")
{
    IniFixture ini;
    REQUIRE(ini.file.iInit(ini.kPath) == 0);
    CHECK(ini.file.nGetProfileLong("委任状", "対象期間") == 2);
    CHECK(ini.file.nGetProfileLong("委任状", "文字") == 0);
    CHECK(ini.file.nGetProfileLong("委任状", "空") == 0);
    CHECK(ini.file.nGetProfileLong("委任状", "無") == 0);
    CHECK(ini.file.nGetProfileLong("無", "対象期間") == 0);
    CHECK(ini.file.csErrMsg == "");
}

TEST_CASE("a value is padded with NULs to 256 bytes of the code page")
{
    IniFixture ini;
    REQUIRE(ini.file.iInit(ini.kPath) == 0);
    // ｱ is one byte, 値 two; the platform call removed the blank after the value.
    CHECK(ini.file.csGetProfileString("委任状", "対象データ") == "ｱ値" + std::string(253, '\0'));
    CHECK(ini.file.csGetProfileString("委任状", "無") == std::string(256, '\0'));
    CHECK(csCutNul(ini.file.csGetProfileString("委任状", "対象データ")) == "ｱ値");
}

TEST_CASE("a value of 255 bytes is followed by one NUL and a longer one is truncated")
{
    IniFixture ini;
    REQUIRE(ini.file.iInit(ini.kPath) == 0);
    REQUIRE(ini.file.iWriteProfileString("s", "k", std::string(255, 'x')) == 1);
    CHECK(ini.file.csGetProfileString("s", "k") == std::string(255, 'x') + std::string(1, '\0'));
    REQUIRE(ini.file.iWriteProfileString("s", "k", std::string(254, 'x') + "値") == 1);
    CHECK(ini.file.csGetProfileString("s", "k") == std::string(254, 'x') + std::string(2, '\0'));
}

TEST_CASE("blanks inside quotes are kept between the value and its NULs")
{
    IniFixture ini;
    ini.world.files.putText(ini.kPath, "[s]\nk=\"a  \"\n");
    REQUIRE(ini.file.iInit(ini.kPath) == 0);
    CHECK(csCutNul(ini.file.csGetProfileString("s", "k")) == "a  ");
}

TEST_CASE("a file deleted after a successful start reads as empty")
{
    IniFixture ini;
    REQUIRE(ini.file.iInit(ini.kPath) == 0);
    ini.world.files.remove(ini.kPath);
    CHECK(ini.file.nGetProfileLong("委任状", "対象期間") == 0);
    CHECK(csCutNul(ini.file.csGetProfileString("委任状", "対象データ")) == "");
    CHECK(ini.file.csErrMsg == "");
}

TEST_CASE("a trapped error of a number read gives -1 and a text with one CR")
{
    IniFixture ini;
    REQUIRE(ini.file.iInit(ini.kPath) == 0);
    ini.world.profile.error = 7;
    CHECK(ini.file.nGetProfileLong("委任状", "対象期間") == -1);
    CHECK(ini.file.csErrMsg == "Iniファイルの読込に失敗しました。\rファイル名：C:\\SUITE\\DATA\\印刷設定.ini"
                               "セクション：委任状  キー    ：対象期間");
}

TEST_CASE("a trapped error of a text read gives the empty text and a text with one CR")
{
    IniFixture ini;
    REQUIRE(ini.file.iInit(ini.kPath) == 0);
    ini.world.profile.error = 7;
    CHECK(ini.file.csGetProfileString("委任状", "対象データ") == "");
    CHECK(ini.file.csErrMsg == "Iniファイルの読込に失敗しました。\rファイル名：C:\\SUITE\\DATA\\印刷設定.ini"
                               "セクション：委任状  キー    ：対象データ");
}

TEST_CASE("a new key is written to its section")
{
    IniFixture ini;
    ini.world.files.putText(ini.kPath, "[委任状]\n対象期間=2\n[他]\nx=1\n");
    REQUIRE(ini.file.iInit(ini.kPath) == 0);
    CHECK(ini.file.iWriteProfileString("委任状", "署名日", "1") == 1);
    CHECK(fromCp932(ini.world.files.bytes(ini.kPath)) == "[委任状]\r\n対象期間=2\r\n署名日=1\r\n[他]\r\nx=1\r\n");
}

TEST_CASE("an empty text is written as an empty value, not as a deletion")
{
    IniFixture ini;
    ini.world.files.putText(ini.kPath, "[s]\nk=1\n");
    REQUIRE(ini.file.iInit(ini.kPath) == 0);
    CHECK(ini.file.iWriteProfileString("s", "k", "") == 1);
    CHECK(fromCp932(ini.world.files.bytes(ini.kPath)) == "[s]\r\nk=\r\n");
}

TEST_CASE("a refused write gives 0 and keeps the text")
{
    IniFixture ini;
    REQUIRE(ini.file.iInit(ini.kPath) == 0);
    ini.file.csErrMsg = "前の失敗";
    ini.world.profile.refuseWrites = true;
    CHECK(ini.file.iWriteProfileString("委任状", "対象期間", "1") == 0);
    CHECK(ini.file.csErrMsg == "前の失敗");
}

TEST_CASE("a trapped error of a write gives -1 and its text")
{
    IniFixture ini;
    REQUIRE(ini.file.iInit(ini.kPath) == 0);
    ini.world.profile.error = 7;
    CHECK(ini.file.iWriteProfileString("委任状", "対象期間", "1") == -1);
    CHECK(ini.file.csErrMsg == "Iniファイルの書込に失敗しました。");
}
