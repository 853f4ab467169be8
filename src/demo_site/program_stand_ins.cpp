#include "demo_site/site_maker.h"

#include "runtime/runtime_error.h"
#include "system/file_path.h"
#include "system/program_edges.h"
#include "system/whole_file.h"

#include <fmt/format.h>

#include <algorithm>

namespace inin::site {

namespace {

namespace fs = std::filesystem;

/// The starter reads the viewer's path from this file in its folder. Few users may create links, and a copy would need the
/// viewer's libraries beside it.
constexpr std::string_view kViewerNote = "formviewer.path";
/// UTF-16 texts that only our own programs contain: a text of the starter, and a name in the viewer's version.
constexpr std::u16string_view kMarks[] = {u"STAND-IN of the demo site", u"formviewer.exe"};

/// The starter is beside this program.
void copyStarter(const fs::path &target)
{
    const fs::path starter = programFile().parent_path() / "inin-stand-in.exe";
    const std::string bytes = tryReadWholeFile(starter).value_or("");
    if (bytes.empty())
        throw RuntimeError(error_number::fileNotFound,
                           fmt::format("「{}」がありません。パッケージを展開し直してください。", textOf(starter)));
    writeWholeFile(target, bytes, NewFile::byTheMask);
}

} // namespace

void writeMenu(const fs::path &file)
{
    copyStarter(file);
}

void writeFormTool(const fs::path &file, const fs::path &formViewer)
{
    copyStarter(file);
    const fs::path note = file.parent_path() / kViewerNote;
    std::error_code error;
    fs::remove(note, error);
    if (!formViewer.empty()) writeWholeFile(note, textOf(formViewer) + "\n", NewFile::byTheMask);
}

bool isOwnProgram(const fs::path &file)
{
    const std::string bytes = tryReadWholeFile(file).value_or("");
    return std::ranges::any_of(kMarks, [&](std::u16string_view mark) {
        return bytes.find(std::string_view(reinterpret_cast<const char *>(mark.data()),
                                           mark.size() * sizeof(char16_t))) != bytes.npos;
    });
}

fs::path formViewerName()
{
    return "formviewer.exe";
}

} // namespace inin::site
