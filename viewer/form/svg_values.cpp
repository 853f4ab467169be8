#include "viewer/form/svg_values.h"

#include "runtime/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <numbers>
#include <string>
#include <utility>

namespace inin::viewer {

namespace {

constexpr std::string_view kSeparators = " \t\r\n,";

struct Unit {
    std::string_view name;
    double pixels;
};
constexpr Unit kUnits[] = {{"px", 1},           {"pt", 96.0 / 72},   {"pc", 16},
                           {"mm", 96.0 / 25.4}, {"cm", 96.0 / 2.54}, {"in", 96}};

struct NamedColor {
    std::string_view name;
    Color color;
};
constexpr NamedColor kColors[] = {
    {"black", {0, 0, 0}},           {"white", {255, 255, 255}},   {"gray", {128, 128, 128}},
    {"grey", {128, 128, 128}},      {"silver", {192, 192, 192}},  {"red", {255, 0, 0}},
    {"maroon", {128, 0, 0}},        {"green", {0, 128, 0}},       {"lime", {0, 255, 0}},
    {"blue", {0, 0, 255}},          {"navy", {0, 0, 128}},        {"yellow", {255, 255, 0}},
    {"olive", {128, 128, 0}},       {"teal", {0, 128, 128}},      {"aqua", {0, 255, 255}},
    {"purple", {128, 0, 128}},      {"fuchsia", {255, 0, 255}},   {"darkgray", {169, 169, 169}},
    {"lightgray", {211, 211, 211}}, {"dimgray", {105, 105, 105}}, {"currentcolor", {0, 0, 0}},
};

std::optional<Color> hexColor(std::string_view digits)
{
    unsigned value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    if (error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
    const auto byte = [&](unsigned shift) { return static_cast<std::uint8_t>(value >> shift & 0xFF); };
    const auto nibble = [&](unsigned shift) { return static_cast<std::uint8_t>((value >> shift & 0xF) * 0x11); };
    if (digits.size() == 6) return Color{byte(16), byte(8), byte(0)};
    if (digits.size() == 3) return Color{nibble(8), nibble(4), nibble(0)};
    return std::nullopt;
}

std::optional<Color> functionColor(std::string_view inside)
{
    NumberScan scan(inside);
    std::uint8_t parts[3] = {};
    for (std::uint8_t &part : parts) {
        const auto number = scan.number();
        if (!number) return std::nullopt;
        part = static_cast<std::uint8_t>(std::clamp(*number, 0.0, 255.0));
    }
    return Color{parts[0], parts[1], parts[2]};
}

Affine oneTransform(std::string_view name, const std::vector<double> &n)
{
    const auto at = [&](std::size_t i, double otherwise) { return i < n.size() ? n[i] : otherwise; };
    if (name == "matrix" && n.size() == 6) return {n[0], n[1], n[2], n[3], n[4], n[5]};
    if (name == "translate") return {1, 0, 0, 1, at(0, 0), at(1, 0)};
    if (name == "scale") return {at(0, 1), 0, 0, at(1, at(0, 1)), 0, 0};
    const double angle = at(0, 0) * std::numbers::pi / 180;
    if (name == "skewX") return {1, 0, std::tan(angle), 1, 0, 0};
    if (name == "skewY") return {1, std::tan(angle), 0, 1, 0, 0};
    if (name != "rotate") return {};
    const double cosine = std::cos(angle), sine = std::sin(angle), x = at(1, 0), y = at(2, 0);
    return Affine{1, 0, 0, 1, x, y} * Affine{cosine, sine, -sine, cosine, 0, 0} * Affine{1, 0, 0, 1, -x, -y};
}

} // namespace

void NumberScan::skipBlanks()
{
    m_rest.remove_prefix(std::min(m_rest.find_first_not_of(kSeparators), m_rest.size()));
}

bool NumberScan::atEnd()
{
    skipBlanks();
    return m_rest.empty();
}

std::optional<double> NumberScan::number()
{
    skipBlanks();
    std::string_view text = m_rest;
    if (text.starts_with('+')) text.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || !std::isfinite(value)) return std::nullopt;
    m_rest.remove_prefix(static_cast<std::size_t>(end - m_rest.data()));
    return value;
}

std::optional<bool> NumberScan::flag()
{
    skipBlanks();
    if (!m_rest.starts_with('0') && !m_rest.starts_with('1')) return std::nullopt;
    const bool set = m_rest.front() == '1';
    m_rest.remove_prefix(1);
    return set;
}

std::optional<char> NumberScan::command()
{
    skipBlanks();
    if (m_rest.empty()) return std::nullopt;
    const char c = m_rest.front();
    if (!(c >= 'a' && c <= 'z') && !(c >= 'A' && c <= 'Z')) return std::nullopt;
    m_rest.remove_prefix(1);
    return c;
}

std::optional<double> readLength(std::string_view text, double em, double whole)
{
    const std::string trimmed = trim(text);
    double value = 0;
    const auto [end, error] = std::from_chars(trimmed.data(), trimmed.data() + trimmed.size(), value);
    if (error != std::errc() || !std::isfinite(value)) return std::nullopt;
    const std::string unit =
        trim(std::string_view(end, static_cast<std::size_t>(trimmed.data() + trimmed.size() - end)));
    if (unit.empty()) return value;
    if (unit == "em") return value * em;
    if (unit == "%") return value / 100 * whole;
    const auto *const known = std::ranges::find(kUnits, unit, &Unit::name);
    if (known == std::end(kUnits)) return std::nullopt;
    return value * known->pixels;
}

std::vector<double> readNumbers(std::string_view text)
{
    std::vector<double> numbers;
    NumberScan scan(text);
    while (const auto number = scan.number()) numbers.push_back(*number);
    return numbers;
}

Affine readTransform(std::string_view text)
{
    Affine whole;
    while (true) {
        const std::size_t open = text.find('('), close = text.find(')');
        if (open == std::string_view::npos || close == std::string_view::npos || close < open) return whole;
        std::string_view name = text.substr(0, open);
        name.remove_prefix(std::min(name.find_first_not_of(kSeparators), name.size()));
        whole = whole * oneTransform(rtrim(name), readNumbers(text.substr(open + 1, close - open - 1)));
        text.remove_prefix(close + 1);
    }
}

std::optional<Color> readColor(std::string_view text)
{
    const std::string name = asciiLower(trim(text));
    if (name.starts_with('#')) return hexColor(std::string_view(name).substr(1));
    if (name.starts_with("rgb(") && name.ends_with(')'))
        return functionColor(std::string_view(name).substr(4, name.size() - 5));
    const auto *const known = std::ranges::find(kColors, name, &NamedColor::name);
    if (known == std::end(kColors)) return std::nullopt;
    return known->color;
}

} // namespace inin::viewer
