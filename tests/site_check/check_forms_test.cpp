#include "site_check/sound_site.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::test;
namespace fs = std::filesystem;

namespace {

constexpr const char *kForms[] = {"委任状37_01.wfd", "委任状23.wfd", "委任状37_高松市.wfd"};

} // namespace

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

TEST_CASE("a damaged cover form, or one with a column that covers lack, is found, and a missing one is not")
{
    const SoundSite site;
    const fs::path cover = site.path() / "SYS" / inin::pathOf("束の表紙.wfd");
    REQUIRE(fs::exists(cover));
    writeBytes(cover, bytesOf(cover).substr(0, 300));
    REQUIRE(site.findings().size() == 1);
    CHECK(site.check()[0].starts_with("帳票「束の表紙.wfd」を読み込めません。（"));

    writeBytes(
        cover,
        R"(<svg xmlns="http://www.w3.org/2000/svg" width="210" height="297"><text>{{通数}}{{番号1}}{{氏名1}}{{利用者氏名}}</text></svg>)");
    CHECK(site.check() == Sentences{"帳票「束の表紙.wfd」の列「利用者氏名」は表紙にないので、開けません。"});

    fs::remove(cover);
    CHECK(site.check().empty());
}

TEST_CASE("a form document of another form tool is a notice")
{
    const SoundSite site;
    writeBytes(site.path() / "SYS" / inin::pathOf("委任状23.wfd"), std::string("WFD\0\x01", 5));
    CHECK(site.check() == Sentences{"帳票「委任状23.wfd」は SVG ではありません。formviewer では一覧になります。"});
    CHECK(site::countOf(site.findings(), site::Severity::notice) == 1);
}

TEST_CASE("each missing form document is found")
{
    const SoundSite site;
    for (const char *form : kForms) fs::remove(site.path() / "SYS" / pathOf(form));

    CHECK(site.check() == Sentences{"帳票「委任状37_01.wfd」がフォルダー「\\SYS」にありません。",
                                    "帳票「委任状23.wfd」がフォルダー「\\SYS」にありません。",
                                    "帳票「委任状37_高松市.wfd」がフォルダー「\\SYS」にありません。"});
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
