#pragma once

#include <QApplication>

#include <exception>
#include <functional>

namespace inin::qt {

/// The toolkit's application with an edge around every event. Event procedures have their own edge (EventEdge); this one is
/// for exceptions of the code around them, memory that has run out for example. The toolkit's loops do not survive an
/// exception: a box that is open hangs, and a destructor on the way aborts the process.
class WindowApplication : public QApplication {
public:
    using QApplication::QApplication;
    /// Takes the exception that left an event. Without it the exception goes on.
    std::function<void(std::exception_ptr fault)> onFault;

    bool notify(QObject *receiver, QEvent *event) override;
};

} // namespace inin::qt
