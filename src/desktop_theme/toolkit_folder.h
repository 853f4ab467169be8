#pragma once

#include <QString>

namespace inin::theme {

/// The folder "qt" beside the program: the package for Windows has the toolkit's plugins and texts there.
[[nodiscard]] QString toolkitFolder();
/// Lets the toolkit find its plugins in that folder if it exists. Call it first in main(): the toolkit reads "qt.conf"
/// only for a program with an application object, and not on every share.
void useToolkitFolder();

} // namespace inin::theme
