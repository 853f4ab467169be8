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

/// Told a sentence about something that is not drawn as the file has it.
using Notice = std::function<void(std::string)>;

/// What an element takes over from the elements around it, lengths in the units of its own place.
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
    WritingMode writing = WritingMode::across;
    Upright upright = Upright::asUsual;
    bool keepsBlanks = false;

    /// Takes in an element's own attributes, what a style sheet says of it (the weakest first), and its `style`; of two
    /// values for one property the stronger counts.
    void apply(const XmlAttributes &attributes, const std::vector<const StyleDeclaration *> &sheet, const Notice &tell);
    /// True for a property that is understood, or whose absence is told.
    [[nodiscard]] static bool knows(std::string_view name);
    /// Colours on white paper: what is half transparent is mixed with white.
    [[nodiscard]] std::optional<Color> fillOnPaper() const;
    [[nodiscard]] std::optional<Color> strokeOnPaper() const;

private:
    void set(std::string_view name, const std::string &value, const Notice &tell);
};

} // namespace inin::viewer
