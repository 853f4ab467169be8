#pragma once

#include <string_view>

namespace inin::site {

// Files of the folder site/ that the program carries, so that it needs nothing beside it.
[[nodiscard]] std::string_view schemaText();
[[nodiscard]] std::string_view serverSchemaText();
[[nodiscard]] std::string_view menuStandIn();
[[nodiscard]] std::string_view formToolStandIn();
/// On Windows the stand-ins are one program, which knows by its name what it stands in for.
[[nodiscard]] std::string_view standInProgram();
[[nodiscard]] std::string_view standardForm();
[[nodiscard]] std::string_view aichiForm();
[[nodiscard]] std::string_view takamatsuForm();

} // namespace inin::site
