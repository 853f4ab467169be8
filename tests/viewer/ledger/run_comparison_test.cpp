#include "viewer/ledger/run_comparison.h"

#include "suite_text/code_page_932.h"
#include "viewer/document/folded_name.h"
#include "viewer/ledger/ledger_world.h"
#include "viewer/ledger/letter_identity.h"
#include "viewer/letters/csv_reader.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

RunComparison compared(const std::vector<TextRow> &before, const std::vector<TextRow> &now)
{
    return compareRuns(textsOfRows(before), textsOfRows(now));
}

TextRow rowWith(TextRow row, std::size_t at, const std::string &text)
{
    row[at] = text;
    return row;
}

/// Rows with repeated names, repeated addresses and whole duplicates.
std::vector<TextRow> randomRows(std::mt19937 &random)
{
    const auto below = [&](unsigned end) { return std::to_string(random() % end); };
    std::vector<TextRow> rows(1 + random() % 40);
    for (TextRow &row : rows) {
        row = textRow("利用者" + below(30));
        row[column::insurer] = "市" + below(3);
        row[column::address] = "番町" + below(5);
        row[column::lastDay] = "2026/11/1" + below(3);
        row[column::account] = "(普) " + below(4);
    }
    return rows;
}

/// A random order: the place of each row in the result.
std::vector<std::size_t> randomOrder(std::size_t count, std::mt19937 &random)
{
    std::vector<std::size_t> order = lettersFrom(0, count);
    std::ranges::shuffle(order, random);
    return order;
}

std::vector<TextRow> inOrder(const std::vector<TextRow> &rows, const std::vector<std::size_t> &order)
{
    std::vector<TextRow> permuted;
    permuted.reserve(order.size());
    for (const std::size_t from : order) permuted.push_back(rows[from]);
    return permuted;
}

/// A row whose insurer and patient no other row has.
TextRow uniqueRow(std::size_t number, std::mt19937 &random)
{
    TextRow row = textRow("太郎" + std::to_string(number));
    row[column::insurer] = "市" + std::to_string(random() % 3);
    return row;
}

} // namespace

TEST_CASE("names are equal in any width, kana, blanks and variant of a kanji")
{
    CHECK(foldedName("髙橋　太郎") == foldedName("高橋太郎"));
    CHECK(foldedName("ﾔﾏﾀﾞ ﾊﾅｺ") == foldedName("やまだ　はなこ"));
    CHECK(foldedName("𠮷田") == foldedName("吉田"));
    CHECK(foldedName("斎藤") == foldedName("齋藤"));
    CHECK(foldedName("ＡＢＣ") == foldedName("abc"));
    CHECK(foldedName("山田") != foldedName("山口"));
    CHECK(foldedName("やまた") != foldedName("やまだ"));
}

TEST_CASE("a letter is new, changed with its fields, or gone")
{
    const TextRow yamada = textRow("山田"), suzuki = textRow("鈴木"), sato = textRow("佐藤");
    const RunComparison difference =
        compared({yamada, suzuki},
                 {sato, rowWith(rowWith(yamada, column::bank, "高松信用金庫  本店"), column::account, "(当) 9")});
    CHECK(difference.added == std::vector<std::size_t>{0});
    CHECK(difference.gone == std::vector<std::size_t>{1});
    REQUIRE(difference.changed.size() == 1);
    CHECK(difference.changed[0].before == 0);
    CHECK(difference.changed[0].now == 1);
    CHECK(difference.changed[0].fields ==
          std::vector<ChangedField>{{"金融機関名", "百十四銀行  本店", "高松信用金庫  本店"},
                                    {"口座番号", "(普) 1234567", "(当) 9"}});
    CHECK(difference.before == std::vector<std::optional<std::size_t>>{std::nullopt, 0});
}

TEST_CASE("another spelling of a name is a change, not another person")
{
    const RunComparison difference = compared({textRow("高橋　一郎")}, {textRow("髙橋 一郎")});
    REQUIRE(difference.changed.size() == 1);
    CHECK(difference.changed[0].fields == std::vector<ChangedField>{{"利用者氏名", "高橋　一郎", "髙橋 一郎"}});
    CHECK(difference.added.empty());
}

TEST_CASE("the same name at two insurers is two persons")
{
    const TextRow here = textRow("山田"), there = rowWith(here, column::insurer, "丸亀市");
    const RunComparison difference = compared({here}, {there});
    CHECK(difference.added == std::vector<std::size_t>{0});
    CHECK(difference.gone == std::vector<std::size_t>{0});
}

TEST_CASE("letters of one name are recognised by their address, then by their order")
{
    const TextRow first = textRow("山田"), second = rowWith(first, column::address, "丸亀市");
    const RunComparison changed = compared({first, second}, {rowWith(second, column::account, "(普) 2"), first});
    REQUIRE(changed.changed.size() == 1);
    CHECK(changed.changed[0].before == 1);
    CHECK(changed.changed[0].now == 0);

    const RunComparison moved = compared({first, second}, {rowWith(first, column::address, "坂出市")});
    REQUIRE(moved.changed.size() == 1);
    CHECK(moved.changed[0].before == 0);
    CHECK(moved.gone == std::vector<std::size_t>{1});
}

TEST_CASE("the dates of another month are not changes, those of the same month are")
{
    const TextRow november = textRow("山田"), december = textRow("山田", "2026/12");
    CHECK(compared({november}, {december}).isSame());
    const RunComparison day = compared({november}, {rowWith(november, column::lastDay, "2026/11/25")});
    REQUIRE(day.changed.size() == 1);
    CHECK(day.changed[0].fields == std::vector<ChangedField>{{"最終施術日", "2026/11/20", "2026/11/25"}});
}

TEST_CASE("a name without an insurer is another person than the same name with one")
{
    const TextRow insured = textRow("山田"), uninsured = rowWith(insured, column::insurer, "");
    const std::vector<LetterKey> keys = keysOf(textsOfRows({insured, uninsured, insured}));
    CHECK(keys[0].person != keys[1].person);
    CHECK(keys[0].person == keys[2].person);
}

TEST_CASE("letters of one person are recognised in another month by what lasts, in any order")
{
    const auto letterOf = [](const std::string &month, const std::string &account) {
        return rowWith(textRow("山田", month), column::account, account);
    };
    const RunComparison swapped = compared({letterOf("2026/11", "(普) 1"), letterOf("2026/11", "(普) 2")},
                                           {letterOf("2026/12", "(普) 2"), letterOf("2026/12", "(普) 1")});
    CHECK(swapped.isSame());
    CHECK(swapped.before == std::vector<std::optional<std::size_t>>{1, 0});
}

TEST_CASE("an unreadable row is compared by its text in the file")
{
    const auto textsWith = [](const std::string &name) {
        Row unreadable = ordinaryRow();
        unreadable["利用者氏名"] = name;
        return textsOf(lettersOn(svgPage("<text x='20' y='20'>{{利用者氏名}}</text>"), {ordinaryRow(), unreadable}));
    };
    const RunTexts before = textsWith("山\",\"田"), now = textsWith("山\",\"口");
    CHECK(compareRuns(before, before).isSame());
    const RunComparison difference = compareRuns(before, now);
    REQUIRE(difference.changed.size() == 1);
    CHECK(difference.changed[0].now == 1);
    CHECK(difference.changed[0].fields.at(0).column == "読めない行");
}

TEST_CASE("a run has no difference from itself, in any order")
{
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        const std::vector<TextRow> rows = randomRows(random);
        REQUIRE(compared(rows, rows).isSame());
        REQUIRE(compared(rows, inOrder(rows, randomOrder(rows.size(), random))).isSame());
    }
}

TEST_CASE("random additions, removals and edits are found exactly")
{
    std::mt19937 random(11);
    for (int round = 0; round < 300; ++round) {
        std::vector<TextRow> before;
        for (std::size_t i = 0; i < 1 + random() % 30; ++i) before.push_back(uniqueRow(i, random));
        std::vector<TextRow> now;
        std::vector<std::size_t> gone;
        std::map<std::string, std::set<std::string>> edits; // by patient, the columns
        for (std::size_t i = 0; i < before.size(); ++i) {
            if (random() % 5 == 0) {
                gone.push_back(i);
                continue;
            }
            now.push_back(before[i]);
            if (random() % 3 != 0) continue;
            for (const std::size_t at : {column::address + random() % 7, column::lastDay + random() % 7}) {
                now.back()[at] += "改";
                edits[now.back()[column::patient]].insert(programTitles()[at]);
            }
        }
        std::set<std::string> added;
        for (std::size_t i = 0; i < random() % 5; ++i) {
            now.push_back(uniqueRow(1000 + i, random));
            added.insert(now.back()[column::patient]);
        }
        now = inOrder(now, randomOrder(now.size(), random));

        const RunComparison difference = compared(before, now);

        REQUIRE(difference.gone == gone);
        std::set<std::string> foundAdded;
        for (const std::size_t letter : difference.added) foundAdded.insert(now[letter][column::patient]);
        REQUIRE(foundAdded == added);
        std::map<std::string, std::set<std::string>> foundEdits;
        for (const ChangedLetter &change : difference.changed)
            for (const ChangedField &field : change.fields)
                foundEdits[now[change.now][column::patient]].insert(field.column);
        REQUIRE(foundEdits == edits);
    }
}

TEST_CASE("the texts of letters are those of their file")
{
    Row first = ordinaryRow(), second = ordinaryRow();
    first["利用者氏名"] = "山田";
    second["利用者氏名"] = "鈴木";
    const LetterSet set = lettersOn(svgPage("<text x='20' y='20'>{{利用者氏名}}</text>"), {first, second});
    const RunTexts texts = textsOf(set);
    REQUIRE(texts.size() == 2);
    CHECK(texts.columns() == programTitles());
    CHECK(texts.value(1, texts.columnOf("利用者氏名")) == "鈴木");
    CHECK(markOf(set).letters == 2);
}

TEST_CASE("the texts of several reports are joined by column, and a column that a report lacks is empty")
{
    const std::string form = svgPage("<text x='20' y='20'>{{利用者氏名}}</text>");
    LetterSet set = lettersOn(form, {ordinaryRow()});
    LetterReport other = std::move(lettersOn(form, {ordinaryRow()}).reports.front());
    other.letters = readLetters(encodeCp932("\"部屋\",\"利用者氏名\"\r\n\"201\",\"鈴木\"\r\n"), TitleRow::first);
    other.columns = other.letters.columns();
    set.reports.push_back(std::move(other));
    const RunTexts texts = textsOf(set);
    REQUIRE(texts.size() == 2);
    CHECK(texts.columns().size() == programTitles().size() + 1);
    CHECK(texts.value(0, texts.columnOf("部屋")).empty());
    CHECK(texts.value(0, texts.columnOf("ない列")).empty());
    CHECK(texts.value(1, texts.columnOf("部屋")) == "201");
    CHECK(texts.value(1, texts.columnOf("利用者氏名")) == "鈴木");
    CHECK(texts.value(1, texts.columnOf("保険者名")).empty());
    set.reports[0].formPath = "委任状.wfd";
    set.reports[1].formPath = "名簿.wfd";
    CHECK(markOf(set).formName == "委任状.wfd、名簿.wfd");
}

TEST_CASE("the months of a run extend over those of all its reports")
{
    struct Period {
        const char *start, *end;
    };
    const Period autumn{"2026/11/01", "2026/11/30"}, winter{"2026/12/01", "2027/01/31"}, undated{"", ""};
    const auto monthsOf = [](const std::vector<Period> &periods) {
        LetterSet set;
        for (const Period &period : periods) {
            Row row = ordinaryRow();
            row["対象開始日"] = period.start;
            row["対象終了日"] = period.end;
            LetterSet one = lettersOn(svgPage("<text x='20' y='20'>{{利用者氏名}}</text>"), {row});
            set.reports.push_back(std::move(one.reports.front()));
        }
        return markOf(set).period;
    };
    constexpr MonthRange kAll{monthNumber(2026, 11), monthNumber(2027, 1)};
    CHECK(monthsOf({autumn, winter}) == kAll);
    CHECK(monthsOf({winter, undated, autumn}) == kAll);
    CHECK(monthsOf({undated, autumn}) == kNovember);
    CHECK(!monthsOf({undated, undated}));
}

TEST_CASE("a blank form has no texts, because nothing of a row is on its paper")
{
    const RunTexts texts = textsOf(lettersOn(svgPage("<text x='20' y='20'>委任状</text>"), {ordinaryRow()}));
    REQUIRE(texts.size() == 1);
    for (std::size_t i = 0; i < texts.columns().size(); ++i) CHECK(texts.value(0, i).empty());
}

TEST_CASE("a run is marked by its files and its months")
{
    const TempFolder folder;
    const auto markOn = [&](const std::string &start, const std::string &end, const std::string &form) {
        Row row = ordinaryRow();
        row["対象開始日"] = start;
        row["対象終了日"] = end;
        return markOf(openScript(writePrintJob(folder, form, {row})));
    };
    const RunMark one = markOn("2026/11/01", "2027/01/31", kForm), same = markOn("2026/11/01", "2027/01/31", kForm);
    CHECK(one.csvFingerprint == same.csvFingerprint);
    CHECK(one.formFingerprint == same.formFingerprint);
    CHECK(one.formName == kForm);
    CHECK(one.period == MonthRange{monthNumber(2026, 11), monthNumber(2027, 1)});
    CHECK(markOn("2026/11/01", "2027/01/30", kForm).csvFingerprint != one.csvFingerprint);
    CHECK(markOn("2026/11/01", "2027/01/31", kForms[1]).formFingerprint != one.formFingerprint);
    CHECK(!markOn("", "", kForm).period);
    CHECK(!markOn("2026/12/01", "2026/11/30", kForm).period);
}
