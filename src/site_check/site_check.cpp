#include "site_check/site_check.h"

#include "adapters/native/native_platform.h"
#include "system/file_path.h"
#include "system/program_edges.h"

#include <fmt/format.h>

namespace inin::site {

Findings checkSite(const std::filesystem::path &folder)
{
    Findings findings;
    std::error_code error;
    if (!std::filesystem::is_directory(folder, error)) {
        findings.push_back({FindingKind::noFolder, "", fmt::format("フォルダー「{}」がありません。", textOf(folder))});
        return findings;
    }
    const std::optional<Branch> branch = checkSettings(folder, findings);
    checkPrograms(folder, findings);
    checkDatabase(folder, branch, findings);
    const std::unique_ptr<Locale> system = makeSystemLocale();
    checkCodePage(*system, findings);
    checkShortDate(system->regional(), findings);
    checkVirtualStore(folder, environmentText("LOCALAPPDATA"), findings);
    return findings;
}

} // namespace inin::site
