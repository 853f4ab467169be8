#include "viewer/form/svg_pages.h"

#include "runtime/runtime_error.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace inin::viewer {

namespace {

constexpr std::size_t kMostPages = 100;
constexpr std::size_t kMostCommands = 100'000; ///< a shape counts once for each page that it touches
/// Points. A border along the edge of a page does not belong to the page beside it.
constexpr double kOverlap = 0.5;

Box extentOf(const DrawCommand &command)
{
    if (const auto *path = std::get_if<PathCommand>(&command)) return boundsOf(path->path);
    if (const auto *picture = std::get_if<PictureCommand>(&command)) {
        Path corners;
        for (const Point corner : {Point{0, 0}, Point{1, 0}, Point{0, 1}, Point{1, 1}})
            corners.push_back({corners.empty() ? PathStep::Kind::move : PathStep::Kind::line, {picture->at(corner)}});
        return boundsOf(corners);
    }
    const auto &text = std::get<TextCommand>(command);
    if (text.fit)
        return {text.fit->box.left + text.fit->box.width / 2, text.fit->box.top + text.fit->box.height / 2, 0, 0};
    const Point begin = text.at({});
    return {begin.x, begin.y, 0, 0};
}

bool touches(const Box &box, const Box &page)
{
    return box.left <= page.right() - kOverlap && box.right() >= page.left + kOverlap &&
           box.top <= page.bottom() - kOverlap && box.bottom() >= page.top + kOverlap;
}

void moveBy(DrawCommand &command, double x, double y)
{
    const Affine move{1, 0, 0, 1, x, y};
    if (auto *path = std::get_if<PathCommand>(&command)) return transformPath(path->path, move);
    if (auto *picture = std::get_if<PictureCommand>(&command)) {
        picture->at = move * picture->at;
        return;
    }
    auto &text = std::get<TextCommand>(command);
    text.at = move * text.at;
    if (!text.fit) return;
    text.fit->box.left += x;
    text.fit->box.top += y;
}

} // namespace

void distributeOverPages(FormDocument &form, const std::vector<Box> &areas, const NoticeHandler &report)
{
    if (areas.empty()) return;
    if (areas.size() > kMostPages)
        throw RuntimeError(error_number::invalidCall, fmt::format("ページが多すぎます（{}ページまで）。", kMostPages));
    form.width = areas.front().width;
    form.height = areas.front().height;
    for (std::size_t i = 1; i < areas.size(); ++i) form.morePages.push_back({areas[i].width, areas[i].height});
    for (CodeCommand &code : form.codes) {
        const auto page = std::ranges::find_if(areas, [&](const Box &area) { return touches(code.box, area); });
        if (page == areas.end()) continue;
        code.place.page = static_cast<std::size_t>(page - areas.begin());
        code.box.left -= page->left;
        code.box.top -= page->top;
    }
    const std::vector<DrawCommand> all = std::exchange(form.commands, {});
    for (const DrawCommand &command : all) {
        const Box extent = extentOf(command);
        const auto *const text = std::get_if<TextCommand>(&command);
        bool isOnPage = false;
        for (std::size_t page = 0; page < areas.size() && !(isOnPage && text != nullptr); ++page) {
            if (!touches(extent, areas[page])) continue;
            if (form.commands.size() == kMostCommands)
                throw RuntimeError(error_number::invalidCall, "いくつものページに重なる図形が多すぎます。");
            isOnPage = true;
            DrawCommand &added = form.commands.emplace_back(command);
            placeOf(added).page = page;
            moveBy(added, -areas[page].left, -areas[page].top);
        }
        if (!isOnPage && text != nullptr)
            report(fmt::format("ページの外にある文字{}は印刷しません。", quotedName(*text)));
    }
}

} // namespace inin::viewer
