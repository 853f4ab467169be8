#pragma once

#include <string>
#include <vector>

namespace inin::site {

struct SchemaColumn {
    std::string name;
    std::string type; ///< as declared
};
struct TableColumns {
    std::string name;
    std::vector<SchemaColumn> columns;
};
/// The tables that the program names with the columns that it names, in the schema's order.
[[nodiscard]] std::vector<TableColumns> schemaTables();

} // namespace inin::site
