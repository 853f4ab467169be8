#include "viewer/document/letter_bundles.h"

#include "runtime/runtime_error.h"
#include "support/sample_size.h"
#include "support/temp_folder.h"
#include "viewer/document/folded_name.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <numeric>
#include <random>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

using Numbers = std::vector<std::size_t>;
using Bundles = std::vector<Numbers>;

Row letter(const std::string &insurer, const std::string &district, const std::string &patient)
{
    Row row = ordinaryRow();
    row["保険者名"] = insurer;
    row["保険者地区名"] = district;
    row["利用者氏名"] = patient;
    return row;
}

LetterSet setOf(const std::vector<Row> &rows)
{
    return lettersOn(svgPage("<text x='10' y='10'>{{利用者氏名}}</text>"), rows);
}

Numbers allOf(const LetterSet &set)
{
    Numbers letters(set.size());
    std::iota(letters.begin(), letters.end(), std::size_t{0});
    return letters;
}

Numbers sorted(const std::vector<Row> &rows, LetterSort sort)
{
    const LetterSet set = setOf(rows);
    return sortedLetters(LetterNames(set), allOf(set), sort);
}

Bundles bundlesOf(const ArrangedLetters &arranged)
{
    Bundles bundles;
    for (const LetterBundle &bundle : arranged.bundles) bundles.push_back(bundle.letters);
    return bundles;
}

/// A text of a cover page.
std::string coverText(const LetterSet &set, const ArrangedLetters &arranged, std::size_t sheet,
                      const std::string &column)
{
    const LetterTable &table = arranged.covers->letters;
    return std::string(table.value(sheet - set.size(), table.columnOf(column).value()));
}

/// The numbers of the letters on the pages of a bundle's cover.
Numbers listedOn(const LetterSet &set, const ArrangedLetters &arranged, const LetterBundle &bundle)
{
    Numbers listed;
    for (const std::size_t sheet : bundle.covers)
        for (int i = 1; arranged.covers->letters.columnOf("番号" + std::to_string(i)); ++i) {
            const std::string number = coverText(set, arranged, sheet, "番号" + std::to_string(i));
            if (!number.empty()) listed.push_back(std::stoul(number) - 1);
        }
    return listed;
}

std::vector<Row> randomRows(std::mt19937 &random)
{
    constexpr const char *kInsurers[] = {"高松市", "髙松市", "丸亀市", "まるがめ市", "マルガメ市", "坂出市 ", ""};
    constexpr const char *kDistricts[] = {"東", "西", "北", ""};
    constexpr const char *kPatients[] = {"山田", "やまだ", "ﾔﾏﾀﾞ", "田中", ""};
    std::vector<Row> rows(1 + random() % 90);
    for (Row &row : rows) row = letter(kInsurers[random() % 7], kDistricts[random() % 4], kPatients[random() % 5]);
    return rows;
}

Numbers someOf(const LetterSet &set, std::mt19937 &random)
{
    Numbers letters = allOf(set);
    std::erase_if(letters, [&](std::size_t) { return random() % 4 == 0; });
    if (letters.empty()) letters.push_back(random() % set.size());
    return letters;
}

} // namespace

TEST_CASE("letters are sorted by insurer, district or patient, and equal ones keep the order of extraction")
{
    const std::vector<Row> rows = {letter("ろ", "に", "ウ"), letter("い", "は", "あ"), letter("ろ", "は", "い"),
                                   letter("い", "に", "ア")};
    CHECK(sorted(rows, LetterSort::extraction) == Numbers{0, 1, 2, 3});
    CHECK(sorted(rows, LetterSort::insurer) == Numbers{1, 3, 0, 2});
    CHECK(sorted(rows, LetterSort::district) == Numbers{0, 3, 1, 2});
    CHECK(sorted(rows, LetterSort::patient) == Numbers{1, 3, 2, 0});
}

TEST_CASE("spellings that the search does not distinguish are one bundle, and letters without an insurer come last")
{
    const LetterSet set = setOf({letter("", "", "一"), letter("高松市", "", "二"), letter("綾川町", "", "三"),
                                 letter("髙松 市", "", "四"), letter("", "", "五")});
    const ArrangedLetters arranged = arrangeLetters(set, allOf(set), {LetterSort::insurer, false});
    CHECK(bundlesOf(arranged) == Bundles{{2}, {1, 3}, {0, 4}});
    CHECK(arranged.sheets() == Numbers{2, 1, 3, 0, 4});
    CHECK(!arranged.covers);
}

TEST_CASE("in the order of extraction and by name all letters are one bundle")
{
    const LetterSet set =
        setOf({letter("高松市", "東", "乙"), letter("丸亀市", "西", "甲"), letter("高松市", "", "丙")});
    const LetterNames names(set);
    for (const LetterSort sort : {LetterSort::extraction, LetterSort::patient}) {
        const ArrangedLetters arranged = arrangeLetters(set, allOf(set), {sort, true});
        REQUIRE(arranged.bundles.size() == 1);
        CHECK(arranged.sheets().front() == 3);
        CHECK(arranged.sheets().size() == 4);
    }
    const ArrangedLetters arranged = arrangeLetters(set, allOf(set), {LetterSort::extraction, true});
    CHECK(insurersText(names, arranged.bundles.front()) == "高松市 ほか1");
    CHECK(districtsText(names, arranged.bundles.front()) == "東 ほか1");
}

TEST_CASE("a cover shows insurer, districts, number of letters, and each letter's number and name")
{
    const LetterSet set =
        setOf({letter("高松市", "東", "乙山"), letter("丸亀市", "西", "甲田"), letter("高松市", "東", "")});
    const ArrangedLetters arranged = arrangeLetters(set, allOf(set), {LetterSort::insurer, true});
    CHECK(arranged.sheets() == Numbers{3, 1, 4, 0, 2});
    const auto text = [&](const char *column) { return coverText(set, arranged, 4, column); };
    CHECK(text("保険者名") == "高松市");
    CHECK(text("保険者地区名") == "東");
    CHECK(text("通数") == "2");
    CHECK(text("束の番号") + "/" + text("束の数") == "2/2");
    CHECK(text("番号1") + text("氏名1") == "1乙山");
    CHECK(text("番号2") + text("氏名2") == "3（氏名なし）");
    CHECK(text("番号3") + text("氏名3") == "");
}

TEST_CASE("names that do not fit continue on further cover pages")
{
    const LetterSet set = setOf(std::vector<Row>(60, letter("高松市", "", "山田")));
    const ArrangedLetters arranged = arrangeLetters(set, allOf(set), {LetterSort::insurer, true});
    REQUIRE(arranged.bundles.size() == 1);
    CHECK(arranged.bundles.front().covers == Numbers{60, 61, 62});
    CHECK(coverText(set, arranged, 62, "ページ") + "/" + coverText(set, arranged, 62, "ページ数") == "3/3");
    CHECK(coverText(set, arranged, 62, "番号1") == "57");
    CHECK(coverText(set, arranged, 62, "通数") == "60");
}

TEST_CASE("in random runs every letter is printed once, listed once on the cover of its bundle, and counted there")
{
    std::mt19937 random(18);
    for (int round = 0; round < sampleSize(300); ++round) {
        CAPTURE(round);
        const LetterSet set = setOf(randomRows(random));
        const LetterNames names(set);
        const Numbers chosen = someOf(set, random);
        const LetterSort sort = kLetterSorts[random() % 4].sort;
        const ArrangedLetters arranged = arrangeLetters(set, chosen, {sort, true});

        Numbers printed = lettersAmong(set, arranged.sheets());
        CHECK(printed == sortedLetters(names, chosen, sort));
        std::ranges::sort(printed);
        CHECK(printed == chosen);
        std::size_t total = 0;
        Numbers sheets;
        std::vector<std::u32string> keys;
        for (const LetterBundle &bundle : arranged.bundles) {
            CHECK(listedOn(set, arranged, bundle) == bundle.letters);
            for (const std::size_t cover : bundle.covers)
                CHECK(coverText(set, arranged, cover, "通数") == std::to_string(bundle.letters.size()));
            total += std::stoul(coverText(set, arranged, bundle.covers.front(), "通数"));
            const Numbers own = bundle.sheets();
            sheets.insert(sheets.end(), own.begin(), own.end());
            keys.push_back(sortKeyOf(names, bundle.letters.front(), sort));
            if (sort == LetterSort::insurer)
                for (const std::size_t each : bundle.letters) CHECK(foldedName(names.insurer(each)) == keys.back());
        }
        CHECK(total == chosen.size());
        CHECK(sheets == arranged.sheets());
        std::ranges::sort(keys);
        CHECK(std::ranges::adjacent_find(keys) == keys.end());
    }
}

TEST_CASE("separate jobs count letters, not covers, and no cover is separated from its first letter")
{
    std::mt19937 random(5);
    for (int round = 0; round < sampleSize(200); ++round) {
        CAPTURE(round);
        const LetterSet set = setOf(randomRows(random));
        Numbers sheets = arrangeLetters(set, allOf(set), {LetterSort::insurer, true}).sheets();
        const LetterOrder order = round % 2 == 0 ? LetterOrder::forward : LetterOrder::reversed;
        if (order == LetterOrder::reversed) std::ranges::reverse(sheets);
        const std::size_t perJob = 1 + random() % 12;
        const auto isCover = [&](std::size_t sheet) { return sheet >= set.size(); };
        std::span<const std::size_t> rest = sheets;
        while (!rest.empty()) {
            const auto job = rest.first(sheetsOfJob(set, rest, perJob, order));
            rest = rest.subspan(job.size());
            const std::size_t letters = lettersAmong(set, job).size();
            CHECK(letters == (rest.empty() ? std::min(perJob, letters) : perJob));
            CHECK(!isCover(order == LetterOrder::forward ? job.back() : job.front()));
        }
    }
}

TEST_CASE("a cover form in the folder of the letters' form replaces the built-in one")
{
    const TempFolder folder;
    const std::string script = writePrintJob(folder, kForm, std::vector<Row>(5, letter("高松市", "", "山田")));
    const LetterSet set = openScript(script);
    const LetterArrangement arrangement{LetterSort::insurer, true};
    CHECK(arrangeLetters(set, allOf(set), arrangement).covers->formPath == "束の表紙.wfd");

    folder.put("束の表紙.wfd", svgPage("<text x='10' y='10'>{{氏名1}}と{{氏名2}}</text>"));
    const ArrangedLetters own = arrangeLetters(set, allOf(set), arrangement);
    CHECK(own.bundles.front().covers.size() == 3);
    CHECK(own.covers->letters.columnOf("氏名2").has_value());
    CHECK(!own.covers->letters.columnOf("氏名3").has_value());

    folder.put("束の表紙.wfd", svgPage("<text x='10' y='10'>{{通数}}</text>"));
    CHECK(arrangeLetters(set, allOf(set), arrangement).bundles.front().covers.size() == 1);

    folder.put("束の表紙.wfd", "<svg");
    CHECK_THROWS_WITH_AS((void)arrangeLetters(set, allOf(set), arrangement), doctest::Contains("束の表紙.wfd」："),
                         RuntimeError);
    CHECK(arrangeLetters(set, allOf(set), {LetterSort::insurer, false}).sheets().size() == 5);
}
