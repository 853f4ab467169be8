#include "viewer/ledger/ledger_world.h"
#include "viewer/returns/returned_text.h"
#include "viewer/support/viewer_jobs.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

const Date kReturnDay = moment("2026-12-10 09:00:00");

/// A printed run of three letters, and the texts of their QR codes.
struct ReturnWorld : LedgerWorld {
    Ledger ledger = open();
    RunId run = print(ledger, runOf(3));
    ReturnedPages pages{ledger};

    [[nodiscard]] std::string digits(std::size_t letter) { return codeDigits(ledger.codeOf(run, letter).value()); }
    [[nodiscard]] CodeResult resultOf(std::size_t page) const { return pages.pages().at(page).returned.result; }
};

std::vector<std::string> one(const std::string &text)
{
    return {text};
}

} // namespace

TEST_CASE("the letter of a scanned page is returned, and the same page again is reported as returned already")
{
    ReturnWorld world;
    world.pages.add("a.pdf", 1, one(world.digits(1)));
    world.pages.add("a.pdf", 2, one(world.digits(1)));
    CHECK(world.pages.mark(kReturnDay) == 0);
    CHECK(world.resultOf(0) == CodeResult::marked);
    CHECK(world.resultOf(1) == CodeResult::already);
    CHECK(world.ledger.states(world.run) ==
          std::vector<LetterState>{LetterState::onPaper, LetterState::returned, LetterState::onPaper});
    CHECK_FALSE(world.pages.needsAttention());
    world.pages.add("b.pdf", 1, one(world.digits(1)));
    CHECK(world.pages.mark(kReturnDay) == 2);
    CHECK(world.resultOf(2) == CodeResult::already);
}

TEST_CASE("a page without a letter's code, with a code of another ledger or of no letter needs attention")
{
    ReturnWorld world;
    const std::uint32_t own = world.ledger.number(), other = own == kFirstLedger ? own + 1 : own - 1;
    world.pages.add("a.pdf", 1, {});
    world.pages.add("a.pdf", 2, one("https://example.jp/"));
    world.pages.add("a.pdf", 3, one(codeDigits({other, 1})));
    world.pages.add("a.pdf", 4, one(codeDigits({own, 999})));
    world.pages.mark(kReturnDay);
    CHECK(world.resultOf(0) == CodeResult::unreadable);
    CHECK(world.resultOf(1) == CodeResult::unreadable);
    CHECK(world.resultOf(2) == CodeResult::otherLedger);
    CHECK(world.resultOf(3) == CodeResult::unknown);
    for (const ReturnedPage &page : world.pages.pages()) CHECK(page.needsAttention());
}

TEST_CASE("the letters of a deleted run are unknown")
{
    ReturnWorld world;
    const std::string digits = world.digits(0);
    REQUIRE(world.ledger.erase());
    world.pages.add("a.pdf", 1, one(digits));
    world.pages.mark(kReturnDay);
    // Erasing makes a new ledger or keeps the number: in both cases no letter is marked.
    CHECK(world.pages.needsAttention());
    CHECK((world.resultOf(0) == CodeResult::unknown || world.resultOf(0) == CodeResult::otherLedger));
}

TEST_CASE("two letters on one page are both returned, and a code that is seen twice counts once")
{
    ReturnWorld world;
    world.pages.add("a.pdf", 1, std::vector<std::string>{world.digits(0), world.digits(2), world.digits(0)});
    world.pages.mark(kReturnDay);
    REQUIRE(world.pages.pages().size() == 2);
    CHECK(world.resultOf(0) == CodeResult::marked);
    CHECK(world.resultOf(1) == CodeResult::marked);
}

TEST_CASE("the report has a line for each page, the files that cannot be read and the counts")
{
    ReturnWorld world;
    world.pages.add("a.pdf", 1, one(world.digits(0)));
    world.pages.add("a.pdf", 2, {});
    world.pages.addUnread("b.pdf", "「b.pdf」：壊れているため、PDF として開けません。");
    world.pages.mark(kReturnDay);
    const std::string code = codeText(world.ledger.codeOf(world.run, 0).value());
    CHECK(returnedText(world.pages, {}) ==
          "a.pdf 1ページ：返送済みにしました。（" + code + "　" + world.pages.pages()[0].returned.insurer +
              "　利用者1）\n"
              "a.pdf 2ページ：整理番号を読み取れません。\n"
              "「b.pdf」：壊れているため、PDF として開けません。\n"
              "返送済みにした委任状 1通、すでに返送済み 0通、確かめるページ 1、読めないファイル 1\n");
    const std::string json = returnedJson(world.pages, "記録できません。");
    CHECK(contains(json, "\"result\": \"marked\",\n      \"code\": \"" + code + "\""));
    CHECK(contains(json, "\"result\": \"unreadable\",\n      \"code\": \"\""));
    CHECK(contains(json, "\"notice\": \"記録できません。\""));
}
