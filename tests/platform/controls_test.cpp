#include "platform/grid.h"

#include "runtime/runtime_error.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

using namespace inin;

namespace {

/// Runs the body and gives back the number of its RuntimeError, 0 for none.
template <class Body> std::int32_t errorOf(Body &&body)
try {
    body();
    return 0;
} catch (const RuntimeError &error) {
    return error.number();
}

struct OptionFixture {
    OptionGroup options{"optTgtDate", 3};
    std::vector<std::int16_t> clicks;
    OptionFixture()
    {
        options.onClick = [this](std::int16_t Index) { clicks.push_back(Index); };
    }
    std::vector<bool> values() const
    {
        return {options(0).Value.get(), options(1).Value.get(), options(2).Value.get()};
    }
};

struct ListFixture {
    ListBox list{"cmbHoken"};
    int clicks = 0;
    ListFixture()
    {
        list.AddItem("－ 指定なし －", -1);
        list.AddItem("国保", 7);
        list.onClick = [this] { ++clicks; };
    }
};

} // namespace

TEST_CASE("assigning an attribute another value tells its watchers, the same value tells nobody")
{
    Label label("lbl_SelKanja");
    int told = 0;
    label.watch([&] { ++told; });

    label.Caption = "山田";
    label.Caption = "山田";

    CHECK(told == 1);
    CHECK(label.Caption.get() == "山田");
}

TEST_CASE("an attribute assigned from another control's attribute takes its value")
{
    DateBox from("imSetDateFrom"), to("imSyomei");
    from.Value = Date(45000);

    to.Value = from.Value;

    CHECK(to.Value.get() == Variant(Date(45000)));
}

TEST_CASE("a watcher may add another watcher while it is told")
{
    Label label("Label1");
    int first = 0, second = 0;
    label.watch([&] {
        if (++first == 1) label.watch([&] { ++second; });
    });

    label.Caption = "a";
    label.Caption = "b";

    CHECK(first == 2);
    CHECK(second == 2);
}

TEST_CASE("a watcher sees the new value before the event runs")
{
    CheckBox check("chkChushi");
    std::vector<std::string> order;
    check.watch([&] { order.push_back("watch " + std::to_string(check.Value)); });
    check.onClick = [&] { order.push_back("click " + std::to_string(check.Value)); };

    check.Value = std::int16_t{1};

    CHECK(order == std::vector<std::string>{"watch 1", "click 1"});
}

TEST_CASE("a new option group has no mark")
{
    OptionFixture fixture;
    CHECK(fixture.options.count() == 3);
    CHECK(fixture.options.marked() == -1);
    CHECK(fixture.values() == std::vector<bool>{false, false, false});
}

TEST_CASE("the members of an array carry their index in the name")
{
    OptionFixture fixture;
    ButtonArray buttons("btnPrint", {0, 1, 6});
    CHECK(fixture.options(2).name() == "optTgtDate(2)");
    CHECK(buttons(6).name() == "btnPrint(6)");
}

TEST_CASE("marking an option unmarks the others and fires its click once")
{
    OptionFixture fixture;
    fixture.options(0).Value = true;

    fixture.options(2).Value = true;

    CHECK(fixture.values() == std::vector<bool>{false, false, true});
    CHECK(fixture.options.marked() == 2);
    CHECK(fixture.clicks == std::vector<std::int16_t>{0, 2});
}

TEST_CASE("marking the marked option fires nothing")
{
    OptionFixture fixture;
    fixture.options(1).Value = true;

    fixture.options(1).Value = true;

    CHECK(fixture.clicks == std::vector<std::int16_t>{1});
}

TEST_CASE("unmarking an option fires nothing and leaves the group without a mark")
{
    OptionFixture fixture;
    fixture.options(1).Value = true;

    fixture.options(1).Value = false;

    CHECK(fixture.clicks == std::vector<std::int16_t>{1});
    CHECK(fixture.options.marked() == -1);
}

TEST_CASE("the other options are unmarked by the time the click runs")
{
    OptionFixture fixture;
    fixture.options(0).Value = true;
    std::int16_t seen = -1;
    bool firstStillMarked = true;
    fixture.options.onClick = [&](std::int16_t) {
        seen = fixture.options.marked();
        firstStillMarked = fixture.options(0).Value;
    };

    fixture.options(2).Value = true;

    CHECK(seen == 2);
    CHECK_FALSE(firstStillMarked);
}

TEST_CASE("a click rule may mark another option of its own group")
{
    OptionFixture fixture;
    fixture.options.onClick = [&](std::int16_t Index) {
        fixture.clicks.push_back(Index);
        if (Index == 2) fixture.options(0).Value = true;
    };

    fixture.options(2).Value = true;

    CHECK(fixture.clicks == std::vector<std::int16_t>{2, 0});
    CHECK(fixture.values() == std::vector<bool>{true, false, false});
}

TEST_CASE("option groups do not touch each other's marks")
{
    OptionGroup optObject("optObject", 3), optTrust("optTrust", 2);
    optObject(1).Value = true;

    optTrust(0).Value = true;

    CHECK(optObject.marked() == 1);
    CHECK(optTrust.marked() == 0);
}

TEST_CASE("an option fires its click by assignment also while it is disabled or hidden")
{
    OptionFixture fixture;
    fixture.options(2).Visible = false;
    fixture.options(2).Enabled = false;

    fixture.options(2).Value = true;

    CHECK(fixture.clicks == std::vector<std::int16_t>{2});
}

TEST_CASE("a check box fires its click at each change and at no repetition")
{
    CheckBox check("chkChushi");
    int clicks = 0;
    check.onClick = [&] { ++clicks; };

    check.Value = std::int16_t{1};
    check.Value = std::int16_t{1};
    CHECK(clicks == 1);

    check.Value = std::int16_t{0};
    CHECK(clicks == 2);
}

TEST_CASE("a button of an array tells the array its index")
{
    ButtonArray buttons("btnPrint", {0, 1, 6});
    std::vector<std::int16_t> clicks;
    buttons.onClick = [&](std::int16_t Index) { clicks.push_back(Index); };

    buttons(6).onClick();
    buttons(0).onClick();

    CHECK(clicks == std::vector<std::int16_t>{6, 0});
}

TEST_CASE("a button of an array without a rule does nothing")
{
    ButtonArray buttons("btnPrint", {0});
    CHECK_NOTHROW(buttons(0).onClick());
}

TEST_CASE("a date box starts empty and fires its change at each new value, Null too")
{
    DateBox box("imD_Out");
    int changes = 0;
    box.onChange = [&] { ++changes; };
    CHECK(box.Value.get().isNull());

    box.Value = Date(45000);
    box.Value = Date(45000);
    CHECK(changes == 1);

    box.Value = Null{};
    box.Value = Null{};
    CHECK(changes == 2);
}

TEST_CASE("a number box takes any number by assignment, whatever its limits")
{
    NumberBox box("inPeriodFrom");
    box.Min = 1;
    box.Max = 31;
    CHECK(box.Value.get().isNull());

    box.Value = std::int32_t{99};

    CHECK(box.Value.get() == Variant(std::int32_t{99}));
}

TEST_CASE("choosing another list entry fires the click, choosing the same fires nothing")
{
    ListFixture fixture;
    fixture.list.ListIndex = std::int16_t{1};
    fixture.list.ListIndex = std::int16_t{1};
    CHECK(fixture.clicks == 1);

    fixture.list.ListIndex = std::int16_t{-1};
    CHECK(fixture.clicks == 2);
}

TEST_CASE("a list index that the list lacks is error 380 and leaves the choice as it was")
{
    struct Row {
        std::int16_t index;
    };
    for (const Row row : {Row{2}, Row{-2}, Row{32767}}) {
        CAPTURE(row.index);
        ListFixture fixture;
        fixture.list.ListIndex = std::int16_t{1};
        int told = 0;
        fixture.list.watch([&] { ++told; });

        CHECK(errorOf([&] { fixture.list.ListIndex = row.index; }) == 380);

        CHECK(fixture.list.ListIndex == 1);
        CHECK(fixture.clicks == 1);
        CHECK(told == 0);
    }
}

TEST_CASE("adding entries chooses none and fires nothing")
{
    ListFixture fixture;
    fixture.list.AddItem("社保", 8);
    CHECK(fixture.list.ListIndex == -1);
    CHECK(fixture.list.ListCount() == 3);
    CHECK(fixture.clicks == 0);
}

TEST_CASE("each added entry is told to the watchers")
{
    ListFixture fixture;
    std::vector<std::int16_t> counts;
    fixture.list.watch([&] { counts.push_back(fixture.list.ListCount()); });
    fixture.list.AddItem("社保", 8);
    fixture.list.AddItem("後期", 9);
    CHECK(counts == std::vector<std::int16_t>{3, 4});
}

TEST_CASE("each list entry keeps its text and its number")
{
    ListFixture fixture;
    CHECK(fixture.list.items().at(1).text == "国保");
    CHECK(fixture.list.ItemData(0) == -1);
    CHECK(fixture.list.ItemData(1) == 7);
}

TEST_CASE("the number of an entry that the list lacks is error 380")
{
    ListFixture fixture;
    CHECK(errorOf([&] { static_cast<void>(fixture.list.ItemData(2)); }) == 380);
    CHECK(errorOf([&] { static_cast<void>(fixture.list.ItemData(-1)); }) == 380);
}

TEST_CASE("clearing a list drops entries and choice and fires nothing")
{
    ListFixture fixture;
    fixture.list.ListIndex = std::int16_t{1};
    int told = 0;
    fixture.list.watch([&] { ++told; });

    fixture.list.Clear();

    CHECK(fixture.list.ListCount() == 0);
    CHECK(fixture.list.ListIndex == -1);
    CHECK(fixture.clicks == 1);
    CHECK(told == 1);
}

TEST_CASE("after a clear the first choice fires again")
{
    ListFixture fixture;
    fixture.list.ListIndex = std::int16_t{0};
    fixture.list.Clear();
    fixture.list.AddItem("－ 指定なし －", -1);

    fixture.list.ListIndex = std::int16_t{0};

    CHECK(fixture.clicks == 2);
}

TEST_CASE("a list holds 32767 entries, one more is error 6")
{
    ListBox list("cbSejyutsu");
    for (int i = 0; i < 32767; ++i) list.AddItem("x", i);
    CHECK(list.ListCount() == 32767);
    CHECK(errorOf([&] { list.AddItem("x", 0); }) == 6);
    CHECK(list.ListCount() == 32767);
}

TEST_CASE("a control in a disabled or hidden frame is out of reach and keeps its own attributes")
{
    Frame outer("frmObject"), inner("fraJisseki(1)");
    Button button("btn_StaffSelect");
    inner.Container = &outer;
    button.Container = &inner;
    CHECK(button.isReachable());

    outer.Enabled = false;
    CHECK_FALSE(button.isReachable());
    CHECK(button.Enabled);

    outer.Enabled = true;
    inner.Visible = false;
    CHECK_FALSE(button.isReachable());

    inner.Visible = true;
    button.Enabled = false;
    CHECK_FALSE(button.isReachable());
}

TEST_CASE("a control says its kind to a visitor")
{
    struct Kinds : ControlVisitor {
        std::string seen;
        void visit(OptionButton &) override { seen += "option "; }
        void visit(CheckBox &) override { seen += "check "; }
        void visit(Button &) override { seen += "button "; }
        void visit(NumberBox &) override { seen += "number "; }
        void visit(DateBox &) override { seen += "date "; }
        void visit(TextBox &) override { seen += "text "; }
        void visit(ListBox &) override { seen += "list "; }
        void visit(Label &) override { seen += "label "; }
        void visit(Frame &) override { seen += "frame "; }
        void visit(MenuEntry &) override { seen += "menu "; }
        void visit(ImageBox &) override { seen += "image "; }
        void visit(Grid &) override { seen += "grid "; }
    } kinds;
    OptionGroup options("o", 1);
    CheckBox check("c");
    Button button("b");
    NumberBox number("n");
    DateBox date("d");
    TextBox text("t");
    ListBox list("l");
    Label label("a");
    Frame frame("f");
    MenuEntry menu("m");
    ImageBox image("i");
    Grid grid("g", {});

    for (Control *control : std::initializer_list<Control *>{&options(0), &check, &button, &number, &date, &text, &list,
                                                             &label, &frame, &menu, &image, &grid})
        control->accept(kinds);

    CHECK(kinds.seen == "option check button number date text list label frame menu image grid ");
}
