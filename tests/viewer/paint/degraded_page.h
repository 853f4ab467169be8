#pragma once

#include <QImage>

namespace inin::viewer::test {

/// A printed page as a poor scanner may return it: a ring of coffee over or near the code in the foot margin, two degrees
/// of rotation to either side, every second page upside down, and noise. The same number gives the same page.
[[nodiscard]] QImage degradedPage(const QImage &page, int number);

} // namespace inin::viewer::test
