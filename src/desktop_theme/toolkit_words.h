#pragma once

class QApplication;

namespace inin::theme {

/// Loads the toolkit's own Japanese texts (buttons of its boxes, menus of its text boxes) if they are installed.
void useJapaneseWords(QApplication &application);

} // namespace inin::theme
