#include "site_check/sound_site.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::test;
namespace fs = std::filesystem;

namespace {

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

} // namespace

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

TEST_CASE("a missing settings file and a missing connection file are findings")
{
    const SoundSite site;
    fs::remove(site.path() / "Massage.ini");
    fs::remove(site.path() / "adodb.ini");
    CHECK(site.check() == Sentences{"システム設定ファイル「Massage.ini」がありません。",
                                    "接続情報ファイル「adodb.ini」がありません。"});
}

TEST_CASE("a connection string that the suite's buffer would truncate is found")
{
    const SoundSite site;
    site.change("adodb.ini", "demo.db", "demo.db;Application Name=" + std::string(240, 'x'));
    CHECK(site.check() == Sentences{"adodb.ini の接続文字列が255バイトを超えています。"});
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
