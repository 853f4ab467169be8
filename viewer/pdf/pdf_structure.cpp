#include "viewer/pdf/pdf_structure.h"

#include "viewer/pdf/pdf_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <numeric>
#include <string>

namespace inin::viewer {

namespace {

constexpr std::size_t kLeaf = 100; ///< entries of a leaf of the parent tree

/// The objects of a letter, in order: its section, the list of the section's paragraphs, a list for each page, and the
/// paragraphs. A letter of a single page has one list for both purposes. The pages are not among them.
struct LetterObjects {
    explicit LetterObjects(std::span<const std::size_t> paragraphs)
        : lists(paragraphs.size() == 1 ? 1 : 1 + paragraphs.size()),
          count(kChildren + lists + std::accumulate(paragraphs.begin(), paragraphs.end(), std::size_t{0}))
    {
    }
    static constexpr std::size_t kSection = 0, kChildren = 1;
    std::size_t lists, count;
    /// The last lists are those of the pages.
    [[nodiscard]] std::size_t pageList(std::size_t page) const { return lists == 1 ? kChildren : kChildren + 1 + page; }
    [[nodiscard]] std::size_t firstParagraph() const { return kChildren + lists; }
    [[nodiscard]] std::size_t page(std::size_t page) const { return count + page; }
};

/// A list of references to consecutive objects.
void addList(ObjectPattern &pattern, std::size_t first, std::size_t count)
{
    pattern.beginObject();
    pattern.add("[");
    for (std::size_t i = 0; i < count; ++i) {
        pattern.addReference(first + i);
        pattern.add(" ");
    }
    pattern.add("] ");
}

void addParagraph(ObjectPattern &pattern, std::size_t page, std::size_t mark)
{
    pattern.beginObject();
    pattern.add("<</S/P/P ");
    pattern.addReference(LetterObjects::kSection);
    pattern.add("/Pg ");
    pattern.addReference(page);
    // Rows of one width repeat better.
    pattern.add(fmt::format("/K {:2}>> ", mark));
}

} // namespace

PdfStructure::PdfStructure(PdfFile &file) : m_file(file), m_root(file.reserve()), m_document(file.reserve()) {}

ObjectPattern PdfStructure::patternOf(std::span<const std::size_t> paragraphs) const
{
    const LetterObjects objects(paragraphs);
    const std::size_t first = objects.firstParagraph();
    ObjectPattern pattern;
    pattern.beginObject();
    pattern.add(fmt::format("<</S/Sect/P {} 0 R/K ", m_document));
    pattern.addReference(LetterObjects::kChildren);
    pattern.add(">> ");
    addList(pattern, first, objects.count - first);
    std::size_t begin = first;
    for (std::size_t page = 0; objects.lists > 1 && page < paragraphs.size(); ++page) {
        addList(pattern, begin, paragraphs[page]);
        begin += paragraphs[page];
    }
    for (std::size_t page = 0; page < paragraphs.size(); ++page)
        for (std::size_t mark = 0; mark < paragraphs[page]; ++mark) addParagraph(pattern, objects.page(page), mark);
    return pattern;
}

void PdfStructure::addLetter(std::span<const Page> pages)
{
    m_paragraphs.clear();
    for (const Page &page : pages) m_paragraphs.push_back(page.paragraphs);
    const LetterObjects objects(m_paragraphs);
    m_numbers.clear();
    for (std::size_t i = 0; i < objects.count; ++i) m_numbers.push_back(m_file.reserve());
    for (const Page &page : pages) m_numbers.push_back(page.object);
    m_sections.push_back(m_numbers[LetterObjects::kSection]);
    for (std::size_t page = 0; page < pages.size(); ++page) m_lists.push_back(m_numbers[objects.pageList(page)]);
    auto group = m_groups.find(m_paragraphs);
    if (group == m_groups.end())
        group = m_groups.emplace(m_paragraphs, ObjectGroups(m_file, patternOf(m_paragraphs))).first;
    group->second.add(m_numbers);
}

int PdfStructure::writeParents()
{
    std::string kids;
    for (std::size_t begin = 0; begin < m_lists.size(); begin += kLeaf) {
        const std::size_t end = std::min(begin + kLeaf, m_lists.size());
        std::string leaf = fmt::format("<</Limits[{} {}]/Nums[", begin, end - 1);
        for (std::size_t i = begin; i < end; ++i) fmt::format_to(std::back_inserter(leaf), "{} {} 0 R ", i, m_lists[i]);
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
    for (auto &[paragraphs, groups] : m_groups) groups.flush();
    const int parents = writeParents();
    std::string kids;
    for (const int section : m_sections) fmt::format_to(std::back_inserter(kids), "{} 0 R ", section);
    m_file.packObject(m_document, fmt::format("<</S/Document/P {} 0 R/K[{}]>>", m_root, kids));
    m_file.packObject(m_root, fmt::format("<</Type/StructTreeRoot/K {} 0 R/ParentTree {} 0 R/ParentTreeNextKey {}>>",
                                          m_document, parents, m_lists.size()));
    return m_root;
}

} // namespace inin::viewer
