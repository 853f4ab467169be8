#include "viewer/document/form_notices.h"

#include "viewer/document/paper_size.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>

namespace inin::viewer {

namespace {

std::optional<std::string> paperNotice(const LetterSet &set, const LetterReport &report)
{
    if (set.usesFormPaper || report.isListing) return std::nullopt;
    const Point paper = sizeOf(set.paper);
    for (std::size_t page = 0; page < report.form.pageCount(); ++page) {
        const Point size = report.form.pageSize(page);
        if (isSamePaper(size, paper)) continue;
        const std::string form = paperName(size), script = paperName(paper);
        if (set.hasOwnPaper(report.form, page))
            return fmt::format("「{}」：コマンドファイルの用紙は{}ですが、帳票の大きさ（{}）の用紙に印刷します。",
                               report.formPath, script, form);
        return fmt::format("「{}」：帳票の大きさ（{}）と用紙（{}）が違います。用紙に合わせて拡大または縮小します。",
                           report.formPath, form, script);
    }
    return std::nullopt;
}

/// The columns that the form shows as dates to be filled in by hand if they are blank.
std::vector<std::size_t> fillInColumns(const LetterReport &report)
{
    std::vector<std::size_t> columns;
    const auto add = [&](const TextPiece &piece) {
        const auto at = std::ranges::find(report.columns, piece.column);
        if (piece.isField() && piece.isDateToFillIn() && at != report.columns.end())
            columns.push_back(static_cast<std::size_t>(at - report.columns.begin()));
    };
    for (const DrawCommand &command : report.form.commands)
        if (const auto *const text = std::get_if<TextCommand>(&command)) std::ranges::for_each(text->pieces, add);
    std::ranges::sort(columns);
    columns.erase(std::unique(columns.begin(), columns.end()), columns.end());
    return columns;
}

std::optional<std::string> blankDatesNotice(const LetterReport &report)
{
    const std::vector<std::size_t> columns = fillInColumns(report);
    std::vector<bool> isBlank(columns.size());
    std::size_t letters = 0;
    for (std::size_t row = 0; row < report.letters.size(); ++row) {
        if (report.letters.fault(row) != RowFault::none) continue;
        bool hasBlank = false;
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (!isBlankText(report.value(row, columns[i]))) continue;
            isBlank[i] = hasBlank = true;
        }
        letters += hasBlank ? 1 : 0;
    }
    if (letters == 0) return std::nullopt;
    std::string names;
    for (std::size_t i = 0; i < columns.size(); ++i)
        if (isBlank[i]) names += (names.empty() ? "" : "、") + report.columns[columns[i]];
    return fmt::format("日付（{}）が空の委任状が{}通あります。手で書き入れる空欄にして印刷します。", names, letters);
}

} // namespace

std::vector<std::string> noticesAboutForm(const LetterSet &set, const LetterReport &report)
{
    std::vector<std::string> notices;
    for (std::optional<std::string> notice : {paperNotice(set, report), blankDatesNotice(report)})
        if (notice) notices.push_back(std::move(*notice));
    return notices;
}

} // namespace inin::viewer
