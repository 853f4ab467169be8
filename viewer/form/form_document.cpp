#include "viewer/form/form_document.h"

#include "runtime/text.h"

#include <algorithm>

namespace inin::viewer {

namespace {

constexpr double kWidth = 210 * kPointsPerMillimetre, kHeight = 297 * kPointsPerMillimetre;
constexpr double kMargin = 18 * kPointsPerMillimetre;
constexpr double kNameWidth = 42 * kPointsPerMillimetre;
constexpr double kGap = 3 * kPointsPerMillimetre;
constexpr double kHeadingHeight = 18 * kPointsPerMillimetre;
constexpr double kTallestRow = 11.5 * kPointsPerMillimetre;
constexpr const char *kFamily = "IPAexGothic";

TextCommand boxedText(TextPiece piece, const Box &box, double size)
{
    TextCommand text;
    text.pieces = {std::move(piece)};
    text.family = kFamily;
    text.size = size;
    FitRule fit;
    fit.box = box;
    fit.lines = 3;
    fit.smallest = std::min(size, 5.0);
    text.fit = fit;
    return text;
}

PathCommand ruleAt(double y)
{
    PathCommand rule;
    rule.path = {{PathStep::Kind::move, {Point{kMargin, y}}}, {PathStep::Kind::line, {Point{kWidth - kMargin, y}}}};
    rule.stroke = Stroke{{160, 160, 160}, 0.4, {}, LineCap::butt, LineJoin::miter};
    return rule;
}

} // namespace

bool TextCommand::isField() const
{
    return std::ranges::any_of(pieces, &TextPiece::isField);
}

std::string quotedName(const TextCommand &text)
{
    constexpr std::size_t kShown = 30;
    std::string whole;
    for (const TextPiece &piece : text.pieces) whole += piece.isField() ? "{{" + piece.column + "}}" : piece.literal;
    return "「" + left(whole, kShown) + "」";
}

const CommandPlace &placeOf(const DrawCommand &command)
{
    return std::visit([](const auto &each) -> const CommandPlace & { return each.place; }, command);
}

CommandPlace &placeOf(DrawCommand &command)
{
    return std::visit([](auto &each) -> CommandPlace & { return each.place; }, command);
}

std::set<std::string> namedColumns(const FormDocument &form)
{
    std::set<std::string> columns;
    for (const DrawCommand &command : form.commands)
        if (const auto *const text = std::get_if<TextCommand>(&command))
            for (const TextPiece &piece : text->pieces)
                if (piece.isField()) columns.insert(piece.column);
    for (const ShowRule &rule : form.rules) columns.insert(rule.column);
    return columns;
}

FormDocument listingForm(const std::vector<std::string> &columns, const std::string &heading)
{
    FormDocument form;
    form.width = kWidth;
    form.height = kHeight;
    const double width = kWidth - 2 * kMargin;
    form.commands.emplace_back(boxedText({heading, {}, {}, {}}, {kMargin, kMargin, width, kHeadingHeight - kGap}, 10));
    const double room = kHeight - 2 * kMargin - kHeadingHeight;
    const double row = std::min(kTallestRow, room / static_cast<double>(std::max<std::size_t>(1, columns.size())));
    const double size = std::min(10.5, row * 0.6);
    double y = kMargin + kHeadingHeight;
    form.commands.emplace_back(ruleAt(y));
    for (const std::string &column : columns) {
        form.commands.emplace_back(boxedText({column, {}, {}, {}}, {kMargin, y, kNameWidth, row}, size));
        form.commands.emplace_back(
            boxedText({{}, column, {}, {}}, {kMargin + kNameWidth + kGap, y, width - kNameWidth - kGap, row}, size));
        form.commands.emplace_back(ruleAt(y += row));
    }
    return form;
}

} // namespace inin::viewer
