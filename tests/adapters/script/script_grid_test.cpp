// A form with a grid, played without a window.

#include "adapters/script/state_writer.h"
#include "screen/grid.h"
#include "script_stage.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::script;

namespace {

using Log = std::vector<std::string>;

struct GridForm : Form {
    GridForm() : Form("frmList")
    {
        Caption = "利用者マスター検索";
        add(box);
        add(grid, &box);
        grid.setRowCount(2);
        grid.setNumber(1, 1, 21);
        grid.setText(1, 2, "青木");
        grid.setNumber(2, 1, 22);
        grid.onDblClick = [this](std::int32_t Row) { log.push_back("double " + std::to_string(Row)); };
    }
    Frame box{"fraBox"};
    Grid grid{"spr_1ran", {{"ID No.", Grid::CellKind::number, 8}, {"利用者氏名", Grid::CellKind::text, 0}}};
    Log log;
};

const Log kRefused = {R"({"event":"refused","control":"spr_1ran"})"};

} // namespace

TEST_CASE("a row command makes the row the active one, and double-clicks it on request")
{
    GridForm form;
    CHECK(playOn(form, R"({"row":2})").empty());
    CHECK(form.grid.ActiveRow == 2);
    CHECK(form.log.empty());

    GridForm other;
    CHECK(playOn(other, R"({"row":1,"double":true})").empty());
    CHECK(other.grid.ActiveRow == 1);
    CHECK(other.log == Log{"double 1"});
}

TEST_CASE("a double click on the header activates no row")
{
    GridForm form;
    CHECK(playOn(form, R"({"row":0,"double":true})").empty());
    CHECK(form.grid.ActiveRow == 0);
    CHECK(form.log == Log{"double 0"});
}

TEST_CASE("a row outside the grid and any row of an unreachable grid are refused")
{
    for (const char *command : {R"({"row":3})", R"({"row":3,"double":true})", R"({"row":-1})", R"({"row":0})"}) {
        CAPTURE(command);
        GridForm form;
        CHECK(playOn(form, command) == kRefused);
        CHECK(form.log.empty());
    }
    GridForm form;
    form.box.Enabled = false;
    CHECK(playOn(form, R"({"row":1})") == kRefused);
    CHECK(form.grid.ActiveRow == 0);
}

TEST_CASE("a forced row acts on the grid like the program's own code")
{
    GridForm form;
    form.box.Enabled = false;
    CHECK(playOn(form, R"({"row":1,"double":true,"force":true})").empty());
    CHECK(form.grid.ActiveRow == 1);
    CHECK(form.log == Log{"double 1"});
}

TEST_CASE("a clicked row gives its grid the focus")
{
    GridForm form;
    ScriptStage stage(R"({"row":1})");
    stage.windows().show(form, Modality::modal);
    CHECK(stage.windows().activeControl(form) == &form.grid);
}

TEST_CASE("the state of a form with a grid contains its title, its columns and its cells")
{
    GridForm form;
    form.grid.ActiveRow = 2;
    const Json state = stateEvent(form, Regional{});
    CHECK(state["Caption"] == "利用者マスター検索");
    CHECK(state["grid"].dump() == R"([[21,"青木"],[22,""]])");
    CHECK(state["controls"]["spr_1ran"].dump() ==
          R"({"ActiveRow":2,"RowCount":2,"columns":[["ID No.",8],["利用者氏名",0]],"Enabled":true,"Visible":true})");
}

TEST_CASE("the state of a check box contains its caption if it has one")
{
    StageForm form;
    form.chk.Caption = "施術終了した利用者も表示";
    CHECK(stateEvent(form, Regional{})["controls"]["chk"].dump() ==
          R"({"Value":0,"Caption":"施術終了した利用者も表示","Enabled":true,"Visible":true})");
}
