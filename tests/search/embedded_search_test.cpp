// Both search lists on the embedded database with a site's tables: the rows shown, and the limits of a filter.

#include "search/embedded_search.h"
#include "search/staff_search_form.h"

#include <doctest/doctest.h>

using namespace inin;

namespace {

using Texts = std::vector<std::string>;

/// The numbers in the list, in order.
std::vector<std::int32_t> numbersOf(const Grid &grid, std::int16_t column)
{
    std::vector<std::int32_t> numbers;
    for (std::int32_t row = 1; row <= grid.RowCount(); ++row) numbers.push_back(grid.number(row, column));
    return numbers;
}

} // namespace

TEST_CASE("a quote in a filter fails with the database's error text, and the window stays open")
{
    EmbeddedSearch world;
    world.patient(1, "O'Brien", "ｵﾌﾞﾗｲｴﾝ");
    frm患者検索 window(world.site);
    REQUIRE(window.iInit(0) == 0);
    open(window);
    for (TextBox *box : {&window.txt_SiboriName, &window.txt_SiboriKana}) {
        world.boxes.shown.clear();
        box->Text = "O'Brien";
        press(window.but_Read);
        REQUIRE(world.boxes.shown.size() == 1);
        CHECK(world.boxes.shown[0].text.starts_with(
            "システムエラーが発生しました！\r\riDsp1ranSub() でエラー\r\n(-2147217900)"));
        CHECK(window.isLoaded());
        CHECK(box->Text.get() == "O'Brien");
        box->Text = "";
    }
}

TEST_CASE("a second statement in a filter is refused as a failed statement, and the table is unchanged")
{
    const char *const filters[] = {"x'; DELETE FROM RIYOUSHA --", "x'; DELETE FROM RIYOUSHA; --",
                                   "x%'; DROP TABLE RIYOUSHA --", "'; UPDATE RIYOUSHA SET cName = 'x' --",
                                   "'; DELETE FROM STAFF; SELECT * FROM RIYOUSHA WHERE cName LIKE '"};
    EmbeddedSearch world;
    for (std::int32_t number = 1; number <= 5; ++number) world.patient(number, "青木", "ｱｵｷ");
    frm患者検索 patients(world.site);
    REQUIRE(patients.iInit(0) == 0);
    open(patients);
    frm施術者検索 staff(world.site);
    REQUIRE(staff.iInit(0, 0, -1) == 0);
    open(staff);
    for (SearchForm *window : std::initializer_list<SearchForm *>{&patients, &staff}) {
        for (const char *filter : filters) {
            CAPTURE(filter);
            for (TextBox *box : {&window->txt_SiboriName, &window->txt_SiboriKana}) {
                world.boxes.shown.clear();
                box->Text = filter;
                press(window->but_Read);
                REQUIRE(world.boxes.shown.size() == 1);
                CHECK(world.boxes.shown[0].text.starts_with(
                    "システムエラーが発生しました！\r\riDsp1ranSub() でエラー\r\n(-2147217900)"));
                CHECK(window->spr_1ran.RowCount() == 0);
                box->Text = "";
            }
        }
        press(window->but_Read);
    }
    CHECK(numbersOf(patients.spr_1ran, 2) == std::vector<std::int32_t>{1, 2, 3, 4, 5});
    CHECK(patients.spr_1ran.text(1, 3) == "青木");
    CHECK(numbersOf(staff.spr_1ran, 1) == std::vector<std::int32_t>{11});
}

TEST_CASE("a filter of 4,000 characters is an ordinary search")
{
    EmbeddedSearch world;
    std::string longName;
    for (int index = 0; index < 4000; ++index) longName += "髙";
    world.patient(1, longName, "ﾀｶ");
    world.patient(2, "髙橋", "ﾀｶﾊｼ");
    frm患者検索 window(world.site);
    REQUIRE(window.iInit(0) == 0);
    open(window);
    window.txt_SiboriName.Text = longName;
    press(window.but_Read);
    CHECK(numbersOf(window.spr_1ran, 2) == std::vector<std::int32_t>{1});
    window.txt_SiboriName.Text = longName.substr(3) + "橋";
    press(window.but_Read);
    CHECK(window.spr_1ran.RowCount() == 0);
    CHECK(world.boxes.shown.back().text == "該当する利用者データがありません。");
}

TEST_CASE("a patient and a staff member with only a number are shown")
{
    EmbeddedSearch world;
    world.run("INSERT INTO RIYOUSHA (iKyotenCd, iKyotenEb, nIDNo) VALUES (1, 2, 8)");
    world.run("DELETE FROM STAFF; INSERT INTO STAFF (iKyotenCd, iKyotenEb, nIDNo) VALUES (1, 2, 9)");
    frm患者検索 patients(world.site);
    REQUIRE(patients.iInit(0) == 0);
    open(patients);
    REQUIRE(patients.spr_1ran.RowCount() == 1);
    CHECK(rowTexts(patients.spr_1ran, 1) == Texts{"102", "8", "", "", "", "", "", ""});
    frm施術者検索 staff(world.site);
    REQUIRE(staff.iInit(0, 0, -1) == 0);
    open(staff);
    REQUIRE(staff.spr_1ran.RowCount() == 1);
    CHECK(rowTexts(staff.spr_1ran, 1) == Texts{"9", "", ""});
}

TEST_CASE("ended patients are shown if their end is not past, or is in the limit month or later")
{
    EmbeddedSearch world; // 2024/06/15
    world.patient(1, "続く", "");
    world.ended(2, "2024-06-15 00:00:00");
    world.ended(3, "2024-06-14 00:00:00");
    world.ended(4, "2024-04-01 00:00:00");
    world.ended(5, "2024-03-31 00:00:00");
    world.ended(6, "2025-01-01 00:00:00");
    struct Row {
        const char *setting;
        std::int16_t ticked;
        std::vector<std::int32_t> shown;
    };
    const Row rows[] = {{"終了患者施術期間=3\n", 0, {1, 2, 3, 4, 6}},
                        {"終了患者施術期間=4\n", 0, {1, 2, 3, 4, 5, 6}},
                        {"終了患者施術期間=1\n", 0, {1, 2, 3, 6}},
                        {"終了患者施術期間=0\n", 0, {1, 2, 6}},
                        {"", 0, {1, 2, 6}},
                        {"終了患者施術期間=-1\n", 0, {1, 2, 6}},
                        {"終了患者施術期間=0\n", 1, {1, 2, 3, 4, 5, 6}}};
    for (const Row &row : rows) {
        CAPTURE(row.setting);
        world.files.putText("C:\\SUITE\\Massage.ini", row.setting);
        frm患者検索 window(world.site);
        REQUIRE(window.iInit(0) == 0);
        open(window);
        window.chkEndKanja.Value = row.ticked;
        press(window.but_Read);
        CHECK(numbersOf(window.spr_1ran, 2) == row.shown);
    }
}

TEST_CASE("each of a patient's five staff members finds the patient, and so does the kind of treatment")
{
    EmbeddedSearch world;
    struct Row {
        const char *values; ///< the number, the kind, and the staff members in charge
        const char *column;
    };
    const Row rows[] = {{"1, 0, 11", "nTantou"},  {"2, 1, 11", "nTantou2"}, {"3, 0, 11", "nTantou3"},
                        {"4, 1, 11", "nTantou4"}, {"5, 0, 11", "nTantou5"}, {"6, 1, 11", "nTantou6"}};
    for (const Row &row : rows)
        world.run(std::string("INSERT INTO RIYOUSHA (iKyotenCd, iKyotenEb, nIDNo, iSejutsuKubun, ") + row.column +
                  ") VALUES (1, 2, " + row.values + ")");
    frm患者検索 window(world.site);
    REQUIRE(window.iInit(0) == 0);
    open(window);
    window.cbo_Sejutusha.ListIndex = std::int16_t{1};
    press(window.but_Read);
    CHECK(numbersOf(window.spr_1ran, 2) == std::vector<std::int32_t>{1, 2, 3, 4, 5});
    window.opt_SejutsuKubun(1).Value = true;
    press(window.but_Read);
    CHECK(numbersOf(window.spr_1ran, 2) == std::vector<std::int32_t>{1, 3, 5});
    window.opt_SejutsuKubun(2).Value = true;
    press(window.but_Read);
    CHECK(numbersOf(window.spr_1ran, 2) == std::vector<std::int32_t>{2, 4});
}

TEST_CASE("patients and staff of another branch are not shown, nor those with a negative number")
{
    EmbeddedSearch world;
    world.patient(1, "自分の支店", "");
    world.patient(-1, "負の番号", "");
    world.run("INSERT INTO RIYOUSHA (iKyotenCd, iKyotenEb, nIDNo) VALUES (1, 1, 5), (2, 2, 6)");
    world.run("INSERT INTO STAFF (iKyotenCd, iKyotenEb, nIDNo) VALUES (1, 1, 5), (2, 2, 6)");
    frm患者検索 patients(world.site);
    REQUIRE(patients.iInit(0) == 0);
    open(patients);
    CHECK(numbersOf(patients.spr_1ran, 2) == std::vector<std::int32_t>{1});
    frm施術者検索 staff(world.site);
    REQUIRE(staff.iInit(0, 0, -1) == 0);
    open(staff);
    CHECK(numbersOf(staff.spr_1ran, 1) == std::vector<std::int32_t>{11});
}

TEST_CASE("a consultation limits the staff to its own")
{
    EmbeddedSearch world;
    world.staff(12, "鈴木", "");
    world.staff(13, "髙橋", "");
    world.run("INSERT INTO SOUDAN_TANTOU (nIDNo, iStaffKyotenCd, iStaffKyotenEb, nStaffIDNo) VALUES (77, 1, 2, 12),"
              " (77, 1, 2, 13), (77, 2, 1, 11), (78, 1, 2, 11)");
    struct Row {
        std::int32_t consultation;
        std::vector<std::int32_t> shown;
    };
    const Row rows[] = {{-1, {11, 12, 13}}, {77, {12, 13}}, {78, {11}}, {79, {}}, {0, {}}};
    for (const Row &row : rows) {
        CAPTURE(row.consultation);
        world.boxes.shown.clear();
        frm施術者検索 window(world.site);
        REQUIRE(window.iInit(0, 0, row.consultation) == 0);
        open(window);
        CHECK(numbersOf(window.spr_1ran, 1) == row.shown);
        CHECK(world.boxes.shown.size() == (row.shown.empty() ? 1 : 0));
    }
}

TEST_CASE("a staff number is checked on a site's table")
{
    EmbeddedSearch world;
    world.run("INSERT INTO STAFF (iKyotenCd, iKyotenEb, nIDNo, cName, iChusiFlg) VALUES (1, 2, 12, '鈴木 次郎', 1),"
              " (1, 2, 13, '髙橋', NULL), (1, 1, 14, 'よその人', 0)");
    cls施術者検索 staff(world.site);
    CHECK(staff.iChkStaff(11) == 0);
    CHECK(staff.csSeledName() == "佐藤 花子");
    CHECK(staff.iChkStaff(12) == 1);
    CHECK(staff.CsErrStr() == "管理対象から外れています。");
    CHECK(staff.iChkStaff(12, 1) == 0);
    CHECK(staff.csSeledName() == "鈴木 次郎");
    CHECK(staff.iChkStaff(13) == 0);
    CHECK(staff.iChkStaff(14) == 1);
    CHECK(staff.CsErrStr() == "対象の施術者が存在しません。");
    CHECK(staff.iChkStaff(-1) == 1);
}

TEST_CASE("a database lost between the opening and a search is reported with its error text")
{
    EmbeddedSearch world;
    world.patient(1, "青木", "");
    frm患者検索 window(world.site);
    REQUIRE(window.iInit(0) == 0);
    open(window);
    world.files.putText("C:\\SUITE\\adodb.ini",
                        "[接続情報]\n接続情報=Provider=SQLite;Data Source=/no/such/folder/x.db\n");
    press(window.but_Read);
    REQUIRE(world.boxes.shown.size() == 2);
    CHECK(world.boxes.shown[0].text.starts_with("iDsp1ranSub() でエラー\r\n(-2147467259)"));
    CHECK(world.boxes.shown[1].text == "システムエラーが発生しました！\r\r");
    CHECK(window.isLoaded());
    CHECK(window.spr_1ran.RowCount() == 0);
}
