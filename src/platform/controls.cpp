#include "platform/controls.h"

#include "runtime/runtime_error.h"

#include <limits>

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
    ListIndex.check = [this](std::int16_t index) {
        if (index < -1 || index >= ListCount()) throw RuntimeError(error_number::invalidPropertyValue);
    };
    ListIndex.onAssigned = [this] {
        if (onClick) onClick();
    };
}

void ListBox::pick(std::int16_t index)
{
    if (ListIndex != index)
        ListIndex = index;
    else if (onClick)
        onClick();
}

void ListBox::Clear()
{
    m_items.clear();
    ListIndex.assignQuietly(-1);
}

void ListBox::AddItem(std::string text, std::int32_t ItemData)
{
    // ListCount and ListIndex have 16 bits.
    if (m_items.size() >= std::size_t{std::numeric_limits<std::int16_t>::max()})
        throw RuntimeError(error_number::overflow);
    m_items.push_back({std::move(text), ItemData});
    notify();
}

std::int32_t ListBox::ItemData(std::int16_t index) const
{
    if (index < 0 || index >= ListCount()) throw RuntimeError(error_number::invalidPropertyValue);
    return m_items[static_cast<std::size_t>(index)].ItemData;
}

void ListBox::chooseItemData(std::int32_t ItemData, std::int16_t from)
{
    for (std::int16_t index = from; index < ListCount(); ++index) {
        if (this->ItemData(index) != ItemData) continue;
        ListIndex = index;
        return;
    }
}

} // namespace inin
