#include "printing/print_fixture.h"

#include <doctest/doctest.h>

namespace inin {

namespace {
constexpr const char *kPlanned = "SELECT * FROM SCHEDULE";
constexpr const char *kActual = "SELECT * FROM JISSEKI";

FakeResult refused()
{
    FakeResult result;
    result.error = ado_error::timedOut;
    result.description = "時間切れです。";
    return result;
}
} // namespace

TEST_CASE_FIXTURE(PrintFixture, "the last planned day is read by this statement on a session of its own")
{
    answer(visits("nDate", {std::int32_t{20240528}}));
    CHECK(form.getLastScheduleDay(7, 2024, 5) == 28);

    CHECK(world.database.log ==
          std::vector<std::string>{"connect 1",
                                   "sql 1 SELECT * FROM SCHEDULE  WHERE      iKyotenCd = 1 AND iKyotenEb = 2"
                                   " AND nIDRiyoushaNo = 7 AND nDate BETWEEN 20240500 AND 20240599"
                                   " ORDER BY nDate DESC",
                                   "disconnect 1"});
}

TEST_CASE_FIXTURE(PrintFixture, "the last actual day is read by this statement on a session of its own")
{
    answer(visits("tServicyDayStart", {"2024/12/28 09:00:00"}));
    CHECK(form.getLastJissekieDay(7, 2024, 12) == 28);

    CHECK(world.database.log ==
          std::vector<std::string>{"connect 1",
                                   "sql 1 SELECT * FROM JISSEKI  WHERE      iKyotenCd = 1 AND iKyotenEb = 2"
                                   " AND nRiyoushaIDNo = 7 AND tServicyDayStart >= '2024/12/01'"
                                   "  AND tServicyDayStart < '2025/01/01'  ORDER BY tServicyDayStart DESC",
                                   "disconnect 1"});
}

TEST_CASE("the last planned day is the number's last two digits")
{
    struct Row {
        Variant nDate;
        std::int32_t day;
    };
    for (const Row &row : {Row{std::int32_t{20240531}, 31}, Row{std::int32_t{20240500}, 0},
                           Row{std::int32_t{20240599}, 99}, Row{Null{}, 0}, Row{"x", 0}, Row{"20240507", 7}}) {
        PrintFixture fixture;
        fixture.answer(visits("nDate", {row.nDate}));
        CAPTURE(row.day);
        CHECK(fixture.form.getLastScheduleDay(7, 2024, 5) == row.day);
    }
}

TEST_CASE_FIXTURE(PrintFixture, "the first row of several is the last visit")
{
    answer(visits("nDate", {std::int32_t{20240528}, std::int32_t{20240503}}));

    CHECK(form.getLastScheduleDay(7, 2024, 5) == 28);
}

TEST_CASE_FIXTURE(PrintFixture, "the last actual day is also read from a date value")
{
    answer(visits("tServicyDayStart", {DateSerial(2024, 2, 29)}));

    CHECK(form.getLastJissekieDay(7, 2024, 2) == 29);
}

TEST_CASE_FIXTURE(PrintFixture, "a month without planned visits gives -1 after a box")
{
    CHECK(form.getLastScheduleDay(7, 2024, 5) == -1);

    CHECK(onlyBox() == ShownBox{"getLastScheduleDay で０件取得\r\n", Icon::critical, ""});
    CHECK(world.database.log.back() == "disconnect 1");
}

TEST_CASE_FIXTURE(PrintFixture, "a month without actual visits gives -1 after the box of the planned visits")
{
    CHECK(form.getLastJissekieDay(7, 2024, 5) == -1);

    CHECK(onlyBox() == ShownBox{"getLastScheduleDay で０件取得\r\n", Icon::critical, ""});
}

TEST_CASE_FIXTURE(PrintFixture, "the box of no visits is answered while the session is connected")
{
    std::string atBox;
    world.boxes.onShow = [&](const ShownBox &) { atBox = world.database.log.back(); };
    REQUIRE(form.getLastScheduleDay(7, 2024, 5) == -1);

    CHECK(atBox.starts_with("sql 1 SELECT * FROM SCHEDULE"));
}

TEST_CASE("a failed connect or statement shows a box under the helper's own name and gives -1")
{
    struct Row {
        const char *what;
        void (*spoil)(FakeWorld &);
        const char *words;
    };
    const Row rows[] = {
        {"no adodb.ini", [](FakeWorld &world) { world.files.remove("C:\\SUITE\\adodb.ini"); },
         "指定されたIni（C:\\SUITE\\adodb.ini）ファイルが見つかりません。"},
        {"no text", [](FakeWorld &world) { world.files.putText("C:\\SUITE\\adodb.ini", "[接続情報]\n"); },
         "接続文字列取得できません。"},
        {"refused", [](FakeWorld &world) { world.database.connectError = ado_error::logInRefused; },
         "(-2147217843)接続できません。"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.what);
        PrintFixture planned;
        row.spoil(planned.world);
        CHECK(planned.form.getLastScheduleDay(7, 2024, 5) == -1);
        CHECK(planned.onlyBox() ==
              ShownBox{std::string("getLastScheduleDay でエラー\r\n") + row.words, Icon::critical, ""});
        PrintFixture actual;
        row.spoil(actual.world);
        CHECK(actual.form.getLastJissekieDay(7, 2024, 5) == -1);
        CHECK(actual.onlyBox() ==
              ShownBox{std::string("getLastJissekieDay でエラー\r\n") + row.words, Icon::critical, ""});
    }
}

TEST_CASE_FIXTURE(PrintFixture, "a refused statement of a helper shows a box and disconnects")
{
    answer(refused());
    CHECK(form.getLastJissekieDay(7, 2024, 5) == -1);

    CHECK(onlyBox().text.starts_with("getLastJissekieDay でエラー\r\n(-2147217871)時間切れです。\rSQL=SELECT * FROM "
                                     "JISSEKI "));
    CHECK(onlyBox().icon == Icon::critical);
    CHECK(world.database.log.back() == "disconnect 1");
}

TEST_CASE_FIXTURE(PrintFixture, "a run-time error of the actual-day helper stays in the form without a box")
{
    answer(visits("tServicyDayStart", {Null{}}));
    CHECK(form.getLastJissekieDay(7, 2024, 5) == -1);

    CHECK(form.csErrMsg == "getLastJissekieDay でエラー13\r\n型が一致しません。");
    CHECK(world.boxes.shown.empty());
    CHECK(world.database.log.back() == "disconnect 1");
}

TEST_CASE_FIXTURE(PrintFixture, "a run-time error of the planned-day helper stays in the form without a box")
{
    CHECK(form.getLastScheduleDay(7, 300000, 5) == -1);

    CHECK(form.csErrMsg == "getLastScheduleDay でエラー6\r\nオーバーフローしました。");
    CHECK(world.boxes.shown.empty());
}

TEST_CASE_FIXTURE(PrintFixture, "a patient whose last visit is on another day gets no letter and no message")
{
    form.csTargetDate = "2024/05/28";
    answer(patients({{{"nIDNo", std::int32_t{1}}}, {{"nIDNo", std::int32_t{2}}, {"RiyouName", "残る"}}}));
    world.database.resultsByText = {{"nIDRiyoushaNo = 1 ", visits("nDate", {std::int32_t{20240530}})},
                                    {"nIDRiyoushaNo = 2 ", visits("nDate", {std::int32_t{20240528}})}};
    REQUIRE(form.iGetKanjaDataDay() == 0);

    CHECK(world.boxes.shown.empty());
    REQUIRE(form.iRowCount == 1);
    CHECK(form.aIninRow.at(0).利用者氏名 == "残る");
}

TEST_CASE_FIXTURE(PrintFixture, "a row dropped between two letters leaves no gap between them")
{
    form.csTargetDate = "2024/05/28";
    answer(patients({{{"nIDNo", std::int32_t{1}}, {"RiyouName", "甲"}},
                     {{"nIDNo", std::int32_t{2}}, {"RiyouName", "乙"}},
                     {{"nIDNo", std::int32_t{3}}, {"RiyouName", "丙"}},
                     {{"nIDNo", std::int32_t{4}}, {"RiyouName", "丁"}}}));
    world.database.resultsByText = {{"nIDRiyoushaNo = 1 ", visits("nDate", {std::int32_t{20240528}})},
                                    {"nIDRiyoushaNo = 2 ", visits("nDate", {std::int32_t{20240530}})},
                                    {"nIDRiyoushaNo = 3 ", visits("nDate", {std::int32_t{20240528}})},
                                    {"nIDRiyoushaNo = 4 ", visits("nDate", {std::int32_t{20240531}})}};
    REQUIRE(form.iGetKanjaDataDay() == 0);

    CHECK(form.iRowCount == 2);
    REQUIRE(form.aIninRow.size() == 2);
    CHECK(form.aIninRow[0].利用者氏名 == "甲");
    CHECK(form.aIninRow[1].利用者氏名 == "丙");
}

TEST_CASE_FIXTURE(PrintFixture, "a day extraction queries each row on a second session while the first is open")
{
    form.csTargetDate = "2024/05/28";
    answer(patients({{{"nIDNo", std::int32_t{1}}}, {{"nIDNo", std::int32_t{2}}}}));
    world.database.resultsByText = {{kActual, visits("tServicyDayStart", {"2024/05/28 10:00:00"})}};
    REQUIRE(form.iGetKanjaDataDay_Jisseki() == 0);

    std::vector<std::string> order;
    for (const std::string &line : world.database.log) order.push_back(line.substr(0, line.find(" SELECT")));
    CHECK(form.iRowCount == 2);
    CHECK(order == std::vector<std::string>{"connect 1", "sql 1", "connect 2", "sql 2", "disconnect 2", "connect 3",
                                            "sql 3", "disconnect 3", "disconnect 1"});
}

TEST_CASE_FIXTURE(PrintFixture, "a row without a patient number queries patient 0")
{
    form.csTargetDate = "2024/05/28";
    answer(patients({{{"nIDNo", Null{}}}}));
    world.database.resultsByText = {{kPlanned, visits("nDate", {std::int32_t{20240528}})}};
    REQUIRE(form.iGetKanjaDataDay() == 0);

    CHECK(world.database.log.at(3).find(" AND nIDRiyoushaNo = 0 AND nDate ") != std::string::npos);
}

TEST_CASE_FIXTURE(PrintFixture, "a helper without rows drops the row after its box, and the extraction succeeds")
{
    form.csTargetDate = "2024/05/28";
    answer(patients({{}, {}}));

    CHECK(form.iGetKanjaDataDay_Jisseki() == 0);
    CHECK(form.iRowCount == 0);
    CHECK(boxTexts() ==
          std::vector<std::string>{"getLastScheduleDay で０件取得\r\n", "getLastScheduleDay で０件取得\r\n"});
    CHECK(form.aIninRow == std::vector<IninRow>{IninRow{}});
}

TEST_CASE_FIXTURE(PrintFixture, "a run-time error of the helper drops the row without a box")
{
    form.csTargetDate = "2024/05/28";
    answer(patients({{}}));
    world.database.resultsByText = {{kActual, visits("tServicyDayStart", {"いつか"})}};

    CHECK(form.iGetKanjaDataDay_Jisseki() == 0);
    CHECK(form.iRowCount == 0);
    CHECK(world.boxes.shown.empty());
    CHECK(form.csErrMsg == "getLastJissekieDay でエラー13\r\n型が一致しません。");
}

TEST_CASE_FIXTURE(PrintFixture, "only the number of the requested day counts")
{
    form.csTargetDate = "2024/05/31";
    answer(patients({{}}));
    world.database.resultsByText = {{kPlanned, visits("nDate", {std::int32_t{20240531}})}};
    REQUIRE(form.iGetKanjaDataDay() == 0);

    CHECK(form.iRowCount == 1);
    CHECK(form.aIninRow.at(0).最終施術日 == "2024/05/31");
}

} // namespace inin
