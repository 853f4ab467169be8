#include "viewer/pdf/form_objects.h"

#include "viewer/pdf/pdf_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <span>

namespace inin::viewer {

namespace {

/// An XObject inherits the graphics state of the fields before it, such as narrow characters.
constexpr const char *kInitialState = "0 g 0 Tc 100 Tz 0 Tr\n";

/// Collects the runs of texts that are painted together, and adds what a reader needs besides the glyphs.
class RunCollector : public PagePainter {
public:
    void paint(const PathCommand &) override {}
    void paint(const PictureCommand &) override {}
    void paint(const GlyphRun &run) override { m_runs.push_back(run); }

    enum class Blanks { none, before, after, both };

    void paintTo(PdfPainter &painter, Blanks blanks)
    {
        if (isWord()) return paintWord(painter);
        if (blanks == Blanks::before || blanks == Blanks::both) paintBlank(m_runs.front(), BlankSide::before, painter);
        for (std::size_t i = 0; i < m_runs.size(); ++i) {
            painter.paint(m_runs[i]);
            const bool isLast = i + 1 == m_runs.size();
            const bool isFollowed = isLast ? blanks == Blanks::after || blanks == Blanks::both : isBeside(i + 1);
            if (isFollowed) paintBlank(m_runs[i], BlankSide::after, painter);
        }
    }

private:
    /// True for a run that has its beginning at the height of the previous one and does not follow it directly.
    [[nodiscard]] bool isBeside(std::size_t run) const
    {
        const GlyphRun &last = m_runs[run - 1], &next = m_runs[run];
        const double end = double{last.glyphs.back().x + last.glyphs.back().advance} * last.size * last.stretch / 1000;
        const Point gap{next.at.e - last.at({end, 0}).x, next.at.f - last.at.f};
        return std::abs(gap.y) < last.size / 2 && gap.x > last.size / 2;
    }

    /// True for single characters below one another.
    [[nodiscard]] bool isWord() const
    {
        const auto isSingle = [](const GlyphRun &run) { return run.glyphs.size() == 1 && !run.isVertical; };
        if (m_runs.size() < 2 || !std::ranges::all_of(m_runs, isSingle)) return false;
        return std::ranges::adjacent_find(m_runs, [](const GlyphRun &above, const GlyphRun &below) {
                   return below.at.f - above.at.f < above.size / 2;
               }) == m_runs.end();
    }

    void paintWord(PdfPainter &painter)
    {
        std::u32string word;
        for (const GlyphRun &run : m_runs) word += run.font->charactersOf(run.glyphs.front().text);
        m_runs.front().lineText = word;
        m_runs.back().endsLineText = true;
        for (const GlyphRun &run : m_runs) painter.paint(run);
    }

    std::vector<GlyphRun> m_runs;
};

} // namespace

void FormObjects::write(const std::string &name, const Page &page, const std::string &content)
{
    const int object = m_file.reserve();
    std::string entries = "/Type/XObject/Subtype/Form/BBox";
    appendPageBox(entries, page.size().x, page.size().y);
    fmt::format_to(std::back_inserter(entries), "/Resources {} 0 R", m_resources);
    m_file.writeStream(object, entries, content, Compression::best);
    fmt::format_to(std::back_inserter(m_entries), "/{} {} 0 R", name, object);
}

FormObjects::Known *FormObjects::find(const Page &page)
{
    const auto found = std::ranges::find_if(m_known, [&](const auto &known) { return known->page == page; });
    return found == m_known.end() ? nullptr : found->get();
}

const std::string &FormObjects::plain(const Page &page)
{
    if (const Known *const known = find(page)) return known->plain;
    const std::string name = fmt::format("S{}", m_known.size());
    PdfPainter painter(m_fonts, m_pictures, page.size().y);
    page.layout->paintShared(painter, page.number);
    write(name, page, painter.finish());
    m_known.push_back(std::make_unique<Known>(Known{page, "/" + name + " Do\n", {}}));
    return m_known.back()->plain;
}

const FormObjects::Tagged &FormObjects::tagged(const Page &page)
{
    if (const Known *const known = find(page)) return known->tagged;
    const std::string name = fmt::format("S{}", m_known.size());
    PdfPainter painter(m_fonts, m_pictures, page.size().y);
    page.layout->paintBackground(painter, page.number);
    const std::string &background = painter.finish();
    Known &known = *m_known.emplace_back(std::make_unique<Known>(Known{page, {}, {}}));
    if (!background.empty()) {
        write(name, page, background);
        known.tagged.background = "/" + name + " Do\n";
    }
    known.tagged.lines = linesOf(page);
    return known.tagged;
}

std::vector<TaggedLine> FormObjects::linesOf(const Page &page)
{
    std::vector<TaggedLine> lines;
    for (const ReadingLine &line : page.layout->readingLines(page.number)) {
        TaggedLine &pieces = lines.emplace_back();
        for (std::size_t begin = 0; begin < line.size();) {
            std::size_t end = begin;
            while (end < line.size() && page.layout->isSharedText(line[end])) ++end;
            if (end > begin) {
                pieces.push_back(addPiece(page, line, begin, end));
                begin = end;
            } else {
                pieces.push_back({false, line[begin++]});
            }
        }
    }
    return lines;
}

LinePiece FormObjects::addPiece(const Page &page, const ReadingLine &line, std::size_t begin, std::size_t end)
{
    RunCollector runs;
    for (std::size_t i = begin; i < end; ++i) page.layout->paintSharedText(line[i], runs);
    using Blanks = RunCollector::Blanks;
    const bool isFirst = begin == 0, isLast = end == line.size();
    PdfPainter painter(m_fonts, m_pictures, page.size().y);
    runs.paintTo(painter, isFirst ? (isLast ? Blanks::none : Blanks::after) : isLast ? Blanks::before : Blanks::both);
    const LinePiece piece{true, m_pieces++};
    write(fmt::format("L{}", piece.number), page, kInitialState + painter.finish());
    return piece;
}

} // namespace inin::viewer
