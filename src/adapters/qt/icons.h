#pragma once

#include <QIcon>
#include <QPalette>

namespace inin::qt {

// Drawn with lines in the text colour, so that they are sharp at every scale and readable on every desktop.
[[nodiscard]] QIcon printIcon(const QPalette &palette);
[[nodiscard]] QIcon previewIcon(const QPalette &palette);
[[nodiscard]] QIcon backIcon(const QPalette &palette);
[[nodiscard]] QIcon calendarIcon(const QPalette &palette);

} // namespace inin::qt
