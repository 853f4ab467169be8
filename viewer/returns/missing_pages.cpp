#include "viewer/returns/missing_pages.h"

#include "viewer/document/letter_renderer.h"
#include "viewer/letters/csv_reader.h"
#include "viewer/returns/missing_letters.h"

#include <fmt/format.h>

#include <algorithm>

namespace inin::viewer {

namespace {

constexpr double kMm = kPointsPerMillimetre;
constexpr double kLeft = 15 * kMm, kTop = 15 * kMm, kHeadHeight = 14 * kMm, kRowHeight = 7 * kMm;
constexpr double kHeadSize = 12, kTextSize = 9, kSmallest = 5, kThin = 0.4;
constexpr std::size_t kRowsOnPage = 34;

/// In millimetres.
struct ListColumn {
    const char *title;
    double width;
};
constexpr ListColumn kColumns[] = {{"", 8}, {"保険者", 50}, {"地区", 22}, {"利用者", 42}, {"期間", 36}, {"状態", 22}};

TextCommand textIn(const Box &box, double size, std::string text)
{
    TextCommand command;
    command.pieces = {{std::move(text), {}, {}, {}}};
    command.family = "IPAexGothic";
    command.size = size;
    command.fit = FitRule{box, VerticalAlignment::middle, 1, 1.2, 0.6, kSmallest};
    return command;
}

PathCommand outline(Path path)
{
    PathCommand command;
    command.path = std::move(path);
    command.stroke = Stroke{{120, 120, 120}, kThin, {}, LineCap::butt, LineJoin::miter};
    return command;
}

void addRow(FormDocument &form, double y, std::span<const std::string> texts)
{
    double x = kLeft;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const double width = kColumns[i].width * kMm;
        if (!texts[i].empty()) form.commands.emplace_back(textIn({x, y, width - kMm, kRowHeight}, kTextSize, texts[i]));
        x += width;
    }
    form.commands.emplace_back(outline(
        {{PathStep::Kind::move, {Point{kLeft, y + kRowHeight}}}, {PathStep::Kind::line, {Point{x, y + kRowHeight}}}}));
}

void addLetter(FormDocument &form, double y, const PrintedLetter &letter)
{
    constexpr double kBoxSize = 4 * kMm;
    form.commands.emplace_back(
        outline(rectanglePath({kLeft, y + (kRowHeight - kBoxSize) / 2, kBoxSize, kBoxSize}, 0, 0)));
    const std::string texts[] = {
        "", letter.insurer, letter.district, letter.patient, periodText(letter.period), wordsOf(letter.state).text};
    addRow(form, y, texts);
}

FormDocument pageOf(std::span<const PrintedLetter> letters, const std::string &heading)
{
    FormDocument form;
    const Point paper = sizeOf(Paper::A4);
    form.width = paper.x;
    form.height = paper.y;
    form.title = heading;
    form.commands.emplace_back(textIn({kLeft, kTop, paper.x - 2 * kLeft, kHeadHeight}, kHeadSize, heading));
    double y = kTop + kHeadHeight;
    std::string titles[std::size(kColumns)];
    std::ranges::transform(kColumns, titles, [](const ListColumn &column) { return column.title; });
    addRow(form, y, titles);
    for (const PrintedLetter &letter : letters) addLetter(form, y += kRowHeight, letter);
    if (letters.empty())
        form.commands.emplace_back(textIn({kLeft, y + kRowHeight, paper.x - 2 * kLeft, kRowHeight}, kTextSize,
                                          "返送されていない委任状はありません。"));
    return form;
}

} // namespace

LetterSet missingPages(std::span<const PrintedLetter> letters, const std::string &heading)
{
    LetterSet set;
    set.title = heading;
    const std::size_t pages = std::max<std::size_t>(1, (letters.size() + kRowsOnPage - 1) / kRowsOnPage);
    for (std::size_t page = 0; page < pages; ++page) {
        LetterReport &report = set.reports.emplace_back();
        // One row makes one page; its value is not shown.
        report.letters = readLetters("\"\"\r\n", TitleRow::none);
        report.columns = report.letters.columns();
        const std::size_t first = page * kRowsOnPage;
        report.form = pageOf(letters.subspan(first, std::min(kRowsOnPage, letters.size() - first)),
                             pages == 1 ? heading : fmt::format("{}　{}／{}ページ", heading, page + 1, pages));
    }
    return set;
}

} // namespace inin::viewer
