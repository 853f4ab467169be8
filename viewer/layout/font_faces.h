#pragma once

#include "viewer/layout/harfbuzz.h"

#include <string>
#include <vector>

namespace inin::viewer {

/// One font of a file, with the properties that a font search needs.
struct FontFace {
    FaceHandle face;
    int index = 0;
    std::vector<std::string> families; ///< in all languages of the file, Japanese first
    bool hasTrueTypeOutlines = false;
    /// Not slanted, of regular weight, neither a colour font nor a variable font.
    bool isRegular = false;

    [[nodiscard]] bool hasFamily(const std::string &family) const;
    [[nodiscard]] bool has(char32_t character) const;
};

/// The bytes of a font file, which its faces keep in memory. Null for a file that cannot be opened.
[[nodiscard]] BlobHandle openFontFile(const std::string &systemPath);
/// The fonts of a file or a collection. Empty for a file that is not a font.
[[nodiscard]] std::vector<FontFace> readFontFaces(const std::string &systemPath);

} // namespace inin::viewer
