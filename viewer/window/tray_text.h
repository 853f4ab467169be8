#pragma once

#include "viewer/window/print_order.h"

#include <optional>

namespace inin::viewer {

/// The Japanese name of a tray that a system calls "Tray1" or "Manual"; other names unchanged.
[[nodiscard]] QString trayText(const QString &name);

/// The choice for a tray of a printer whose pages are painted.
[[nodiscard]] TrayChoice paintedTrayChoice(QPrinter::PaperSource source);
/// The tray for the key of such a choice; empty for another key.
[[nodiscard]] std::optional<QPrinter::PaperSource> paintedTray(const QString &key);

} // namespace inin::viewer
