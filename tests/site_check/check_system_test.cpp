#include "adapters/native/native_platform.h"
#include "site_check/sound_site.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::test;
namespace fs = std::filesystem;

namespace {

/// A machine with a code page without Japanese.
struct WesternLocale : Locale {
    Regional regional() override { return {}; }
    std::string toCodePage(std::string_view) override { return "????"; }
    std::string fromCodePage(std::string_view) override { return "?"; }
};

} // namespace

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
