#include "viewer/form/svg_style_sheet.h"

#include "runtime/text.h"

#include <fmt/format.h>

#include <algorithm>

namespace inin::viewer {

namespace {

/// Far more than an editor writes; each is tried on every element.
constexpr std::size_t kMostDeclarations = 2000;

/// Up to before the first `end` that stands outside of quotes and brackets.
std::string_view upTo(std::string_view text, char end)
{
    char quote = 0;
    int depth = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (quote != 0) {
            if (c == quote) quote = 0;
        } else if (c == '"' || c == '\'') {
            quote = c;
        } else if (c == end && depth <= 0) {
            return text.substr(0, i);
        } else if (c == '(' || c == '{') {
            ++depth;
        } else if (c == ')' || c == '}') {
            --depth;
        }
    }
    return text;
}

std::string_view takeUpTo(std::string_view &text, char end)
{
    const std::string_view part = upTo(text, end);
    text.remove_prefix(std::min(part.size() + 1, text.size()));
    return part;
}

/// Without comments, and without the marks by which old files hide a sheet.
std::string bare(std::string_view text)
{
    std::string out;
    while (!text.empty()) {
        const std::size_t open = text.find("/*");
        out += text.substr(0, open);
        if (open == std::string_view::npos) break;
        out += ' ';
        const std::size_t close = text.find("*/", open + 2);
        if (close == std::string_view::npos) break;
        text.remove_prefix(close + 2);
    }
    for (const std::string_view mark : {"<!--", "-->"})
        for (std::size_t at = out.find(mark); at != std::string::npos; at = out.find(mark)) out.erase(at, mark.size());
    return out;
}

/// A rule for the whole sheet ends with its block or its semicolon, whichever comes first.
void skipAtRule(std::string_view &rest)
{
    const std::string_view line = upTo(rest, ';');
    const std::size_t block = rest.find('{');
    if (block < line.size()) {
        rest.remove_prefix(block + 1);
        (void)takeUpTo(rest, '}');
    } else {
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    }
}

bool isNameCharacter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

std::string_view takeName(std::string_view &text)
{
    const auto end = std::ranges::find_if_not(text, isNameCharacter);
    const std::string_view name = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    text.remove_prefix(name.size());
    return name;
}

bool hasWord(std::string_view words, std::string_view wanted)
{
    constexpr std::string_view kBlanks = " \t\r\n";
    while (!words.empty()) {
        words.remove_prefix(std::min(words.find_first_not_of(kBlanks), words.size()));
        const std::string_view word = words.substr(0, words.find_first_of(kBlanks));
        if (word == wanted) return true;
        words.remove_prefix(word.size());
    }
    return false;
}

} // namespace

std::vector<StyleDeclaration> readDeclarations(std::string_view text)
{
    constexpr std::string_view kImportant = "!important";
    std::vector<StyleDeclaration> declarations;
    while (!text.empty()) {
        const std::string_view whole = takeUpTo(text, ';');
        const std::size_t colon = whole.find(':');
        if (colon == std::string_view::npos) continue;
        StyleDeclaration declaration{trim(whole.substr(0, colon)), trim(whole.substr(colon + 1)), false};
        if (declaration.value.ends_with(kImportant)) {
            declaration.value = rtrim(declaration.value.substr(0, declaration.value.size() - kImportant.size()));
            declaration.isImportant = true;
        }
        declarations.push_back(std::move(declaration));
    }
    return declarations;
}

bool StyleSheet::Selector::matches(std::string_view name, const XmlAttributes &attributes) const
{
    return (element.empty() || element == name) && (id.empty() || id == attributes.get("id")) &&
           std::ranges::all_of(classes,
                               [&](const std::string &wanted) { return hasWord(attributes.get("class"), wanted); });
}

int StyleSheet::Selector::weight() const
{
    constexpr int kId = 10'000, kClass = 100;
    return (id.empty() ? 0 : kId) + static_cast<int>(classes.size()) * kClass + (element.empty() ? 0 : 1);
}

std::optional<StyleSheet::Selector> StyleSheet::readSelector(std::string_view text)
{
    if (text.empty()) return std::nullopt;
    Selector selector;
    if (text.starts_with('*'))
        text.remove_prefix(1);
    else
        selector.element = takeName(text);
    while (!text.empty()) {
        const char kind = text.front();
        text.remove_prefix(1);
        const std::string_view name = takeName(text);
        if (name.empty()) return std::nullopt;
        if (kind == '.')
            selector.classes.emplace_back(name);
        else if (kind == '#' && selector.id.empty())
            selector.id = name;
        else
            return std::nullopt;
    }
    return selector;
}

void StyleSheet::addRule(std::string_view selectors, std::string_view body, const Notice &tell)
{
    std::vector<StyleDeclaration> declarations = readDeclarations(body);
    std::erase_if(declarations, [](const StyleDeclaration &each) { return !SvgStyle::knows(each.name); });
    while (!selectors.empty()) {
        const std::string text = trim(takeUpTo(selectors, ','));
        std::optional<Selector> selector = readSelector(text);
        if (!selector) {
            tell(fmt::format("style 要素のセレクター「{}」は使いません。", text));
            continue;
        }
        m_declarations += declarations.size();
        if (m_declarations > kMostDeclarations) return tell("style 要素の規則が多すぎます。初めのものだけを使います。");
        // Behind those of its own weight: a later rule is the stronger.
        const auto place = std::ranges::upper_bound(m_rules, selector->weight(), {},
                                                    [](const Rule &rule) { return rule.selector.weight(); });
        m_rules.insert(place, {std::move(*selector), declarations});
    }
}

void StyleSheet::add(std::string_view raw, const Notice &tell)
{
    const std::string text = bare(raw);
    std::string_view rest = text;
    while (!trim(rest).empty() && m_declarations <= kMostDeclarations) {
        rest.remove_prefix(rest.find_first_not_of(" \t\r\n"));
        if (rest.front() == '@') {
            tell("style 要素の @ で始まる規則は使いません。外部のファイルも読み込みません。");
            skipAtRule(rest);
            continue;
        }
        const std::size_t open = rest.find('{');
        if (open == std::string_view::npos) return;
        const std::string_view selectors = rest.substr(0, open);
        rest.remove_prefix(open + 1);
        addRule(selectors, takeUpTo(rest, '}'), tell);
    }
}

std::vector<const StyleDeclaration *> StyleSheet::of(std::string_view element, const XmlAttributes &attributes) const
{
    std::vector<const StyleDeclaration *> found;
    for (const Rule &rule : m_rules) {
        if (!rule.selector.matches(element, attributes)) continue;
        for (const StyleDeclaration &declaration : rule.declarations) found.push_back(&declaration);
    }
    return found;
}

} // namespace inin::viewer
