#pragma once

#include "viewer/pdf/object_groups.h"

#include <cstddef>
#include <map>
#include <span>
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
    [[nodiscard]] ObjectPattern patternOf(std::span<const std::size_t> paragraphs) const;
    [[nodiscard]] int writeParents();

    PdfFile &m_file;
    int m_root, m_document;
    std::map<std::vector<std::size_t>, ObjectGroups> m_groups; ///< by the numbers of paragraphs of a letter's pages
    std::vector<int> m_sections;
    std::vector<int> m_lists; ///< for each page the list of its paragraphs
    // Of the present letter.
    std::vector<std::size_t> m_paragraphs;
    std::vector<int> m_numbers;
};

} // namespace inin::viewer
