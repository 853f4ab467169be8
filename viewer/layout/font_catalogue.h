#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace inin::viewer {

/// The file of a font.
struct FontLocation {
    std::string path; ///< of the system
    int index = 0;    ///< in a collection
    std::string name;
};

/// The fonts of this machine that have TrueType outlines.
class FontCatalogue {
public:
    FontCatalogue() = default;
    FontCatalogue(const FontCatalogue &) = delete;
    FontCatalogue &operator=(const FontCatalogue &) = delete;
    virtual ~FontCatalogue() = default;

    struct Match {
        FontLocation font;
        bool isExact = false; ///< the font is of the requested family
    };
    /// The font of a family, or the closest one with Japanese characters. Empty when the machine has none.
    [[nodiscard]] virtual std::optional<Match> find(const std::string &family) = 0;
    /// Some of the fonts that have a character, the best fallback first. The first one does not depend on the machine's
    /// order of folders.
    [[nodiscard]] virtual std::vector<FontLocation> withCharacter(char32_t character) = 0;
};

/// The fonts of the folder in the environment variable ININ_FONTS, or those of the system if it is not set.
[[nodiscard]] std::unique_ptr<FontCatalogue> makeFontCatalogue();
/// The fonts that the system reports. Implemented for each system.
[[nodiscard]] std::unique_ptr<FontCatalogue> makeSystemFontCatalogue();

} // namespace inin::viewer
