#include "printing/print_fixture.h"

#include <doctest/doctest.h>

namespace inin {

TEST_CASE_FIXTURE(PrintFixture, "the target month is its first day, with a single digit")
{
    markScreen();
    form.imD_Out.Value = DateSerial(2024, 5, 17);
    REQUIRE(form.iGetPrintCond() == 0);

    CHECK(form.iTgtDateKind == 1);
    CHECK(form.csTargetDate == "2024/05/1");
}

TEST_CASE_FIXTURE(PrintFixture, "the last treatment day is written with two digits each")
{
    markScreen();
    form.optTgtDate(1).Value = true;
    form.imD_LastDay.Value = DateSerial(2024, 5, 7);
    REQUIRE(form.iGetPrintCond() == 0);

    CHECK(form.iTgtDateKind == 2);
    CHECK(form.csTargetDate == "2024/05/07");
}

TEST_CASE_FIXTURE(PrintFixture, "no period uses today's date without padding")
{
    markScreen();
    form.optTgtDate(2).Value = true;
    world.clock.current = DateSerial(2024, 6, 5);
    REQUIRE(form.iGetPrintCond() == 0);

    CHECK(form.iTgtDateKind == 3);
    CHECK(form.csTargetDate == "2024/6/5");
}

TEST_CASE_FIXTURE(PrintFixture, "without a target option, kind and date keep their values")
{
    form.iTgtDateKind = 2;
    form.csTargetDate = "2020/01/01";
    REQUIRE(form.iGetPrintCond() == 0);

    CHECK(form.iTgtDateKind == 2);
    CHECK(form.csTargetDate == "2020/01/01");
}

TEST_CASE("the selected option of a group gives its kind")
{
    struct Row {
        const char *what;
        OptionGroup PrintControls::*group;
        std::int16_t marked;
        std::int16_t frmPrintInin::*kind;
        std::int16_t value;
    };
    using Screen = frmPrintInin;
    for (const Row &row : {
             Row{"planned", &Screen::optObject, 0, &Screen::iObjectKind, 1},
             Row{"actual", &Screen::optObject, 1, &Screen::iObjectKind, 2},
             Row{"none", &Screen::optObject, 2, &Screen::iObjectKind, 3},
             Row{"no mark", &Screen::optObject, -1, &Screen::iObjectKind, 3},
             Row{"head office", &Screen::optTrust, 0, &Screen::iTrustKind, 1},
             Row{"agent", &Screen::optTrust, 1, &Screen::iTrustKind, 2},
             Row{"no receiver", &Screen::optTrust, -1, &Screen::iTrustKind, 2},
             Row{"whole month", &Screen::optDspPeriod, 0, &Screen::iDspPeriodKind, 1},
             Row{"entered period", &Screen::optDspPeriod, 1, &Screen::iDspPeriodKind, 2},
             Row{"no period kind", &Screen::optDspPeriod, -1, &Screen::iDspPeriodKind, 2},
             Row{"standard", &Screen::optPrint, 0, &Screen::iPrintKind, 0},
             Row{"Aichi", &Screen::optPrint, 1, &Screen::iPrintKind, 1},
             Row{"Takamatsu", &Screen::optPrint, 2, &Screen::iPrintKind, 2},
             Row{"no report", &Screen::optPrint, -1, &Screen::iPrintKind, 1},
             Row{"automatic", &Screen::optSyomei, 0, &Screen::iSyomeiKind, 0},
             Row{"entered date", &Screen::optSyomei, 1, &Screen::iSyomeiKind, 1},
             Row{"no signature kind", &Screen::optSyomei, -1, &Screen::iSyomeiKind, 1},
         }) {
        PrintFixture fixture;
        OptionGroup &group = fixture.form.*row.group;
        for (std::int16_t index = 0; index < group.count(); ++index) group(index).Value = false;
        if (row.marked >= 0) group(row.marked).Value = true;
        fixture.form.*row.kind = 9;
        CAPTURE(row.what);
        REQUIRE(fixture.form.iGetPrintCond() == 0);
        CHECK(fixture.form.*row.kind == row.value);
    }
}

TEST_CASE("patient and staff numbers are -1 for an empty box, otherwise the box's number")
{
    struct Row {
        Variant box;
        std::int32_t number;
    };
    for (const Row &row : {Row{Null{}, -1}, Row{std::int32_t{0}, 0}, Row{std::int32_t{501}, 501},
                           Row{std::int32_t{-3}, -3}, Row{2.5, 2}, Row{3.5, 4}}) {
        PrintFixture fixture;
        fixture.form.imNum_CD.Value = row.box;
        fixture.form.imNum_StaffNo.Value = row.box;
        CAPTURE(row.number);
        REQUIRE(fixture.form.iGetPrintCond() == 0);
        CHECK(fixture.form.nKanjaNo == row.number);
        CHECK(fixture.form.nStaffNo == row.number);
    }
}

TEST_CASE_FIXTURE(PrintFixture, "the insurance condition is the position in the list, not the entry's number")
{
    form.cmbHoken.ListIndex = std::int16_t{1};
    REQUIRE(form.iGetPrintCond() == 0);

    CHECK(form.cmbHoken.ItemData(1) == 30);
    CHECK(form.iHokenIndex == 1);
}

TEST_CASE_FIXTURE(PrintFixture, "an insurance list that was never filled gives -1")
{
    form.cmbHoken.Clear();
    REQUIRE(form.iGetPrintCond() == 0);

    CHECK(form.iHokenIndex == -1);
}

TEST_CASE_FIXTURE(PrintFixture, "the check box of ended patients is read although it is hidden")
{
    form.chkExpireDay.Value = std::int16_t{1};
    REQUIRE(form.iGetPrintCond() == 0);

    CHECK(form.iExpireKind == 1);
}

TEST_CASE("the day boxes are sorted and limited to the last day of the target month")
{
    struct Row {
        const char *csTargetDate;
        std::int32_t from, to;
        std::int16_t first, last;
    };
    for (const Row &row :
         {Row{"2024/05/1", 5, 20, 5, 20}, Row{"2024/05/1", 20, 5, 5, 20}, Row{"2024/02/1", 31, 30, 29, 29},
          Row{"2023/02/1", 1, 31, 1, 28}, Row{"2024/12/1", 31, 31, 31, 31}, Row{"2024/04/30", 31, 10, 10, 30}}) {
        PrintFixture fixture;
        fixture.form.csTargetDate = row.csTargetDate;
        fixture.form.optDspPeriod(1).Value = true;
        fixture.form.inPeriodFrom.Value = row.from;
        fixture.form.inPeriodTo.Value = row.to;
        CAPTURE(row.csTargetDate);
        REQUIRE(fixture.form.iGetPrintCond() == 0);
        CHECK(fixture.form.iPeriodFromDay == row.first);
        CHECK(fixture.form.iPeriodToDay == row.last);
    }
}

TEST_CASE_FIXTURE(PrintFixture, "with the whole month the period days keep their values")
{
    form.optDspPeriod(0).Value = true;
    form.iPeriodFromDay = 3;
    form.iPeriodToDay = 4;
    form.inPeriodFrom.Value = std::int32_t{20};
    REQUIRE(form.iGetPrintCond() == 0);

    CHECK(form.iPeriodFromDay == 3);
    CHECK(form.iPeriodToDay == 4);
}

TEST_CASE_FIXTURE(PrintFixture,
                  "an empty month box fails with a numbered box without icon, and fields already read stay set")
{
    markScreen();
    form.iTgtDateKind = 2;
    form.iObjectKind = 9;
    form.imD_Out.Value = Null{};

    CHECK(form.iGetPrintCond() == -1);
    CHECK(onlyBox() == ShownBox{"(94)Null の使い方が不正です。", Icon::none, ""});
    CHECK(form.iTgtDateKind == 1);
    CHECK(form.csTargetDate == "2024/05/1");
    CHECK(form.iObjectKind == 9);
}

TEST_CASE_FIXTURE(PrintFixture, "an empty day box fails in the same way")
{
    form.optTgtDate(1).Value = true;
    form.imD_LastDay.Value = Null{};

    CHECK(form.iGetPrintCond() == -1);
    CHECK(onlyBox() == ShownBox{"(94)Null の使い方が不正です。", Icon::none, ""});
}

TEST_CASE_FIXTURE(PrintFixture, "a failure in the middle keeps the kinds read before it and leaves the rest unchanged")
{
    form.csTargetDate = "";
    form.optObject(1).Value = true;
    form.optTrust(1).Value = true;
    form.optDspPeriod(1).Value = true;
    // The clicks have already set these kinds: change them, so that only the read itself can set them.
    form.iObjectKind = form.iTrustKind = form.iDspPeriodKind = 9;
    form.nKanjaNo = 77;

    CHECK(form.iGetPrintCond() == -1);
    CHECK(onlyBox() == ShownBox{"(13)型が一致しません。", Icon::none, ""});
    CHECK(form.iObjectKind == 2);
    CHECK(form.iTrustKind == 2);
    CHECK(form.iDspPeriodKind == 2);
    CHECK(form.nKanjaNo == 77);
}

TEST_CASE_FIXTURE(PrintFixture, "a number beyond 32 bits is an overflow, and the staff number is not read")
{
    form.imNum_CD.Value = 3e9;
    form.imNum_StaffNo.Value = std::int32_t{5};
    form.nStaffNo = 77;

    CHECK(form.iGetPrintCond() == -1);
    CHECK(onlyBox() == ShownBox{"(6)オーバーフローしました。", Icon::none, ""});
    CHECK(form.nStaffNo == 77);
}

TEST_CASE_FIXTURE(PrintFixture, "disabled controls are read all the same")
{
    markScreen();
    form.imNum_CD.Value = std::int32_t{501};
    form.imNum_CD.Enabled = false;
    form.imD_Out.Enabled = false;
    REQUIRE(form.iGetPrintCond() == 0);

    CHECK(form.nKanjaNo == 501);
    CHECK(form.csTargetDate == "2024/05/1");
}

} // namespace inin
