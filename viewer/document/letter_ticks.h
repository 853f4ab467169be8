#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// Which letters go out. They go out in their own order, whatever the order in which they were ticked.
class LetterTicks {
public:
    explicit LetterTicks(std::size_t letters = 0) : m_ticked(letters, true), m_count(letters) {}

    [[nodiscard]] std::size_t size() const { return m_ticked.size(); }
    [[nodiscard]] std::size_t count() const { return m_count; }
    [[nodiscard]] bool isTicked(std::size_t letter) const { return m_ticked[letter]; }
    void set(std::size_t letter, bool ticked);
    void setAll(bool ticked);
    /// Takes "1-3,5"; an empty text is no letter, as text() writes it. A RuntimeError with a sentence for a text that
    /// cannot be read; the ticks then stay as they were.
    void setText(std::string_view text);
    /// "1-3,5", from 1.
    [[nodiscard]] std::string text() const;
    /// From 0, rising.
    [[nodiscard]] std::vector<std::size_t> letters() const;

private:
    std::vector<bool> m_ticked;
    std::size_t m_count = 0;
};

} // namespace inin::viewer
