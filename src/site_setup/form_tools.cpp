#include "site_setup/form_tools.h"

#include "demo_site/site_maker.h"
#include "runtime/runtime_error.h"
#include "system/file_path.h"

#include <fmt/format.h>

namespace inin::site {

namespace fs = std::filesystem;

std::vector<FileReport> installTools(const fs::path &site, const fs::path &formViewer)
{
    std::error_code error;
    if (!fs::is_directory(site, error))
        throw RuntimeError(error_number::pathNotFound, fmt::format("フォルダー「{}」がありません。", textOf(site)));
    if (formViewer.empty() || !fs::exists(formViewer, error))
        throw RuntimeError(error_number::fileNotFound, "form viewer がこのプログラムのフォルダーにありません。");
    std::vector<FileReport> reports;
    for (const std::string_view name : kFormTools) {
        const fs::path tool = pathOf(systemPath(textOf(site / name)));
        FileReport report{std::string(name)};
        if (fs::exists(fs::symlink_status(tool, error)))
            report.done = isOwnProgram(tool) ? FileReport::Done::same : FileReport::Done::kept;
        if (report.done != FileReport::Done::kept) writeFormTool(tool, formViewer);
        reports.push_back(std::move(report));
    }
    return reports;
}

} // namespace inin::site
