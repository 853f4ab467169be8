#include "viewer/check/letter_check.h"

#include "viewer/check/duplicate_letters.h"
#include "viewer/check/row_rules.h"
#include "viewer/document/letter_numbers.h"
#include "viewer/document/mark_text.h"
#include "viewer/document/sample_letters.h"
#include "viewer/form/placeholder.h"

#include <fmt/format.h>

#include <algorithm>
#include <deque>

namespace inin::viewer {

namespace {

bool isVisible(const ShapedGlyph &glyph)
{
    return glyph.text != U' ' && glyph.text != U'\t' && glyph.text != U'\u3000';
}

/// Lays a letter out without painting it, to collect its marks. Notes whether it has a visible character or a picture.
class MeasuringPainter : public PagePainter {
public:
    [[nodiscard]] bool hasText() const { return m_hasText; }
    void paint(const PathCommand &) override {}
    void paint(const GlyphRun &run) override { m_hasText = m_hasText || std::ranges::any_of(run.glyphs, isVisible); }
    void paint(const PictureCommand &) override { m_hasText = true; }

private:
    bool m_hasText = false;
};

/// Longer lists of numbers are cut: each of thousands of duplicates would list all the others.
constexpr std::size_t kMaxNamed = 10;

std::string groupText(const LetterGroup &group, std::size_t firstLetter)
{
    std::vector<std::size_t> letters(group.begin(),
                                     group.begin() + static_cast<std::ptrdiff_t>(std::min(group.size(), kMaxNamed)));
    for (std::size_t &letter : letters) letter += firstLetter;
    return letterListText(letters) + (group.size() > kMaxNamed ? "…番" : "番");
}

/// Calls `add` with each piece of the form's texts.
template <class Add> void eachPiece(const FormDocument &form, const Add &add)
{
    for (const DrawCommand &command : form.commands)
        if (const auto *const text = std::get_if<TextCommand>(&command))
            for (const TextPiece &piece : text->pieces) add(piece);
}

/// A column is needed if the form shows it without a text for an empty value.
NeededColumns neededColumns(const LetterReport &report)
{
    if (report.isListing) return std::nullopt;
    NeededColumns needed(std::in_place);
    eachPiece(report.form, [&](const TextPiece &piece) {
        if (piece.isField() && isBlankText(piece.whenBlank)) needed->insert(piece.column);
    });
    return needed;
}

std::vector<std::string> unfilledTextsOf(const LetterReport &report)
{
    std::vector<std::string> texts;
    if (report.isListing) return texts;
    eachPiece(report.form, [&](const TextPiece &piece) {
        if (hasPlaceholderBraces(piece.literal)) texts.push_back("帳票：" + piece.literal);
    });
    return texts;
}

} // namespace

struct LetterCheck::Rules {
    /// The rules of one report.
    struct OfReport {
        OfReport(const LetterReport &report, Date today)
            : rows(report.letters, neededColumns(report), today), unfilledTexts(unfilledTextsOf(report))
        {
        }
        RowRules rows;
        std::vector<std::string> unfilledTexts; ///< texts of the form that show braces of a placeholder
    };
    std::deque<OfReport> ofReports;
    std::vector<RowFinding> found;
};

LetterCheck::LetterCheck(LetterRenderer &renderer, Date today)
    : m_renderer(renderer), m_rules(std::make_unique<Rules>())
{
    const Date day = renderer.set().isSample ? sampleDay() : today;
    for (const LetterReport &report : renderer.set().reports) m_rules->ofReports.emplace_back(report, day);
}

LetterCheck::~LetterCheck() = default;

bool LetterCheck::judge(std::size_t letters)
{
    const std::size_t count = m_renderer.set().size();
    if (m_next == 0) addDuplicates();
    for (const std::size_t end = m_next + std::min(letters, count - m_next); m_next < end; ++m_next)
        judgeLetter(m_next);
    return m_next < count;
}

void LetterCheck::judgeLetter(std::size_t letter)
{
    const LetterSet::Place place = m_renderer.set().placeOf(letter);
    std::vector<RowFinding> &found = m_rules->found;
    found.clear();
    m_rules->ofReports[place.report].rows.judge(place.row, found);
    for (RowFinding &finding : found) m_found.push_back({finding.cause, letter, std::move(finding.detail)});
    if (m_renderer.set().reports[place.report].letters.fault(place.row) != RowFault::none) return;
    addMarks(letter);
    for (const std::string &text : m_rules->ofReports[place.report].unfilledTexts)
        m_found.push_back({Cause::unfilledField, letter, text});
}

void LetterCheck::addMarks(std::size_t letter)
{
    MeasuringPainter painter;
    const std::size_t pages = m_renderer.pageCount(letter);
    for (std::size_t page = 0; page < pages; ++page)
        for (const FieldMark &mark : m_renderer.paintFields(letter, painter, page)) addMark(letter, mark);
    const LetterLayout &layout = m_renderer.layoutOf(letter);
    for (std::size_t page = 0; page < pages && !painter.hasText(); ++page) layout.paintShared(painter, page);
    if (!painter.hasText()) m_found.push_back({Cause::blankPage, letter, {}});
}

void LetterCheck::addMark(std::size_t letter, const FieldMark &mark)
{
    const bool datesAreReported = std::ranges::count(m_rules->found, Cause::noDate, &RowFinding::cause) != 0;
    const std::string columns = columnNames(m_renderer.layoutOf(letter), mark);
    if (mark.noDate && !datesAreReported) m_found.push_back({Cause::noDate, letter, columns});
    if (mark.noWord) m_found.push_back({Cause::unknownCode, letter, columns});
    if (!mark.missing.empty())
        m_found.push_back({Cause::missingInFont, letter, fmt::format("{}：{}", columns, charactersText(mark.missing))});
    if (mark.doesNotFit)
        m_found.push_back({Cause::doesNotFit, letter, columns});
    else if (mark.shrunk)
        m_found.push_back({Cause::shrunk, letter, columns});
}

/// Duplicates are searched within one report: a merge may well contain two forms for the same person.
void LetterCheck::addDuplicates()
{
    std::size_t first = 0;
    for (const LetterReport &report : m_renderer.set().reports) {
        const auto add = [&](Cause cause, const std::vector<LetterGroup> &groups) {
            for (const LetterGroup &group : groups) {
                const std::string text = groupText(group, first);
                for (const std::size_t row : group) m_found.push_back({cause, first + row, text});
            }
        };
        add(Cause::sameLetter, sameLetters(report.letters));
        add(Cause::samePerson, samePersons(report.letters));
        first += report.letters.size();
    }
}

std::vector<Finding> LetterCheck::take()
{
    std::ranges::stable_sort(m_found, [](const Finding &a, const Finding &b) {
        return a.cause != b.cause ? a.cause < b.cause : a.letter < b.letter;
    });
    return std::move(m_found);
}

std::vector<Finding> checkLetters(LetterRenderer &renderer, Date today)
{
    LetterCheck check(renderer, today);
    while (check.judge(renderer.set().size())) {
    }
    return check.take();
}

} // namespace inin::viewer
