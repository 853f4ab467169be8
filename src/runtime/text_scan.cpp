#include "runtime/text_scan.h"

#include "runtime/text.h"
#include "runtime/utf8.h"

#include <algorithm>

namespace inin {

namespace {

// Non-ASCII blanks: no-break, ogham, the typographic ones from U+2000, line and paragraph separators, ideographic.
constexpr std::string_view kWideBlanks[] = {
    "\u3000", "\u00A0", "\u0085", "\u1680", "\u2000", "\u2001", "\u2002", "\u2003", "\u2004", "\u2005",
    "\u2006", "\u2007", "\u2008", "\u2009", "\u200A", "\u2028", "\u2029", "\u202F", "\u205F",
};

std::size_t blankAt(std::string_view text)
{
    if (text.empty()) return 0;
    if (text.front() == ' ' || (text.front() >= '\t' && text.front() <= '\r')) return 1;
    if (isAscii(text.front())) return 0;
    for (const std::string_view blank : kWideBlanks)
        if (text.starts_with(blank)) return blank.size();
    return 0;
}

} // namespace

bool TextScan::acceptWord(std::string_view wanted)
{
    if (!equalsIgnoringAsciiCase(m_rest.substr(0, wanted.size()), wanted)) return false;
    m_rest.remove_prefix(wanted.size());
    return true;
}

std::string_view TextScan::takeRun(std::string_view set)
{
    const std::size_t count = std::min(m_rest.find_first_not_of(set), m_rest.size());
    const std::string_view run = m_rest.substr(0, count);
    m_rest.remove_prefix(count);
    return run;
}

void TextScan::skipBlanks()
{
    while (const std::size_t size = blankAt(m_rest)) m_rest.remove_prefix(size);
}

} // namespace inin
