#pragma once

#include "viewer/window/viewer_settings.h"

#include <QPrinter>
#include <QString>

#include <cstddef>

namespace inin::viewer {

/// How letters are printed. The ticks determine which.
struct PrintOrder {
    QString printer;
    int copies = 1;
    QPrinter::DuplexMode duplex = QPrinter::DuplexAuto;
    std::size_t lettersPerJob = 0; ///< 0 means one job for all
    PrinterOffset offset;
};

} // namespace inin::viewer
