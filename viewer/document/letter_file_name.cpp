#include "viewer/document/letter_file_name.h"

#include "runtime/runtime_error.h"
#include "runtime/text.h"
#include "runtime/utf8.h"
#include "viewer/form/date_pattern.h"

#include <fmt/format.h>

#include <algorithm>

namespace inin::viewer {

namespace {

constexpr std::string_view kNumber = "番号";
/// Bytes of a name without its extension and the number of a duplicate: file systems allow 255.
constexpr std::size_t kLongest = 200;
constexpr std::string_view kRefused = "/\\:*?\"<>|";

bool isKnown(const LetterSet &set, const std::string &column)
{
    return column == kNumber || std::ranges::all_of(set.reports, [&](const LetterReport &report) {
               return std::ranges::find(report.columns, column) != report.columns.end();
           });
}

std::string fileNameOf(std::string_view text)
{
    std::string name;
    for (const char letter : text) {
        const bool isControl = static_cast<unsigned char>(letter) < 0x20 || letter == 0x7F;
        name += isControl || kRefused.find(letter) != kRefused.npos ? '_' : letter;
    }
    name.resize(characterStart(name, std::min(name.size(), kLongest)));
    // Some systems drop blanks and dots at a name's end, and hide names that begin with a dot.
    while (!name.empty() && (name.back() == ' ' || name.back() == '.')) name.pop_back();
    name.erase(0, name.find_first_not_of(" ."));
    return name;
}

/// The first and the last month of some dates.
class MonthSpan {
public:
    void add(std::string_view date)
    {
        // Most letters have the dates of the letter before.
        if (date == m_last) return;
        m_last = date;
        const std::optional<std::string> order = formattedDate(date, "yyyymm");
        if (!order) return;
        if (!m_from || *order < m_from->order) m_from = Month{*order, m_last};
        if (!m_to || *order > m_to->order) m_to = Month{*order, m_last};
    }
    /// "R8.11", "R8.11-R9.01" for a pattern and what is between two months, or empty without a date.
    [[nodiscard]] std::string text(std::string_view pattern, std::string_view between) const
    {
        if (!m_from) return {};
        const auto written = [&](const Month &month) {
            return formattedDate(month.date, pattern).value_or(month.order);
        };
        if (m_from->order == m_to->order) return written(*m_from);
        return fmt::format("{}{}{}", written(*m_from), between, written(*m_to));
    }

private:
    struct Month {
        std::string order, date;
    };
    std::optional<Month> m_from, m_to;
    std::string m_last;
};

MonthSpan monthsOf(const LetterSet &set, std::span<const std::size_t> which)
{
    MonthSpan months;
    for (const char *const name : {"対象開始日", "対象終了日"})
        for (const std::size_t letter : which) {
            const LetterSet::Place place = set.placeOf(letter);
            const LetterTable &table = set.reports[place.report].letters;
            if (const auto column = table.columnOf(name)) months.add(table.value(place.row, *column));
        }
    return months;
}

} // namespace

LetterFileNames::LetterFileNames(const LetterSet &set, std::string_view pattern, std::string_view ending)
    : m_set(set), m_pieces(readPieces(pattern)), m_ending(ending)
{
    for (const TextPiece &piece : m_pieces)
        if (piece.isField() && !isKnown(set, piece.column))
            throw RuntimeError(
                error_number::noSuchField,
                fmt::format("ファイル名の「{{{{{0}}}}}」の列「{0}」が CSV にありません。", piece.column));
}

std::string LetterFileNames::textOf(std::size_t letter) const
{
    const LetterSet::Place place = m_set.placeOf(letter);
    const LetterReport &report = m_set.reports[place.report];
    // As many digits as the last number has, so that the names sort in the order of the letters.
    const std::size_t digits = std::to_string(m_set.size()).size();
    std::string text;
    for (const TextPiece &piece : m_pieces) {
        if (!piece.isField()) {
            text += piece.literal;
            continue;
        }
        if (piece.column == kNumber) {
            text += fmt::format("{:0{}}", letter + 1, digits);
            continue;
        }
        const auto column = std::ranges::find(report.columns, piece.column) - report.columns.begin();
        const std::string_view value = report.value(place.row, static_cast<std::size_t>(column));
        const auto written = piece.pattern.empty() ? std::nullopt : formattedDate(value, piece.pattern);
        text += value.empty() ? piece.whenBlank : written ? *written : std::string(value);
    }
    return text;
}

std::string LetterFileNames::nameOf(std::size_t letter)
{
    std::string name = fileNameOf(textOf(letter));
    if (name.empty()) name = std::to_string(letter + 1);
    return m_names.take(name) + m_ending;
}

std::string UniqueNames::take(const std::string &name)
{
    std::string free = name;
    for (int twin = 2; !m_given.insert(asciiLower(free)).second; ++twin) free = fmt::format("{} ({})", name, twin);
    return free;
}

std::string BundleFileNames::groupOf(const LetterBundle &bundle) const
{
    const auto named = [](const std::string &text, const char *none) { return text.empty() ? none : text; };
    switch (m_sort) {
    case LetterSort::insurer:
        return "_" + named(insurersText(m_letterNames, bundle), "保険者なし");
    case LetterSort::district:
        return "_" + named(districtsText(m_letterNames, bundle), "地区なし");
    case LetterSort::extraction:
    case LetterSort::patient:
        break;
    }
    return {};
}

std::string BundleFileNames::nameOf(const LetterBundle &bundle)
{
    return m_names.take(fileNameOf(fileNameOfAll(m_set, bundle.letters, "") + groupOf(bundle))) + m_ending;
}

std::string fileNameOfAll(const LetterSet &set, std::span<const std::size_t> which, std::string_view ending)
{
    const std::string months = monthsOf(set, which).text("ge.mm", "-");
    return fileNameOf(set.shownTitle() + (months.empty() ? "" : "_" + months)) + std::string(ending);
}

std::string documentTitle(const LetterSet &set, std::span<const std::size_t> which)
{
    const std::string months = monthsOf(set, which).text("ggge年m月", "～");
    return set.kindTitle() + (months.empty() ? "" : "　" + months);
}

} // namespace inin::viewer
