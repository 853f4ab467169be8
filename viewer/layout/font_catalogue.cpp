#include "viewer/layout/font_catalogue.h"

#include "viewer/io/system_edges.h"
#include "viewer/layout/listed_fonts.h"

namespace inin::viewer {

std::unique_ptr<FontCatalogue> makeFontCatalogue()
{
    const std::string folder = environmentText("ININ_FONTS");
    if (!folder.empty()) return std::make_unique<ListedFonts>(fontFilesIn(folder));
    return makeSystemFontCatalogue();
}

} // namespace inin::viewer
