#include "adapters/qt/grid_places.h"

#include "adapters/qt/form_window.h"
#include "adapters/qt/qt_text.h"

#include <QGridLayout>

namespace inin::qt {

namespace {

constexpr int kSideMargin = 10;
constexpr int kTopMargin = 2;
constexpr int kBottomMargin = 4;
constexpr int kColumnGap = 8;
constexpr int kRowGap = 3;

QGridLayout &gridOf(QWidget &container)
{
    if (auto *grid = dynamic_cast<QGridLayout *>(container.layout())) return *grid;
    auto *grid = new QGridLayout(&container); // owned by the container
    grid->setContentsMargins(kSideMargin, kTopMargin, kSideMargin, kBottomMargin);
    grid->setHorizontalSpacing(kColumnGap);
    grid->setVerticalSpacing(kRowGap);
    return *grid;
}

} // namespace

QGridLayout &gridOfFrame(FormWindow &window, const char *frame)
{
    return gridOf(window.widget(frame));
}

void placeInGrids(FormWindow &window, std::span<const GridPlace> places)
{
    for (const GridPlace &place : places) {
        QWidget &widget = window.widget(place.control);
        gridOf(*widget.parentWidget()).addWidget(&widget, place.row, place.column, 1, place.columns);
        if (place.spoken != nullptr) widget.setAccessibleName(toQt(place.spoken));
    }
}

} // namespace inin::qt
