#include "viewer/window/printer_choice.h"

#include "viewer/window/spool_pdf.h"

#include <QPrinterInfo>

namespace inin::viewer {

using namespace Qt::StringLiterals;

std::vector<PrinterChoice> systemPrinters()
{
    std::vector<PrinterChoice> choices;
    const QString first = QPrinterInfo::defaultPrinterName();
    const QList<QPrinterInfo> printers = QPrinterInfo::availablePrinters();
    for (const QPrinterInfo &printer : printers) {
        const QString name = printer.printerName();
        const QString text = printer.description().isEmpty() ? name : u"%1（%2）"_s.arg(name, printer.description());
        choices.push_back(
            {name, text, name == first, printer.defaultDuplexMode(), [name] { return systemTrays(name); }});
    }
    return choices;
}

} // namespace inin::viewer
