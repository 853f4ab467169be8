// The JSON commands of the script adapter, played on a form with a control of every kind.

#include "adapters/script/command_player.h"
#include "fuzz/fuzz_input.h"
#include "screen/grid.h"

#include <initializer_list>
#include <sstream>
#include <string>

using namespace inin;
using namespace inin::script;
using inin::fuzz::require;

namespace {

constexpr std::int32_t kMin = -5, kMax = 100;

class AnyForm : public Form {
public:
    AnyForm() : Form("frmAny")
    {
        number.Min = kMin;
        number.Max = kMax;
        list.AddItem("a", 1);
        list.AddItem("b", 2);
        grid.setRowCount(3);
        off.Enabled = false;
        for (Control *control :
             std::initializer_list<Control *>{&options(0), &options(1), &check, &button, &off, &number, &date, &text,
                                              &list, &label, &frame, &menu, &image, &grid})
            add(*control);
        off.onClick = [] { require(false, "a disabled button is not clicked"); };
    }

    OptionGroup options{"o", 2};
    CheckBox check{"c"};
    Button button{"b"};
    Button off{"f"};
    NumberBox number{"n"};
    DateBox date{"d"};
    TextBox text{"t"};
    ListBox list{"l"};
    Label label{"a"};
    Frame frame{"r"};
    MenuEntry menu{"m"};
    ImageBox image{"i"};
    Grid grid{"g", {{"x"}, {"y", Grid::CellKind::number}}};
};

void play(AnyForm &form, const ScriptCommand &command)
{
    const bool isRow = command.kind == CommandKind::row;
    Control *control = isRow ? &form.grid : form.find(command.control);
    if (control == nullptr || command.kind == CommandKind::close || command.kind == CommandKind::state) return;
    if (command.force && control == &form.off) return;
    const Variant before = form.number.Value;
    try {
        const PlayResult result = playOnControl(form, *control, command, Regional{});
        require(control->isReachable() || command.force || result == PlayResult::refused,
                "a command on a disabled control is refused");
    } catch (const RuntimeError &) {
        require(command.force, "only a forced command raises an error of the program");
    }
    const Variant after = form.number.Value;
    const auto *number = after.getIf<std::int32_t>();
    const bool isWithin = number == nullptr || (*number >= kMin && *number <= kMax);
    require(isWithin || command.force || after == before, "a number beyond the limits is refused");
    require(form.check.Value == 0 || form.check.Value == 1, "a check box is ticked or not");
}

void playAll(std::string_view input)
{
    std::istringstream in{std::string(input)};
    CommandReader reader(in);
    AnyForm form;
    try {
        while (const auto command = reader.next()) play(form, *command);
    } catch (const BadScriptCommand &bad) {
        require(std::string_view(bad.what()).starts_with("line "), "a bad command names its line");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    playAll({static_cast<const char *>(static_cast<const void *>(data)), size});
    return 0;
}
