#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// Reads a list of letter numbers such as "1-3,7", full-width digits and signs too, up to `count`. The result counts
/// from 0 and has each letter once, in the order of the text. An empty text selects all letters. Throws a RuntimeError
/// with a sentence for any other text and for a number without a letter.
[[nodiscard]] std::vector<std::size_t> readLetterList(std::string_view text, std::size_t count);
/// The shortest such text that lists the letters in this order.
[[nodiscard]] std::string letterSequenceText(const std::vector<std::size_t> &letters);
/// The shortest such text, in ascending order.
[[nodiscard]] std::string letterListText(std::vector<std::size_t> letters);

} // namespace inin::viewer
