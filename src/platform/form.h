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

/// A window as data: its controls, its caption and the events of its life. The Windows port shows it; it runs without.
/// Form_Load runs once, before the form is first seen; Form_Unload on every way out.
class Form : public Observable {
public:
    explicit Form(std::string name) : m_name(std::move(name)) {}

    [[nodiscard]] const std::string &name() const { return m_name; }
    Attribute<std::string> Caption{*this, {}};
    Attribute<std::int32_t> Width{*this, 0};  ///< client area, twips
    Attribute<std::int32_t> Height{*this, 0}; ///< client area, twips

    /// Every assignment of the pointer is told, also one that changes nothing.
    void setMousePointer(std::int16_t kind);
    [[nodiscard]] std::int16_t MousePointer() const { return m_pointer; }
    std::function<void(std::int16_t kind)> onMousePointer;

    /// The controls in the order in which they were added; their containers come first.
    [[nodiscard]] const std::vector<Control *> &controls() const { return m_controls; }
    /// The control of that name, nullptr when there is none.
    [[nodiscard]] Control *find(std::string_view name) const;

    /// Runs Form_Load unless the form is loaded. A RuntimeError of the load goes to the caller and leaves the form
    /// unloaded; a load that unloads its own form runs to its end.
    void load();
    [[nodiscard]] bool isLoaded() const { return m_loaded; }
    /// Asks Form_QueryUnload, then runs Form_Unload; false when one of them refused. What Form_Unload does not trap is
    /// an UnhandledError. An unload inside the form's own unload is refused.
    bool unload(bool byControlBox = false);
    /// A key press as the window system deals it out: short-cuts of menus, Form_KeyDown, cancel and default button,
    /// Form_KeyPress, then the control. `control` may be nullptr. True when nothing took the key, so that it still does
    /// what the window system does with it.
    bool key(Control *control, std::int16_t KeyCode);

    virtual void Form_Activate() {}
    virtual void Form_Deactivate() {}
    virtual void Form_Resize() {}

    /// Named fields of the form for whoever looks at its state from outside.
    [[nodiscard]] virtual std::vector<std::pair<std::string, Variant>> fields() const { return {}; }
    /// Rows of texts that the form holds, likewise.
    [[nodiscard]] virtual std::vector<std::vector<std::string>> rows() const { return {}; }

protected:
    virtual void Form_Load() {}
    /// Sets `Cancel` to refuse the closing.
    virtual void Form_QueryUnload(std::int16_t &Cancel, bool byControlBox);
    virtual void Form_Unload(std::int16_t &Cancel);
    /// Sets the code to 0 to swallow the key.
    virtual void Form_KeyDown(std::int16_t &KeyCode);
    virtual void Form_KeyPress(std::int16_t &KeyAscii);

    /// Registers a control and, if given, the frame that it stands in.
    void add(Control &control, Control *container = nullptr);

private:
    std::string m_name;
    std::vector<Control *> m_controls;
    std::int16_t m_pointer = kPointerDefault;
    bool m_loaded = false;
    bool m_unloading = false;
};

} // namespace inin
