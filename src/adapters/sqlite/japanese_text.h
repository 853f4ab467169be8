#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace inin {

/// Characters of a text as the server's usual Japanese collation tells them apart: without regard to case (small kana
/// counts as the large one), width and kana kind, but with 濁点 and accents. ﾔﾏﾀﾞ, ヤマダ and やまだ are one,
/// やまた another. Katakana stands for both kana, ASCII for the full-width forms. A byte that is no UTF-8 is U+FFFD.
void foldJapanese(std::string_view text, std::u32string &folded);

/// Order of two texts under that collation, blanks at the end left out. Kana and Latin letters come in their usual
/// order; kanji by code, where the server has its own order.
[[nodiscard]] int compareJapanese(std::string_view a, std::string_view b);

/// A LIKE pattern, ready to be held against many texts: % for any run, _ for one character, [abc], [a-c] and [^a]
/// for one character in or out of a class. Only the half-width signs are wildcards. Blanks at the end count.
class LikePattern {
public:
    /// `escape` makes the sign behind it an ordinary one; 0 for none.
    explicit LikePattern(std::string_view pattern, char32_t escape = 0);
    [[nodiscard]] bool matches(std::string_view text) const;

private:
    enum class Kind { one, any, run, oneOf };
    struct Element {
        Kind kind = Kind::one;
        char32_t character = 0;
        bool negated = false;
        std::vector<std::pair<char32_t, char32_t>> ranges{};
    };
    [[nodiscard]] static bool fits(const Element &element, char32_t character);
    void addLiteral(const std::u32string &raw);
    /// The class whose [ stands at `at`; gives the place behind it, or the end when it has no ].
    std::size_t addClass(const std::u32string &pattern, std::size_t at);

    std::vector<Element> m_elements;
};

/// UTF-8 to code points, U+FFFD for each byte that is none.
void decodeUtf8(std::string_view text, std::u32string &decoded);

/// The same text where it is sound UTF-8, otherwise with U+FFFD for each byte that is none.
[[nodiscard]] std::string soundUtf8(std::string_view text);

} // namespace inin
