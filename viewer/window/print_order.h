#pragma once

#include "viewer/window/viewer_settings.h"

#include <QPrinter>
#include <QString>

#include <cstddef>

namespace inin::viewer {

/// How letters are printed; which, the ticks say.
struct PrintOrder {
    QString printer;
    int copies = 1;
    QPrinter::DuplexMode duplex = QPrinter::DuplexAuto;
    std::size_t lettersPerJob = 0; ///< 0 is one job for all
    PrinterOffset offset;
};

} // namespace inin::viewer
