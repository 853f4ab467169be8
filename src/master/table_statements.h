#pragma once

#include "master/table_columns.h"
#include "runtime/conversion.h"

#include <string>
#include <vector>

namespace inin {

// Statements composed from a table's columns. `Columns` is a range of TableColumn<Row> or of a type derived from it.

/// The notation of a column in a select list.
enum class SelectForm {
    none,      ///< not in this list
    aliased,   ///< "STAFF.cName as cName"
    qualified, ///< "STAFF.cName"
    bare,      ///< "cName"
};

[[nodiscard]] std::string selectItem(std::string_view table, std::string_view column, SelectForm form);

/// The text of a select list, and the columns that a read fills, in the order of the list.
template <class Row> class SelectList {
public:
    explicit SelectList(std::string_view table) : m_table(table) {}
    /// An item that is read into its property.
    void add(const TableColumn<Row> &column, SelectForm form)
    {
        addUnread(column.name, form);
        m_filled.push_back(&column);
    }
    /// An item that is selected but read into no property.
    void addUnread(const char *name, SelectForm form) { addText(selectItem(m_table, name, form)); }
    /// An item of a joined table.
    void addJoined(const TableColumn<Row> &column, std::string_view table)
    {
        addText(selectItem(table, column.name, SelectForm::qualified));
        m_filled.push_back(&column);
    }
    [[nodiscard]] const std::string &text() const { return m_text; }
    [[nodiscard]] const std::vector<const TableColumn<Row> *> &filled() const { return m_filled; }

private:
    void addText(const std::string &item) { m_text += listItem(m_items++, item); }

    std::string_view m_table;
    std::string m_text;
    std::size_t m_items = 0;
    std::vector<const TableColumn<Row> *> m_filled;
};

/// The value of the column as plain text, before the notation of the write.
template <class Row>
[[nodiscard]] std::string valueText(const TableColumn<Row> &column, const Row &row, const WriteContext &context)
{
    struct Text {
        const Row &row;
        std::string operator()(std::monostate) const { return {}; }
        std::string operator()(std::string Row::*member) const { return row.*member; }
        std::string operator()(std::int32_t Row::*member) const { return std::to_string(row.*member); }
        std::string operator()(std::int16_t Row::*member) const { return std::to_string(row.*member); }
        std::string operator()(ThroughInteger<Row> through) const { return std::to_string(row.*through.member); }
    };
    switch (column.from) {
    case ValueFrom::siteCode:
        return std::to_string(context.branch.iKyotenCd);
    case ValueFrom::siteSubCode:
        return std::to_string(context.branch.iKyotenEb);
    case ValueFrom::computerName:
        return context.computerName;
    case ValueFrom::row:
        break;
    }
    return std::visit(Text{row}, column.member);
}

/// All columns of the table in their order, with the values of the row.
template <class Row, class Columns>
[[nodiscard]] std::string insertStatement(const TableShape &table, const Columns &columns, const Row &row,
                                          const WriteContext &context)
{
    std::string names, values;
    std::size_t place = 0;
    for (const TableColumn<Row> &column : columns) {
        if (column.written == WrittenAs::never) continue;
        names += listItem(place, column.name, table.trailingCommas);
        values += listItem(place, spelled(column.written, valueText(column, row, context), WriteKind::insert),
                           table.trailingCommas);
        ++place;
    }
    return " insert into    " + std::string(table.name) + " (" + names + " )values( " + values + " ) ";
}

/// The statement up to its condition, which differs by table.
template <class Row, class Columns>
[[nodiscard]] std::string updateStatement(const TableShape &table, const Columns &columns, const Row &row,
                                          const WriteContext &context)
{
    std::string text = " update      " + std::string(table.name) + " set ";
    std::size_t place = 0;
    for (const TableColumn<Row> &column : columns) {
        if (column.written == WrittenAs::never || column.onUpdate == OnUpdate::kept) continue;
        text += listItem(place++, assignment(column.name, column.written, valueText(column, row, context)));
    }
    return text;
}

/// " delete from      STAFF where", to be followed by the table's condition.
[[nodiscard]] std::string deleteStatement(const TableShape &table);

/// Sets the property of a column from a field.
template <class Row>
void fillField(Row &row, const TableColumn<Row> &column, const Variant &value, const FieldReader &reader)
{
    struct Fill {
        Row &row;
        const Variant &value;
        const FieldReader &reader;
        void operator()(std::monostate) const {}
        void operator()(std::string Row::*member) const { row.*member = reader.text(value); }
        void operator()(std::int32_t Row::*member) const { row.*member = reader.number(value); }
        void operator()(std::int16_t Row::*member) const { row.*member = narrow(reader.number(value)); }
        void operator()(ThroughInteger<Row> through) const { row.*through.member = narrow(reader.number(value)); }
    };
    std::visit(Fill{row, value, reader}, column.member);
}

} // namespace inin
