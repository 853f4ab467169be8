#include "site_check/site_check.h"

#include "adapters/native/native_platform.h"
#include "platform/settings_limit.h"
#include "system/file_path.h"

#include <fmt/format.h>

#include <fstream>
#include <iterator>

namespace inin::site {

std::optional<std::string> readSiteFile(const std::filesystem::path &path)
{
    const std::filesystem::path real = pathOf(systemPath(textOf(path)));
    std::error_code error;
    if (!std::filesystem::is_regular_file(real, error)) return std::nullopt;
    std::ifstream file(real, std::ios::binary);
    if (!file) return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(file), {});
}

std::optional<std::string> readSettingsFile(const std::filesystem::path &path, const std::string &missing,
                                            Findings &findings)
{
    const std::filesystem::path real = pathOf(systemPath(textOf(path)));
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(real, error); // also fails for folders and devices
    if (!error && size <= kMaxSettingsBytes) return readSiteFile(path);
    const bool isThere = std::filesystem::exists(real, error);
    findings.push_back(
        isThere ? fmt::format("「{}」を設定ファイルとして読み込めません（16 MB を超えるか、ファイルではありません）。",
                              textOf(path.filename()))
                : missing);
    return std::nullopt;
}

Findings checkSite(const std::filesystem::path &folder)
{
    Findings findings;
    std::error_code error;
    if (!std::filesystem::is_directory(folder, error)) {
        findings.push_back(fmt::format("フォルダー「{}」がありません。", textOf(folder)));
        return findings;
    }
    const std::optional<Branch> branch = checkSettings(folder, findings);
    checkDatabase(folder, branch, findings);
    const std::unique_ptr<Locale> system = makeSystemLocale();
    checkCodePage(*system, findings);
    checkShortDate(system->regional(), findings);
    return findings;
}

} // namespace inin::site
