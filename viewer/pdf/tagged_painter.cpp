#include "viewer/pdf/tagged_painter.h"

#include <algorithm>
#include <limits>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace inin::viewer {

namespace {

constexpr std::size_t kNoCommand = std::numeric_limits<std::size_t>::max();

} // namespace

void paintBlank(GlyphRun run, BlankSide side, PdfPainter &painter)
{
    if (run.isVertical || !run.font->has(U' ')) return;
    std::vector<ShapedGlyph> blank;
    std::vector<char32_t> missing;
    run.font->shape(U" ", blank, missing);
    const ShapedGlyph &first = run.glyphs.front(), &last = run.glyphs.back();
    for (ShapedGlyph &glyph : blank)
        glyph.x = side == BlankSide::before ? first.x - glyph.advance : last.x + last.advance;
    run.glyphs = blank;
    run.lineText = {};
    run.endsLineText = false;
    painter.paint(run);
}

void TaggedPainter::beginLines(const std::vector<TaggedLine> &lines)
{
    m_lines = &lines;
    m_line = m_piece = m_marked = 0;
    m_isOpen = false;
}

std::size_t TaggedPainter::endLines()
{
    while (m_line < m_lines->size()) static_cast<void>(paintNextPiece(kNoCommand));
    closeLine();
    return m_marked;
}

void TaggedPainter::addArtifact(std::string_view operators)
{
    closeLine();
    add("/Artifact BMC\n");
    add(operators);
    add("EMC\n");
}

bool TaggedPainter::isAhead(std::size_t command) const
{
    const auto isIt = [&](const LinePiece &piece) { return !piece.isShared && piece.number == command; };
    for (std::size_t line = m_line; line < m_lines->size(); ++line) {
        const auto pieces = std::span((*m_lines)[line]).subspan(line == m_line ? m_piece : 0);
        if (std::ranges::any_of(pieces, isIt)) return true;
    }
    return false;
}

void TaggedPainter::beginText(std::size_t command)
{
    // A text that is in no line, because it may be covered or its place is far off the page, is a line of its own.
    if (!isAhead(command)) {
        closeLine();
        return openLine();
    }
    while (!paintNextPiece(command)) {
    }
    m_needsBlank = m_endsWithOwnText;
    openLine();
}

void TaggedPainter::paint(const GlyphRun &run)
{
    if (run.glyphs.empty()) return;
    if (std::exchange(m_needsBlank, false)) paintBlank(run, BlankSide::before, *this);
    PdfPainter::paint(run);
    m_endsWithOwnText = true;
}

/// Goes on to the next piece, painting it if it is shared. An own text paints itself, unless the letter does not have it.
/// True for this own text.
bool TaggedPainter::paintNextPiece(std::size_t command)
{
    if (m_piece == 0) closeLine();
    const LinePiece piece = (*m_lines)[m_line][m_piece];
    if (piece.isShared) {
        openLine();
        add("/L" + std::to_string(piece.number) + " Do\n");
        m_endsWithOwnText = false;
    }
    if (++m_piece == (*m_lines)[m_line].size()) {
        m_piece = 0;
        ++m_line;
    }
    return !piece.isShared && piece.number == command;
}

void TaggedPainter::openLine()
{
    if (m_isOpen) return;
    add("/P<</MCID " + std::to_string(m_marked++) + ">>BDC\n");
    m_isOpen = true;
}

void TaggedPainter::closeLine()
{
    if (m_isOpen) add("EMC\n");
    m_isOpen = m_endsWithOwnText = false;
}

} // namespace inin::viewer
