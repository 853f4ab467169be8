#include "viewer/pdf/letters_pdf.h"

#include "runtime/runtime_error.h"
#include "viewer/pdf/pdf_painter.h"
#include "viewer/pdf/pdf_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

namespace inin::viewer {

namespace {

constexpr std::size_t kLettersBetweenReports = 100;

class LettersPdf {
public:
    LettersPdf(AtomicFile &out, LetterRenderer &renderer, Point shift)
        : m_renderer(renderer), m_shift(shift), m_file(out), m_fonts(m_file), m_pictures(m_file),
          m_paper(renderer.paperSize()), m_catalog(m_file.reserve()), m_pages(m_file.reserve()),
          m_resources(m_file.reserve())
    {
    }

    bool write(std::span<const std::size_t> letters, const Progress &progress)
    {
        PdfPainter painter(m_fonts, m_pictures, m_paper.y);
        for (std::size_t i = 0; i < letters.size(); ++i) {
            const std::size_t pages = m_renderer.pageCount(letters[i]);
            for (std::size_t page = 0; page < pages; ++page) writePage(letters[i], page, painter);
            if ((i + 1) % kLettersBetweenReports == 0 && progress && !progress(i + 1)) return false;
        }
        writeEnd();
        return true;
    }

private:
    /// The shared part of a page of a layout's letters, written once.
    struct Shared {
        const LetterLayout *layout;
        std::size_t page;
        int object;
    };

    std::size_t sharedOf(const LetterLayout &layout, std::size_t page)
    {
        const auto isThis = [&](const Shared &shared) { return shared.layout == &layout && shared.page == page; };
        const auto found = std::ranges::find_if(m_shared, isThis);
        if (found != m_shared.end()) return static_cast<std::size_t>(found - m_shared.begin());
        m_shared.push_back({&layout, page, m_file.reserve()});
        const Point size = layout.form().pageSize(page);
        PdfPainter painter(m_fonts, m_pictures, size.y);
        layout.paintShared(painter, page);
        std::string entries = "/Type/XObject/Subtype/Form/BBox";
        appendBox(entries, size);
        fmt::format_to(std::back_inserter(entries), "/Resources {} 0 R", m_resources);
        m_file.writeStream(m_shared.back().object, entries, painter.finish(), Compression::best);
        return m_shared.size() - 1;
    }

    static void appendBox(std::string &entries, Point size)
    {
        entries += "[0 0 ";
        appendNumber(entries, size.x);
        entries += ' ';
        appendNumber(entries, size.y);
        entries += ']';
    }

    /// Adds the transform from the form's page to the paper if they differ. In a PDF, y grows upwards.
    void placeOnPaper(std::size_t letter, std::size_t page, double formHeight, PdfPainter &painter)
    {
        const Affine at = m_renderer.onPaper(letter, page);
        const double x = at.e + m_shift.x,
                     y = m_renderer.paperSize(letter, page).y - at.f - m_shift.y - at.a * formHeight;
        if (at.a == 1 && std::abs(x) < kNoMove && std::abs(y) < kNoMove) return;
        std::string operators;
        appendNumber(operators, at.a, 5);
        operators += " 0 0 ";
        appendNumber(operators, at.a, 5);
        operators += ' ';
        appendNumber(operators, x);
        operators += ' ';
        appendNumber(operators, y);
        painter.add(operators + " cm\n");
    }

    void writePage(std::size_t letter, std::size_t number, PdfPainter &painter)
    {
        LetterLayout &layout = m_renderer.layoutOf(letter);
        const std::size_t shared = sharedOf(layout, number);
        const double height = layout.form().pageSize(number).y;
        painter.begin(height);
        placeOnPaper(letter, number, height, painter);
        painter.add("/S" + std::to_string(shared) + " Do\n");
        m_renderer.paintFields(letter, painter, number);
        const int content = m_file.reserve(), page = m_file.reserve();
        m_file.writeStream(content, "", painter.finish(), Compression::fast);
        m_body.clear();
        fmt::format_to(std::back_inserter(m_body), "<</Type/Page/Parent {} 0 R/Contents {} 0 R", m_pages, content);
        // Pages of the first page's size inherit it from the page tree.
        if (const Point paper = m_renderer.paperSize(letter, number); !isSamePaper(paper, m_paper)) {
            m_body += "/MediaBox";
            appendBox(m_body, paper);
        }
        m_body += ">>";
        m_file.writeObject(page, m_body);
        m_pageNumbers.push_back(page);
    }

    void writeEnd()
    {
        std::string resources = "<</Font<<";
        for (const auto &font : m_fonts.all())
            fmt::format_to(std::back_inserter(resources), "/F{} {} 0 R", font->number(), font->object());
        resources += ">>/XObject<<";
        for (std::size_t i = 0; i < m_shared.size(); ++i)
            fmt::format_to(std::back_inserter(resources), "/S{} {} 0 R", i, m_shared[i].object);
        resources += m_pictures.resources();
        m_file.writeObject(m_resources, resources + ">>>>");
        for (const auto &font : m_fonts.all()) font->write(m_file);
        writePageTree();
        const int info = m_file.reserve();
        std::string entries = "<</Producer(formviewer)/Title";
        appendTextString(entries, m_renderer.set().title);
        m_file.writeObject(info, entries + ">>");
        m_file.writeObject(m_catalog, fmt::format("<</Type/Catalog/Pages {} 0 R/ViewerPreferences"
                                                  "<</PrintScaling/None>>>>",
                                                  m_pages));
        m_file.close(m_catalog, info);
    }

    void writePageTree()
    {
        std::string tree = fmt::format("<</Type/Pages/Count {}/MediaBox", m_pageNumbers.size());
        appendBox(tree, m_paper);
        fmt::format_to(std::back_inserter(tree), "/Resources {} 0 R/Kids[", m_resources);
        for (const int page : m_pageNumbers) fmt::format_to(std::back_inserter(tree), "{} 0 R\n", page);
        m_file.writeObject(m_pages, tree + "]>>");
    }

    static constexpr double kNoMove = 0.005;

    LetterRenderer &m_renderer;
    Point m_shift;
    PdfFile m_file;
    PdfFonts m_fonts;
    PdfPictures m_pictures;
    Point m_paper; ///< of most pages
    int m_catalog, m_pages, m_resources;
    std::vector<Shared> m_shared;
    std::vector<int> m_pageNumbers;
    std::string m_body;
};

} // namespace

bool writeLettersPdf(const std::string &path, LetterRenderer &renderer, std::span<const std::size_t> letters,
                     const Progress &progress, Point shift)
{
    if (letters.empty()) throw RuntimeError(error_number::invalidCall, "委任状が一つも選ばれていません。");
    AtomicFile out(path);
    if (!LettersPdf(out, renderer, shift).write(letters, progress)) return false;
    out.commit();
    return true;
}

} // namespace inin::viewer
