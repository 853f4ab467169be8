#pragma once

#include "viewer/document/letter_bundles.h"
#include "viewer/document/letter_set.h"

#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// Gives each file name once; names that differ only in ASCII case are the same.
class UniqueNames {
public:
    /// The name, with a number if it was given before.
    [[nodiscard]] std::string take(const std::string &name);

private:
    std::set<std::string> m_given; ///< in ASCII lower case
};

/// File names for letters, made from a pattern such as "{{番号}}_{{利用者氏名}}": the columns' values and the letter's number.
/// Characters that a file system does not allow become "_", and each name is used once.
class LetterFileNames {
public:
    /// Throws a RuntimeError with a sentence for a pattern with an unknown column. `set` must outlive this.
    LetterFileNames(const LetterSet &set, std::string_view pattern, std::string_view ending);
    /// The next name, including the extension.
    [[nodiscard]] std::string nameOf(std::size_t letter);

private:
    [[nodiscard]] std::string textOf(std::size_t letter) const;

    const LetterSet &m_set;
    std::vector<TextPiece> m_pieces;
    std::string m_ending;
    UniqueNames m_names;
};

/// File names for bundles: that of all their letters, with the insurer or the district by which they are sorted,
/// "委任状_R8.11_高松市.pdf".
class BundleFileNames {
public:
    /// `set` must outlive this.
    BundleFileNames(const LetterSet &set, LetterSort sort, std::string_view ending)
        : m_set(set), m_letterNames(set), m_sort(sort), m_ending(ending)
    {
    }
    /// The next name, including the extension.
    [[nodiscard]] std::string nameOf(const LetterBundle &bundle);

private:
    [[nodiscard]] std::string groupOf(const LetterBundle &bundle) const;

    const LetterSet &m_set;
    LetterNames m_letterNames;
    LetterSort m_sort;
    std::string m_ending;
    UniqueNames m_names;
};

/// The file name offered for these letters together: the title with the months of their periods, "委任状_R8.11.pdf", or
/// "委任状_R8.11-R9.01.pdf" from the first month to the last. Without a readable period it is the title alone.
[[nodiscard]] std::string fileNameOfAll(const LetterSet &set, std::span<const std::size_t> which,
                                        std::string_view ending);

/// The title of a document of these letters: their kind and the months of their periods, "委任状（標準）　令和8年11月".
[[nodiscard]] std::string documentTitle(const LetterSet &set, std::span<const std::size_t> which);

} // namespace inin::viewer
