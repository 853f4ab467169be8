#include "printing/letter_extraction.h"

#include "printing/print_fixture.h"

#include <doctest/doctest.h>

namespace inin {

namespace {

/// An extraction without a screen, for May 2024 with an automatic signature date.
struct ExtractionFixture {
    FakeWorld world;
    std::string csErrMsg;
    LetterExtraction extraction{world.app, csErrMsg};
    LetterConditions conditions;
    std::vector<IninRow> letters{1};

    ExtractionFixture()
    {
        letters[0].利用者氏名 = "前回";
        conditions.csTargetDate = "2024/05/28";
        conditions.query = {.iKyotenCd = 12, .iKyotenEb = 34, .iTrustKind = 1};
        conditions.iDspPeriodKind = 1;
        conditions.imSetDateFrom = conditions.imSetDateTo = conditions.imSyomei = Null{};
    }
    void answer(FakeResult result) { world.database.results.push_back(std::move(result)); }
    [[nodiscard]] std::optional<std::int16_t> readMonth()
    {
        return extraction.readLetters(kKanjaDataMonth, conditions, letters);
    }
};

} // namespace

TEST_CASE_FIXTURE(ExtractionFixture, "an extraction takes conditions and gives letters and their number")
{
    answer(patients({{}, {{"RiyouName", "次"}}}));

    CHECK(readMonth() == 2);
    REQUIRE(letters.size() == 2);
    CHECK(letters[0].対象開始日 == "2024/05/01");
    CHECK(letters[0].署名日 == "2024/05/01");
    CHECK(letters[1].利用者氏名 == "次");
    CHECK(world.boxes.shown.empty());
}

TEST_CASE_FIXTURE(ExtractionFixture, "an extraction closes the record set and the session that it opened")
{
    answer(patients({{}}));
    CHECK(readMonth() == 1);
    CHECK(world.database.openRecordsets == 0);
    CHECK(world.database.log.back() == "disconnect 1");

    answer(visits("nDate", {std::int32_t{20240530}}));
    CHECK(extraction.lastVisitDay(kLastScheduleDay, 7, 2024, 5) == 30);
    CHECK(world.database.openRecordsets == 0);
    CHECK(world.database.log.back() == "disconnect 2");
}

TEST_CASE_FIXTURE(ExtractionFixture, "the statement contains the branch and the bounds of the target month")
{
    conditions.query.bounds = {"LOW", "HIGH"}; // without effect
    REQUIRE(readMonth() == 0);

    const std::string sql = world.database.log.at(1);
    CHECK(sql.find(" RIYOUSHA.iKyotenCd = 12 AND RIYOUSHA.iKyotenEb = 34 ") != std::string::npos);
    CHECK(sql.find(" BETWEEN 20240501 AND 20240599)") != std::string::npos);
}

TEST_CASE_FIXTURE(ExtractionFixture, "an extraction without rows counts 0 and leaves one blank letter")
{
    CHECK(readMonth() == 0);
    CHECK(letters == std::vector<IninRow>{IninRow{}});
}

TEST_CASE_FIXTURE(ExtractionFixture, "a session that does not start gives no count and keeps the letters")
{
    world.database.connectError = ado_error::logInRefused;

    CHECK_FALSE(readMonth().has_value());
    REQUIRE(letters.size() == 1);
    CHECK(letters[0].利用者氏名 == "前回");
    REQUIRE(world.boxes.shown.size() == 1);
    CHECK(world.boxes.shown[0].text == "iGetKanjaData でエラー\r\n(-2147217843)接続できません。");
}

TEST_CASE_FIXTURE(ExtractionFixture, "a refused statement gives no count after its box")
{
    FakeResult refused;
    refused.error = ado_error::timedOut;
    answer(refused);

    CHECK_FALSE(readMonth().has_value());
    REQUIRE(world.boxes.shown.size() == 1);
    CHECK(world.boxes.shown[0].text.starts_with("iGetKanjaData でエラー\r\n"));
    CHECK(world.database.log.back() == "disconnect 1");
}

TEST_CASE("an empty date box is an error only of the kind that requires it")
{
    struct Row {
        std::int16_t iDspPeriodKind, iSyomeiKind;
        bool isRead;
    };
    for (const Row &row : {Row{1, 0, true}, Row{2, 0, false}, Row{1, 1, false}}) {
        ExtractionFixture fixture;
        fixture.conditions.iDspPeriodKind = row.iDspPeriodKind;
        fixture.conditions.iSyomeiKind = row.iSyomeiKind;
        CAPTURE(row.iDspPeriodKind);
        CAPTURE(row.iSyomeiKind);
        CHECK(fixture.readMonth().has_value() == row.isRead);
        CHECK(fixture.world.boxes.shown ==
              (row.isRead
                   ? std::vector<ShownBox>{}
                   : std::vector<ShownBox>{centralBox("94", "Null の使い方が不正です。", "iGetKanjaDataMonth")}));
    }
}

TEST_CASE_FIXTURE(ExtractionFixture, "a day extraction keeps only the patients whose last visit is on the day")
{
    answer(patients({{{"nIDNo", std::int32_t{1}}}, {{"nIDNo", std::int32_t{2}}, {"RiyouName", "残る"}}}));
    world.database.resultsByText = {{"nIDRiyoushaNo = 1 ", visits("nDate", {std::int32_t{20240530}})},
                                    {"nIDRiyoushaNo = 2 ", visits("nDate", {std::int32_t{20240528}})}};

    CHECK(extraction.readLetters(kKanjaDataDay, conditions, letters) == 1);
    CHECK(letters.at(0).利用者氏名 == "残る");
}

TEST_CASE_FIXTURE(ExtractionFixture, "a run-time error of the last visit is a text without a box")
{
    answer(visits("tServicyDayStart", {"いつか"}));

    CHECK(extraction.lastVisitDay(kLastJissekieDay, 7, 2024, 5) == -1);
    CHECK(csErrMsg == "getLastJissekieDay でエラー13\r\n型が一致しません。");
    CHECK(world.boxes.shown.empty());
}

} // namespace inin
