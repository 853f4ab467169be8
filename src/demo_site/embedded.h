#pragma once

#include <string_view>

namespace inin::site {

// Files of the folder site/ that are compiled into the program.
[[nodiscard]] std::string_view schemaText();
[[nodiscard]] std::string_view serverSchemaText();
[[nodiscard]] std::string_view demoDataText();
[[nodiscard]] std::string_view menuStandIn();
[[nodiscard]] std::string_view formToolStandIn();
[[nodiscard]] std::string_view standardForm();
[[nodiscard]] std::string_view aichiForm();
[[nodiscard]] std::string_view blankAichiForm();
[[nodiscard]] std::string_view takamatsuForm();
[[nodiscard]] std::string_view coverForm();

} // namespace inin::site
