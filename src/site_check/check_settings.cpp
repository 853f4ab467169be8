#include "site_check/site_check.h"

#include "adapters/native/native_platform.h"
#include "common/picture.h"
#include "runtime/runtime_error.h"
#include "runtime/text.h"
#include "system/file_path.h"

#include <fmt/format.h>

#include <algorithm>

namespace inin::site {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kFolderKeys[] = {"SYSTEM_SYS", "SYSTEM_TMP", "SYSTEM_ICON", "SYSTEM_DATA"};
constexpr const char *kMonthsKey = "終了患者施術期間";
constexpr const char *kPrintSettings = "印刷設定.ini";

/// Creates, writes and removes a file as the program does: permissions alone do not answer for shares and full disks.
void checkWritable(const fs::path &folder, const std::string &key, const std::string &value, Findings &findings)
try {
    const std::unique_ptr<Files> files = makeSystemFiles(textOf(folder));
    const std::uint32_t process = makeSystemProcesses({})->processId();
    const std::string file = textOf(joined(folder, value) / fmt::format("inin-check-{}.tmp", process));
    const std::unique_ptr<OutputFile> output = files->openForOutput(file);
    try {
        output->write("test");
        output->close();
    } catch (const RuntimeError &) {
        files->remove(file);
        throw;
    }
    files->remove(file);
} catch (const RuntimeError &error) {
    findings.push_back({FindingKind::notWritable, key,
                        fmt::format("Massage.ini の項目「{}」のフォルダー「{}」に書き込めません（{}）。使う人の"
                                    "書き込みと削除の権限と、ディスクの空きを確かめてください。",
                                    key, value, error.description())});
}

void checkFolder(const fs::path &folder, const std::string &key, const std::string &value, Findings &findings)
{
    if (!value.starts_with('\\')) {
        findings.push_back({FindingKind::noLeadingBackslash, key,
                            fmt::format("Massage.ini の項目「{}」の値「{}」が「\\」で始まっていません。", key, value)});
        return;
    }
    std::error_code error;
    if (fs::is_directory(joined(folder, value), error)) {
        if (key == "SYSTEM_TMP" || key == "SYSTEM_DATA") checkWritable(folder, key, value, findings);
        return;
    }
    findings.push_back({FindingKind::missingFolder, key,
                        fmt::format("Massage.ini の項目「{}」のフォルダー「{}」がありません。", key, value)});
}

void checkFolders(const fs::path &folder, const Settings &settings, Findings &findings)
{
    for (const std::string_view name : kFolderKeys) {
        const std::string key(name);
        const auto value = valueOf(settings, key, findings);
        if (!value) continue;
        checkFolder(folder, key, *value, findings);
        // The preview always starts with the path "./TMP\WfdCom.dat".
        if (key == "SYSTEM_TMP" && !equalsIgnoringAsciiCase(*value, "\\TMP")) {
            findings.push_back(
                {FindingKind::otherTemporaryFolder, key,
                 fmt::format("Massage.ini の項目「SYSTEM_TMP」が「{}」なので、プレビューできません（「\\TMP」にして"
                             "ください）。",
                             *value)});
        }
    }
}

void checkWallpaper(const fs::path &folder, const Settings &settings, Findings &findings)
{
    const auto value = valueOf(settings, "WALLPAPER", findings);
    const auto icon = settings.find("SYSTEM_ICON");
    if (!value || icon == settings.end()) return;
    const auto add = [&](FindingKind kind, fmt::format_string<const std::string &> sentence) {
        findings.push_back({kind, "WALLPAPER", fmt::format(sentence, *value)});
    };
    const fs::path picture = joined(folder, icon->second) / pathOf(*value);
    if (!readSiteFile(picture)) {
        add(FindingKind::missingWallpaper, "Massage.ini の項目「WALLPAPER」の画像「{}」がありません。");
        return;
    }
    try {
        if (!canBePainted(*makeSystemFiles(textOf(folder)), textOf(picture)))
            add(FindingKind::wallpaperNotPaintable,
                "Massage.ini の項目「WALLPAPER」の「{}」は表示できない形式か壊れた画像なので、背景が無地になり"
                "ます（BMP、PNG、JPEG のどれかで保存し直してください）。");
    } catch (const RuntimeError &) {
        // A picture that is missing or cannot be painted is ignored; a file that is not a picture prevents the start.
        add(FindingKind::wallpaperIsNoPicture,
            "Massage.ini の項目「WALLPAPER」の「{}」が画像ではないので、起動できません。");
    }
}

bool isMonths(const std::string &text)
{
    return !text.empty() && text.size() <= 3 && text.find_first_not_of("0123456789") == text.npos;
}

void checkMonths(const Settings &settings, Findings &findings)
{
    const auto value = valueOf(settings, kMonthsKey, findings);
    if (!value || isMonths(trim(*value))) return;
    findings.push_back({FindingKind::badMonths, kMonthsKey,
                        fmt::format("Massage.ini の項目「{}」の値「{}」が月数ではありません。", kMonthsKey, *value)});
}

/// Without stored conditions no option is selected at first, and a run takes the last of each group.
void checkPrintSettings(const fs::path &folder, const Settings &settings, Findings &findings)
{
    const auto data = settings.find("SYSTEM_DATA");
    if (data == settings.end() || !isThere(joined(folder, data->second))) return; // already a finding
    if (isThere(joined(folder, data->second) / pathOf(kPrintSettings))) return;
    findings.push_back(
        {FindingKind::noPrintSettings, kPrintSettings,
         "「印刷設定.ini」がまだありません。「対象月」だけを選んで印刷すると、愛知県の様式で、代理人あてになります。はじめての"
         "印刷では「委任状（標準）」、「予定データが入力されている利用者を対象」、「本社情報を出力」、「対象月」、"
         "「月初～月末を設定」、署名日の「自動設定」のように、枠ごとに一つずつ選んでください。"});
}

} // namespace

std::optional<Branch> checkSettings(const fs::path &folder, Findings &findings)
{
    const auto settings = readSettings(folder, findings);
    if (!settings) return std::nullopt;
    checkFolders(folder, *settings, findings);
    checkWallpaper(folder, *settings, findings);
    checkMonths(*settings, findings);
    checkPrintSettings(folder, *settings, findings);
    checkForms(folder, *settings, findings);
    return branchOf(*settings, findings);
}

} // namespace inin::site
