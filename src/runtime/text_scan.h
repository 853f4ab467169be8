#pragma once

#include <cstddef>
#include <string_view>

namespace inin {

/// A cursor over UTF-8 text for the number and date readers. As in the runtime, a NUL ends the text.
class TextScan {
public:
    explicit TextScan(std::string_view text) : m_rest(text.substr(0, text.find('\0'))) {}

    [[nodiscard]] bool atEnd() const { return m_rest.empty(); }
    /// The next byte, NUL at the end.
    [[nodiscard]] char peek() const { return atEnd() ? '\0' : m_rest.front(); }
    [[nodiscard]] bool atDigit() const { return peek() >= '0' && peek() <= '9'; }
    char take()
    {
        const char taken = peek();
        m_rest.remove_prefix(1);
        return taken;
    }
    bool accept(char wanted)
    {
        if (peek() != wanted || atEnd()) return false;
        m_rest.remove_prefix(1);
        return true;
    }
    bool accept(std::string_view wanted)
    {
        if (!m_rest.starts_with(wanted)) return false;
        m_rest.remove_prefix(wanted.size());
        return true;
    }
    /// Like accept, but ignores ASCII case.
    bool acceptWord(std::string_view wanted);
    /// The longest run of characters from `set`; may be empty.
    std::string_view takeRun(std::string_view set);
    std::string_view takeDigits() { return takeRun("0123456789"); }
    /// Skips blanks of every width, tabs and line ends.
    void skipBlanks();

private:
    std::string_view m_rest;
};

} // namespace inin
