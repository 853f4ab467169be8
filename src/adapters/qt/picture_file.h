#pragma once

#include <QPixmap>

#include <string>

namespace inin::qt {

/// The picture of a file, null when it cannot be decoded.
[[nodiscard]] QPixmap pictureOf(const std::string &systemPath);

} // namespace inin::qt
