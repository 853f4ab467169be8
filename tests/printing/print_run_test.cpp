#include "printing/print_fixture.h"

#include "support/errors.h"

#include <doctest/doctest.h>

#include <algorithm>

namespace inin {

namespace {

constexpr const char *kCsv = "C:\\SUITE\\TMP\\委任状.csv";
constexpr const char *kScript = "C:\\SUITE\\TMP\\WfdCom.dat";

/// A screen that is ready to print; records its pointers and its store.
struct RunFixture : PrintFixture {
    std::vector<std::int16_t> pointers;
    RunFixture()
    {
        markScreen();
        form.onMousePointer = [this](std::int16_t kind) { pointers.push_back(kind); };
    }
    /// The number of times the store was written: each write first searches for the file.
    [[nodiscard]] std::ptrdiff_t stored() const
    {
        return std::ranges::count(world.files.log, "search C:\\SUITE\\DATA\\印刷設定.ini");
    }
    [[nodiscard]] std::string script() const { return fromCp932(world.files.bytes(kScript)); }
};

using Pointers = std::vector<std::int16_t>;

} // namespace

TEST_CASE_FIXTURE(RunFixture, "a print writes letters and script, starts the tool's dialog and stores the settings")
{
    answer(patients({{}, {}}));
    form.vRunPrint(1);

    CHECK(world.boxes.shown.empty());
    CHECK(std::ranges::count(world.files.bytes(kCsv), '\n') == 3);
    CHECK(script() == "FileName,\"C:\\SUITE\\SYS\\委任状37_01.wfd\"\r\n"
                      "Title,\"委任状\"\r\n"
                      "SetDataText,\"委任状\",\"C:\\SUITE\\TMP\\委任状.csv\"\r\n"
                      "PrintPaper, A4\r\n"
                      "PrintOutFromDialog\r\n");
    CHECK(world.processes.started == std::vector<std::string>{"2 wfrfv10.exe /c C:\\SUITE\\TMP\\WfdCom.dat"});
    CHECK(stored() == 1);
    CHECK(pointers == Pointers{11, 0});
}

TEST_CASE("a preview differs from a print only in the script's last line and in the tool")
{
    RunFixture print, preview;
    print.answer(patients({{}}));
    preview.answer(patients({{}}));
    print.form.vRunPrint(1);
    preview.form.vRunPrint(0);

    CHECK(preview.world.files.bytes(kCsv) == print.world.files.bytes(kCsv));
    CHECK(preview.world.database.log == print.world.database.log);
    CHECK(preview.form.fields() == print.form.fields());
    CHECK(preview.stored() == print.stored());
    CHECK(preview.pointers == print.pointers);
    CHECK(preview.script() == "FileName,\"C:\\SUITE\\SYS\\委任状37_01.wfd\"\r\n"
                              "Title,\"委任状\"\r\n"
                              "SetDataText,\"委任状\",\"C:\\SUITE\\TMP\\委任状.csv\"\r\n"
                              "PrintPaper, A4\r\n"
                              "ShowWindow,2\r\n");
    CHECK(preview.world.processes.started == std::vector<std::string>{"3 WrVb6Viewer.exe /c ./TMP\\WfdCom.dat"});
}

TEST_CASE("any mode except 0 prints")
{
    for (const std::int16_t mode : std::initializer_list<std::int16_t>{-1, 2, 32767}) {
        RunFixture fixture;
        fixture.answer(patients({{}}));
        CAPTURE(mode);
        fixture.form.vRunPrint(mode);
        CHECK(fixture.script().ends_with("PrintPaper, A4\r\nPrintOutFromDialog\r\n"));
        CHECK(fixture.world.processes.started ==
              std::vector<std::string>{"2 wfrfv10.exe /c C:\\SUITE\\TMP\\WfdCom.dat"});
    }
}

TEST_CASE_FIXTURE(RunFixture, "the CSV of a run is these bytes")
{
    answer(patients({{{"RiyouName", "髙﨑 𠮷子"}, {"cTelNo", Null{}}}}));
    form.vRunPrint(0);

    const std::string text = fromCp932(world.files.bytes(kCsv));
    CHECK(text.substr(text.find("\r\n") + 2) ==
          "\"2024/05/01\",\"2024/05/31\",\"高松市\",\"髙﨑 ?子\",\"香川県高松市番町１－８－１５\",\"株式会社さくら\","
          "\"東京都千代田区１－１\",\"代表　太郎\",\"\",\"みどり金庫  中央本店\",\"(普) 1234567\",\"カ）サクラ\","
          "\"2024/05/28\",\"番町地区\",\"3\",\"世帯　一郎\",\"087-333-4444\",\"香川県高松市番町\","
          "\"みどり銀行  中央支店\",\"2024/05/01\"\r\n");
}

TEST_CASE("object and target kinds choose the extraction, and the object kind none overrides every target")
{
    struct Row {
        std::int16_t object, target;
        const char *from;
    };
    for (const Row &row :
         {Row{0, 0, " FROM HOKENJA, SCHEDULE s1, RIYOUSHA "}, Row{1, 0, " FROM  HOKENJA, JISSEKI j1, RIYOUSHA "},
          Row{0, 1, " FROM HOKENJA, SCHEDULE, RIYOUSHA "}, Row{1, 1, " FROM HOKENJA, JISSEKI, RIYOUSHA "},
          Row{2, 0, " FROM HOKENJA, RIYOUSHA "}, Row{2, 1, " FROM HOKENJA, RIYOUSHA "},
          Row{2, 2, " FROM HOKENJA, RIYOUSHA "}}) {
        RunFixture fixture;
        fixture.form.optObject(row.object).Value = true;
        fixture.form.optTgtDate(row.target).Value = true;
        CAPTURE(row.object);
        CAPTURE(row.target);
        fixture.form.vRunPrint(0);
        CHECK(fixture.firstSql().find(row.from) != std::string::npos);
    }
}

TEST_CASE_FIXTURE(RunFixture, "no object with a target month still reads its date from the month box")
{
    form.optObject(2).Value = true;
    answer(patients({{}}));
    form.vRunPrint(0);

    CHECK(form.csTargetDate == "2024/05/1");
    CHECK(form.aIninRow.at(0).対象終了日 == "2024/05/31");
}

TEST_CASE("planned or actual data without a period runs no extraction and reports that there is no patient")
{
    for (const std::int16_t object : std::initializer_list<std::int16_t>{0, 1}) {
        RunFixture fixture;
        fixture.form.optObject(object).Value = true;
        fixture.form.optTgtDate(2).Value = true;
        CAPTURE(object);
        fixture.form.vRunPrint(0);
        CHECK(fixture.onlyBox() == ShownBox{"該当する患者データがありません。", Icon::information, ""});
        CHECK(fixture.world.database.log.empty());
        CHECK(fixture.pointers == Pointers{11, 0, 0});
    }
}

TEST_CASE_FIXTURE(RunFixture, "the rows of the previous run are printed again if there is no extraction")
{
    answer(patients({{{"RiyouName", "前回"}}}));
    form.vRunPrint(0);
    const std::string before = world.files.bytes(kCsv);
    world.files.remove(kCsv);
    world.database.log.clear();
    form.optTgtDate(2).Value = true;
    form.vRunPrint(0);

    CHECK(world.files.bytes(kCsv) == before);
    CHECK(form.iTgtDateKind == 3);
    CHECK(world.database.log.empty());
    CHECK(world.boxes.shown.empty());
    CHECK(stored() == 2);
}

TEST_CASE_FIXTURE(RunFixture, "without a target date the run requests one and changes nothing")
{
    form.optTgtDate(0).Value = false;
    form.vRunPrint(1);

    CHECK(onlyBox() == ShownBox{"出力対象となる日にちを選択してください。", Icon::information, "情報"});
    CHECK(pointers.empty());
    CHECK(world.database.log.empty());
    CHECK(stored() == 0);
}

TEST_CASE_FIXTURE(RunFixture, "a failure to read the conditions ends the run after two boxes")
{
    form.imD_Out.Value = Null{};
    form.vRunPrint(1);

    CHECK(world.boxes.shown == std::vector<ShownBox>{{"(94)Null の使い方が不正です。", Icon::none, ""},
                                                     {"印刷条件の取得に失敗しました。", Icon::information, ""}});
    CHECK(pointers == Pointers{11, 0});
    CHECK(world.database.log.empty());
    CHECK(stored() == 0);
}

TEST_CASE_FIXTURE(RunFixture, "a failed extraction ends the run after two boxes and resets the pointer twice")
{
    FakeResult lost = patients({{}});
    lost.failingMove = 1;
    answer(lost);
    form.vRunPrint(1);

    REQUIRE(world.boxes.shown.size() == 2);
    CHECK(world.boxes.shown[0] == centralBox("-2147467259", "接続が失われました。", "iGetKanjaDataMonth"));
    CHECK(world.boxes.shown[1] == ShownBox{"患者データの取得に失敗しました。", Icon::information, ""});
    CHECK(pointers == Pointers{11, 0, 0});
    CHECK_FALSE(world.files.has(kCsv));
    CHECK(world.processes.started.empty());
    CHECK(stored() == 0);
}

TEST_CASE_FIXTURE(RunFixture, "no rows end the run after a box, and the CSV of the previous run stays")
{
    answer(patients({{}}));
    form.vRunPrint(0);
    const std::string before = world.files.bytes(kCsv);
    pointers.clear();
    form.vRunPrint(0);

    CHECK(onlyBox() == ShownBox{"該当する患者データがありません。", Icon::information, ""});
    CHECK(pointers == Pointers{11, 0, 0});
    CHECK(world.files.bytes(kCsv) == before);
    CHECK(world.processes.started.size() == 1);
    CHECK(stored() == 1);
}

TEST_CASE("the report kind selects the form document")
{
    struct Row {
        std::int16_t report;
        const char *line;
    };
    for (const Row &row : {Row{0, "FileName,\"C:\\SUITE\\SYS\\委任状37_01.wfd\"\r\n"},
                           Row{1, "FileName,\"C:\\SUITE\\SYS\\委任状23.wfd\"\r\n"},
                           Row{2, "FileName,\"C:\\SUITE\\SYS\\委任状37_高松市.wfd\"\r\n"}}) {
        RunFixture fixture;
        fixture.form.optPrint(row.report).Value = true;
        fixture.answer(patients({{}}));
        CAPTURE(row.report);
        fixture.form.vRunPrint(0);
        CHECK(fixture.script().starts_with(row.line));
    }
}

TEST_CASE("a form document in the format file overrides every report kind")
{
    for (const std::int16_t report : std::initializer_list<std::int16_t>{0, 1, 2}) {
        RunFixture fixture;
        fixture.world.files.putText("C:\\SUITE\\DATA\\帳票Format.ini", "[委任状]\n委任状=特別.wfd\n");
        fixture.form.optPrint(report).Value = true;
        fixture.answer(patients({{}}));
        CAPTURE(report);
        fixture.form.vRunPrint(0);
        CHECK(fixture.script().starts_with("FileName,\"C:\\SUITE\\SYS\\特別.wfd\"\r\n"));
    }
}

TEST_CASE_FIXTURE(RunFixture, "a form document in the format file does not change the single row of report kind 1")
{
    world.files.putText("C:\\SUITE\\DATA\\帳票Format.ini", "[委任状]\n委任状=特別.wfd\n");
    form.optPrint(1).Value = true;
    form.optObject(2).Value = true;
    form.vRunPrint(0);

    CHECK(firstSql().starts_with("SELECT TOP 1 HOKENJA.cName as HokenName, "));
}

TEST_CASE_FIXTURE(RunFixture, "a run that cannot read the format file continues with the form of the report kind")
{
    // The warning about the missing key is shown while the settings file is locked; the next box unlocks it.
    world.files.putText("C:\\SUITE\\Massage.ini", "SYSTEM_SYS=\\SYS\nSYSTEM_DATA=\\DATA\n");
    world.boxes.onShow = [this](const ShownBox &box) {
        world.files.openInputErrors.clear();
        if (box.icon == Icon::critical) world.files.openInputErrors["c:\\suite\\massage.ini"] = 70;
        if (world.boxes.shown.size() == 2) world.boxes.onShow = nullptr;
    };
    answer(patients({{}}));
    form.vRunPrint(0);

    REQUIRE(world.boxes.shown.size() == 3);
    CHECK(world.boxes.shown[1] == ShownBox{"Error:書き込みできません。", Icon::none, ""});
    CHECK(fromCp932(world.files.bytes("C:\\SUITE\\WfdCom.dat"))
              .starts_with("FileName,\"C:\\SUITE\\SYS\\委任状37_01.wfd\"\r\n"));
    CHECK(stored() == 1);
}

TEST_CASE_FIXTURE(RunFixture, "a failed preparation of the output shows its text in brackets, and settings are stored")
{
    // The settings file cannot be read from the first box to the second: between the two reads of the last step.
    world.files.putText("C:\\SUITE\\Massage.ini", "SYSTEM_TMP=\\TMP\nSYSTEM_DATA=\\DATA\n");
    world.boxes.onShow = [this](const ShownBox &) {
        world.files.openInputErrors.clear();
        if (world.boxes.shown.size() == 1) world.files.openInputErrors["c:\\suite\\massage.ini"] = 70;
    };
    answer(patients({{}}));
    form.vRunPrint(1);

    REQUIRE(world.boxes.shown.size() == 2);
    CHECK(world.boxes.shown[0].text == "システム設定ファイルに、指定の項目が見つかりません。\r[SYSTEM_SYS]");
    CHECK(world.boxes.shown[1] ==
          ShownBox{"帳票の印刷に失敗しました。\r[(70)書き込みできません。]", Icon::critical, ""});
    CHECK(world.files.has(kCsv));
    CHECK_FALSE(world.files.has(kScript));
    CHECK(world.processes.started.empty());
    CHECK(stored() == 1);
    CHECK(pointers == Pointers{11, 0});
}

TEST_CASE_FIXTURE(RunFixture, "a tool that cannot start is not reported, and the run ends as a success")
{
    world.processes.startError = 53;
    answer(patients({{}}));
    form.vRunPrint(1);

    CHECK(world.boxes.shown.empty());
    CHECK(world.files.has(kCsv));
    CHECK(world.files.has(kScript));
    CHECK(stored() == 1);
    CHECK(pointers == Pointers{11, 0});
}

TEST_CASE("a file error while the letters are written is not trapped by the run")
{
    struct Row {
        const char *what;
        void (*spoil)(FakeFiles &);
        std::int32_t number;
    };
    const Row rows[] = {
        {"first write", [](FakeFiles &files) { files.failingWrite = 1; }, 61},
        {"second write", [](FakeFiles &files) { files.failingWrite = 2; }, 61},
        {"open", [](FakeFiles &files) { files.openOutputErrors["c:\\suite\\tmp\\委任状.csv"] = 75; }, 75},
        {"delete",
         [](FakeFiles &files) {
             files.put(kCsv, "old");
             files.removeErrors["c:\\suite\\tmp\\委任状.csv"] = 70;
         },
         70},
    };
    for (const Row &row : rows) {
        RunFixture fixture;
        fixture.answer(patients({{}}));
        row.spoil(fixture.world.files);
        CAPTURE(row.what);
        CHECK(errorOf([&] { fixture.form.mnF01_Click(); }) == row.number);
        CHECK(fixture.world.boxes.shown.empty());
        CHECK(fixture.world.processes.started.empty());
        CHECK(fixture.stored() == 0);
        CHECK(fixture.pointers == Pointers{11});
    }
}

TEST_CASE_FIXTURE(RunFixture,
                  "a refused statement leaves fewer rows than the old count, so that a later run fails in the CSV")
{
    answer(patients({{}, {}, {}}));
    form.vRunPrint(0);
    FakeResult refused;
    refused.error = ado_error::faultyStatement;
    answer(refused);
    form.vRunPrint(0);
    form.optTgtDate(2).Value = true;

    CHECK(errorOf([this] { form.vRunPrint(0); }) == 9);

    CHECK(form.iRowCount == 3);
    CHECK(form.aIninRow.size() == 1);
}

TEST_CASE_FIXTURE(RunFixture, "a run changes no control")
{
    answer(patients({{}}));
    int changes = 0;
    for (Control *control : form.controls()) control->watch([&changes] { ++changes; });
    form.vRunPrint(1);

    CHECK(changes == 0);
}

TEST_CASE_FIXTURE(RunFixture, "the screen's filters are part of the statement")
{
    form.imNum_CD.Value = std::int32_t{501};
    form.imNum_StaffNo.Value = std::int32_t{8};
    form.cmbHoken.ListIndex = std::int16_t{1};
    form.chkExpireDay.Value = std::int16_t{1};
    form.vRunPrint(0);

    CHECK(firstSql().ends_with(" AND RIYOUSHA.nIDNo = 501 AND RIYOUSHA.nTantou = 8 AND RIYOUSHA.iHoken = 1"
                               " ORDER BY RIYOUSHA.nTantou"));
}

} // namespace inin
