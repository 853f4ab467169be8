#include "viewer/pdf/letters_pdf.h"

#include "runtime/runtime_error.h"
#include "viewer/document/letter_bundles.h"
#include "viewer/document/letter_file_name.h"
#include "viewer/pdf/form_objects.h"
#include "viewer/pdf/pdf_metadata.h"
#include "viewer/pdf/pdf_outline.h"
#include "viewer/pdf/pdf_structure.h"
#include "viewer/pdf/pdf_text.h"
#include "viewer/pdf/srgb_profile.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>

namespace inin::viewer {

namespace {

constexpr std::size_t kLettersBetweenReports = 100;
constexpr std::size_t kPagesInNode = 100; ///< of the page tree, so that a reader finds a page of many quickly
constexpr std::size_t kPageRow = 100;     ///< for a page's object with numbers of up to seven digits
constexpr std::size_t kRoundNumbers = 10; ///< the numbers of letters are a multiple of this apart
constexpr double kNoMove = 0.005;

class LettersPdf {
public:
    LettersPdf(AtomicFile &out, LetterRenderer &renderer, const PdfOptions &options)
        : m_renderer(renderer), m_options(options), m_file(out), m_pageObjects(m_file, kPageRow),
          m_fonts(m_file, missingGlyphs(options)), m_pictures(m_file), m_paper(renderer.paperSize()),
          m_catalog(m_file.reserve()), m_pages(m_file.reserve()), m_resources(m_file.reserve()),
          m_forms(m_file, m_fonts, m_pictures, m_resources), m_plain(m_fonts, m_pictures, m_paper.y),
          m_tagged(m_fonts, m_pictures, m_paper.y)
    {
    }

    bool write(std::span<const std::size_t> letters, const Progress &progress)
    {
        if (isTagged()) m_structure.emplace(m_file);
        // The outline helps to find a letter among others.
        if (isTagged() && letters.size() > 1) m_outline.emplace(m_renderer.set());
        for (std::size_t i = 0; i < letters.size(); ++i) {
            writeLetter(letters[i]);
            if ((i + 1) % kLettersBetweenReports == 0 && progress && !progress(i + 1)) return false;
        }
        writeEnd(m_options.title.empty() ? documentTitle(m_renderer.set(), lettersAmong(m_renderer.set(), letters))
                                         : m_options.title);
        return true;
    }

private:
    [[nodiscard]] bool isTagged() const { return m_options.purpose != PdfPurpose::printing; }
    static MissingGlyphs missingGlyphs(const PdfOptions &options)
    {
        return options.purpose == PdfPurpose::printing ? MissingGlyphs::asOnScreen : MissingGlyphs::replaced;
    }

    /// Adds the transform from the form's page to the paper if they differ. In a PDF, y grows upwards.
    void placeOnPaper(std::size_t letter, const FormObjects::Page &form, double paperHeight, PdfPainter &painter)
    {
        const Affine at = m_renderer.onPaper(letter, form.number);
        const double x = at.e + m_options.shift.x, y = paperHeight - at.f - m_options.shift.y - at.a * form.size().y;
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

    void writeLetter(std::size_t letter)
    {
        const std::size_t count = m_renderer.pageCount(letter);
        m_letterPages.clear();
        if (m_structure) m_file.skipToMultipleOf(kRoundNumbers);
        for (std::size_t page = 0; page < count; ++page) writePage(letter, page);
        if (m_structure) m_structure->addLetter(m_letterPages);
        if (m_outline && letter < m_renderer.set().size()) m_outline->add(letter, m_letterPages.front().object);
    }

    void writePage(std::size_t letter, std::size_t number)
    {
        const FormObjects::Page form{&m_renderer.layoutOf(letter), number};
        const Point paper = m_renderer.paperSize(letter, number);
        PdfPainter &painter = isTagged() ? m_tagged : m_plain;
        painter.begin(form.size().y);
        placeOnPaper(letter, form, paper.y, painter);
        const int page = m_file.reserve();
        m_body.clear();
        if (m_pageNumbers.size() % kPagesInNode == 0) m_pageNodes.push_back(m_file.reserve());
        fmt::format_to(std::back_inserter(m_body), "<</Type/Page/Parent {:7} 0 R/Resources {} 0 R", m_pageNodes.back(),
                       m_resources);
        // Pages of the first page's size inherit it from the page tree.
        if (!isSamePaper(paper, m_paper)) {
            m_body += "/MediaBox";
            appendPageBox(m_body, paper.x, paper.y);
        }
        if (isTagged())
            paintTagged(letter, form, page);
        else
            paintPlain(letter, form);
        const int content = m_file.reserve();
        m_file.writeStream(content, "", painter.finish(), isTagged() ? Compression::small : Compression::fast);
        fmt::format_to(std::back_inserter(m_body), "/Contents {:7} 0 R>>", content);
        m_pageObjects.add(page, m_body);
        m_pageNumbers.push_back(page);
    }

    void paintPlain(std::size_t letter, const FormObjects::Page &form)
    {
        m_plain.add(m_forms.plain(form));
        m_renderer.paintFields(letter, m_plain, form.number);
    }

    void paintTagged(std::size_t letter, const FormObjects::Page &form, int page)
    {
        const FormObjects::Tagged &shared = m_forms.tagged(form);
        m_tagged.beginLines(shared.lines);
        if (!shared.background.empty()) m_tagged.addArtifact(shared.background);
        m_renderer.paintFields(letter, m_tagged, form.number);
        m_letterPages.push_back({page, m_tagged.endLines()});
        fmt::format_to(std::back_inserter(m_body), "/StructParents {:6}/Tabs/S", m_pageNumbers.size());
    }

    void writeEnd(const std::string &title)
    {
        std::string resources = "<</Font<<";
        for (const auto &font : m_fonts.all())
            fmt::format_to(std::back_inserter(resources), "/F{} {} 0 R", font->number(), font->object());
        m_file.writeObject(m_resources,
                           resources + ">>/XObject<<" + m_forms.resources() + m_pictures.resources() + ">>>>");
        for (const auto &font : m_fonts.all()) font->write(m_file);
        writePageTree();
        const int info = m_file.reserve();
        std::string entries = fmt::format("<</Producer({})/Title", kPdfProducer);
        appendTextString(entries, title);
        m_file.writeObject(info, entries + ">>");
        writeCatalog(title);
        m_file.close(m_catalog, info);
    }

    void writeCatalog(const std::string &title)
    {
        std::string entries = fmt::format("<</Type/Catalog/Pages {} 0 R/Lang(ja)", m_pages);
        const auto out = std::back_inserter(entries);
        if (isTagged()) {
            fmt::format_to(out, "/MarkInfo<</Marked true>>/StructTreeRoot {} 0 R/Metadata {} 0 R", m_structure->write(),
                           writeMetadata(title));
        }
        if (m_outline) fmt::format_to(out, "/Outlines {} 0 R/PageMode/UseOutlines", m_outline->write(m_file));
        if (m_options.purpose == PdfPurpose::archive)
            fmt::format_to(out,
                           "/OutputIntents[<</Type/OutputIntent/S/GTS_PDFA1/OutputConditionIdentifier(sRGB)"
                           "/Info(sRGB)/DestOutputProfile {} 0 R>>]",
                           writeProfile());
        fmt::format_to(out, "/ViewerPreferences<</PrintScaling/None{}>>>>", isTagged() ? "/DisplayDocTitle true" : "");
        m_file.writeObject(m_catalog, entries);
    }

    int writeMetadata(const std::string &title)
    {
        const int number = m_file.reserve();
        const auto claim = m_options.purpose == PdfPurpose::archive ? ArchiveClaim::pdfA : ArchiveClaim::none;
        m_file.writeEncodedStream(number, "/Type/Metadata/Subtype/XML", xmpMetadata(title, claim));
        return number;
    }

    int writeProfile()
    {
        const int number = m_file.reserve();
        m_file.writeStream(number, "/N 3", srgbProfile(), Compression::best);
        return number;
    }

    void writePageTree()
    {
        m_pageObjects.flush();
        std::string nodes;
        for (std::size_t i = 0; i < m_pageNodes.size(); ++i) {
            const auto rest = std::span(m_pageNumbers).subspan(i * kPagesInNode);
            const auto pages = rest.first(std::min(kPagesInNode, rest.size()));
            std::string node = fmt::format("<</Type/Pages/Parent {} 0 R/Count {}/Kids[", m_pages, pages.size());
            for (const int page : pages) fmt::format_to(std::back_inserter(node), "{} 0 R ", page);
            m_file.packObject(m_pageNodes[i], node + "]>>");
            fmt::format_to(std::back_inserter(nodes), "{} 0 R ", m_pageNodes[i]);
        }
        std::string tree = fmt::format("<</Type/Pages/Count {}/MediaBox", m_pageNumbers.size());
        appendPageBox(tree, m_paper.x, m_paper.y);
        m_file.writeObject(m_pages, tree + "/Kids[" + nodes + "]>>");
    }

    LetterRenderer &m_renderer;
    const PdfOptions &m_options;
    PdfFile m_file;
    PackedObjects m_pageObjects;
    PdfFonts m_fonts;
    PdfPictures m_pictures;
    Point m_paper; ///< of most pages
    int m_catalog, m_pages, m_resources;
    FormObjects m_forms;
    PdfPainter m_plain;
    TaggedPainter m_tagged;
    std::optional<PdfStructure> m_structure;
    std::optional<PdfOutline> m_outline;
    std::vector<int> m_pageNumbers, m_pageNodes;
    std::vector<PdfStructure::Page> m_letterPages; ///< of the present letter, if the file is tagged
    std::string m_body;
};

} // namespace

bool writeLettersPdf(const std::string &path, LetterRenderer &renderer, std::span<const std::size_t> letters,
                     const Progress &progress, const PdfOptions &options)
{
    if (letters.empty()) throw RuntimeError(error_number::invalidCall, "委任状が一つも選ばれていません。");
    AtomicFile out(path);
    if (!LettersPdf(out, renderer, options).write(letters, progress)) return false;
    out.commit();
    return true;
}

} // namespace inin::viewer
