#include "demo_site/site_maker.h"

#include "demo_site/embedded.h"
#include "system/file_path.h"

namespace inin::site {

namespace {

/// The substitute of a form tool reads the viewer's path from this file. Few users may create links, and a copy would
/// need the viewer's libraries beside it.
constexpr std::string_view kViewerNote = "formviewer.path";

} // namespace

void writeStandIns(const std::filesystem::path &folder, const std::filesystem::path &formViewer)
{
    writeFile(folder / kMenu, standInProgram());
    for (const std::string_view tool : kFormTools) writeFile(folder / tool, standInProgram());
    std::error_code error;
    std::filesystem::remove(folder / kViewerNote, error);
    if (!formViewer.empty()) writeFile(folder / kViewerNote, textOf(formViewer) + "\n");
}

std::filesystem::path formViewerName()
{
    return "formviewer.exe";
}

} // namespace inin::site
