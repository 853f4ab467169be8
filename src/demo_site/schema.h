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
/// The tables and columns that the program uses, in the order of the schema.
[[nodiscard]] std::vector<TableColumns> schemaTables();

} // namespace inin::site
