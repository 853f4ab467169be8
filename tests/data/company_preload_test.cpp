#include "data/company_preload.h"

#include "runtime/runtime_error.h"
#include "support/embedded_world.h"
#include "support/fake_platform.h"

#include <doctest/doctest.h>

#include <string>
#include <utility>
#include <vector>

using namespace inin;

namespace {

using Log = std::vector<std::string>;
using Boxes = std::vector<ShownBox>;

constexpr const char *kSettings = "C:\\SUITE\\adodb.ini";

/// The statement of branch 1, 2 for the head office.
constexpr const char *kStatement = "  select"
                                   "      CORP.cAddress1 as cAddress1"
                                   "     ,CORP.cAddress2 as cAddress2"
                                   "     ,CORP.cAddressKana as cAddressKana"
                                   "     ,CORP.cDaihyo as cDaihyo"
                                   "     ,CORP.cDaihyoKana as cDaihyoKana"
                                   "     ,CORP.cFaxNo as cFaxNo"
                                   "     ,CORP.cKinyuName as cKinyuName"
                                   "     ,CORP.cKinyuSiten as cKinyuSiten"
                                   "     ,CORP.cKozaBangou as cKozaBangou"
                                   "     ,CORP.cKozaKana as cKozaKana"
                                   "     ,CORP.cKozaMeigi1 as cKozaMeigi1"
                                   "     ,CORP.cKozaMeigi2 as cKozaMeigi2"
                                   "     ,CORP.cShamei1 as cShamei1"
                                   "     ,CORP.cShamei2 as cShamei2"
                                   "     ,CORP.cShameiKana1 as cShameiKana1"
                                   "     ,CORP.cShameiKana2 as cShameiKana2"
                                   "     ,CORP.cTelNo as cTelNo"
                                   "     ,CORP.cYubinNo as cYubinNo"
                                   "     ,CORP.iKinSiten as iKinSiten"
                                   "     ,CORP.iKinSyubetsu as iKinSyubetsu"
                                   "     ,CORP.iKozaKubun as iKozaKubun"
                                   "     ,CORP.iKozaType as iKozaType"
                                   "     ,CORP.iType as iType"
                                   "     ,CORP.nIDNo as nIDNo"
                                   "     ,CORP.nLat as nLat"
                                   "     ,CORP.nLon as nLon"
                                   "     ,CORP.cPcName as cPcName"
                                   "     ,CORP.tUpDateTime as tUpDateTime"
                                   "     ,cKinyuNo"
                                   "     ,cKinyuSitenNo"
                                   "     ,cJigyousyoNo"
                                   "     ,CORP.cJigyousyoNo2 as cJigyousyoNo2"
                                   "     ,CORP.cJigyouReceiptName as cJigyouReceiptName"
                                   "     ,CORP.cMailDestination as cMailDestination"
                                   "     ,CORP.cMailDestinationZipNo as cMailDestinationZipNo"
                                   "     ,CORP.cHokenTourokuKubetsu as cHokenTourokuKubetsu"
                                   "     ,CORP.cPersonalNumberCorp as cPersonalNumberCorp"
                                   "     ,CORP.iKyotenToshiNo as iKyotenToshiNo"
                                   "     ,CORP.cKokuhoTourokuNo as cKokuhoTourokuNo"
                                   "     ,CORP.cEmail as cEmail"
                                   "  FROM"
                                   "      CORP"
                                   " where"
                                   " iKyotenCd = 1"
                                   " and iKyotenEb = 2"
                                   " and"
                                   "     iType = 0"
                                   "  order by"
                                   "      nIDNo";

struct CorpCell {
    const char *column;
    Variant filled;
};
const CorpCell kHeadOffice[] = {
    {"cAddress1", "東京都千代田区一番町１－２"},
    {"cAddress2", "第三ビル４階"},
    {"cAddressKana", "ﾄｳｷﾖｳﾄ"},
    {"cDaihyo", "代表　太郎"},
    {"cDaihyoKana", "ﾀﾞｲﾋﾖｳ ﾀﾛｳ"},
    {"cFaxNo", "03-1111-2223"},
    {"cKinyuName", "みどり"},
    {"cKinyuSiten", "本町"},
    {"cKozaBangou", "1234567"},
    {"cKozaKana", "ｶ)ｽｺﾔｶ"},
    {"cKozaMeigi1", "株式会社すこやか"},
    {"cKozaMeigi2", "代表"},
    {"cShamei1", "株式会社すこやか"},
    {"cShamei2", "訪問マッサージ"},
    {"cShameiKana1", "ｽｺﾔｶ"},
    {"cShameiKana2", "ﾎｳﾓﾝ"},
    {"cTelNo", "03-1111-2222"},
    {"cYubinNo", "102-0082"},
    {"iKinSiten", 2},
    {"iKinSyubetsu", 1},
    {"iKozaKubun", 3},
    {"iKozaType", 1},
    {"iType", 0},
    {"nIDNo", 1},
    {"nLat", 128459901},
    {"nLon", 503146802},
    {"cPcName", "RECEPTION1"},
    {"tUpDateTime", Date(45000.5)},
    {"cKinyuNo", "0001"},
    {"cKinyuSitenNo", "002"},
    {"cJigyousyoNo", "1370000001"},
    {"cJigyousyoNo2", "1370000002"},
    {"cJigyouReceiptName", "すこやか領収"},
    {"cMailDestination", "東京都港区２－３"},
    {"cMailDestinationZipNo", "105-0001"},
    {"cHokenTourokuKubetsu", "登"},
    {"cPersonalNumberCorp", "1234567890123"},
    {"iKyotenToshiNo", 13},
    {"cKokuhoTourokuNo", "K1"},
    {"cEmail", "a@example.jp"},
};

using Changes = std::vector<std::pair<std::string, Variant>>;

std::vector<Variant> headOffice(const Changes &changes = {})
{
    std::vector<Variant> row;
    for (const CorpCell &cell : kHeadOffice) {
        row.push_back(cell.filled);
        for (const auto &[column, value] : changes)
            if (column == cell.column) row.back() = value;
    }
    return row;
}

struct PreloadFixture : FakeWorld {
    explicit PreloadFixture(std::vector<std::vector<Variant>> rows = {headOffice()})
    {
        FakeResult result;
        for (const CorpCell &cell : kHeadOffice) result.columns.emplace_back(cell.column);
        result.rows = std::move(rows);
        database.results.push_back(result);
    }
    void load() { loadInitCorp(app, record); }

    CompanyRecord record;
};

/// A record with values of an earlier use.
CompanyRecord usedRecord()
{
    CompanyRecord record;
    record.companyName = "前の会社";
    record.reservedFixedText = "何か";
    record.reservedNumbers.fill(7);
    record.latitude = 5;
    record.reservedText = "何か";
    record.reservedFlag = 1;
    record.mailDestination = "前の宛先";
    return record;
}

CompanyRecord expectedRecord()
{
    CompanyRecord record;
    record.companyName = "株式会社すこやか訪問マッサージ";
    record.businessNumber = "1370000001";
    record.postalCode = "102-0082";
    record.address1 = "東京都千代田区一番町１－２";
    record.address2 = "第三ビル４階";
    record.telephone = "03-1111-2222";
    record.fax = "03-1111-2223";
    record.reservedFixedText = "                              ";
    record.latitude = 128459901;
    record.longitude = 503146802;
    record.representative = "代表　太郎";
    record.secondBusinessNumber = "1370000002";
    record.mailDestination = "東京都港区２－３";
    record.mailDestinationPostalCode = "105-0001";
    return record;
}

} // namespace

TEST_CASE("the preload reads the head office of this branch on a session of its own")
{
    PreloadFixture fixture;
    fixture.load();
    CHECK(fixture.database.log == Log{"connect 1", std::string("sql 1 ") + kStatement, "disconnect 1"});
    CHECK(fixture.boxes.shown.empty());
}

TEST_CASE("each field of the record is filled from its column")
{
    PreloadFixture fixture;
    fixture.load();
    CHECK(fixture.record == expectedRecord());
}

TEST_CASE("a used record keeps nothing, and its reserved fields are cleared too")
{
    PreloadFixture fixture;
    fixture.record = usedRecord();
    fixture.load();
    CHECK(fixture.record == expectedRecord());
}

TEST_CASE("fixed fields are padded with blanks and truncated")
{
    const std::string thirty = "一二三四五六七八九十一二三四五六七八九十一二三四五六七八九十";
    const std::string twenty = "甲乙丙丁戊己庚辛壬癸甲乙丙丁戊己庚辛壬癸";
    PreloadFixture fixture({headOffice({{"cShamei1", thirty},
                                        {"cShamei2", twenty + "切"},
                                        {"cYubinNo", "102-00829"},
                                        {"cAddress1", thirty + twenty + "切"},
                                        {"cTelNo", "03-1111-2222-99"},
                                        {"cFaxNo", "1"},
                                        {"cDaihyo", thirty + thirty}})});
    fixture.load();
    CHECK(fixture.record.companyName.text() == thirty + twenty);
    CHECK(fixture.record.postalCode.text() == "102-0082");
    CHECK(fixture.record.address1.text() == thirty + twenty);
    CHECK(fixture.record.address2.text() == "第三ビル４階                                            ");
    CHECK(fixture.record.telephone.text() == "03-1111-2222-9");
    CHECK(fixture.record.fax.text() == "1             ");
    CHECK(fixture.record.representative.text() ==
          "一二三四五六七八九十一二三四五六七八九十一二三四五六七八九十一二三四五六七八九十一二三四五六七八九十");
    CHECK(fixture.record.reservedFixedText.text() == "                              ");
}

TEST_CASE("a head office of NULLs gives blanks and zeros")
{
    Changes changes;
    for (const CorpCell &cell : kHeadOffice) changes.emplace_back(cell.column, Null{});
    PreloadFixture fixture({headOffice(changes)});
    fixture.record = usedRecord();
    fixture.load();
    CompanyRecord expected;
    for (FixedText<50> CompanyRecord::*field : {&CompanyRecord::companyName, &CompanyRecord::address1,
                                                &CompanyRecord::address2, &CompanyRecord::representative})
        expected.*field = "";
    for (FixedText<14> CompanyRecord::*field : {&CompanyRecord::telephone, &CompanyRecord::fax}) expected.*field = "";
    expected.postalCode = "";
    expected.reservedFixedText = "";
    CHECK(fixture.record == expected);
    CHECK(fixture.boxes.shown.empty());
}

TEST_CASE("a branch without a head office leaves the record unchanged and shows nothing")
{
    PreloadFixture fixture(std::vector<std::vector<Variant>>{});
    fixture.record = usedRecord();
    fixture.load();
    CHECK(fixture.record == usedRecord());
    CHECK(fixture.boxes.shown.empty());
    CHECK(fixture.database.log.back() == "disconnect 1");
}

TEST_CASE("of two head offices the first row applies")
{
    PreloadFixture fixture({headOffice({{"cJigyousyoNo", "一"}}), headOffice({{"cJigyousyoNo", "二"}})});
    fixture.load();
    CHECK(fixture.record.businessNumber == "一");
}

TEST_CASE("a session that does not start is reported under the preload's heading and leaves the record unchanged")
{
    struct Row {
        const char *claim;
        void (*spoil)(FakeWorld &);
        const char *text;
    };
    const Row rows[] = {
        {"no settings file", [](FakeWorld &world) { world.files.remove(kSettings); },
         "loadInitCorp でエラー\r\n指定されたIni（C:\\SUITE\\adodb.ini）ファイルが見つかりません。"},
        {"no key", [](FakeWorld &world) { world.files.putText(kSettings, "[接続情報]\n"); },
         "loadInitCorp でエラー\r\n接続文字列取得できません。"},
        {"an empty connection text",
         [](FakeWorld &world) { world.files.putText(kSettings, "[接続情報]\n接続情報= \n"); },
         "loadInitCorp でエラー\r\n接続文字列取得できません。"},
        {"no connection", [](FakeWorld &world) { world.database.connectError = -2147467259; },
         "loadInitCorp でエラー\r\n(-2147467259)接続できません。"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.claim);
        PreloadFixture fixture;
        row.spoil(fixture);
        fixture.record = usedRecord();
        fixture.load();
        CHECK(fixture.boxes.shown == Boxes{{row.text, Icon::critical, ""}});
        CHECK(fixture.record == usedRecord());
        CHECK(fixture.database.log.empty());
    }
}

TEST_CASE("a failed read is reported under the table's heading, and the session is closed after its box")
{
    PreloadFixture fixture;
    FakeResult failed;
    failed.error = -2147217865;
    failed.description = "オブジェクト名 'CORP' が無効です。";
    fixture.database.results = {failed};
    fixture.record = usedRecord();
    Log atBox;
    fixture.boxes.onShow = [&](const ShownBox &) { atBox = fixture.database.log; };
    fixture.load();
    CHECK(fixture.boxes.shown ==
          Boxes{{"エラーが発生しました。\r\n(-2147217865)オブジェクト名 'CORP' が無効です。\rSQL="
                 "  select      CORP.cAddress1 as cAddress1     ,CORP.cAddress2 as cAddress2     ,・・・",
                 Icon::critical, ""}});
    CHECK(atBox == Log{"connect 1", std::string("sql 1 ") + kStatement});
    CHECK(fixture.database.log.back() == "disconnect 1");
    CHECK(fixture.record == usedRecord());
}

TEST_CASE("a connection lost between the rows is reported and leaves the record unchanged")
{
    PreloadFixture fixture;
    fixture.database.results.front().failingMove = 1;
    fixture.record = usedRecord();
    fixture.load();
    CHECK(fixture.boxes.shown ==
          Boxes{{"エラーが発生しました。\r\n-2147467259\r\n接続が失われました。", Icon::critical, ""}});
    CHECK(fixture.record == usedRecord());
    CHECK(fixture.database.log.back() == "disconnect 1");
}

TEST_CASE("a column missing in the table fails the read")
{
    PreloadFixture fixture;
    fixture.database.results.front().columns.back() = "cOther";
    fixture.record = usedRecord();
    fixture.load();
    CHECK(
        fixture.boxes.shown ==
        Boxes{
            {"エラーが発生しました。\r\n3265\r\n要求された名前、または序数に対応する項目がコレクションで見つかりません。",
             Icon::critical, ""}});
    CHECK(fixture.record == usedRecord());
}

TEST_CASE("any other run-time error shows number and description without an icon and ends the preload")
{
    struct LostFolder : FakeFiles {
        std::string applicationFolder() override { throw RuntimeError(76); }
    };
    PreloadFixture fixture;
    LostFolder files;
    Platform outside{fixture.boxes,     fixture.windows, fixture.database, fixture.profile,   files,
                     fixture.processes, fixture.clock,   fixture.locale,   fixture.automation};
    App app{outside};
    fixture.record = usedRecord();
    loadInitCorp(app, fixture.record);
    CHECK(fixture.boxes.shown == Boxes{{"76\r\nパスが見つかりません。", Icon::none, ""}});
    CHECK(fixture.record == usedRecord());
    CHECK(fixture.database.log.empty());
}

TEST_CASE("a session that does not close has no effect")
{
    PreloadFixture fixture;
    fixture.database.closeError = 3704;
    fixture.load();
    CHECK(fixture.record == expectedRecord());
    CHECK(fixture.boxes.shown.empty());
}

TEST_CASE("the preload finds the head office among a site's companies")
{
    EmbeddedWorld world;
    world.run("INSERT INTO CORP (iKyotenCd, iKyotenEb, nIDNo, iType, cShamei1, cShamei2, nLat) VALUES"
              " (1, 2, 1, 1, '代理人', '', 1), (1, 2, 9, 0, '後の本社', '', 2), (1, 2, 4, 0, ' 本社 ', '二行目', NULL),"
              " (1, 3, 1, 0, '枝番の本社', '', 3), (2, 2, 1, 0, '他拠点の本社', '', 4)");
    CompanyRecord record;
    loadInitCorp(world.site, record);
    CHECK(world.boxes.shown.empty());
    CHECK(record.companyName.text() == "本社二行目                                             ");
    CHECK(record.latitude == 0);
    CHECK(record.businessNumber.empty());
}

TEST_CASE("a site without a head office leaves the record blank")
{
    EmbeddedWorld world;
    world.run("INSERT INTO CORP (iKyotenCd, iKyotenEb, nIDNo, iType, cShamei1) VALUES (1, 2, 1, 3, '団体')");
    CompanyRecord record;
    loadInitCorp(world.site, record);
    CHECK(world.boxes.shown.empty());
    CHECK(record == CompanyRecord());
}
