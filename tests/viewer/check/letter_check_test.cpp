#include "suite_text/code_page_932.h"
#include "viewer/check/letter_check.h"
#include "viewer/letters/csv_reader.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <algorithm>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

const char *const kBoxedName =
    "<rect id='枠' x='20' y='30' width='50' height='10' fill='none'/>"
    "<text x='20' y='36' style='font-family:IPAexMincho;font-size:5px' data-box='枠' data-narrowest='0.8' "
    "data-min-size='3'>{{利用者氏名}}</text>";
const char *const kDatedForm = "<text x='20' y='36' font-size='5'>{{会社電話番号|yyyy年}}</text>";

/// A form with a text, so that its pages are not blank.
const char *const kPlainForm = "<text x='20' y='20'>委任状</text>";

/// The findings of letters on a form.
std::vector<Finding> findingsOf(const std::vector<Row> &rows, const std::string &elements = kPlainForm)
{
    const LetterSet set = lettersOn(svgPage(elements), rows);
    Fonts fonts;
    LetterRenderer renderer(set, fonts);
    return checkLetters(renderer);
}

std::vector<Cause> causesOf(const std::vector<Row> &rows, const std::string &elements = kPlainForm)
{
    std::vector<Cause> causes;
    for (const Finding &finding : findingsOf(rows, elements)) causes.push_back(finding.cause);
    return causes;
}

/// The causes for a row that is ordinary except in one column.
std::vector<Cause> causesWith(const std::string &column, const std::string &value)
{
    Row row = ordinaryRow();
    row[column] = value;
    return causesOf({row});
}

std::string repeated(const std::string &text, int times)
{
    std::string out;
    for (int i = 0; i < times; ++i) out += text;
    return out;
}

using Causes = std::vector<Cause>;

/// A value of a column and the causes that it must have; an empty list is a value just inside the rule.
struct ValueCase {
    const char *column;
    const char *value;
    Causes causes;
};

void checkValues(const std::vector<ValueCase> &cases)
{
    for (const ValueCase &each : cases) {
        CAPTURE(each.column);
        CAPTURE(each.value);
        CHECK(causesWith(each.column, each.value) == each.causes);
    }
}

} // namespace

TEST_CASE("an ordinary letter has no finding")
{
    CHECK(causesOf({ordinaryRow()}) == Causes{});
}

TEST_CASE("a letter without a company is found")
{
    checkValues(
        {{"会社名称", "", {Cause::noCompany}}, {"会社名称", "　 ", {Cause::noCompany}}, {"会社名称", "鍼", {}}});
}

TEST_CASE("a bank line with only blanks or only its kinds is found")
{
    checkValues({{"金融機関名", "  ", {Cause::blankBank}},
                 {"金融機関名", "", {Cause::blankBank}},
                 {"金融機関名", "銀行  支店", {Cause::blankBank}},
                 {"金融機関名", "郵便局  ", {Cause::blankBank}},
                 {"金融機関名", "ゆうちょ銀行  ", {}},
                 {"金融機関名", "銀行  高松支店", {}}});
}

TEST_CASE("an account line without a number is found")
{
    checkValues({{"口座番号", " ", {Cause::noAccountNumber}},
                 {"口座番号", "(普) ", {Cause::noAccountNumber}},
                 {"口座番号", " 7654321", {}},
                 {"口座番号", "(当) １２３", {}}});
}

TEST_CASE("a letter without a patient or an insurer is found")
{
    checkValues({{"利用者氏名", "", {Cause::noPatient}},
                 {"利用者氏名", "　", {Cause::noPatient}},
                 {"保険者名", " ", {Cause::noInsurer}},
                 {"保険者名", "国", {}}});
}

TEST_CASE("a letter without an account holder is found")
{
    checkValues({{"口座名義", "", {Cause::noHolder}}, {"口座名義", "ｱ", {}}});
}

TEST_CASE("a letter without a householder is found")
{
    checkValues({{"世帯主名", "", {Cause::noHouseholder}}, {"世帯主名", "西", {}}});
}

TEST_CASE("a reversed period is found, and no date is reported as outside it")
{
    Row row = ordinaryRow();
    row["対象開始日"] = "2024/05/31";
    row["対象終了日"] = "2024/05/01";
    CHECK(causesOf({row}) == Causes{Cause::periodReversed});
    row["対象終了日"] = "2024/05/31";
    row["最終施術日"] = "2024/05/31";
    row["署名日"] = "2024/05/31";
    CHECK(causesOf({row}) == Causes{});
}

TEST_CASE("a signature date outside the period is found, one on its first or last day is not")
{
    checkValues({{"署名日", "2024/04/30", {Cause::signatureOutside}},
                 {"署名日", "2024/05/01", {}},
                 {"署名日", "2024/05/31", {}},
                 {"署名日", "2024/06/01", {Cause::signatureOutside}},
                 {"署名日", "", {}}});
}

TEST_CASE("a last treatment day outside the period is found, in either date format")
{
    checkValues({{"最終施術日", "24/04/30", {Cause::lastDayOutside}},
                 {"最終施術日", "24/05/01", {}},
                 {"最終施術日", "2024/05/31", {}},
                 {"最終施術日", "2024/06/01", {Cause::lastDayOutside}},
                 {"最終施術日", "", {}}});
}

TEST_CASE("an unreadable date is found with its column")
{
    Row row = ordinaryRow();
    row["署名日"] = "五月吉日";
    const auto findings = findingsOf({row});
    REQUIRE(findings.size() == 1);
    CHECK(findings[0].cause == Cause::noDate);
    CHECK(findings[0].detail == "署名日 五月吉日");
}

TEST_CASE("a non-date text that a form shows as a date is found")
{
    CHECK(causesOf({ordinaryRow()}, kDatedForm) == Causes{Cause::noDate});
}

TEST_CASE("identical letters are found with both numbers, and not as the same person too")
{
    Row other = ordinaryRow();
    other["利用者氏名"] = "別人";
    const auto findings = findingsOf({ordinaryRow(), other, ordinaryRow()});
    REQUIRE(findings.size() == 2);
    for (const Finding &finding : findings) {
        CHECK(finding.cause == Cause::sameLetter);
        CHECK(finding.detail == "1,3番");
    }
    CHECK(findings[0].letter == 0);
    CHECK(findings[1].letter == 2);
}

TEST_CASE("the same person twice is found, regardless of blanks in the name")
{
    Row first = ordinaryRow(), second = ordinaryRow();
    first["利用者氏名"] = "長尾　西";
    second["利用者氏名"] = "長尾 西";
    CHECK(causesOf({first, second}) == Causes{Cause::samePerson, Cause::samePerson});
    second["利用者住所"] = "香川県丸亀市";
    CHECK(causesOf({first, second}) == Causes{});
}

TEST_CASE("a finding for many identical letters lists ten numbers")
{
    const auto findings = findingsOf(std::vector<Row>(30, ordinaryRow()));
    REQUIRE(findings.size() == 30);
    CHECK(findings[29].detail == "1-10…番");
}

TEST_CASE("a character replaced by a question mark is found with its column and text")
{
    Row row = ordinaryRow();
    row["利用者氏名"] = "土?太郎";
    const auto findings = findingsOf({row});
    REQUIRE(findings.size() == 1);
    CHECK(findings[0].cause == Cause::lostCharacter);
    CHECK(findings[0].detail == "利用者氏名：土?太郎");
    CHECK(causesWith("利用者氏名", "土？太郎") == Causes{});
}

TEST_CASE("a character that the font lacks, such as a user-defined one, is found")
{
    Row row = ordinaryRow();
    row["利用者氏名"] = "\uE000";
    const auto findings = findingsOf({row}, kBoxedName);
    REQUIRE(findings.size() == 1);
    CHECK(findings[0].cause == Cause::missingInFont);
    CHECK(findings[0].detail == "利用者氏名：「\uE000」（U+E000）");
}

TEST_CASE("a text that had to shrink is found, one that was only condensed is not")
{
    Row row = ordinaryRow();
    row["利用者氏名"] = repeated("国", 12);
    CHECK(causesOf({row}, kBoxedName) == Causes{});
    row["利用者氏名"] = repeated("国", 18);
    CHECK(causesOf({row}, kBoxedName) == Causes{Cause::shrunk});
}

TEST_CASE("a text that does not fit has only that finding")
{
    Row row = ordinaryRow();
    row["利用者氏名"] = repeated("国", 60);
    CHECK(causesOf({row}, kBoxedName) == Causes{Cause::doesNotFit});
}

TEST_CASE("an unreadable row has only that finding")
{
    LetterSet set = lettersOn(svgPage(kBoxedName), {ordinaryRow()});
    set.reports.front().letters = readLetters(csvOf({ordinaryRow()}) + "\"?\",\"\"\r\n", TitleRow::first);
    Fonts fonts;
    LetterRenderer renderer(set, fonts);
    const auto findings = checkLetters(renderer);
    REQUIRE(findings.size() == 1);
    CHECK(findings[0].cause == Cause::unreadableRow);
    CHECK(findings[0].letter == 1);
    CHECK(findings[0].detail == "列の数が見出し行より少ない行です。");
}

TEST_CASE("a page without any text is found, even with lines drawn on it")
{
    const std::string lines = "<rect x='9' y='9' width='90' height='90' stroke='black'/>";
    CHECK(causesOf({ordinaryRow()}, lines) == Causes{Cause::blankPage});
    CHECK(causesOf({ordinaryRow()}, lines + kPlainForm) == Causes{});
    CHECK(causesOf({ordinaryRow()}, "<text x='20' y='20'>　</text>") == Causes{Cause::blankPage});
}

TEST_CASE("a page whose only texts are empty fields is found for each such letter")
{
    Row empty = ordinaryRow();
    empty["代表者名"] = "";
    Row blank = ordinaryRow();
    blank["利用者氏名"] = "別人";
    blank["代表者名"] = " 　";
    const std::string field = "<text x='20' y='36'>{{代表者名}}</text>";
    const auto findings = findingsOf({empty, ordinaryRow(), blank}, field);
    std::vector<std::size_t> letters;
    for (const Finding &finding : findings)
        if (finding.cause == Cause::blankPage) letters.push_back(finding.letter);
    CHECK(letters == std::vector<std::size_t>{0, 2});
}

TEST_CASE("findings are sorted by cause, then by letter")
{
    Row holder = ordinaryRow(), company = ordinaryRow();
    holder["口座名義"] = "";
    holder["利用者氏名"] = "甲";
    company["会社名称"] = "";
    company["口座名義"] = "";
    const auto findings = findingsOf({holder, company});
    REQUIRE(findings.size() == 3);
    CHECK(findings[0].cause == Cause::noCompany);
    CHECK(findings[1].cause == Cause::noHolder);
    CHECK(findings[1].letter == 0);
    CHECK(findings[2].letter == 1);
}

TEST_CASE("a rule is skipped for a file without the rule's columns")
{
    LetterSet set = lettersOn(svgPage(kPlainForm), {ordinaryRow()});
    const std::string file = encodeCp932("\"利用者氏名\"\r\n\"長尾\"\r\n");
    set.reports.front().letters = readLetters(file, TitleRow::first);
    set.reports.front().columns = {"利用者氏名"};
    Fonts fonts;
    LetterRenderer renderer(set, fonts);
    CHECK(checkLetters(renderer).empty());
}

TEST_CASE("a check in steps finds the same as a check at once")
{
    std::vector<Row> rows;
    for (int i = 0; i < 50; ++i) {
        rows.push_back(ordinaryRow());
        rows.back()["利用者氏名"] = "甲" + std::to_string(i);
        if (i % 7 == 0) rows.back()["口座名義"] = "";
        if (i % 10 == 0) rows.back()["会社名称"] = "";
    }
    const LetterSet set = lettersOn(svgPage(kBoxedName), rows);
    Fonts fonts;
    LetterRenderer renderer(set, fonts);
    LetterCheck check(renderer);
    int pieces = 1;
    while (check.judge(3)) ++pieces;
    const auto findings = check.take();
    CHECK(pieces == 17);
    CHECK(findings.size() == 13);
    CHECK(std::ranges::count(findings, Cause::noCompany, &Finding::cause) == 5);
    CHECK(std::ranges::count(findings, Cause::noHolder, &Finding::cause) == 8);
}
