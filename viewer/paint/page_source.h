#pragma once

#include <QImage>

#include <memory>
#include <string>

namespace inin::viewer {

/// The pages of a file as pictures.
class PageSource {
public:
    PageSource() = default;
    PageSource(const PageSource &) = delete;
    PageSource &operator=(const PageSource &) = delete;
    virtual ~PageSource() = default;
    [[nodiscard]] virtual int pages() const = 0;
    /// A page in shades of grey, counted from 0. Null for a damaged page.
    [[nodiscard]] virtual QImage page(int index) = 0;
};

/// Opens a PDF. Its pages have 200 dots per inch, or fewer if they would be longer than `longestSide` dots. Throws a
/// RuntimeError with a sentence for a damaged or encrypted PDF, and for every PDF in a build without the library.
[[nodiscard]] std::unique_ptr<PageSource> openPdf(std::string bytes, int longestSide);

} // namespace inin::viewer
