#pragma once

#include <QPalette>

class QApplication;

namespace inin::theme {

// The style of both programs: one style on every desktop, light or dark like the desktop, with readable colours.

/// Sets the style, the colours and the icon of the windows. The colours are those of the desktop, also when it changes
/// them later, except where text would not be readable. The font is set separately: see useJapaneseFont.
void applyTheme(QApplication &application);

[[nodiscard]] bool isDark(const QPalette &palette);
/// The plain dark palette, for desktops that report no colours of their own, for tests and for pictures.
[[nodiscard]] QPalette darkPalette();
/// The palette with text that is readable on its background: text and selected text with a contrast of at least 4.5,
/// disabled text with at least 3.
[[nodiscard]] QPalette readablePalette(QPalette palette);

/// The outline of options and check boxes, visible on the window's background.
[[nodiscard]] QColor outlineColour(const QPalette &palette);
/// The frame around the widget with the focus, visible on the window's background.
[[nodiscard]] QColor focusColour(const QPalette &palette);

} // namespace inin::theme
