#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace inin {

/// Folds a text as the server's usual Japanese collation compares it: ignoring case (small kana equal large ones),
/// width and kana type, but not 濁点 and accents. ﾔﾏﾀﾞ, ヤマダ, ヤマタ゛ and やまだ are equal, やまた differs. In the
/// result kana are katakana, full-width ASCII is ASCII, variation selectors are removed, an invalid byte is U+FFFD.
void foldJapanese(std::string_view text, std::u32string &folded);

/// Compares two texts under that collation, ignoring trailing blanks. Kana and Latin characters have their usual order.
/// Kanji are ordered by code point, unlike on the server.
[[nodiscard]] int compareJapanese(std::string_view a, std::string_view b);

/// A compiled LIKE pattern: % matches any run, _ one character, [abc], [a-c] and [^a] one character in or outside a
/// class. Only half-width characters are wildcards. Trailing blanks are significant.
class LikePattern {
public:
    /// The character after `escape` is literal; 0 for no escape character.
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
    /// Adds the class whose [ is at `at`. Returns the position after its ], or the end if it is unterminated.
    std::size_t addClass(std::string_view pattern, std::size_t at);

    std::vector<Element> m_elements;
};

} // namespace inin
