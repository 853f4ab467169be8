#pragma once

#include "viewer/pdf/pdf_file.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// The structure tree of a tagged PDF: a document with a section for each letter, which has a paragraph for each line.
class PdfStructure {
public:
    explicit PdfStructure(PdfFile &file);

    /// Paragraph i is the content that the page marks with the number i.
    struct Page {
        int object;
        std::size_t paragraphs;
    };
    /// Adds a letter. The keys of pages for their entries /StructParents are consecutive numbers from 0.
    void addLetter(std::span<const Page> pages);
    /// Writes the tree and returns the object of its root.
    int write();

private:
    /// Adds the paragraphs of a page, and references to them.
    void addParagraphs(const Page &page, int section, std::string &references);
    void addList(int number, std::string_view references);
    [[nodiscard]] int writeParents();

    PdfFile &m_file;
    PackedObjects m_sectionObjects, m_listObjects, m_paragraphObjects;
    int m_root, m_document;
    std::vector<int> m_sections;
    std::vector<int> m_paragraphs; ///< for each page the list of its paragraphs
    std::string m_list, m_whole, m_row, m_paragraph;
};

} // namespace inin::viewer
