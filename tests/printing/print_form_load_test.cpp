#include "printing/print_fixture.h"

#include <doctest/doctest.h>

namespace inin {

namespace {

/// Says what the load calls, in order.
struct LoadFixture : PrintFixture {
    std::vector<std::string> calls;
    std::int16_t setStuff = 0, insurance = 0;
    LoadFixture()
    {
        form.steps.loadInitCorp = [this] { calls.push_back("loadInitCorp"); };
        form.steps.setStuff = [this] {
            calls.push_back("setStuff");
            form.csErrMsg = setStuff == 0 ? "" : "スタッフが存在しません。メイン画面に戻ります";
            return setStuff;
        };
        form.steps.nGetFutanKingaku = [this] {
            calls.push_back("nGetFutanKingaku");
            return insurance;
        };
    }
};

/// Each reading of the clock is one day later.
struct RunningClock : Clock {
    std::int16_t day = 0;
    Date now() override { return DateSerial(2024, 1, 30 + day++); }
    double timer() override { return 0; }
};

} // namespace

TEST_CASE("the load sets the dates of this month and today")
{
    struct Row {
        Date today, first, last;
    };
    for (const Row &row : {Row{DateSerial(2024, 6, 15), DateSerial(2024, 6, 1), DateSerial(2024, 6, 30)},
                           Row{DateSerial(2024, 5, 31), DateSerial(2024, 5, 1), DateSerial(2024, 5, 31)},
                           Row{DateSerial(2024, 12, 31), DateSerial(2024, 12, 1), DateSerial(2024, 12, 31)},
                           Row{DateSerial(2024, 12, 1), DateSerial(2024, 12, 1), DateSerial(2024, 12, 31)},
                           Row{DateSerial(2024, 2, 29), DateSerial(2024, 2, 1), DateSerial(2024, 2, 29)},
                           Row{DateSerial(2023, 2, 3), DateSerial(2023, 2, 1), DateSerial(2023, 2, 28)}}) {
        PrintFixture fixture;
        fixture.world.clock.current = Date(row.today.days() + 0.75);
        fixture.form.load();
        CAPTURE(row.today.days());
        CHECK(fixture.form.imD_Out.Value.get() == Variant(row.first));
        CHECK(fixture.form.imD_LastDay.Value.get() == Variant(row.today));
        CHECK(fixture.form.imSetDateFrom.Value.get() == Variant(row.first));
        CHECK(fixture.form.imSetDateTo.Value.get() == Variant(row.last));
        CHECK(fixture.form.imSyomei.Value.get() == Variant(row.first));
    }
}

TEST_CASE("a load over midnight at the month's end reads the day anew for each box")
{
    FakeWorld world;
    RunningClock clock;
    const Platform platform{world.boxes,     world.windows, world.database, world.profile,   world.files,
                            world.processes, clock,         world.locale,   world.automation};
    App app{platform};
    app.gcsAppPath = "C:\\SUITE";
    frmPrintInin form(app);
    form.load();

    CHECK(form.imD_Out.Value.get() == Variant(DateSerial(2024, 1, 1)));
    CHECK(form.imD_LastDay.Value.get() == Variant(DateSerial(2024, 1, 31)));
    CHECK(form.imSetDateFrom.Value.get() == Variant(DateSerial(2024, 2, 1)));
    CHECK(form.imSetDateTo.Value.get() == Variant(DateSerial(2024, 2, 29)));
    CHECK(form.imSyomei.Value.get() == Variant(DateSerial(2024, 2, 1)));
}

TEST_CASE_FIXTURE(LoadFixture, "the load's steps run in their order around the connect")
{
    form.steps.setStuff = [this] {
        calls.push_back("setStuff after " + world.database.log.back());
        return std::int16_t{0};
    };
    form.load();

    CHECK(calls == std::vector<std::string>{"loadInitCorp", "setStuff after connect 1",
                                            "nGetFutanKingaku"});
    CHECK(world.database.connectionStrings == std::vector<std::string>{"Provider=Fake;Data Source=demo"});
    REQUIRE(form.session != nullptr);
    CHECK(world.boxes.shown.empty());
}

TEST_CASE_FIXTURE(LoadFixture, "the dates stand before the company and the settings are read")
{
    Variant syomei;
    form.steps.loadInitCorp = [&] { syomei = form.imSyomei.Value; };
    form.load();

    CHECK(syomei == Variant(DateSerial(2024, 6, 1)));
}

TEST_CASE_FIXTURE(PrintFixture, "a load without plugged steps connects and shows nothing")
{
    form.load();

    CHECK(world.database.log == std::vector<std::string>{"connect 1"});
    CHECK(world.boxes.shown.empty());
    CHECK(form.isLoaded());
}

TEST_CASE("a load that cannot connect shows one box, leaves the lists alone and the screen open")
{
    struct Row {
        const char *what;
        void (*spoil)(FakeWorld &);
        const char *text;
        bool hasSession;
    };
    const Row rows[] = {
        {"no adodb.ini", [](FakeWorld &world) { world.files.remove("C:\\SUITE\\adodb.ini"); },
         "Form_Load() でエラー\r\n指定されたIni（C:\\SUITE\\adodb.ini）ファイルが見つかりません。", false},
        {"empty text", [](FakeWorld &world) { world.files.putText("C:\\SUITE\\adodb.ini", "[接続情報]\n接続情報=\n"); },
         "Form_Load() でエラー\r\n接続文字列取得できません。", false},
        {"refused", [](FakeWorld &world) { world.database.connectError = ado_error::logInRefused; },
         "Form_Load() でエラー\r\n(-2147217843)接続できません。", true},
    };
    for (const Row &row : rows) {
        LoadFixture fixture;
        row.spoil(fixture.world);
        CAPTURE(row.what);
        fixture.form.load();
        CHECK(fixture.onlyBox() == ShownBox{row.text, Icon::critical, ""});
        CHECK(fixture.calls == std::vector<std::string>{"loadInitCorp"});
        CHECK((fixture.form.session != nullptr) == row.hasSession);
        CHECK(fixture.form.isLoaded());
        CHECK_FALSE(fixture.world.processes.ended);
        CHECK_THROWS_AS(fixture.form.mnF12_Click(), ProcessEnded);
        CHECK(fixture.world.processes.started == std::vector<std::string>{"1 C:\\SUITE\\Main.exe 2"});
    }
}

TEST_CASE_FIXTURE(LoadFixture, "a failed staff list shows its words and hands back to the menu program")
{
    setStuff = -1;

    CHECK_THROWS_AS(form.load(), ProcessEnded);
    CHECK(onlyBox() == ShownBox{"スタッフが存在しません。メイン画面に戻ります", Icon::critical, "委任状印刷"});
    CHECK(calls == std::vector<std::string>{"loadInitCorp", "setStuff"});
    CHECK(world.database.log == std::vector<std::string>{"connect 1", "disconnect 1"});
    CHECK(world.processes.started == std::vector<std::string>{"1 C:\\SUITE\\Main.exe 2"});
}

TEST_CASE_FIXTURE(LoadFixture, "a failed insurance list shows a box and the screen stays open")
{
    insurance = -1;
    form.load();

    CHECK(onlyBox() == ShownBox{"保険区分の取得に失敗しました。", Icon::critical, "初期設定"});
    CHECK(form.isLoaded());
    CHECK_FALSE(world.processes.ended);
}

TEST_CASE_FIXTURE(PrintFixture, "the unload disconnects, starts the menu program and ends the process")
{
    form.load();

    CHECK_THROWS_AS(form.unload(), ProcessEnded);
    CHECK(world.database.log == std::vector<std::string>{"connect 1", "disconnect 1"});
    CHECK(form.session == nullptr);
    CHECK(world.processes.started == std::vector<std::string>{"1 C:\\SUITE\\Main.exe 2"});
    CHECK(world.processes.ended);
}

TEST_CASE_FIXTURE(PrintFixture, "a session that cannot be closed does not hold the unload up")
{
    form.load();
    world.database.closeError = ado_error::unspecified;

    CHECK_THROWS_AS(form.unload(), ProcessEnded);
    CHECK(world.processes.started == std::vector<std::string>{"1 C:\\SUITE\\Main.exe 2"});
    CHECK(world.boxes.shown.empty());
}

TEST_CASE_FIXTURE(PrintFixture, "a menu program that cannot be started is an unhandled error")
{
    form.load();
    world.processes.startError = 53;

    CHECK_THROWS_AS(form.unload(), UnhandledError);
    CHECK_FALSE(world.processes.ended);
    CHECK(world.boxes.shown.empty());
}

} // namespace inin
