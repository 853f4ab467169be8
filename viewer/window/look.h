#pragma once

#include <QPalette>

class QApplication;

namespace inin::viewer {

/// One style on every desktop, in the desktop's light or dark colours, with letters for Japanese.
void applyLook(QApplication &application);
[[nodiscard]] bool isDark(const QPalette &palette);
/// For a line that wants to be noticed.
[[nodiscard]] QPalette noticePalette(QPalette palette);
/// For a line that tells of something wrong.
[[nodiscard]] QPalette warningPalette(QPalette palette);

} // namespace inin::viewer
