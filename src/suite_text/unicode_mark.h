#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace inin {

// A settings file that an editor saved as Unicode begins with a byte order mark of UTF-8 or UTF-16 (either byte order).
// It is read as if it were in the code page.

/// The text of a marked file in code page 932, without the mark; nothing if the file has no mark.
[[nodiscard]] std::optional<std::string> unmarked(std::string_view bytes);
/// `codePage` with the mark and encoding of the file `before`. Nothing if that file contains a character that the code
/// page lacks, because writing the file would lose it.
[[nodiscard]] std::optional<std::string> markedLike(std::string_view before, std::string_view codePage);

} // namespace inin
