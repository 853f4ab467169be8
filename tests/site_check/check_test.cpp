#include "adapters/native/native_platform.h"
#include "demo_site/scratch_site.h"
#include "site_check/site_check.h"
#include "suite_text/code_page_932.h"
#include "system/file_path.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::test;
namespace fs = std::filesystem;

namespace {

constexpr const char *kForms[] = {"委任状37_01.wfd", "委任状23.wfd", "委任状37_高松市.wfd"};

/// A machine with a code page without Japanese.
struct WesternLocale : Locale {
    Regional regional() override { return {}; }
    std::string toCodePage(std::string_view) override { return "????"; }
    std::string fromCodePage(std::string_view) override { return "?"; }
};

/// A demo site without irregularities: a check finds nothing.
struct SoundSite {
    TempFolder folder;
    SoundSite()
    {
        site::makeSite(path(), {150, 1, std::chrono::year{2024} / 5}, site::Overwrite::anyFolder);
        execute(database(), "UPDATE RIYOUSHA SET nDairiID = 11 WHERE nDairiID > 9000");
    }
    [[nodiscard]] const fs::path &path() const { return folder.folder(); }
    [[nodiscard]] fs::path database() const { return path() / "demo.db"; }
    /// Replaces a part of a settings file.
    void change(const char *file, const std::string &from, const std::string &to) const
    {
        std::string text = decodeCp932(bytesOf(path() / file));
        const std::size_t place = text.find(from);
        REQUIRE(place != std::string::npos);
        writeBytes(path() / file, encodeCp932(text.replace(place, from.size(), to)));
    }
    [[nodiscard]] site::Findings check() const { return site::checkSite(path()); }
};

struct SettingFault {
    const char *file;
    const char *from;
    const char *to;
    site::Findings findings;
};

const SettingFault kSettingFaults[] = {
    {"Massage.ini", "SYSTEM_DATA=", "system_data=", {"Massage.ini に項目「SYSTEM_DATA」がありません。"}},
    {"Massage.ini", "\\DATA", "\\DAT", {"Massage.ini の項目「SYSTEM_DATA」のフォルダー「\\DAT」がありません。"}},
    {"Massage.ini", "\\DATA", "DATA", {"Massage.ini の項目「SYSTEM_DATA」の値「DATA」が「\\」で始まっていません。"}},
    {"Massage.ini",
     "SYSTEM_TMP=\\TMP",
     "SYSTEM_TMP=\\DATA",
     {"Massage.ini の項目「SYSTEM_TMP」が「\\DATA」なので、プレビューできません（「\\TMP」にしてください）。"}},
    {"Massage.ini", "wall.bmp", "wand.bmp", {"Massage.ini の項目「WALLPAPER」の画像「wand.bmp」がありません。"}},
    {"Massage.ini", "WALLPAPER=", "PICTURE=", {"Massage.ini に項目「WALLPAPER」がありません。"}},
    {"Massage.ini",
     "BASEID=0101",
     "BASEID=011",
     {"Massage.ini の項目「BASEID」の値「011」が4桁の数字ではありません。"}},
    {"Massage.ini",
     "BASEID=0101",
     "BASEID=01A1",
     {"Massage.ini の項目「BASEID」の値「01A1」が4桁の数字ではありません。"}},
    {"Massage.ini", "BASEID", "BASE", {"Massage.ini に項目「BASEID」がありません。"}},
    {"Massage.ini", "期間=3", "期間=三", {"Massage.ini の項目「終了患者施術期間」の値「三」が月数ではありません。"}},
    {"Massage.ini",
     "BASEID=0101",
     "BASEID=0103",
     {"この拠点に本社の会社（CORP）がありません。", "この拠点に団体請求の会社（CORP）がありません。",
      "この拠点に施術者（STAFF）がいないので、画面が開きません。"}},
    {"adodb.ini", "[接続情報]", "[接続]", {"adodb.ini に接続文字列（セクションも項目も「接続情報」）がありません。"}},
    {"adodb.ini",
     "Provider=SQLite;Data Source=demo.db",
     "",
     {"adodb.ini に接続文字列（セクションも項目も「接続情報」）がありません。"}},
};

struct RowFault {
    const char *sql;
    site::Findings findings;
};

const RowFault kRowFaults[] = {
    {"DELETE FROM CORP WHERE iType = 0", {"この拠点に本社の会社（CORP）がありません。"}},
    {"UPDATE CORP SET iType = 0 WHERE nIDNo = 12", {"この拠点に本社の会社（CORP）が2件あり、委任状が重複します。"}},
    {"DELETE FROM CORP WHERE iType = 3", {"この拠点に団体請求の会社（CORP）がありません。"}},
    {"UPDATE CORP SET iType = 3 WHERE nIDNo IN (12, 13)",
     {"この拠点に団体請求の会社（CORP）が3件あり、委任状が重複します。"}},
    {"UPDATE RIYOUSHA SET nDairiID = 77 WHERE nIDNo IN (5, 6)",
     {"代理人（nDairiID）が会社（CORP）にない利用者が2人います。"}},
    {"DELETE FROM STAFF", {"この拠点に施術者（STAFF）がいないので、画面が開きません。"}},
    {"UPDATE STAFF SET iChusiFlg = 1", {"この拠点に施術者（STAFF）がいないので、画面が開きません。"}},
    {"ALTER TABLE RIYOUSHA DROP COLUMN cFMCode", {"テーブル「RIYOUSHA」に列「cFMCode」がありません。"}},
    {"DROP TABLE JISSEKI", {"テーブル「JISSEKI」がありません。"}},
    {"DROP TABLE 往療費区分", {"テーブル「往療費区分」がありません。"}},
};

} // namespace

TEST_CASE("a sound site has no findings")
{
    CHECK(SoundSite{}.check() == site::Findings{});
}

TEST_CASE("a new demo site has only missing agents as findings")
{
    CHECK(site::checkSite(sharedSite()) == site::Findings{"代理人（nDairiID）が会社（CORP）にない利用者が6人います。"});
}

TEST_CASE("each missing form document is found")
{
    const SoundSite site;
    for (const char *form : kForms) fs::remove(site.path() / "SYS" / pathOf(form));

    CHECK(site.check() == site::Findings{"帳票「委任状37_01.wfd」がフォルダー「\\SYS」にありません。",
                                         "帳票「委任状23.wfd」がフォルダー「\\SYS」にありません。",
                                         "帳票「委任状37_高松市.wfd」がフォルダー「\\SYS」にありません。"});
}

TEST_CASE("a machine that reads settings in another code page is found, one with 932 is not")
{
    WesternLocale western;
    site::Findings findings;
    site::checkCodePage(western, findings);
    CHECK(findings ==
          site::Findings{"このコンピューターの「Unicode 対応ではないプログラムの言語」が日本語ではないので、"
                         "設定ファイルの日本語の項目を読めません。"});

    site::Findings none;
    site::checkCodePage(*makeSystemLocale(), none);
    CHECK(none.empty());
}

TEST_CASE("a short date that begins with a four-digit year is accepted")
{
    for (const char *form :
         {"yyyy/MM/dd", "yyyy/M/d", "yyyy/MM/d", "yyyy/M/dd", "yyyy-MM-dd", "yyyy-M-d", "yyyy-MM-d", "yyyy-M-dd"}) {
        CAPTURE(form);
        site::Findings findings;
        site::checkShortDate(Regional{form}, findings);
        CHECK(findings.empty());
    }
}

TEST_CASE("a short date with an era, with the day in front or with a two-digit year is found")
{
    for (const std::string form : {"gg yy/MM/dd", "d/M/yy", "M/d/yyyy", "yy/MM/dd", "yyyy'年'M'月'd'日'", ""}) {
        CAPTURE(form);
        site::Findings findings;
        site::checkShortDate(Regional{form}, findings);
        CHECK(findings ==
              site::Findings{"このコンピューターの短い日付の形式が「" + form +
                             "」なので、データベースが日付を正しく読めません（「yyyy/MM/dd」にしてください）。"});
    }
}

TEST_CASE("each fault of the settings is found and nothing else")
{
    for (const SettingFault &fault : kSettingFaults) {
        CAPTURE(fault.to);
        const SoundSite site;
        site.change(fault.file, fault.from, fault.to);
        CHECK(site.check() == fault.findings);
    }
}

TEST_CASE("a wallpaper that is not a picture is found, because the program does not start with it")
{
    const SoundSite site;
    writeBytes(site.path() / "ICON" / "wall.bmp", "no picture");
    CHECK(site.check() ==
          site::Findings{"Massage.ini の項目「WALLPAPER」の「wall.bmp」が画像ではないので、起動できません。"});
}

TEST_CASE("a wallpaper that cannot be painted is found with its remedy, because the window stays empty")
{
    using namespace std::string_literals;
    for (const std::string &bytes : {"BMx"s, "\xD7\xCD\xC6\x9A"s + std::string(60, '\0')}) {
        const SoundSite site;
        writeBytes(site.path() / "ICON" / "wall.bmp", bytes);
        CHECK(site.check() ==
              site::Findings{"Massage.ini の項目「WALLPAPER」の「wall.bmp」は表示できない形式か壊れた画像な"
                             "ので、背景が無地になります（BMP、PNG、JPEG のどれかで保存し直してください"
                             "）。"});
    }
}

TEST_CASE("each fault of the rows, columns and tables is found and nothing else")
{
    for (const RowFault &fault : kRowFaults) {
        CAPTURE(fault.sql);
        const SoundSite site;
        execute(site.database(), fault.sql);
        CHECK(site.check() == fault.findings);
    }
}

TEST_CASE("a value that would add or break letters is found by table, column and number")
{
    const std::string end = "があり、委任状が増えるか崩れます。";
    const SoundSite site;
    execute(site.database(), "UPDATE RIYOUSHA SET cAdress1 = 'a' || char(13) || char(10) || 'b' WHERE nIDNo = 5");
    execute(site.database(), "UPDATE RIYOUSHA SET cSetaiName = 'a\",\"b' WHERE nIDNo = 6");
    execute(site.database(), "UPDATE CORP SET cKozaMeigi1 = ',\"b' WHERE nIDNo = 11");
    execute(site.database(), "UPDATE CORP SET cDaihyo = 'a\",' WHERE nIDNo = 12");
    const std::string insurer = query(site.database(), "SELECT min(cIDno) FROM HOKENJA").at(0);
    execute(site.database(), "UPDATE HOKENJA SET cSubAddress = 'a' || char(10) WHERE cIDno = '" + insurer + "'");
    const site::Findings wanted{
        "テーブル「RIYOUSHA」の列「cAdress1」の値（nIDNo = 5）に改行" + end,
        "テーブル「RIYOUSHA」の列「cSetaiName」の値（nIDNo = 6）に列の区切り（\",\"）" + end,
        "テーブル「CORP」の列「cKozaMeigi1」の値（nIDNo = 11）に列の区切り（\",\"）" + end,
        "テーブル「CORP」の列「cDaihyo」の値（nIDNo = 12）に列の区切り（\",\"）" + end,
        "テーブル「HOKENJA」の列「cSubAddress」の値（cIDno = " + insurer + "）に改行" + end,
    };
    CHECK(site.check() == wanted);
}

TEST_CASE("a quote or comma that does not break a letter is not a finding, nor is a value outside the letters")
{
    const SoundSite site;
    execute(site.database(), "UPDATE RIYOUSHA SET cName = 'a\"b, \"c\"' WHERE nIDNo = 5");
    execute(site.database(), "UPDATE RIYOUSHA SET cAdress1 = ',', cSetaiName = '\"' WHERE nIDNo = 6");
    execute(site.database(), "UPDATE RIYOUSHA SET cAdress2 = 'a' || char(13) || char(10) || 'b' WHERE nIDNo = 7");
    execute(site.database(), "UPDATE CORP SET cDaihyo = 'a\",\"b' WHERE iKyotenEb = 2");
    CHECK(site.check().empty());
}

TEST_CASE("of many values that would break letters fifty are named and the others counted")
{
    const SoundSite site;
    execute(site.database(), "UPDATE RIYOUSHA SET cName = char(10) WHERE nIDNo <= 70 AND iKyotenEb = 1");
    const site::Findings findings = site.check();
    REQUIRE(findings.size() == 51);
    CHECK(findings.back() == "テーブル「RIYOUSHA」に、委任状が増えるか崩れる値がほかに20件あります。");
}

TEST_CASE("a patient without an agent is not a finding")
{
    const SoundSite site;
    execute(site.database(), "UPDATE RIYOUSHA SET nDairiID = NULL WHERE nIDNo = 5");
    execute(site.database(), "UPDATE RIYOUSHA SET nDairiID = 0 WHERE nIDNo = 6");
    CHECK(site.check().empty());
}

TEST_CASE("a missing settings file and a missing connection file are findings")
{
    const SoundSite site;
    fs::remove(site.path() / "Massage.ini");
    fs::remove(site.path() / "adodb.ini");
    CHECK(site.check() == site::Findings{"システム設定ファイル「Massage.ini」がありません。",
                                         "接続情報ファイル「adodb.ini」がありません。"});
}

TEST_CASE("a missing folder is the only finding")
{
    CHECK(site::checkSite("/no/such/site") == site::Findings{"フォルダー「/no/such/site」がありません。"});
}

TEST_CASE("a database that cannot be opened is reported with the provider's text")
{
    const SoundSite site;
    fs::remove(site.database());
    const site::Findings findings = site.check();
    REQUIRE(findings.size() == 1);
    CHECK(findings[0].starts_with("データベースに接続できません。（"));
    CHECK_FALSE(fs::exists(site.database()));
}

TEST_CASE("a damaged database is found, and its tables are not checked")
{
    const site::Findings damaged{"データベースのファイルが壊れています。控えのファイルに戻してください。"};
    SUBCASE("an index that does not match the rows of its table")
    {
        const SoundSite site;
        execute(site.database(), "PRAGMA writable_schema = ON; UPDATE sqlite_schema SET sql ="
                                 " 'CREATE INDEX CORP_TYPE ON CORP (iKyotenCd, iKyotenEb, nIDNo)'"
                                 " WHERE name = 'CORP_TYPE'; DELETE FROM STAFF");
        CHECK(site.check() == damaged);
    }
    SUBCASE("a page of zeros")
    {
        const SoundSite site;
        constexpr std::size_t kPage = 4096;
        std::string bytes = bytesOf(site.database());
        bytes.replace(bytes.size() - kPage, kPage, kPage, '\0');
        writeBytes(site.database(), bytes);
        CHECK(site.check() == damaged);
    }
}

TEST_CASE("a connection string that the suite's buffer would truncate is found")
{
    const SoundSite site;
    site.change("adodb.ini", "demo.db", "demo.db;Application Name=" + std::string(240, 'x'));
    CHECK(site.check() == site::Findings{"adodb.ini の接続文字列が255バイトを超えています。"});
}

TEST_CASE("an entry of 帳票Format.ini replaces the three form documents")
{
    const SoundSite site;
    for (const char *form : kForms) fs::remove(site.path() / "SYS" / pathOf(form));
    writeBytes(site.path() / "DATA" / inin::pathOf("帳票Format.ini"),
               encodeCp932("[委任状]\r\n委任状=別の帳票.wfd\r\n"));
    CHECK(site.check() == site::Findings{"帳票「別の帳票.wfd」がフォルダー「\\SYS」にありません。"});

    writeBytes(site.path() / "SYS" / inin::pathOf("別の帳票.wfd"), "form");
    CHECK(site.check().empty());
}

TEST_CASE("a settings file that is a folder or too large is reported as unreadable")
{
    const auto unreadable = [](const std::string &name) {
        return "「" + name + "」を設定ファイルとして読み込めません（16 MB を超えるか、ファイルではありません）。";
    };
    const SoundSite site;
    fs::resize_file(site.path() / "adodb.ini", (std::uintmax_t{16} << 20) + 1);
    CHECK(site.check() == site::Findings{unreadable("adodb.ini")});
    fs::remove(site.path() / "Massage.ini");
    fs::create_directory(site.path() / "Massage.ini");
    CHECK(site.check() == site::Findings{unreadable("Massage.ini"), unreadable("adodb.ini")});
}

TEST_CASE("names of files and folders are found in any case")
{
    const SoundSite site;
    fs::rename(site.path() / "Massage.ini", site.path() / "MASSAGE.INI");
    fs::rename(site.path() / "SYS", site.path() / "Sys");
    CHECK(site.check().empty());
}
