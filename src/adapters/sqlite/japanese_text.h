#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace inin {

/// The characters of a text as the server's usual Japanese collation distinguishes them: without regard to case (small
/// kana counts as the large one), width and kana kind, but with 濁点 and accents. ﾔﾏﾀﾞ, ヤマダ, ヤマタ゛ and やまだ are
/// equal, やまた differs. Folded text holds katakana for both kana and ASCII for full-width forms; variation selectors
/// are left out. A byte that is not UTF-8 becomes U+FFFD.
void foldJapanese(std::string_view text, std::u32string &folded);

/// Order of two texts under that collation without the blanks at their ends. Kana and Latin letters come in their usual
/// order; kanji in code order, where the server has an order of its own.
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
    void addLiteral(std::string_view literal);
    /// Adds the class whose [ is at `at`. Returns the position after its ], or the end when it has none.
    std::size_t addClass(std::string_view pattern, std::size_t at);

    std::vector<Element> m_elements;
};

/// UTF-8 to code points, U+FFFD for each byte that is none.
void decodeUtf8(std::string_view text, std::u32string &decoded);

/// The same text where it is sound UTF-8, otherwise with U+FFFD for each byte that is none.
[[nodiscard]] std::string soundUtf8(std::string_view text);

} // namespace inin
