#pragma once

#include <string>
#include <string_view>

namespace inin::viewer {

/// A name or address without the differences that a person ignores: blanks, width, kind of kana, case and variants of
/// kanji (髙 and 高).
[[nodiscard]] std::u32string foldedName(std::string_view text);

} // namespace inin::viewer
