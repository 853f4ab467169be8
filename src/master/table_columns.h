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

// The columns of a table as data: what a table class has of its own. The statements are composed from these rows.

/// How a write spells the value of a column.
enum class WrittenAs {
    quoted,              ///< in single quotes as it stands; a quote character inside is not doubled
    number,              ///< in decimal
    nullIfEmpty,         ///< the word Null for the empty text, else in single quotes
    nullIfEmptyOnInsert, ///< so on insert; an update writes the empty text in quotes
    serverTime,          ///< the server's current time, whatever the row holds
    never,               ///< a column of another table that a read joins
};

/// Where the value that a write spells comes from.
enum class ValueFrom { row, siteCode, siteSubCode, computerName };

/// Whether an update sets the column or leaves it, as it leaves keys.
enum class OnUpdate { set, kept };

/// What a number column does with a value that is no number of its size.
enum class Unreadable { raises, countsAsZero };

/// A 32-bit property whose value has to pass as a 16-bit one first.
template <class Row> struct ThroughInteger {
    std::int32_t Row::*member;
};

/// The property that carries a column; monostate for a column that no property carries.
template <class Row>
using Member =
    std::variant<std::monostate, std::string Row::*, std::int32_t Row::*, std::int16_t Row::*, ThroughInteger<Row>>;

/// One column. A table that reads it in several ways adds its marks in a type of its own behind this one.
template <class Row> struct TableColumn {
    const char *name;
    Member<Row> member;
    WrittenAs written;
    ValueFrom from = ValueFrom::row;
    OnUpdate onUpdate = OnUpdate::set;
};

/// A table's name, and what sets the texts of its statements apart from those of the others.
struct TableShape {
    std::string_view name;
    /// So many columns at the beginning of an insert have their comma behind them instead of before the next one.
    std::size_t commasBehind = 0;
    Unreadable unreadable = Unreadable::raises;
};

/// The branch that a statement works on.
struct Site {
    std::int32_t iKyotenCd = 0;
    std::int32_t iKyotenEb = 0;
};
[[nodiscard]] inline Site siteOf(const App &app)
{
    return {app.iKyotenCd, app.iKyotenEb};
}

/// What a write takes from elsewhere than the row.
struct WriteContext {
    Site site;
    std::string computerName;
};

enum class WriteKind { insert, update };

/// Reads fields into properties: NULL is the empty text or 0, texts lose the blanks on both sides.
struct FieldReader {
    const Regional &regional;
    Unreadable unreadable = Unreadable::raises;

    [[nodiscard]] std::string text(const Variant &value) const;
    [[nodiscard]] std::int32_t number(const Variant &value) const;
};

// Texts of statements that do not depend on the row's type.

/// " iKyotenCd = 1 and iKyotenEb = 2"
[[nodiscard]] std::string siteTerm(Site site);
/// The value as a write of that kind spells it.
[[nodiscard]] std::string spelled(WrittenAs written, const std::string &value, WriteKind kind);
/// "name = 'value'" as a set list has it.
[[nodiscard]] std::string assignment(const char *name, WrittenAs written, const std::string &value);
/// One item of a list of columns or values, with the blanks and the comma that its place asks for.
[[nodiscard]] std::string listItem(std::size_t place, const std::string &text, std::size_t commasBehind = 0);

/// A condition: its first term opens it with " where", each further one is joined by " and".
class Condition {
public:
    void add(const std::string &term) { m_text += (m_text.empty() ? " where" : " and") + term; }
    [[nodiscard]] const std::string &text() const { return m_text; }

private:
    std::string m_text;
};

} // namespace inin
