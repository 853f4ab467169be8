#include "site_check/site_check.h"

#include "adapters/native/native_platform.h"
#include "common/picture.h"
#include "runtime/runtime_error.h"
#include "runtime/text.h"
#include "suite_text/code_page_932.h"
#include "suite_text/profile_text.h"
#include "system/file_path.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>

namespace inin::site {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kFolderKeys[] = {"SYSTEM_SYS", "SYSTEM_TMP", "SYSTEM_ICON", "SYSTEM_DATA"};
constexpr const char *kMonthsKey = "終了患者施術期間";
constexpr std::string_view kForms[] = {"委任状37_01.wfd", "委任状23.wfd", "委任状37_高松市.wfd"};

using Settings = std::map<std::string, std::string>;

/// As the suite reads it: without sections; the value follows the first "=" of the first line with the key.
Settings settingsOf(const std::string &bytes)
{
    Settings settings;
    const std::string text = decodeCp932(bytes);
    std::string_view rest = text;
    while (!rest.empty()) {
        const std::string_view line = rest.substr(0, rest.find_first_of("\r\n"));
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        const std::size_t equals = line.find('=');
        if (equals == line.npos) continue;
        settings.emplace(trim(line.substr(0, equals)), std::string(line.substr(equals + 1)));
    }
    return settings;
}

/// The value; if it is missing, adds a finding and returns nothing.
std::optional<std::string> valueOf(const Settings &settings, const std::string &key, Findings &findings)
{
    const auto found = settings.find(key);
    if (found != settings.end()) return found->second;
    findings.push_back(fmt::format("Massage.ini に項目「{}」がありません。", key));
    return std::nullopt;
}

bool isThere(const fs::path &path)
{
    std::error_code error;
    return fs::exists(pathOf(systemPath(textOf(path))), error);
}

/// Joins a folder as the program does, without a separator.
fs::path joined(const fs::path &folder, const std::string &value)
{
    return pathOf(systemPath(textOf(folder) + value));
}

bool isAllDigits(std::string_view text)
{
    return !text.empty() && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

void checkFolder(const fs::path &folder, std::string_view key, const std::string &value, Findings &findings)
{
    if (!value.starts_with('\\')) {
        findings.push_back(fmt::format("Massage.ini の項目「{}」の値「{}」が「\\」で始まっていません。", key, value));
        return;
    }
    std::error_code error;
    if (!fs::is_directory(joined(folder, value), error)) {
        findings.push_back(fmt::format("Massage.ini の項目「{}」のフォルダー「{}」がありません。", key, value));
    }
}

void checkFolders(const fs::path &folder, const Settings &settings, Findings &findings)
{
    for (const std::string_view key : kFolderKeys) {
        const auto value = valueOf(settings, std::string(key), findings);
        if (!value) continue;
        checkFolder(folder, key, *value, findings);
        // The preview always starts with the path "./TMP\WfdCom.dat".
        if (key == "SYSTEM_TMP" && !equalsIgnoringAsciiCase(*value, "\\TMP")) {
            findings.push_back(fmt::format(
                "Massage.ini の項目「SYSTEM_TMP」が「{}」なので、プレビューできません（「\\TMP」にしてください）。",
                *value));
        }
    }
}

void checkWallpaper(const fs::path &folder, const Settings &settings, Findings &findings)
{
    const auto value = valueOf(settings, "WALLPAPER", findings);
    const auto icon = settings.find("SYSTEM_ICON");
    if (!value || icon == settings.end()) return;
    const fs::path picture = joined(folder, icon->second) / pathOf(*value);
    if (!readSiteFile(picture)) {
        findings.push_back(fmt::format("Massage.ini の項目「WALLPAPER」の画像「{}」がありません。", *value));
        return;
    }
    try {
        if (!canBePainted(*makeSystemFiles(textOf(folder)), textOf(picture)))
            findings.push_back(fmt::format(
                "Massage.ini の項目「WALLPAPER」の「{}」は表示できない形式か壊れた画像なので、背景が無地になり"
                "ます（BMP、PNG、JPEG のどれかで保存し直してください）。",
                *value));
    } catch (const RuntimeError &) {
        // A picture that is missing or cannot be painted is ignored; a file that is not a picture prevents the start.
        findings.push_back(
            fmt::format("Massage.ini の項目「WALLPAPER」の「{}」が画像ではないので、起動できません。", *value));
    }
}

void checkMonths(const Settings &settings, Findings &findings)
{
    const auto value = valueOf(settings, kMonthsKey, findings);
    if (value && (!isAllDigits(trim(*value)) || trim(*value).size() > 3)) {
        findings.push_back(fmt::format("Massage.ini の項目「{}」の値「{}」が月数ではありません。", kMonthsKey, *value));
    }
}

std::optional<Branch> checkBranch(const Settings &settings, Findings &findings)
{
    const auto value = valueOf(settings, "BASEID", findings);
    if (!value) return std::nullopt;
    const std::string digits = value->substr(0, 4);
    if (digits.size() < 4 || !isAllDigits(digits)) {
        findings.push_back(fmt::format("Massage.ini の項目「BASEID」の値「{}」が4桁の数字ではありません。", *value));
        return std::nullopt;
    }
    return Branch{std::stoi(digits.substr(0, 2)), std::stoi(digits.substr(2, 2))};
}

/// An entry in "帳票Format.ini" replaces all three form documents.
void checkForms(const fs::path &folder, const Settings &settings, Findings &findings)
{
    const auto sys = settings.find("SYSTEM_SYS");
    const auto data = settings.find("SYSTEM_DATA");
    if (sys == settings.end()) return;
    std::vector<std::string> forms(std::begin(kForms), std::end(kForms));
    const auto format =
        data == settings.end() ? std::nullopt : readSiteFile(joined(folder, data->second) / pathOf("帳票Format.ini"));
    if (format) {
        const std::string name = encodeCp932("委任状");
        const std::string form = rtrim(decodeCp932(profileString(*format, name, name, "", 256)));
        if (!form.empty()) forms = {form};
    }
    for (const std::string &form : forms) {
        if (!isThere(joined(folder, sys->second) / pathOf(form))) {
            findings.push_back(fmt::format("帳票「{}」がフォルダー「{}」にありません。", form, sys->second));
        }
    }
}

} // namespace

std::optional<Branch> checkSettings(const fs::path &folder, Findings &findings)
{
    const auto bytes =
        readSettingsFile(folder / "Massage.ini", "システム設定ファイル「Massage.ini」がありません。", findings);
    if (!bytes) return std::nullopt;
    const Settings settings = settingsOf(*bytes);
    checkFolders(folder, settings, findings);
    checkWallpaper(folder, settings, findings);
    checkMonths(settings, findings);
    checkForms(folder, settings, findings);
    return checkBranch(settings, findings);
}

} // namespace inin::site
