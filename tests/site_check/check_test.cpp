#include "site_check/sound_site.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::test;
namespace fs = std::filesystem;

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

TEST_CASE("a missing folder is the only finding")
{
    const site::Findings findings = site::checkSite("/no/such/site");
    CHECK(sentencesOf(findings) == Sentences{"フォルダー「/no/such/site」がありません。"});
    CHECK(site::countOf(findings, site::Severity::unchecked) == 1);
}

TEST_CASE("names of files and folders are found in any case")
{
    const SoundSite site;
    fs::rename(site.path() / "Massage.ini", site.path() / "MASSAGE.INI");
    fs::rename(site.path() / "SYS", site.path() / "Sys");
    CHECK(site.check().empty());
}
