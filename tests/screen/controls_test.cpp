#include "screen/grid.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

using namespace inin;

TEST_CASE("assigning an attribute notifies its watchers only when the value changes")
{
    Label label("lbl_SelKanja");
    int notifications = 0;
    label.watch([&] { ++notifications; });

    label.Caption = "山田";
    label.Caption = "山田";

    CHECK(notifications == 1);
    CHECK(label.Caption.get() == "山田");
}

TEST_CASE("an attribute assigned from another control's attribute takes its value")
{
    DateBox from("imSetDateFrom"), to("imSyomei");
    from.Value = Date(45000);

    to.Value = from.Value;

    CHECK(to.Value.get() == Variant(Date(45000)));
}

TEST_CASE("a watcher may add another watcher while it runs")
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

TEST_CASE("a watcher runs with the new value before the event")
{
    CheckBox check("chkChushi");
    std::vector<std::string> order;
    check.watch([&] { order.push_back("watch " + std::to_string(check.Value)); });
    check.onClick = [&] { order.push_back("click " + std::to_string(check.Value)); };

    check.Value = std::int16_t{1};

    CHECK(order == std::vector<std::string>{"watch 1", "click 1"});
}

TEST_CASE("the names of the members of a control array contain the index")
{
    OptionGroup options("optTgtDate", 3);
    ButtonArray buttons("btnPrint", {0, 1, 6});
    CHECK(options(2).name() == "optTgtDate(2)");
    CHECK(buttons(6).name() == "btnPrint(6)");
}

TEST_CASE("a check box fires its click only when the value changes")
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

TEST_CASE("a click on a button of an array passes its index")
{
    ButtonArray buttons("btnPrint", {0, 1, 6});
    std::vector<std::int16_t> clicks;
    buttons.onClick = [&](std::int16_t Index) { clicks.push_back(Index); };

    buttons(6).onClick();
    buttons(0).onClick();

    CHECK(clicks == std::vector<std::int16_t>{6, 0});
}

TEST_CASE("a click on a button of an array without a handler does nothing")
{
    ButtonArray buttons("btnPrint", {0});
    CHECK_NOTHROW(buttons(0).onClick());
}

TEST_CASE("a date box starts empty and fires its change for each new value, including Null")
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

TEST_CASE("a number box accepts any assigned number, whatever its limits")
{
    NumberBox box("inPeriodFrom");
    box.Min = 1;
    box.Max = 31;
    CHECK(box.Value.get().isNull());

    box.Value = std::int32_t{99};

    CHECK(box.Value.get() == Variant(std::int32_t{99}));
}

TEST_CASE("a control in a disabled or hidden frame is unreachable and keeps its own attributes")
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

TEST_CASE("a visitor distinguishes the kinds of controls")
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
