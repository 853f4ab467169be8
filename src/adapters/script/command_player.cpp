#include "adapters/script/command_player.h"

#include "runtime/conversion.h"
#include "runtime/runtime_error.h"
#include "screen/grid.h"

namespace inin::script {

namespace {

/// Refuses every kind of control. Each derived class overrides the kinds that it supports.
class Act : public ControlVisitor {
public:
    explicit Act(const ScriptCommand &command) : m_command(command) {}
    [[nodiscard]] PlayResult on(Control &control)
    {
        control.accept(*this);
        return m_result;
    }

    void visit(OptionButton &control) override { wrongKind(control); }
    void visit(CheckBox &control) override { wrongKind(control); }
    void visit(Button &control) override { wrongKind(control); }
    void visit(NumberBox &control) override { wrongKind(control); }
    void visit(DateBox &control) override { wrongKind(control); }
    void visit(TextBox &control) override { wrongKind(control); }
    void visit(ListBox &control) override { wrongKind(control); }
    void visit(Label &control) override { wrongKind(control); }
    void visit(Frame &control) override { wrongKind(control); }
    void visit(MenuEntry &control) override { wrongKind(control); }
    void visit(ImageBox &control) override { wrongKind(control); }
    void visit(Grid &control) override { wrongKind(control); }

protected:
    [[nodiscard]] const ScriptCommand &command() const { return m_command; }
    void refuse() { m_result = PlayResult::refused; }
    [[noreturn]] void fail(const std::string &why) const { throw BadScriptCommand(m_command.line, why); }

private:
    [[noreturn]] void wrongKind(const Control &control) const
    {
        fail("\"" + control.name() + "\" does not take this command");
    }

    const ScriptCommand &m_command;
    PlayResult m_result = PlayResult::done;
};

class Click : public Act {
public:
    using Act::Act;
    using Act::visit;
    void visit(OptionButton &option) override { option.Value = true; }
    void visit(CheckBox &box) override { box.Value = box.Value == 0 ? std::int16_t{1} : std::int16_t{0}; }
    void visit(Button &button) override { press(button.onClick); }
    void visit(MenuEntry &entry) override { press(entry.onClick); }

private:
    static void press(const std::function<void()> &onClick)
    {
        if (onClick) onClick();
    }
};

class Set : public Act {
public:
    Set(const ScriptCommand &command, const Regional &regional) : Act(command), m_regional(regional) {}
    using Act::visit;
    void visit(DateBox &box) override { box.Value = to().is_null() ? Variant(Null{}) : Variant(date()); }
    void visit(NumberBox &box) override
    {
        if (to().is_null()) {
            box.Value = Null{};
            return;
        }
        const auto number = wholeNumber<std::int32_t>(to());
        if (!number) fail("a number box takes a whole number of 32 bits or null");
        const bool beyond = (box.Min && *number < *box.Min) || (box.Max && *number > *box.Max);
        if (beyond && !command().force) return refuse();
        box.Value = *number;
    }
    void visit(TextBox &box) override
    {
        if (!to().is_string()) fail("a text box takes a text");
        box.Text = to().get<std::string>();
    }
    void visit(CheckBox &box) override
    {
        if (to() != 0 && to() != 1 && !to().is_boolean()) fail("a check box takes 0, 1, true or false");
        const bool ticked = to().is_boolean() ? to().get<bool>() : to() == 1;
        box.Value = ticked ? std::int16_t{1} : std::int16_t{0};
    }
    void visit(OptionButton &option) override
    {
        // A user can only select an option; only the program can clear it.
        if (!to().is_boolean() || (to() == false && !command().force)) fail("an option takes true");
        option.Value = to().get<bool>();
    }

private:
    [[nodiscard]] const Json &to() const { return command().to; }
    [[nodiscard]] Date date() const
    try {
        if (!to().is_string()) fail("a date box takes a text or null");
        return toDate(Variant(to().get<std::string>()), m_regional);
    } catch (const RuntimeError &) {
        fail("\"" + to().get<std::string>() + "\" is no date");
    }
    const Regional &m_regional;
};

class Choose : public Act {
public:
    using Act::Act;
    using Act::visit;
    void visit(ListBox &list) override
    {
        const std::int16_t index = command().number;
        if ((index < 0 || index >= list.ListCount()) && !command().force) return refuse();
        if (command().force)
            list.ListIndex = index;
        else
            list.pick(index);
    }
};

/// Makes a row the active one, like a click, or double-clicks it; row 0 is the header.
class HitRow : public Act {
public:
    using Act::Act;
    using Act::visit;
    void visit(Grid &grid) override
    {
        const std::int32_t row = command().row;
        const bool isThere = row <= grid.RowCount() && (row > 0 || (row == 0 && command().doubleClick));
        if (!isThere && !command().force) return refuse();
        if (row != 0) grid.ActiveRow = row;
        if (command().doubleClick && grid.onDblClick) grid.onDblClick(row);
    }
};

} // namespace

PlayResult playOnControl(Form &form, Control &control, const ScriptCommand &command, const Regional &regional)
{
    if (!command.force && !control.isReachable()) return PlayResult::refused;
    switch (command.kind) {
    case CommandKind::click:
        return Click(command).on(control);
    case CommandKind::set:
        return Set(command, regional).on(control);
    case CommandKind::choose:
        return Choose(command).on(control);
    case CommandKind::key:
        form.key(&control, command.number);
        return PlayResult::done;
    case CommandKind::row:
        return HitRow(command).on(control);
    case CommandKind::close:
    case CommandKind::state:
        break;
    }
    throw BadScriptCommand(command.line, "the command names no control");
}

} // namespace inin::script
