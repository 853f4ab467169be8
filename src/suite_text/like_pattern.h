#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace inin {

/// A compiled LIKE pattern under the collation of japanese_text.h: % matches any run, _ one character, [abc], [a-c] and [^a] one character in or outside a
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
