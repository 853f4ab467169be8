#pragma once

#include "viewer/io/font_files.h"
#include "viewer/layout/font_catalogue.h"

#include <functional>

namespace inin::viewer {

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
