#include "site_check/support_bundle.h"

#include "adapters/database/connection_parts.h"
#include "adapters/database/connection_string.h"
#include "demo_site/database_maker.h"
#include "demo_site/site_maker.h"
#include "runtime/conversion.h"
#include "runtime/runtime_error.h"
#include "runtime/text.h"
#include "site_check/site_settings.h"
#include "site_check/zip_file.h"
#include "suite_text/code_page_932.h"
#include "suite_text/profile_text.h"
#include "system/file_path.h"
#include "system/program_version.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>

namespace inin::site {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kOtherValue = "（別の値）";
constexpr std::string_view kRemoved = "（削除）";

bool isNumber(std::string_view text)
{
    constexpr std::size_t kLongestNumber = 4;
    return !text.empty() && text.size() <= kLongestNumber && text.find_first_not_of("0123456789") == text.npos;
}

// "settings.txt"

struct CustomaryValue {
    std::string_view key;
    std::string_view value; ///< empty for a number
};
constexpr CustomaryValue kSystemValues[] = {
    {"SYSTEM_SYS", "\\SYS"},   {"SYSTEM_TMP", "\\TMP"}, {"SYSTEM_ICON", "\\ICON"},
    {"SYSTEM_DATA", "\\DATA"}, {"BASEID", ""},          {"終了患者施術期間", ""},
};

std::string_view shownValue(const CustomaryValue &customary, const std::string &value)
{
    const bool isShown = customary.value.empty() ? isNumber(value) : equalsIgnoringAsciiCase(value, customary.value);
    return isShown ? std::string_view(value) : kOtherValue;
}

std::string systemSettings(const Settings &settings)
{
    std::string lines = "[Massage.ini]\n";
    for (const CustomaryValue &customary : kSystemValues) {
        const auto found = settings.find(std::string(customary.key));
        lines += fmt::format("{}={}\n", customary.key,
                             found == settings.end() ? "（なし）" : shownValue(customary, found->second));
    }
    return lines + fmt::format("WALLPAPER={}\n", settings.contains("WALLPAPER") ? kRemoved : "（なし）");
}

constexpr std::string_view kPrintKeys[] = {"対象期間", "対象データ", "表示期間", "受任者", "帳票種類", "署名日"};

std::string printSettings(const fs::path &folder, const Settings &settings)
{
    const auto data = settings.find("SYSTEM_DATA");
    const auto bytes =
        data == settings.end() ? std::nullopt : readSiteFile(joined(folder, data->second) / pathOf("印刷設定.ini"));
    if (!bytes) return "[印刷設定.ini]\n（なし）\n";
    std::string lines = "[印刷設定.ini]\n";
    for (const std::string_view key : kPrintKeys) {
        const std::string section = encodeCp932("委任状"), name = encodeCp932(key);
        const std::string value = rtrim(profileString(*bytes, section, name, "", 256));
        lines += fmt::format("{}={}\n", key,
                             value.empty()     ? "（なし）"
                             : isNumber(value) ? value
                                               : std::string(kOtherValue));
    }
    return lines;
}

/// Words that are values of a connection string without naming anything of the site.
constexpr std::string_view kPlainWords[] = {"yes",
                                            "no",
                                            "true",
                                            "false",
                                            "sspi",
                                            "mandatory",
                                            "optional",
                                            "strict",
                                            "sqlite",
                                            "msdasql",
                                            "freetds",
                                            "sql server",
                                            "sqloledb",
                                            "sqloledb.1",
                                            "msoledbsql",
                                            "sqlncli",
                                            "sqlncli10",
                                            "sqlncli11",
                                            "msoledbsql19",
                                            "odbc driver 17 for sql server",
                                            "odbc driver 18 for sql server"};

struct ShownPart {
    ConnectionPart part;
    std::string_view name;
    bool isValueShown = false;
};
constexpr ShownPart kShownParts[] = {
    {ConnectionPart::provider, "provider", true},
    {ConnectionPart::driver, "driver", true},
    {ConnectionPart::server, "server"},
    {ConnectionPart::port, "port"},
    {ConnectionPart::database, "database"},
    {ConnectionPart::user, "user"},
    {ConnectionPart::password, "password"},
    {ConnectionPart::integrated, "integrated security", true},
    {ConnectionPart::encrypt, "encrypt", true},
    {ConnectionPart::trustCertificate, "trust server certificate", true},
    {ConnectionPart::dataSourceName, "data source name"},
    {ConnectionPart::fileSourceName, "file data source"},
};

std::string shownPair(const ConnectionPair &pair)
{
    const auto part = partOfKey(pair.key);
    const auto *shown = part ? std::ranges::find(kShownParts, *part, &ShownPart::part) : std::end(kShownParts);
    if (shown == std::end(kShownParts)) return "（ほかの項目）\n";
    const std::string value = asciiLower(pair.value);
    const bool isPlain = shown->isValueShown && std::ranges::find(kPlainWords, value) != std::end(kPlainWords);
    std::string line = fmt::format("{}={}", shown->name, isPlain ? std::string_view(value) : kRemoved);
    if (shown->part == ConnectionPart::server) {
        if (value.find('\\') != value.npos) line += "（名前付きインスタンス）";
        if (value.find(',') != value.npos) line += "（ポート番号あり）";
    }
    return line + "\n";
}

std::string connectionSettings(const std::optional<std::string> &connection)
{
    std::string lines = "[adodb.ini]\n";
    if (!connection) return lines + "（読めません）\n";
    const ConnectionString text = readConnectionString(*connection);
    if (!text.problem.empty()) return lines + "（接続文字列の書き方が正しくありません）\n";
    for (const ConnectionPair &pair : text.pairs) lines += shownPair(pair);
    return lines;
}

std::string settingsText(const fs::path &folder, const std::optional<std::string> &connection)
{
    Findings ignored; // the report of the check has them
    const auto settings = readSettings(folder, ignored);
    std::string text = settings ? systemSettings(*settings) : "[Massage.ini]\n（読めません）\n";
    text += connectionSettings(connection);
    if (!settings) return text;
    text += printSettings(folder, *settings);
    return text + fmt::format("[帳票Format.ini]\n{}\n",
                              formOfFormatFile(folder, *settings).empty() ? "（指定なし）" : kOtherValue);
}

// "tables.txt"

std::string rowCount(SiteDatabase &site, const std::string &table)
try {
    const auto rows = site.database->newRecordset();
    rows->Open("SELECT COUNT(*) FROM " + table, *site.connection, adOpenForwardOnly, adLockReadOnly, adCmdText);
    return toText(rows->Value(0), Regional{});
} catch (const RuntimeError &error) {
    return fmt::format("（エラー {}）", error.number());
}

std::string tablesText(const fs::path &folder, const std::optional<std::string> &connection)
try {
    if (!connection) return "（接続文字列がありません）\n";
    SiteDatabase site = openSiteDatabase(folder, *connection);
    std::string lines;
    for (const TableColumns &table : schemaTables())
        lines += fmt::format("{}\t{}\n", table.name, rowCount(site, table.name));
    return lines;
} catch (const RuntimeError &error) {
    return fmt::format("（接続できません：エラー {}）\n", error.number()); // the text may name the server and the user
}

// "files.txt"

/// The names of files that every site has. Others may be named after a person.
constexpr std::string_view kKnownNames[] = {
    "massage.ini",     "adodb.ini",    "sorvin.ver",          "emapuser.ini", "printinin",       "printinin.exe",
    "委任状.csv",      "委任状.run",   "wfdcom.dat",          "印刷設定.ini", "帳票format.ini",  "demo.db",
    "委任状37_01.wfd", "委任状23.wfd", "委任状37_高松市.wfd", "束の表紙.wfd", "formviewer.path", ".inin-site"};
constexpr std::string_view kKnownExtensions[] = {".wfd", ".pdf", ".png", ".bmp", ".jpg", ".ini", ".csv",
                                                 ".dat", ".db",  ".exe", ".dll", ".log", ".txt"};

bool isKnown(const std::string &name)
{
    const std::string lower = asciiLower(name);
    const auto equals = [&](std::string_view known) { return asciiLower(known) == lower; };
    return equals(kMenu) || std::ranges::any_of(kFormTools, equals) || std::ranges::any_of(kKnownNames, equals);
}

std::string shownName(const fs::path &file)
{
    if (std::string name = textOf(file.filename()); isKnown(name)) return name;
    const std::string extension = asciiLower(textOf(file.extension()));
    const auto *known = std::ranges::find(kKnownExtensions, extension);
    return fmt::format("（ほかの名前）{}", known == std::end(kKnownExtensions) ? "" : *known);
}

struct FileCount {
    std::uintmax_t files = 0;
    std::uintmax_t bytes = 0;
};

/// The files of one folder, those of other names counted by their kind.
std::string filesIn(const fs::path &folder, std::string_view shownFolder)
{
    std::map<std::string, FileCount> counts;
    std::error_code error;
    for (fs::directory_iterator file(pathOf(systemPath(textOf(folder))), error), end; !error && file != end;
         file.increment(error)) {
        std::error_code failure;
        if (!file->is_regular_file(failure)) continue;
        FileCount &count = counts[shownName(file->path())];
        ++count.files;
        const std::uintmax_t size = file->file_size(failure);
        if (!failure) count.bytes += size;
    }
    std::string lines;
    for (const auto &[name, count] : counts)
        lines += fmt::format("{}{}\t{}\t{}\n", shownFolder, name, count.files, count.bytes);
    return lines;
}

std::string filesText(const fs::path &folder)
{
    std::string lines = "名前\t件数\tバイト\n" + filesIn(folder, "");
    for (const std::string_view name : kFolders) lines += filesIn(folder / name, fmt::format("{}/", name));
    return lines;
}

} // namespace

std::string supportBundle(const fs::path &folder, const Findings &findings)
{
    Findings ignored;
    const auto connection = connectionText(folder, ignored);
    ZipFile zip;
    zip.add("version.txt", fmt::format("inin-site {} {}\n", programVersion(), ININ_SYSTEM));
    zip.add("settings.txt", settingsText(folder, connection));
    zip.add("check.json", jsonOf(findings, Details::withoutSentences) + "\n");
    zip.add("tables.txt", tablesText(folder, connection));
    zip.add("files.txt", filesText(folder));
    return zip.finished();
}

} // namespace inin::site
