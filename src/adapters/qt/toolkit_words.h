#pragma once

class QApplication;

namespace inin::qt {

/// The toolkit's own words (the buttons of its boxes, the menus of its text boxes) in Japanese, where the system has them.
void useJapaneseWords(QApplication &application);

} // namespace inin::qt
