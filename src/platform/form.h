#pragma once

#include "platform/controls.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace inin {

inline constexpr std::int16_t kPointerDefault = 0;
inline constexpr std::int16_t kPointerHourglass = 11;

/// A window as data: its controls, its caption and its lifetime events. The Windows port shows it, but it also runs
/// without being shown. Form_Load runs before the form is first shown, Form_Unload however it is closed.
class Form : public Observable {
public:
    explicit Form(std::string name) : m_name(std::move(name)) {}

    [[nodiscard]] const std::string &name() const { return m_name; }
    Attribute<std::string> Caption{*this, {}};
    Attribute<std::int32_t> Width{*this, 0};  ///< of the client area, in twips
    Attribute<std::int32_t> Height{*this, 0}; ///< of the client area, in twips

    /// Calls onMousePointer, even if the pointer does not change.
    void setMousePointer(std::int16_t kind);
    [[nodiscard]] std::int16_t MousePointer() const { return m_pointer; }
    std::function<void(std::int16_t kind)> onMousePointer;

    /// The controls in the order in which they were added, a container before its contents.
    [[nodiscard]] const std::vector<Control *> &controls() const { return m_controls; }
    /// The control of that name, nullptr when there is none.
    [[nodiscard]] Control *find(std::string_view name) const;

    /// Runs Form_Load unless the form is loaded; a RuntimeError leaves it unloaded. If Form_Load unloads the form, it
    /// still runs to its end.
    void load();
    [[nodiscard]] bool isLoaded() const { return m_loaded; }
    /// Runs Form_QueryUnload and then Form_Unload; false when one of them cancels. An error that they do not trap
    /// becomes an UnhandledError. An unload inside the form's own unload is refused.
    bool unload(bool byControlBox = false);
    /// Dispatches a key press: menu shortcuts, Form_KeyDown, cancel and default button, Form_KeyPress, then the
    /// control, which may be nullptr. True when the key was not handled, so that the window system acts on it.
    bool key(Control *control, std::int16_t KeyCode);

    virtual void Form_Activate() {}
    virtual void Form_Deactivate() {}
    virtual void Form_Resize() {}

    /// The form's named fields, for scripts and tests.
    [[nodiscard]] virtual std::vector<std::pair<std::string, Variant>> fields() const { return {}; }
    /// The form's rows of text, for scripts and tests.
    [[nodiscard]] virtual std::vector<std::vector<std::string>> rows() const { return {}; }

protected:
    virtual void Form_Load() {}
    /// A non-zero `Cancel` keeps the form open.
    virtual void Form_QueryUnload(std::int16_t &Cancel, bool byControlBox);
    virtual void Form_Unload(std::int16_t &Cancel);
    /// Setting the code to 0 discards the key.
    virtual void Form_KeyDown(std::int16_t &KeyCode);
    virtual void Form_KeyPress(std::int16_t &KeyAscii);

    /// Registers a control and the frame that contains it, if any.
    void add(Control &control, Control *container = nullptr);

private:
    std::string m_name;
    std::vector<Control *> m_controls;
    std::int16_t m_pointer = kPointerDefault;
    bool m_loaded = false;
    bool m_unloading = false;
};

} // namespace inin
