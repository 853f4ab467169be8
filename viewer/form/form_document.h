#pragma once

#include "viewer/form/geometry.h"
#include "viewer/form/placeholder.h"

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace inin::viewer {

struct Color {
    std::uint8_t red = 0, green = 0, blue = 0;
    friend bool operator==(const Color &, const Color &) = default;
};

enum class LineCap { butt, round, square };
enum class LineJoin { miter, round, bevel };

struct Stroke {
    Color color;
    double width = 1;
    std::vector<double> dashes; ///< lengths on and off; empty for a solid line
    LineCap cap = LineCap::butt;
    LineJoin join = LineJoin::miter;
};

struct PathCommand {
    Path path;
    std::optional<Color> fill;
    bool evenOdd = false;
    std::optional<Stroke> stroke;
};

enum class Anchor { start, middle, end };
/// Where the lines are in a box. In vertical text, top is the side of the first line.
enum class VerticalAlignment { top, middle, bottom };
/// The CSS writing modes horizontal-tb, vertical-rl and vertical-lr.
enum class WritingMode { horizontal, verticalRl, verticalLr };
/// The CSS property text-orientation: which characters of vertical text are upright and which are rotated clockwise.
enum class TextOrientation { mixed, upright, sideways };

/// The box of a text, and how far the text may be changed to fit: first its characters are made narrower, then it is
/// broken into lines, then its size is reduced.
struct FitRule {
    Box box;
    VerticalAlignment verticalAlignment = VerticalAlignment::middle;
    int lines = 1;
    double leading = 1.25;  ///< distance of the baselines, as a factor of the size
    double narrowest = 0.8; ///< the smallest horizontal scale of a character
    double smallest = 0;    ///< the smallest size in points
};

struct TextCommand {
    std::string id;
    std::vector<TextPiece> pieces;
    std::string family;
    double size = 10;
    bool isBold = false;
    Color color;
    double spacing = 0; ///< added after each character
    Anchor anchor = Anchor::start;
    WritingMode writing = WritingMode::horizontal;
    TextOrientation orientation = TextOrientation::mixed;
    /// From text space (points; the origin is on the baseline, or on the centre line of vertical text) to the page.
    Affine at;
    std::optional<FitRule> fit;
    [[nodiscard]] bool isField() const;
};

/// Where a letter's code is painted as a QR code, quiet zone included.
struct CodeCommand {
    Box box;
};

using DrawCommand = std::variant<PathCommand, TextCommand>;

/// A form as a list of drawing commands in order. Texts with fields are drawn on top of everything else.
struct FormDocument {
    std::string title;            ///< the document's own title; may be empty
    double width = 0, height = 0; ///< of the page
    std::vector<DrawCommand> commands;
    std::vector<CodeCommand> codes;
    /// A sentence for each feature of the file that is not drawn.
    std::vector<std::string> notices;
    /// A sentence to show when the form is filled for a single letter; empty for none.
    std::string singleNotice;
};

/// The fallback for a form that cannot be read: `heading` and a table of column names and values.
[[nodiscard]] FormDocument listingForm(const std::vector<std::string> &columns, const std::string &heading);

} // namespace inin::viewer
