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
/// On which end of a box the lines stand; in a text that runs down, top is the side where its lines begin.
enum class Vertical { top, middle, bottom };
/// How a text runs: across with lines downwards, or down with lines to one side.
enum class WritingMode { across, downToLeft, downToRight };
/// Which letters of a text that runs down stand upright; the others lie on their right side.
enum class Upright { asUsual, all, none };

/// The box that a text must stay in, and what may happen to it before it counts as too long: first it is tightened
/// (its letters made narrower), then broken into lines, then made smaller.
struct FitRule {
    Box box;
    Vertical vertical = Vertical::middle;
    int lines = 1;
    double leading = 1.25;  ///< from line to line, in sizes
    double narrowest = 0.8; ///< the least width of a letter, as a part of its own
    double smallest = 0;    ///< the least size in points
};

struct TextCommand {
    std::string id;
    std::vector<TextPiece> pieces;
    std::string family;
    double size = 10;
    bool isBold = false;
    Color color;
    double spacing = 0; ///< added behind each letter
    Anchor anchor = Anchor::start;
    WritingMode writing = WritingMode::across;
    Upright upright = Upright::asUsual;
    /// From the text's own place (baseline, or the middle of what runs down, at 0, 0, in points) to the page.
    Affine at;
    std::optional<FitRule> fit;
    [[nodiscard]] bool isField() const;
};

using DrawCommand = std::variant<PathCommand, TextCommand>;

/// A form, read once: what to draw, in order. Texts with fields are drawn above everything else.
struct FormDocument {
    double width = 0, height = 0; ///< of the page
    std::vector<DrawCommand> commands;
    /// A sentence for each thing in the file that is not drawn.
    std::vector<std::string> notices;
};

} // namespace inin::viewer
