#pragma once

#include <string>

namespace inin {

/// The first file of the folder whose folded name fits the pattern, in the order of the folded names, as the suite's
/// file system lists them; empty when there is none. The folder ends in a slash or is empty for the current one, the
/// pattern is folded and may hold "*" and "?".
[[nodiscard]] std::string firstFile(const std::string &folder, const std::string &pattern);

} // namespace inin
