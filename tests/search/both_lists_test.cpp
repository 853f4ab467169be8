// Behaviour common to both search lists: the opening, the search and its messages.

#include "search/search_fixture.h"

#include <doctest/doctest.h>

using namespace inin;

#define BOTH_LISTS PatientList, StaffList

namespace {

using Texts = std::vector<std::string>;

ShownBox systemError(const std::string &words)
{
    return {"システムエラーが発生しました！\r\r" + words, Icon::critical, ""};
}

} // namespace

TEST_CASE_TEMPLATE("the first activation reads the staff, then searches once, and focuses the number", List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.opened();
    const Texts statements = list.statements();
    REQUIRE(statements.size() == 2);
    CHECK(statements[0] == "SELECT nIDNo, cName, cNameRyaku  FROM STAFF  WHERE nIDNo >= 0  AND iKyotenCd = 1 AND "
                           "iKyotenEb = 2 ORDER BY nIDNo ");
    CHECK(statements[1].find(List::found) != std::string::npos);
    CHECK(list.count("focus in_SiboriID") == 1);
    CHECK(list.window.spr_1ran.RowCount() == static_cast<std::int32_t>(std::size(List::numbers)));
    CHECK(list.window.but_Act(0).Enabled);
}

TEST_CASE_TEMPLATE("a later activation does nothing", List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.opened();
    list.window.Form_Activate();
    CHECK(list.statements().size() == 2);
}

TEST_CASE_TEMPLATE("each statement has a session of its own, which ends with it", List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.opened();
    list.world.database.log.clear();
    press(list.window.but_Read);
    REQUIRE(list.world.database.log.size() == 3);
    CHECK(list.world.database.log[0].starts_with("connect "));
    CHECK(list.world.database.log[1].starts_with("sql "));
    CHECK(list.world.database.log[2].starts_with("disconnect "));
}

TEST_CASE_TEMPLATE("without a number to highlight no row is chosen", List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.opened(0);
    CHECK(list.window.spr_1ran.ActiveRow == 0);
    CHECK(list.window.spr_1ran.RowInSight() == 0);
}

TEST_CASE_TEMPLATE("a number to highlight becomes the active row and is scrolled into view", List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.opened(List::numbers[1]);
    CHECK(list.window.spr_1ran.ActiveRow == 2);
    CHECK(list.window.spr_1ran.RowInSight() == 2);
}

TEST_CASE_TEMPLATE("a row of number 0 is not highlighted if there is no number to highlight", List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.answer(List::found, List::nullRow()); // NULL reads as number 0
    list.opened(0);
    CHECK(list.window.spr_1ran.number(1, List::numberColumn) == 0);
    CHECK(list.window.spr_1ran.ActiveRow == 0);
    CHECK(list.window.spr_1ran.RowInSight() == 0);
}

TEST_CASE_TEMPLATE("of a number that occurs twice the first row is highlighted", List, BOTH_LISTS)
{
    ListFixture<List> list;
    FakeResult twice = list.world.database.answerTo(List::found);
    twice.rows.push_back(twice.rows[1]);
    list.answer(List::found, twice);
    list.opened(List::numbers[1]);
    CHECK(list.window.spr_1ran.ActiveRow == 2);
    CHECK(list.window.spr_1ran.RowInSight() == 2);
}

TEST_CASE_TEMPLATE("a number hidden by the filter highlights nothing and shows no message", List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.opened(999);
    CHECK(list.window.spr_1ran.ActiveRow == 0);
    CHECK(list.world.boxes.shown.empty());
}

TEST_CASE_TEMPLATE("a branch without staff shows a message, and the window closes before its first search", List,
                   BOTH_LISTS)
{
    ListFixture<List> list;
    list.answer(kStaffList, staffRows({}));
    list.init();
    open(list.window);
    CHECK(list.world.boxes.shown == std::vector{ShownBox{List::noStaffText, Icon::information, ""}});
    CHECK_FALSE(list.window.isLoaded());
    CHECK_FALSE(list.window.isChosen());
    CHECK(list.statements().size() == 1);
}

TEST_CASE_TEMPLATE("a lost connection at the opening is reported by the read of the staff, and the window closes", List,
                   BOTH_LISTS)
{
    ListFixture<List> list;
    list.init();
    list.world.database.connectError = ado_error::unspecified;
    open(list.window);
    CHECK(list.world.boxes.shown ==
          std::vector{ShownBox{"iMastDataLoad() でエラー\r\n(-2147467259)接続できません。", Icon::critical, ""}});
    CHECK_FALSE(list.window.isLoaded());
}

TEST_CASE_TEMPLATE("a failed read of the staff is a system error with three beeps, and the window closes", List,
                   BOTH_LISTS)
{
    ListFixture<List> list;
    list.answer(kStaffList, failure());
    list.init();
    open(list.window);
    REQUIRE(list.world.boxes.shown.size() == 1);
    CHECK(list.boxTexts()[0].starts_with(
        "システムエラーが発生しました！\r\riMastDataLoad() でエラー\r\n(-2147217900)構文が正しくありません。\rSQL="));
    CHECK(list.count("beep") == 3);
    CHECK_FALSE(list.window.isLoaded());
}

TEST_CASE_TEMPLATE("an unreadable staff row is a system error, and the window closes", List, BOTH_LISTS)
{
    ListFixture<List> list;
    FakeResult broken = staffRows({{std::int32_t{11}, "佐藤", ""}, {std::int32_t{12}, "鈴木", ""}});
    broken.failingMove = 1;
    list.answer(kStaffList, broken);
    list.init();
    open(list.window);
    CHECK(list.world.boxes.shown == std::vector{systemError("(-2147467259)接続が失われました。")});
    CHECK_FALSE(list.window.isLoaded());
}

TEST_CASE_TEMPLATE("a failed first search shows an error and closes the window", List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.answer(List::found, failure());
    list.init();
    open(list.window);
    CHECK(list.world.boxes.shown.size() == 1);
    CHECK_FALSE(list.window.isLoaded());
    CHECK_FALSE(list.window.isChosen());
}

TEST_CASE_TEMPLATE("a failed later search leaves the window open and its list empty", List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.opened();
    list.answer(List::found, failure());
    press(list.window.but_Read);
    REQUIRE(list.world.boxes.shown.size() == 1);
    CHECK(list.boxTexts()[0].starts_with(
        "システムエラーが発生しました！\r\riDsp1ranSub() でエラー\r\n(-2147217900)構文が正しくありません。\rSQL="));
    CHECK(list.world.boxes.shown[0].icon == Icon::critical);
    CHECK(list.count("beep") == 3);
    CHECK(list.window.isLoaded());
    CHECK(list.window.spr_1ran.RowCount() == 0);
    CHECK(list.window.spr_1ran.ReDraw);
    CHECK_FALSE(list.window.but_Act(0).Enabled);
}

TEST_CASE_TEMPLATE("the search after a failed one runs", List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.opened();
    const FakeResult good = list.world.database.answerTo(List::found);
    list.answer(List::found, failure());
    press(list.window.but_Read);
    list.answer(List::found, good);
    press(list.window.but_Read);
    CHECK(list.window.spr_1ran.RowCount() == static_cast<std::int32_t>(std::size(List::numbers)));
    CHECK(list.world.boxes.shown.size() == 1);
}

TEST_CASE_TEMPLATE("a connection lost between the opening and a search shows two messages, and the window stays open",
                   List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.opened();
    list.answer(List::found, failure());
    press(list.window.but_Read); // the next failure does not repeat the text of this one
    list.world.boxes.shown.clear();
    list.world.database.connectError = ado_error::unspecified;
    press(list.window.but_Read);
    CHECK(list.world.boxes.shown ==
          std::vector{ShownBox{"iDsp1ranSub() でエラー\r\n(-2147467259)接続できません。", Icon::critical, ""},
                      systemError("")});
    CHECK(list.window.isLoaded());
}

TEST_CASE_TEMPLATE("missing connection settings are reported by the search", List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.opened();
    list.world.files.putText("C:\\SUITE\\adodb.ini", "[接続情報]\n");
    press(list.window.but_Read);
    REQUIRE_FALSE(list.world.boxes.shown.empty());
    CHECK(list.world.boxes.shown[0] ==
          ShownBox{"iDsp1ranSub() でエラー\r\n接続文字列取得できません。", Icon::critical, ""});

    list.world.boxes.shown.clear();
    list.world.files.remove("C:\\SUITE\\adodb.ini");
    press(list.window.but_Read);
    REQUIRE_FALSE(list.world.boxes.shown.empty());
    CHECK(list.world.boxes.shown[0] ==
          ShownBox{"iDsp1ranSub() でエラー\r\n指定されたIni（C:\\SUITE\\adodb.ini）ファイルが見つかりません。",
                   Icon::critical, ""});
}

TEST_CASE_TEMPLATE("a connection lost in the middle of the rows is a system error with its number", List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.opened();
    FakeResult broken = list.world.database.answerTo(List::found);
    broken.failingMove = 1;
    list.answer(List::found, broken);
    press(list.window.but_Read);
    CHECK(list.world.boxes.shown == std::vector{systemError("(-2147467259)接続が失われました。")});
    CHECK(list.window.CsErrStr() == "(-2147467259)接続が失われました。");
    CHECK(list.window.isLoaded());
    CHECK_FALSE(list.window.but_Act(0).Enabled);
}

TEST_CASE_TEMPLATE("a column missing in the table is a system error", List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.opened();
    FakeResult narrow = list.world.database.answerTo(List::found);
    narrow.columns.back() = "cOther";
    list.answer(List::found, narrow);
    press(list.window.but_Read);
    CHECK(list.world.boxes.shown == std::vector{systemError("(3265)要求された名前、または序数に対応する項目が"
                                                            "コレクションで見つかりません。")});
}

TEST_CASE_TEMPLATE("an empty result shows a message, and the empty list offers no choice", List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.opened();
    list.answer(List::found, List::rows({}));
    press(list.window.but_Read);
    CHECK(list.world.boxes.shown == std::vector{ShownBox{List::noRowText, Icon::information, ""}});
    CHECK(list.window.isLoaded());
    CHECK(list.window.spr_1ran.RowCount() == 0);
    CHECK_FALSE(list.window.but_Act(0).Enabled);
    CHECK(list.count("beep") == 0);
}

TEST_CASE_TEMPLATE("a row of NULLs is shown as zeros and empty texts", List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.answer(List::found, List::nullRow());
    list.opened();
    REQUIRE(list.window.spr_1ran.RowCount() == 1);
    for (std::int16_t column = 1; column <= list.window.spr_1ran.ColumnCount(); ++column) {
        CAPTURE(column);
        CHECK(list.window.spr_1ran.text(1, column) == (column <= List::numberColumn ? "0" : ""));
    }
}

TEST_CASE_TEMPLATE("the boxes are read into the filter and then lose their blanks on the right", List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.opened();
    list.window.txt_SiboriName.Text = " 佐藤 ";
    list.window.txt_SiboriKana.Text = "ｻﾄｳ  ";
    list.window.in_SiboriID.Value = Null{};
    press(list.window.but_Read);
    CHECK(list.statements().back().find("cName LIKE '% 佐藤 %'") != std::string::npos);
    CHECK(list.statements().back().find("cNameKana LIKE '%ｻﾄｳ  %'") != std::string::npos);
    CHECK(list.window.txt_SiboriName.Text.get() == " 佐藤");
    CHECK(list.window.txt_SiboriKana.Text.get() == "ｻﾄｳ");
    CHECK(list.window.in_SiboriID.Value.get() == Variant(std::int32_t{0}));
}

TEST_CASE_TEMPLATE("blanks on the right of a cell are removed, those on the left stay", List, BOTH_LISTS)
{
    ListFixture<List> list;
    FakeResult blanks = List::nullRow();
    for (Variant &value : blanks.rows[0]) value = " 1 ";
    list.answer(List::found, blanks);
    list.opened();
    CHECK(list.window.spr_1ran.text(1, List::numberColumn) == "1");
    CHECK(list.window.spr_1ran.text(1, List::numberColumn + 1) == " 1");
}

TEST_CASE_TEMPLATE("the list is drawn once, after the search", List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.opened();
    int drawn = 0;
    std::uint64_t revision = 0;
    list.window.spr_1ran.watch([&] {
        if (list.window.spr_1ran.ReDraw && list.window.spr_1ran.revision() != revision) ++drawn;
        if (list.window.spr_1ran.ReDraw) revision = list.window.spr_1ran.revision();
    });
    revision = list.window.spr_1ran.revision();
    press(list.window.but_Read);
    CHECK(drawn == 1);
}

TEST_CASE_TEMPLATE(
    "a search stops drawing, processes events, then queries, and draws again before it reports a failure", List,
    BOTH_LISTS)
{
    ListFixture<List> list;
    list.opened();
    list.answer(List::found, failure());
    list.window.txt_SiboriName.Text = "青木";
    int yields = 0;
    list.world.windows.onTime = [&] {
        ++yields;
        CHECK_FALSE(list.window.spr_1ran.ReDraw);
        CHECK(list.statements().size() == 2); // those of the opening
        CHECK(list.window.spr_1ran.RowCount() == static_cast<std::int32_t>(std::size(List::numbers)));
        list.window.txt_SiboriName.Text = "井上"; // too late for this search
    };
    list.world.boxes.onShow = [&](const ShownBox &) { CHECK(list.window.spr_1ran.ReDraw); };
    press(list.window.but_Read);
    CHECK(yields == 1);
    CHECK(list.world.boxes.shown.size() == 1);
    REQUIRE(list.statements().size() == 3);
    CHECK(list.statements().back().find("cName LIKE '%青木%'") != std::string::npos);
}

TEST_CASE_TEMPLATE("a filter of 4,000 characters is inserted completely", List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.opened();
    std::string name;
    for (int index = 0; index < 4000; ++index) name += "髙";
    list.window.txt_SiboriName.Text = name;
    press(list.window.but_Read);
    CHECK(list.statements().back().find("cName LIKE '%" + name + "%'") != std::string::npos);
    CHECK(list.window.spr_1ran.RowCount() == static_cast<std::int32_t>(std::size(List::numbers)));
}
