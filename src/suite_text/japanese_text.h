#pragma once

#include <string>
#include <string_view>

namespace inin {

/// Folds a text as the server's usual Japanese collation compares it: ignoring case (small kana equal large ones),
/// width and kana type, but not 濁点 and accents. ﾔﾏﾀﾞ, ヤマダ, ヤマタ゛ and やまだ are equal, やまた differs. In the
/// result kana are katakana, full-width ASCII is ASCII, variation selectors are removed, an invalid byte is U+FFFD.
void foldJapanese(std::string_view text, std::u32string &folded);

/// Compares two texts under that collation, ignoring trailing blanks. Kana and Latin characters have their usual order.
/// Kanji are ordered by code point, unlike on the server.
[[nodiscard]] int compareJapanese(std::string_view a, std::string_view b);

} // namespace inin
