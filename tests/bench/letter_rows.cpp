#include "bench/letter_rows.h"

#include <fmt/format.h>

#include <array>
#include <string_view>

namespace inin::bench {

namespace {

using Pool = std::array<const char *, 8>;
constexpr Pool kFamilies = {"髙橋", "山﨑", "西村", "長谷川", "支倉", "佐々木", "五十嵐", "渡邉"};
constexpr Pool kGivens = {"花子", "一郎", "智恵", "ヨネ", "明美", "茂", "冬美", "左衛門"};
constexpr Pool kCities = {"高松市", "さぬき市", "東かがわ市", "丸亀市", "坂出市", "善通寺市", "観音寺市", "三豊市"};
constexpr Pool kTowns = {"番町", "常磐の里", "東雲坂町", "白鷺野", "西長尾町", "支所前", "郷東", "丘陵台"};

const char *from(const Pool &pool, std::size_t number)
{
    return pool[number % pool.size()];
}

std::string home(std::size_t n)
{
    return fmt::format("香川県{}{}{}丁目{}番{}号", from(kCities, n / 3), from(kTowns, n / 7), n % 8 + 1, n % 59 + 1,
                       n % 31 + 1);
}

} // namespace

const std::vector<std::string> &letterTitles()
{
    static const std::vector<std::string> titles = {
        "対象開始日", "対象終了日",   "保険者名",   "利用者氏名", "利用者住所",   "会社名称",   "会社住所",
        "代表者名",   "会社電話番号", "金融機関名", "口座番号",   "口座名義",     "最終施術日", "保険者地区名",
        "保険種別",   "世帯主名",     "世帯主電話", "世帯主住所", "金融機関名２", "署名日"};
    return titles;
}

std::vector<std::string> letterRow(std::size_t n)
{
    const std::size_t company = n % 20;
    return {"2024/05/01",
            "2024/05/31",
            fmt::format("{}国民健康保険第{}係", from(kCities, n), n),
            fmt::format("{}　{}{}", from(kFamilies, n), from(kGivens, n / 8), n),
            home(n),
            fmt::format("株式会社ひだまり訪問マッサージ{}号店", company + 1),
            home(company * 5),
            fmt::format("{}　{}", from(kFamilies, company), from(kGivens, company)),
            fmt::format("000-0000-{:04}", company),
            fmt::format("讃岐あさひ銀行  第{}支店", company + 1),
            fmt::format("(普) {:07}", company * 91 + 1000000),
            "カ）ヒダマリホウモンマッサージ",
            fmt::format("2024/05/{:02}", n % 31 + 1),
            from(kCities, n),
            fmt::format("{}", n % 8 + 1),
            fmt::format("{}　{}{}", from(kFamilies, n), from(kGivens, n / 5), n),
            fmt::format("000-{:04}-{:04}", n / 10000, n % 10000),
            home(n + 1),
            fmt::format("讃岐あさひ銀行  第{}支店", company + 1),
            "2024/05/01"};
}

std::string withoutBlanks(std::string text)
{
    constexpr std::string_view kWide = "　";
    std::erase_if(text, [](char c) { return c == ' ' || c == '\n'; });
    for (std::size_t at = text.find(kWide); at != text.npos; at = text.find(kWide, at)) text.erase(at, kWide.size());
    return text;
}

} // namespace inin::bench
