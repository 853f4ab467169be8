#include "shell/settings.h"

#include "common/text_file.h"
#include "runtime/conversion.h"
#include "runtime/text.h"

#include <optional>

namespace inin {

namespace {

constexpr const char *kWarningTitle = "警告！";

/// The text after the first "=" of the first line with that key. The file is closed on return, so that another program
/// of the suite can write it while a box is open.
std::optional<std::string> findValue(App &app, const std::string &path, const std::string &csKey)
{
    const std::string key = trim(csKey);
    TextInput file(app.platform, path);
    std::string line;
    while (file.readLine(line)) {
        const auto equals = line.find('=');
        if (equals == std::string::npos) continue;
        if (trim(std::string_view(line).substr(0, equals)) == key) return line.substr(equals + 1);
    }
    return std::nullopt;
}

std::string folderOf(App &app, const char *key, WarnIfMissing warn = WarnIfMissing::yes)
{
    return app.gcsAppPath + toText(vGetSystemValue(app, key, warn), app.regional) + "\\";
}

} // namespace

Variant vGetSystemValue(App &app, const std::string &csKey, WarnIfMissing warn)
{
    const std::string path = app.gcsAppPath + "\\" + kSettingsFile;
    if (!bFileExists(app, path)) {
        app.platform.boxes.show("システム設定ファイルが見つかりません。", Icon::critical, kWarningTitle);
        app.platform.processes.end();
    }
    if (const auto value = findValue(app, path, csKey)) return *value;
    if (warn == WarnIfMissing::no) return {};
    const std::string text =
        std::string("システム設定ファイルに、指定の項目が見つかりません。").append(kCr).append("[" + csKey + "]");
    app.platform.boxes.show(text, Icon::critical, kWarningTitle);
    return "";
}

std::string csSetAppDir(App &app, const std::string &csFolder)
{
    Files &files = app.platform.files;
    files.changeDrive(csFolder);
    files.changeFolder(csFolder);
    return files.currentFolder();
}

bool bFileExists(App &app, const std::string &csPath)
{
    return !app.platform.files.directorySearch(csPath).empty();
}

std::string csSysDir(App &app)
{
    return folderOf(app, "SYSTEM_SYS");
}

std::string csTmpDir(App &app, WarnIfMissing warn)
{
    return folderOf(app, "SYSTEM_TMP", warn);
}

std::string csIconDir(App &app)
{
    return folderOf(app, "SYSTEM_ICON");
}

std::string csDataDir(App &app)
{
    return folderOf(app, "SYSTEM_DATA");
}

} // namespace inin
