#pragma once

#include <QColor>
#include <QPalette>

#include <cstdint>
#include <optional>

class QApplication;
class QWidget;

namespace inin::qt {

/// One look for all windows: one style on every desktop, its colours light or dark as the desktop's are. The letters come
/// later, by FontReading.
void applyTheme(QApplication &application);

[[nodiscard]] bool isDark(const QPalette &palette);
/// The plain dark palette, for desktops that tell of no colours of their own, and for pictures of the windows.
[[nodiscard]] QPalette darkPalette();

/// A control's colour (blue-green-red) in the desktop's light: greys give way to the desktop's own on a dark one, colours
/// keep their hue.
[[nodiscard]] std::optional<QColor> themedColour(std::int32_t blueGreenRed, const QPalette &palette);
/// Paints a widget with a control's colour, with letters that can be read on it.
void paintWith(QWidget &widget, std::int32_t blueGreenRed);
/// How the text of a box was read; a doubtful one was taken.
enum class Reading { plain, doubtful, unreadable };
/// Colours a box by how its text was read.
void markReading(QWidget &box, Reading reading);

} // namespace inin::qt
