#pragma once

#include "viewer/form/svg_style.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

namespace inin::viewer {

/// Returns the bytes of a picture file that a form names by a path relative to its own folder, such as "logo.png". Throws
/// a RuntimeError with a sentence for a file that is outside the folder, missing or too large.
using PictureFiles = std::function<std::string(const std::string &name)>;

/// Reads the image elements of a form: PNG and JPEG, embedded or in files. A picture that is shown several times is
/// decoded once.
class SvgImages {
public:
    /// Without `files` only embedded pictures are read.
    explicit SvgImages(PictureFiles files) : m_files(std::move(files)) {}

    /// The command for an element. Reports an unusable picture and returns nothing.
    [[nodiscard]] std::optional<PictureCommand> read(const XmlAttributes &attributes, const Affine &transform,
                                                     const SvgStyle &style, const NoticeHandler &report);

private:
    [[nodiscard]] std::shared_ptr<const Picture> pictureOf(std::string_view reference, double opacity);
    [[nodiscard]] std::string bytesOf(std::string_view reference) const;

    PictureFiles m_files;
    std::map<std::pair<std::string, double>, std::shared_ptr<const Picture>> m_pictures;
    std::size_t m_pixels = 0; ///< of all pictures so far
};

} // namespace inin::viewer
