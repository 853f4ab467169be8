#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// The letters selected for output. They are output in their own order, not in the order of ticking.
class LetterTicks {
public:
    explicit LetterTicks(std::size_t letters = 0) : m_ticked(letters, true), m_count(letters) {}

    [[nodiscard]] std::size_t size() const { return m_ticked.size(); }
    [[nodiscard]] std::size_t count() const { return m_count; }
    [[nodiscard]] bool isTicked(std::size_t letter) const { return m_ticked[letter]; }
    void set(std::size_t letter, bool ticked);
    void setAll(bool ticked);
    /// Reads "1-3,5"; an empty text unticks all letters, as in text(). Throws a RuntimeError with a sentence for an
    /// unreadable text; the ticks then stay as they were.
    void setText(std::string_view text);
    /// "1-3,5", from 1.
    [[nodiscard]] std::string text() const;
    /// Counted from 0, ascending.
    [[nodiscard]] std::vector<std::size_t> letters() const;

private:
    std::vector<bool> m_ticked;
    std::size_t m_count = 0;
};

} // namespace inin::viewer
