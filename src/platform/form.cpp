#include "platform/form.h"

#include "platform/key_codes.h"
#include "runtime/runtime_error.h"

#include <algorithm>

namespace inin {

namespace {
/// Sets a flag for the duration of a scope.
class ScopedFlag {
public:
    explicit ScopedFlag(bool &flag) : m_flag(flag) { m_flag = true; }
    ScopedFlag(const ScopedFlag &) = delete;
    ScopedFlag &operator=(const ScopedFlag &) = delete;
    ~ScopedFlag() { m_flag = false; }

private:
    bool &m_flag;
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
        // The next show loads the form again.
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
        const ScopedFlag unloading(m_unloading);
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

/// Finds the first control that a key presses, whichever control has the focus.
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

/// Presses the control that the key belongs to; false when there is none.
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
    // Form_KeyDown may have changed the key code, disabled the buttons or closed the form.
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
