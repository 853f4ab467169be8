#include "shell/online_help.h"

#include "common/field_input.h"
#include "common/helpers.h"
#include "common/opl_ini_file.h"
#include "runtime/runtime_error.h"
#include "runtime/text.h"
#include "runtime/utf8.h"

#include <algorithm>

namespace inin {

namespace {

constexpr std::int16_t kDone = 0;
constexpr std::int16_t kRead = 1;
constexpr std::int16_t kFailed = -1;

/// The value after a key at the very beginning of a field.
void takeAfterKey(const std::string &field, std::string_view key, std::string &value)
{
    if (field.starts_with(key)) value = field.substr(key.size());
}

/// The query that identifies the user to the help site; empty without the user file. Deliberately not escaped: the site
/// reads the two reversed words as they are.
std::string queryFor(App &app, std::int16_t iPage)
{
    std::string csUser;
    std::string csPwd;
    if (iGetEmapUser(app, csUser, csPwd) == kFailed) return {};
    return "?zi=" + reversedCharacters(csUser) + "&zp=" + reversedCharacters(csPwd) +
           "&lk=" + std::to_string(std::max(iPage, kFirstHelpPage));
}

} // namespace

void vDispHelp(App &app, std::int16_t iPage)
{
    if (iGetHelpAddress(app) == kFailed) {
        app.platform.boxes.show("環境ファイルの取得に失敗しました。", Icon::critical, "データ参照エラー");
        return;
    }
    const std::string query = queryFor(app, iPage);
    if (app.csHelpUrl.empty()) {
        app.platform.boxes.show("オンラインヘルプは現在ご利用いただけません。", Icon::exclamation, "機能制限中");
        return;
    }
    app.csHelpUrl += query;
    app.platform.processes.openAddress(app.csHelpUrl);
}

std::int16_t iGetHelpAddress(App &app)
try {
    // The version window reads the same file with a different spelling of its name.
    clsOplIniFile file(app.platform);
    if (file.iInit(app.platform.files.applicationFolder() + "\\Sorvin.Ver") != kDone) return kFailed;
    const std::string value = file.csGetProfileString("OnlineHelp", "ADDRESS");
    const bool isWebAddress = !trim(value).empty() && value.starts_with("http");
    app.csHelpUrl = isWebAddress ? rtrim(csCutNul(value)) : std::string();
    return kDone;
} catch (const RuntimeError &error) {
    app.platform.boxes.show("Error:" + error.description(), Icon::none);
    return kDone;
}

std::int16_t iGetEmapUser(App &app, std::string &csUser, std::string &csPwd)
try {
    FieldInput file(app.platform, app.gcsAppPath + "\\EmapUser.ini");
    while (!file.isAtEnd()) {
        const std::string field = file.next();
        takeAfterKey(field, "ZENRIN_USER=", csUser);
        takeAfterKey(field, "ZENRIN_PWD=", csPwd);
    }
    return kRead;
} catch (const RuntimeError &) {
    return kFailed;
}

std::string reversedCharacters(std::string_view text)
{
    std::string reversed(text.size(), '\0');
    for (auto end = reversed.end(); !text.empty();) {
        const std::string_view character = text.substr(0, firstCharacter(text).bytes);
        end -= static_cast<std::ptrdiff_t>(character.size());
        std::ranges::copy(character, end);
        text.remove_prefix(character.size());
    }
    return reversed;
}

} // namespace inin
