#include "platform/form.h"

#include "runtime/runtime_error.h"

#include <algorithm>

namespace inin {

namespace {
constexpr std::int16_t kReturn = 13;
constexpr std::int16_t kEscape = 27;
} // namespace

void Form::setMousePointer(std::int16_t kind)
{
    m_pointer = kind;
    if (onMousePointer) onMousePointer(kind);
}

Control *Form::find(std::string_view name) const
{
    const auto found =
        std::ranges::find_if(m_controls, [&](const Control *control) { return control->name() == name; });
    return found == m_controls.end() ? nullptr : *found;
}

void Form::load()
{
    if (m_loaded) return;
    m_loaded = true;
    Form_Load();
}

bool Form::unload(bool byControlBox)
{
    if (!m_loaded) return true;
    std::int16_t Cancel = 0;
    atEventEdge([&] {
        Form_QueryUnload(Cancel, byControlBox);
        if (Cancel == 0) Form_Unload(Cancel);
    });
    if (Cancel != 0) return false;
    m_loaded = false;
    notify();
    return true;
}

void Form::Form_QueryUnload(std::int16_t & /*Cancel*/, bool /*byControlBox*/) {}
void Form::Form_Unload(std::int16_t & /*Cancel*/) {}
void Form::Form_KeyDown(std::int16_t & /*KeyCode*/) {}
void Form::Form_KeyPress(std::int16_t & /*KeyAscii*/) {}

namespace {

/// Finds what a key of the whole window presses: a menu entry by its short-cut, else the cancel or default button.
class KeyTarget : public ControlVisitor {
public:
    explicit KeyTarget(std::int16_t code) : m_code(code) {}
    std::function<void()> click;
    std::function<void()> buttonClick;

    void visit(MenuEntry &entry) override
    {
        if (entry.Shortcut != 0 && entry.Shortcut == m_code && entry.isReachable()) click = entry.onClick;
    }
    void visit(Button &button) override
    {
        if (!button.isReachable()) return;
        if ((m_code == kEscape && button.Cancel) || (m_code == kReturn && button.Default)) buttonClick = button.onClick;
    }
    void visit(OptionButton &) override {}
    void visit(CheckBox &) override {}
    void visit(NumberBox &) override {}
    void visit(DateBox &) override {}
    void visit(TextBox &) override {}
    void visit(ListBox &) override {}
    void visit(Label &) override {}
    void visit(Frame &) override {}
    void visit(ImageBox &) override {}

private:
    std::int16_t m_code;
};

} // namespace

void Form::key(Control *control, std::int16_t KeyCode)
{
    KeyTarget target(KeyCode);
    for (Control *candidate : m_controls) candidate->accept(target);
    if (target.click) return target.click();
    Form_KeyDown(KeyCode);
    if (KeyCode == 0) return;
    if (target.buttonClick) return target.buttonClick();
    Form_KeyPress(KeyCode);
    if (KeyCode == 0 || control == nullptr) return;
    if (control->onKeyPress) control->onKeyPress(KeyCode);
}

void Form::add(Control &control, Control *container)
{
    control.Container = container;
    m_controls.push_back(&control);
}

} // namespace inin
