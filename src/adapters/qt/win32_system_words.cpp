#include "adapters/qt/system_words.h"

namespace inin::qt {

const char *const kWhatToInstall =
    "No Japanese font is installed. Please add the optional feature Japanese Supplemental Fonts.\n"
    "日本語フォントがありません。オプション機能「日本語補助フォント」を追加してください。";
/// Seen only on the standard error stream; the toolkit shows its own message box first.
const char *const kNoScreen = "PrintInin: 画面に接続できません。\n";

} // namespace inin::qt
