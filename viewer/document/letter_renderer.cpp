#include "viewer/document/letter_renderer.h"

#include "runtime/runtime_error.h"
#include "viewer/document/bundle_cover.h"
#include "viewer/document/mark_text.h"
#include "viewer/form/form_document.h"
#include "viewer/form/placeholder.h"

#include <fmt/format.h>

#include <algorithm>

namespace inin::viewer {

namespace {

constexpr double kTenth = kPointsPerMillimetre / 10;

const std::vector<std::string> &unreadableColumns()
{
    static const std::vector<std::string> columns = {"行", "理由", "ファイルの内容"};
    return columns;
}

std::optional<std::string> missingNotice(const LetterReport &report, const LetterLayout &layout)
{
    const std::vector<char32_t> &missing = layout.missingInForm();
    if (missing.empty()) return std::nullopt;
    return fmt::format("「{}」：帳票の文字のうち、フォントにないものがあります：{}", report.formPath,
                       charactersText(missing));
}

} // namespace

LetterRenderer::LetterRenderer(const LetterSet &set, Fonts &fonts)
    : m_set(set), m_fonts(fonts),
      m_unreadableForm(listingForm(unreadableColumns(),
                                   "この行は確実に読み取れないため、委任状にしませんでした。CSV を確認してください。"))
{
    m_layouts = layOut(set);
    m_unreadable = std::make_unique<LetterLayout>(m_unreadableForm, unreadableColumns(), fonts);
}

LetterRenderer::~LetterRenderer() = default;

std::unique_ptr<LetterLayout> LetterRenderer::layoutFor(const LetterReport &report) const
{
    std::vector<std::string> columns = report.columns;
    columns.emplace_back(kLetterCodeColumn);
    try {
        return std::make_unique<LetterLayout>(report.form, columns, m_fonts);
    } catch (const RuntimeError &error) {
        throw RuntimeError(error.number(), fmt::format("「{}」：{}", report.formPath, error.description()));
    }
}

LetterRenderer::Layouts LetterRenderer::layOut(const LetterSet &set) const
{
    Layouts layouts;
    for (const LetterReport &report : set.reports) layouts.push_back(layoutFor(report));
    return layouts;
}

void LetterRenderer::setCovers(std::optional<LetterReport> covers)
{
    m_coverLayout.reset(); // it refers to the form of the present covers
    m_covers = std::move(covers);
    if (m_covers) m_coverLayout = layoutFor(*m_covers);
}

LetterRenderer::Sheet LetterRenderer::sheetOf(std::size_t letter) const
{
    if (m_coverLayout && letter >= m_set.size()) return {*m_covers, letter - m_set.size(), *m_coverLayout};
    const LetterSet::Place place = m_set.placeOf(letter);
    return {m_set.reports[place.report], place.row, *m_layouts[place.report]};
}

bool LetterRenderer::showsCodes() const
{
    const auto isCodeField = [](const DrawCommand &command) {
        const auto *const text = std::get_if<TextCommand>(&command);
        return text != nullptr &&
               std::ranges::find(text->pieces, kLetterCodeColumn, &TextPiece::column) != text->pieces.end();
    };
    return std::ranges::any_of(m_set.reports, [&](const LetterReport &report) {
        return !report.form.codes.empty() || std::ranges::any_of(report.form.commands, isCodeField);
    });
}

std::vector<std::string> LetterRenderer::formNotices() const
{
    std::vector<std::string> notices;
    for (std::size_t i = 0; i < m_layouts.size(); ++i)
        if (auto notice = missingNotice(m_set.reports[i], *m_layouts[i])) notices.push_back(std::move(*notice));
    return notices;
}

std::vector<std::string> LetterRenderer::coverNotices() const
try {
    const std::optional<LetterReport> covers = siteCovers(m_set);
    if (!covers) return {};
    const auto notice = missingNotice(*covers, *layoutFor(*covers));
    return notice ? std::vector<std::string>{*notice} : std::vector<std::string>();
} catch (const RuntimeError &error) {
    return {error.description()};
}

const FormDocument &LetterRenderer::formOf(std::size_t letter) const
{
    const Sheet sheet = sheetOf(letter);
    return sheet.fault() == RowFault::none ? sheet.report.form : m_unreadableForm;
}

std::size_t LetterRenderer::pageCount(std::size_t letter) const
{
    return formOf(letter).pageCount();
}

Point LetterRenderer::paperSize(std::size_t letter, std::size_t page) const
{
    // An unreadable row is reported on the paper of its report.
    return m_set.paperOf(sheetOf(letter).report.form, page);
}

Affine LetterRenderer::onPaper(std::size_t letter, std::size_t page) const
{
    const Point size = formOf(letter).pageSize(page), paper = paperSize(letter, page);
    const Affine moved{1, 0, 0, 1, m_set.offsetX * kTenth, m_set.offsetY * kTenth};
    if (isSamePaper(size, paper)) return moved;
    const double scale = std::min(paper.x / size.x, paper.y / size.y);
    return moved * Affine{scale, 0, 0, scale, (paper.x - scale * size.x) / 2, (paper.y - scale * size.y) / 2};
}

LetterLayout &LetterRenderer::layoutOf(std::size_t letter)
{
    const Sheet sheet = sheetOf(letter);
    return sheet.fault() == RowFault::none ? sheet.layout : *m_unreadable;
}

const std::vector<FieldMark> &LetterRenderer::paintReadable(std::size_t letter, const Sheet &sheet,
                                                            PagePainter &painter, std::size_t page)
{
    const std::string_view code = letter < m_codes.size() ? std::string_view(m_codes[letter]) : std::string_view();
    const LetterReport &report = sheet.report;
    return sheet.layout.paintLetter(
        [&](std::size_t column) { return column == report.columns.size() ? code : report.value(sheet.row, column); },
        painter, page);
}

const std::vector<FieldMark> &LetterRenderer::paintFields(std::size_t letter, PagePainter &painter, std::size_t page)
{
    const Sheet sheet = sheetOf(letter);
    const RowFault fault = sheet.fault();
    if (fault == RowFault::none) {
        const std::vector<FieldMark> &marks = paintReadable(letter, sheet, painter, page);
        if (onMarks && !marks.empty() && letter < m_set.size()) onMarks(letter, marks);
        return marks;
    }
    const std::string number = std::to_string(sheet.row + 1);
    const std::string_view texts[] = {number, faultText(fault), sheet.report.letters.rawText(sheet.row)};
    return m_unreadable->paintLetter([&](std::size_t column) { return texts[column]; }, painter);
}

} // namespace inin::viewer
