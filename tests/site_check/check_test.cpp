#include "adapters/native/native_platform.h"
#include "demo_site/scratch_site.h"
#include "site_check/site_check.h"
#include "suite_text/code_page_932.h"
#include "system/file_path.h"

#ifndef _WIN32
#include "adapters/posix/ordinary_user.h"
#include "adapters/posix/small_disk.h"
#endif

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

using Sentences = std::vector<std::string>;

Sentences sentencesOf(const site::Findings &findings)
{
    Sentences sentences;
    for (const site::Finding &finding : findings) sentences.push_back(finding.sentence);
    return sentences;
}

/// A demo site without irregularities that has been printed once: a check finds nothing.
struct SoundSite {
    TempFolder folder;
    SoundSite()
    {
        site::makeSite(path(), {150, 1, std::chrono::year{2024} / 5}, site::Overwrite::anyFolder);
        execute(database(), "UPDATE RIYOUSHA SET nDairiID = 11 WHERE nDairiID > 9000");
        writeBytes(path() / "DATA" / inin::pathOf("印刷設定.ini"), encodeCp932("[委任状]\r\n対象期間=1\r\n"));
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
    [[nodiscard]] site::Findings findings() const { return site::checkSite(path()); }
    [[nodiscard]] Sentences check() const { return sentencesOf(findings()); }
};

struct SettingFault {
    const char *file;
    const char *from;
    const char *to;
    Sentences findings;
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
    Sentences findings;
};

const RowFault kRowFaults[] = {
    {"DELETE FROM CORP WHERE iType = 0", {"この拠点に本社の会社（CORP）がありません。"}},
    {"UPDATE CORP SET iType = 0 WHERE nIDNo = 12", {"この拠点に本社の会社（CORP）が2件あり、委任状が重複します。"}},
    {"DELETE FROM CORP WHERE iType = 3", {"この拠点に団体請求の会社（CORP）がありません。"}},
    {"UPDATE CORP SET iType = 3 WHERE nIDNo IN (12, 13)",
     {"この拠点に団体請求の会社（CORP）が3件あり、委任状が重複します。"}},
    {"DELETE FROM STAFF", {"この拠点に施術者（STAFF）がいないので、画面が開きません。"}},
    {"UPDATE STAFF SET iChusiFlg = 1", {"この拠点に施術者（STAFF）がいないので、画面が開きません。"}},
    {"ALTER TABLE RIYOUSHA DROP COLUMN cFMCode", {"テーブル「RIYOUSHA」に列「cFMCode」がありません。"}},
    {"DROP TABLE JISSEKI", {"テーブル「JISSEKI」がありません。"}},
    {"DROP TABLE 往療費区分", {"テーブル「往療費区分」がありません。"}},
};

} // namespace

TEST_CASE("a sound site has no findings")
{
    CHECK(SoundSite{}.check().empty());
}

TEST_CASE("a new demo site has only findings that do not count: its stored conditions and its agents on purpose")
{
    const site::Findings findings = site::checkSite(sharedSite());
    REQUIRE(findings.size() == 2);
    CHECK(findings[0].kind == site::FindingKind::noPrintSettings);
    CHECK(findings[1].kind == site::FindingKind::demoMissingAgent);
    CHECK(findings[1].sentence.starts_with("代理人（nDairiID）が会社（CORP）にない利用者が6人います（21 "));
    CHECK(site::countOf(findings, site::Severity::notice) == 2);
}

TEST_CASE("patients whose agent is missing are named, at most fifty, with the remedy")
{
    const SoundSite site;
    const auto nameOf = [&site](int number) {
        return query(site.database(),
                     "SELECT cName FROM RIYOUSHA WHERE iKyotenEb = 1 AND nIDNo = " + std::to_string(number))
            .at(0);
    };
    execute(site.database(), "UPDATE RIYOUSHA SET nDairiID = 77 WHERE nIDNo IN (5, 6) AND iKyotenEb = 1");
    CHECK(site.check() ==
          Sentences{"代理人（nDairiID）が会社（CORP）にない利用者が2人います（5 " + nameOf(5) + "、6 " + nameOf(6) +
                    "）。代理人あての委任状の会社と口座が空になるので、利用者の代理人を選び直すか、その番号"
                    "の会社を登録してください。"});
    CHECK(site::countOf(site.findings(), site::Severity::fault) == 1);

    execute(site.database(), "UPDATE RIYOUSHA SET nDairiID = 77 WHERE nIDNo <= 70 AND iKyotenEb = 1");
    execute(site.database(), "UPDATE RIYOUSHA SET nDairiID = 11 WHERE nIDNo % 50 = 21");
    const Sentences many = site.check();
    REQUIRE(many.size() == 1);
    CHECK(many[0].find("利用者が69人います（1 ") != std::string::npos);
    CHECK(many[0].find("、ほか19人）。") != std::string::npos);
}

TEST_CASE("an agent of a demo patient that is missing on purpose is a fault on a site without the mark of the demo")
{
    const SoundSite site;
    execute(site.database(), "UPDATE RIYOUSHA SET nDairiID = 9021 WHERE nIDNo = 21 AND iKyotenEb = 1");
    REQUIRE(site.findings().size() == 1);
    CHECK(site.findings()[0].kind == site::FindingKind::demoMissingAgent);
    fs::remove(site.path() / ".inin-site");
    REQUIRE(site.findings().size() == 1);
    CHECK(site.findings()[0].kind == site::FindingKind::missingAgent);
}

TEST_CASE("missing stored conditions are a notice that names the options to choose")
{
    const SoundSite site;
    fs::remove(site.path() / "DATA" / inin::pathOf("印刷設定.ini"));
    const site::Findings findings = site.findings();
    REQUIRE(findings.size() == 1);
    CHECK(findings[0].kind == site::FindingKind::noPrintSettings);
    for (const char *option : {"委任状（標準）", "本社情報を出力", "対象月", "月初～月末を設定"})
        CHECK(findings[0].sentence.find(option) != std::string::npos);
}

TEST_CASE("a missing menu or form tool is found with what the operator sees")
{
    const SoundSite site;
    for (const char *name : {"Main.exe", "wfrfv10.exe", "WrVb6Viewer.exe"}) fs::remove(site.path() / name);
    CHECK(site.check() ==
          Sentences{"プログラム「Main.exe」がないので、終わるときにメニューに戻れません。",
                    "プログラム「wfrfv10.exe」がないので、「印刷」を押しても何も起こりません。",
                    "プログラム「WrVb6Viewer.exe」がないので、「ﾌﾟﾚﾋﾞｭｰ」を押しても何も起こりません。"});
    CHECK(site::countOf(site.findings(), site::Severity::fault) == 3);
}

TEST_CASE("a form tool that only merges forms is a notice when it is missing, because the screen never starts it")
{
    const SoundSite site;
    fs::remove(site.path() / "wfrimg10.exe");
    CHECK(site.check() == Sentences{"プログラム「wfrimg10.exe」がないので、帳票を結合できません。"});
    CHECK(site::countOf(site.findings(), site::Severity::notice) == 1);
}

TEST_CASE("a form tool that cannot be executed is found")
{
    const SoundSite site;
    fs::remove(site.path() / "wfrfv10.exe");
    writeBytes(site.path() / "wfrfv10.exe", "no program");
    CHECK(site.check() ==
          Sentences{"プログラム「wfrfv10.exe」を実行できないので、「印刷」を押しても何も起こりません。"});
}

TEST_CASE("a form document that is damaged, or that names a column without a value, is found by its name")
{
    const SoundSite site;
    const fs::path form = site.path() / "SYS" / inin::pathOf("委任状23.wfd");
    const std::string text = bytesOf(form);
    writeBytes(form, text.substr(0, text.size() / 2));
    REQUIRE(site.findings().size() == 1);
    CHECK(site.findings()[0].kind == site::FindingKind::unreadableForm);
    CHECK(site.check()[0].starts_with("帳票「委任状23.wfd」を読み込めません。（"));

    writeBytes(
        form,
        R"(<svg xmlns="http://www.w3.org/2000/svg" width="210" height="297"><text>{{利用者氏名}}{{電話}}{{対象開始日|yyyy}}</text></svg>)");
    CHECK(site.check() == Sentences{"帳票「委任状23.wfd」の列「電話」は委任状にないので、開けません。"});

    writeBytes(form, "");
    REQUIRE(site.findings().size() == 1);
    CHECK(site.findings()[0].kind == site::FindingKind::unreadableForm);
}

TEST_CASE("a form document of another form tool is a notice")
{
    const SoundSite site;
    writeBytes(site.path() / "SYS" / inin::pathOf("委任状23.wfd"), std::string("WFD\0\x01", 5));
    CHECK(site.check() == Sentences{"帳票「委任状23.wfd」は SVG ではありません。formviewer では一覧になります。"});
    CHECK(site::countOf(site.findings(), site::Severity::notice) == 1);
}

TEST_CASE("a settings file in another code page is named as such and not as a missing entry")
{
    const auto otherCodePage = [](const std::string &name) {
        return "「" + name +
               "」の文字コードが CP932（Shift_JIS）ではないので、日本語の項目を読めません（文字コードに「ANSI」か"
               "「Shift_JIS」を選んで保存し直してください）。";
    };
    const SoundSite site;
    for (const std::string name : {"Massage.ini", "adodb.ini"}) {
        const std::string before = bytesOf(site.path() / name);
        const std::string text = decodeCp932(before);
        std::string utf16;
        for (const char character : text.substr(0, text.find("終"))) utf16 += {character, '\0'};
        for (const std::string &bytes : {text, utf16, "\x81\x01" + before}) {
            writeBytes(site.path() / name, bytes);
            CHECK(site.check() == Sentences{otherCodePage(name)});
        }
        writeBytes(site.path() / name, before);
    }
}

TEST_CASE("a connection file with the mark of UTF-8 is read, as the program reads it; the system's settings are not")
{
    const SoundSite site;
    const auto mark = [&site](const char *name) {
        writeBytes(site.path() / name, "\xEF\xBB\xBF" + decodeCp932(bytesOf(site.path() / name)));
    };
    mark("adodb.ini");
    CHECK(site.check().empty());
    mark("Massage.ini");
    REQUIRE(site.findings().size() == 1);
    CHECK(site.findings()[0].kind == site::FindingKind::notCodePage932);
}

TEST_CASE("settings of ASCII and of half-width katakana are in the code page")
{
    const SoundSite site;
    site.change("Massage.ini", "WALLPAPER=", "ﾂｱ=ﾂｱ\r\nWALLPAPER=");
    CHECK(site.check().empty());
}

TEST_CASE("every kind of finding has a number of its own, in ascending order, and a title")
{
    int last = 100;
    for (const site::FindingText &text : site::findingTexts()) {
        CHECK(static_cast<int>(text.kind) > last);
        CHECK_FALSE(text.title.empty());
        last = static_cast<int>(text.kind);
    }
    CHECK(last == 603);
}

TEST_CASE("the installer's guide lists the kinds of findings with their numbers and titles")
{
    std::string table;
    for (const site::FindingText &text : site::findingTexts())
        table += "| " + std::to_string(static_cast<int>(text.kind)) + " | " + std::string(text.title) + " |";
    const std::string guide = bytesOf(inin::pathOf(ININ_SITE "/../docs/installer.md"));
    std::string listed;
    for (std::size_t at = guide.find("\n| 101 |"); at != guide.npos && guide[at + 1] == '|';
         at = guide.find('\n', at + 1)) {
        const std::size_t end = guide.find(" |", guide.find(" | ", at) + 3);
        listed += guide.substr(at + 1, end + 2 - (at + 1));
    }
    CHECK(listed == table);
}

TEST_CASE("a finding is shown with its number, and a notice with its mark")
{
    CHECK(site::lineOf({site::FindingKind::missingTable, "HOKEN", "テーブル「HOKEN」がありません。"}) ==
          "[405] テーブル「HOKEN」がありません。");
    CHECK(site::lineOf({site::FindingKind::noPrintSettings, "", "まだありません。"}) ==
          "[115] （参考）まだありません。");
}

TEST_CASE("the JSON of a check has numbers, severities and the sentences, or no sentence for support")
{
    const site::Findings findings{{site::FindingKind::missingAgent, "RIYOUSHA.nDairiID", "山田さん"}};
    const std::string everything = site::jsonOf(findings, site::Details::everything);
    CHECK(everything.find("\"number\": 505") != std::string::npos);
    CHECK(everything.find("\"severity\": \"fault\"") != std::string::npos);
    CHECK(everything.find("山田さん") != std::string::npos);
    CHECK(everything.find("\"faults\": 1") != std::string::npos);
    const std::string forSupport = site::jsonOf(findings, site::Details::withoutSentences);
    CHECK(forSupport.find("\"number\": 505") != std::string::npos);
    CHECK(forSupport.find("山田さん") == std::string::npos);
}

TEST_CASE("each missing form document is found")
{
    const SoundSite site;
    for (const char *form : kForms) fs::remove(site.path() / "SYS" / pathOf(form));

    CHECK(site.check() == Sentences{"帳票「委任状37_01.wfd」がフォルダー「\\SYS」にありません。",
                                    "帳票「委任状23.wfd」がフォルダー「\\SYS」にありません。",
                                    "帳票「委任状37_高松市.wfd」がフォルダー「\\SYS」にありません。"});
}

#ifndef _WIN32

TEST_CASE("TMP and DATA are found if a file cannot be created there; the other folders need not be writable")
{
    const SoundSite site;
    for (const char *name : {"TMP", "DATA", "SYS", "ICON"})
        fs::permissions(site.path() / name, fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read |
                                                fs::perms::others_exec);
    fs::permissions(site.path(), fs::perms::all);
    fs::permissions(site.path() / "adodb.ini", fs::perms::all);
    fs::permissions(site.database(), fs::perms::all);
    const std::string found = asOrdinaryUser([&site] {
        std::string lines;
        for (const std::string &sentence : site.check()) lines += sentence + "\n";
        return lines;
    });
    CHECK(found == "Massage.ini の項目「SYSTEM_TMP」のフォルダー「\\TMP」に書き込めません（パス名が無効です。）。"
                   "使う人の書き込みと削除の権限と、ディスクの空きを確かめてください。\n"
                   "Massage.ini の項目「SYSTEM_DATA」のフォルダー「\\DATA」に書き込めません（パス名が無効です。）。"
                   "使う人の書き込みと削除の権限と、ディスクの空きを確かめてください。\n");
}

TEST_CASE("a folder on a full disk is found, and the test leaves no file there")
{
    const SoundSite site;
    const SmallDisk disk((site.path() / "TMP").string());
    if (!disk.isThere()) {
        MESSAGE("not checked: only root may mount a small disk");
        return;
    }
    CHECK(site.check().empty());
    CHECK(fs::is_empty(site.path() / "TMP"));
    disk.fill();
    CHECK(site.check() == Sentences{"Massage.ini の項目「SYSTEM_TMP」のフォルダー「\\TMP」に書き込めません（"
                                    "ディスクの空き容量が不足しています。）。使う人の書き込みと削除の権限と、"
                                    "ディスクの空きを確かめてください。"});
    fs::remove(site.path() / "TMP" / "ballast");
    CHECK(fs::is_empty(site.path() / "TMP"));
}

#endif

TEST_CASE("the user's copies of the site's files in the VirtualStore are named")
{
    const TempFolder local;
    const SoundSite site;
    const fs::path store = local.folder() / "VirtualStore" / site.path().relative_path();
    const auto check = [&] {
        site::Findings findings;
        site::checkVirtualStore(site.path(), textOf(local.folder()), findings);
        return findings;
    };
    CHECK(check().empty());
    fs::create_directories(store / "TMP");
    writeBytes(local.folder() / "VirtualStore" / "Massage.ini", "of another site");
    CHECK(check().empty());

    writeBytes(store / "TMP" / "WfdCom.dat", "old letters");
    writeBytes(store / "Massage.ini", "BASEID=0102");
    REQUIRE(check().size() == 1);
    CHECK(check()[0].kind == site::FindingKind::virtualStoreCopies);
    const fs::path command = fs::path("TMP") / "WfdCom.dat";
    CHECK(check()[0].sentence.starts_with("サイトのファイルが、この利用者だけのフォルダー「" + textOf(store) +
                                          "」にもあります（Massage.ini、" + textOf(command) + "）。"));

    for (int i = 10; i < 30; ++i) writeBytes(store / ("a" + std::to_string(i)), "");
    CHECK(check()[0].sentence.find("a27、ほか2個）。") != std::string::npos);
}

TEST_CASE("a computer without a VirtualStore has no copies there")
{
    const SoundSite site;
    site::Findings findings;
    site::checkVirtualStore(site.path(), "", findings);
    CHECK(findings.empty());
}

TEST_CASE("a machine that reads settings in another code page is found, one with 932 is not")
{
    WesternLocale western;
    site::Findings findings;
    site::checkCodePage(western, findings);
    CHECK(sentencesOf(findings) ==
          Sentences{"このコンピューターの「Unicode 対応ではないプログラムの言語」が日本語ではないので、"
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
        CHECK(sentencesOf(findings) ==
              Sentences{"このコンピューターの短い日付の形式が「" + form +
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
          Sentences{"Massage.ini の項目「WALLPAPER」の「wall.bmp」が画像ではないので、起動できません。"});
}

TEST_CASE("a wallpaper that cannot be painted is found with its remedy, because the window stays empty")
{
    using namespace std::string_literals;
    for (const std::string &bytes : {"BMx"s, "\xD7\xCD\xC6\x9A"s + std::string(60, '\0')}) {
        const SoundSite site;
        writeBytes(site.path() / "ICON" / "wall.bmp", bytes);
        CHECK(site.check() == Sentences{"Massage.ini の項目「WALLPAPER」の「wall.bmp」は表示できない形式か壊れた画像な"
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
    const Sentences wanted{
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
    const Sentences findings = site.check();
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
    CHECK(site.check() == Sentences{"システム設定ファイル「Massage.ini」がありません。",
                                    "接続情報ファイル「adodb.ini」がありません。"});
}

TEST_CASE("a missing folder is the only finding")
{
    const site::Findings findings = site::checkSite("/no/such/site");
    CHECK(sentencesOf(findings) == Sentences{"フォルダー「/no/such/site」がありません。"});
    CHECK(site::countOf(findings, site::Severity::unchecked) == 1);
}

TEST_CASE("a database that cannot be opened is reported with the provider's text")
{
    const SoundSite site;
    fs::remove(site.database());
    const Sentences findings = site.check();
    REQUIRE(findings.size() == 1);
    CHECK(findings[0].starts_with("データベースに接続できません。（"));
    CHECK_FALSE(fs::exists(site.database()));
}

TEST_CASE("a damaged database is found, and its tables are not checked")
{
    const Sentences damaged{"データベースのファイルが壊れています。控えのファイルに戻してください。"};
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
    CHECK(site.check() == Sentences{"adodb.ini の接続文字列が255バイトを超えています。"});
}

TEST_CASE("an entry of 帳票Format.ini replaces the three form documents")
{
    const SoundSite site;
    for (const char *form : kForms) fs::remove(site.path() / "SYS" / pathOf(form));
    writeBytes(site.path() / "DATA" / inin::pathOf("帳票Format.ini"),
               encodeCp932("[委任状]\r\n委任状=別の帳票.wfd\r\n"));
    CHECK(site.check() == Sentences{"帳票「別の帳票.wfd」がフォルダー「\\SYS」にありません。"});

    writeBytes(site.path() / "SYS" / inin::pathOf("別の帳票.wfd"),
               "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"210\" height=\"297\"/>");
    CHECK(site.check().empty());
}

TEST_CASE("a settings file that is a folder or too large is reported as unreadable")
{
    const auto unreadable = [](const std::string &name) {
        return "「" + name + "」を設定ファイルとして読み込めません（16 MB を超えるか、ファイルではありません）。";
    };
    const SoundSite site;
    fs::resize_file(site.path() / "adodb.ini", (std::uintmax_t{16} << 20) + 1);
    CHECK(site.check() == Sentences{unreadable("adodb.ini")});
    fs::remove(site.path() / "Massage.ini");
    fs::create_directory(site.path() / "Massage.ini");
    CHECK(site.check() == Sentences{unreadable("Massage.ini"), unreadable("adodb.ini")});
}

TEST_CASE("names of files and folders are found in any case")
{
    const SoundSite site;
    fs::rename(site.path() / "Massage.ini", site.path() / "MASSAGE.INI");
    fs::rename(site.path() / "SYS", site.path() / "Sys");
    CHECK(site.check().empty());
}
