#pragma once

#include "viewer/window/print_order.h"

#include <functional>
#include <vector>

namespace inin::viewer {

/// A printer that the user can choose.
struct PrinterChoice {
    QString name;
    QString description; ///< as shown; the name for a printer without a description
    bool isDefault = false;
    QPrinter::DuplexMode duplex = QPrinter::DuplexNone; ///< its default
    /// Its trays, which take a moment to find out; empty for a printer whose trays are unknown.
    std::function<std::vector<TrayChoice>()> trays = {};
};
[[nodiscard]] std::vector<PrinterChoice> systemPrinters();

} // namespace inin::viewer
