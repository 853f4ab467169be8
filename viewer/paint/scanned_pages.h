#pragma once

#include "viewer/paint/page_source.h"

#include <memory>
#include <string>
#include <vector>

namespace inin::viewer {

/// A file of scanned pages: PDF, or a PNG, JPEG or TIFF picture; a TIFF may have several pages. Needs no display.
class ScannedFile {
public:
    /// Throws a RuntimeError with a sentence that names the path when the file cannot be read or is of another kind.
    explicit ScannedFile(const std::string &path);
    ScannedFile(const ScannedFile &) = delete;
    ScannedFile &operator=(const ScannedFile &) = delete;
    ~ScannedFile();

    [[nodiscard]] int pages() const;
    /// A page in shades of grey, counted from 0, at most kLongestSide dots high or wide. Null for a damaged page.
    [[nodiscard]] QImage page(int index);

    /// An A4 page at 300 dots per inch.
    static constexpr int kLongestSide = 3600;

private:
    std::unique_ptr<PageSource> m_pages;
};

/// False in a build that cannot read codes from scanned pages; the sentence for the user.
[[nodiscard]] bool canReadScans();
inline constexpr const char *kNoScans =
    "この版では、読み取ったページから QR コードを探せません。整理番号は入力できます。";

/// The texts of the QR codes on a page.
[[nodiscard]] std::vector<std::string> codesOn(const QImage &greyPage);

} // namespace inin::viewer
