#include "printing/print_fixture.h"

#include <doctest/doctest.h>

namespace inin {

namespace {

constexpr const char *kStoredSettings = "C:\\SUITE\\DATA\\印刷設定.ini";

std::string textOf(const ListBox &list)
{
    return list.items().at(static_cast<std::size_t>(list.ListIndex.get())).text;
}

/// Each read of the clock is one day later.
struct RunningClock : Clock {
    std::int16_t day = 0;
    Date now() override { return DateSerial(2024, 1, 30 + day++); }
    double timer() override { return 0; }
    void pause(std::chrono::milliseconds) override {}
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

TEST_CASE_FIXTURE(PrintFixture, "a load across midnight at the month's end reads the day anew for each box")
{
    RunningClock clock;
    const Platform platform{world.boxes,     world.windows, world.database, world.profile,   world.files,
                            world.processes, clock,         world.locale,   world.automation};
    App app{platform};
    app.gcsAppPath = "C:\\SUITE";
    frmPrintInin screen(app);
    screen.load();

    CHECK(screen.imD_Out.Value.get() == Variant(DateSerial(2024, 1, 1)));
    CHECK(screen.imD_LastDay.Value.get() == Variant(DateSerial(2024, 1, 31)));
    CHECK(screen.imSetDateFrom.Value.get() == Variant(DateSerial(2024, 2, 1)));
    CHECK(screen.imSetDateTo.Value.get() == Variant(DateSerial(2024, 2, 29)));
    CHECK(screen.imSyomei.Value.get() == Variant(DateSerial(2024, 2, 1)));
}

TEST_CASE_FIXTURE(PrintFixture,
                  "the load reads the company and the store, connects, fills the staff list, then the insurance list")
{
    world.files.putText(kStoredSettings, "[委任状]\n対象データ=2\n");
    std::vector<std::string> &log = world.database.log;
    form.optObject.onClick = [&log](std::int16_t) { log.emplace_back("store"); };
    form.load();

    std::vector<std::string> steps;
    for (const std::string &line : log) {
        const std::size_t number = line.find(' ');
        steps.push_back(line.substr(0, number == std::string::npos ? number : number + 2));
    }
    CHECK(steps == std::vector<std::string>{"connect 1", "sql 1", "disconnect 1", "store", "connect 2", "sql 2",
                                            "connect 3", "sql 3", "disconnect 3"});
    CHECK(log[1].find(" FROM      CORP") != std::string::npos);
    CHECK(log[5].find(" FROM      STAFF") != std::string::npos);
    CHECK(log[7].find(" FROM      HOKEN ") != std::string::npos);
    CHECK(world.database.connectionStrings == std::vector<std::string>(3, "Provider=Fake;Data Source=demo"));
    REQUIRE(form.session != nullptr);
    CHECK(world.boxes.shown.empty());
    CHECK(form.isLoaded());
}

TEST_CASE_FIXTURE(PrintFixture, "the dates are set before the company is read")
{
    Variant syomei;
    world.database.connectError = ado_error::logInRefused;
    world.boxes.onShow = [&](const ShownBox &box) {
        if (box.text.starts_with("loadInitCorp")) syomei = form.imSyomei.Value;
    };
    form.load();

    CHECK(syomei == Variant(DateSerial(2024, 6, 1)));
}

TEST_CASE("an opened screen shows these values")
{
    PrintFixture fixture;
    fixture.world.files.putText(kStoredSettings, "[委任状]\n");
    frmPrintInin form(fixture.world.app);
    form.load();

    CHECK(form.imD_Out.Value.get() == Variant(DateSerial(2024, 6, 1)));
    CHECK(form.imD_LastDay.Value.get() == Variant(DateSerial(2024, 6, 15)));
    CHECK(form.imSetDateFrom.Value.get() == Variant(DateSerial(2024, 6, 1)));
    CHECK(form.imSetDateTo.Value.get() == Variant(DateSerial(2024, 6, 30)));
    CHECK(form.imSyomei.Value.get() == Variant(DateSerial(2024, 6, 1)));
    CHECK(textOf(form.cbSejyutsu) == "－ 指定なし －");
    CHECK(form.imNum_StaffNo.Value.get() == Variant(std::int32_t{0}));
    CHECK(form.imNum_CD.Value.get() == Variant(Null{}));
    CHECK(form.lbl_SelKanja.Caption.get().empty());
    CHECK(textOf(form.cmbHoken) == "－ 指定なし －");
    for (const OptionGroup *group :
         {&form.optPrint, &form.optObject, &form.optTgtDate, &form.optTrust, &form.optDspPeriod})
        CHECK(group->marked() == 0);
    CHECK(form.optSyomei.marked() == 1);
}

TEST_CASE_FIXTURE(PrintFixture,
                  "without a store only the entered signature is selected, and a print requires a date option")
{
    form.load();

    CHECK(form.optSyomei.marked() == 1);
    for (const OptionGroup *group :
         {&form.optPrint, &form.optObject, &form.optTgtDate, &form.optTrust, &form.optDspPeriod})
        CHECK(group->marked() == -1);
    form.mnF01_Click();
    CHECK(onlyBox() == ShownBox{"出力対象となる日にちを選択してください。", Icon::information, "情報"});
    form.optTgtDate(0).Value = true;
    form.mnF01_Click();
    CHECK(world.boxes.shown.size() == 2);
    CHECK(world.boxes.shown[1].text == "該当する患者データがありません。");
}

TEST_CASE_FIXTURE(PrintFixture, "a store that fails in the middle shows its box, and the load continues")
{
    world.files.putText(kStoredSettings, "[委任状]\n受任者=99999\n");
    form.load();

    CHECK(onlyBox() == ShownBox{"Error:オーバーフローしました。", Icon::none, ""});
    CHECK(form.cbSejyutsu.ListCount() == 3);
    CHECK(form.cmbHoken.ListCount() == 3);
}

TEST_CASE("a load that cannot connect shows one box each for company and screen, and the screen opens with empty lists")
{
    struct Row {
        const char *what;
        void (*spoil)(FakeWorld &);
        const char *text;
        bool hasSession;
    };
    const Row rows[] = {
        {"no adodb.ini", [](FakeWorld &world) { world.files.remove("C:\\SUITE\\adodb.ini"); },
         "指定されたIni（C:\\SUITE\\adodb.ini）ファイルが見つかりません。", false},
        {"empty text", [](FakeWorld &world) { world.files.putText("C:\\SUITE\\adodb.ini", "[接続情報]\n接続情報=\n"); },
         "接続文字列取得できません。", false},
        {"refused", [](FakeWorld &world) { world.database.connectError = ado_error::logInRefused; },
         "(-2147217843)接続できません。", true},
    };
    for (const Row &row : rows) {
        PrintFixture fixture;
        row.spoil(fixture.world);
        fixture.world.files.putText(kStoredSettings, "[委任状]\n対象データ=2\n");
        frmPrintInin form(fixture.world.app);
        CAPTURE(row.what);
        form.load();
        CHECK(fixture.world.boxes.shown ==
              std::vector<ShownBox>{{std::string("loadInitCorp でエラー\r\n") + row.text, Icon::critical, ""},
                                    {std::string("Form_Load() でエラー\r\n") + row.text, Icon::critical, ""}});
        CHECK((form.session != nullptr) == row.hasSession);
        CHECK(form.optObject.marked() == 1);
        CHECK(form.cbSejyutsu.ListCount() == 0);
        CHECK(form.cmbHoken.ListCount() == 0);
        CHECK(form.imNum_StaffNo.Value.get() == Variant(Null{}));
        CHECK(form.isLoaded());
        CHECK_FALSE(fixture.world.processes.ended);
        CHECK_THROWS_AS(form.mnF12_Click(), ProcessEnded);
        CHECK(fixture.world.processes.started == std::vector<std::string>{"1 C:\\SUITE\\Main.exe 2"});
    }
}

TEST_CASE_FIXTURE(PrintFixture, "an empty staff table shows its message and returns to the menu program")
{
    answerTo(kStaffSql, staffMembers({}));

    CHECK_THROWS_AS(form.load(), ProcessEnded);
    CHECK(onlyBox() == ShownBox{"スタッフが存在しません。メイン画面に戻ります", Icon::critical, "委任状印刷"});
    CHECK(world.database.log.back() == "disconnect 2");
    CHECK(world.processes.started == std::vector<std::string>{"1 C:\\SUITE\\Main.exe 2"});
}

TEST_CASE_FIXTURE(PrintFixture,
                  "a staff list that cannot be read shows the session's error text and returns to the menu program")
{
    FakeResult refused;
    refused.error = ado_error::noSuchTable;
    refused.description = "STAFFがありません。";
    answerTo(kStaffSql, refused);

    CHECK_THROWS_AS(form.load(), ProcessEnded);
    CHECK(onlyBox() ==
          ShownBox{"setStuff でエラー(-2147217865)STAFFがありません。\rSQL=  select      STAFF.cAdress1 as cAdress1"
                   "     ,STAFF.cAdress2 as cAdress2     ,ST・・・",
                   Icon::critical, "委任状印刷"});
}

TEST_CASE_FIXTURE(PrintFixture, "insurance kinds that cannot be read show one box, and the screen opens without them")
{
    FakeResult refused;
    refused.error = ado_error::noSuchTable;
    answerTo(kInsuranceSql, refused);
    frmPrintInin fresh(world.app);
    fresh.load();

    CHECK(onlyBox() == ShownBox{"保険区分の取得に失敗しました。", Icon::critical, "初期設定"});
    CHECK(fresh.isLoaded());
    CHECK_FALSE(world.processes.ended);
    CHECK(fresh.cmbHoken.ListCount() == 0);
    CHECK(fresh.cbSejyutsu.ListCount() == 3);
}

TEST_CASE("a failed connection for the insurance kinds shows two boxes, and the screen opens")
{
    struct Row {
        const char *what;
        void (*spoil)(FakeWorld &);
        const char *text;
    };
    const Row rows[] = {
        {"no adodb.ini", [](FakeWorld &world) { world.files.remove("C:\\SUITE\\adodb.ini"); },
         "nGetFutanKingaku() でエラー\r\n指定されたIni（C:\\SUITE\\adodb.ini）ファイルが見つかりません。"},
        {"empty text",
         [](FakeWorld &world) { world.files.putText("C:\\SUITE\\adodb.ini", "[接続情報]\n接続情報=   \n"); },
         "nGetFutanKingaku() でエラー\r\n接続文字列取得できません。"},
        {"refused", [](FakeWorld &world) { world.database.connectError = ado_error::logInRefused; },
         "nGetFutanKingaku() でエラー\r\n(-2147217843)接続できません。"},
    };
    for (const Row &row : rows) {
        PrintFixture fixture;
        frmPrintInin form(fixture.world.app);
        // The connection is lost after the staff list is filled.
        form.cbSejyutsu.onClick = [&] { row.spoil(fixture.world); };
        CAPTURE(row.what);
        form.load();
        CHECK(fixture.world.boxes.shown ==
              std::vector<ShownBox>{{row.text, Icon::critical, ""},
                                    {"保険区分の取得に失敗しました。", Icon::critical, "初期設定"}});
        CHECK(form.isLoaded());
        CHECK(form.cbSejyutsu.ListCount() == 3);
        CHECK(form.cmbHoken.ListCount() == 0);
    }
}

TEST_CASE_FIXTURE(PrintFixture, "the unload disconnects, starts the menu program and ends the process")
{
    form.load();

    CHECK_THROWS_AS(form.unload(), ProcessEnded);
    CHECK(world.database.log.back() == "disconnect 2");
    CHECK(form.session == nullptr);
    CHECK(world.processes.started == std::vector<std::string>{"1 C:\\SUITE\\Main.exe 2"});
    CHECK(world.processes.ended);
}

TEST_CASE_FIXTURE(PrintFixture, "a session that cannot be closed does not stop the unload")
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
