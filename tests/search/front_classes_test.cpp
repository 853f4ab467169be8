// The front classes: opening the windows, and finding numbers and names without them.

#include "search/patient_search_form.h"
#include "search/search_fixture.h"
#include "search/staff_search_form.h"

#include <doctest/doctest.h>

using namespace inin;

namespace {

using Texts = std::vector<std::string>;

struct FrontFixture : SearchFixture {
    cls患者検索 patients{world.app};
    cls施術者検索 staff{world.app};

    /// The actions of the window's user.
    void act(std::function<void(Form &)> doing) { world.windows.acts.push_back(std::move(doing)); }
    void chooseRow(std::int32_t row)
    {
        act([row](Form &form) { gridOf(form)->onDblClick(row); });
    }
    void checkAnswers(const std::vector<std::vector<Variant>> &rows)
    {
        FakeResult result;
        result.columns = {"cName", "iChusiFlg"};
        result.rows = rows;
        answer(kStaffCheck, result);
    }
    void patientNamed(const Variant &cName)
    {
        FakeResult result;
        result.columns = {"nIDNo", "cName"};
        result.rows = {{std::int32_t{21}, cName}};
        answer("SELECT * FROM RIYOUSHA", result);
    }
};

} // namespace

TEST_CASE("a chosen patient is returned with number, name and the branch's number")
{
    FrontFixture front;
    front.chooseRow(2);
    CHECK(front.patients.iDspStart() == 0);
    CHECK(front.patients.nSeledCD == 22);
    CHECK(front.patients.csSeledName() == "髙橋 﨑子");
    CHECK(front.patients.iArea == 102);
    CHECK(front.world.database.log.back() == "disconnect 1"); // the window is closed, and its session
}

TEST_CASE("a patient window closed without a choice changes nothing and gives 1")
{
    FrontFixture front;
    front.patients.nSeledCD = 23;
    front.patients.iArea = 7;
    front.act([](Form &form) {
        CHECK(gridOf(form)->ActiveRow == 3); // the number set before is the one to highlight
        form.key(nullptr, kF12Key);
    });
    CHECK(front.patients.iDspStart() == 1);
    CHECK(front.patients.nSeledCD == 23);
    CHECK(front.patients.iArea == 7);
    CHECK(front.patients.csSeledName().empty());
}

TEST_CASE("a patient window that closes during its opening counts as closed without a choice")
{
    FrontFixture front;
    front.answer(kStaffList, staffRows({}));
    CHECK(front.patients.iDspStart() == 1);
}

TEST_CASE("a patient window without a connection is not shown, and its error text is passed on")
{
    FrontFixture front;
    front.world.database.connectError = ado_error::unspecified;
    CHECK(front.patients.iDspStart() == -1);
    CHECK(front.patients.CsErrStr() == "iInit() でエラー\r\n(-2147467259)接続できません。");
    CHECK(front.world.windows.log.empty());
    CHECK(front.world.boxes.shown.empty());
}

TEST_CASE("a run-time error in the patients' front class becomes its error text and -1")
{
    FrontFixture front;
    front.answer(kStaffList, failure());
    int boxes = 0;
    front.world.boxes.onShow = [&](const ShownBox &) {
        if (++boxes <= 3) throw RuntimeError(error_number::outOfMemory);
    };
    CHECK(front.patients.iDspStart() == -1);
    CHECK(front.patients.CsErrStr() == "(7)メモリが不足しています。");
}

TEST_CASE("a patient's name is found by number, cut at the first NUL and trimmed on both sides")
{
    struct Row {
        Variant cName;
        std::string name;
    };
    const Row rows[] = {{"青木 一郎", "青木 一郎"},
                        {"  青木 一郎  ", "青木 一郎"},
                        {std::string("青木\0一郎", 13), "青木"},
                        {std::string(" 青木 \0x", 9), "青木"},
                        {"　青木　", "　青木　"},
                        {Null{}, ""}};
    for (const Row &row : rows) {
        FrontFixture front;
        front.patientNamed(row.cName);
        Label label("lbl_SelKanja");
        label.Caption = "前の人";
        CHECK(front.patients.iSetRiyouName(21, label) == 0);
        CHECK(label.Caption.get() == row.name);
        CHECK(front.patients.csSetRiyouName_Text(21) == row.name);
        TextBox box("txt");
        box.Text = "前の人";
        CHECK(front.patients.iSetRiyouName2(21, box) == 0);
        CHECK(box.Text.get() == row.name);
        Label other("lbl");
        CHECK(front.patients.iSetRiyouName2(21, other) == 0);
        CHECK(other.Caption.get() == row.name);
        CHECK(front.statements().back() ==
              "SELECT * FROM RIYOUSHA WHERE nIDNo = 21 and iKyotenCd = 1 and iKyotenEb = 2");
    }
}

TEST_CASE("an unknown patient number empties the control and gives -1 without a box")
{
    FrontFixture front;
    Label label("lbl_SelKanja");
    label.Caption = "前の人";
    CHECK(front.patients.iSetRiyouName(99, label) == -1);
    CHECK(label.Caption.get().empty());
    TextBox box("txt");
    box.Text = "前の人";
    CHECK(front.patients.iSetRiyouName2(99, box) == -1);
    CHECK(box.Text.get().empty());
    CHECK(front.patients.csSetRiyouName_Text(99).empty());
    CHECK(front.world.boxes.shown.empty());
}

TEST_CASE("a look-up without a connection finds no patient")
{
    FrontFixture front;
    front.patientNamed("青木 一郎");
    front.world.database.connectError = ado_error::unspecified;
    Label label("lbl_SelKanja");
    CHECK(front.patients.iSetRiyouName(21, label) == -1);
    CHECK(front.patients.csSetRiyouName_Text(21).empty());
}

TEST_CASE("a control that refuses the name is a failure with the class's error text")
{
    FrontFixture front;
    front.patientNamed("青木 一郎");
    Label label("lbl_SelKanja");
    label.watch([] { throw RuntimeError(error_number::outOfMemory); });
    CHECK(front.patients.iSetRiyouName(21, label) == -1);
    CHECK(front.patients.CsErrStr() == "(7)メモリが不足しています。");
}

TEST_CASE("a chosen staff member is returned with number and name")
{
    FrontFixture front;
    front.chooseRow(1);
    CHECK(front.staff.iDspStart() == 0);
    CHECK(front.staff.nSeledCD == 11);
    CHECK(front.staff.csSeledName() == "佐藤 花子");
}

TEST_CASE("the staff window without arguments hides former staff and sets no consultation")
{
    FrontFixture front;
    front.staff.nSeledCD = 12;
    front.act([](Form &form) {
        CHECK(gridOf(form)->ActiveRow == 2);
        form.unload(true);
    });
    CHECK(front.staff.iDspStart() == 1);
    CHECK(front.staff.nSeledCD == 12);
    CHECK(front.statements().back().find(" where (iChusiFlg = 0 OR iChusiFlg IS NULL) and") != std::string::npos);
    CHECK(front.statements().back().find("SOUDAN_TANTOU") == std::string::npos);
}

TEST_CASE("the staff window uses both arguments")
{
    FrontFixture front;
    front.world.windows.closeByControlBox();
    CHECK(front.staff.iDspStart(1, 5) == 1);
    CHECK(front.statements().back().find("iChusiFlg") == std::string::npos);
    CHECK(front.statements().back().find("soudan.SoudanID = 5 ") != std::string::npos);
}

TEST_CASE("a run-time error in the staff's front class becomes its error text and -1")
{
    FrontFixture front;
    front.answer(kStaffList, failure());
    int boxes = 0;
    front.world.boxes.onShow = [&](const ShownBox &) {
        if (++boxes <= 3) throw RuntimeError(error_number::outOfMemory);
    };
    CHECK(front.staff.iDspStart() == -1);
    CHECK(front.staff.CsErrStr() == "(7)メモリが不足しています。");
}

TEST_CASE("a staff number is usable with these flags")
{
    struct Row {
        const char *what;
        Variant iChusiFlg;
        std::int16_t iKanriEnd;
        std::int16_t status;
        const char *words;
        const char *name;
    };
    const Row rows[] = {
        {"in charge", std::int16_t{0}, 0, 0, "", "佐藤 花子"},
        {"never marked", Null{}, 0, 0, "", "佐藤 花子"},
        {"ended", std::int16_t{1}, 0, 1, "管理対象から外れています。", ""},
        {"ended, but counts", std::int16_t{1}, 1, 0, "", "佐藤 花子"},
        {"other mark", std::int16_t{2}, 0, 0, "", "佐藤 花子"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.what);
        FrontFixture front;
        front.checkAnswers({{"佐藤 花子  ", row.iChusiFlg}});
        CHECK(front.staff.iChkStaff(11, row.iKanriEnd) == row.status);
        CHECK(front.staff.CsErrStr() == row.words);
        CHECK(front.staff.csSeledName() == row.name);
        CHECK(front.world.boxes.shown.empty());
        CHECK(front.world.database.log.back() == "disconnect 1");
    }
}

TEST_CASE("a checked staff member without a name gives the empty name")
{
    FrontFixture front;
    front.checkAnswers({{Null{}, Null{}}});
    CHECK(front.staff.iChkStaff(11) == 0);
    CHECK(front.staff.csSeledName().empty());
}

TEST_CASE("an unknown staff number is not usable")
{
    FrontFixture front;
    front.checkAnswers({});
    CHECK(front.staff.iChkStaff(99) == 1);
    CHECK(front.staff.CsErrStr() == "対象の施術者が存在しません。");
    CHECK(front.world.boxes.shown.empty());
    CHECK(front.world.database.log.back() == "disconnect 1");
}

TEST_CASE("a check after a failed one does not keep its error text")
{
    FrontFixture front;
    front.checkAnswers({});
    REQUIRE(front.staff.iChkStaff(99) == 1);
    front.checkAnswers({{"佐藤 花子", std::int16_t{0}}});
    CHECK(front.staff.iChkStaff(11) == 0);
    CHECK(front.staff.CsErrStr().empty());
}

TEST_CASE("a check with a failed statement does not keep the error text of the previous one and shows only its box")
{
    FrontFixture front;
    front.checkAnswers({});
    REQUIRE(front.staff.iChkStaff(99) == 1);
    front.answer(kStaffCheck, failure());
    CHECK(front.staff.iChkStaff(11) == 1);
    CHECK(front.staff.CsErrStr().empty());
    CHECK(front.world.boxes.shown.size() == 1);
}

TEST_CASE("a check without a session shows the reason under its own heading")
{
    struct Row {
        void (*spoil)(FakeWorld &world);
        const char *text;
    };
    const Row rows[] = {
        {[](FakeWorld &world) { world.files.remove("C:\\SUITE\\adodb.ini"); },
         "iChkStaff でエラー\r\n指定されたIni（C:\\SUITE\\adodb.ini）ファイルが見つかりません。"},
        {[](FakeWorld &world) { world.files.putText("C:\\SUITE\\adodb.ini", "[接続情報]\n"); },
         "iChkStaff でエラー\r\n接続文字列取得できません。"},
        {[](FakeWorld &world) { world.database.connectError = ado_error::unspecified; },
         "iChkStaff でエラー\r\n(-2147467259)接続できません。"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.text);
        FrontFixture front;
        row.spoil(front.world);
        CHECK(front.staff.iChkStaff(11) == 1);
        CHECK(front.world.boxes.shown == std::vector{ShownBox{row.text, Icon::critical, ""}});
    }
}

TEST_CASE("a check with a failed statement shows the reason and the number is not usable")
{
    FrontFixture front;
    front.answer(kStaffCheck, failure());
    CHECK(front.staff.iChkStaff(11) == 1);
    CHECK(front.world.boxes.shown ==
          std::vector{ShownBox{"iChkStaff でエラー\r\n(-2147217900)構文が正しくありません。\rSQL=SELECT cName, "
                               "iChusiFlg FROM STAFF  WHERE nIDNo = 11 AND iKyotenCd = 1 AND iKyot・・・",
                               Icon::critical, ""}});
    CHECK(front.world.database.log.back() == "disconnect 1");
}

TEST_CASE("a run-time error in the check becomes the class's error text, and the number is not usable")
{
    FrontFixture front;
    FakeResult narrow;
    narrow.columns = {"cName"};
    narrow.rows = {{"佐藤 花子"}};
    front.answer(kStaffCheck, narrow);
    CHECK(front.staff.iChkStaff(11) == 1);
    CHECK(front.staff.CsErrStr() == "(3265)要求された名前、または序数に対応する項目がコレクションで見つかりません。");
    CHECK(front.world.boxes.shown.empty());
}
