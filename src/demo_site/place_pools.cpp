#include "demo_site/pools.h"

namespace inin::site {

namespace {

// `insurer` is the index of the city in kNationalInsurers.
constexpr City kCities[] = {
    {"香川県高松市", "カガワケンタカマツシ", 0},     {"香川県丸亀市", "カガワケンマルガメシ", 1},
    {"香川県坂出市", "カガワケンサカイデシ", 2},     {"香川県さぬき市", "カガワケンサヌキシ", 3},
    {"愛知県名古屋市", "アイチケンナゴヤシ", 4},     {"愛知県豊橋市", "アイチケントヨハシシ", 5},
    {"愛知県岡崎市", "アイチケンオカザキシ", 6},     {"東京都八王子市", "トウキョウトハチオウジシ", 7},
    {"東京都世田谷区", "トウキョウトセタガヤク", 8}, {"東京都江東区", "トウキョウトコウトウク", 9},
};

constexpr Word kTowns[] = {
    {"みどり風台", "ミドリカゼダイ"}, {"ひだまり町", "ヒダマリチョウ"},   {"白鷺野", "シラサギノ"},
    {"夕凪浜", "ユウナギハマ"},       {"東雲坂町", "シノノメザカチョウ"}, {"木漏日台", "コモレビダイ"},
    {"常磐の里", "トキワノサト"},     {"鈴鳴町", "スズナリチョウ"},       {"花筏", "ハナイカダ"},
    {"星見ヶ原", "ホシミガハラ"},     {"青葉谷", "アオバダニ"},           {"千歳川端", "チトセカワバタ"},
};

constexpr Word kHouses[] = {
    {"ひまわりハイツ", "ヒマワリハイツ"},
    {"コーポ若葉", "コーポワカバ"},
    {"サンコート夕凪", "サンコートユウナギ"},
    {"みどり荘", "ミドリソウ"},
    {"グループホームひだまり", "グループホームヒダマリ"},
    {"メゾン白鷺", "メゾンシラサギ"},
};

constexpr Insurer kNationalInsurers[] = {
    {"379901", "高松市国民健康保険", "高松市", hoken::national},
    {"379902", "丸亀市国民健康保険", "丸亀市", hoken::national},
    {"379903", "坂出市国民健康保険", "坂出市", hoken::national},
    {"379904", "さぬき市国民健康保険", "さぬき市", hoken::national},
    {"239901", "名古屋市国民健康保険", "名古屋市", hoken::national},
    {"239902", "豊橋市国民健康保険", "豊橋市", hoken::national},
    {"239903", "岡崎市国民健康保険", "岡崎市", hoken::national},
    {"139901", "八王子市国民健康保険", "八王子市", hoken::national},
    {"139902", "世田谷区国民健康保険", "世田谷区", hoken::national},
    {"139903", "江東区国民健康保険", "江東区", hoken::national},
};

constexpr Insurer kLateStageInsurers[] = {
    {"39379990", "香川県後期高齢者医療広域連合", "香川県", hoken::lateStage},
    {"39239990", "愛知県後期高齢者医療広域連合", "愛知県", hoken::lateStage},
    {"39139990", "東京都後期高齢者医療広域連合", "東京都", hoken::lateStage},
};

constexpr Insurer kAssociationInsurers[] = {
    {"06379991", "瀬戸みなと造船健康保険組合", "", hoken::association},
    {"06379992", "讃州うどん製造業健康保険組合", "", hoken::association},
    {"06239991", "尾張ねじ工業健康保険組合", "", hoken::association},
    {"06139991", "武蔵野文具卸健康保険組合", "", hoken::association},
};

constexpr std::string_view kIllnesses[] = {
    "脳梗塞後遺症", "脳出血後遺症",     "パーキンソン病",       "変形性膝関節症", "変形性腰椎症", "頸椎症性脊髄症",
    "関節リウマチ", "腰部脊柱管狭窄症", "大腿骨頸部骨折後遺症", "廃用症候群",     "多発性脳梗塞", "両下肢筋萎縮",
};

constexpr std::string_view kClinics[] = {
    "夕凪内科クリニック", "白鷺整形外科", "ひだまり在宅診療所", "星見脳神経外科病院", "青葉谷リハビリテーション病院",
};

} // namespace

std::span<const City> cities()
{
    return kCities;
}

std::span<const Word> towns()
{
    return kTowns;
}

std::span<const Word> houses()
{
    return kHouses;
}

std::span<const Insurer> nationalInsurers()
{
    return kNationalInsurers;
}

std::span<const Insurer> lateStageInsurers()
{
    return kLateStageInsurers;
}

std::span<const Insurer> associationInsurers()
{
    return kAssociationInsurers;
}

std::span<const std::string_view> illnesses()
{
    return kIllnesses;
}

std::span<const std::string_view> clinics()
{
    return kClinics;
}

} // namespace inin::site
