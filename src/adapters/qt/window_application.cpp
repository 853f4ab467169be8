#include "adapters/qt/window_application.h"

namespace inin::qt {

bool WindowApplication::notify(QObject *receiver, QEvent *event)
try {
    return QApplication::notify(receiver, event);
} catch (...) {
    if (!onFault) throw;
    onFault(std::current_exception());
    return true;
}

} // namespace inin::qt
