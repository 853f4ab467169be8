#include "viewer/form/svg_style.h"

#include "runtime/text.h"
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
    {"writing-mode", "lr-tb horizontal-tb lr", "縦書き"},
    {"clip-path", "none", "切り抜き"},
    {"mask", "none", "マスク"},
    {"filter", "none", "フィルター"},
    {"marker-start", "none", "矢印などのマーカー"},
    {"marker-end", "none", "矢印などのマーカー"},
    {"text-decoration", "none", "文字の下線など"},
};

} // namespace

void SvgStyle::set(std::string_view name, std::string_view raw, const Notice &tell)
{
    const std::string value = trim(raw);
    if (name == "fill")
        setPaint(fill, value, tell);
    else if (name == "stroke")
        setPaint(stroke, value, tell);
    else if (name == "fill-opacity")
        setShare(fillOpacity, value);
    else if (name == "stroke-opacity")
        setShare(strokeOpacity, value);
    else if (name == "stroke-width")
        setLength(strokeWidth, value, fontSize);
    else if (name == "stroke-dasharray")
        dashes = dashesOf(value);
    else if (name == "stroke-linecap")
        choose(kCaps, value, cap);
    else if (name == "stroke-linejoin")
        choose(kJoins, value, join);
    else if (name == "fill-rule")
        evenOdd = value == "evenodd";
    else if (name == "display")
        isHidden = isHidden || value == "none";
    else if (name == "visibility")
        isHidden = isHidden || value == "hidden" || value == "collapse";
    else if (name == "font-family")
        family = firstFamily(value);
    else if (name == "font-size")
        fontSize = readLength(value, fontSize, fontSize).value_or(fontSize);
    else if (name == "font-weight")
        isBold = value == "inherit" ? isBold : isBoldWeight(value);
    else if (name == "letter-spacing")
        setLength(spacing, value == "normal" ? "0" : value, fontSize);
    else if (name == "text-anchor")
        choose(kAnchors, value, anchor);
    else if (name == "xml:space")
        keepsBlanks = value == "preserve";
    else if (name == "white-space")
        keepsBlanks = value.starts_with("pre");
    const auto *const lacking = std::ranges::find(kUnsupported, name, &Unsupported::name);
    if (lacking != std::end(kUnsupported) && lacking->atRest.find(value) == std::string_view::npos)
        tell(fmt::format("{}（{}）には対応していません。", lacking->what, name));
}

void SvgStyle::apply(const XmlAttributes &attributes, const Notice &tell)
{
    double own = 1;
    const auto take = [&](std::string_view name, std::string_view value) {
        // The opacity of a group and of what is in it multiply.
        if (name == "opacity")
            setShare(own, trim(value));
        else
            set(name, value, tell);
    };
    // Lengths in em need the size first.
    if (const auto size = attributes.find("font-size")) take("font-size", *size);
    for (const auto &[name, value] : attributes.all())
        if (name != "style" && name != "font-size") take(name, value);
    std::string_view style = attributes.get("style");
    while (!style.empty()) {
        const std::string_view rule = style.substr(0, style.find(';'));
        style.remove_prefix(std::min(rule.size() + 1, style.size()));
        const std::size_t colon = rule.find(':');
        if (colon != std::string_view::npos) take(trim(rule.substr(0, colon)), rule.substr(colon + 1));
    }
    opacity *= own;
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
