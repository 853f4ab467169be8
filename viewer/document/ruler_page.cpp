#include "viewer/document/ruler_page.h"

#include "viewer/document/letter_renderer.h"
#include "viewer/letters/csv_reader.h"

#include <fmt/format.h>

namespace inin::viewer {

namespace {

constexpr double kMm = kPointsPerMillimetre;
/// Where the rulers cross, from the sheet's left and upper edge: far enough inside for every printer.
constexpr int kCrossing = 30;
constexpr int kFirst = 5; ///< most printers leave about this much of the edge white
constexpr double kThin = 0.35;
constexpr const char *kFamily = "IPAexGothic";

struct Tick {
    int every;     ///< millimetres
    double length; ///< millimetres
};
constexpr Tick kTicks[] = {{10, 4}, {5, 2.8}, {1, 1.6}};

double tickLength(int millimetre)
{
    for (const Tick &tick : kTicks)
        if (millimetre % tick.every == 0) return tick.length;
    return 0;
}

TextCommand textAt(Point place, double size, Anchor anchor, std::string text)
{
    TextCommand command;
    command.pieces = {{std::move(text), {}, {}, {}}};
    command.family = kFamily;
    command.size = size;
    command.anchor = anchor;
    command.at = {1, 0, 0, 1, place.x, place.y};
    return command;
}

TextCommand textIn(const Box &box, double size, std::string text)
{
    TextCommand command = textAt({}, size, Anchor::start, std::move(text));
    constexpr int kMaxLines = 40;
    constexpr double kLeading = 1.4;
    command.fit = FitRule{box, VerticalAlignment::top, kMaxLines, kLeading, 1, size / 2};
    return command;
}

enum class Way { across, down };

void addRuler(FormDocument &form, double length, Way way)
{
    const auto at = [&](double along, double aside) {
        return way == Way::across ? Point{along * kMm, (kCrossing + aside) * kMm}
                                  : Point{(kCrossing + aside) * kMm, along * kMm};
    };
    PathCommand lines;
    lines.stroke = Stroke{{}, kThin, {}, LineCap::butt, LineJoin::miter};
    const auto draw = [&](Point from, Point to) {
        lines.path.push_back({PathStep::Kind::move, {from}});
        lines.path.push_back({PathStep::Kind::line, {to}});
    };
    const int last = static_cast<int>(length / kMm) - kFirst;
    draw(at(kFirst, 0), at(last, 0));
    for (int millimetre = kFirst; millimetre <= last; ++millimetre) {
        draw(at(millimetre, 0), at(millimetre, tickLength(millimetre)));
        if (millimetre % kTicks[0].every != 0 || millimetre == kCrossing) continue;
        // Below its tick, or right of it and vertically centred: a digit is about 0.7 of its size tall.
        constexpr double kSize = 8, kTextAside = 4.5, kRise = 0.35 * kSize;
        const Point place = at(millimetre, kTextAside);
        const double baseline = way == Way::across ? kSize : kRise;
        form.commands.emplace_back(textAt({place.x, place.y + baseline}, kSize,
                                          way == Way::across ? Anchor::middle : Anchor::start,
                                          std::to_string(millimetre)));
    }
    form.commands.emplace_back(std::move(lines));
}

std::string guide(const std::string &printer, std::int32_t right, std::int32_t down)
{
    constexpr double kTenths = 10;
    return fmt::format("プリンター：{0}\n今の調整：右へ {1:.1f} mm、下へ {2:.1f} mm\n\n"
                       "１　用紙の左端から縦の定規の線までを、別の定規で測ります。\n"
                       "　　{3} mm より短いときは、その差だけ「右へ」を増やします。\n"
                       "　　長いときは、その差だけ「右へ」を減らします。\n\n"
                       "２　用紙の上端から横の定規の線までを、同じように測ります。\n"
                       "　　{3} mm より短いときは、その差だけ「下へ」を増やします。\n"
                       "　　長いときは、その差だけ「下へ」を減らします。\n\n"
                       "３　もう一度このページを印刷し、どちらも {3} mm になれば終わりです。",
                       printer, right / kTenths, down / kTenths, kCrossing);
}

} // namespace

LetterSet rulerLetters(Paper paper, const std::string &printer, std::int32_t right, std::int32_t down)
{
    LetterSet set;
    set.title = "位置調整のテスト";
    set.paper = paper;
    LetterReport &report = set.reports.emplace_back();
    // One row makes one page; its value is not shown.
    report.letters = readLetters("\"\"\r\n", TitleRow::none);
    report.columns = report.letters.columns();
    const Point size = sizeOf(paper);
    report.form.width = size.x;
    report.form.height = size.y;
    addRuler(report.form, size.x, Way::across);
    addRuler(report.form, size.y, Way::down);
    constexpr double kLeft = 60 * kMm, kTop = 60 * kMm, kMargin = 15 * kMm;
    constexpr double kHead = 16, kText = 11, kHeadRoom = 10 * kMm;
    const double width = size.x - kLeft - kMargin;
    report.form.commands.emplace_back(textIn({kLeft, kTop, width, kHeadRoom}, kHead, set.title));
    report.form.commands.emplace_back(textIn({kLeft, kTop + kHeadRoom, width, size.y - kTop - kHeadRoom - kMargin},
                                             kText, guide(printer, right, down)));
    return set;
}

} // namespace inin::viewer
