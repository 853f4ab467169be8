#include "viewer/window/spool_pdf.h"
#include "viewer/window/tray_text.h"

#include <QPrinterInfo>

namespace inin::viewer {

SpoolPdf systemSpool()
{
    return {}; // its queues accept only pages that a driver has painted
}

std::vector<TrayChoice> systemTrays(const QString &printer)
{
    const QPrinterInfo info = QPrinterInfo::printerInfo(printer);
    if (info.isNull()) return {};
    std::vector<TrayChoice> trays;
    const auto sources = QPrinter(info).supportedPaperSources();
    for (const QPrinter::PaperSource source : sources) trays.push_back(paintedTrayChoice(source));
    return trays;
}

} // namespace inin::viewer
