#include "adapters/qt/system_words.h"

namespace inin::qt {

const char *const kWhatToInstall =
    "No Japanese font is installed. Please install the package fonts-ipaexfont.\n"
    "日本語フォントがありません。パッケージ fonts-ipaexfont をインストールしてください。";
const char *const kNoScreen = "PrintInin: 画面に接続できません。（DISPLAY を確かめてください。）\n";

} // namespace inin::qt
