#include "site_check/sound_site.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::test;
namespace fs = std::filesystem;

namespace {

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
    {"DROP TABLE 往療費区分; CREATE VIEW 往療費区分 AS SELECT cKeep FROM HOKEN",
     {"テーブル「往療費区分」を読み込めません。（列がありません。（no such column: cKeep））"}},
};

} // namespace

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
