#pragma once

#include <span>

class QGridLayout;

namespace inin::qt {

class FormWindow;

/// Where a control stands in the grid of its frame.
struct GridPlace {
    const char *control;
    int row;
    int column;
    int columns = 1;
    const char *spoken = nullptr; ///< what a screen reader says for a control without words of its own
};

/// Puts the controls into the grids of their containers; a container gets its grid with the first control.
void placeInGrids(FormWindow &window, std::span<const GridPlace> places);
/// The grid of a frame, made if it has none.
[[nodiscard]] QGridLayout &gridOfFrame(FormWindow &window, const char *frame);

} // namespace inin::qt
