#include "runtime/runtime_error.h"
#include "viewer/document/letter_file_name.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

std::vector<std::string> namesOf(const std::vector<std::string> &patients, const std::string &pattern)
{
    std::vector<Row> rows;
    for (const std::string &patient : patients) {
        rows.push_back(ordinaryRow());
        rows.back()["利用者氏名"] = patient;
    }
    const LetterSet set = lettersOn(svgPage(""), rows);
    LetterFileNames names(set, pattern, ".pdf");
    std::vector<std::string> out;
    for (std::size_t i = 0; i < rows.size(); ++i) out.push_back(names.nameOf(i));
    return out;
}

using Names = std::vector<std::string>;

} // namespace

TEST_CASE("a file is named by its letter's number, columns and dates")
{
    CHECK(namesOf({"長尾　西", "甲"}, "{{番号}}_{{利用者氏名}}_{{対象開始日|ggge年m月}}") ==
          Names{"1_長尾　西_令和6年5月.pdf", "2_甲_令和6年5月.pdf"});
}

TEST_CASE("numbers in names have as many digits as the last letter, so that names sort in the order of the letters")
{
    const Names names = namesOf(Names(10, "甲"), "{{番号}}");
    CHECK(names.front() == "01.pdf");
    CHECK(names.back() == "10.pdf");
}

TEST_CASE("a character that file systems do not allow in a name becomes an underscore")
{
    CHECK(namesOf({"../甲/乙\\丙:丁*?|<>"}, "{{利用者氏名}}") == Names{"_甲_乙_丙_丁_____.pdf"});
}

TEST_CASE("each name is used once, regardless of case")
{
    CHECK(namesOf({"Abe", "ABE", "Abe"}, "{{利用者氏名}}") == Names{"Abe.pdf", "ABE (2).pdf", "Abe (3).pdf"});
}

TEST_CASE("an empty name becomes the letter's number")
{
    CHECK(namesOf({"", " . "}, "{{利用者氏名}}") == Names{"1.pdf", "2.pdf"});
}

TEST_CASE("a long name is cut between two characters")
{
    std::string longName;
    for (int i = 0; i < 100; ++i) longName += "髙";
    std::string kept;
    for (int i = 0; i < 66; ++i) kept += "髙";
    CHECK(namesOf({longName}, "{{利用者氏名}}") == Names{kept + ".pdf"});
}

TEST_CASE("a pattern with an unknown column is refused with the column's name")
{
    const LetterSet set = lettersOn(svgPage(""), {ordinaryRow()});
    CHECK_THROWS_WITH_AS(LetterFileNames(set, "{{氏名}}", ".pdf"),
                         "ファイル名の「{{氏名}}」の列「氏名」が CSV にありません。", RuntimeError);
}

namespace {

struct Period {
    std::string from, to;
};

std::string nameOfPeriods(const std::vector<Period> &periods, const std::vector<std::size_t> &which)
{
    std::vector<Row> rows;
    for (const Period &period : periods) {
        rows.push_back(ordinaryRow());
        rows.back()["対象開始日"] = period.from;
        rows.back()["対象終了日"] = period.to;
    }
    LetterSet set = lettersOn(svgPage(""), rows);
    set.title.clear();
    return fileNameOfAll(set, which, ".pdf");
}

} // namespace

TEST_CASE("the file of all letters is named by their month, and by the first and the last of several months")
{
    const Period november{"2026/11/01", "2026/11/30"}, may{"2027/05/01", "2027/05/31"};
    CHECK(nameOfPeriods({november, november}, {0, 1}) == "委任状_R8.11.pdf");
    CHECK(nameOfPeriods({may, november}, {0, 1}) == "委任状_R8.11-R9.05.pdf");
    CHECK(nameOfPeriods({{"2026/11/16", "2026/12/15"}}, {0}) == "委任状_R8.11-R8.12.pdf");
}

TEST_CASE("only the saved letters and readable dates count for the month in the file name")
{
    const Period november{"2026/11/01", "2026/11/30"}, may{"2027/05/01", "2027/05/31"}, none{"", "?"};
    CHECK(nameOfPeriods({november, may}, {1}) == "委任状_R9.05.pdf");
    CHECK(nameOfPeriods({none, november}, {0, 1}) == "委任状_R8.11.pdf");
    CHECK(nameOfPeriods({none}, {0}) == "委任状.pdf");
    CHECK(nameOfPeriods({{"2019/05/01", "2019/05/31"}}, {0}) == "委任状_R元.05.pdf");
}
