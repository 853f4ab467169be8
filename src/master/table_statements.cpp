#include "master/table_statements.h"

namespace inin {

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
