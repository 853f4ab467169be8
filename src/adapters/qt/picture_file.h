#pragma once

#include <QPixmap>

#include <string>

namespace inin {

/// The picture of a file, null when it is none. A picture that was just read is not read again.
[[nodiscard]] QPixmap pictureOf(const std::string &systemPath);

} // namespace inin
