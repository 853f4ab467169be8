// Behaviour of the patient search only.

#include "search/search_fixture.h"

#include <doctest/doctest.h>

#include <array>

using namespace inin;

namespace {

using Texts = std::vector<std::string>;

struct PatientWindowFixture : ListFixture<PatientList> {
    void setting(const std::string &line) { world.files.putText("C:\\SUITE\\Massage.ini", "BASEID=0102\n" + line); }
    /// The condition on ended patients in the last statement.
    [[nodiscard]] std::string limit() const
    {
        const std::string sql = statements().back();
        const auto at = sql.find(" OR ('");
        return at == std::string::npos ? std::string() : sql.substr(at + 6, sql.find('\'', at + 6) - at - 6);
    }
    /// Searches and returns the part of the information after the time.
    [[nodiscard]] std::string infoOfSearch()
    {
        press(window.but_Read);
        const std::string text = window.lbl_1ranInf.Caption;
        return text.substr(text.find("  ") + 2);
    }
};

} // namespace

TEST_CASE("the patients' window shows these captions and columns")
{
    PatientWindowFixture list;
    list.init();
    CHECK(list.window.name() == "frm患者検索");
    CHECK(list.window.Caption.get() == "利用者マスター検索");
    CHECK(list.window.chkEndKanja.name() == "chkEndKanja");
    CHECK(list.window.chkEndKanja.Caption.get() == "施術終了した利用者も表示");
    CHECK(list.window.btn_StaffSelect.Caption.get() == "検索");
    CHECK(list.window.but_Read.Caption.get() == "抽出");
    CHECK(list.window.but_Act(0).Caption.get() == "確 定");
    CHECK(list.window.but_Act(1).Caption.get() == "戻る");
    CHECK(list.window.mnF04.Caption.get() == "抽出");
    CHECK(list.window.mnF05.Caption.get() == "確定");
    CHECK(list.window.mnF12.Caption.get() == "戻る");
    CHECK(list.window.opt_SejutsuKubun(0).Caption.get() == "共通");
    CHECK(list.window.opt_SejutsuKubun(1).Caption.get() == "マッサージ");
    CHECK(list.window.opt_SejutsuKubun(2).Caption.get() == "鍼灸");
    CHECK(list.window.find("StatusBar1") != nullptr);
    Texts headers;
    for (const Grid::Column &column : list.window.spr_1ran.columns()) headers.push_back(column.header);
    CHECK(headers == Texts{"拠点 No.", "ID No.", "利用者氏名", "ﾌﾘｶﾞﾅ", "TEL", "住所１", "住所２", "名称地区"});
}

TEST_CASE("a patient's row has the hidden number of the branch, then number, names, telephone and home")
{
    PatientWindowFixture list;
    list.opened();
    CHECK(rowTexts(list.window.spr_1ran, 1) ==
          Texts{"102", "21", "青木 一郎", "ｶﾅ", "06-1234-0001", "大阪市北区１－１", "２０１号", "梅田"});
    std::vector<int> widths;
    for (const Grid::Column &column : list.window.spr_1ran.columns()) widths.push_back(column.width);
    CHECK(widths == std::vector{0, 8, 16, 16, 14, 30, 20, 12});
}

TEST_CASE("the branch's number concatenates two digits of each code")
{
    struct Row {
        Variant iKyotenCd, iKyotenEb;
        const char *number;
    };
    const Row rows[] = {{std::int16_t{1}, std::int16_t{1}, "101"},    {std::int16_t{0}, std::int16_t{0}, "0"},
                        {std::int16_t{12}, std::int16_t{3}, "1203"},  {std::int16_t{0}, std::int16_t{7}, "7"},
                        {std::int16_t{1}, std::int16_t{123}, "1123"}, {Null{}, std::int16_t{5}, "5"}};
    for (const Row &row : rows) {
        CAPTURE(row.number);
        PatientWindowFixture list;
        FakeResult found = PatientList::nullRow();
        found.rows[0][0] = row.iKyotenCd;
        found.rows[0][1] = row.iKyotenEb;
        list.answer(kPatientsFound, found);
        list.opened();
        CHECK(list.window.spr_1ran.text(1, 1) == row.number);
    }
}

TEST_CASE("each row has the number of its own branch")
{
    PatientWindowFixture list;
    FakeResult found = PatientList::nullRow();
    found.rows.resize(4, found.rows[0]);
    for (const auto &[row, code, subCode] : {std::array<std::int16_t, 3>{0, 1, 2}, {1, 3, 2}, {2, 3, 4}, {3, 1, 2}}) {
        found.rows[static_cast<std::size_t>(row)][0] = code;
        found.rows[static_cast<std::size_t>(row)][1] = subCode;
    }
    list.answer(kPatientsFound, found);
    list.opened();
    Texts numbers;
    for (std::int32_t row = 1; row <= 4; ++row) numbers.push_back(list.window.spr_1ran.text(row, 1));
    CHECK(numbers == Texts{"102", "302", "304", "102"});
}

TEST_CASE("a branch's number beyond 32 bits is a system error")
{
    PatientWindowFixture list;
    list.opened();
    FakeResult found = PatientList::nullRow();
    found.rows[0][0] = std::int16_t{32767};
    found.rows[0][1] = std::int16_t{32767};
    list.answer(kPatientsFound, found);
    press(list.window.but_Read);
    CHECK(list.boxTexts() == Texts{"システムエラーが発生しました！\r\r(6)オーバーフローしました。"});
}

TEST_CASE("choosing a patient's row returns number, name and the branch's number")
{
    PatientWindowFixture list;
    list.opened();
    list.window.spr_1ran.onDblClick(3);
    std::int32_t nSeledCD = 0, iArea = 0;
    std::string csSeledName;
    list.window.vGetSeledInf(nSeledCD, csSeledName, &iArea);
    CHECK(nSeledCD == 23);
    CHECK(csSeledName == "井上 三郎");
    CHECK(iArea == 102);
}

TEST_CASE("the setting of months after the end determines the limit month and the caption of the check box")
{
    struct Row {
        const char *what;
        const char *line;
        const char *limit;
        const char *caption;
    };
    const Row rows[] = {
        {"a few months", "終了患者施術期間=3\n", "2024/04", "2024/03以前に、施術の終了した利用者も表示する。"},
        {"one month", "終了患者施術期間=1\n", "2024/06", "2024/05以前に、施術の終了した利用者も表示する。"},
        {"a year", "終了患者施術期間=12\n", "2023/07", "2023/06以前に、施術の終了した利用者も表示する。"},
        {"none", "終了患者施術期間=0\n", "9999/12", "施術終了した利用者も表示"},
        {"missing", "", "9999/12", "施術終了した利用者も表示"},
        {"negative", "終了患者施術期間=-2\n", "2024/09", "2024/08以前に、施術の終了した利用者も表示する。"},
        {"blanks around", "終了患者施術期間 = 3 \n", "2024/04", "2024/03以前に、施術の終了した利用者も表示する。"},
        {"half to even", "終了患者施術期間=2.5\n", "2024/05", "2024/04以前に、施術の終了した利用者も表示する。"},
        {"least", "終了患者施術期間=-32768\n", "4755/03", "4755/02以前に、施術の終了した利用者も表示する。"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.what);
        PatientWindowFixture list;
        list.setting(row.line);
        list.opened();
        CHECK(list.limit() == row.limit);
        CHECK(list.window.chkEndKanja.Caption.get() == row.caption);
    }
}

TEST_CASE("the limit month is counted from the month, even on its 31st day")
{
    PatientWindowFixture list;
    list.world.clock.current = DateSerial(2024, 3, 31);
    list.setting("終了患者施術期間=2\n");
    list.opened();
    CHECK(list.limit() == "2024/02");
    CHECK(list.window.chkEndKanja.Caption.get() == "2024/01以前に、施術の終了した利用者も表示する。");
}

TEST_CASE("a bad setting of months is a system error, and the list opens without a limit and without the branch column")
{
    struct Row {
        const char *line;
        const char *words;
    };
    const Row rows[] = {
        {"終了患者施術期間=\n", "(13)型が一致しません。"},
        {"終了患者施術期間=三\n", "(13)型が一致しません。"},
        {"終了患者施術期間=32768\n", "(6)オーバーフローしました。"},
        {"終了患者施術期間=32767\n", "(5)プロシージャの呼び出し、または引数が不正です。"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.line);
        PatientWindowFixture list;
        list.setting(row.line);
        list.init();
        open(list.window);
        CHECK(list.boxTexts() == Texts{std::string("システムエラーが発生しました！\r\r") + row.words});
        CHECK(list.count("beep") == 3);
        CHECK(list.window.isLoaded());
        CHECK(list.window.spr_1ran.RowCount() == 3);
        CHECK(list.window.chkEndKanja.Caption.get() == "施術終了した利用者も表示");
        CHECK(list.limit() == "9999/12");
        CHECK(list.window.spr_1ran.columns()[0].width == 0);
    }
}

TEST_CASE("the first list omits ended patients and has no other condition")
{
    PatientWindowFixture list;
    list.opened();
    CHECK(list.statements().back() ==
          "SELECT   iKyotenCd, iKyotenEb,  nIDNo, cName, cNameKana, cNameRyaku,  cTelNo, cAdress1, cAdress2  FROM "
          "RIYOUSHA  WHERE nIDNo >= 0  AND iKyotenCd = 1 AND iKyotenEb = 2 AND (tExpireDay IS NULL  OR tExpireDay >= "
          "'2024/06/15' OR ('2024/04' <= SUBSTRING(CONVERT(VARCHAR, tExpireDay, 111),1,7))) ORDER BY nIDNo ");
    CHECK(list.window.chkEndKanja.Value == 0);
    CHECK(list.window.opt_SejutsuKubun(0).Value);
    CHECK(list.window.cbo_Sejutusha.ListIndex == 0);
    CHECK(list.window.imNum_StaffNo.Value.get() == Variant(std::int32_t{0}));
    CHECK(list.window.in_SiboriID.Value.get() == Variant(std::int32_t{0}));
}

TEST_CASE("all boxes together set all conditions of a patient search")
{
    PatientWindowFixture list;
    list.opened();
    list.window.txt_SiboriName.Text = "青木";
    list.window.txt_SiboriKana.Text = "ｱｵｷ";
    list.window.chkEndKanja.Value = 1;
    list.window.cbo_Sejutusha.ListIndex = std::int16_t{2};
    list.window.opt_SejutsuKubun(1).Value = true;
    list.window.in_SiboriID.Value = std::int32_t{21};
    press(list.window.but_Read);
    CHECK(list.statements().back() ==
          "SELECT   iKyotenCd, iKyotenEb,  nIDNo, cName, cNameKana, cNameRyaku,  cTelNo, cAdress1, cAdress2  FROM "
          "RIYOUSHA  WHERE nIDNo >= 0  AND iKyotenCd = 1 AND iKyotenEb = 2 AND cName LIKE '%青木%' AND cNameKana LIKE "
          "'%ｱｵｷ%' AND (nTantou=12  OR nTantou2=12  OR nTantou3=12  OR nTantou4=12  OR nTantou5=12)  AND "
          "iSejutsuKubun=0 AND nIDNo=21 ORDER BY nIDNo ");
    // The window still shows all of them.
    CHECK(list.window.cbo_Sejutusha.ListIndex == 2);
    CHECK(list.window.opt_SejutsuKubun(1).Value);
    CHECK(list.window.chkEndKanja.Value == 1);
    CHECK(list.window.in_SiboriID.Value.get() == Variant(std::int32_t{21}));
}

TEST_CASE("the information has the time and each condition that is set, in this order")
{
    struct Row {
        void (*set)(frm患者検索 &window);
        const char *text;
    };
    const Row rows[] = {
        {[](frm患者検索 &) {}, "抽出条件："},
        {[](frm患者検索 &window) { window.txt_SiboriName.Text = "青木 "; }, "抽出条件： 名称（全文一致）=青木 "},
        {[](frm患者検索 &window) { window.txt_SiboriKana.Text = "ｱｵｷ"; }, "抽出条件： かな（全文一致）=ｱｵｷ"},
        {[](frm患者検索 &window) { window.chkEndKanja.Value = 1; }, "抽出条件： 施術終了患者表示 "},
        {[](frm患者検索 &window) { window.cbo_Sejutusha.ListIndex = std::int16_t{1}; },
         "抽出条件： 担当施術者=佐藤 花子"},
        {[](frm患者検索 &window) { window.opt_SejutsuKubun(1).Value = true; }, "抽出条件： 施術区分=マッサージ"},
        {[](frm患者検索 &window) { window.opt_SejutsuKubun(2).Value = true; }, "抽出条件： 施術区分=鍼灸"},
        {[](frm患者検索 &window) { window.in_SiboriID.Value = std::int32_t{21}; }, "抽出条件： 利用者ID=21"},
        {[](frm患者検索 &window) {
             window.txt_SiboriName.Text = "青木";
             window.txt_SiboriKana.Text = "ｱｵｷ";
             window.chkEndKanja.Value = 1;
             window.cbo_Sejutusha.ListIndex = std::int16_t{2};
             window.opt_SejutsuKubun(2).Value = true;
             window.in_SiboriID.Value = std::int32_t{21};
         },
         "抽出条件： 名称（全文一致）=青木 かな（全文一致）=ｱｵｷ 施術終了患者表示  担当施術者=鈴木 次郎 "
         "施術区分=鍼灸 利用者ID=21"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.text);
        PatientWindowFixture list;
        list.opened();
        row.set(list.window);
        CHECK(list.infoOfSearch() == row.text);
    }
}

TEST_CASE("the number 1 is a condition")
{
    PatientWindowFixture list;
    list.answer(kStaffList, staffRows({{std::int32_t{1}, "佐藤 花子", ""}}));
    list.opened();
    list.window.cbo_Sejutusha.ListIndex = std::int16_t{1};
    list.window.in_SiboriID.Value = std::int32_t{1};
    CHECK(list.infoOfSearch() == "抽出条件： 担当施術者=佐藤 花子 利用者ID=1");
}

TEST_CASE("the information begins with the time of the search")
{
    PatientWindowFixture list;
    list.world.clock.current = Date(DateSerial(2024, 6, 15).days() + (9 * 3600 + 5 * 60 + 7) / 86400.0);
    list.opened();
    CHECK(list.window.lbl_1ranInf.Caption.get() == "09:05:07  抽出条件：");
}

TEST_CASE("the information is empty if nothing is found or the search fails")
{
    PatientWindowFixture list;
    list.opened();
    list.answer(kPatientsFound, patientRows({}));
    press(list.window.but_Read);
    CHECK(list.window.lbl_1ranInf.Caption.get().empty());

    list.answer(kPatientsFound, failure());
    list.window.lbl_1ranInf.Caption = "09:00:00  抽出条件：";
    press(list.window.but_Read);
    CHECK(list.window.lbl_1ranInf.Caption.get().empty());
}

TEST_CASE("the staff list begins with the entry for no choice, followed by the branch's staff in order")
{
    PatientWindowFixture list;
    list.answer(kStaffList, staffRows({{std::int32_t{11}, "佐藤 花子 ", ""}, {Null{}, Null{}, Null{}}}));
    list.opened();
    REQUIRE(list.window.cbo_Sejutusha.ListCount() == 3);
    CHECK(list.window.cbo_Sejutusha.items()[0].text == "- 指定なし -");
    CHECK(list.window.cbo_Sejutusha.ItemData(0) == 0);
    CHECK(list.window.cbo_Sejutusha.items()[1].text == "佐藤 花子");
    CHECK(list.window.cbo_Sejutusha.ItemData(1) == 11);
    CHECK(list.window.cbo_Sejutusha.items()[2].text.empty());
    CHECK(list.window.cbo_Sejutusha.ItemData(2) == 0);
    CHECK(list.window.cbo_Sejutusha.ListIndex == 0);
}

TEST_CASE("selecting an entry of the staff list writes its number into the box")
{
    PatientWindowFixture list;
    list.opened();
    list.window.cbo_Sejutusha.ListIndex = std::int16_t{2};
    CHECK(list.window.imNum_StaffNo.Value.get() == Variant(std::int32_t{12}));
    list.window.cbo_Sejutusha.ListIndex = std::int16_t{0};
    CHECK(list.window.imNum_StaffNo.Value.get() == Variant(std::int32_t{0}));
}

TEST_CASE("a staff member of number 0 is in the list, but sets no condition")
{
    PatientWindowFixture list;
    list.answer(kStaffList, staffRows({{std::int32_t{0}, "番号 なし", ""}, {std::int32_t{11}, "佐藤 花子", ""}}));
    list.opened();
    list.window.cbo_Sejutusha.ListIndex = std::int16_t{1};
    CHECK(list.infoOfSearch() == "抽出条件：");
    CHECK(list.statements().back().find("nTantou") == std::string::npos);
    CHECK(list.window.cbo_Sejutusha.ListIndex == 0); // the filter is written back to the controls
}

TEST_CASE("patient number 0 sets no condition")
{
    PatientWindowFixture list;
    list.opened();
    list.window.in_SiboriID.Value = std::int32_t{0};
    CHECK(list.infoOfSearch() == "抽出条件：");
    CHECK(list.statements().back().find("AND nIDNo=") == std::string::npos);
}

TEST_CASE("a staff number typed but not confirmed sets no condition")
{
    PatientWindowFixture list;
    list.opened();
    list.window.imNum_StaffNo.Value = std::int32_t{12};
    press(list.window.but_Read);
    CHECK(list.statements().back().find("nTantou") == std::string::npos);
    CHECK(list.window.imNum_StaffNo.Value.get() == Variant(std::int32_t{12}));
}

TEST_CASE("the window's own session is open as long as the window, and no search uses it")
{
    SearchFixture fixture;
    {
        frm患者検索 window(fixture.world.app);
        REQUIRE(window.iInit(0) == 0);
        CHECK(fixture.world.database.log == Texts{"connect 1"});
        open(window);
        CHECK(fixture.world.database.log[2].starts_with("sql 2 "));
        CHECK(fixture.world.database.log[5].starts_with("sql 3 "));
        window.unload();
        CHECK(fixture.world.database.log.back() == "disconnect 3");
    }
    CHECK(fixture.world.database.log.back() == "disconnect 1");
}

TEST_CASE("a failed opening keeps its error text and shows nothing")
{
    struct Row {
        const char *what;
        void (*spoil)(FakeWorld &world);
        const char *words;
    };
    const Row rows[] = {
        {"missing file", [](FakeWorld &world) { world.files.remove("C:\\SUITE\\adodb.ini"); },
         "iInit()でエラー\r\n指定されたIni（C:\\SUITE\\adodb.ini）ファイルが見つかりません。"},
        {"empty text",
         [](FakeWorld &world) { world.files.putText("C:\\SUITE\\adodb.ini", "[接続情報]\n接続情報= \n"); },
         "iInit()でエラー\r\n接続文字列取得できません。"},
        {"failed connect", [](FakeWorld &world) { world.database.connectError = ado_error::logInRefused; },
         "iInit() でエラー\r\n(-2147217843)接続できません。"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.what);
        SearchFixture fixture;
        row.spoil(fixture.world);
        frm患者検索 window(fixture.world.app);
        CHECK(window.iInit(21) == -1);
        CHECK(window.CsErrStr() == row.words);
        CHECK(fixture.world.boxes.shown.empty());
    }
}

TEST_CASE("more staff than a list can count is a system error, and the window closes")
{
    PatientWindowFixture list;
    list.answer(kStaffList, staffRows(std::vector<std::vector<Variant>>(32767, {std::int32_t{1}, "佐藤", ""})));
    list.init();
    open(list.window);
    CHECK(list.boxTexts() == Texts{"システムエラーが発生しました！\r\r(6)オーバーフローしました。"});
    CHECK_FALSE(list.window.isLoaded());
}

TEST_CASE("30,000 patients are all listed")
{
    PatientWindowFixture list;
    std::vector<std::vector<Variant>> rows(
        30000, {std::int16_t{1}, std::int16_t{2}, std::int32_t{0}, "青木 一郎", "ｱｵｷ ｲﾁﾛｳ", "", "", "", ""});
    for (std::size_t index = 0; index < rows.size(); ++index) rows[index][2] = static_cast<std::int32_t>(index + 1);
    list.answer(kPatientsFound, patientRows(rows));
    list.opened(30000);
    CHECK(list.window.spr_1ran.RowCount() == 30000);
    CHECK(list.window.spr_1ran.text(30000, 3) == "青木 一郎");
    CHECK(list.window.spr_1ran.ActiveRow == 30000);
}
