#pragma once

#include <QIcon>

namespace inin::theme {

/// The icon of the programs: a letter with a red seal.
[[nodiscard]] QIcon applicationIcon();

} // namespace inin::theme
