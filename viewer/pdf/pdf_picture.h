#pragma once

#include "viewer/form/picture.h"
#include "viewer/pdf/pdf_file.h"

#include <string>
#include <vector>

namespace inin::viewer {

/// The pictures of one PDF file. Each is written once, when it is first used; a JPEG file is written unchanged.
class PdfPictures {
public:
    explicit PdfPictures(PdfFile &file) : m_file(file) {}
    /// The number in the picture's resource name. `picture` must outlive this.
    [[nodiscard]] std::size_t numberOf(const Picture &picture);
    /// The entries of the resource dictionary: "/I0 7 0 R".
    [[nodiscard]] std::string resources() const;

private:
    struct Written {
        const Picture *picture;
        int object;
    };
    [[nodiscard]] int write(const Picture &picture);
    [[nodiscard]] int writeAlpha(const Picture &picture);

    PdfFile &m_file;
    std::vector<Written> m_pictures;
};

} // namespace inin::viewer
