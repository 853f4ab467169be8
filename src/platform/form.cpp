#include "platform/form.h"

#include "platform/key_codes.h"
#include "runtime/runtime_error.h"

#include <algorithm>

namespace inin {

namespace {
/// Holds a form's mark while its unload runs, also when that ends by an error.
class Unloading {
public:
    explicit Unloading(bool &mark) : m_mark(mark) { m_mark = true; }
    Unloading(const Unloading &) = delete;
    Unloading &operator=(const Unloading &) = delete;
    ~Unloading() { m_mark = false; }

private:
    bool &m_mark;
};
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
    try {
        Form_Load();
    } catch (const RuntimeError &) {
        // A load that failed leaves nothing to show: the next show loads anew.
        m_loaded = false;
        throw;
    }
}

bool Form::unload(bool byControlBox)
{
    if (!m_loaded) return true;
    if (m_unloading) return false;
    std::int16_t Cancel = 0;
    {
        const Unloading mark(m_unloading);
        atEventEdge([&] {
            Form_QueryUnload(Cancel, byControlBox);
            if (Cancel == 0) Form_Unload(Cancel);
        });
    }
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

/// Looks through the controls for what a key of the whole window presses; the first that fits counts.
class KeyTarget : public ControlVisitor {
public:
    explicit KeyTarget(std::int16_t code) : m_code(code) {}
    std::function<void()> click;

    void visit(MenuEntry & /*entry*/) override {}
    void visit(Button & /*button*/) override {}
    void visit(OptionButton &) override {}
    void visit(CheckBox &) override {}
    void visit(NumberBox &) override {}
    void visit(DateBox &) override {}
    void visit(TextBox &) override {}
    void visit(ListBox &) override {}
    void visit(Label &) override {}
    void visit(Frame &) override {}
    void visit(ImageBox &) override {}
    void visit(Grid &) override {}

protected:
    void take(const Control &control, bool fits, const std::function<void()> &onClick)
    {
        if (!click && fits && control.isReachable()) click = onClick;
    }
    [[nodiscard]] std::int16_t code() const { return m_code; }

private:
    std::int16_t m_code;
};

class ShortcutTarget : public KeyTarget {
public:
    using KeyTarget::KeyTarget;
    using KeyTarget::visit;
    void visit(MenuEntry &entry) override
    {
        take(entry, entry.Shortcut != 0 && entry.Shortcut == code(), entry.onClick);
    }
};

class ButtonTarget : public KeyTarget {
public:
    using KeyTarget::KeyTarget;
    using KeyTarget::visit;
    void visit(Button &button) override
    {
        take(button, (code() == kEscapeKey && button.Cancel) || (code() == kReturnKey && button.Default),
             button.onClick);
    }
};

/// Presses what the key stands for; false when it stands for nothing.
template <class Target> bool press(const std::vector<Control *> &controls, std::int16_t code)
{
    Target target(code);
    for (Control *control : controls) control->accept(target);
    if (target.click) target.click();
    return target.click != nullptr;
}

} // namespace

bool Form::key(Control *control, std::int16_t KeyCode)
{
    const bool wasLoaded = m_loaded;
    const auto isOver = [&] { return KeyCode == 0 || (wasLoaded && !m_loaded); };
    if (press<ShortcutTarget>(m_controls, KeyCode)) return false;
    Form_KeyDown(KeyCode);
    // What the key-down changed, the code too, counts for the buttons; a form that it closed takes no more of the key.
    if (isOver() || press<ButtonTarget>(m_controls, KeyCode)) return false;
    Form_KeyPress(KeyCode);
    if (isOver()) return false;
    if (control == nullptr || !control->onKeyPress) return true;
    control->onKeyPress(KeyCode);
    return false;
}

void Form::add(Control &control, Control *container)
{
    control.Container = container;
    m_controls.push_back(&control);
}

} // namespace inin
