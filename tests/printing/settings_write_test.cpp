#include "printing/settings_fixture.h"
#include "runtime/runtime_error.h"

namespace inin {

namespace {

/// Refuses every write from the n-th on, like a failing disk.
class FailingProfile : public Profile {
public:
    FailingProfile(Profile &good, int goodWrites) : m_good(good), m_left(goodWrites) {}
    std::int32_t GetPrivateProfileInt(const Text &section, const Text &key, std::int32_t defaultValue,
                                      const std::string &file) override
    {
        return m_good.GetPrivateProfileInt(section, key, defaultValue, file);
    }
    std::string GetPrivateProfileString(const Text &section, const Text &key, const std::string &defaultValue,
                                        std::size_t size, const std::string &file) override
    {
        return m_good.GetPrivateProfileString(section, key, defaultValue, size, file);
    }
    std::int32_t WritePrivateProfileString(const Text &section, const Text &key, const Text &value,
                                           const std::string &file) override
    {
        if (m_left-- <= 0) throw RuntimeError(57);
        return m_good.WritePrivateProfileString(section, key, value, file);
    }

private:
    Profile &m_good;
    int m_left;
};

} // namespace

TEST_CASE("unreadable settings are an error of the store, both in reading and in writing")
{
    StoreFixture loading, saving;
    for (StoreFixture *fixture : {&loading, &saving})
        fixture->world.files.openInputErrors["c:\\suite\\massage.ini"] = 70;
    CHECK(loading.form.iLoadPrintSetting() == 0);
    saving.form.iSavePrintSetting();

    loading.checkOnlyBox("Error:書き込みできません。");
    saving.checkOnlyBox("Error:書き込みできません。");
}

TEST_CASE_FIXTURE(StoreFixture, "the first write creates the store with its keys in order")
{
    form.iTgtDateKind = 1;
    form.iObjectKind = 2;
    form.iDspPeriodKind = 3;
    form.iTrustKind = 4;
    form.optPrint(2).Value = true;
    form.iSavePrintSetting();

    CHECK(store() == "[委任状]\r\n対象期間=1\r\n対象データ=2\r\n表示期間=3\r\n受任者=4\r\n帳票種類=2\r\n署名日=1\r\n");
    CHECK(world.boxes.shown.empty());
}

TEST_CASE("report and signature are written from the selected options")
{
    struct Row {
        std::int16_t report;
        std::int16_t signature;
        const char *lines;
    };
    for (const Row &row : {Row{-1, -1, "帳票種類=1\r\n署名日=1\r\n"}, Row{0, 0, "帳票種類=0\r\n署名日=0\r\n"},
                           Row{1, 1, "帳票種類=1\r\n署名日=1\r\n"}, Row{2, 0, "帳票種類=2\r\n署名日=0\r\n"}}) {
        StoreFixture fixture;
        fixture.form.optSyomei(1).Value = false;
        if (row.report >= 0) fixture.form.optPrint(row.report).Value = true;
        if (row.signature >= 0) fixture.form.optSyomei(row.signature).Value = true;
        fixture.form.iSavePrintSetting();
        CAPTURE(row.report);
        CHECK(fixture.store().ends_with(row.lines));
    }
}

TEST_CASE_FIXTURE(StoreFixture, "a write keeps other sections, comments and the order of the lines")
{
    put("; 手で書いた注\n[他の帳票]\n対象データ=9\n\n[委任状]\n署名日=1\n; 途中\n対象データ=1\n予備=x\n[後]\na=b\n");
    form.iTgtDateKind = 2;
    form.iObjectKind = 3;
    form.iDspPeriodKind = 1;
    form.iTrustKind = 1;
    form.optPrint(0).Value = true;
    form.optSyomei(0).Value = true;
    form.iSavePrintSetting();

    CHECK(store() == "; 手で書いた注\r\n[他の帳票]\r\n対象データ=9\r\n\r\n[委任状]\r\n署名日=0\r\n; 途中\r\n"
                     "対象データ=3\r\n予備=x\r\n対象期間=2\r\n表示期間=1\r\n受任者=1\r\n帳票種類=0\r\n[後]\r\na=b\r\n");
}

TEST_CASE_FIXTURE(StoreFixture, "a refused write is not reported")
{
    put("[委任状]\n対象データ=1\n");
    world.profile.refuseWrites = true;
    form.iObjectKind = 2;
    form.iSavePrintSetting();

    CHECK(world.boxes.shown.empty());
    CHECK(store() == "[委任状]\r\n対象データ=1\r\n");
}

TEST_CASE("a failed write shows its box, and the keys after it are not written")
{
    const char *const lines[] = {"対象期間=1\r\n", "対象データ=2\r\n", "表示期間=1\r\n",
                                 "受任者=2\r\n",   "帳票種類=0\r\n",   "署名日=1\r\n"};
    std::string expected = "[委任状]\r\n";
    for (int goodWrites = 0; goodWrites < 6; ++goodWrites) {
        StoreFixture fixture;
        FakeWorld &world = fixture.world;
        FailingProfile profile(world.profile, goodWrites);
        App app{Platform{world.boxes, world.windows, world.database, profile, world.files, world.processes, world.clock,
                         world.locale, world.automation}};
        app.gcsAppPath = "C:\\SUITE";
        frmPrintInin form(app);
        form.iTgtDateKind = form.iDspPeriodKind = 1;
        form.iObjectKind = form.iTrustKind = 2;
        form.optPrint(0).Value = true;
        form.iSavePrintSetting();
        CAPTURE(goodWrites);
        fixture.checkOnlyBox("Error:Iniファイルの書込に失敗しました。");
        if (goodWrites == 0)
            CHECK_FALSE(world.files.has(kStore));
        else
            CHECK(fixture.store() == expected);
        expected += lines[goodWrites];
    }
}

TEST_CASE_FIXTURE(StoreFixture, "a new screen reads the settings that another screen wrote")
{
    for (OptionGroup *group : {&form.optTgtDate, &form.optTrust, &form.optDspPeriod}) (*group)(1).Value = true;
    form.optObject(2).Value = true;
    form.optPrint(2).Value = true;
    form.optSyomei(0).Value = true;
    REQUIRE(form.iGetPrintCond() == -1); // the day box is empty
    form.imD_LastDay.Value = DateSerial(2024, 5, 28);
    REQUIRE(form.iGetPrintCond() == 0);
    form.iSavePrintSetting();
    REQUIRE(store().find("対象データ=3") != std::string::npos);

    frmPrintInin next(world.app);
    REQUIRE(next.iLoadPrintSetting() == 1);
    CHECK(next.optTgtDate.marked() == 1);
    CHECK(next.optTrust.marked() == 1);
    CHECK(next.optDspPeriod.marked() == 1);
    CHECK(next.optObject.marked() == 2);
    CHECK(next.optPrint.marked() == 2);
    CHECK(next.optSyomei.marked() == 0);
}

} // namespace inin
