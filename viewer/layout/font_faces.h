#pragma once

#include "viewer/layout/harfbuzz.h"

#include <string>
#include <vector>

namespace inin::viewer {

/// One font of a file, with what a search for fonts asks.
struct FontFace {
    FaceHandle face;
    int index = 0;
    std::vector<std::string> families; ///< in every language that the file has, Japanese first
    bool hasTrueTypeOutlines = false;
    /// Upright, of ordinary weight, with outlines of one colour and one shape.
    bool isOrdinary = false;

    [[nodiscard]] bool answersTo(const std::string &family) const;
    [[nodiscard]] bool has(char32_t character) const;
};

/// The bytes of a font file, held as long as a face looks at them; null for a file that cannot be opened.
[[nodiscard]] BlobHandle openFontFile(const std::string &systemPath);
/// The fonts of a file, one or those of a collection; none for a file that is no font.
[[nodiscard]] std::vector<FontFace> readFontFaces(const std::string &systemPath);

} // namespace inin::viewer
