#include "printing/settings_fixture.h"

namespace inin {

namespace {

using Names = std::vector<std::string>;

/// A kind's text in the file, the option that it selects and the field after its click.
struct KindRow {
    const char *value;
    std::int16_t marked;
    std::int16_t kind;
};

} // namespace

TEST_CASE_FIXTURE(StoreFixture, "without a store the screen keeps its design state")
{
    CHECK(form.iLoadPrintSetting() == 0);
    CHECK(marked() == Names{"optSyomei(1)"});
    CHECK(form.iObjectKind == 0);
    CHECK(form.iTrustKind == 0);
    CHECK(form.iTgtDateKind == 0);
    CHECK(form.iDspPeriodKind == 0);
    CHECK(world.boxes.shown.empty());
    CHECK_FALSE(world.files.has(kStore));
}

TEST_CASE("the stored target data select their option")
{
    for (const KindRow &row :
         {KindRow{"1", 0, 1},     KindRow{"2", 1, 2},       KindRow{"3", 2, 2},      KindRow{"9", 2, 2},
          KindRow{"0", 2, 2},     KindRow{"-1", 2, 2},      KindRow{"", 0, 1},       KindRow{"x", 0, 1},
          KindRow{"2x", 0, 1},    KindRow{"   2   ", 1, 2}, KindRow{"1.5", 1, 2},    KindRow{"2.5", 1, 2},
          KindRow{"0.5", 2, 2},   KindRow{"2.0", 1, 2},     KindRow{"1e0", 0, 1},    KindRow{"&H2", 1, 2},
          KindRow{"２", 0, 1},    KindRow{"32767", 2, 2},   KindRow{"-32768", 2, 2}, KindRow{"\"2\"", 1, 2},
          KindRow{"１．０", 0, 1}}) {
        StoreFixture fixture;
        CAPTURE(row.value);
        CHECK(fixture.loadKey("対象データ", row.value) == 1);
        CHECK(fixture.form.optObject.marked() == row.marked);
        CHECK(fixture.form.iObjectKind == row.kind);
        CHECK(fixture.world.boxes.shown.empty());
    }
}

TEST_CASE("the stored delegate selects its option")
{
    for (const KindRow &row : {KindRow{"1", 0, 1}, KindRow{"2", 1, 2}, KindRow{"3", 1, 2}, KindRow{"0", 1, 2},
                               KindRow{"", 0, 1}, KindRow{"x", 0, 1}, KindRow{"1.2", 0, 1}, KindRow{"&H1", 0, 1}}) {
        StoreFixture fixture;
        CAPTURE(row.value);
        CHECK(fixture.loadKey("受任者", row.value) == 1);
        CHECK(fixture.form.optTrust.marked() == row.marked);
        CHECK(fixture.form.iTrustKind == row.kind);
    }
}

TEST_CASE("the stored target period selects its option, even the hidden one, and sets the target frame")
{
    struct Row {
        const char *value;
        std::int16_t marked, kind;
        bool frmObject;
    };
    for (const Row &row : {Row{"1", 0, 1, true}, Row{"2", 1, 2, true}, Row{"3", 2, 3, false}, Row{"4", 2, 3, false},
                           Row{"0", 2, 3, false}, Row{"", 0, 1, true}, Row{"月", 0, 1, true}, Row{"2.4", 1, 2, true}}) {
        StoreFixture fixture;
        CAPTURE(row.value);
        CHECK(fixture.loadKey("対象期間", row.value) == 1);
        CHECK(fixture.form.optTgtDate.marked() == row.marked);
        CHECK(fixture.form.iTgtDateKind == row.kind);
        CHECK(fixture.form.frmObject.Enabled.get() == row.frmObject);
    }
}

TEST_CASE("the stored period selects its option")
{
    for (const KindRow &row :
         {KindRow{"1", 0, 1}, KindRow{"2", 1, 2}, KindRow{"7", 1, 2}, KindRow{"", 0, 1}, KindRow{"x", 0, 1}}) {
        StoreFixture fixture;
        CAPTURE(row.value);
        CHECK(fixture.loadKey("表示期間", row.value) == 1);
        CHECK(fixture.form.optDspPeriod.marked() == row.marked);
        CHECK(fixture.form.iDspPeriodKind == row.kind);
    }
}

TEST_CASE("the stored report selects its option; anything that is not a 32-bit number counts as 0")
{
    struct Row {
        const char *value;
        std::int16_t marked;
    };
    for (const Row &row : {Row{"0", 0}, Row{"1", 1}, Row{"2", 2}, Row{"3", 1}, Row{"-1", 1}, Row{"", 0}, Row{"x", 0},
                           Row{"0.5", 0}, Row{"1.5", 2}, Row{"2.5", 2}, Row{"1e0", 1}, Row{"&H2", 2}, Row{"２", 0},
                           Row{"99999", 1}, Row{"2147483647", 1}, Row{"2147483648", 0}, Row{"1e999", 0}}) {
        StoreFixture fixture;
        CAPTURE(row.value);
        CHECK(fixture.loadKey("帳票種類", row.value) == 1);
        CHECK(fixture.form.optPrint.marked() == row.marked);
        CHECK(fixture.world.boxes.shown.empty());
    }
}

TEST_CASE("the stored signature is automatic for a number equal to 0, and entered for anything else")
{
    struct Row {
        const char *value;
        bool isAutomatic;
    };
    for (const Row &row :
         {Row{"0", true}, Row{"0.0", true}, Row{"-0", true}, Row{"0e5", true}, Row{"&H0", true}, Row{"00", true},
          Row{"1", false}, Row{"2", false}, Row{"-1", false}, Row{"", false}, Row{"x", false}, Row{"０", false},
          Row{"0.1", false}, Row{"1e0", false}, Row{"99999999999999999999", false}, Row{"1e999", false}}) {
        StoreFixture fixture;
        CAPTURE(row.value);
        CHECK(fixture.loadKey("署名日", row.value) == 1);
        CHECK(fixture.form.optSyomei.marked() == (row.isAutomatic ? 0 : 1));
        CHECK(fixture.form.imSyomei.Enabled.get() == !row.isAutomatic);
    }
}

TEST_CASE("an empty store, or one without its section or keys, gives all defaults")
{
    for (const char *lines : {"[他]\n対象データ=2\n", "[委任状]\n", "", "対象データ=2\n受任者=2\n"}) {
        StoreFixture fixture;
        fixture.put(lines);
        CAPTURE(lines);
        CHECK(fixture.form.iLoadPrintSetting() == 1);
        CHECK(fixture.marked() ==
              Names{"optPrint(0)", "optObject(0)", "optTgtDate(0)", "optTrust(0)", "optDspPeriod(0)", "optSyomei(1)"});
        CHECK(fixture.form.iObjectKind == 1);
        CHECK(fixture.form.iTrustKind == 1);
        CHECK(fixture.form.iTgtDateKind == 1);
        CHECK(fixture.form.iDspPeriodKind == 1);
    }
}

TEST_CASE("the clicks of a load fire in the order of the keys, the report after the kinds")
{
    struct Row {
        const char *lines;
        Names clicks;
    };
    const Row rows[] = {
        // Reversed in the file: the order is that of the load. The entered signature is already selected and fires
        // nothing.
        {"[委任状]\n署名日=1\n帳票種類=2\n表示期間=2\n対象期間=2\n受任者=2\n対象データ=2\n",
         {"optObject(1)", "optTrust(1)", "optTgtDate(1)", "optDspPeriod(1)", "optPrint(2)"}},
        {"[委任状]\n署名日=0\n帳票種類=1\n",
         {"optObject(0)", "optTrust(0)", "optTgtDate(0)", "optDspPeriod(0)", "optPrint(1)", "optObject(2)",
          "optSyomei(0)"}},
        {"[委任状]\n対象データ=3\n対象期間=3\n帳票種類=1\n",
         {"optObject(2)", "optTrust(0)", "optTgtDate(2)", "optDspPeriod(0)", "optPrint(1)"}},
    };
    for (const Row &row : rows) {
        StoreFixture fixture;
        Names clicks;
        fixture.recordClicks(clicks);
        fixture.put(row.lines);
        CAPTURE(row.lines);
        CHECK(fixture.form.iLoadPrintSetting() == 1);
        CHECK(clicks == row.clicks);
    }
}

TEST_CASE("after a load the enabling by the report applies, whatever target and period are")
{
    struct Row {
        const char *report;
        bool isEnabled;
    };
    for (const Row &row : {Row{"0", true}, Row{"1", false}, Row{"2", true}}) {
        for (const char *kind : {"1", "2", "3"}) {
            StoreFixture fixture;
            fixture.put(std::string("[委任状]\n対象期間=") + kind + "\n表示期間=" + kind + "\n帳票種類=" + row.report +
                        "\n");
            REQUIRE(fixture.form.iLoadPrintSetting() == 1);
            CAPTURE(row.report);
            CAPTURE(kind);
            CHECK(fixture.form.imD_Out.Enabled.get() == row.isEnabled);
            CHECK(fixture.form.imD_LastDay.Enabled.get() == row.isEnabled);
            CHECK(fixture.form.imSetDateFrom.Enabled.get() == row.isEnabled);
            CHECK(fixture.form.imSetDateTo.Enabled.get() == row.isEnabled);
        }
    }
}

TEST_CASE_FIXTURE(StoreFixture,
                  "a second load with the report already selected leaves the enabling by target and period")
{
    put("[委任状]\n対象期間=1\n表示期間=1\n帳票種類=0\n署名日=1\n");
    REQUIRE(form.iLoadPrintSetting() == 1);
    // No option changes now, so no click fires: only the load itself can set the state.
    form.imD_Out.Enabled = false;
    form.frmObject.Enabled = false;
    form.imSyomei.Enabled = false;
    Names clicks;
    recordClicks(clicks);
    REQUIRE(form.iLoadPrintSetting() == 1);

    CHECK(clicks.empty());
    CHECK(form.frmObject.Enabled);
    CHECK(form.imD_Out.Enabled);
    CHECK_FALSE(form.imD_LastDay.Enabled);
    CHECK_FALSE(form.imSetDateFrom.Enabled);
    CHECK_FALSE(form.imSetDateTo.Enabled);
    CHECK(form.imSyomei.Enabled);
}

TEST_CASE_FIXTURE(StoreFixture, "an entered period that is already selected is enabled by the load itself")
{
    put("[委任状]\n表示期間=2\n帳票種類=0\n署名日=1\n");
    REQUIRE(form.iLoadPrintSetting() == 1);
    form.imSetDateFrom.Enabled = false;
    form.imSetDateTo.Enabled = false;
    Names clicks;
    recordClicks(clicks);
    REQUIRE(form.iLoadPrintSetting() == 1);

    CHECK(clicks.empty());
    CHECK(form.imSetDateFrom.Enabled);
    CHECK(form.imSetDateTo.Enabled);
}

TEST_CASE_FIXTURE(StoreFixture, "a last treatment day that is already selected is enabled by the load itself")
{
    put("[委任状]\n対象期間=2\n帳票種類=0\n署名日=0\n");
    REQUIRE(form.iLoadPrintSetting() == 1);
    form.frmObject.Enabled = false;
    form.imD_Out.Enabled = true;
    form.imD_LastDay.Enabled = false;
    form.imSyomei.Enabled = true;
    Names clicks;
    recordClicks(clicks);
    REQUIRE(form.iLoadPrintSetting() == 1);

    CHECK(clicks.empty());
    CHECK(form.frmObject.Enabled);
    CHECK_FALSE(form.imD_Out.Enabled);
    CHECK(form.imD_LastDay.Enabled);
    CHECK_FALSE(form.imSyomei.Enabled);
}

TEST_CASE_FIXTURE(StoreFixture, "a stored Aichi format selects no target data, whatever the stored target data")
{
    put("[委任状]\n対象データ=1\n帳票種類=1\n");
    REQUIRE(form.iLoadPrintSetting() == 1);

    CHECK(form.optObject.marked() == 2);
    CHECK_FALSE(form.optTrust(0).Enabled);
    CHECK_FALSE(form.cmbHoken.Enabled);
}

TEST_CASE("a kind beyond 16 bits is an overflow: a box, no result, and the keys before it keep their values")
{
    struct Row {
        const char *lines;
        Names marked;
    };
    const Row rows[] = {
        {"[委任状]\n対象データ=32768\n受任者=2\n", {"optSyomei(1)"}},
        {"[委任状]\n対象データ=2\n受任者=-32769\n", {"optObject(1)", "optSyomei(1)"}},
        {"[委任状]\n対象期間=1e30\n署名日=0\n", {"optObject(0)", "optTrust(0)", "optSyomei(1)"}},
        {"[委任状]\n表示期間=99999\n", {"optObject(0)", "optTgtDate(0)", "optTrust(0)", "optSyomei(1)"}},
    };
    for (const Row &row : rows) {
        StoreFixture fixture;
        fixture.put(row.lines);
        CAPTURE(row.lines);
        CHECK(fixture.form.iLoadPrintSetting() == 0);
        fixture.checkOnlyBox("Error:オーバーフローしました。");
        CHECK(fixture.marked() == row.marked);
    }
}

TEST_CASE_FIXTURE(StoreFixture, "an unreadable store gives the defaults without a message")
{
    put("[委任状]\n対象データ=2\n");
    world.profile.error = 57;

    CHECK(form.iLoadPrintSetting() == 1);
    CHECK(form.optObject.marked() == 0);
    CHECK(world.boxes.shown.empty());
}

} // namespace inin
