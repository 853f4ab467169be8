#include "system/file_path.h"
#include "system/whole_file.h"
#include "viewer/app/toolkit.h"
#include "viewer/io/system_edges.h"
#include "viewer/paint/qt_letter_page.h"
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
        const std::size_t pages = renderer.pageCount(letter);
        for (std::size_t page = 0; page < pages; ++page) {
            const std::string number = fmt::format("{:0{}}", letter + 1, digits);
            const std::string name = pages == 1 ? number : fmt::format("{}-{}", number, page + 1);
            writeWholeFile(pathOf(fmt::format("{}/{}.png", command.pngFolder, name)),
                           pagePng(renderer, {letter, page}, command.dotsPerInch, glyphs), NewFile::ownerOnly);
        }
    }
}

} // namespace inin::viewer
