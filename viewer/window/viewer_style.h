#pragma once

#include <QPalette>

class QApplication;

namespace inin::viewer {

/// Sets one style for every desktop, in the desktop's light or dark colours, with fonts for Japanese.
void applyStyle(QApplication &application);
/// For a line that should be noticed.
[[nodiscard]] QPalette noticePalette(QPalette palette);
/// For a line that reports a problem.
[[nodiscard]] QPalette warningPalette(QPalette palette);

} // namespace inin::viewer
