#include "printing/print_fixture.h"

#include "runtime/runtime_error.h"

#include <doctest/doctest.h>

namespace inin {

namespace {

/// The five extractions with the names in their failures.
struct Procedure {
    const char *name;
    std::int16_t (frmPrintInin::*run)();
    const char *openHeading;
};
const Procedure kProcedures[] = {
    {"iGetKanjaDataMonth", &frmPrintInin::iGetKanjaDataMonth, "iGetKanjaData でエラー"},
    {"iGetKanjaDataMonth_Jisseki", &frmPrintInin::iGetKanjaDataMonth_Jisseki, "iGetKanjaData でエラー"},
    {"iGetKanjaDataDay", &frmPrintInin::iGetKanjaDataDay, "iGetKanjaData でエラー"},
    {"iGetKanjaDataDay_Jisseki", &frmPrintInin::iGetKanjaDataDay_Jisseki, "iGetKanjaDataDay_Jisseki でエラー"},
    {"iGetKanjaDataNoPeriod", &frmPrintInin::iGetKanjaDataNoPeriod, "iGetKanjaData でエラー"},
};

/// Day procedures call the helpers: these answers keep every row of 28 May.
void keepAllDays(PrintFixture &fixture)
{
    fixture.form.csTargetDate = "2024/05/28";
    fixture.world.database.resultsByText = {{"SELECT * FROM SCHEDULE", visits("nDate", {std::int32_t{20240528}})},
                                            {"SELECT * FROM JISSEKI", visits("tServicyDayStart", {"2024/05/28"})}};
}

/// A form with three letters of a previous run.
void leaveRows(PrintFixture &fixture)
{
    fixture.form.aIninRow.assign(3, IninRow{});
    fixture.form.aIninRow[2].利用者氏名 = "前回";
    fixture.form.iRowCount = 3;
}

} // namespace

TEST_CASE("each extraction keeps its rows, counts them and disconnects")
{
    for (const Procedure &procedure : kProcedures) {
        PrintFixture fixture;
        keepAllDays(fixture);
        fixture.answer(patients({{}, {{"RiyouName", "次"}}}));
        CAPTURE(procedure.name);
        CHECK((fixture.form.*procedure.run)() == 0);
        CHECK(fixture.form.iRowCount == 2);
        REQUIRE(fixture.form.aIninRow.size() == 2);
        CHECK(fixture.form.aIninRow[1].利用者氏名 == "次");
        CHECK(fixture.world.database.log.front() == "connect 1");
        CHECK(fixture.world.database.log.back() == "disconnect 1");
        CHECK(fixture.world.boxes.shown.empty());
    }
}

TEST_CASE("an extraction without rows succeeds, counts 0 and leaves one blank letter")
{
    for (const Procedure &procedure : kProcedures) {
        PrintFixture fixture;
        leaveRows(fixture);
        CAPTURE(procedure.name);
        CHECK((fixture.form.*procedure.run)() == 0);
        CHECK(fixture.form.iRowCount == 0);
        CHECK(fixture.form.aIninRow == std::vector<IninRow>{IninRow{}});
        CHECK(fixture.world.database.log.size() == 3);
        CHECK(fixture.world.database.log.back() == "disconnect 1");
        CHECK(fixture.world.boxes.shown.empty());
    }
}

TEST_CASE("a missing adodb.ini fails each extraction with a box and keeps the rows of the last run")
{
    for (const Procedure &procedure : kProcedures) {
        PrintFixture fixture;
        leaveRows(fixture);
        fixture.world.files.remove("C:\\SUITE\\adodb.ini");
        CAPTURE(procedure.name);
        CHECK((fixture.form.*procedure.run)() == -1);
        CHECK(fixture.onlyBox() == ShownBox{"iGetKanjaData でエラー\r\n指定されたIni（C:\\SUITE\\adodb.ini）"
                                            "ファイルが見つかりません。",
                                            Icon::critical, ""});
        CHECK(fixture.form.iRowCount == 3);
        CHECK(fixture.form.aIninRow.at(2).利用者氏名 == "前回");
        CHECK(fixture.world.database.log.empty());
    }
}

TEST_CASE("an empty connection text fails each extraction with a box")
{
    for (const Procedure &procedure : kProcedures) {
        PrintFixture fixture;
        fixture.world.files.putText("C:\\SUITE\\adodb.ini", "[接続情報]\n接続情報=   \n");
        CAPTURE(procedure.name);
        CHECK((fixture.form.*procedure.run)() == -1);
        CHECK(fixture.onlyBox() ==
              ShownBox{"iGetKanjaData でエラー\r\n接続文字列取得できません。", Icon::critical, ""});
        CHECK(fixture.world.database.log.empty());
    }
}

TEST_CASE("a refused connection fails each extraction with the session's error text")
{
    for (const Procedure &procedure : kProcedures) {
        PrintFixture fixture;
        leaveRows(fixture);
        fixture.world.database.connectError = ado_error::logInRefused;
        fixture.world.database.connectDescription = "ログインできません。";
        CAPTURE(procedure.name);
        CHECK((fixture.form.*procedure.run)() == -1);
        CHECK(fixture.onlyBox() ==
              ShownBox{"iGetKanjaData でエラー\r\n(-2147217843)ログインできません。", Icon::critical, ""});
        CHECK(fixture.form.aIninRow.size() == 3);
    }
}

TEST_CASE("a refused statement fails each extraction under its own heading, and the session is disconnected")
{
    for (const Procedure &procedure : kProcedures) {
        PrintFixture fixture;
        leaveRows(fixture);
        FakeResult refused;
        refused.error = ado_error::noSuchTable;
        refused.description = "表がありません。";
        fixture.answer(refused);
        CAPTURE(procedure.name);
        CHECK((fixture.form.*procedure.run)() == -1);
        const ShownBox &box = fixture.onlyBox();
        CHECK(box.text.starts_with(std::string(procedure.openHeading) +
                                   "\r\n(-2147217865)表がありません。\rSQL=SELECT HOKENJA.cName as HokenName,"));
        CHECK(box.text.ends_with("・・・"));
        CHECK(box.icon == Icon::critical);
        CHECK(box.title.empty());
        CHECK(fixture.world.database.log.back() == "disconnect 1");
        CHECK(fixture.form.iRowCount == 3);
        CHECK(fixture.form.aIninRow == std::vector<IninRow>{IninRow{}});
    }
}

TEST_CASE("a connection lost between rows shows the central box with the procedure's own name")
{
    for (const Procedure &procedure : kProcedures) {
        PrintFixture fixture;
        keepAllDays(fixture);
        leaveRows(fixture);
        FakeResult lost = patients({{{"RiyouName", "一"}}, {{"RiyouName", "二"}}, {}, {}, {}});
        lost.failingMove = 2;
        fixture.answer(lost);
        CAPTURE(procedure.name);
        CHECK((fixture.form.*procedure.run)() == -1);
        CHECK(fixture.onlyBox() == centralBox("-2147467259", "接続が失われました。", procedure.name));
        REQUIRE(fixture.form.aIninRow.size() == 2);
        CHECK(fixture.form.aIninRow[1].利用者氏名 == "二");
        CHECK(fixture.form.iRowCount == 3);
        CHECK(fixture.world.database.log.back() == "disconnect 1");
    }
}

TEST_CASE_FIXTURE(PrintFixture, "the central box is answered before the session is destroyed")
{
    FakeResult lost = patients({{}});
    lost.failingMove = 1;
    answer(lost);
    std::string atBox;
    world.boxes.onShow = [&](const ShownBox &) { atBox = world.database.log.back(); };
    REQUIRE(form.iGetKanjaDataMonth() == -1);

    CHECK(atBox.starts_with("sql 1 SELECT"));
    CHECK(world.database.log.back() == "disconnect 1");
}

TEST_CASE_FIXTURE(PrintFixture, "a failing field keeps the fields before it in the last letter, and none after it")
{
    answer(patients({{{"RiyouName", "一"}}, {{"RiyouName", "二"}, {"iKinSyubetsu", std::int32_t{40000}}}}));
    REQUIRE(form.iGetKanjaDataMonth() == -1);

    REQUIRE(form.aIninRow.size() == 2);
    CHECK(form.aIninRow[1].利用者氏名 == "二");
    CHECK(form.aIninRow[1].会社電話番号 == "03-1111-2222");
    for (const IninField appended :
         {&IninRow::金融機関名, &IninRow::金融機関名２, &IninRow::口座番号, &IninRow::口座名義, &IninRow::最終施術日,
          &IninRow::保険者地区名, &IninRow::世帯主住所, &IninRow::署名日})
        CHECK(form.aIninRow[1].*appended == "");
    CHECK(form.iRowCount == 0);
}

TEST_CASE_FIXTURE(PrintFixture, "a column missing in the result is error 3265")
{
    FakeResult lacking = patients({{}});
    lacking.columns.back() = "renamed";
    answer(lacking);

    CHECK(form.iGetKanjaDataMonth() == -1);
    CHECK(onlyBox().text.find("ｴﾗｰNo.=3265（要求された名前、または序数に対応する項目がコレクションで"
                              "見つかりません。）\r") != std::string::npos);
}

TEST_CASE("an invalid target date shows the central box after the connect and before any statement")
{
    struct Row {
        const char *what;
        void (*spoil)(frmPrintInin &);
        ShownBox box;
    };
    const auto unready = [](const char *number, const char *words) {
        return centralBox(number, words, "iGetKanjaDataMonth");
    };
    const Row rows[] = {
        {"target date empty", [](frmPrintInin &form) { form.csTargetDate.clear(); },
         unready("13", "型が一致しません。")},
        {"target date no date", [](frmPrintInin &form) { form.csTargetDate = "2024/13/45"; },
         unready("13", "型が一致しません。")},
        {"period start empty",
         [](frmPrintInin &form) {
             form.iDspPeriodKind = 2;
             form.imSetDateFrom.Value = Null{};
         },
         unready("94", "Null の使い方が不正です。")},
        {"period end empty",
         [](frmPrintInin &form) {
             form.iDspPeriodKind = 2;
             form.imSetDateTo.Value = Null{};
         },
         unready("94", "Null の使い方が不正です。")},
        {"signature date empty",
         [](frmPrintInin &form) {
             form.iSyomeiKind = 1;
             form.imSyomei.Value = Null{};
         },
         unready("94", "Null の使い方が不正です。")},
    };
    for (const Row &row : rows) {
        PrintFixture fixture;
        leaveRows(fixture);
        row.spoil(fixture.form);
        CAPTURE(row.what);
        CHECK(fixture.form.iGetKanjaDataMonth() == -1);
        CHECK(fixture.onlyBox() == row.box);
        CHECK(fixture.world.database.log == std::vector<std::string>{"connect 1", "disconnect 1"});
        CHECK(fixture.form.iRowCount == 3);
        CHECK(fixture.form.aIninRow.size() == 1);
    }
}

TEST_CASE_FIXTURE(PrintFixture, "a bound after the calendar's last year is a run-time error of the extraction")
{
    form.csTargetDate = "9999/12/1";

    CHECK(form.iGetKanjaDataMonth_Jisseki() == -1);
    CHECK(onlyBox() == centralBox("5", "プロシージャの呼び出し、または引数が不正です。", "iGetKanjaDataMonth_Jisseki"));
}

TEST_CASE_FIXTURE(PrintFixture, "row number 32,768 is kept and overflows the row index")
{
    FakeResult many;
    many.columns = patients({{}}).columns;
    many.rows.assign(32768, patients({{}}).rows.front());
    answer(std::move(many));
    form.iRowCount = 3;

    CHECK(form.iGetKanjaDataMonth() == -1);
    CHECK(onlyBox() == centralBox("6", "オーバーフローしました。", "iGetKanjaDataMonth"));
    CHECK(form.aIninRow.size() == 32768);
    CHECK(form.aIninRow.back().利用者氏名 == "利用　花子");
    CHECK(form.iRowCount == 3);
}

TEST_CASE_FIXTURE(PrintFixture, "32,767 rows are the maximum of an extraction")
{
    FakeResult many;
    many.columns = patients({{}}).columns;
    many.rows.assign(32767, patients({{}}).rows.front());
    answer(std::move(many));

    CHECK(form.iGetKanjaDataMonth() == 0);
    CHECK(form.iRowCount == 32767);
    CHECK(form.aIninRow.size() == 32767);
}

TEST_CASE_FIXTURE(PrintFixture, "an extraction replaces the rows of the previous one")
{
    leaveRows(*this);
    answer(patients({{}}));
    REQUIRE(form.iGetKanjaDataMonth() == 0);

    CHECK(form.aIninRow.size() == 1);
    CHECK(form.iRowCount == 1);
}

TEST_CASE_FIXTURE(PrintFixture, "a session that cannot be closed does not fail the extraction")
{
    world.database.closeError = ado_error::unspecified;
    answer(patients({{}}));

    CHECK(form.iGetKanjaDataMonth() == 0);
    CHECK(form.iRowCount == 1);
    CHECK(world.boxes.shown.empty());
}

} // namespace inin
