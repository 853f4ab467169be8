#include "demo_site/site_maker.h"

#include "demo_site/embedded.h"
#include "runtime/runtime_error.h"
#include "system/file_path.h"

#include <fmt/format.h>

namespace inin::site {

namespace {

namespace fs = std::filesystem;

void writeStandIn(const fs::path &path, std::string_view text)
{
    writeFile(path, text);
    std::error_code error;
    constexpr auto kRun = fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec;
    fs::permissions(path, kRun, fs::perm_options::add, error);
    if (error) {
        throw RuntimeError(error_number::permissionDenied,
                           fmt::format("ファイル「{}」を実行できるようにできません。", textOf(path)));
    }
}

/// Writes the form viewer under a tool's name, or a substitute if the viewer was not built.
void writeFormTool(const fs::path &path, const fs::path &formViewer)
{
    std::error_code error;
    // Writing through a link of an earlier run would overwrite the viewer itself.
    fs::remove(path, error);
    if (!formViewer.empty()) {
        fs::create_symlink(formViewer, path, error);
        if (!error) return;
    }
    writeStandIn(path, formToolStandIn());
}

} // namespace

void writeStandIns(const fs::path &folder, const fs::path &formViewer)
{
    writeStandIn(folder / kMenu, menuStandIn());
    for (const std::string_view tool : kFormTools) writeFormTool(folder / tool, formViewer);
}

fs::path formViewerName()
{
    return "formviewer";
}

} // namespace inin::site
