#pragma once

#include "viewer/form/form_document.h"
#include "viewer/layout/page_painter.h"
#include "viewer/layout/reading_order.h"

#include <cstddef>
#include <span>
#include <vector>

namespace inin::viewer {

/// Collects the place of each text of a page, and finds the lines that they are read in. Texts are identified by their
/// indices in FormDocument::commands.
class LetterReading {
public:
    /// `form` must outlive this.
    LetterReading(const FormDocument &form, std::size_t page);

    /// Adds a text without fields, with its runs. A blank one is in no line, and neither is one that a shape or picture
    /// painted after it may cover.
    void addText(std::size_t command, std::span<const GlyphRun> runs);
    /// Adds a text with fields. It is in no line if a shape or picture painted after it may cover it.
    void addField(std::size_t command);
    [[nodiscard]] std::vector<ReadingLine> lines() const;

private:
    void add(std::size_t command, const PlacedText &text);
    [[nodiscard]] bool isCovered(std::size_t command, const PlacedText &text) const;

    const FormDocument &m_form;
    struct Shape {
        std::size_t command;
        const PathCommand *path; ///< null for a picture
        bool isShared;           ///< by all letters; the others are painted above all that is shared
        Box bounds;              ///< of all that it may paint
    };
    std::vector<Shape> m_shapes;
    std::vector<PlacedText> m_texts;
    std::vector<std::size_t> m_commands; ///< of the texts
};

/// True when painting a path changes something within a box.
[[nodiscard]] bool paintsIn(const PathCommand &command, const Box &box);

} // namespace inin::viewer
