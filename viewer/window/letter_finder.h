#pragma once

#include <QString>

#include <cstddef>
#include <optional>
#include <vector>

namespace inin::viewer {

struct OpenLetters;

/// The search form of a text: without blanks, in one width and case, hiragana as katakana, and rarer variants of common
/// name characters (髙, 﨑, 𠮷 …) as the common ones.
[[nodiscard]] QString searchKey(const QString &text);

enum class Direction { forward, backward };

/// Finds letters by any of their texts.
class LetterFinder {
public:
    /// `letters` must outlive this. No text is read before the first search.
    explicit LetterFinder(const OpenLetters &letters) : m_letters(letters) {}

    /// The next letter after `from` that contains the text, wrapping around; `from` itself is tried last. Empty for an
    /// empty text.
    [[nodiscard]] std::optional<std::size_t> next(const QString &text, std::size_t from, Direction direction);
    /// Whether a letter contains the text.
    [[nodiscard]] bool holds(std::size_t letter, const QString &text);
    /// The number of letters that contain the text.
    [[nodiscard]] std::size_t count(const QString &text);

private:
    void readLetters();

    const OpenLetters &m_letters;
    std::vector<QString> m_keys;
};

} // namespace inin::viewer
