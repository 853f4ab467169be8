#include "adapters/script/state_writer.h"

#include "runtime/conversion.h"
#include "screen/grid.h"

#include <cstdio>
#include <type_traits>
#include <variant>

namespace inin::script {

namespace {

/// A date box's day in the format of the commands, independent of the system's date format.
std::string dayText(Date date)
{
    const DateParts parts = partsOf(date);
    char text[32];
    std::snprintf(text, sizeof text, "%04d/%02d/%02d", parts.year, parts.month, parts.day);
    return text;
}

Json numberOrText(const Variant &value, const Regional &regional)
{
    return std::visit(
        [&](const auto &held) -> Json {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, Date>)
                return dateText(held, regional);
            else if constexpr (std::is_arithmetic_v<Held> || std::is_same_v<Held, std::string>)
                return held;
            else
                return nullptr; // Null, Empty, binary
        },
        value.value());
}

/// Writes the attributes of one control: those of its kind first, then Enabled and Visible.
class AttributeWriter : public ControlVisitor {
public:
    explicit AttributeWriter(const Regional &regional) : m_regional(regional) {}
    [[nodiscard]] Json attributesOf(Control &control)
    {
        m_attributes = Json::object();
        control.accept(*this);
        m_attributes["Enabled"] = control.Enabled.get();
        m_attributes["Visible"] = control.Visible.get();
        return m_attributes;
    }

    void visit(OptionButton &control) override { m_attributes["Value"] = control.Value.get(); }
    void visit(CheckBox &control) override
    {
        m_attributes["Value"] = control.Value.get();
        // Only the search windows set the caption of a check box at run time; it is written where it is not empty.
        if (!control.Caption.get().empty()) caption(control);
    }
    void visit(NumberBox &control) override { m_attributes["Value"] = numberOrText(control.Value, m_regional); }
    void visit(DateBox &control) override
    {
        const Date *date = control.Value.get().getIf<Date>();
        m_attributes["Value"] = date != nullptr ? Json(dayText(*date)) : numberOrText(control.Value, m_regional);
    }
    void visit(TextBox &control) override { m_attributes["Text"] = control.Text.get(); }
    void visit(ListBox &control) override
    {
        m_attributes["ListIndex"] = control.ListIndex.get();
        Json items = Json::array();
        for (const ListBox::Item &item : control.items()) items.push_back(Json::array({item.text, item.ItemData}));
        m_attributes["items"] = std::move(items);
    }
    void visit(ImageBox &control) override { m_attributes["Picture"] = control.Picture.get(); }
    void visit(Grid &control) override
    {
        m_attributes["ActiveRow"] = control.ActiveRow.get();
        m_attributes["RowCount"] = control.RowCount();
        Json columns = Json::array();
        for (const Grid::Column &column : control.columns())
            columns.push_back(Json::array({column.header, column.width}));
        m_attributes["columns"] = std::move(columns);
    }
    void visit(Button &control) override { caption(control); }
    void visit(Label &control) override { caption(control); }
    void visit(Frame &control) override { caption(control); }
    void visit(MenuEntry &control) override { caption(control); }

private:
    void caption(const Control &control) { m_attributes["Caption"] = control.Caption.get(); }

    const Regional &m_regional;
    Json m_attributes;
};

Json cellsOf(const Grid &grid)
{
    Json rows = Json::array();
    for (std::int32_t row = 1; row <= grid.RowCount(); ++row) {
        Json cells = Json::array();
        for (std::int16_t column = 1; column <= grid.ColumnCount(); ++column) {
            const bool isNumber = grid.columns()[static_cast<std::size_t>(column) - 1].kind == Grid::CellKind::number;
            cells.push_back(isNumber ? Json(grid.number(row, column)) : Json(grid.text(row, column)));
        }
        rows.push_back(std::move(cells));
    }
    return rows;
}

} // namespace

Json stateEvent(const Form &form, const Regional &regional)
{
    AttributeWriter writer(regional);
    Json controls = Json::object();
    for (Control *control : form.controls()) controls[control->name()] = writer.attributesOf(*control);
    Json fields = Json::object();
    for (const auto &[name, value] : form.fields()) fields[name] = numberOrText(value, regional);
    Json state = {{"event", "state"},
                  {"window", form.name()},
                  {"controls", std::move(controls)},
                  {"fields", std::move(fields)},
                  {"rows", form.rows()}};
    if (const Grid *grid = gridOf(form)) {
        state["Caption"] = form.Caption.get();
        state["grid"] = cellsOf(*grid);
    }
    return state;
}

} // namespace inin::script
