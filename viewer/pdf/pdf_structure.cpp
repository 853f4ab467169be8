#include "viewer/pdf/pdf_structure.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

namespace inin::viewer {

namespace {

constexpr std::size_t kLeaf = 100; ///< entries of a leaf of the parent tree
/// The widths of rows for numbers of up to seven digits. With round offsets, the rows differ in fewer digits.
constexpr std::size_t kObjectRow = 50, kReferenceRow = 12;

} // namespace

PdfStructure::PdfStructure(PdfFile &file)
    : m_file(file), m_sectionObjects(file, kObjectRow), m_listObjects(file, kReferenceRow),
      m_paragraphObjects(file, kObjectRow), m_root(file.reserve()), m_document(file.reserve())
{
}

void PdfStructure::addParagraphs(const Page &page, int section, std::string &references)
{
    for (std::size_t i = 0; i < page.paragraphs; ++i) {
        const int number = m_file.reserve();
        fmt::format_to(std::back_inserter(references), "{:7} 0 R ", number);
        m_paragraph.clear();
        fmt::format_to(std::back_inserter(m_paragraph), "<</S/P/P {:7} 0 R/Pg {:7} 0 R/K {:2}>>", section, page.object,
                       i);
        m_paragraphObjects.add(number, m_paragraph);
    }
}

void PdfStructure::addLetter(std::span<const Page> pages)
{
    const int section = m_file.reserve(), children = m_file.reserve();
    m_sections.push_back(section);
    m_sectionObjects.add(section, fmt::format("<</S/Sect/P {} 0 R/K {:7} 0 R>>", m_document, children));
    const bool isOnePage = pages.size() == 1;
    m_whole.clear();
    for (const Page &page : pages) {
        m_list.clear();
        // The children of the section of a single page are also the parents of the page's marked contents.
        const int list = isOnePage ? children : m_file.reserve();
        m_paragraphs.push_back(list);
        addParagraphs(page, section, m_list);
        addList(list, m_list);
        if (!isOnePage) m_whole += m_list;
    }
    if (!isOnePage) addList(children, m_whole);
}

void PdfStructure::addList(int number, std::string_view references)
{
    // The references begin with a row.
    m_row.assign(kReferenceRow - 1, ' ');
    m_row += '[';
    m_row += references;
    m_row += ']';
    m_listObjects.add(number, m_row);
}

int PdfStructure::writeParents()
{
    std::string kids;
    for (std::size_t begin = 0; begin < m_paragraphs.size(); begin += kLeaf) {
        const std::size_t end = std::min(begin + kLeaf, m_paragraphs.size());
        std::string leaf = fmt::format("<</Limits[{} {}]/Nums[", begin, end - 1);
        for (std::size_t i = begin; i < end; ++i)
            fmt::format_to(std::back_inserter(leaf), "{} {} 0 R ", i, m_paragraphs[i]);
        const int number = m_file.reserve();
        m_file.packObject(number, leaf + "]>>");
        fmt::format_to(std::back_inserter(kids), "{} 0 R ", number);
    }
    const int tree = m_file.reserve();
    m_file.packObject(tree, "<</Kids[" + kids + "]>>");
    return tree;
}

int PdfStructure::write()
{
    for (PackedObjects *const objects : {&m_sectionObjects, &m_listObjects, &m_paragraphObjects}) objects->flush();
    const int parents = writeParents();
    std::string kids;
    for (const int section : m_sections) fmt::format_to(std::back_inserter(kids), "{} 0 R ", section);
    m_file.packObject(m_document, fmt::format("<</S/Document/P {} 0 R/K[{}]>>", m_root, kids));
    m_file.packObject(m_root, fmt::format("<</Type/StructTreeRoot/K {} 0 R/ParentTree {} 0 R/ParentTreeNextKey {}>>",
                                          m_document, parents, m_paragraphs.size()));
    return m_root;
}

} // namespace inin::viewer
