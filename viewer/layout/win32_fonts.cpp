#include "viewer/layout/font_catalogue.h"

namespace inin::viewer {

std::unique_ptr<FontCatalogue> makeSystemFontCatalogue()
{
    return std::make_unique<ListedFonts>(installedFontFiles());
}

} // namespace inin::viewer
