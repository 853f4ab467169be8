#pragma once

#include "viewer/io/font_files.h"
#include "viewer/layout/font_catalogue.h"

#include <functional>

namespace inin::viewer {

struct FontFace;

/// The fonts of a list of files. A file is opened when a search comes to it: first those that are listed under a wanted
/// name, the others only when that finds nothing.
class ListedFonts : public FontCatalogue {
public:
    explicit ListedFonts(std::vector<FontFile> files);
    ~ListedFonts() override;

    [[nodiscard]] std::optional<Match> find(const std::string &family) override;
    [[nodiscard]] std::vector<FontPlace> withCharacter(char32_t character) override;

private:
    struct File;
    using Names = std::vector<std::string>;
    using FileTest = std::function<bool(const FontFile &)>;
    using FaceTest = std::function<bool(const FontFace &)>;

    [[nodiscard]] static const std::vector<FontFace> &facesOf(File &file);
    /// A font that answers to one of the names of a family and passes.
    [[nodiscard]] std::optional<FontPlace> fontOf(const Names &names, const FaceTest &passes);
    /// The first that passes, an ordinary one if there is one.
    [[nodiscard]] std::optional<FontPlace> first(const FileTest &isWanted, const FaceTest &passes);
    [[nodiscard]] std::optional<FontPlace> nearest(const std::string &family);

    std::vector<File> m_files;
};

} // namespace inin::viewer
