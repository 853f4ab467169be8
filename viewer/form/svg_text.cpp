#include "viewer/form/svg_text.h"

#include "runtime/runtime_error.h"
#include "runtime/text.h"
#include "viewer/form/svg_values.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace inin::viewer {

namespace {

constexpr std::string_view kDataPrefix = "data-";
constexpr std::string_view kDataNames[] = {"box",    "lines",   "leading", "narrowest", "min-size",
                                           "valign", "padding", "if",      "unless",    "empty-lines"};
constexpr double kSmallestShare = 0.6; ///< of the size, when the form has no data-min-size
constexpr int kMaxLines = 200;

double numberOf(std::string_view text, double otherwise, double least, double most)
{
    return std::clamp(readLength(text).value_or(otherwise), least, most);
}

/// The first of a list of positions. Positions of single characters are ignored.
std::optional<double> firstOf(const XmlAttributes &attributes, std::string_view name, double em)
{
    const auto text = attributes.find(name);
    if (!text) return std::nullopt;
    return readLength(text->substr(0, text->find_first_of(" ,")), em);
}

bool isAsciiBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

/// The default white space rule of SVG: removes line ends, collapses runs and trims. U+3000 is not white space.
std::string collapsed(std::string_view text)
{
    std::string out;
    for (const char c : text) {
        if (c == '\n' || c == '\r') continue;
        const bool blank = isAsciiBlank(c);
        if (blank && (out.empty() || out.back() == ' ')) continue;
        out += blank ? ' ' : c;
    }
    while (out.ends_with(' ')) out.pop_back();
    return out;
}

bool isBlank(std::string_view text)
{
    return std::ranges::all_of(text, isAsciiBlank);
}

bool hasSameTextStyle(const SvgStyle &a, const SvgStyle &b)
{
    return a.family == b.family && a.fontSize == b.fontSize && a.spacing == b.spacing && a.isBold == b.isBold &&
           a.orientation == b.orientation && a.fillOnPaper() == b.fillOnPaper();
}

/// Whether a text is clearly outside its box, which decides where it is printed.
bool isOutside(const TextCommand &text, const Box &box)
{
    const Point at = text.at({});
    return at.x < box.left - text.size || at.x > box.right() + text.size || at.y < box.top - text.size ||
           at.y > box.bottom() + text.size;
}

} // namespace

void SvgText::readDataAttributes(const XmlAttributes &attributes)
{
    for (const auto &[name, value] : attributes.all()) {
        if (!name.starts_with(kDataPrefix)) continue;
        const std::string_view own = std::string_view(name).substr(kDataPrefix.size());
        if (std::ranges::find(kDataNames, own) == std::end(kDataNames))
            m_report(fmt::format("属性「{}」には対応していません。", name));
        else
            m_dataAttributes.insert_or_assign(std::string(own), std::string(value));
    }
}

void SvgText::open(const XmlAttributes &attributes, const Affine &transform, const SvgStyle &style, CommandPlace place,
                   NoticeHandler report)
{
    m_isOpen = true;
    m_isPlaced = attributes.find("x").has_value() && attributes.find("y").has_value();
    m_id = attributes.get("id");
    m_transform = transform;
    m_place = place;
    m_dataAttributes.clear();
    m_report = std::move(report);
    readDataAttributes(attributes);
    const double x = firstOf(attributes, "x", style.fontSize).value_or(0);
    const double y = firstOf(attributes, "y", style.fontSize).value_or(0);
    m_lines = {{x + firstOf(attributes, "dx", style.fontSize).value_or(0),
                y + firstOf(attributes, "dy", style.fontSize).value_or(0),
                {}}};
}

void SvgText::openSpan(const XmlAttributes &attributes, const SvgStyle &style)
{
    if (!m_isOpen) return;
    readDataAttributes(attributes);
    const auto x = firstOf(attributes, "x", style.fontSize), y = firstOf(attributes, "y", style.fontSize);
    const bool isVertical = style.writing != WritingMode::horizontal;
    const auto offset = firstOf(attributes, isVertical ? "dx" : "dy", style.fontSize);
    if (!x && !y && !offset) return;
    const Line &first = m_lines.front(), &last = m_lines.back();
    // A line without a position in its own direction begins where the text begins. The end of the previous line is not
    // known before its fields are filled.
    if (isVertical)
        m_lines.push_back({x.value_or(last.x) + offset.value_or(0), y.value_or(first.y), {}});
    else
        m_lines.push_back({x.value_or(first.x), y.value_or(last.y) + offset.value_or(0), {}});
}

void SvgText::add(std::string_view text, const SvgStyle &style)
{
    if (!m_isOpen || style.isHidden) return;
    // Blanks between two spans with positions are indentation of the file.
    if (m_lines.back().parts.empty() && isBlank(text)) return;
    std::vector<Part> &parts = m_lines.back().parts;
    if (!parts.empty() && hasSameTextStyle(parts.back().style, style))
        parts.back().text += text;
    else
        parts.push_back({std::string(text), style});
}

std::string SvgText::textOf(const Line &line) const
{
    std::string whole;
    for (const Part &part : line.parts) whole += part.text;
    if (!line.parts.front().style.keepsBlanks) return collapsed(whole);
    // Where blanks are preserved, line ends at the very end still belong to the file.
    while (!whole.empty() && (whole.back() == '\n' || whole.back() == '\r')) whole.pop_back();
    std::ranges::replace_if(
        whole, [](char c) { return c == '\n' || c == '\r' || c == '\t'; }, ' ');
    return whole;
}

FitRule SvgText::readFit(const SvgStyle &style) const
{
    const auto attribute = [&](std::string_view name) {
        const auto found = m_dataAttributes.find(name);
        return found == m_dataAttributes.end() ? std::string_view() : std::string_view(found->second);
    };
    FitRule fit;
    fit.lines = static_cast<int>(numberOf(attribute("lines"), 1, 1, kMaxLines));
    fit.leading = numberOf(attribute("leading"), fit.leading, 0.5, 5);
    fit.narrowest = numberOf(attribute("narrowest"), fit.narrowest, 0.3, 1);
    const double smallest = readLength(attribute("min-size")).value_or(style.fontSize * kSmallestShare);
    // With a limit of 0, shrinking would never end.
    fit.smallest = m_transform.scale() * std::clamp(smallest, style.fontSize / 20, style.fontSize);
    if (attribute("valign") == "top") fit.verticalAlignment = VerticalAlignment::top;
    if (attribute("valign") == "bottom") fit.verticalAlignment = VerticalAlignment::bottom;
    return fit;
}

void SvgText::reportSurprises(const TextCommand &command, const SvgStyle &style) const
{
    const auto hasWideBraces = [](const TextPiece &piece) {
        return piece.literal.find("｛｛") != std::string::npos || piece.literal.find("｝｝") != std::string::npos;
    };
    if (std::ranges::any_of(command.pieces, hasWideBraces))
        m_report(
            fmt::format("文字{}の全角の波かっこは、差し込みになりません。半角で書いてください。", quotedName(command)));
    if (style.flowsInShape && command.isField())
        m_report(fmt::format(
            "文字{}は流し込み枠（shape-inside）の中にありますが、値に合わせて折り返しません。枠は data-box で"
            "指定してください。",
            quotedName(command)));
}

void SvgText::addCommand(FormDocument &form, const Line &line, const std::string &text)
{
    const SvgStyle &style = line.parts.front().style;
    const auto color = style.fillOnPaper();
    const double scale = m_transform.scale();
    const double size = style.fontSize * scale;
    if (!color || text.empty() || !(size > 0)) return;
    const Point start = m_transform({line.x, line.y});
    if (!isDrawable({start.x, start.y, size, size})) {
        m_report("ページから遠く離れた文字や大きすぎる文字は表示しません。");
        return;
    }
    TextCommand command;
    command.id = m_id;
    command.pieces = readPieces(text);
    command.family = style.family;
    command.size = size;
    command.isBold = style.isBold;
    command.color = *color;
    command.spacing = style.spacing * scale;
    command.anchor = style.anchor;
    command.writing = style.writing;
    command.orientation = style.orientation;
    command.combinedDigits = style.combinedDigits;
    command.place = m_place;
    command.at = m_transform * Affine{1 / scale, 0, 0, 1 / scale, line.x, line.y};
    const auto emptyLines = m_dataAttributes.find("empty-lines");
    command.dropsEmptyLines = emptyLines != m_dataAttributes.end() && emptyLines->second == "drop";
    const auto box = m_dataAttributes.find("box");
    if (box != m_dataAttributes.end()) {
        command.fit = readFit(style);
        const auto padding = m_dataAttributes.find("padding");
        m_boxReferences.push_back(
            {form.commands.size(), m_isPlaced, box->second,
             scale * numberOf(padding == m_dataAttributes.end() ? "" : padding->second, 0, 0, 1000)});
    }
    reportSurprises(command, style);
    form.commands.emplace_back(std::move(command));
}

void SvgText::close(FormDocument &form)
{
    m_isOpen = false;
    std::erase_if(m_lines, [](const Line &line) { return line.parts.empty(); });
    if (m_lines.empty()) return;
    for (const Line &line : m_lines)
        if (line.parts.size() > 1)
            m_report("一行の中でフォントや大きさや色が変わる文字は、行の始まりの書式で表示します。");
    if (!m_dataAttributes.contains("box")) {
        if (m_dataAttributes.contains("empty-lines"))
            m_report("空の行を詰める指定（data-empty-lines）は、枠（data-box）のある文字だけで使えます。");
        for (const Line &line : m_lines) addCommand(form, line, textOf(line));
        return;
    }
    // In a box, the lines are one text with line ends.
    std::string whole;
    for (const Line &line : m_lines) whole += (whole.empty() ? "" : "\n") + textOf(line);
    addCommand(form, m_lines.front(), whole);
}

void SvgText::resolveBoxes(const std::map<std::string, Box, std::less<>> &boxes, FormDocument &form) const
{
    for (const BoxReference &reference : m_boxReferences) {
        const auto found = boxes.find(reference.box);
        if (found == boxes.end())
            throw RuntimeError(error_number::invalidCall,
                               fmt::format("枠「{}」（data-box）がありません。", reference.box));
        auto &command = std::get<TextCommand>(form.commands[reference.command]);
        Box box = found->second;
        if (reference.isPlaced && isOutside(command, box))
            m_report(fmt::format(
                "文字{}は枠「{}」の外にありますが、枠の中に印刷します。印刷する場所は、枠を動かして変えます。",
                quotedName(command), reference.box));
        const double padding = std::min(reference.padding, std::min(box.width, box.height) / 2);
        box = {box.left + padding, box.top + padding, box.width - 2 * padding, box.height - 2 * padding};
        command.fit->box = box;
    }
}

} // namespace inin::viewer
