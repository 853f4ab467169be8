#include "viewer/ledger/run_texts.h"

#include "runtime/date_text.h"
#include "runtime/runtime_error.h"
#include "viewer/io/fingerprint.h"

#include <algorithm>
#include <limits>
#include <variant>

namespace inin::viewer {

namespace {

/// A form without any field, such as a blank one, shows nothing of a row.
bool showsTexts(const FormDocument &form)
{
    return std::ranges::any_of(form.commands, [](const DrawCommand &command) {
        const auto *const text = std::get_if<TextCommand>(&command);
        return text != nullptr && text->isField();
    });
}

/// The column of unreadable rows, as in the file.
constexpr std::string_view kUnreadable = "読めない行";

bool hasUnreadableRow(const LetterReport &report)
{
    for (std::size_t row = 0; row < report.letters.size(); ++row)
        if (report.letters.fault(row) != RowFault::none) return true;
    return false;
}

std::vector<std::string> allColumns(const LetterSet &set)
{
    std::vector<std::string> all;
    for (const LetterReport &report : set.reports)
        for (const std::string &column : report.columns)
            if (std::ranges::find(all, column) == all.end()) all.push_back(column);
    if (std::ranges::any_of(set.reports, hasUnreadableRow)) all.emplace_back(kUnreadable);
    return all;
}

void addReport(RunTexts &texts, const LetterReport &report)
{
    std::vector<std::optional<std::size_t>> places; // of each column of all reports in this one
    for (const std::string &column : texts.columns()) {
        const auto found = std::ranges::find(report.columns, column);
        const auto place = static_cast<std::size_t>(found - report.columns.begin());
        places.push_back(found == report.columns.end() ? std::nullopt : std::optional(place));
    }
    const bool hasUnreadable = texts.columns().back() == kUnreadable;
    const bool isShown = report.isListing || showsTexts(report.form);
    for (std::size_t row = 0; row < report.letters.size(); ++row) {
        for (std::size_t i = 0; i < places.size(); ++i) {
            const bool isRaw = hasUnreadable && i + 1 == places.size();
            if (!isShown)
                texts.add({});
            else if (isRaw)
                texts.add(report.letters.rawText(row));
            else
                texts.add(places[i] ? report.value(row, *places[i]) : std::string_view());
        }
    }
}

/// The months of a period that begins and ends on these days.
std::optional<MonthRange> monthsBetween(std::string_view start, std::string_view end)
{
    const std::optional<Date> from = readDate(start, Regional{}), to = readDate(end, Regional{});
    if (!from || !to) return std::nullopt;
    const std::int32_t first = monthNumber(Year(*from), Month(*from)), last = monthNumber(Year(*to), Month(*to));
    if (last < first) return std::nullopt;
    return MonthRange{first, last};
}

std::optional<MonthRange> periodOf(const LetterReport &report)
{
    const auto start = report.letters.columnOf("対象開始日"), end = report.letters.columnOf("対象終了日");
    if (!start || !end || report.letters.size() == 0) return std::nullopt;
    return monthsBetween(report.letters.value(0, *start), report.letters.value(0, *end));
}

} // namespace

std::optional<std::size_t> RunTexts::columnOf(std::string_view name) const
{
    const auto found = std::ranges::find(m_columns, name);
    if (found == m_columns.end()) return std::nullopt;
    return static_cast<std::size_t>(found - m_columns.begin());
}

std::string_view RunTexts::value(std::size_t letter, std::size_t column) const
{
    const std::size_t index = letter * m_columns.size() + column;
    const std::size_t begin = index == 0 ? 0 : m_ends[index - 1];
    return std::string_view(m_text).substr(begin, m_ends[index] - begin);
}

std::string_view RunTexts::value(std::size_t letter, std::optional<std::size_t> column) const
{
    return column ? value(letter, *column) : std::string_view();
}

void RunTexts::add(std::string_view text)
{
    if (text.size() > std::numeric_limits<std::uint32_t>::max() - m_text.size())
        throw RuntimeError(error_number::outOfMemory);
    m_text += text;
    m_ends.push_back(static_cast<std::uint32_t>(m_text.size()));
}

RunTexts textsOf(const LetterSet &set)
{
    RunTexts texts(allColumns(set));
    for (const LetterReport &report : set.reports) addReport(texts, report);
    return texts;
}

RunMark markOf(const LetterSet &set)
{
    RunMark mark;
    mark.title = set.shownTitle();
    mark.letters = set.size();
    Fingerprint csv, form;
    for (const LetterReport &report : set.reports) {
        csv.add(report.letters.fileBytes());
        for (const LetterTable &table : report.others) csv.add(table.fileBytes());
        form.add(report.formFingerprint);
        if (!mark.formName.empty()) mark.formName += "、";
        mark.formName += report.formFileName();
        const std::optional<MonthRange> period = periodOf(report);
        if (!period) continue;
        mark.period = mark.period ? MonthRange{std::min(mark.period->first, period->first),
                                               std::max(mark.period->last, period->last)}
                                  : *period;
    }
    mark.csvFingerprint = csv.text();
    mark.formFingerprint = form.text();
    return mark;
}

} // namespace inin::viewer
