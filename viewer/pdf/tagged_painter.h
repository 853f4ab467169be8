#pragma once

#include "viewer/pdf/pdf_painter.h"

#include <cstddef>
#include <vector>

namespace inin::viewer {

/// A part of a line: a text that differs between letters, or texts that all letters share, as a form XObject.
struct LinePiece {
    bool isShared = false;
    std::size_t number = 0; ///< in the name of the XObject, or the index in FormDocument::commands
};
using TaggedLine = std::vector<LinePiece>;

enum class BlankSide { before, after };
/// Paints a blank beside a run, so that the extracted text of a line has blanks between its texts. Vertical lines get none:
/// they have texts of their own, see GlyphRun::lineText.
void paintBlank(GlyphRun run, BlankSide side, PdfPainter &painter);

/// Writes the content stream of a tagged page: each line is marked content with a number, everything else is an artifact.
///
/// The texts that all letters share are form XObjects, which are painted between the letter's own texts. As a whole they
/// belong to the marked content that paints them, so that all pages can share them.
class TaggedPainter : public PdfPainter {
public:
    using PdfPainter::PdfPainter;

    /// Begins the lines of a page. `lines` must outlive the page.
    void beginLines(const std::vector<TaggedLine> &lines);
    /// Ends the lines and returns the number of the marked contents.
    std::size_t endLines();
    /// Paints an XObject as an artifact.
    void addArtifact(std::string_view operators);

    using PdfPainter::paint;
    void paint(const PathCommand &path) override { paintArtifact(path); }
    void paint(const PictureCommand &picture) override { paintArtifact(picture); }
    void paint(const GlyphRun &run) override;
    void beginText(std::size_t command) override;

private:
    void paintArtifact(const auto &command)
    {
        closeLine();
        add("/Artifact BMC\n");
        PdfPainter::paint(command);
        add("EMC\n");
    }
    void openLine();
    void closeLine();
    bool paintNextPiece(std::size_t command);
    [[nodiscard]] bool isAhead(std::size_t command) const;

    const std::vector<TaggedLine> *m_lines = nullptr;
    std::size_t m_line = 0, m_piece = 0; ///< the next piece
    std::size_t m_marked = 0;
    bool m_isOpen = false;
    bool m_endsWithOwnText = false; ///< the open line, so far; shared texts have their blanks
    bool m_needsBlank = false;      ///< before the next run
};

} // namespace inin::viewer
