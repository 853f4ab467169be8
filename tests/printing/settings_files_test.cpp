#include "adapters/native/native_platform.h"
#include "printing/print_form.h"
#include "support/fake_platform.h"
#include "support/temp_folder.h"

#include <doctest/doctest.h>

#include <filesystem>

namespace inin {

namespace {

/// A screen over real files, with everything else fake. Its conditions are the kinds 2, 3, 2, 1.
struct FilesFixture {
    TempFolder folder;
    CurrentFolder current{folder.path()};
    FakeWorld world;
    std::unique_ptr<Files> files = makeSystemFiles(folder.path());
    std::unique_ptr<Profile> profile = makeSystemProfile();
    App app{Platform{world.boxes, world.windows, world.database, *profile, *files, world.processes, world.clock,
                     world.locale, world.automation}};
    frmPrintInin form{app};

    FilesFixture()
    {
        app.gcsAppPath = folder.path();
        folder.put("Massage.ini", "SYSTEM_DATA=\\DATA\r\n");
        std::filesystem::create_directory(folder / "DATA");
        form.iTgtDateKind = form.iDspPeriodKind = 2;
        form.iTrustKind = 1;
        form.optPrint(2).Value = true;
        form.optSyomei(0).Value = true;
        form.iObjectKind = 3;
    }
    void put(const std::string &utf8) const { folder.put("DATA/印刷設定.ini", toCp932(utf8)); }
    [[nodiscard]] std::string store() const { return fromCp932(folder.bytes("DATA/印刷設定.ini")); }
};

} // namespace

TEST_CASE_FIXTURE(FilesFixture, "the store is in the data folder, in the suite's code page, byte for byte")
{
    form.iSavePrintSetting();

    CHECK(folder.bytes("DATA/印刷設定.ini") == "[\x88\xCF\x94\x43\x8F\xF3]\r\n"
                                               "\x91\xCE\x8F\xDB\x8A\xFA\x8A\xD4=2\r\n"
                                               "\x91\xCE\x8F\xDB\x83\x66\x81\x5B\x83\x5E=3\r\n"
                                               "\x95\x5C\x8E\xA6\x8A\xFA\x8A\xD4=2\r\n"
                                               "\x8E\xF3\x94\x43\x8E\xD2=1\r\n"
                                               "\x92\xA0\x95\x5B\x8E\xED\x97\xDE=2\r\n"
                                               "\x8F\x90\x96\xBC\x93\xFA=0\r\n");
    CHECK(world.boxes.shown.empty());
}

#ifndef _WIN32 // the call of Windows writes the whole file anew and replaces invalid characters
TEST_CASE_FIXTURE(FilesFixture, "other lines of the store keep their bytes, including bytes invalid in the code page")
{
    const std::string odd = "; \x81\xFF\xFD note\r\n[other]\r\nkey = value \r\n\r\n";
    folder.put("DATA/印刷設定.ini", odd + toCp932("[委任状]\r\n署名日=1\r\n; 終わり\r\n"));
    form.iSavePrintSetting();

    CHECK(folder.bytes("DATA/印刷設定.ini").starts_with(odd));
    CHECK(store().ends_with("[委任状]\r\n署名日=0\r\n; 終わり\r\n対象期間=2\r\n対象データ=3\r\n表示期間=2\r\n"
                            "受任者=1\r\n帳票種類=2\r\n"));
}

#endif

TEST_CASE_FIXTURE(FilesFixture, "a read-only store is read, and its refused write is not reported")
{
    put("[委任状]\r\n対象データ=2\r\n");
    std::filesystem::permissions(pathOf(folder / "DATA/印刷設定.ini"), std::filesystem::perms(0444));
    form.iSavePrintSetting();
    CHECK(world.boxes.shown.empty());
    CHECK(store() == "[委任状]\r\n対象データ=2\r\n");

    CHECK(form.iLoadPrintSetting() == 1);
    CHECK(form.optObject.marked() == 1);
}

TEST_CASE_FIXTURE(FilesFixture, "without the data folder nothing is read, written or reported")
{
    std::filesystem::remove(folder / "DATA");
    form.iSavePrintSetting();

    CHECK(form.iLoadPrintSetting() == 0);
    CHECK(world.boxes.shown.empty());
    CHECK_FALSE(folder.has("DATA"));
}

TEST_CASE_FIXTURE(FilesFixture, "a folder with the store's name is not a store")
{
    std::filesystem::create_directory(pathOf(folder / "DATA/印刷設定.ini"));

    CHECK(form.iLoadPrintSetting() == 0);
    form.iSavePrintSetting();
    CHECK(world.boxes.shown.empty());
}

TEST_CASE_FIXTURE(FilesFixture, "a setting without a data folder warns, and the store is in the application folder")
{
    folder.put("Massage.ini", "SYSTEM_SYS=\\SYS\r\n");
    form.iSavePrintSetting();

    REQUIRE(world.boxes.shown.size() == 1);
    CHECK(world.boxes.shown[0].text == "システム設定ファイルに、指定の項目が見つかりません。\r[SYSTEM_DATA]");
    CHECK(folder.has("印刷設定.ini"));
}

} // namespace inin
