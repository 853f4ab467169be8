#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// Reads "1-3,7": letters counted from 1, full-width digits and signs too, up to `count`. The result counts from 0 and has
/// each letter once, in the order of the text. An empty text is all letters. A RuntimeError with a sentence for a text
/// that is none or names a letter that is not there.
[[nodiscard]] std::vector<std::size_t> readLetterList(std::string_view text, std::size_t count);
/// The shortest such text, in rising order.
[[nodiscard]] std::string letterListText(std::vector<std::size_t> letters);

} // namespace inin::viewer
