#include "site_check/site_settings.h"

#include "adapters/suite/suite_database.h"
#include "demo_site/site_maker.h"
#include "platform/settings_limit.h"
#include "runtime/text.h"
#include "suite_text/code_page_932.h"
#include "suite_text/profile_text.h"
#include "suite_text/unicode_mark.h"
#include "system/file_path.h"
#include "system/whole_file.h"

#include <fmt/format.h>

#include <algorithm>

namespace inin::site {

namespace {

namespace fs = std::filesystem;

/// The longest connection string for the suite's buffer of 256 bytes.
constexpr std::size_t kLongestConnection = 255;
constexpr std::string_view kReplacement = "\xEF\xBF\xBD"; // of a byte that is not a character

bool isContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// The length of the UTF-8 sequence that a byte begins; 0 for a byte that begins none.
std::size_t sequenceLength(char first)
{
    const auto byte = static_cast<unsigned char>(first);
    if (byte < 0x80) return 1;
    if (byte >= 0xC2 && byte < 0xE0) return 2;
    if (byte >= 0xE0 && byte < 0xF0) return 3;
    return byte >= 0xF0 && byte < 0xF5 ? 4 : 0;
}

/// True for well-formed UTF-8 with a character of three bytes or more, as Japanese text has. Two bytes alone are no
/// evidence: half-width katakana of the code page can look like them.
bool isJapaneseUtf8(std::string_view bytes)
{
    bool isJapanese = false;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t length = sequenceLength(bytes[at]);
        if (length == 0 || at + length > bytes.size()) return false;
        if (!std::ranges::all_of(bytes.substr(at + 1, length - 1), isContinuation)) return false;
        isJapanese = isJapanese || length > 2;
        at += length;
    }
    return isJapanese;
}

bool isCodePage932(std::string_view bytes)
{
    return !isJapaneseUtf8(bytes) && bytes.find('\0') == bytes.npos &&
           decodeCp932(bytes).find(kReplacement) == std::string::npos;
}

enum class UnicodeMark { isRead, breaksTheFile };

/// The bytes of a settings file; one that is missing, not a file, too large or in another code page is a finding.
std::optional<std::string> readSettingsFile(const fs::path &folder, const std::string &name, UnicodeMark mark,
                                            const Finding &missing, Findings &findings)
{
    const fs::path real = pathOf(systemPath(textOf(folder / pathOf(name))));
    std::error_code error;
    const std::uintmax_t size = fs::file_size(real, error); // also fails for folders and devices
    auto bytes = !error && size <= kMaxSettingsBytes ? readSiteFile(real) : std::nullopt;
    if (!bytes && !isThere(real)) {
        findings.push_back(missing);
    } else if (!bytes) {
        findings.push_back(
            {FindingKind::unreadableSettings, name,
             fmt::format("「{}」を設定ファイルとして読み込めません（16 MB を超えるか、ファイルではありません）。",
                         name)});
    } else if (!(mark == UnicodeMark::isRead && unmarked(*bytes)) && !isCodePage932(*bytes)) {
        findings.push_back(
            {FindingKind::notCodePage932, name,
             fmt::format("「{}」の文字コードが CP932（Shift_JIS）ではないので、日本語の項目を読めません（文字コードに"
                         "「ANSI」か「Shift_JIS」を選んで保存し直してください）。",
                         name)});
        bytes.reset();
    }
    return bytes;
}

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

bool isAllDigits(std::string_view text)
{
    return !text.empty() && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

} // namespace

std::optional<std::string> readSiteFile(const fs::path &path)
{
    return tryReadWholeFile(pathOf(systemPath(textOf(path))));
}

bool isThere(const fs::path &path)
{
    std::error_code error;
    return fs::exists(pathOf(systemPath(textOf(path))), error);
}

fs::path joined(const fs::path &folder, const std::string &value)
{
    return pathOf(systemPath(textOf(folder) + value));
}

std::optional<Settings> readSettings(const fs::path &folder, Findings &findings)
{
    const auto bytes = readSettingsFile(
        folder, "Massage.ini", UnicodeMark::breaksTheFile,
        {FindingKind::noSettings, "Massage.ini", "システム設定ファイル「Massage.ini」がありません。"}, findings);
    if (!bytes) return std::nullopt;
    return settingsOf(*bytes);
}

std::optional<std::string> valueOf(const Settings &settings, const std::string &key, Findings &findings)
{
    const auto found = settings.find(key);
    if (found != settings.end()) return found->second;
    findings.push_back({FindingKind::missingKey, key, fmt::format("Massage.ini に項目「{}」がありません。", key)});
    return std::nullopt;
}

std::optional<Branch> branchOf(const Settings &settings, Findings &findings)
{
    const auto value = valueOf(settings, "BASEID", findings);
    if (!value) return std::nullopt;
    const std::string digits = value->substr(0, 4);
    if (digits.size() < 4 || !isAllDigits(digits)) {
        findings.push_back({FindingKind::badBranch, "BASEID",
                            fmt::format("Massage.ini の項目「BASEID」の値「{}」が4桁の数字ではありません。", *value)});
        return std::nullopt;
    }
    return Branch{std::stoi(digits.substr(0, 2)), std::stoi(digits.substr(2, 2))};
}

std::optional<std::string> connectionText(const fs::path &folder, Findings &findings)
{
    const auto bytes = readSettingsFile(
        folder, "adodb.ini", UnicodeMark::isRead,
        {FindingKind::noConnectionFile, "adodb.ini", "接続情報ファイル「adodb.ini」がありません。"}, findings);
    if (!bytes) return std::nullopt;
    const std::string name = encodeCp932("接続情報");
    const std::string value = profileString(*bytes, name, name, "", 2 * kLongestConnection);
    if (value.size() > kLongestConnection) {
        findings.push_back({FindingKind::longConnectionString, "adodb.ini",
                            fmt::format("adodb.ini の接続文字列が{}バイトを超えています。", kLongestConnection)});
        return std::nullopt;
    }
    std::string text = rtrim(decodeCp932(value));
    if (!text.empty()) return text;
    findings.push_back({FindingKind::noConnectionString, "adodb.ini",
                        "adodb.ini に接続文字列（セクションも項目も「接続情報」）がありません。"});
    return std::nullopt;
}

std::string formOfFormatFile(const fs::path &folder, const Settings &settings)
{
    const auto data = settings.find("SYSTEM_DATA");
    if (data == settings.end()) return {};
    const auto bytes = readSiteFile(joined(folder, data->second) / pathOf("帳票Format.ini"));
    if (!bytes) return {};
    const std::string name = encodeCp932("委任状");
    return rtrim(decodeCp932(profileString(*bytes, name, name, "", 256)));
}

std::string dataSourceOf(const fs::path &folder, const std::string &path)
{
    const std::string real = systemPath(path);
    return isAbsolutePath(real) ? real : systemPath(textOf(folder / pathOf(real)));
}

SiteDatabase openSiteDatabase(const fs::path &folder, const std::string &connectionText)
{
    auto database = makeSuiteDatabase([folder](const std::string &path) { return dataSourceOf(folder, path); });
    auto connection = database->newConnection();
    connection->Open(connectionText, "", "", 0);
    return {std::move(database), std::move(connection)};
}

} // namespace inin::site
