#include "viewer/form/svg_style_sheet.h"

#include "runtime/text.h"
#include "runtime/utf8.h"

#include <fmt/format.h>

#include <algorithm>

namespace inin::viewer {

namespace {

/// Far more than an editor writes. Each rule is matched against every element.
constexpr std::size_t kMaxParts = 6000;
constexpr std::string_view kBlanks = " \t\r\n";

/// Reads a text from beginning to end. Each search consumes what it has examined, so that the time is linear.
class StyleScanner {
public:
    explicit StyleScanner(std::string_view text) : m_rest(text) {}

    [[nodiscard]] bool isAtEnd() const { return m_rest.empty(); }
    [[nodiscard]] std::size_t charactersRead() const { return m_charactersRead; }

    /// False at the end of the text.
    [[nodiscard]] bool skipBlanks()
    {
        while (!isAtEnd() && kBlanks.find(m_rest.front()) != std::string_view::npos) (void)take(1);
        return !isAtEnd();
    }
    [[nodiscard]] bool skip(std::string_view mark)
    {
        if (!m_rest.starts_with(mark)) return false;
        (void)take(mark.size());
        return true;
    }
    std::string_view takeThrough(std::string_view mark)
    {
        const std::size_t found = m_rest.find(mark);
        const std::size_t size = found == std::string_view::npos ? m_rest.size() : found + mark.size();
        m_charactersRead += size;
        return take(size);
    }
    std::string_view take(std::size_t size)
    {
        const std::string_view part = m_rest.substr(0, size);
        m_rest.remove_prefix(size);
        m_charactersRead += size;
        return part;
    }
    /// Takes the text up to the first of `ends` outside quotes and brackets, and that character. `end` receives the
    /// character, or 0 at the end of the text.
    std::string_view takeUpTo(std::string_view ends, char *end = nullptr)
    {
        const std::size_t size = sizeUpTo(ends);
        const std::string_view part = take(size);
        if (end != nullptr) *end = isAtEnd() ? '\0' : m_rest.front();
        if (!isAtEnd()) (void)take(1);
        return part;
    }

private:
    [[nodiscard]] std::size_t sizeUpTo(std::string_view ends)
    {
        char quote = 0;
        int depth = 0;
        for (std::size_t i = 0; i < m_rest.size(); ++i) {
            const char c = m_rest[i];
            ++m_charactersRead;
            if (quote != 0) {
                if (c == quote) quote = 0;
            } else if (c == '"' || c == '\'') {
                quote = c;
            } else if (depth <= 0 && ends.find(c) != std::string_view::npos) {
                return i;
            } else if (c == '(' || c == '{') {
                ++depth;
            } else if (c == ')' || c == '}') {
                --depth;
            }
        }
        return m_rest.size();
    }

    std::string_view m_rest;
    std::size_t m_charactersRead = 0;
};

/// Removes comments, and the HTML comment delimiters by which old files hide a sheet.
std::string withoutComments(StyleScanner &text)
{
    std::string out;
    while (!text.isAtEnd()) {
        if (text.skip("/*")) {
            (void)text.takeThrough("*/");
            out += ' ';
        } else if (!text.skip("<!--") && !text.skip("-->")) {
            out += text.take(1);
        }
    }
    return out;
}

/// An at-rule ends with its block or its semicolon, whichever comes first.
void skipAtRule(StyleScanner &text)
{
    char end = 0;
    (void)text.takeUpTo(";{", &end);
    if (end == '{') (void)text.takeUpTo("}");
}

bool isNameCharacter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_' ||
           !isAscii(c);
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
    for (StyleScanner rest(text); !rest.isAtEnd();) {
        const std::string_view whole = rest.takeUpTo(";");
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

int StyleSheet::Selector::specificity() const
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

bool StyleSheet::countParts(std::size_t parts, const NoticeHandler &report)
{
    m_parts += parts;
    if (m_parts <= kMaxParts) return true;
    report("style 要素の規則が多すぎます。初めのものだけを使います。");
    return false;
}

void StyleSheet::addRules(std::string_view selectors, std::string_view body, const NoticeHandler &report)
{
    std::vector<StyleDeclaration> declarations = readDeclarations(body);
    std::erase_if(declarations, [](const StyleDeclaration &each) { return !SvgStyle::knows(each.name); });
    for (StyleScanner list(selectors); !list.isAtEnd();) {
        const std::string text = trim(list.takeUpTo(","));
        std::optional<Selector> selector = readSelector(text);
        if (!countParts(1 + (selector ? selector->classes.size() + declarations.size() : 0), report)) return;
        if (!selector) {
            report(fmt::format("style 要素のセレクター「{}」は使いません。", text));
            continue;
        }
        // After the rules of the same specificity: a later rule is stronger.
        const auto place = std::ranges::upper_bound(m_rules, selector->specificity(), {},
                                                    [](const Rule &rule) { return rule.selector.specificity(); });
        m_rules.insert(place, {std::move(*selector), declarations});
    }
}

void StyleSheet::add(std::string_view raw, const NoticeHandler &report)
{
    StyleScanner withComments(raw);
    const std::string bare = withoutComments(withComments);
    StyleScanner text(bare);
    while (m_parts <= kMaxParts && text.skipBlanks()) {
        if (text.skip("@")) {
            report("style 要素の @ で始まる規則は使いません。外部のファイルも読み込みません。");
            skipAtRule(text);
            (void)countParts(1, report); // the loop ends at the limit
            continue;
        }
        std::string_view selectors = text.takeThrough("{");
        if (!selectors.ends_with('{')) break;
        selectors.remove_suffix(1);
        addRules(selectors, text.takeUpTo("}"), report);
    }
    m_charactersRead += withComments.charactersRead() + text.charactersRead();
}

std::vector<const StyleDeclaration *> StyleSheet::declarationsFor(std::string_view element,
                                                                  const XmlAttributes &attributes) const
{
    std::vector<const StyleDeclaration *> found;
    for (const Rule &rule : m_rules) {
        if (!rule.selector.matches(element, attributes)) continue;
        for (const StyleDeclaration &declaration : rule.declarations) found.push_back(&declaration);
    }
    return found;
}

} // namespace inin::viewer
