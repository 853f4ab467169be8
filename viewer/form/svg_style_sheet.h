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
/// The declarations of a rule's block or of a style attribute.
[[nodiscard]] std::vector<StyleDeclaration> readDeclarations(std::string_view text);

/// The rules of a form's style elements. Supports simple selectors (`text`, `.class`, `#id`, `*`), compounds of them
/// (`text.class`) and lists with commas. Everything else is reported and skipped.
class StyleSheet {
public:
    /// Takes linear time. Rules beyond a limit are reported and skipped.
    void add(std::string_view text, const NoticeHandler &report);
    /// The declarations that apply to an element, the weakest first: a type is weaker than a class, a class weaker than
    /// an id, and an earlier rule weaker than a later one.
    [[nodiscard]] std::vector<const StyleDeclaration *> declarationsFor(std::string_view element,
                                                                        const XmlAttributes &attributes) const;
    /// The number of characters that add() has examined; repeated examinations count again.
    [[nodiscard]] std::size_t charactersRead() const { return m_charactersRead; }

private:
    struct Selector {
        std::string element, id;
        std::vector<std::string> classes;
        [[nodiscard]] bool matches(std::string_view name, const XmlAttributes &attributes) const;
        [[nodiscard]] int specificity() const;
    };
    struct Rule {
        Selector selector;
        std::vector<StyleDeclaration> declarations;
    };
    /// Empty for a selector that is not a compound of a type, an id and classes.
    [[nodiscard]] static std::optional<Selector> readSelector(std::string_view text);
    /// Counts `parts`. Reports the limit and returns false when it is exceeded.
    [[nodiscard]] bool countParts(std::size_t parts, const NoticeHandler &report);
    void addRules(std::string_view selectors, std::string_view body, const NoticeHandler &report);

    std::vector<Rule> m_rules; ///< by specificity, then in the order of the sheet
    std::size_t m_parts = 0;   ///< rules of all kinds, with their classes and declarations
    std::size_t m_charactersRead = 0;
};

} // namespace inin::viewer
