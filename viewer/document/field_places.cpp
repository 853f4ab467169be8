#include "viewer/document/field_places.h"

#include <algorithm>

namespace inin::viewer {

namespace {

Box extentOfText(const TextCommand &text)
{
    if (text.fit) return text.fit->box;
    return {text.at.e, text.at.f - text.size, text.size, text.size};
}

} // namespace

std::vector<PlaceOnPage> placesOfColumns(LetterRenderer &renderer, std::size_t letter,
                                         std::span<const std::string> columns)
{
    const LetterSet &set = renderer.set();
    const LetterSet::Place place = set.placeOf(letter);
    const LetterReport &report = set.reports[place.report];
    if (report.letters.fault(place.row) != RowFault::none) return {};
    const LetterLayout &layout = renderer.layoutOf(letter);
    std::vector<PlaceOnPage> places;
    for (const FormField &field : layout.fields()) {
        const auto isWanted = [&](std::size_t column) {
            return std::ranges::find(columns, report.columns[column]) != columns.end();
        };
        if (std::ranges::none_of(field.columns, isWanted)) continue;
        const auto &text = std::get<TextCommand>(layout.form().commands[field.command]);
        const std::size_t page = text.place.page;
        const Affine onPaper = renderer.onPaper(letter, page);
        const Box box = extentOfText(text);
        const Point from = onPaper({box.left, box.top}), to = onPaper({box.right(), box.bottom()});
        places.push_back({{from.x, from.y, to.x - from.x, to.y - from.y}, page});
    }
    return places;
}

} // namespace inin::viewer
