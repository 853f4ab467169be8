#pragma once

#include "viewer/document/letter_set.h"

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// File names for letters, made from a pattern such as "{{番号}}_{{利用者氏名}}": the columns' values and the letter's
/// number. What a file system does not take in a name becomes "_", and no name is given twice.
class LetterFileNames {
public:
    /// A RuntimeError with a sentence for a pattern that names no column of the letters. `set` must outlive this.
    LetterFileNames(const LetterSet &set, std::string_view pattern, std::string_view ending);
    /// The next name, ending included.
    [[nodiscard]] std::string nameOf(std::size_t letter);

private:
    [[nodiscard]] std::string textOf(std::size_t letter) const;

    const LetterSet &m_set;
    std::vector<TextPiece> m_pieces;
    std::string m_ending;
    std::set<std::string> m_given; ///< folded in ASCII case
};

} // namespace inin::viewer
