// viewer_openings FOLDER: for each line of the standard input, opens the window of formviewer with letters in FOLDER, closes
// it and prints a line. scripts/soak watches the memory of the process.
#include "support/file_bytes.h"
#include "viewer/support/viewer_jobs.h"
#include "viewer/window/page_view.h"
#include "viewer/window/viewer_style.h"
#include "viewer/window/viewer_window.h"

#include <QApplication>
#include <QPixmapCache>

#include <iostream>
#include <string>

using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

constexpr int kLetters = 40;

/// Opens the letters, checks them all, paints two pages, reads the letters again and closes the window.
void openAndClose(const std::string &script, const ViewerServices &services)
{
    ViewerWindow window(script, std::make_unique<OpenLetters>(script), services);
    window.show();
    window.finishCheck();
    QApplication::processEvents();
    window.showLetter(kLetters / 2);
    QApplication::processEvents();
    window.reload();
    window.finishCheck();
    QApplication::processEvents();
    window.close();
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::cerr << "usage: viewer_openings FOLDER\n";
        return 2;
    }
    const std::string folder = argv[1];
    QApplication application(argc, argv);
    applyStyle(application);
    const std::string script = writePrintJob(inin::pathOf(folder), kForm, std::vector<Row>(kLetters, ordinaryRow()));
    ViewerServices services = realServices();
    services.settingsFile = QString::fromStdString(folder + "/settings.ini");
    services.ledgerPath = [&](const LedgerSettings &) { return folder + "/ledger.db"; };
    for (std::string line; std::getline(std::cin, line);) {
        openAndClose(script, services);
        // The toolkit scales the arrow of each new toolbar anew and caches the result: about 800 bytes, up to the limit of
        // 10 MB. Without that, memory that grows is the viewer's.
        QPixmapCache::clear();
        std::cout << "opened" << std::endl;
    }
    return 0;
}
