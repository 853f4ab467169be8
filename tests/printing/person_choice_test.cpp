// Choice of a staff member and a patient on the conditions screen.

#include "platform/key_codes.h"
#include "printing/rules_fixture.h"
#include "screen/grid.h"

using namespace inin;

namespace {

FakeResult answerOf(std::vector<std::string> columns, std::vector<std::vector<Variant>> rows)
{
    FakeResult result;
    result.columns = std::move(columns);
    result.rows = std::move(rows);
    return result;
}

/// A screen with the staff 11 and 12 in its list, over a database with the staff 11, 12 and 77 and the patients 21 and
/// 22.
struct ChoiceFixture {
    FakeWorld world;
    frmPrintInin form{world.app};

    ChoiceFixture()
    {
        form.cbSejyutsu.AddItem("－ 指定なし －", -1);
        form.cbSejyutsu.AddItem("佐藤 花子", 11);
        form.cbSejyutsu.AddItem("鈴木 次郎", 12);
        form.cbSejyutsu.ListIndex = std::int16_t{0};
        const FakeResult staff = answerOf({"nIDNo", "cName", "cNameKana"}, {{std::int32_t{11}, "佐藤 花子", "ｻﾄｳ"},
                                                                            {std::int32_t{12}, "鈴木 次郎", "ｽｽﾞｷ"},
                                                                            {std::int32_t{77}, "新人 五郎", "ｼﾝｼﾞﾝ"}});
        answer("FROM STAFF  WHERE nIDNo >= 0", staff);
        answer(")staff", staff);
        const auto patient = [](std::int32_t nIDNo, const char *name) {
            return std::vector<Variant>{std::int16_t{1}, std::int16_t{2}, nIDNo, name, "", "", "", "", ""};
        };
        answer("FROM RIYOUSHA  WHERE", answerOf({"iKyotenCd", "iKyotenEb", "nIDNo", "cName", "cNameKana", "cNameRyaku",
                                                 "cTelNo", "cAdress1", "cAdress2"},
                                                {patient(21, "青木 一郎"), patient(22, "髙橋 﨑子")}));
    }
    void answer(const char *part, const FakeResult &result)
    {
        world.database.resultsByText.insert(world.database.resultsByText.begin(), {part, result});
    }
    void checkAnswers(const std::vector<std::vector<Variant>> &rows)
    {
        answer("SELECT cName, iChusiFlg", answerOf({"cName", "iChusiFlg"}, rows));
    }
    /// In the next window that opens, the user double-clicks this row.
    void chooseRow(std::int32_t row)
    {
        world.windows.acts.push_back([row](Form &window) { gridOf(window)->onDblClick(row); });
    }
    /// The user closes the next window that opens by its control box.
    void leave() { world.windows.closeByControlBox(); }
    void returnIn(NumberBox &box, const Variant &value)
    {
        box.Value = value;
        form.key(&box, kReturnKey);
    }
    [[nodiscard]] std::string lastSql() const
    {
        for (auto line = world.database.log.rbegin(); line != world.database.log.rend(); ++line)
            if (line->starts_with("sql ")) return line->substr(line->find(' ', 4) + 1);
        return {};
    }
};

const Variant kNoNumber{Null{}};

Variant number(std::int32_t value)
{
    return value;
}

} // namespace

TEST_CASE("the staff button shows the staff window and writes the choice to box and list")
{
    ChoiceFixture screen;
    screen.chooseRow(2);
    screen.form.btn_StaffSelect.onClick();
    CHECK(screen.world.windows.log.front() == "show frm施術者検索");
    CHECK(screen.form.imNum_StaffNo.Value.get() == number(12));
    CHECK(screen.form.cbSejyutsu.ListIndex == 2);
}

TEST_CASE("a staff window closed without a choice leaves the screen unchanged")
{
    ChoiceFixture screen;
    screen.form.cbSejyutsu.ListIndex = std::int16_t{1};
    screen.leave();
    screen.form.btn_StaffSelect.onClick();
    CHECK(screen.form.imNum_StaffNo.Value.get() == number(11));
    CHECK(screen.form.cbSejyutsu.ListIndex == 1);
    CHECK(screen.world.boxes.shown.empty());
}

TEST_CASE("a chosen staff member who is not in the list is shown in the box, and the list differs")
{
    ChoiceFixture screen;
    screen.form.cbSejyutsu.ListIndex = std::int16_t{1};
    screen.chooseRow(3);
    screen.form.btn_StaffSelect.onClick();
    CHECK(screen.form.imNum_StaffNo.Value.get() == number(77));
    CHECK(screen.form.cbSejyutsu.ListIndex == 1);
}

TEST_CASE("a staff number that occurs twice in the list selects the first entry")
{
    ChoiceFixture screen;
    screen.form.cbSejyutsu.AddItem("鈴木 次郎（再）", 12);
    screen.chooseRow(2);
    screen.form.btn_StaffSelect.onClick();
    CHECK(screen.form.cbSejyutsu.ListIndex == 2);
    screen.form.cbSejyutsu.ListIndex = std::int16_t{0};
    screen.checkAnswers({{"鈴木 次郎", Null{}}});
    CHECK(screen.form.iChkStaffNo(12, screen.form.cbSejyutsu) == 0);
    CHECK(screen.form.cbSejyutsu.ListIndex == 2);
}

TEST_CASE("the staff window includes former staff if the screen does, and never sets a consultation")
{
    ChoiceFixture screen;
    screen.leave();
    screen.form.btn_StaffSelect.onClick();
    CHECK(screen.lastSql().find(" where (iChusiFlg = 0 OR iChusiFlg IS NULL) and") != std::string::npos);
    screen.form.chkChushi.onClick = nullptr;
    screen.form.chkChushi.Value = 1;
    screen.leave();
    screen.form.btn_StaffSelect.onClick();
    CHECK(screen.lastSql().find("iChusiFlg") == std::string::npos);
    CHECK(screen.lastSql().find("soudan") == std::string::npos);
}

TEST_CASE("a staff search without box and list returns the number, and -1 without a choice")
{
    ChoiceFixture screen;
    screen.chooseRow(2);
    CHECK(screen.form.iSelectStaff() == 12);
    CHECK(screen.form.cbSejyutsu.ListIndex == 0);
    screen.leave();
    CHECK(screen.form.iSelectStaff() == -1);
    screen.chooseRow(1);
    CHECK(screen.form.iSelectStaff(&screen.form.imNum_CD) == 11);
    CHECK(screen.form.imNum_CD.Value.get() == number(11));
    screen.chooseRow(2);
    CHECK(screen.form.iSelectStaff(nullptr, &screen.form.cbSejyutsu) == 12);
    CHECK(screen.form.cbSejyutsu.ListIndex == 2);
}

namespace {
/// Every box of a failing window fails as well, so that the failure reaches the front class.
void failBoxes(FakeWorld &world, int count)
{
    world.boxes.onShow = [left = count](const ShownBox &) mutable {
        if (left-- > 0) throw RuntimeError(error_number::outOfMemory);
    };
}
FakeResult failure()
{
    FakeResult result;
    result.error = ado_error::faultyStatement;
    return result;
}
} // namespace

TEST_CASE("a failed staff search shows the error text of its class and gives -1")
{
    ChoiceFixture screen;
    screen.answer("FROM STAFF  WHERE nIDNo >= 0", failure());
    failBoxes(screen.world, 3);
    CHECK(screen.form.iSelectStaff(&screen.form.imNum_StaffNo, &screen.form.cbSejyutsu) == -1);
    REQUIRE_FALSE(screen.world.boxes.shown.empty());
    CHECK(screen.world.boxes.shown.back() ==
          ShownBox{"施術者の検索に失敗しました(7)メモリが不足しています。", Icon::critical, ""});
}

TEST_CASE("the staff list writes the chosen number into the number box")
{
    struct Row {
        std::int16_t ListIndex;
        std::int32_t number;
    };
    for (const Row &row : {Row{0, 0}, Row{1, 11}, Row{2, 2147483647}, Row{3, 0}}) {
        RulesFixture fixture;
        ListBox &list = fixture.form.cbSejyutsu;
        list.AddItem("－ 指定なし －", -1);
        list.AddItem("佐藤 花子", 11);
        list.AddItem("鈴木 次郎", 2147483647);
        list.AddItem("番号なし", 0);
        list.ListIndex = row.ListIndex;
        CAPTURE(row.ListIndex);
        CHECK(fixture.form.imNum_StaffNo.Value.get() == Variant(row.number));
    }
}

TEST_CASE_FIXTURE(RulesFixture, "a staff list without a choice leaves the number box unchanged")
{
    form.cbSejyutsu.AddItem("佐藤 花子", 11);
    form.cbSejyutsu.ListIndex = std::int16_t{0};
    form.imNum_StaffNo.Value = std::int32_t{77};
    form.cbSejyutsu.ListIndex = std::int16_t{-1};

    CHECK(form.imNum_StaffNo.Value.get() == Variant(std::int32_t{77}));
}

TEST_CASE("the return key in a staff number that is empty or 0 selects the first entry without a look-up")
{
    for (const Variant &value : {kNoNumber, number(0)}) {
        ChoiceFixture screen;
        screen.form.cbSejyutsu.ListIndex = std::int16_t{2};
        screen.returnIn(screen.form.imNum_StaffNo, value);
        CHECK(screen.form.cbSejyutsu.ListIndex == 0);
        CHECK(screen.world.database.log.empty());
    }
}

TEST_CASE("the return key in a staff number selects the entry of a usable one")
{
    ChoiceFixture screen;
    screen.checkAnswers({{"鈴木 次郎", Null{}}});
    screen.returnIn(screen.form.imNum_StaffNo, number(12));
    CHECK(screen.lastSql() ==
          "SELECT cName, iChusiFlg FROM STAFF  WHERE nIDNo = 12 AND iKyotenCd = 1 AND iKyotenEb = 2");
    CHECK(screen.form.cbSejyutsu.ListIndex == 2);
    CHECK(screen.world.boxes.shown.empty());
}

TEST_CASE("a usable staff number that is not in the list leaves the list unchanged")
{
    ChoiceFixture screen;
    screen.form.cbSejyutsu.ListIndex = std::int16_t{1};
    screen.checkAnswers({{"新人 五郎", std::int16_t{0}}});
    CHECK(screen.form.iChkStaffNo(77, screen.form.cbSejyutsu) == 0);
    CHECK(screen.form.cbSejyutsu.ListIndex == 1);
}

TEST_CASE("an unknown staff number shows an error and leaves box and list unchanged")
{
    ChoiceFixture screen;
    screen.form.cbSejyutsu.ListIndex = std::int16_t{1};
    screen.checkAnswers({});
    screen.returnIn(screen.form.imNum_StaffNo, number(99));
    CHECK(screen.world.boxes.shown ==
          std::vector{ShownBox{"施術者の検索に失敗しました対象の施術者が存在しません。", Icon::critical, ""}});
    CHECK(screen.form.imNum_StaffNo.Value.get() == number(99));
    CHECK(screen.form.cbSejyutsu.ListIndex == 1);
    CHECK(screen.form.iChkStaffNo(99, screen.form.cbSejyutsu) == -1);
}

TEST_CASE("the number of a former staff member is usable only if the screen includes former staff")
{
    ChoiceFixture screen;
    screen.checkAnswers({{"鈴木 次郎", std::int16_t{1}}});
    CHECK(screen.form.iChkStaffNo(12, screen.form.cbSejyutsu) == -1);
    CHECK(screen.form.cbSejyutsu.ListIndex == 0);
    CHECK(screen.world.boxes.shown.back().text == "施術者の検索に失敗しました管理対象から外れています。");
    screen.form.chkChushi.onClick = nullptr;
    screen.form.chkChushi.Value = 1;
    CHECK(screen.form.iChkStaffNo(12, screen.form.cbSejyutsu) == 0);
    CHECK(screen.form.cbSejyutsu.ListIndex == 2);
}

TEST_CASE("a lost connection in the check shows two boxes: the reason, and the failed search")
{
    ChoiceFixture screen;
    screen.world.database.connectError = ado_error::unspecified;
    screen.returnIn(screen.form.imNum_StaffNo, number(12));
    CHECK(screen.world.boxes.shown ==
          std::vector{ShownBox{"iChkStaff でエラー\r\n(-2147467259)接続できません。", Icon::critical, ""},
                      ShownBox{"施術者の検索に失敗しました", Icon::critical, ""}});
}

TEST_CASE("a run-time error while selecting a number is a box without icon")
{
    ChoiceFixture screen;
    screen.form.cbSejyutsu.Clear(); // number 0 selects the first entry, and there is none
    screen.returnIn(screen.form.imNum_StaffNo, number(0));
    CHECK(screen.world.boxes.shown.size() == 1);
    CHECK(screen.world.boxes.shown[0].text.starts_with("施術者の検索に失敗しました！\r\r(380)"));
    CHECK(screen.world.boxes.shown[0].icon == Icon::none);
}

TEST_CASE("a run-time error in the return key of the staff number shows its text only")
{
    ChoiceFixture screen;
    screen.returnIn(screen.form.imNum_StaffNo, Variant("十二"));
    CHECK(screen.world.boxes.shown == std::vector{ShownBox{"Error:型が一致しません。", Icon::none, ""}});
}

TEST_CASE("keys other than return look up nothing")
{
    ChoiceFixture screen;
    screen.form.imNum_StaffNo.Value = number(12);
    screen.form.key(&screen.form.imNum_StaffNo, 50);
    screen.form.key(&screen.form.imNum_CD, 50); // even in an empty box
    CHECK(screen.world.database.log.empty());
    CHECK(screen.form.cbSejyutsu.ListIndex == 0);
}

TEST_CASE("a chosen patient is shown on the screen by number and name")
{
    ChoiceFixture screen;
    screen.chooseRow(2);
    screen.form.btn_KanjaSelect.onClick();
    CHECK(screen.form.imNum_CD.Value.get() == number(22));
    CHECK(screen.form.lbl_SelKanja.Caption.get() == "髙橋 﨑子");
}

TEST_CASE("a chosen patient with number 0 is shown by name, unlike a window closed without a choice")
{
    ChoiceFixture screen;
    screen.answer("FROM RIYOUSHA  WHERE", answerOf({"iKyotenCd", "iKyotenEb", "nIDNo", "cName", "cNameKana",
                                                    "cNameRyaku", "cTelNo", "cAdress1", "cAdress2"},
                                                   {{1, 2, std::int32_t{0}, "番号 なし", "", "", "", "", ""}}));
    screen.chooseRow(1);
    screen.form.btn_KanjaSelect_Click();
    CHECK(screen.form.imNum_CD.Value.get() == number(0));
    CHECK(screen.form.lbl_SelKanja.Caption.get() == "番号 なし");
}

TEST_CASE("a patient window closed without a choice means all patients: number 0, not an empty box")
{
    ChoiceFixture screen;
    screen.form.imNum_CD.Value = number(21);
    screen.form.lbl_SelKanja.Caption = "青木 一郎";
    screen.leave();
    screen.form.btn_KanjaSelect.onClick();
    CHECK(screen.form.imNum_CD.Value.get() == number(0));
    CHECK(screen.form.lbl_SelKanja.Caption.get() == "(全員)");
}

TEST_CASE("a failed patient search shows an error and leaves number and name unchanged")
{
    ChoiceFixture screen;
    screen.form.imNum_CD.Value = number(21);
    screen.form.lbl_SelKanja.Caption = "青木 一郎";
    screen.world.database.connectError = ado_error::unspecified;
    screen.form.btn_KanjaSelect.onClick();
    CHECK(screen.world.boxes.shown ==
          std::vector{ShownBox{"患者の検索に失敗しましたiInit() でエラー\r\n(-2147467259)接続できません。",
                               Icon::critical, ""}});
    CHECK(screen.form.imNum_CD.Value.get() == number(21));
    CHECK(screen.form.lbl_SelKanja.Caption.get() == "青木 一郎");
}

TEST_CASE("a run-time error in the patient search is a box without icon, with its number")
{
    ChoiceFixture screen;
    screen.chooseRow(1);
    screen.form.lbl_SelKanja.watch([] { throw RuntimeError(error_number::outOfMemory); });
    screen.form.btn_KanjaSelect.onClick();
    CHECK(screen.world.boxes.shown == std::vector{ShownBox{"(7)メモリが不足しています。", Icon::none, ""}});
}

TEST_CASE("the return key in a patient number shows the name, or nothing for an unknown number")
{
    ChoiceFixture screen;
    screen.answer("SELECT * FROM RIYOUSHA WHERE nIDNo = 21 ",
                  answerOf({"nIDNo", "cName"}, {{std::int32_t{21}, " 青木 一郎 "}}));
    screen.returnIn(screen.form.imNum_CD, number(21));
    CHECK(screen.form.lbl_SelKanja.Caption.get() == "青木 一郎");
    screen.returnIn(screen.form.imNum_CD, number(99));
    CHECK(screen.form.lbl_SelKanja.Caption.get().empty());
    CHECK(screen.world.boxes.shown.empty());
}

TEST_CASE("the return key in an empty patient number is an untrapped error")
{
    ChoiceFixture screen;
    try {
        screen.returnIn(screen.form.imNum_CD, kNoNumber);
        FAIL("no error");
    } catch (const RuntimeError &error) {
        CHECK(error.number() == 94);
    }
    CHECK(screen.world.boxes.shown.empty());
}
