#include "shell/error_box.h"

#include "support/fake_platform.h"

#include <doctest/doctest.h>

using namespace inin;

TEST_CASE("the central box shows the error, the form and the procedure, each line ended by CR")
{
    FakeWorld world;
    vErrorBox(world.app, 13, "型が一致しません。", "メンテナンス処理", "frmPrintInin", "optTgtDate_Click");

    REQUIRE(world.boxes.shown.size() == 1);
    CHECK(world.boxes.shown[0].text == "下記の情報をオルバーネ株式会社までお伝えください。\r"
                                       "ｴﾗｰNo.=13（型が一致しません。）\r"
                                       "ﾌｫｰﾑ名=frmPrintInin\r"
                                       "関数名=optTgtDate_Click\r");
    CHECK(world.boxes.shown[0].title == "エラーが発生しました。メンテナンス処理");
    CHECK(world.boxes.shown[0].icon == Icon::critical);
}

TEST_CASE("the central box shows number and text of a run-time error")
{
    FakeWorld world;
    vErrorBox(world.app, RuntimeError(-2147217900, "構文エラー"), kErrorBoxTask, "frmPrintInin", "iGetKanjaDataMonth");

    REQUIRE(world.boxes.shown.size() == 1);
    CHECK(world.boxes.shown[0].text == "下記の情報をオルバーネ株式会社までお伝えください。\r"
                                       "ｴﾗｰNo.=-2147217900（構文エラー）\r"
                                       "ﾌｫｰﾑ名=frmPrintInin\r"
                                       "関数名=iGetKanjaDataMonth\r");
    CHECK(world.boxes.shown[0].title == "エラーが発生しました。メンテナンス処理");
}

TEST_CASE("a cleared error shows the number 0 and empty brackets")
{
    FakeWorld world;
    vErrorBox(world.app, 0, "", "メンテナンス処理", "frmPrintInin", "x");
    REQUIRE(world.boxes.shown.size() == 1);
    CHECK(world.boxes.shown[0].text == "下記の情報をオルバーネ株式会社までお伝えください。\r"
                                       "ｴﾗｰNo.=0（）\r"
                                       "ﾌｫｰﾑ名=frmPrintInin\r"
                                       "関数名=x\r");
}

TEST_CASE("an error text keeps its line ends")
{
    FakeWorld world;
    vErrorBox(world.app, 5, "一行目\r\n二行目", "t", "f", "p");
    REQUIRE(world.boxes.shown.size() == 1);
    CHECK(world.boxes.shown[0].text == "下記の情報をオルバーネ株式会社までお伝えください。\r"
                                       "ｴﾗｰNo.=5（一行目\r\n二行目）\r"
                                       "ﾌｫｰﾑ名=f\r"
                                       "関数名=p\r");
}

TEST_CASE("the numbered pattern puts the number in brackets before the text")
{
    CHECK(numberedText(RuntimeError(-2147467259, "接続できません。")) == "(-2147467259)接続できません。");
}

TEST_CASE("the line pattern puts the number on a line before the text")
{
    CHECK(numberLineText(RuntimeError(3704, "閉じています。")) == "3704\r\n閉じています。");
}

TEST_CASE("a heading box is critical, has no title of its own and puts CR LF after the heading")
{
    FakeWorld world;
    headingBox(world.app, "iGetKanjaData でエラー", "接続文字列取得できません。");
    REQUIRE(world.boxes.shown.size() == 1);
    CHECK(world.boxes.shown[0] == ShownBox{"iGetKanjaData でエラー\r\n接続文字列取得できません。", Icon::critical, ""});
}
