#pragma once

#include "viewer/form/form_document.h"

#include <optional>
#include <string_view>
#include <vector>

namespace inin::viewer {

// The grammars of SVG attribute values. A value that cannot be read gives an empty result, never an exception.

/// A cursor over numbers that are separated by blanks or commas.
class NumberScan {
public:
    explicit NumberScan(std::string_view text) : m_rest(text) {}
    [[nodiscard]] std::optional<double> number();
    /// A flag of an arc: one digit, which needs no separator after it.
    [[nodiscard]] std::optional<bool> flag();
    /// The next character if it is an ASCII letter, as path commands are.
    [[nodiscard]] std::optional<char> command();
    [[nodiscard]] bool atEnd();

private:
    void skipBlanks();
    std::string_view m_rest;
};

/// A length in pixels of 1/96 inch; `em` is the length of 1em, `whole` that of 100%.
[[nodiscard]] std::optional<double> readLength(std::string_view text, double em = 16, double whole = 0);
[[nodiscard]] std::vector<double> readNumbers(std::string_view text);
[[nodiscard]] Affine readTransform(std::string_view text);
/// #rgb, #rrggbb, rgb() and the common names.
[[nodiscard]] std::optional<Color> readColor(std::string_view text);
/// Reads up to the first error, as SVG requires.
[[nodiscard]] Path readPathData(std::string_view text);

} // namespace inin::viewer
