#pragma once

#include <QFont>

namespace inin {

/// True when the system has letters for Japanese text.
[[nodiscard]] bool hasJapaneseFont();
/// The desktop's own font when it has Japanese letters, else the best one that the system has, at the same size.
[[nodiscard]] QFont japaneseFont(const QFont &desktop);
/// What to install; in English too, for without the letters nobody can read the Japanese.
[[nodiscard]] const char *missingFontAdvice();

} // namespace inin
