#pragma once

#include "viewer/document/letter_set.h"
#include "viewer/document/paper_size.h"
#include "viewer/layout/letter_layout.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace inin::viewer {

/// Lays out the letters of a set on pages, for any painter. Each letter has the pages of its form, counted from 0. The
/// covers of bundles are laid out in the same way: they are counted on from the letters.
class LetterRenderer {
public:
    /// Both must outlive this. Throws a RuntimeError for a placeholder without a column.
    LetterRenderer(const LetterSet &set, Fonts &fonts);
    LetterRenderer(const LetterRenderer &) = delete;
    LetterRenderer &operator=(const LetterRenderer &) = delete;
    ~LetterRenderer();

    [[nodiscard]] const LetterSet &set() const { return m_set; }
    /// A sentence for each form whose own text has characters that the font lacks.
    [[nodiscard]] std::vector<std::string> formNotices() const;
    /// The same for a site's own form for covers, or a sentence why it cannot be used.
    [[nodiscard]] std::vector<std::string> coverNotices() const;
    [[nodiscard]] std::size_t pageCount(std::size_t letter) const;
    /// Width and height of a page's paper in points.
    [[nodiscard]] Point paperSize(std::size_t letter = 0, std::size_t page = 0) const;
    /// Transforms the form's page to the paper: scaled when the sizes differ, and moved by the offsets.
    [[nodiscard]] Affine onPaper(std::size_t letter, std::size_t page = 0) const;
    /// The layout of a letter: that of its report, or a plain page for an unreadable row. Letters with the same layout
    /// have the same shared part, which paintShared() paints.
    [[nodiscard]] LetterLayout &layoutOf(std::size_t letter);
    /// Sets the code of each letter, which the forms show as 整理番号 and as QR codes; none print no codes.
    void setCodes(std::vector<std::string> codes) { m_codes = std::move(codes); }
    [[nodiscard]] const std::vector<std::string> &codes() const { return m_codes; }
    /// The layouts of the reports of a set.
    using Layouts = std::vector<std::unique_ptr<LetterLayout>>;
    /// Lays out the forms of a set, which must outlive the layouts. Throws a RuntimeError for a placeholder without a column.
    [[nodiscard]] Layouts layOut(const LetterSet &set) const;
    /// Replaces the layouts after the forms of the set have changed.
    void setLayouts(Layouts layouts) { m_layouts = std::move(layouts); }
    /// Sets the covers, one for each row; none remove them. Throws a RuntimeError for a placeholder without a column.
    void setCovers(std::optional<LetterReport> covers);
    /// Whether a form has a place for codes.
    [[nodiscard]] bool showsCodes() const;
    /// Called with the marks of each marked page as it is painted.
    std::function<void(std::size_t letter, const std::vector<FieldMark> &marks)> onMarks;
    /// Paints the fields of one page and returns their marks.
    const std::vector<FieldMark> &paintFields(std::size_t letter, PagePainter &painter, std::size_t page = 0);

private:
    /// A row of a report, and the layout of the report's form.
    struct Sheet {
        const LetterReport &report;
        std::size_t row;
        LetterLayout &layout;
        [[nodiscard]] RowFault fault() const { return report.letters.fault(row); }
    };
    [[nodiscard]] Sheet sheetOf(std::size_t letter) const;
    [[nodiscard]] const FormDocument &formOf(std::size_t letter) const;
    [[nodiscard]] std::unique_ptr<LetterLayout> layoutFor(const LetterReport &report) const;
    const std::vector<FieldMark> &paintReadable(std::size_t letter, const Sheet &sheet, PagePainter &painter,
                                                std::size_t page);

    const LetterSet &m_set;
    Fonts &m_fonts;
    FormDocument m_unreadableForm;
    Layouts m_layouts; ///< one for each report
    std::unique_ptr<LetterLayout> m_unreadable;
    std::optional<LetterReport> m_covers;
    std::unique_ptr<LetterLayout> m_coverLayout;
    std::vector<std::string> m_codes; ///< one for each letter, or none
};

} // namespace inin::viewer
