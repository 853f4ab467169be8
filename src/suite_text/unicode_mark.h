#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace inin {

// A settings file that an editor saved as Unicode begins with a mark that tells its encoding: UTF-8 or UTF-16 of either
// byte order. It is read as if it were in the code page.

/// The text of a marked file in code page 932, without the mark; nothing when the file bears none.
[[nodiscard]] std::optional<std::string> unmarked(std::string_view bytes);
/// The bytes of `codePage` under the mark and in the encoding of the file `before`. Nothing when that file holds a
/// character that the code page lacks: writing it anew would lose it.
[[nodiscard]] std::optional<std::string> markedLike(std::string_view before, std::string_view codePage);

} // namespace inin
