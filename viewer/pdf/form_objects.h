#pragma once

#include "viewer/layout/letter_layout.h"
#include "viewer/pdf/tagged_painter.h"

#include <memory>
#include <string>
#include <vector>

namespace inin::viewer {

/// The form XObjects of the parts that letters share, written once for each page of a layout.
class FormObjects {
public:
    FormObjects(PdfFile &file, PdfFonts &fonts, PdfPictures &pictures, int resources)
        : m_file(file), m_fonts(fonts), m_pictures(pictures), m_resources(resources)
    {
    }

    struct Page {
        const LetterLayout *layout;
        std::size_t number;
        [[nodiscard]] Point size() const { return layout->form().pageSize(number); }
        friend bool operator==(const Page &, const Page &) = default;
    };

    /// The operators that paint all of the shared parts.
    [[nodiscard]] const std::string &plain(const Page &page);

    /// The shared parts of a tagged page.
    struct Tagged {
        std::string background; ///< the operators that paint what is not text; may be empty
        std::vector<TaggedLine> lines;
    };
    [[nodiscard]] const Tagged &tagged(const Page &page);

    /// The entries of the resource dictionary.
    [[nodiscard]] const std::string &resources() const { return m_entries; }

private:
    struct Known {
        Page page;
        std::string plain;
        Tagged tagged;
    };
    [[nodiscard]] Known *find(const Page &page);
    [[nodiscard]] std::vector<TaggedLine> linesOf(const Page &page);
    [[nodiscard]] LinePiece addPiece(const Page &page, const ReadingLine &line, std::size_t begin, std::size_t end);
    /// Writes the content as an XObject.
    void write(const std::string &name, const Page &page, const std::string &content);

    PdfFile &m_file;
    PdfFonts &m_fonts;
    PdfPictures &m_pictures;
    int m_resources;
    std::vector<std::unique_ptr<Known>> m_known;
    std::size_t m_pieces = 0;
    std::string m_entries;
};

} // namespace inin::viewer
