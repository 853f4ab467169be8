#include "viewer/pdf/tagged_painter.h"

#include <algorithm>
#include <limits>
#include <span>
#include <string>

namespace inin::viewer {

namespace {

constexpr std::size_t kNoCommand = std::numeric_limits<std::size_t>::max();

} // namespace

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
    openLine();
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
    m_isOpen = false;
}

} // namespace inin::viewer
