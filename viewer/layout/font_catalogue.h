#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace inin::viewer {

/// A font in its file.
struct FontPlace {
    std::string path; ///< of the system
    int index = 0;    ///< which font of a collection
    std::string name;
};

/// Which fonts this machine has. Only fonts with TrueType outlines are told of.
class FontCatalogue {
public:
    FontCatalogue() = default;
    FontCatalogue(const FontCatalogue &) = delete;
    FontCatalogue &operator=(const FontCatalogue &) = delete;
    virtual ~FontCatalogue() = default;

    struct Match {
        FontPlace font;
        bool isAsked = false; ///< it is of the family, not just near it
    };
    /// The font of a family, or the nearest that can write Japanese; nothing when the machine has none.
    [[nodiscard]] virtual std::optional<Match> find(const std::string &family) = 0;
    /// Fonts that have a character and may stand in for one that lacks it, the nearest first; maybe not all of them. The
    /// machine's order of folders does not change which is first.
    [[nodiscard]] virtual std::vector<FontPlace> withCharacter(char32_t character) = 0;
};

/// The fonts of the folder that the variable ININ_FONTS names, else those of the system.
[[nodiscard]] std::unique_ptr<FontCatalogue> makeFontCatalogue();
/// The fonts that the system tells of; each system has a body of its own.
[[nodiscard]] std::unique_ptr<FontCatalogue> makeSystemFontCatalogue();

} // namespace inin::viewer
