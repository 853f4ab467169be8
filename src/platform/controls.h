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

// Controls are records of attributes, independent of any window toolkit. The rules change attributes only; a view
// mirrors them and raises events, a script reads and sets them. An assignment fires the same event as user input.

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

/// One operation for each kind of control, by which a view or a script distinguishes them.
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

/// The base of all controls. The name of a member of a control array ends with its index in brackets.
class Control : public Observable {
public:
    explicit Control(std::string name) : m_name(std::move(name)) {}
    [[nodiscard]] const std::string &name() const { return m_name; }
    virtual void accept(ControlVisitor &visitor) = 0;

    Attribute<bool> Enabled{*this, true};
    Attribute<bool> Visible{*this, true};
    Attribute<std::string> Caption{*this, {}};
    Attribute<std::string> ToolTipText{*this, {}};
    Attribute<std::int32_t> BackColor{*this, -1}; ///< blue-green-red; -1 for the system's color

    // In twips, relative to the container. Set only where a rule reads or changes them; the view lays out the others.
    Attribute<std::int32_t> Left{*this, 0};
    Attribute<std::int32_t> Top{*this, 0};
    Attribute<std::int32_t> Width{*this, 0};
    Attribute<std::int32_t> Height{*this, 0};

    /// A key press in the control, with its code (see key_codes.h).
    std::function<void(std::int16_t KeyCode)> onKeyPress;

    std::int16_t TabIndex = -1;   ///< -1: not in the tab order
    Control *Container = nullptr; ///< the frame that contains it, nullptr for the form itself

    /// True when the operator can use it: the control and all frames around it are enabled and visible.
    [[nodiscard]] bool isReachable() const;

private:
    std::string m_name;
};

/// A radio button: at most one of its OptionGroup is selected.
class OptionButton : public Control {
public:
    using Control::Control;
    void accept(ControlVisitor &visitor) override { visitor.visit(*this); }
    Attribute<bool> Value{*this, false};
};

/// The options of one name in one frame. Selecting one, by hand or by assignment, deselects the others and then fires
/// onClick. Deselecting an option fires nothing, nor does assigning the value that it already has.
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
    /// The index of the selected option, -1 for none.
    [[nodiscard]] std::int16_t marked() const;

private:
    std::vector<std::unique_ptr<OptionButton>> m_options;
};

/// Value is 1 for ticked, 0 for unticked; each change fires onClick.
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
    bool Cancel = false;  ///< pressed by the escape key
    bool Default = false; ///< pressed by the return key
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

/// A box for a 32-bit integer; Null when empty.
class NumberBox : public Control {
public:
    using Control::Control;
    void accept(ControlVisitor &visitor) override { visitor.visit(*this); }
    Attribute<Variant> Value{*this, Null{}};
    std::string Format;
    std::optional<std::int32_t> Min, Max; ///< limits of the operator's input; an assignment is not checked
};

/// A box for a Date; Null when empty. Each change fires onChange.
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

/// A drop-down list shows only the chosen item until it is pressed, an open list all of them.
enum class ListStyle { dropDown, open };

/// A list of items, each with a number. Assigning ListIndex another value fires onClick; a pick by hand always does.
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
    /// A double click on the chosen item of an open list.
    std::function<void()> onDblClick;
    /// -1 for none. Assigning an index out of range is error 380.
    Attribute<std::int16_t> ListIndex{*this, -1};

    /// Chooses an item as the operator does: fires onClick even if it was already chosen.
    void pick(std::int16_t index);
    /// Removes all items and the choice without firing an event.
    void Clear();
    /// Error 6 beyond 32,767 items.
    void AddItem(std::string text, std::int32_t ItemData);
    [[nodiscard]] std::int16_t ListCount() const { return static_cast<std::int16_t>(m_items.size()); }
    /// The number of an item; error 380 for an index out of range.
    [[nodiscard]] std::int32_t ItemData(std::int16_t index) const;
    /// Chooses the first item at or after `from` with this number. Keeps the choice when there is none.
    void chooseItemData(std::int32_t ItemData, std::int16_t from = 0);
    [[nodiscard]] const std::vector<Item> &items() const { return m_items; }

private:
    std::vector<Item> m_items;
};

class Label : public Control {
public:
    using Control::Control;
    void accept(ControlVisitor &visitor) override { visitor.visit(*this); }
};

/// Disabling a frame disables the controls in it without changing their own Enabled.
class Frame : public Control {
public:
    using Control::Control;
    void accept(ControlVisitor &visitor) override { visitor.visit(*this); }
};

/// A menu (without onClick) or a menu entry. The shortcut is a key code (see key_codes.h), 0 for none.
class MenuEntry : public Control {
public:
    explicit MenuEntry(std::string name, std::int16_t shortcut = 0) : Control(std::move(name)), Shortcut(shortcut) {}
    void accept(ControlVisitor &visitor) override { visitor.visit(*this); }
    std::function<void()> onClick;
    std::int16_t Shortcut;
};

/// A picture, given by the path of its file; an empty path for none.
class ImageBox : public Control {
public:
    using Control::Control;
    void accept(ControlVisitor &visitor) override { visitor.visit(*this); }
    Attribute<std::string> Picture{*this, {}};
};

} // namespace inin
