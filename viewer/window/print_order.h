#pragma once

#include "viewer/window/viewer_settings.h"

#include <QPrinter>
#include <QString>

#include <cstddef>

namespace inin::viewer {

/// A paper tray of a printer.
struct TrayChoice {
    QString key; ///< for PrintOrder::tray
    QString text;
};

/// How letters are printed. The ticks determine which.
struct PrintOrder {
    QString printer;
    int copies = 1;
    QPrinter::DuplexMode duplex = QPrinter::DuplexAuto;
    QString tray; ///< the key of a tray; empty for the printer's own setting
    LetterOrder letterOrder = LetterOrder::forward;
    std::size_t lettersPerJob = 0; ///< 0 means one job for all
    PrinterOffset offset;
    LetterArrangement arrangement;
};

} // namespace inin::viewer
