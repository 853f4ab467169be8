#include "demo_site/companies.h"

#include <iterator>
#include <vector>

namespace inin::site {

namespace {

struct Company {
    std::int64_t subCode;
    std::int64_t number;
    std::int64_t type; ///< 0: head office, 1 and 2: agents, 3: group billing
    std::string_view name1;
    std::string_view name2; ///< empty means NULL
    std::string_view kana;
    std::string_view bank;
    std::int64_t bankKind;
    std::string_view office;
    std::int64_t officeKind;
    std::int64_t accountKind;
};

// Together they use every kind of bank, branch office and account, and for each a code that has no word.
constexpr Company kCompanies[] = {
    {1, kHeadOffice, 0, "株式会社ひだまり訪問マッサージ", "本社", "ヒダマリホウモンマッサージ", "讃岐あさひ", 1, "夕凪",
     2, 1},
    {1, kFirstAgent, 1, "ひだまり訪問マッサージ高松事業所", "", "ヒダマリタカマツ", "讃岐あさひ", 1, "", 1, 1},
    {1, kFirstAgent + 1, 1, "白鷺はりきゅう院", "", "シラサギハリキュウイン", "瀬戸内みなと信用", 2, "白鷺", 1, 2},
    {1, kFirstAgent + 2, 2, "一般社団法人讃州療養費受領代理会", "事務局", "サンシュウリョウヨウヒ", "讃州ひまわり", 3,
     "木漏日", 3, 3},
    {1, kFirstAgent + 3, 2, "尾張在宅鍼灸マッサージ協同組合", "", "オワリザイタクシンキュウ", "尾張ひまわり", 3, "花筏",
     4, 4},
    {1, kFirstAgent + 4, 1, "星見ケアサポート合同会社", "", "ホシミケアサポート", "ゆうびん貯金", 4, "〇一八", 0, 1},
    {1, kFirstAgent + 5, 1, "髙橋療術院", "", "タカハシリョウジュツイン", "武蔵野しんきん", 2, "東雲坂", 5, 1},
    {1, kFirstAgent + 6, 1, "﨑山治療室", "", "サキヤマチリョウシツ", "", 0, "", 0, 0},
    {1, kFirstAgent + 7, 2, "療養費受領代理人みどり風", "", "ミドリカゼ", "みどり風", 9, "青葉谷", 9, 9},
    {1, kGroupCompany, 3, "全国訪問療養費団体請求センター株式会社", "四国支部", "ダンタイセイキュウセンター",
     "東都中央", 1, "江東", 2, 2},
    {2, kHeadOffice, 0, "株式会社ひだまり訪問マッサージ", "豊橋支社", "ヒダマリトヨハシ", "三河あさひ", 1, "豊橋", 2,
     1},
};

constexpr std::string_view kCompanyColumns[] = {
    "iKyotenCd",
    "iKyotenEb",
    "nIDNo",
    "iType",
    "cShamei1",
    "cShamei2",
    "cShameiKana1",
    "cShameiKana2",
    "cAddress1",
    "cAddress2",
    "cAddressKana",
    "cYubinNo",
    "cTelNo",
    "cFaxNo",
    "cDaihyo",
    "cDaihyoKana",
    "cKinyuName",
    "iKinSyubetsu",
    "cKinyuSiten",
    "iKinSiten",
    "iKozaType",
    "iKozaKubun",
    "cKozaBangou",
    "cKozaMeigi1",
    "cKozaMeigi2",
    "cKozaKana",
    "nLat",
    "nLon",
    "cPcName",
    "tUpDateTime",
    "cKinyuNo",
    "cKinyuSitenNo",
    "cJigyousyoNo",
    "cJigyousyoNo2",
    "cJigyouReceiptName",
    "cMailDestination",
    "cMailDestinationZipNo",
    "cHokenTourokuKubetsu",
    "cPersonalNumberCorp",
    "iKyotenToshiNo",
    "cKokuhoTourokuNo",
    "cEmail",
};

Cell textCell(std::string_view value)
{
    return std::string(value);
}

Cell textOrNull(std::string_view value)
{
    return value.empty() ? Cell{kNull} : textCell(value);
}

std::vector<Cell> rowOf(const Company &company, const SiteOrder &order)
{
    Dice dice = diceFor(order, Kind::company, company.subCode * 1000 + company.number);
    const Home home = makeHome(dice);
    const PersonName head = makeName(dice, dice.oneIn(3));
    return {
        kBranchCode,
        company.subCode,
        company.number,
        company.type,
        textCell(company.name1),
        textOrNull(company.name2),
        textCell(company.kana),
        kNull,
        home.address1,
        textOrNull(home.address2),
        home.kana,
        home.postalCode,
        home.telephone,
        makeTelephone(dice),
        head.kanji,
        head.kana,
        textCell(company.bank),
        company.bankKind,
        textCell(company.office),
        company.officeKind,
        company.accountKind,
        std::int64_t{1},
        makeDigits(dice, 7),
        textCell(company.name1),
        textOrNull(company.name2),
        textCell(company.kana),
        std::int64_t{34340000 + dice.between(0, 9999)},
        std::int64_t{134040000 + dice.between(0, 9999)},
        std::string("DEMO-PC"),
        isoText(dayOfMonth(order.month, 1), 9 * 60),
        makeDigits(dice, 4),
        makeDigits(dice, 3),
        makeDigits(dice, 10),
        kNull,
        textCell(company.name1),
        home.address1,
        home.postalCode,
        makeDigits(dice, 6),
        makeDigits(dice, 13),
        std::int64_t{37201},
        makeDigits(dice, 8),
        std::string("demo@example.invalid"),
    };
}

} // namespace

void writeCompanies(RowTarget &database, const SiteOrder &order)
{
    Insert insert(database, "CORP", kCompanyColumns);
    for (const Company &company : kCompanies) insert.row(rowOf(company, order));
    std::vector<Cell> blank(std::size(kCompanyColumns), kNull);
    blank[0] = kBranchCode;
    blank[1] = kBranchSubCode;
    blank[2] = kBlankCompany;
    insert.row(blank);
}

} // namespace inin::site
