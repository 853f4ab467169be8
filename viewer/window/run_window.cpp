#include "viewer/window/run_window.h"

#include "runtime/runtime_error.h"
#include "viewer/window/look.h"
#include "viewer/window/qt_text.h"
#include "viewer/window/viewer_window.h"

#include <QApplication>

#include <cstdlib>

namespace inin::viewer {

bool hasDisplay()
{
    for (const char *name : {"QT_QPA_PLATFORM", "WAYLAND_DISPLAY", "DISPLAY"}) {
        const char *const value = std::getenv(name);
        if (value != nullptr && *value != '\0') return true;
    }
    return false;
}

int runWindow(char *programName, const std::string &scriptPath, const std::string &letters)
{
    int argumentCount = 1;
    char *arguments[] = {programName, nullptr};
    QApplication application(argumentCount, arguments);
    applyLook(application);
    const ViewerServices services = realServices();
    try {
        auto open = std::make_unique<OpenLetters>(scriptPath);
        if (!letters.empty()) open->ticks.setText(letters);
        ViewerWindow window(scriptPath, std::move(open), services);
        window.show();
        window.start();
        return QApplication::exec();
    } catch (const RuntimeError &error) {
        services.tell(nullptr, QMessageBox::Critical, qtText(error.description()));
        return 1;
    }
}

} // namespace inin::viewer
