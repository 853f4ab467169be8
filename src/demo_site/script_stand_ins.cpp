#include "demo_site/site_maker.h"

#include "demo_site/embedded.h"
#include "runtime/runtime_error.h"
#include "system/file_path.h"
#include "system/whole_file.h"

#include <fmt/format.h>

#include <string>

namespace inin::site {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kStandInMark = "# STAND-IN of the demo site";

void writeStandIn(const fs::path &path, std::string_view text)
{
    writeWholeFile(path, text, NewFile::byTheMask);
    std::error_code error;
    constexpr auto kRun = fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec;
    fs::permissions(path, kRun, fs::perm_options::add, error);
    if (error) {
        throw RuntimeError(error_number::permissionDenied,
                           fmt::format("ファイル「{}」を実行できるようにできません。", textOf(path)));
    }
}

} // namespace

void writeMenu(const fs::path &file)
{
    writeStandIn(file, menuStandIn());
}

void writeFormTool(const fs::path &file, const fs::path &formViewer)
{
    std::error_code error;
    // Writing through a link of an earlier run would overwrite the viewer itself.
    fs::remove(file, error);
    if (!formViewer.empty()) {
        fs::create_symlink(formViewer, file, error);
        if (!error) return;
    }
    writeStandIn(file, formToolStandIn());
}

bool isOwnProgram(const fs::path &file)
{
    std::error_code error;
    if (fs::is_symlink(fs::symlink_status(file, error)))
        return fs::read_symlink(file, error).filename() == formViewerName();
    const std::string script = tryReadWholeFile(file).value_or("");
    const std::size_t firstEnd = script.find('\n');
    return firstEnd != script.npos && std::string_view(script).substr(firstEnd + 1).starts_with(kStandInMark);
}

fs::path formViewerName()
{
    return "formviewer";
}

} // namespace inin::site
