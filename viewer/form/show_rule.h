#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace inin::viewer {

/// A condition for drawing a part of a form: `data-if` or `data-unless` of an element.
struct ShowRule {
    enum class Test { notBlank, blank, equal, notEqual };
    std::string column;
    Test test = Test::notBlank;
    std::string value;      ///< compared without outer blanks
    std::size_t parent = 0; ///< number of the rule that must hold too, smaller than this rule's own; 0 for none

    /// Whether the column's value passes the test, regardless of the parent.
    [[nodiscard]] bool holds(std::string_view columnValue) const;
};

/// Reads `列名`, `列名=値` or `列名!=値`. Throws a RuntimeError with a sentence for a text without a column.
[[nodiscard]] ShowRule readShowRule(std::string_view text);
/// The rule that holds exactly when `rule` does not.
[[nodiscard]] ShowRule opposite(ShowRule rule);

} // namespace inin::viewer
