#pragma once

#include "viewer/form/svg_style.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// `name: value` of a style attribute or a style sheet.
struct StyleDeclaration {
    std::string name, value;
    bool isImportant = false;
};
/// The declarations between the braces of a rule, or of a style attribute.
[[nodiscard]] std::vector<StyleDeclaration> readDeclarations(std::string_view text);

/// The rules of a form's style elements. Selectors are those of one element: `text`, `.class`, `#id`, `*` and joined
/// ones (`text.class`), several with commas between. Everything else is reported and left out.
class StyleSheet {
public:
    /// Takes time in proportion to the text's size; what comes after a limit of rules is reported and left out.
    void add(std::string_view text, const Notice &tell);
    /// What the rules say of an element, the weakest first: a type counts less than a class, a class less than an id, an
    /// earlier rule less than a later one.
    [[nodiscard]] std::vector<const StyleDeclaration *> of(std::string_view element,
                                                           const XmlAttributes &attributes) const;
    /// How many characters add() has looked at, those that it looked at again included.
    [[nodiscard]] std::size_t charactersRead() const { return m_charactersRead; }

private:
    struct Selector {
        std::string element, id;
        std::vector<std::string> classes;
        [[nodiscard]] bool matches(std::string_view name, const XmlAttributes &attributes) const;
        [[nodiscard]] int weight() const;
    };
    struct Rule {
        Selector selector;
        std::vector<StyleDeclaration> declarations;
    };
    /// Nothing for one that is not an element, an id and classes.
    [[nodiscard]] static std::optional<Selector> readSelector(std::string_view text);
    /// False when the limit is reached, which is reported.
    [[nodiscard]] bool takesMore(std::size_t parts, const Notice &tell);
    void addRules(std::string_view selectors, std::string_view body, const Notice &tell);

    std::vector<Rule> m_rules; ///< by weight, those of the same weight in the sheet's order
    std::size_t m_parts = 0;   ///< rules of every kind, with their classes and declarations
    std::size_t m_charactersRead = 0;
};

} // namespace inin::viewer
