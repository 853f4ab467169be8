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

/// The next wanted letter of `order` after `from`, wrapping around; `from` itself is tried last. If no letter of `order`
/// is wanted, all letters are searched by their numbers.
[[nodiscard]] std::optional<std::size_t> nextWanted(const std::vector<std::size_t> &order, std::size_t from,
                                                    Direction direction, const std::vector<bool> &wanted);

/// Finds letters by any of their texts.
class LetterFinder {
public:
    /// `letters` must outlive this. No text is read before the first search.
    explicit LetterFinder(const OpenLetters &letters) : m_letters(letters) {}

    /// For each letter whether it contains the text; no letter contains an empty text.
    [[nodiscard]] std::vector<bool> find(const QString &text);

private:
    void readLetters();

    const OpenLetters &m_letters;
    std::vector<QString> m_keys;
};

} // namespace inin::viewer
