#pragma once

#include "viewer/form/form_document.h"

#include <optional>
#include <string_view>
#include <vector>

namespace inin::viewer {

// The small languages inside of SVG attributes. What cannot be read is nothing, never an exception.

/// A cursor over numbers that blanks or commas separate.
class NumberScan {
public:
    explicit NumberScan(std::string_view text) : m_rest(text) {}
    [[nodiscard]] std::optional<double> number();
    /// A flag of an arc: one digit that nothing need follow.
    [[nodiscard]] std::optional<bool> flag();
    /// The next letter when one stands there.
    [[nodiscard]] std::optional<char> letter();
    [[nodiscard]] bool atEnd();

private:
    void skipBlanks();
    std::string_view m_rest;
};

/// A number with a unit, in pixels of 1/96 inch; `em` is the length of 1em, `whole` that of 100%.
[[nodiscard]] std::optional<double> readLength(std::string_view text, double em = 16, double whole = 0);
[[nodiscard]] std::vector<double> readNumbers(std::string_view text);
[[nodiscard]] Affine readTransform(std::string_view text);
/// #rgb, #rrggbb, rgb() and the customary names.
[[nodiscard]] std::optional<Color> readColor(std::string_view text);
/// Up to the first fault, as SVG has it.
[[nodiscard]] Path readPathData(std::string_view text);

} // namespace inin::viewer
