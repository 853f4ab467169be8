#pragma once

#include "viewer/io/font_files.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

enum class JapaneseStyle : std::uint8_t { mincho, gothic };

/// A font family with Japanese characters, by its English and its Japanese name.
struct JapaneseFamily {
    JapaneseStyle style;
    std::string_view name, japaneseName;
};

/// The common families, the preferred ones of each style first. The first installed one replaces a missing family.
[[nodiscard]] std::span<const JapaneseFamily> japaneseFamilies();
/// The family of that name, ignoring ASCII case; null for an unknown name.
[[nodiscard]] const JapaneseFamily *japaneseFamily(std::string_view name);
/// The style that a family's name suggests. Forms are set in mincho, so that is the default.
[[nodiscard]] JapaneseStyle styleOfName(std::string_view family);

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

struct FontFace;

/// The fonts of a list of files. A search first opens the files that are listed under the requested name, and the others
/// only if that finds nothing.
class ListedFonts : public FontCatalogue {
public:
    explicit ListedFonts(std::vector<FontFile> files);
    ~ListedFonts() override;

    [[nodiscard]] std::optional<Match> find(const std::string &family) override;
    [[nodiscard]] std::vector<FontLocation> withCharacter(char32_t character) override;

private:
    struct File;
    using Names = std::vector<std::string>;
    using FileTest = std::function<bool(const FontFile &)>;
    using FaceTest = std::function<bool(const FontFace &)>;

    [[nodiscard]] static const std::vector<FontFace> &facesOf(File &file);
    /// A font of a family with these names that satisfies `passes`.
    [[nodiscard]] std::optional<FontLocation> fontOf(const Names &names, const FaceTest &passes);
    /// The first regular font that satisfies `passes`, or else the first one that does.
    [[nodiscard]] std::optional<FontLocation> first(const FileTest &isWanted, const FaceTest &passes);
    [[nodiscard]] std::optional<FontLocation> nearest(const std::string &family);

    std::vector<File> m_files;
};

} // namespace inin::viewer
