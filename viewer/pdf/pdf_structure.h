#pragma once

#include "viewer/pdf/pdf_file.h"

#include <cstddef>
#include <string>
#include <vector>

namespace inin::viewer {

/// The structure tree of a tagged PDF: a document with a section for each letter, which has a paragraph for each line.
class PdfStructure {
public:
    explicit PdfStructure(PdfFile &file);

    /// Adds a letter and returns its key for its page's entry /StructParents. Paragraph i is the content that the page
    /// marks with the number i.
    int addLetter(int page, std::size_t paragraphs);
    /// Writes the tree and returns the object of its root.
    int write();

private:
    [[nodiscard]] int writeParents();

    PdfFile &m_file;
    PackedObjects m_sectionObjects, m_listObjects, m_paragraphObjects;
    int m_root, m_document;
    std::vector<int> m_sections;
    std::vector<int> m_paragraphs; ///< for each letter the list of its paragraphs
    std::string m_body, m_paragraph;
};

} // namespace inin::viewer
