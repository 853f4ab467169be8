#pragma once

#include "viewer/form/geometry.h"
#include "viewer/form/placeholder.h"
#include "viewer/form/show_rule.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <set>
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

/// The page of a drawing command, and when it is drawn.
struct CommandPlace {
    std::size_t page = 0;
    std::size_t rule = 0; ///< number of a show rule, counted from 1; 0 if it is always drawn
};

struct PathCommand {
    Path path;
    std::optional<Color> fill;
    bool evenOdd = false;
    std::optional<Stroke> stroke;
    CommandPlace place = {};
};

struct Picture;

struct PictureCommand {
    std::shared_ptr<const Picture> picture; ///< shared by all commands that show it
    Affine at;                              ///< from the unit square, y downwards, to the page
    CommandPlace place = {};
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
    std::size_t combinedDigits = 0; ///< up to so many half-width digits of vertical text share one cell (縦中横)
    /// From text space (points; the origin is on the baseline, or on the centre line of vertical text) to the page.
    Affine at;
    std::optional<FitRule> fit;
    bool dropsEmptyLines = false; ///< lines whose fields are all blank are left out
    CommandPlace place = {};
    [[nodiscard]] bool isField() const;
};

/// The beginning of a form's text in quotes, for a message: 「電話 {{会社電話番号}}」.
[[nodiscard]] std::string quotedName(const TextCommand &text);

/// Where a letter's code is painted as a QR code, quiet zone included.
struct CodeCommand {
    Box box;
    CommandPlace place = {};
};

using DrawCommand = std::variant<PathCommand, TextCommand, PictureCommand>;
[[nodiscard]] const CommandPlace &placeOf(const DrawCommand &command);
[[nodiscard]] CommandPlace &placeOf(DrawCommand &command);

/// The paper of a form when its script names A4, which the suite writes for every run without a chosen paper: by default a page of
/// another standard size is printed on paper of that size, and any other page on the script's paper. A form may ask for paper
/// of its own size in any case, or always for the script's.
enum class FormPaper { standard, own, script };

/// A form as a list of drawing commands in order. Commands with fields or show rules are drawn on top of everything else.
struct FormDocument {
    std::string title;            ///< the document's own title; may be empty
    double width = 0, height = 0; ///< of the first page
    std::vector<Point> morePages; ///< the widths and heights of the further pages of each letter
    std::vector<DrawCommand> commands;
    std::vector<CodeCommand> codes;
    std::vector<ShowRule> rules;
    FormPaper paper = FormPaper::standard;
    /// A sentence for each feature of the file that is not drawn.
    std::vector<std::string> notices;
    /// A sentence to show when the form is filled for a single letter; empty for none.
    std::string singleNotice;

    [[nodiscard]] std::size_t pageCount() const { return 1 + morePages.size(); }
    /// Width and height of a page.
    [[nodiscard]] Point pageSize(std::size_t page) const
    {
        return page == 0 ? Point{width, height} : morePages[page - 1];
    }
};

/// The columns that the fields and show rules of a form name.
[[nodiscard]] std::set<std::string> namedColumns(const FormDocument &form);

/// The fallback for a form that cannot be read: `heading` and a table of column names and values.
[[nodiscard]] FormDocument listingForm(const std::vector<std::string> &columns, const std::string &heading);

} // namespace inin::viewer
