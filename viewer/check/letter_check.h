#pragma once

#include "runtime/date.h"
#include "viewer/check/cause.h"
#include "viewer/document/letter_renderer.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace inin::viewer {

/// One problem of one letter.
struct Finding {
    Cause cause = Cause::unreadableRow;
    std::size_t letter = 0;
    std::string detail; ///< the column or value; may be empty
};

/// Checks the letters of a set before they are printed. It never blocks printing and changes nothing. The work can be
/// done in steps, so that a window stays responsive.
class LetterCheck {
public:
    /// `renderer` must outlive this. Dates are compared with `today`, those of sample letters with their own month.
    LetterCheck(LetterRenderer &renderer, Date today);
    LetterCheck(const LetterCheck &) = delete;
    LetterCheck &operator=(const LetterCheck &) = delete;
    ~LetterCheck();

    /// Checks this many more letters; false when none is left.
    bool judge(std::size_t letters);
    /// Returns the findings, by cause and letter.
    [[nodiscard]] std::vector<Finding> take();

private:
    struct Rules;
    void judgeLetter(std::size_t letter);
    void addMarks(std::size_t letter);
    void addMark(std::size_t letter, const FieldMark &mark);
    void addDuplicates();

    LetterRenderer &m_renderer;
    std::unique_ptr<Rules> m_rules;
    std::size_t m_next = 0;
    std::vector<Finding> m_found;
};

/// Checks all letters at once.
[[nodiscard]] std::vector<Finding> checkLetters(LetterRenderer &renderer, Date today);

} // namespace inin::viewer
