#include "master/table_statements.h"

#include "common/helpers.h"
#include "runtime/conversion.h"
#include "runtime/text.h"

namespace inin {

std::string FieldReader::text(const Variant &value) const
{
    // Nearly all columns are already texts.
    if (const auto *text = value.getIf<std::string>()) return trim(*text);
    return trim(csNullToStr(value, regional));
}

std::int32_t FieldReader::number(const Variant &value) const
{
    if (unreadable == Unreadable::countsAsZero) return nNullToLong(value);
    return value.isNull() ? 0 : toLong(value);
}

std::string branchTerm(Branch branch)
{
    return " iKyotenCd = " + std::to_string(branch.iKyotenCd) + " and iKyotenEb = " + std::to_string(branch.iKyotenEb);
}

std::string spelled(WrittenAs written, const std::string &value, WriteKind kind)
{
    std::string inQuotes = "'" + value + "'";
    switch (written) {
    case WrittenAs::number:
        return value;
    case WrittenAs::nullIfEmpty:
        return value.empty() ? "Null" : inQuotes;
    case WrittenAs::nullIfEmptyOnInsert:
        return value.empty() && kind == WriteKind::insert ? "Null" : inQuotes;
    case WrittenAs::serverTime:
        return "GetDate()";
    case WrittenAs::quoted:
    case WrittenAs::never:
        break;
    }
    return inQuotes;
}

std::string assignment(const char *name, WrittenAs written, const std::string &value)
{
    const bool isWide = written == WrittenAs::number || written == WrittenAs::nullIfEmpty;
    return std::string(name) + (isWide ? " =  " : " = ") + spelled(written, value, WriteKind::update);
}

std::string listItem(std::size_t place, const std::string &text, std::size_t trailingCommas)
{
    if (place < trailingCommas) return "      " + text + ",";
    return (place == trailingCommas ? "      " : "     ,") + text;
}

std::string selectItem(std::string_view table, std::string_view column, SelectForm form)
{
    std::string name(column);
    if (form == SelectForm::bare) return name;
    const std::string qualified = std::string(table) + "." + name;
    return form == SelectForm::aliased ? qualified + " as " + name : qualified;
}

std::string deleteStatement(const TableShape &table)
{
    return " delete from      " + std::string(table.name) + " where";
}

} // namespace inin
