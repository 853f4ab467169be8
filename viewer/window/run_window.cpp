#include "viewer/window/run_window.h"

#include "runtime/runtime_error.h"
#include "viewer/io/system_edges.h"
#include "viewer/window/qt_text.h"
#include "viewer/window/viewer_style.h"
#include "viewer/window/viewer_window.h"

#include <QApplication>

namespace inin::viewer {

int runWindow(std::string programName, const std::string &path, const std::function<LetterSet()> &open,
              const std::string &letters)
{
    int argumentCount = 1;
    char *arguments[] = {programName.data(), nullptr};
    QApplication application(argumentCount, arguments);
    applyStyle(application);
    const ViewerServices services = realServices();
    try {
        auto opened = std::make_unique<OpenLetters>(open());
        if (!letters.empty()) opened->ticks.setText(letters);
        ViewerWindow window(path, std::move(opened), services);
        // The toolkit ignores the show state that the starting program requests.
        startsMaximised() ? window.showMaximized() : window.show();
        window.start();
        return QApplication::exec();
    } catch (const RuntimeError &error) {
        services.showMessage(nullptr, QMessageBox::Critical, qtText(error.description()));
        return 1;
    }
}

} // namespace inin::viewer
