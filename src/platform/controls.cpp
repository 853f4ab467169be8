#include "platform/controls.h"

#include "runtime/runtime_error.h"

namespace inin {

namespace {
std::string indexed(const std::string &name, std::int16_t index)
{
    return name + "(" + std::to_string(index) + ")";
}
} // namespace

bool Control::isReachable() const
{
    for (const Control *control = this; control != nullptr; control = control->Container)
        if (!control->Enabled || !control->Visible) return false;
    return true;
}

OptionGroup::OptionGroup(const std::string &name, std::int16_t count)
{
    for (std::int16_t index = 0; index < count; ++index) {
        OptionButton &option = *m_options.emplace_back(std::make_unique<OptionButton>(indexed(name, index)));
        option.Value.onAssigned = [this, index, &option] {
            if (!option.Value) return;
            for (const auto &other : m_options)
                if (other.get() != &option) other->Value = false;
            if (onClick) onClick(index);
        };
    }
}

std::int16_t OptionGroup::marked() const
{
    for (std::int16_t index = 0; index < count(); ++index)
        if ((*this)(index).Value) return index;
    return -1;
}

CheckBox::CheckBox(std::string name) : Control(std::move(name))
{
    Value.onAssigned = [this] {
        if (onClick) onClick();
    };
}

ButtonArray::ButtonArray(const std::string &name, std::initializer_list<std::int16_t> indices)
{
    for (const std::int16_t index : indices) {
        auto button = std::make_unique<Button>(indexed(name, index));
        button->onClick = [this, index] {
            if (onClick) onClick(index);
        };
        m_buttons.emplace(index, std::move(button));
    }
}

DateBox::DateBox(std::string name) : Control(std::move(name))
{
    Value.onAssigned = [this] {
        if (onChange) onChange();
    };
}

ListBox::ListBox(std::string name) : Control(std::move(name))
{
    ListIndex.onAssigned = [this] {
        if (ListIndex < -1 || ListIndex >= ListCount()) throw RuntimeError(error_number::invalidPropertyValue);
        if (onClick) onClick();
    };
}

void ListBox::Clear()
{
    m_items.clear();
    const auto click = std::exchange(onClick, nullptr);
    ListIndex = -1;
    onClick = click;
    notify();
}

void ListBox::AddItem(std::string text, std::int32_t ItemData)
{
    m_items.push_back({std::move(text), ItemData});
    notify();
}

std::int32_t ListBox::ItemData(std::int16_t index) const
{
    if (index < 0 || index >= ListCount()) throw RuntimeError(error_number::invalidPropertyValue);
    return m_items[static_cast<std::size_t>(index)].ItemData;
}

} // namespace inin
