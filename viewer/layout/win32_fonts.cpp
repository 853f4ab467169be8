#include "viewer/layout/listed_fonts.h"

namespace inin::viewer {

std::unique_ptr<FontCatalogue> makeSystemFontCatalogue()
{
    return std::make_unique<ListedFonts>(installedFontFiles());
}

} // namespace inin::viewer
