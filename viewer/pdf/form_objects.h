#pragma once

#include "viewer/layout/letter_layout.h"
#include "viewer/pdf/tagged_painter.h"

#include <memory>
#include <string>
#include <vector>

namespace inin::viewer {

/// The form XObjects of the parts that letters share, written once for each layout.
class FormObjects {
public:
    FormObjects(PdfFile &file, PdfFonts &fonts, int resources) : m_file(file), m_fonts(fonts), m_resources(resources) {}

    /// The operators that paint all of the shared parts.
    [[nodiscard]] const std::string &plain(const LetterLayout &layout);

    /// The shared parts of tagged pages.
    struct Tagged {
        std::string background; ///< the operators that paint what is not text; may be empty
        std::vector<TaggedLine> lines;
    };
    [[nodiscard]] const Tagged &tagged(const LetterLayout &layout);

    /// The entries of the resource dictionary.
    [[nodiscard]] const std::string &resources() const { return m_entries; }

private:
    struct Known {
        const LetterLayout *layout;
        std::string plain;
        Tagged tagged;
    };
    [[nodiscard]] Known *find(const LetterLayout &layout);
    [[nodiscard]] std::vector<TaggedLine> linesOf(const LetterLayout &layout);
    [[nodiscard]] LinePiece addPiece(const LetterLayout &layout, const ReadingLine &line, std::size_t begin,
                                     std::size_t end);
    /// Writes the content as an XObject.
    void write(const std::string &name, const LetterLayout &layout, const std::string &content);

    PdfFile &m_file;
    PdfFonts &m_fonts;
    int m_resources;
    std::vector<std::unique_ptr<Known>> m_known;
    std::size_t m_pieces = 0;
    std::string m_entries;
};

} // namespace inin::viewer
