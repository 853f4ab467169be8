#pragma once

#include "runtime/text.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace inin {

/// A text field with a fixed capacity of N characters, counted in UTF-16 units. A blank one is filled with NUL
/// characters; an assigned text is left-aligned, padded with blanks and truncated to the capacity.
template <std::size_t N> class FixedText {
public:
    FixedText() : m_text(N, '\0') {}
    FixedText &operator=(std::string_view text)
    {
        m_text = fixedText(text, N);
        return *this;
    }
    /// All N characters, padding included.
    [[nodiscard]] const std::string &text() const { return m_text; }
    friend bool operator==(const FixedText &, const FixedText &) = default;

private:
    std::string m_text;
};

} // namespace inin
