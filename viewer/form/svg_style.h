#pragma once

#include "viewer/form/form_document.h"
#include "viewer/form/xml_reader.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

struct StyleDeclaration;

/// Receives a sentence about a feature that is not drawn as the file defines it.
using NoticeHandler = std::function<void(std::string)>;

/// The inherited properties of an element. Lengths are in the element's user units.
struct SvgStyle {
    std::optional<Color> fill = Color{};
    std::optional<Color> stroke;
    double fillOpacity = 1, strokeOpacity = 1, opacity = 1;
    double strokeWidth = 1;
    std::vector<double> dashes;
    LineCap cap = LineCap::butt;
    LineJoin join = LineJoin::miter;
    bool evenOdd = false;
    bool isHidden = false;
    std::string family = "serif";
    double fontSize = 16;
    double spacing = 0;
    bool isBold = false;
    Anchor anchor = Anchor::start;
    WritingMode writing = WritingMode::horizontal;
    TextOrientation orientation = TextOrientation::mixed;
    bool keepsBlanks = false;
    bool flowsInShape = false;      ///< the drawing program breaks the text into lines inside a shape
    std::size_t combinedDigits = 0; ///< so many digits of vertical text share one cell

    /// Applies an element's attributes, its style sheet declarations (the weakest first) and its `style` attribute. The
    /// strongest value of each property wins.
    void apply(const XmlAttributes &attributes, const std::vector<const StyleDeclaration *> &sheet,
               const NoticeHandler &report);
    /// True for a property that is supported, or reported as unsupported.
    [[nodiscard]] static bool knows(std::string_view name);
    /// Colours on white paper: transparent colours are mixed with white.
    [[nodiscard]] std::optional<Color> fillOnPaper() const;
    [[nodiscard]] std::optional<Color> strokeOnPaper() const;

private:
    void set(std::string_view name, const std::string &value, const NoticeHandler &report);
};

} // namespace inin::viewer
