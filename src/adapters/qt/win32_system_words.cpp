#include "adapters/qt/system_words.h"

namespace inin::qt {

const char *const kWhatToInstall =
    "No Japanese font is installed. Please add the optional feature Japanese Supplemental Fonts.\n"
    "日本語フォントがありません。オプション機能「日本語補助フォント」を追加してください。";
/// Seen only by who looks into the standard error; the toolkit shows a box of its own before.
const char *const kNoScreen = "PrintInin: 画面に接続できません。\n";

} // namespace inin::qt
