#pragma once

#include "viewer/check/cause.h"
#include "viewer/document/letter_press.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace inin::viewer {

/// One thing that is wrong with one letter.
struct Finding {
    Cause cause = Cause::unreadableRow;
    std::size_t letter = 0;
    std::string detail; ///< which column or value; may be empty
};

/// Judges the letters of a set before they are printed. It never blocks and changes nothing. The work can be cut into
/// pieces, so that a window stays awake over it.
class LetterCheck {
public:
    /// `press` must outlive this.
    explicit LetterCheck(LetterPress &press);
    LetterCheck(const LetterCheck &) = delete;
    LetterCheck &operator=(const LetterCheck &) = delete;
    ~LetterCheck();

    /// Judges some more letters; false when none is left.
    bool judge(std::size_t letters);
    [[nodiscard]] std::size_t judged() const { return m_next; }
    /// All that was found, by cause and letter.
    [[nodiscard]] std::vector<Finding> take();

private:
    struct Rules;
    void judgeLetter(std::size_t letter);
    void addMarks(std::size_t letter);
    void addTwins();

    LetterPress &m_press;
    std::unique_ptr<Rules> m_rules;
    std::size_t m_next = 0;
    std::vector<Finding> m_found;
};

/// Judges all letters at once.
[[nodiscard]] std::vector<Finding> checkLetters(LetterPress &press);

} // namespace inin::viewer
