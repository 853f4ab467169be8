#pragma once

#include <string>

namespace inin {

/// The first file of the folder whose case-folded name matches the pattern, in the order of the folded names, as the
/// suite's file system lists them; empty if there is none. The folder ends in a slash or is empty for the current one;
/// the pattern is case-folded and may contain "*" and "?".
[[nodiscard]] std::string firstFile(const std::string &folder, const std::string &pattern);

} // namespace inin
