#pragma once

#include <QApplication>

#include <exception>
#include <functional>

namespace inin::qt {

/// The toolkit's application with an exception boundary around every event. Event procedures have their own
/// (EventEdge); this one catches exceptions of the code around them, for example when memory runs out. The toolkit's
/// loops do not survive an exception: an open box hangs, and a destructor on the call stack aborts the process.
class WindowApplication : public QApplication {
public:
    using QApplication::QApplication;
    /// Called with the exception that left an event. If empty, the exception propagates.
    std::function<void(std::exception_ptr fault)> onFault;

    bool notify(QObject *receiver, QEvent *event) override;
};

} // namespace inin::qt
