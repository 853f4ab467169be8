#pragma once

#include <span>

class QGridLayout;

namespace inin::qt {

class FormWindow;

/// The position of a control in the grid of its frame.
struct GridPlace {
    const char *control;
    int row;
    int column;
    int columns = 1;
    const char *spoken = nullptr; ///< the accessible name of a control without a caption
};

/// Adds the controls to the grids of their containers; a container gets its grid with its first control.
void placeInGrids(FormWindow &window, std::span<const GridPlace> places);
/// The grid of a frame, created on first use.
[[nodiscard]] QGridLayout &gridOfFrame(FormWindow &window, const char *frame);

} // namespace inin::qt
