#include "support/file_bytes.h"
#include "viewer/ledger/ledger_world.h"
#include "viewer/pdf/letters_pdf.h"
#include "viewer/returns/missing_letters.h"
#include "viewer/returns/missing_pages.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <numeric>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

PrintedLetter letterOf(const std::string &insurer, const std::string &patient)
{
    PrintedLetter letter;
    letter.insurer = insurer;
    letter.district = "香川";
    letter.patient = patient;
    letter.address = "高松市番町1";
    letter.period = kNovember;
    letter.printed = kPrintDay;
    return letter;
}

} // namespace

TEST_CASE("the period of a list is written with the era")
{
    CHECK(periodText(kNovember) == "令和8年11月");
    CHECK(periodText({kNovember.first, kNovember.first + 2}) == "令和8年11月～令和9年1月");
}

TEST_CASE("the missing letters are those that are not returned")
{
    std::vector<PrintedLetter> letters = {letterOf("高松市", "甲"), letterOf("高松市", "乙"), letterOf("高松市", "丙")};
    letters[1].state = LetterState::returned;
    letters[2].state = LetterState::onPaper;
    const std::vector<PrintedLetter> missing = missingOf(letters);
    REQUIRE(missing.size() == 2);
    CHECK(missing[0].patient == "甲");
    CHECK(missing[1].patient == "丙");
}

TEST_CASE("the table of missing letters keeps quotes and cannot contain formulas")
{
    const std::vector<PrintedLetter> letters = {letterOf("=1+2", "\"甲\" 乙")};
    CHECK(missingCsv(letters) ==
          "\xEF\xBB\xBF\"保険者\",\"地区\",\"利用者\",\"住所\",\"期間\",\"状態\",\"印刷日\"\r\n"
          "\"'=1+2\",\"香川\",\"\"\"甲\"\" 乙\",\"高松市番町1\",\"令和8年11月\",\"送信済み\",\"2026/11/20\"\r\n");
}

#ifndef _WIN32
TEST_CASE("the list of missing letters has a line for each on as many pages as it needs")
{
    std::vector<PrintedLetter> letters;
    for (int i = 1; i <= 40; ++i) letters.push_back(letterOf("高松市", "利用者" + std::to_string(i) + "番"));
    const LetterSet set = missingPages(letters, "返送されていない委任状　令和8年11月　40通");
    const TempFolder folder;
    Fonts fonts;
    LetterRenderer renderer(set, fonts);
    std::vector<std::size_t> all(set.size());
    std::iota(all.begin(), all.end(), std::size_t{0});
    REQUIRE(writeLettersPdf(folder / "list.pdf", renderer, all));
    const std::vector<std::string> pages = pagesOf(folder / "list.pdf");
    REQUIRE(pages.size() == 2);
    CHECK(contains(packed(pages[0]), "40通1／2ページ"));
    CHECK(contains(packed(pages[0]), "利用者34番令和8年11月送信済み"));
    CHECK_FALSE(contains(packed(pages[0]), "利用者35番"));
    CHECK(contains(packed(pages[1]), "利用者35番"));
    CHECK(contains(packed(pages[1]), "利用者40番"));
}

TEST_CASE("an empty list of missing letters is a page with one sentence")
{
    const LetterSet set = missingPages({}, "返送されていない委任状");
    const TempFolder folder;
    Fonts fonts;
    LetterRenderer renderer(set, fonts);
    const std::vector<std::size_t> first = {0};
    REQUIRE(writeLettersPdf(folder / "list.pdf", renderer, first));
    CHECK(contains(packed(pagesOf(folder / "list.pdf").at(0)), "返送されていない委任状はありません。"));
}
#endif
