#pragma once

#include "viewer/document/letter_set.h"
#include "viewer/layout/letter_layout.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace inin::viewer {

/// In points.
[[nodiscard]] Point sizeOf(Paper paper);

/// Puts the letters of a set on pages, whatever they are painted with.
class LetterPress {
public:
    /// Both must outlive this. A placeholder that no column answers is a RuntimeError.
    LetterPress(const LetterSet &set, Fonts &fonts);
    LetterPress(const LetterPress &) = delete;
    LetterPress &operator=(const LetterPress &) = delete;
    ~LetterPress();

    [[nodiscard]] const LetterSet &set() const { return m_set; }
    /// A sentence for each form that has characters of its own which the font lacks.
    [[nodiscard]] std::vector<std::string> formNotices() const;
    /// Size of the paper in points.
    [[nodiscard]] Point paperSize() const;
    /// From the form's page to the paper: scaled to the paper when that is another size, moved by the offsets.
    [[nodiscard]] Affine onPaper(std::size_t letter) const;
    /// The layout of a letter: that of its report, or a plain page for a row that could not be read. Letters with the
    /// same layout share what paintShared paints.
    [[nodiscard]] LetterLayout &layoutOf(std::size_t letter);
    /// Told the marks of each letter that has some, as it is painted.
    std::function<void(std::size_t letter, const std::vector<FieldMark> &marks)> onMarks;
    /// Paints the fields of one letter and gives their marks.
    const std::vector<FieldMark> &paintFields(std::size_t letter, PagePainter &painter);

private:
    const std::vector<FieldMark> &paintReadable(const LetterSet::Place &place, PagePainter &painter);

    const LetterSet &m_set;
    FormDocument m_unreadableForm;
    std::vector<std::unique_ptr<LetterLayout>> m_layouts; ///< beside the reports
    std::unique_ptr<LetterLayout> m_unreadable;
};

} // namespace inin::viewer
