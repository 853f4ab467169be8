#include "system/file_path.h"
#include "system/whole_file.h"
#include "viewer/app/toolkit.h"
#include "viewer/io/system_edges.h"
#include "viewer/paint/qt_page_painter.h"
#include "viewer/window/run_window.h"

#include <fmt/format.h>

#include <algorithm>

namespace inin::viewer {

int showLetters(const ViewCommand &command, const std::string &programName)
{
    if (hasScreen()) return runWindow(programName, command.script, command.letters);
    showFailure("formviewer: 画面がないので、--pdf、--png、--check のどれかを指定してください。");
    return kBadCommand;
}

void writePngs(const ViewCommand &command, LetterRenderer &renderer, const std::vector<std::size_t> &letters)
{
    makeFolder(command.pngFolder);
    // With leading zeros, names sort in the order of the letters.
    const std::size_t digits = std::max<std::size_t>(3, std::to_string(renderer.set().size()).size());
    QtGlyphs glyphs;
    for (const std::size_t letter : letters) {
        writeWholeFile(pathOf(fmt::format("{}/{:0{}}.png", command.pngFolder, letter + 1, digits)),
                       letterPng(renderer, letter, command.dotsPerInch, glyphs), NewFile::ownerOnly);
    }
}

} // namespace inin::viewer
