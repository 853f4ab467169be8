#pragma once

#include <QFont>

class QApplication;

namespace inin::theme {

/// Sets the application's font to the desktop's, replaced where it has no Japanese characters, and does so again
/// whenever the desktop sets another font.
void useJapaneseFont(QApplication &application);

/// The desktop's own font if it has Japanese characters, otherwise the best installed one at the same size.
[[nodiscard]] QFont japaneseFont(const QFont &desktop);

} // namespace inin::theme
