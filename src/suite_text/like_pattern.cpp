#include "suite_text/like_pattern.h"

#include "runtime/utf8.h"
#include "suite_text/japanese_text.h"

#include <algorithm>

namespace inin {

LikePattern::LikePattern(std::string_view pattern, char32_t escape)
{
    std::string literal;
    for (std::size_t at = 0; at < pattern.size();) {
        DecodedCharacter next = firstCharacter(pattern.substr(at));
        const char32_t c = next.character;
        const bool isEscaped = escape != 0 && c == escape && at + next.bytes < pattern.size();
        if (isEscaped) {
            at += next.bytes;
            next = firstCharacter(pattern.substr(at));
        }
        if (isEscaped || (c != U'%' && c != U'_' && c != U'[')) {
            literal += pattern.substr(at, next.bytes);
            at += next.bytes;
            continue;
        }
        addLiteral(literal);
        literal.clear();
        if (c == U'[') {
            at = addClass(pattern, at);
            continue;
        }
        m_elements.push_back({c == U'%' ? Kind::run : Kind::any});
        at += next.bytes;
    }
    addLiteral(literal);
}

/// Folds the literal as a whole, so that ﾀﾞ is a single character, as in the column.
void LikePattern::addLiteral(std::string_view literal)
{
    std::u32string folded;
    foldJapanese(literal, folded);
    for (const char32_t c : folded) m_elements.push_back({Kind::one, c});
}

std::size_t LikePattern::addClass(std::string_view pattern, std::size_t at)
{
    const std::size_t closing = pattern.find(']', at + 1);
    Element element{Kind::oneOf}; // an unterminated class matches no character
    if (closing == std::string_view::npos) {
        m_elements.push_back(element);
        return pattern.size();
    }
    std::string_view list = pattern.substr(at + 1, closing - at - 1);
    element.negated = list.starts_with('^');
    if (element.negated) list.remove_prefix(1);
    std::u32string members;
    foldJapanese(list, members);
    for (std::size_t i = 0; i < members.size(); ++i) {
        const bool isRange = i + 2 < members.size() && members[i + 1] == U'-';
        element.ranges.emplace_back(members[i], members[i + (isRange ? 2 : 0)]);
        if (isRange) i += 2;
    }
    m_elements.push_back(std::move(element));
    return closing + 1;
}

bool LikePattern::fits(const Element &element, char32_t character)
{
    if (element.kind == Kind::one) return element.character == character;
    if (element.kind == Kind::any) return true;
    const bool inside = std::any_of(element.ranges.begin(), element.ranges.end(), [character](const auto &range) {
        return range.first <= character && character <= range.second;
    });
    return inside != element.negated;
}

bool LikePattern::matches(std::string_view text) const
{
    static thread_local std::u32string folded; // reused, because a search folds about 100,000 texts
    foldJapanese(text, folded);
    std::size_t at = 0, element = 0;
    std::size_t runElement = m_elements.size(), runAt = 0;
    while (at < folded.size()) {
        if (element < m_elements.size() && m_elements[element].kind == Kind::run) {
            runElement = element++;
            runAt = at;
        } else if (element < m_elements.size() && fits(m_elements[element], folded[at])) {
            ++element;
            ++at;
        } else if (runElement < m_elements.size()) {
            element = runElement + 1; // extend the last % by one character
            at = ++runAt;
        } else {
            return false;
        }
    }
    while (element < m_elements.size() && m_elements[element].kind == Kind::run) ++element;
    return element == m_elements.size();
}

} // namespace inin
