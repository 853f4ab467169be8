#pragma once

#include "platform/attribute.h"
#include "runtime/variant.h"

#include <cstdint>
#include <initializer_list>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace inin {

// Controls without a window toolkit: records of attributes. The rules change attributes only; a view mirrors them and
// raises events, a script reads and sets them. Assigning an attribute fires the same event as a person's hand.

class OptionButton;
class CheckBox;
class Button;
class NumberBox;
class DateBox;
class TextBox;
class ListBox;
class Label;
class Frame;
class MenuEntry;
class ImageBox;
class Grid;

/// One operation for each kind of control: how a view or a script tells them apart.
class ControlVisitor {
public:
    ControlVisitor() = default;
    ControlVisitor(const ControlVisitor &) = delete;
    ControlVisitor &operator=(const ControlVisitor &) = delete;
    virtual ~ControlVisitor() = default;
    virtual void visit(OptionButton &control) = 0;
    virtual void visit(CheckBox &control) = 0;
    virtual void visit(Button &control) = 0;
    virtual void visit(NumberBox &control) = 0;
    virtual void visit(DateBox &control) = 0;
    virtual void visit(TextBox &control) = 0;
    virtual void visit(ListBox &control) = 0;
    virtual void visit(Label &control) = 0;
    virtual void visit(Frame &control) = 0;
    virtual void visit(MenuEntry &control) = 0;
    virtual void visit(ImageBox &control) = 0;
    virtual void visit(Grid &control) = 0;
};

/// What every control has. The name is the given one, with its index in brackets for a member of an array.
class Control : public Observable {
public:
    explicit Control(std::string name) : m_name(std::move(name)) {}
    [[nodiscard]] const std::string &name() const { return m_name; }
    virtual void accept(ControlVisitor &visitor) = 0;

    Attribute<bool> Enabled{*this, true};
    Attribute<bool> Visible{*this, true};
    Attribute<std::string> Caption{*this, {}};
    Attribute<std::string> ToolTipText{*this, {}};
    Attribute<std::int32_t> BackColor{*this, -1}; ///< blue-green-red, -1 is the system's

    // Twips inside the container. Only where a rule asks or moves them; elsewhere the view lays its controls out.
    Attribute<std::int32_t> Left{*this, 0};
    Attribute<std::int32_t> Top{*this, 0};
    Attribute<std::int32_t> Width{*this, 0};
    Attribute<std::int32_t> Height{*this, 0};

    /// Key press in the control, with its code (see key_codes.h).
    std::function<void(std::int16_t KeyCode)> onKeyPress;

    std::int16_t TabIndex = -1;   ///< -1: not in the tab order
    Control *Container = nullptr; ///< the frame it stands in, nullptr for the form itself

    /// True when a person can use it: enabled and visible, and so is every frame around it.
    [[nodiscard]] bool isReachable() const;

private:
    std::string m_name;
};

/// A mark of which at most one in its OptionGroup is set.
class OptionButton : public Control {
public:
    using Control::Control;
    void accept(ControlVisitor &visitor) override { visitor.visit(*this); }
    Attribute<bool> Value{*this, false};
};

/// Options of one name in one frame: at most one is marked. Marking one, by hand or by assignment, unmarks the others
/// and then fires onClick; assigning what an option already has fires nothing, nor does unmarking.
class OptionGroup {
public:
    OptionGroup(const std::string &name, std::int16_t count);
    std::function<void(std::int16_t Index)> onClick;
    [[nodiscard]] OptionButton &operator()(std::int16_t Index)
    {
        return *m_options.at(static_cast<std::size_t>(Index));
    }
    [[nodiscard]] const OptionButton &operator()(std::int16_t Index) const
    {
        return *m_options.at(static_cast<std::size_t>(Index));
    }
    [[nodiscard]] std::int16_t count() const { return static_cast<std::int16_t>(m_options.size()); }
    /// The index of the marked option, -1 when none is.
    [[nodiscard]] std::int16_t marked() const;

private:
    std::vector<std::unique_ptr<OptionButton>> m_options;
};

/// Ticked 1 or unticked 0; each change fires onClick.
class CheckBox : public Control {
public:
    explicit CheckBox(std::string name);
    void accept(ControlVisitor &visitor) override { visitor.visit(*this); }
    std::function<void()> onClick;
    Attribute<std::int16_t> Value{*this, 0};
};

class Button : public Control {
public:
    using Control::Control;
    void accept(ControlVisitor &visitor) override { visitor.visit(*this); }
    std::function<void()> onClick;
    bool Cancel = false;  ///< the escape key presses it
    bool Default = false; ///< the return key presses it
};

/// Buttons of one name; the indices may have gaps.
class ButtonArray {
public:
    ButtonArray(const std::string &name, std::initializer_list<std::int16_t> indices);
    std::function<void(std::int16_t Index)> onClick;
    [[nodiscard]] Button &operator()(std::int16_t Index) { return *m_buttons.at(Index); }

private:
    std::map<std::int16_t, std::unique_ptr<Button>> m_buttons;
};

/// Holds a 32-bit whole number or Null (empty).
class NumberBox : public Control {
public:
    using Control::Control;
    void accept(ControlVisitor &visitor) override { visitor.visit(*this); }
    Attribute<Variant> Value{*this, Null{}};
    std::string Format;
    std::optional<std::int32_t> Min, Max; ///< what a person can enter; an assignment is not checked
};

/// Holds a Date or Null (empty); each change fires onChange.
class DateBox : public Control {
public:
    explicit DateBox(std::string name);
    void accept(ControlVisitor &visitor) override { visitor.visit(*this); }
    std::function<void()> onChange;
    Attribute<Variant> Value{*this, Null{}};
    std::string Format;
};

class TextBox : public Control {
public:
    using Control::Control;
    void accept(ControlVisitor &visitor) override { visitor.visit(*this); }
    Attribute<std::string> Text{*this, {}};
};

/// How a list shows its items: the chosen one with the others on a press, or all of them under one another.
enum class ListStyle { dropDown, open };

/// A list of items with a number each. Assigning ListIndex another value fires onClick; a pick by hand always does.
class ListBox : public Control {
public:
    struct Item {
        std::string text;
        std::int32_t ItemData = 0;
    };
    explicit ListBox(std::string name);
    void accept(ControlVisitor &visitor) override { visitor.visit(*this); }
    std::function<void()> onClick;
    ListStyle Style = ListStyle::dropDown;
    /// Double click by hand on the chosen item of an open list.
    std::function<void()> onDblClick;
    /// -1 when none is chosen; an index that the list lacks is error 380.
    Attribute<std::int16_t> ListIndex{*this, -1};

    /// Chooses an item as a person does: onClick fires also for the item that is chosen already.
    void pick(std::int16_t index);
    /// No items, and none chosen; fires nothing.
    void Clear();
    /// Error 6 beyond 32,767 items.
    void AddItem(std::string text, std::int32_t ItemData);
    [[nodiscard]] std::int16_t ListCount() const { return static_cast<std::int16_t>(m_items.size()); }
    /// The number of an item; error 380 for an index that the list lacks.
    [[nodiscard]] std::int32_t ItemData(std::int16_t index) const;
    [[nodiscard]] const std::vector<Item> &items() const { return m_items; }

private:
    std::vector<Item> m_items;
};

class Label : public Control {
public:
    using Control::Control;
    void accept(ControlVisitor &visitor) override { visitor.visit(*this); }
};

/// Disabling a frame disables what stands in it without touching its controls' own Enabled.
class Frame : public Control {
public:
    using Control::Control;
    void accept(ControlVisitor &visitor) override { visitor.visit(*this); }
};

/// A menu (without a click) or an entry; the short-cut is a key code, 0 for none (see key_codes.h).
class MenuEntry : public Control {
public:
    explicit MenuEntry(std::string name, std::int16_t shortcut = 0) : Control(std::move(name)), Shortcut(shortcut) {}
    void accept(ControlVisitor &visitor) override { visitor.visit(*this); }
    std::function<void()> onClick;
    std::int16_t Shortcut;
};

/// A picture by the path of its file, empty for none.
class ImageBox : public Control {
public:
    using Control::Control;
    void accept(ControlVisitor &visitor) override { visitor.visit(*this); }
    Attribute<std::string> Picture{*this, {}};
};

} // namespace inin
