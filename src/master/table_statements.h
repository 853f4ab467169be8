#pragma once

#include "runtime/conversion.h"
#include "runtime/regional.h"
#include "runtime/variant.h"
#include "shell/app.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace inin {

// The columns of a table as data; the statements of a table class are composed from these rows.

/// The notation of a column's value in a write.
enum class WrittenAs {
    quoted,              ///< in single quotes, unchanged; a quote character inside is not doubled
    number,              ///< in decimal
    nullIfEmpty,         ///< the word Null for the empty text, else in single quotes
    nullIfEmptyOnInsert, ///< as nullIfEmpty on insert; an update writes the empty text as ''
    serverTime,          ///< the server's current time, whatever the row's value
    never,               ///< a column of another table, joined by a read
};

/// The source of a value in a write.
enum class ValueFrom { row, siteCode, siteSubCode, computerName };

/// Whether an update sets the column or keeps it, as it keeps keys.
enum class OnUpdate { set, kept };

/// The treatment of a value that is not a number of the column's size.
enum class Unreadable { raises, countsAsZero };

/// A 32-bit property whose value must pass through a 16-bit conversion first.
template <class Row> struct ThroughInteger {
    std::int32_t Row::*member;
};

/// The property of a column; monostate for a column without one.
template <class Row>
using Member =
    std::variant<std::monostate, std::string Row::*, std::int32_t Row::*, std::int16_t Row::*, ThroughInteger<Row>>;

/// One column. A table with several reads adds their flags in a derived type.
template <class Row> struct TableColumn {
    const char *name;
    Member<Row> member;
    WrittenAs written;
    ValueFrom from = ValueFrom::row;
    OnUpdate onUpdate = OnUpdate::set;
};

/// A table's name, and the differences of its statements from those of other tables.
struct TableShape {
    std::string_view name;
    /// The first columns of an insert, this many, have their comma after them instead of before the next one.
    std::size_t trailingCommas = 0;
    Unreadable unreadable = Unreadable::raises;
};

/// The branch of a statement.
struct Branch {
    std::int32_t iKyotenCd = 0;
    std::int32_t iKyotenEb = 0;
};
[[nodiscard]] inline Branch branchOf(const App &app)
{
    return {app.iKyotenCd, app.iKyotenEb};
}

/// The values of a write that are not in the row.
struct WriteContext {
    Branch branch;
    std::string computerName;
};

enum class WriteKind { insert, update };

/// Reads fields into properties: NULL is the empty text or 0, texts are trimmed on both sides.
struct FieldReader {
    const Regional &regional;
    Unreadable unreadable = Unreadable::raises;

    [[nodiscard]] std::string text(const Variant &value) const;
    [[nodiscard]] std::int32_t number(const Variant &value) const;
};

// Parts of statements that do not depend on the row's type.

/// " iKyotenCd = 1 and iKyotenEb = 2"
[[nodiscard]] std::string branchTerm(Branch branch);
/// The value in the notation of that kind of write.
[[nodiscard]] std::string spelled(WrittenAs written, const std::string &value, WriteKind kind);
/// "name = 'value'" of a set list.
[[nodiscard]] std::string assignment(const char *name, WrittenAs written, const std::string &value);
/// One item of a list of columns or values, with the blanks and the comma for its position.
[[nodiscard]] std::string listItem(std::size_t place, const std::string &text, std::size_t trailingCommas = 0);

/// A condition: the first term is prefixed by " where", each further one by " and".
class Condition {
public:
    void add(const std::string &term) { m_text += (m_text.empty() ? " where" : " and") + term; }
    [[nodiscard]] const std::string &text() const { return m_text; }

private:
    std::string m_text;
};

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
