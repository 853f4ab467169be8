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
/// What stands between the braces of a rule, or in a style attribute.
[[nodiscard]] std::vector<StyleDeclaration> readDeclarations(std::string_view text);

/// The rules of a form's style elements. Selectors are those of one element: `text`, `.class`, `#id`, `*` and joined
/// ones (`text.class`), several with commas between. What else a sheet holds is told and left out.
class StyleSheet {
public:
    void add(std::string_view text, const Notice &tell);
    /// What the rules say of an element, the weakest first: a type counts less than a class, a class less than an id, an
    /// earlier rule less than a later one.
    [[nodiscard]] std::vector<const StyleDeclaration *> of(std::string_view element,
                                                           const XmlAttributes &attributes) const;

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
    void addRule(std::string_view selectors, std::string_view body, const Notice &tell);

    std::vector<Rule> m_rules; ///< by weight, those of the same as they came
    std::size_t m_declarations = 0;
};

} // namespace inin::viewer
