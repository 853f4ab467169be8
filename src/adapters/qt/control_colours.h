#pragma once

#include <QColor>
#include <QPalette>

#include <cstdint>
#include <optional>

class QWidget;

namespace inin::qt {

/// A control's colour (blue-green-red) adapted to the desktop: on a dark one, greys are replaced by the desktop's own
/// and other colours keep their hue.
[[nodiscard]] std::optional<QColor> themedColour(std::int32_t blueGreenRed, const QPalette &palette);
/// Paints a widget in a control's colour, with a readable text colour.
void paintWith(QWidget &widget, std::int32_t blueGreenRed);
/// How the text of a box was read; a doubtful one was accepted.
enum class Reading { plain, doubtful, unreadable };
/// Colours a box by the result of reading its text.
void colourByReading(QWidget &box, Reading reading);

} // namespace inin::qt
