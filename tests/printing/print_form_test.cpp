#include "printing/print_fixture.h"

#include <doctest/doctest.h>

namespace inin {

TEST_CASE("every way to close the screen returns to the menu program")
{
    struct Row {
        const char *what;
        void (*leave)(frmPrintInin &);
    };
    const Row rows[] = {
        {"menu entry", [](frmPrintInin &form) { form.mnF12.onClick(); }},
        {"button", [](frmPrintInin &form) { form.btnPrint(6).onClick(); }},
        {"F12", [](frmPrintInin &form) { form.key(nullptr, 123); }},
        {"escape key", [](frmPrintInin &form) { form.key(&form.imNum_CD, 27); }},
        {"control box", [](frmPrintInin &form) { form.unload(true); }},
    };
    for (const Row &row : rows) {
        PrintFixture fixture;
        fixture.form.load();
        CAPTURE(row.what);
        CHECK_THROWS_AS(row.leave(fixture.form), ProcessEnded);
        CHECK(fixture.world.processes.started == std::vector<std::string>{"1 C:\\SUITE\\Main.exe 2"});
    }
}

TEST_CASE("print and preview start by button, menu entry and function key")
{
    struct Row {
        const char *what;
        void (*press)(frmPrintInin &);
        const char *started;
    };
    const char *const print = "2 wfrfv10.exe /c C:\\SUITE\\TMP\\WfdCom.dat";
    const char *const preview = "3 WrVb6Viewer.exe /c ./TMP\\WfdCom.dat";
    const Row rows[] = {
        {"print button", [](frmPrintInin &form) { form.btnPrint(0).onClick(); }, print},
        {"print menu", [](frmPrintInin &form) { form.mnF01.onClick(); }, print},
        {"F1", [](frmPrintInin &form) { form.key(nullptr, 112); }, print},
        {"preview button", [](frmPrintInin &form) { form.btnPrint(1).onClick(); }, preview},
        {"preview menu", [](frmPrintInin &form) { form.mnF02.onClick(); }, preview},
        {"F2", [](frmPrintInin &form) { form.key(&form.imNum_CD, 113); }, preview},
    };
    for (const Row &row : rows) {
        PrintFixture fixture;
        fixture.markScreen();
        fixture.answer(patients({{}}));
        CAPTURE(row.what);
        row.press(fixture.form);
        CHECK(fixture.world.processes.started == std::vector<std::string>{row.started});
    }
}

TEST_CASE_FIXTURE(PrintFixture, "a button index outside the design does nothing")
{
    form.load();
    markScreen();
    world.database.log.clear();
    for (const std::int16_t Index : std::initializer_list<std::int16_t>{2, 3, 4, 5, 7, -1}) form.btnPrint_Click(Index);

    CHECK(world.boxes.shown.empty());
    CHECK(world.database.log.empty());
    CHECK(world.processes.started.empty());
    CHECK(form.isLoaded());
}

TEST_CASE_FIXTURE(PrintFixture, "a new form has zeros and empty texts in its fields")
{
    const frmPrintInin fresh(world.app);

    CHECK(fresh.fields() == std::vector<std::pair<std::string, Variant>>{{"csErrMsg", ""},
                                                                         {"iRowCount", std::int16_t{0}},
                                                                         {"csTargetDate", ""},
                                                                         {"iTgtDateKind", std::int16_t{0}},
                                                                         {"iObjectKind", std::int16_t{0}},
                                                                         {"iDspPeriodKind", std::int16_t{0}},
                                                                         {"iTrustKind", std::int16_t{0}},
                                                                         {"iHokenIndex", std::int16_t{0}},
                                                                         {"iPeriodFromDay", std::int16_t{0}},
                                                                         {"iPeriodToDay", std::int16_t{0}},
                                                                         {"nStaffNo", std::int32_t{0}},
                                                                         {"nKanjaNo", std::int32_t{0}},
                                                                         {"iExpireKind", std::int16_t{0}},
                                                                         {"iPrintKind", std::int16_t{0}},
                                                                         {"iSyomeiKind", std::int16_t{0}}});
    CHECK(fresh.rows().empty());
}

TEST_CASE_FIXTURE(PrintFixture, "the letter texts are the rows that are counted and exist")
{
    form.aIninRow.assign(2, IninRow{});
    form.aIninRow[0].対象開始日 = "始";
    form.aIninRow[0].署名日 = "署";

    form.iRowCount = 1;
    REQUIRE(form.rows().size() == 1);
    CHECK(form.rows()[0].size() == 20);
    CHECK(form.rows()[0].front() == "始");
    CHECK(form.rows()[0].back() == "署");
    form.iRowCount = 5;
    CHECK(form.rows().size() == 2);
    form.iRowCount = 0;
    CHECK(form.rows().empty());
}

} // namespace inin
