#include "suite_text/code_page_932.h"
#include "viewer/check/duplicate_letters.h"
#include "viewer/check/letter_check.h"
#include "viewer/letters/csv_reader.h"
#include "viewer/support/test_pictures.h"
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

/// A form that shows all columns.
std::string wholeForm()
{
    std::string elements;
    for (const std::string &title : programTitles())
        elements += "<text x='20' y='20' font-size='2'>{{" + title + "}}</text>";
    return elements;
}

const Date kToday = DateSerial(2024, 5, 20);

/// The findings of letters on a form.
std::vector<Finding> findingsOf(const std::vector<Row> &rows, const std::string &elements = wholeForm(),
                                Date today = kToday)
{
    const LetterSet set = lettersOn(svgPage(elements), rows);
    Fonts fonts;
    LetterRenderer renderer(set, fonts);
    return checkLetters(renderer, today);
}

std::vector<Cause> causesOf(const std::vector<Row> &rows, const std::string &elements = wholeForm())
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
                 {"金融機関名", "百十四銀行  高松支店", {}}});
}

TEST_CASE("a bank without a branch and a branch without a bank are found, a post office and a head office are complete")
{
    checkValues({{"金融機関名", "ゆうちょ銀行  ", {Cause::halfBank}},
                 {"金融機関名", "百十四銀行  支店", {Cause::halfBank}},
                 {"金融機関名", "銀行  高松支店", {Cause::halfBank}},
                 {"金融機関名", "  高松支店", {Cause::halfBank}},
                 {"金融機関名", "百十四銀行  本店", {}},
                 {"金融機関名", "高松番町郵便局  ", {}},
                 {"金融機関名", "百十四銀行高松支店", {}}});
}

TEST_CASE("a letter without the patient's address is found")
{
    checkValues({{"利用者住所", "", {Cause::noPatientAddress}},
                 {"利用者住所", "　", {Cause::noPatientAddress}},
                 {"利用者住所", "高", {}}});
}

TEST_CASE("a letter without the company's address, representative or telephone is found")
{
    checkValues({{"会社住所", "", {Cause::noCompanyAddress}},
                 {"代表者名", " ", {Cause::noRepresentative}},
                 {"会社電話番号", "", {Cause::noTelephone}}});
}

TEST_CASE("a letter without the householder's address or telephone is found")
{
    checkValues(
        {{"世帯主住所", "", {Cause::noHouseholderAddress}}, {"世帯主電話", "　", {Cause::noHouseholderTelephone}}});
}

TEST_CASE("an empty value is found only where the form shows it without a text of its own")
{
    Row row = ordinaryRow();
    for (const char *column : {"利用者住所", "保険者名", "金融機関名", "口座番号", "世帯主電話"}) row[column] = "";
    CHECK(causesOf({row}, kPlainForm) == Causes{});
    const std::string name = "<text x='20' y='20'>{{利用者氏名}}</text>";
    CHECK(causesOf({row}, name + "<text x='20' y='20'>{{利用者住所}}</text>") == Causes{Cause::noPatientAddress});
    CHECK(causesOf({row}, name + "<text x='20' y='20'>{{保険者名||高松市}}</text>") == Causes{});
    CHECK(causesOf({row}, name + "<text x='20' y='20'>{{保険者名||　　}}</text>") == Causes{Cause::noInsurer});
    CHECK(causesOf({row}, name + "<text x='20' y='20'>{{金融機関名２}}</text>") == Causes{Cause::blankBank});
}

TEST_CASE("an unknown form may show all columns")
{
    Row row = ordinaryRow();
    row["世帯主電話"] = "";
    LetterSet set = lettersOn(svgPage(kPlainForm), {row});
    set.reports.front().isListing = true;
    Fonts fonts;
    LetterRenderer renderer(set, fonts);
    const auto findings = checkLetters(renderer, kToday);
    REQUIRE(findings.size() == 1);
    CHECK(findings[0].cause == Cause::noHouseholderTelephone);
}

TEST_CASE("dates more than two years from today are found once for each letter")
{
    const auto causesOn = [](Date today) {
        Causes causes;
        for (const Finding &finding : findingsOf({ordinaryRow()}, wholeForm(), today)) causes.push_back(finding.cause);
        return causes;
    };
    CHECK(causesOn(DateSerial(2026, 5, 1)) == Causes{});
    CHECK(causesOn(DateSerial(2026, 5, 2)) == Causes{Cause::farDate});
    CHECK(causesOn(DateSerial(2022, 5, 31)) == Causes{});
    CHECK(causesOn(DateSerial(2022, 5, 30)) == Causes{Cause::farDate});
    const auto findings = findingsOf({ordinaryRow()}, wholeForm(), DateSerial(2026, 5, 2));
    CHECK(findings.front().detail == "対象開始日 2024/05/01、署名日 2024/05/01");
}

TEST_CASE("a period longer than two months is found, one of two months is not")
{
    checkValues({{"対象終了日", "2024/06/30", {}},
                 {"対象終了日", "2024/07/01", {Cause::longPeriod}},
                 {"対象開始日", "2024/04/01", {}},
                 {"対象開始日", "2024/03/31", {Cause::longPeriod}}});
    Row row = ordinaryRow();
    row["対象開始日"] = row["署名日"] = "2023/12/31";
    row["対象終了日"] = row["最終施術日"] = "2024/03/01";
    CHECK(causesOf({row}) == Causes{});
}

TEST_CASE("a date in the last year of the calendar is far and the check goes on")
{
    Row row = ordinaryRow();
    row["対象開始日"] = row["対象終了日"] = row["最終施術日"] = row["署名日"] = "9999/12/31";
    CHECK(causesOf({row}) == Causes{Cause::farDate});
}

TEST_CASE("the replacement mark 〓 in a value is found with its column")
{
    Row row = ordinaryRow();
    row["利用者氏名"] = "土〓太郎";
    const auto findings = findingsOf({row});
    REQUIRE(findings.size() == 1);
    CHECK(findings[0].cause == Cause::getaMark);
    CHECK(findings[0].detail == "利用者氏名：土〓太郎");
}

TEST_CASE("braces of a placeholder in a value are found in both widths")
{
    checkValues({{"代表者名", "{{会社名称}}", {Cause::unfilledField}},
                 {"代表者名", "｛｛会社名称｝｝", {Cause::unfilledField}},
                 {"代表者名", "｛会社名称｝", {Cause::unfilledField}},
                 {"代表者名", "{会社名称}", {}},
                 {"代表者名", "｛会社名称", {}}});
}

TEST_CASE("a placeholder in full-width braces in the form is found for each letter")
{
    Row other = ordinaryRow();
    other["利用者氏名"] = "別人";
    const auto findings = findingsOf({ordinaryRow(), other}, "<text x='20' y='20'>氏名 ｛｛利用者氏名｝｝</text>");
    REQUIRE(findings.size() == 2);
    for (const Finding &finding : findings) {
        CHECK(finding.cause == Cause::unfilledField);
        CHECK(finding.detail == "帳票：氏名 ｛｛利用者氏名｝｝");
    }
}

TEST_CASE("an account line without a number is found")
{
    checkValues({{"口座番号", " ", {Cause::noAccountNumber}},
                 {"口座番号", "(普) ", {Cause::noAccountNumber}},
                 {"口座番号", " 7654321", {}},
                 {"口座番号", "(当) １２３４", {}}});
}

TEST_CASE("an account number of less than four digits is found, in both widths")
{
    checkValues({{"口座番号", "(普) 123", {Cause::shortAccountNumber}},
                 {"口座番号", "(普) １２３", {Cause::shortAccountNumber}},
                 {"口座番号", "(普) 1-234", {}},
                 {"口座番号", "(普) 1234", {}}});
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
    // The day before is the zero of the calendar, which a time without a date has too.
    CHECK(std::ranges::count(causesWith("署名日", "1899/12/31"), Cause::noDate) == 0);
    CHECK(std::ranges::count(causesWith("署名日", "1899/12/30"), Cause::noDate) == 1);
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

TEST_CASE("the same person twice is found when name or address differ in width or kind of kana")
{
    const auto areSame = [](const char *column, const char *one, const char *another) {
        Row first = ordinaryRow(), second = ordinaryRow();
        first[column] = one;
        second[column] = another;
        return causesOf({first, second}) == Causes{Cause::samePerson, Cause::samePerson};
    };
    CHECK(areSame("利用者氏名", "ナガオ　サイ", "ﾅｶﾞｵ ｻｲ"));
    CHECK(areSame("利用者氏名", "ながお さい", "ナガオサイ"));
    CHECK(areSame("利用者住所", "高松市番町１－２　メゾンＡ", "高松市番町1-2メゾンa"));
    CHECK(!areSame("利用者氏名", "ナガオ", "ナカオ"));
    CHECK(!areSame("利用者住所", "番町１－２", "番町１－３"));
}

TEST_CASE(
    "letters that differ in their first column only are not identical, and those without a name are not one person")
{
    const LetterTable table = readLetters(encodeCp932("\"部屋\",\"利用者氏名\",\"利用者住所\"\r\n"
                                                      "\"201\",\"　\",\"高松市\"\r\n"
                                                      "\"202\",\"　\",\"高松市\"\r\n"),
                                          TitleRow::first);
    REQUIRE(table.size() == 2);
    CHECK(sameLetters(table).empty());
    CHECK(samePersons(table).empty());
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
    const auto findings = checkLetters(renderer, kToday);
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

TEST_CASE("a page with a picture is not blank")
{
    const std::string seal =
        "<image x='9' y='9' width='20' height='20' href='" + embedded(pictureBytes("seal.png")) + "'/>";
    CHECK(causesOf({ordinaryRow()}, seal) == Causes{});
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
    CHECK(checkLetters(renderer, kToday).empty());
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
    const LetterSet set = lettersOn(svgPage(wholeForm()), rows);
    Fonts fonts;
    LetterRenderer renderer(set, fonts);
    LetterCheck check(renderer, kToday);
    int pieces = 1;
    while (check.judge(3)) ++pieces;
    const auto findings = check.take();
    CHECK(pieces == 17);
    CHECK(findings.size() == 13);
    CHECK(std::ranges::count(findings, Cause::noCompany, &Finding::cause) == 5);
    CHECK(std::ranges::count(findings, Cause::noHolder, &Finding::cause) == 8);
}
