#include "viewer/form/svg_style.h"

#include "runtime/text.h"
#include "viewer/form/svg_style_sheet.h"
#include "viewer/form/svg_values.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace inin::viewer {

namespace {

template <class Value> struct Keyword {
    std::string_view name;
    Value value;
};
constexpr Keyword<LineCap> kCaps[] = {{"butt", LineCap::butt}, {"round", LineCap::round}, {"square", LineCap::square}};
constexpr Keyword<LineJoin> kJoins[] = {
    {"miter", LineJoin::miter}, {"round", LineJoin::round}, {"bevel", LineJoin::bevel}};
constexpr Keyword<Anchor> kAnchors[] = {{"start", Anchor::start}, {"middle", Anchor::middle}, {"end", Anchor::end}};

template <class Value, std::size_t N>
void setKeyword(const Keyword<Value> (&words)[N], std::string_view name, Value &place)
{
    const auto *const found = std::ranges::find(words, name, &Keyword<Value>::name);
    if (found != std::end(words)) place = found->value;
}

void setLength(double &place, std::string_view value, double em)
{
    if (const auto length = readLength(value, em)) place = *length;
}

void setOpacity(double &place, std::string_view value)
{
    if (const auto share = readLength(value, 16, 1)) place = std::clamp(*share, 0.0, 1.0);
}

void setPaint(std::optional<Color> &place, std::string_view value, const NoticeHandler &report)
{
    if (value == "none" || value == "transparent") {
        place.reset();
    } else if (const auto color = readColor(value)) {
        place = color;
    } else if (value != "inherit") {
        report(fmt::format("色「{}」は使えません。", value));
    }
}

std::string firstFamily(std::string_view value)
{
    std::string family = trim(value.substr(0, value.find(',')));
    std::erase_if(family, [](char c) { return c == '\'' || c == '"'; });
    return family;
}

/// There is one bold weight, used for all weights from semi-bold on.
bool isBoldWeight(std::string_view value)
{
    constexpr double kSemiBold = 600;
    return value == "bold" || value == "bolder" || readLength(value).value_or(0) >= kSemiBold;
}

std::vector<double> dashesOf(std::string_view value)
{
    std::vector<double> dashes = readNumbers(value);
    const bool isUsable = std::ranges::all_of(dashes, [](double length) { return length >= 0; }) &&
                          std::ranges::any_of(dashes, [](double length) { return length > 0; });
    if (!isUsable) return {};
    if (dashes.size() % 2 == 1) dashes.insert(dashes.end(), dashes.begin(), dashes.end());
    return dashes;
}

/// The digits that share a cell: "digits 3", "digits" for two, "all" for the most.
std::size_t combinedDigitsOf(std::string_view value)
{
    constexpr std::string_view kDigits = "digits";
    constexpr double kUsual = 2, kMost = 4;
    if (value == "all") return static_cast<std::size_t>(kMost);
    if (!value.starts_with(kDigits)) return 0;
    return static_cast<std::size_t>(
        std::clamp(readLength(value.substr(kDigits.size())).value_or(kUsual), kUsual, kMost));
}

std::optional<Color> onPaper(const std::optional<Color> &color, double opacity)
{
    if (!color || opacity <= 0) return std::nullopt;
    const auto mixed = [&](std::uint8_t part) {
        return static_cast<std::uint8_t>(std::lround(255 + (part - 255) * opacity));
    };
    return Color{mixed(color->red), mixed(color->green), mixed(color->blue)};
}

/// A property that is reported when it does not have its initial value.
struct Unsupported {
    std::string_view name;
    std::string_view initialValue;
    std::string_view description;
};
constexpr Unsupported kUnsupported[] = {
    {"clip-path", "none", "切り抜き"},
    {"mask", "none", "マスク"},
    {"filter", "none", "フィルター"},
    {"marker-start", "none", "矢印などのマーカー"},
    {"marker-end", "none", "矢印などのマーカー"},
    {"text-decoration", "none", "文字の下線など"},
};

using enum WritingMode;
using enum TextOrientation;
constexpr Keyword<WritingMode> kWritingModes[] = {
    {"lr", horizontal},    {"lr-tb", horizontal},      {"horizontal-tb", horizontal}, {"rl", horizontal},
    {"rl-tb", horizontal}, {"tb", verticalRl},         {"tb-rl", verticalRl},         {"vertical-rl", verticalRl},
    {"tb-lr", verticalLr}, {"vertical-lr", verticalLr}};
constexpr Keyword<TextOrientation> kOrientations[] = {
    {"mixed", mixed},   {"auto", mixed},        {"upright", upright},         {"0", upright},
    {"0deg", upright},  {"sideways", sideways}, {"sideways-right", sideways}, {"90", sideways},
    {"90deg", sideways}};

struct Property {
    std::string_view name;
    void (*set)(SvgStyle &style, const std::string &value, const NoticeHandler &report);
};
const Property kProperties[] = {
    {"fill", [](SvgStyle &s, const std::string &v, auto &report) { setPaint(s.fill, v, report); }},
    {"stroke", [](SvgStyle &s, const std::string &v, auto &report) { setPaint(s.stroke, v, report); }},
    {"fill-opacity", [](SvgStyle &s, const std::string &v, auto &) { setOpacity(s.fillOpacity, v); }},
    {"stroke-opacity", [](SvgStyle &s, const std::string &v, auto &) { setOpacity(s.strokeOpacity, v); }},
    {"stroke-width", [](SvgStyle &s, const std::string &v, auto &) { setLength(s.strokeWidth, v, s.fontSize); }},
    {"stroke-dasharray", [](SvgStyle &s, const std::string &v, auto &) { s.dashes = dashesOf(v); }},
    {"stroke-linecap", [](SvgStyle &s, const std::string &v, auto &) { setKeyword(kCaps, v, s.cap); }},
    {"stroke-linejoin", [](SvgStyle &s, const std::string &v, auto &) { setKeyword(kJoins, v, s.join); }},
    {"fill-rule", [](SvgStyle &s, const std::string &v, auto &) { s.evenOdd = v == "evenodd"; }},
    {"display", [](SvgStyle &s, const std::string &v, auto &) { s.isHidden = s.isHidden || v == "none"; }},
    {"visibility",
     [](SvgStyle &s, const std::string &v, auto &) { s.isHidden = s.isHidden || v == "hidden" || v == "collapse"; }},
    {"font-family", [](SvgStyle &s, const std::string &v, auto &) { s.family = firstFamily(v); }},
    {"font-size", [](SvgStyle &s, const std::string &v,
                     auto &) { s.fontSize = readLength(v, s.fontSize, s.fontSize).value_or(s.fontSize); }},
    {"font-weight",
     [](SvgStyle &s, const std::string &v, auto &) { s.isBold = v == "inherit" ? s.isBold : isBoldWeight(v); }},
    {"letter-spacing",
     [](SvgStyle &s, const std::string &v, auto &) { setLength(s.spacing, v == "normal" ? "0" : v, s.fontSize); }},
    {"text-anchor", [](SvgStyle &s, const std::string &v, auto &) { setKeyword(kAnchors, v, s.anchor); }},
    {"writing-mode", [](SvgStyle &s, const std::string &v, auto &) { setKeyword(kWritingModes, v, s.writing); }},
    {"text-orientation",
     [](SvgStyle &s, const std::string &v, auto &) { setKeyword(kOrientations, v, s.orientation); }},
    {"glyph-orientation-vertical",
     [](SvgStyle &s, const std::string &v, auto &) { setKeyword(kOrientations, v, s.orientation); }},
    {"text-combine-upright", [](SvgStyle &s, const std::string &v, auto &) { s.combinedDigits = combinedDigitsOf(v); }},
    {"shape-inside", [](SvgStyle &s, const std::string &v, auto &) { s.flowsInShape = v != "none" && v != "auto"; }},
    {"xml:space", [](SvgStyle &s, const std::string &v, auto &) { s.keepsBlanks = v == "preserve"; }},
    {"white-space", [](SvgStyle &s, const std::string &v, auto &) { s.keepsBlanks = v.starts_with("pre"); }},
};

constexpr std::string_view kOpacity = "opacity", kFontSize = "font-size";

/// Each property once, with its strongest value.
class Cascade {
public:
    void put(std::string_view name, std::string_view value)
    {
        if (!SvgStyle::knows(name)) return;
        const auto found = std::ranges::find(m_values, name, &Value::name);
        if (found != m_values.end())
            found->value = value;
        else
            m_values.push_back({name, value});
    }
    struct Value {
        std::string_view name, value;
    };
    [[nodiscard]] std::vector<Value> &values() { return m_values; }

private:
    std::vector<Value> m_values;
};

} // namespace

bool SvgStyle::knows(std::string_view name)
{
    return name == kOpacity || std::ranges::find(kProperties, name, &Property::name) != std::end(kProperties) ||
           std::ranges::find(kUnsupported, name, &Unsupported::name) != std::end(kUnsupported);
}

void SvgStyle::set(std::string_view name, const std::string &value, const NoticeHandler &report)
{
    const auto *const property = std::ranges::find(kProperties, name, &Property::name);
    if (property != std::end(kProperties)) property->set(*this, value, report);
    const auto *const unsupported = std::ranges::find(kUnsupported, name, &Unsupported::name);
    if (unsupported != std::end(kUnsupported) && unsupported->initialValue.find(value) == std::string_view::npos)
        report(fmt::format("{}（{}）には対応していません。", unsupported->description, name));
}

void SvgStyle::apply(const XmlAttributes &attributes, const std::vector<const StyleDeclaration *> &sheet,
                     const NoticeHandler &report)
{
    const std::vector<StyleDeclaration> own = readDeclarations(attributes.get("style"));
    Cascade cascade;
    for (const auto &[name, value] : attributes.all()) cascade.put(name, value);
    for (const bool important : {false, true}) {
        for (const StyleDeclaration *each : sheet)
            if (each->isImportant == important) cascade.put(each->name, each->value);
        for (const StyleDeclaration &each : own)
            if (each.isImportant == important) cascade.put(each.name, each.value);
    }
    // Lengths in em depend on the font size.
    std::stable_partition(cascade.values().begin(), cascade.values().end(),
                          [](const Cascade::Value &each) { return each.name == kFontSize; });
    for (const auto &[name, value] : cascade.values()) {
        if (name != kOpacity) {
            set(name, trim(value), report);
            continue;
        }
        // The opacities of a group and of its members multiply.
        double ownOpacity = 1;
        setOpacity(ownOpacity, trim(value));
        opacity *= ownOpacity;
    }
}

std::optional<Color> SvgStyle::fillOnPaper() const
{
    return onPaper(fill, fillOpacity * opacity);
}

std::optional<Color> SvgStyle::strokeOnPaper() const
{
    return onPaper(stroke, strokeOpacity * opacity);
}

} // namespace inin::viewer
