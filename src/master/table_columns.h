#pragma once

#include "runtime/regional.h"
#include "runtime/variant.h"
#include "shell/app.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

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

} // namespace inin
