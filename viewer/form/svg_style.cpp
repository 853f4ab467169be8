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

template <class Value> struct Word {
    std::string_view name;
    Value value;
};
constexpr Word<LineCap> kCaps[] = {{"butt", LineCap::butt}, {"round", LineCap::round}, {"square", LineCap::square}};
constexpr Word<LineJoin> kJoins[] = {
    {"miter", LineJoin::miter}, {"round", LineJoin::round}, {"bevel", LineJoin::bevel}};
constexpr Word<Anchor> kAnchors[] = {{"start", Anchor::start}, {"middle", Anchor::middle}, {"end", Anchor::end}};

template <class Value, std::size_t N> void choose(const Word<Value> (&words)[N], std::string_view name, Value &place)
{
    const auto *const found = std::ranges::find(words, name, &Word<Value>::name);
    if (found != std::end(words)) place = found->value;
}

void setLength(double &place, std::string_view value, double em)
{
    if (const auto length = readLength(value, em)) place = *length;
}

void setShare(double &place, std::string_view value)
{
    if (const auto share = readLength(value, 16, 1)) place = std::clamp(*share, 0.0, 1.0);
}

void setPaint(std::optional<Color> &place, std::string_view value, const Notice &tell)
{
    if (value == "none" || value == "transparent") {
        place.reset();
    } else if (const auto color = readColor(value)) {
        place = color;
    } else if (value != "inherit") {
        tell(fmt::format("色「{}」は使えません。", value));
    }
}

std::string firstFamily(std::string_view value)
{
    std::string family = trim(value.substr(0, value.find(',')));
    std::erase_if(family, [](char c) { return c == '\'' || c == '"'; });
    return family;
}

/// There is one bold; whatever is nearer to it than to the ordinary is it.
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

std::optional<Color> onPaper(const std::optional<Color> &color, double opacity)
{
    if (!color || opacity <= 0) return std::nullopt;
    const auto mixed = [&](std::uint8_t part) {
        return static_cast<std::uint8_t>(std::lround(255 + (part - 255) * opacity));
    };
    return Color{mixed(color->red), mixed(color->green), mixed(color->blue)};
}

/// What has no counterpart here, when it is not at rest.
struct Unsupported {
    std::string_view name;
    std::string_view atRest;
    std::string_view what;
};
constexpr Unsupported kUnsupported[] = {
    {"clip-path", "none", "切り抜き"},
    {"mask", "none", "マスク"},
    {"filter", "none", "フィルター"},
    {"marker-start", "none", "矢印などのマーカー"},
    {"marker-end", "none", "矢印などのマーカー"},
    {"text-decoration", "none", "文字の下線など"},
    {"text-combine-upright", "none", "縦中横"},
};

constexpr Word<WritingMode> kWritings[] = {{"lr", WritingMode::across},
                                           {"lr-tb", WritingMode::across},
                                           {"horizontal-tb", WritingMode::across},
                                           {"rl", WritingMode::across},
                                           {"rl-tb", WritingMode::across},
                                           {"tb", WritingMode::downToLeft},
                                           {"tb-rl", WritingMode::downToLeft},
                                           {"vertical-rl", WritingMode::downToLeft},
                                           {"tb-lr", WritingMode::downToRight},
                                           {"vertical-lr", WritingMode::downToRight}};
constexpr Word<Upright> kUprights[] = {
    {"mixed", Upright::asUsual}, {"auto", Upright::asUsual},  {"upright", Upright::all},         {"0", Upright::all},
    {"0deg", Upright::all},      {"sideways", Upright::none}, {"sideways-right", Upright::none}, {"90", Upright::none},
    {"90deg", Upright::none}};

struct Property {
    std::string_view name;
    void (*set)(SvgStyle &style, const std::string &value, const Notice &tell);
};
const Property kProperties[] = {
    {"fill", [](SvgStyle &s, const std::string &v, const Notice &tell) { setPaint(s.fill, v, tell); }},
    {"stroke", [](SvgStyle &s, const std::string &v, const Notice &tell) { setPaint(s.stroke, v, tell); }},
    {"fill-opacity", [](SvgStyle &s, const std::string &v, const Notice &) { setShare(s.fillOpacity, v); }},
    {"stroke-opacity", [](SvgStyle &s, const std::string &v, const Notice &) { setShare(s.strokeOpacity, v); }},
    {"stroke-width",
     [](SvgStyle &s, const std::string &v, const Notice &) { setLength(s.strokeWidth, v, s.fontSize); }},
    {"stroke-dasharray", [](SvgStyle &s, const std::string &v, const Notice &) { s.dashes = dashesOf(v); }},
    {"stroke-linecap", [](SvgStyle &s, const std::string &v, const Notice &) { choose(kCaps, v, s.cap); }},
    {"stroke-linejoin", [](SvgStyle &s, const std::string &v, const Notice &) { choose(kJoins, v, s.join); }},
    {"fill-rule", [](SvgStyle &s, const std::string &v, const Notice &) { s.evenOdd = v == "evenodd"; }},
    {"display", [](SvgStyle &s, const std::string &v, const Notice &) { s.isHidden = s.isHidden || v == "none"; }},
    {"visibility", [](SvgStyle &s, const std::string &v,
                      const Notice &) { s.isHidden = s.isHidden || v == "hidden" || v == "collapse"; }},
    {"font-family", [](SvgStyle &s, const std::string &v, const Notice &) { s.family = firstFamily(v); }},
    {"font-size", [](SvgStyle &s, const std::string &v,
                     const Notice &) { s.fontSize = readLength(v, s.fontSize, s.fontSize).value_or(s.fontSize); }},
    {"font-weight",
     [](SvgStyle &s, const std::string &v, const Notice &) { s.isBold = v == "inherit" ? s.isBold : isBoldWeight(v); }},
    {"letter-spacing", [](SvgStyle &s, const std::string &v,
                          const Notice &) { setLength(s.spacing, v == "normal" ? "0" : v, s.fontSize); }},
    {"text-anchor", [](SvgStyle &s, const std::string &v, const Notice &) { choose(kAnchors, v, s.anchor); }},
    {"writing-mode", [](SvgStyle &s, const std::string &v, const Notice &) { choose(kWritings, v, s.writing); }},
    {"text-orientation", [](SvgStyle &s, const std::string &v, const Notice &) { choose(kUprights, v, s.upright); }},
    {"glyph-orientation-vertical",
     [](SvgStyle &s, const std::string &v, const Notice &) { choose(kUprights, v, s.upright); }},
    {"xml:space", [](SvgStyle &s, const std::string &v, const Notice &) { s.keepsBlanks = v == "preserve"; }},
    {"white-space", [](SvgStyle &s, const std::string &v, const Notice &) { s.keepsBlanks = v.starts_with("pre"); }},
};

constexpr std::string_view kOpacity = "opacity", kFontSize = "font-size";

/// Every property once, with its strongest value.
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

void SvgStyle::set(std::string_view name, const std::string &value, const Notice &tell)
{
    const auto *const property = std::ranges::find(kProperties, name, &Property::name);
    if (property != std::end(kProperties)) property->set(*this, value, tell);
    const auto *const lacking = std::ranges::find(kUnsupported, name, &Unsupported::name);
    if (lacking != std::end(kUnsupported) && lacking->atRest.find(value) == std::string_view::npos)
        tell(fmt::format("{}（{}）には対応していません。", lacking->what, name));
}

void SvgStyle::apply(const XmlAttributes &attributes, const std::vector<const StyleDeclaration *> &sheet,
                     const Notice &tell)
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
    // Lengths in em need the size first.
    std::stable_partition(cascade.values().begin(), cascade.values().end(),
                          [](const Cascade::Value &each) { return each.name == kFontSize; });
    for (const auto &[name, value] : cascade.values()) {
        if (name != kOpacity) {
            set(name, trim(value), tell);
            continue;
        }
        // The opacity of a group and of what is in it multiply.
        double ownOpacity = 1;
        setShare(ownOpacity, trim(value));
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
